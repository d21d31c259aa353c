#include "records/record_array.h"

#include <utility>

#include "records/record.h"
#include "records/record_info.h"

namespace velmosav {
namespace {

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

}  // namespace

void destroy_record_array(SAFEARRAY* array, const RecordLayout& layout) noexcept {
  if (!array) return;
  // Elements of another size are not records of this kind: they are left alone.
  if (array->pvData && array->cbElements == layout.size)
    clear_elements(array, layout, 0, element_count(array));
  destroy_cleared(array);
}

void require_erasable(const SAFEARRAY* array, unsigned long element_size) {
  require_resizable(array);
  if (array && array->pvData && array->cbElements != element_size) raise(Fault::TypeMismatch);
}

void erase_record_array(SAFEARRAY*& array, const RecordLayout& layout) {
  require_erasable(array, layout.size);
  destroy_record_array(std::exchange(array, nullptr), layout);
}

void erase_plain_array(SAFEARRAY*& array, PlainElement kind) {
  static_assert(sizeof(BSTR) == sizeof(IDispatch*));
  require_erasable(array, sizeof(BSTR));
  if (!array) return;
  const unsigned long count = array->pvData ? element_count(array) : 0;
  for (unsigned long i = 0; i < count; ++i) {
    char* place = element(array, i);
    if (kind == PlainElement::Text) {
      SysFreeString(std::exchange(*reinterpret_cast<BSTR*>(place), nullptr));
    } else if (IDispatch* object = std::exchange(*reinterpret_cast<IDispatch**>(place), nullptr)) {
      object->Release();
    }
  }
  SafeArrayDestroy(std::exchange(array, nullptr));
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
  if (array->cbElements != layout.size) raise(Fault::TypeMismatch);
  require_resizable(array);
  SAFEARRAYBOUND& bound = array->rgsabound[0];
  const auto wanted = static_cast<ULONG>(upper) + 1;
  if (wanted < bound.cElements) {
    clear_elements(array, layout, wanted, bound.cElements);
    bound.cElements = wanted;
  } else if (wanted > bound.cElements) {
    SAFEARRAYBOUND grown{wanted, 0};
    check_conversion(SafeArrayRedim(array, &grown));
  }
}

}  // namespace velmosav
