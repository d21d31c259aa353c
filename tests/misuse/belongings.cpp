#include "misuse/belongings.h"

#include <algorithm>
#include <cstring>

#include "misuse/ledger.h"
#include "support/host.h"

namespace misuse {
namespace {

using host::ComPtr;
using velmosav::FieldKind;
using velmosav::FieldLayout;
using velmosav::RecordLayout;

constexpr std::size_t kTextHeader = 4;
constexpr std::size_t kArrayHeader = 16;  // before the descriptor: its type and record information

template <class T>
T& at(void* record, std::size_t offset) {
  return *reinterpret_cast<T*>(static_cast<char*>(record) + offset);
}
template <class T>
const T& at(const void* record, std::size_t offset) {
  return *reinterpret_cast<const T*>(static_cast<const char*>(record) + offset);
}

/// What the array says of itself.
Elements told_by(const SAFEARRAY* array) {
  if (array->fFeatures & FADF_BSTR) return {Holding::Text};
  if (array->fFeatures & (FADF_DISPATCH | FADF_UNKNOWN)) return {Holding::Object};
  if (array->fFeatures & FADF_VARIANT) return {Holding::Variant};
  if (array->fFeatures & FADF_RECORD) {
    ComPtr<IRecordInfo> info;
    GUID id{};
    SafeArrayGetRecordInfo(const_cast<SAFEARRAY*>(array), info.receive());
    if (info) info->GetGuid(&id);
    return {Holding::Record, velmosav::layout_by_id(id)};
  }
  return {};
}

std::size_t size_of(Holding holding, const RecordLayout* layout) {
  switch (holding) {
    case Holding::Text:
    case Holding::Object:
      return sizeof(void*);
    case Holding::Variant:
      return sizeof(VARIANT);
    case Holding::Record:
      return layout ? layout->size : 0;
    case Holding::Plain:
      break;
  }
  return 0;
}

std::string damage_of_elements(const SAFEARRAY* array, const LockedArrays& locked) {
  const Elements elements = elements_of(array);
  if (elements.holding == Holding::Plain || elements.holding == Holding::Object) return {};
  if (array->cbElements != size_of(elements.holding, elements.layout))
    return "an array has another element size";
  for (unsigned long i = 0; i < element_count(array); ++i) {
    const char* place = static_cast<const char*>(array->pvData) + i * array->cbElements;
    std::string found = elements.holding == Holding::Text      ? damage_of(at<BSTR>(place, 0))
                        : elements.holding == Holding::Variant ? damage_of(at<VARIANT>(place, 0), locked)
                                                               : damage_of(*elements.layout, place, locked);
    if (!found.empty()) return found + " (in an array)";
  }
  return {};
}

void scrap_element(void* place, Holding holding, const RecordLayout* layout) {
  switch (holding) {
    case Holding::Text:
      SysFreeString(at<BSTR>(place, 0));
      break;
    case Holding::Object:
      if (IUnknown* object = at<IUnknown*>(place, 0)) object->Release();
      break;
    case Holding::Variant:
      scrap(at<VARIANT>(place, 0));
      break;
    case Holding::Record:
      if (layout) scrap_record(*layout, place);
      break;
    case Holding::Plain:
      break;
  }
}

}  // namespace

unsigned long element_count(const SAFEARRAY* array) {
  if (!array->pvData) return 0;
  unsigned long count = 1;
  for (USHORT i = 0; i < array->cDims; ++i) count *= array->rgsabound[i].cElements;
  return count;
}

Elements elements_of(const SAFEARRAY* array, Holding holding, const RecordLayout* layout) {
  const Elements told = told_by(array);
  const bool says_nothing = told.holding == Holding::Plain && !(array->fFeatures & FADF_HAVEVARTYPE);
  return says_nothing && array->cbElements == size_of(holding, layout) ? Elements{holding, layout} : told;
}

Holding holding_of(FieldKind kind) {
  switch (kind) {
    case FieldKind::TextArray:
      return Holding::Text;
    case FieldKind::ObjectArray:
      return Holding::Object;
    case FieldKind::VariantArray:
      return Holding::Variant;
    case FieldKind::RecordArray:
      return Holding::Record;
    default:
      return Holding::Plain;
  }
}

Holding holding_of(VARTYPE element) {
  switch (element) {
    case VT_BSTR:
      return Holding::Text;
    case VT_DISPATCH:
    case VT_UNKNOWN:
      return Holding::Object;
    case VT_VARIANT:
      return Holding::Variant;
    default:
      return Holding::Plain;
  }
}

bool LockedArrays::contains(const SAFEARRAY* array) const {
  return std::find(arrays.begin(), arrays.end(), array) != arrays.end();
}

std::string damage_of(BSTR text) {
  if (!text) return {};
  const char* block = reinterpret_cast<const char*>(text) - kTextHeader;
  const std::size_t size = ledger::size_of(block);
  if (size == 0) return "a text is no living block";
  const std::size_t length = SysStringByteLen(text);
  if (length + kTextHeader + sizeof(wchar_t) > size) return "a text is longer than its block";
  wchar_t end = L'x';
  std::memcpy(&end, reinterpret_cast<const char*>(text) + length, sizeof end);
  return end == 0 ? "" : "a text has no end";
}

std::string damage_of(const SAFEARRAY* array, const LockedArrays& locked) {
  if (!array) return {};
  if (ledger::size_of(reinterpret_cast<const char*>(array) - kArrayHeader) == 0) {
    return "an array is no living block";
  }
  if (array->cDims == 0 || array->cDims > 8) return "an array has a wrong number of dimensions";
  if (array->cLocks > (locked.contains(array) ? 1U : 0U)) return "an array is left locked";
  if (!array->pvData) return {};
  const std::size_t size = ledger::size_of(array->pvData);
  if (size == 0) return "the elements of an array are no living block";
  if (size < element_count(array) * array->cbElements) return "the elements of an array overrun their block";
  return damage_of_elements(array, locked);
}

std::string damage_of(const VARIANT& value, const LockedArrays& locked) {
  if (value.vt & VT_BYREF) return {};  // what it refers to is looked at where it stands
  if (value.vt & VT_ARRAY) return damage_of(value.parray, locked);
  if (value.vt == VT_BSTR) return damage_of(value.bstrVal);
  return {};
}

std::string damage_of(const RecordLayout& layout, const void* record, const LockedArrays& locked) {
  for (const FieldLayout& field : layout.fields) {
    std::string found;
    switch (field.kind) {
      case FieldKind::Text:
        found = damage_of(at<BSTR>(record, field.offset));
        break;
      case FieldKind::Record:
        for (unsigned i = 0; i < field.count && found.empty(); ++i) {
          found = damage_of(*field.record, &at<char>(record, field.offset + i * field.record->size), locked);
        }
        break;
      case FieldKind::TextArray:
      case FieldKind::ObjectArray:
      case FieldKind::VariantArray:
      case FieldKind::RecordArray:
        found = damage_of(at<SAFEARRAY*>(record, field.offset), locked);
        break;
      default:
        break;
    }
    if (!found.empty()) {
      return found + " in " + host::utf8(field.name);
    }
  }
  return {};
}

void scrap_array(SAFEARRAY* array, Holding holding, const RecordLayout* layout) {
  if (!array) return;
  const Elements elements = elements_of(array, holding, layout);
  for (unsigned long i = 0; i < element_count(array); ++i) {
    scrap_element(static_cast<char*>(array->pvData) + i * array->cbElements, elements.holding,
                  elements.layout);
  }
  if (array->pvData) std::memset(array->pvData, 0, element_count(array) * array->cbElements);
  if (array->fFeatures & FADF_RECORD) SafeArraySetRecordInfo(array, nullptr);
  array->cLocks = 0;
  array->fFeatures = static_cast<USHORT>(array->fFeatures & ~(FADF_RECORD | FADF_FIXEDSIZE | FADF_STATIC));
  SafeArrayDestroy(array);
}

void scrap_record(const RecordLayout& layout, void* record) {
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
          scrap_record(*field.record, &at<char>(record, field.offset + i * field.record->size));
        }
        break;
      case FieldKind::TextArray:
      case FieldKind::ObjectArray:
      case FieldKind::VariantArray:
      case FieldKind::RecordArray:
        scrap_array(at<SAFEARRAY*>(record, field.offset), holding_of(field.kind), field.record);
        break;
      default:
        break;
    }
  }
  std::memset(record, 0, layout.size);
}

void scrap(VARIANT& value) {
  if (value.vt & VT_BYREF) {
    // Refers to another variable of the host.
  } else if (value.vt & VT_ARRAY) {
    scrap_array(value.parray, holding_of(static_cast<VARTYPE>(value.vt & ~VT_ARRAY)), nullptr);
  } else if (value.vt == VT_RECORD) {
    GUID id{};
    if (value.pRecInfo && SUCCEEDED(value.pRecInfo->GetGuid(&id))) {
      if (const RecordLayout* layout = velmosav::layout_by_id(id); layout && value.pvRecord) {
        scrap_record(*layout, value.pvRecord);
        // Given back to the platform only where it allocated it: it clears array fields wrongly.
        if (ledger::size_of(value.pvRecord) != 0) {
          CoTaskMemFree(value.pvRecord);
        } else {
          value.pRecInfo->RecordDestroy(value.pvRecord);
        }
      }
      value.pRecInfo->Release();
    }
  } else {
    VariantClear(&value);
  }
  VariantInit(&value);
}

}  // namespace misuse
