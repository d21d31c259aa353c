// Generated arrays and records.
#include <cstring>
#include <limits>

#include "misuse/generator.h"
#include "misuse/odd_numbers.h"

namespace misuse {
namespace {

using velmosav::FieldKind;
using velmosav::FieldLayout;
using velmosav::RecordLayout;

constexpr VARTYPE kElementTypes[]{VT_I2,       VT_I4,  VT_R8, VT_BSTR, VT_VARIANT,
                                  VT_DISPATCH, VT_UI1, VT_CY, VT_BOOL};
constexpr std::size_t kFewTableLines = 5;

template <class T>
T& at(void* record, std::size_t offset) {
  return *reinterpret_cast<T*>(static_cast<char*>(record) + offset);
}

VARTYPE element_type(Holding holding) {
  switch (holding) {
    case Holding::Text:
      return VT_BSTR;
    case Holding::Object:
      return VT_DISPATCH;
    case Holding::Variant:
      return VT_VARIANT;
    default:
      return VT_RECORD;
  }
}

std::size_t element_size(Holding holding, const RecordLayout* layout) {
  return holding == Holding::Record    ? layout->size
         : holding == Holding::Variant ? sizeof(VARIANT)
                                       : sizeof(void*);
}

}  // namespace

std::vector<SAFEARRAYBOUND> Generator::bounds(std::size_t rows) {
  constexpr long kLowest[]{
      1, 1, -1, 5, -3, 32760, -32768, std::numeric_limits<long>::max() - 3, std::numeric_limits<long>::min()};
  std::vector<SAFEARRAYBOUND> list{{static_cast<ULONG>(rows), dice_.one_in(8) ? dice_.of(kLowest) : 0}};
  if (dice_.one_in(10)) {
    const std::size_t more = 1 + dice_.below(2);
    for (std::size_t i = 0; i < more; ++i) {
      list.insert(dice_.coin() ? list.begin() : list.end(),
                  {static_cast<ULONG>(dice_.below(4)), dice_.one_in(8) ? dice_.of(kLowest) : 0});
    }
  }
  return list;
}

SAFEARRAY* Generator::allocated(VARTYPE type, const RecordLayout* layout, std::size_t rows) {
  std::vector<SAFEARRAYBOUND> sizes = bounds(rows);
  IRecordInfo* info = nullptr;
  for (const auto& record : surroundings_.records) {
    if (record.layout == layout) info = record.info.get();
  }
  return SafeArrayCreateEx(type, static_cast<UINT>(sizes.size()), sizes.data(),
                           type == VT_RECORD ? info : nullptr);
}

/// Says nothing of its elements but their size.
SAFEARRAY* Generator::untyped(std::size_t element_size, std::size_t rows, bool with_data) {
  const std::vector<SAFEARRAYBOUND> sizes = bounds(rows);
  SAFEARRAY* array = nullptr;
  SafeArrayAllocDescriptor(static_cast<UINT>(sizes.size()), &array);
  array->cbElements = static_cast<ULONG>(element_size);
  // The last dimension stands first.
  std::copy(sizes.rbegin(), sizes.rend(), array->rgsabound);
  if (with_data) SafeArrayAllocData(array);
  return array;
}

/// Locked, or forbidden to resize, now and then.
void Generator::restrict_use(SAFEARRAY* array) {
  if (!array) return;
  if (dice_.one_in(15) && array->pvData && SUCCEEDED(SafeArrayLock(array))) {
    locked_.arrays.push_back(array);
  }
  if (dice_.one_in(40)) {
    array->fFeatures = static_cast<USHORT>(array->fFeatures | FADF_FIXEDSIZE);
  }
}

SAFEARRAY* Generator::wrong_array(Holding holding, const RecordLayout* layout) {
  const std::size_t rows = dice_.below(4);
  const std::size_t size = element_size(holding, layout);
  // The platform itself cannot copy a VARIANT that holds an array of records.
  switch (holding == Holding::Variant ? 2 * dice_.below(2) : dice_.below(4)) {
    case 0: {
      SAFEARRAY* array = allocated(dice_.of(kElementTypes), nullptr, rows);
      if (VARTYPE type = VT_EMPTY; array && SUCCEEDED(SafeArrayGetVartype(array, &type))) {
        fill_elements(array, holding_of(type), nullptr, L"", 2);
      }
      return array;
    }
    case 1: {
      const RecordLayout* other = dice_.of(surroundings_.records).layout;
      SAFEARRAY* array = allocated(VT_RECORD, other, dice_.below(3));
      if (array) fill_elements(array, Holding::Record, other, L"", 3);
      return array;
    }
    case 2: {
      const std::size_t sizes[]{1, 2, 3, 8, size + 4, size > 4 ? size - 4 : 2, 2 * size};
      return untyped(dice_.of(sizes), rows, true);
    }
    default:
      return untyped(size, rows, false);
  }
}

SAFEARRAY* Generator::right_array(Holding holding, const RecordLayout* layout, int depth) {
  std::size_t rows = dice_.below(depth == 0 ? 7 : 3);
  if (depth == 0 && dice_.one_in(25)) rows = dice_.below(30);
  return dice_.coin() ? untyped(element_size(holding, layout), rows, true)
                      : allocated(element_type(holding), layout, rows);
}

SAFEARRAY* Generator::array(Holding holding, const RecordLayout* layout, std::wstring_view name, int depth) {
  if (dice_.one_in(10)) return nullptr;
  SAFEARRAY* array = nullptr;
  if (dice_.one_in(12)) {
    array = wrong_array(holding, layout);
  } else {
    array = right_array(holding, layout, depth);
    if (array) fill_elements(array, holding, layout, name, depth + 1);
  }
  restrict_use(array);
  return array;
}

void Generator::fill_elements(SAFEARRAY* array, Holding holding, const RecordLayout* layout,
                              std::wstring_view name, int depth) {
  if (dice_.one_in(10)) return;  // all zero
  const unsigned long count = element_count(array);
  for (unsigned long i = 0; i < count; ++i) {
    void* place = static_cast<char*>(array->pvData) + i * array->cbElements;
    switch (holding) {
      case Holding::Text:
        at<BSTR>(place, 0) = text(name);
        break;
      case Holding::Object:
        at<IDispatch*>(place, 0) = dice_.coin() ? object() : nullptr;
        break;
      case Holding::Variant:
        at<VARIANT>(place, 0) = variant(name, depth + 1);
        break;
      case Holding::Record:
        fill(*layout, place, depth);
        break;
      case Holding::Plain:
        break;
    }
  }
}

void Generator::fill(const RecordLayout& layout, void* record, int depth) {
  if (dice_.one_in(12)) return;  // all zero
  const std::size_t skipped = 1 + dice_.below(4);
  for (const FieldLayout& field : layout.fields) {
    if (!dice_.one_in(skipped)) continue;
    void* place = &at<char>(record, field.offset);
    switch (field.kind) {
      case FieldKind::Byte:
        at<BYTE>(place, 0) = odd_whole<BYTE>(dice_);
        break;
      case FieldKind::Integer:
        at<short>(place, 0) = odd_whole<short>(dice_);
        break;
      case FieldKind::Boolean:
        at<VARIANT_BOOL>(place, 0) = odd_boolean(dice_);
        break;
      case FieldKind::Long:
        at<long>(place, 0) = odd_whole<long>(dice_);
        break;
      case FieldKind::Double: {
        const double value = odd_double(dice_);
        std::memcpy(place, &value, sizeof value);
        break;
      }
      case FieldKind::Currency: {
        const CY value = odd_currency(dice_);
        std::memcpy(place, &value, sizeof value);
        break;
      }
      case FieldKind::Text:
        at<BSTR>(place, 0) = text(field.name);
        break;
      case FieldKind::Object:
        at<IDispatch*>(place, 0) = object();
        break;
      case FieldKind::Record:
        if (field.count == 1) {
          fill(*field.record, place, depth);
        } else {
          const std::size_t lines = dice_.below(kFewTableLines);
          std::vector<bool> filled(field.count);
          for (std::size_t i = 0; i < lines; ++i) {
            const std::size_t line = dice_.below(field.count);
            if (!filled[line])
              fill(*field.record, static_cast<char*>(place) + line * field.record->size, depth);
            filled[line] = true;
          }
        }
        break;
      case FieldKind::TextArray:
        at<SAFEARRAY*>(place, 0) = array(Holding::Text, nullptr, field.name, depth);
        break;
      case FieldKind::ObjectArray:
        at<SAFEARRAY*>(place, 0) = array(Holding::Object, nullptr, field.name, depth);
        break;
      case FieldKind::VariantArray:
        at<SAFEARRAY*>(place, 0) = array(Holding::Variant, nullptr, field.name, depth);
        break;
      case FieldKind::RecordArray:
        at<SAFEARRAY*>(place, 0) = array(Holding::Record, field.record, field.name, depth);
        break;
    }
  }
}

}  // namespace misuse
