#include "records/record.h"

#include "automation/platform.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <memory>

#include "automation/fault.h"
#include "automation/text.h"
#include "records/record_array.h"

namespace velmosav {
namespace {

template <class T>
T& at(void* record, unsigned offset) {
  return *reinterpret_cast<T*>(static_cast<char*>(record) + offset);
}

template <class T>
const T& at(const void* record, unsigned offset) {
  return *reinterpret_cast<const T*>(static_cast<const char*>(record) + offset);
}

/// Bytes of a field that owns nothing; 0 for the others.
constexpr unsigned plain_size(FieldKind kind) noexcept {
  constexpr std::array<unsigned char, 6> kSizes{1, 2, 2, 4, 8, 8};  // Byte to Currency
  const auto index = static_cast<std::size_t>(kind);
  return index < kSizes.size() ? kSizes[index] : 0;
}
static_assert(plain_size(FieldKind::Currency) == 8 && plain_size(FieldKind::Text) == 0);

/// Fills a zeroed record with the plain fields of another and with copies of its texts.
void duplicate(const RecordLayout& layout, const void* source, void* target) {
  for (const FieldLayout& field : layout.fields) {
    switch (field.kind) {
      case FieldKind::Text: {
        const BSTR text = at<BSTR>(source, field.offset);
        if (text) at<BSTR>(target, field.offset) = Bstr(view(text)).detach();
        break;
      }
      case FieldKind::Record:
        for (unsigned i = 0; i < field.count; ++i) {
          const unsigned offset = field.offset + i * field.record->size;
          duplicate(*field.record, &at<char>(source, offset), &at<char>(target, offset));
        }
        break;
      default:
        if (plain_size(field.kind) == 0) raise(Fault::InvalidArgument);
        std::memcpy(&at<char>(target, field.offset), &at<char>(source, field.offset), plain_size(field.kind));
    }
  }
}

/// A record under construction, freed when its building fails.
class Draft {
 public:
  explicit Draft(const RecordLayout& layout) : layout_(layout), bytes_(new char[layout.size]()) {}
  ~Draft() { clear_record(layout_, bytes_.get()); }
  Draft(const Draft&) = delete;
  Draft& operator=(const Draft&) = delete;
  [[nodiscard]] char* get() const { return bytes_.get(); }

 private:
  const RecordLayout& layout_;
  std::unique_ptr<char[]> bytes_;
};

}  // namespace

void clear_record(const RecordLayout& layout, void* record) noexcept {
  for (const FieldLayout& field : layout.fields) {
    switch (field.kind) {
      case FieldKind::Text:
        SysFreeString(at<BSTR>(record, field.offset));
        break;
      case FieldKind::Object:
        if (IDispatch* object = at<IDispatch*>(record, field.offset)) object->Release();
        break;
      case FieldKind::Record:
        for (unsigned i = 0; i < field.count; ++i) {
          clear_record(*field.record, &at<char>(record, field.offset + i * field.record->size));
        }
        break;
      case FieldKind::RecordArray:
        destroy_record_array(at<SAFEARRAY*>(record, field.offset), *field.record);
        break;
      case FieldKind::TextArray:
        destroy_plain_array(at<SAFEARRAY*>(record, field.offset), PlainElement::Text);
        break;
      case FieldKind::ObjectArray:
        destroy_plain_array(at<SAFEARRAY*>(record, field.offset), PlainElement::Object);
        break;
      case FieldKind::VariantArray:
        destroy_plain_array(at<SAFEARRAY*>(record, field.offset), PlainElement::Variant);
        break;
      case FieldKind::Byte:
      case FieldKind::Integer:
      case FieldKind::Boolean:
      case FieldKind::Long:
      case FieldKind::Double:
      case FieldKind::Currency:
        break;
    }
  }
  std::memset(record, 0, layout.size);
}

void clear_record(const GUID& id, void* record) noexcept {
  if (const RecordLayout* layout = layout_by_id(id)) clear_record(*layout, record);
}

void require_unlocked(const RecordLayout& layout, const void* record) {
  for (const FieldLayout& field : layout.fields) {
    switch (field.kind) {
      case FieldKind::Record:
        for (unsigned i = 0; i < field.count; ++i) {
          require_unlocked(*field.record, &at<char>(record, field.offset + i * field.record->size));
        }
        break;
      case FieldKind::TextArray:
      case FieldKind::ObjectArray:
      case FieldKind::VariantArray:
      case FieldKind::RecordArray:
        require_unlocked(at<SAFEARRAY*>(record, field.offset), field.record);
        break;
      default:
        break;
    }
  }
}

void copy_record(const RecordLayout& layout, const void* source, void* target) {
  Draft draft(layout);
  duplicate(layout, source, draft.get());
  std::swap_ranges(draft.get(), draft.get() + layout.size, static_cast<char*>(target));
}

}  // namespace velmosav
