#include "records/record_array.h"

#include <optional>
#include <utility>

#include "automation/com_ptr.h"
#include "automation/fault.h"
#include "records/record.h"
#include "records/record_info.h"

namespace velmosav {
namespace {

// Set by SafeArrayCreateVector; in no header of the compiler.
constexpr USHORT kVector = 0x2000;

SAFEARRAY* create(const RecordLayout& layout, long upper) {
  const ComPtr<IRecordInfo> info = record_info(layout.id);
  SAFEARRAYBOUND bound{static_cast<ULONG>(upper) + 1, 0};
  SAFEARRAY* array = SafeArrayCreateEx(VT_RECORD, 1, &bound, info.get());
  if (!array) raise(E_OUTOFMEMORY);
  return array;
}

char* element(SAFEARRAY* array, unsigned long index) {
  return static_cast<char*>(array->pvData) + index * array->cbElements;
}

void clear_elements(SAFEARRAY* array, const RecordLayout& layout, unsigned long first,
                    unsigned long end) noexcept {
  for (unsigned long i = first; i < end; ++i) clear_record(layout, element(array, i));
}

unsigned long element_count(const SAFEARRAY* array) {
  unsigned long count = 1;
  for (USHORT i = 0; i < array->cDims; ++i) count *= array->rgsabound[i].cElements;
  return count;
}

/// Frees the array itself. The elements must have been cleared: the platform's own clearing of records is not
/// to be trusted, so the array is made one of plain bytes first.
void destroy_cleared(SAFEARRAY* array) noexcept {
  if (array->fFeatures & FADF_RECORD) {
    SafeArraySetRecordInfo(array, nullptr);
    array->fFeatures = static_cast<USHORT>(array->fFeatures & ~FADF_RECORD);
  }
  SafeArrayDestroy(array);
}

/// What records an array holds, by its own description; nothing for an array without one.
std::optional<GUID> described_record(const SAFEARRAY* array) noexcept {
  ComPtr<IRecordInfo> info;
  GUID id;
  if (!(array->fFeatures & FADF_RECORD) ||
      FAILED(SafeArrayGetRecordInfo(const_cast<SAFEARRAY*>(array), info.receive())) || !info ||
      FAILED(info->GetGuid(&id))) {
    return std::nullopt;
  }
  return id;
}

/// The table of the records that an array holds: by its own description when it has one. Null for elements of
/// another kind.
const RecordLayout* records_in(const SAFEARRAY* array, const RecordLayout* expected) noexcept {
  if (!array->pvData || !may_hold(array, VT_RECORD)) return nullptr;
  if (array->fFeatures & FADF_RECORD) {
    const auto id = described_record(array);
    expected = id ? layout_by_id(*id) : nullptr;
  }
  return expected && array->cbElements == expected->size ? expected : nullptr;
}

VARTYPE type_of(PlainElement kind) noexcept {
  return static_cast<VARTYPE>(kind == PlainElement::Text     ? VT_BSTR
                              : kind == PlainElement::Object ? VT_DISPATCH
                                                             : VT_VARIANT);
}

unsigned size_of(PlainElement kind) noexcept {
  return kind == PlainElement::Variant ? sizeof(VARIANT) : sizeof(void*);
}

void clear_plain_elements(SAFEARRAY* array, PlainElement kind) noexcept {
  const unsigned long count = array->pvData ? element_count(array) : 0;
  for (unsigned long i = 0; i < count; ++i) {
    char* place = element(array, i);
    if (kind == PlainElement::Text) {
      SysFreeString(std::exchange(*reinterpret_cast<BSTR*>(place), nullptr));
    } else if (kind == PlainElement::Variant) {
      VariantClear(reinterpret_cast<VARIANT*>(place));
    } else if (IDispatch* object = std::exchange(*reinterpret_cast<IDispatch**>(place), nullptr)) {
      object->Release();
    }
  }
}

void require_unlocked_elements(SAFEARRAY* array, const RecordLayout& layout, unsigned long first,
                               unsigned long end) {
  for (unsigned long i = first; i < end; ++i) require_unlocked(layout, element(array, i));
}

}  // namespace

bool may_hold(const SAFEARRAY* array, const RecordLayout& layout) noexcept {
  if (array->cbElements != layout.size || !may_hold(array, VT_RECORD)) return false;
  return !(array->fFeatures & FADF_RECORD) || described_record(array) == layout.id;
}

bool may_hold(const SAFEARRAY* array, PlainElement kind) noexcept {
  return array->cbElements == size_of(kind) && may_hold(array, type_of(kind));
}

void require_unlocked(SAFEARRAY* array, const RecordLayout* expected) {
  require_resizable(array);
  if (!array) return;
  if (const RecordLayout* layout = records_in(array, expected)) {
    require_unlocked_elements(array, *layout, 0, element_count(array));
  }
}

void require_erasable(SAFEARRAY* array, const RecordLayout& layout) {
  require_resizable(array);
  if (array && array->pvData && !may_hold(array, layout)) raise(Fault::TypeMismatch);
  require_unlocked(array, &layout);
}

void require_erasable(SAFEARRAY* array, PlainElement kind) {
  require_resizable(array);
  if (array && array->pvData && !may_hold(array, kind)) raise(Fault::TypeMismatch);
}

void destroy_record_array(SAFEARRAY* array, const RecordLayout& layout) noexcept {
  if (!array) return;
  if (const RecordLayout* held = records_in(array, &layout)) {
    clear_elements(array, *held, 0, element_count(array));
  }
  destroy_cleared(array);
}

void destroy_plain_array(SAFEARRAY* array, PlainElement kind) noexcept {
  if (!array) return;
  if (may_hold(array, kind)) {
    clear_plain_elements(array, kind);
  } else if (const RecordLayout* held = records_in(array, nullptr)) {
    clear_elements(array, *held, 0, element_count(array));
  }
  destroy_cleared(array);
}

void erase_record_array(SAFEARRAY*& array, const RecordLayout& layout) {
  require_erasable(array, layout);
  destroy_record_array(std::exchange(array, nullptr), layout);
}

void erase_plain_array(SAFEARRAY*& array, PlainElement kind) {
  require_erasable(array, kind);
  destroy_plain_array(std::exchange(array, nullptr), kind);
}

void redim_preserve(SAFEARRAY*& array, const RecordLayout& layout, long upper) {
  if (!upper_bound(array)) {
    require_resizable(array);
    SAFEARRAY* made = create(layout, upper);
    if (array) SafeArrayDestroy(array);
    array = made;
    return;
  }
  if (array->cDims != 1 || array->rgsabound[0].lLbound != 0) raise(Fault::SubscriptOutOfRange);
  if (!may_hold(array, layout)) raise(Fault::TypeMismatch);
  require_resizable(array);
  // Its elements stand in one block with the array: the platform would free them on their own.
  if (array->fFeatures & kVector) raise(Fault::ArrayLocked);
  SAFEARRAYBOUND& bound = array->rgsabound[0];
  const auto wanted = static_cast<ULONG>(upper) + 1;
  if (wanted < bound.cElements) {
    require_unlocked_elements(array, layout, wanted, bound.cElements);
    clear_elements(array, layout, wanted, bound.cElements);
    bound.cElements = wanted;
  } else if (wanted > bound.cElements) {
    SAFEARRAYBOUND grown{wanted, 0};
    check_conversion(SafeArrayRedim(array, &grown));
  }
}

}  // namespace velmosav
