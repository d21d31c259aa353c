#include "misuse/contents.h"

#include <bit>
#include <cstring>
#include <set>
#include <utility>

#include "misuse/belongings.h"
#include "support/host.h"

namespace misuse {
namespace {

using velmosav::FieldKind;
using velmosav::FieldLayout;
using velmosav::RecordLayout;

/// A number that everything taken in has changed.
class Digest {
 public:
  void bytes(const void* place, std::size_t size) {
    const auto* from = static_cast<const char*>(place);
    for (; size >= sizeof(std::uint32_t); size -= sizeof(std::uint32_t), from += sizeof(std::uint32_t)) {
      std::uint32_t word = 0;
      std::memcpy(&word, from, sizeof word);
      mix(word);
    }
    for (; size != 0; --size, ++from) mix(static_cast<unsigned char>(*from));
  }
  void text(BSTR text) {
    mix(text ? SysStringByteLen(text) : ~0U);
    if (text) bytes(text, SysStringByteLen(text));
  }
  void variant(const VARIANT& value) {
    bytes(&value, sizeof value);
    if (value.vt & VT_BYREF) return;  // what it refers to is another variable
    if (value.vt & VT_ARRAY) {
      array(value.parray, holding_of(static_cast<VARTYPE>(value.vt & ~VT_ARRAY)), nullptr);
    } else if (value.vt == VT_BSTR) {
      text(value.bstrVal);
    }
  }
  void array(const SAFEARRAY* array, Holding holding, const RecordLayout* layout) {
    if (!array) return;
    bytes(array, sizeof *array + (array->cDims - 1U) * sizeof(SAFEARRAYBOUND));
    if (!array->pvData) return;
    const Elements elements = elements_of(array, holding, layout);
    const auto* place = static_cast<const char*>(array->pvData);
    bytes(place, element_count(array) * array->cbElements);
    for (unsigned long i = 0; i < element_count(array); ++i, place += array->cbElements) {
      if (elements.holding == Holding::Text) text(*reinterpret_cast<const BSTR*>(place));
      if (elements.holding == Holding::Variant) variant(*reinterpret_cast<const VARIANT*>(place));
      if (elements.holding == Holding::Record && elements.layout) held_by(*elements.layout, place);
    }
  }
  void field(const FieldLayout& field, const void* record) {
    const char* place = static_cast<const char*>(record) + field.offset;
    switch (field.kind) {
      case FieldKind::Text:
        text(*reinterpret_cast<const BSTR*>(place));
        break;
      case FieldKind::Record:
        for (unsigned i = 0; i < field.count; ++i) held_by(*field.record, place + i * field.record->size);
        break;
      case FieldKind::TextArray:
      case FieldKind::ObjectArray:
      case FieldKind::VariantArray:
      case FieldKind::RecordArray:
        array(*reinterpret_cast<SAFEARRAY* const*>(place), holding_of(field.kind), field.record);
        break;
      default:
        break;
    }
  }
  /// What a record's bytes lead to.
  void held_by(const RecordLayout& layout, const void* record) {
    for (const FieldLayout& one : layout.fields) field(one, record);
  }
  [[nodiscard]] std::uint64_t value() const { return value_; }

 private:
  void mix(std::uint32_t word) { value_ = std::rotl((value_ ^ word) * 0x9E3779B97F4A7C15U, 29); }

  std::uint64_t value_ = 1;
};

}  // namespace

Contents::Contents(const VARIANT& value) {
  Digest digest;
  digest.variant(value);
  parts_ = {digest.value()};
}

Contents::Contents(const RecordLayout& layout, const void* record) : layout_(&layout) {
  for (std::size_t i = 0; i < layout.fields.size(); ++i) {
    const FieldLayout& field = layout.fields[i];
    const std::size_t end = i + 1 < layout.fields.size() ? layout.fields[i + 1].offset : layout.size;
    Digest digest;
    digest.bytes(static_cast<const char*>(record) + field.offset, end - field.offset);
    digest.field(field, record);
    parts_.push_back(digest.value());
  }
}

std::string Contents::change_to(const Contents& later) const {
  for (std::size_t i = 0; i < parts_.size(); ++i) {
    if (parts_[i] != later.parts_[i]) return layout_ ? host::utf8(layout_->fields[i].name) : "its value";
  }
  return {};
}

bool is_unchanged_by_faults(const std::wstring& class_name, const std::wstring& method) {
  static const std::set<std::pair<std::wstring, std::wstring>> kListed{
#define UNCHANGED(class_name, method) {L## #class_name, L## #method},
#define STEPS(class_name, method, remains)
#include "atomicity/methods.def"
  };
  return kListed.contains({class_name, method});
}

}  // namespace misuse
