#include "automation/array.h"

#include <algorithm>
#include <limits>

#include "automation/fault.h"

namespace velmosav {

std::optional<long> upper_bound(const SAFEARRAY* array, unsigned dimension) noexcept {
  if (!array || !array->pvData || dimension == 0 || dimension > array->cDims) return std::nullopt;
  const SAFEARRAYBOUND& bound = array->rgsabound[array->cDims - dimension];
  return static_cast<long>(std::clamp<long long>(static_cast<long long>(bound.lLbound) + bound.cElements - 1,
                                                 std::numeric_limits<long>::min(),
                                                 std::numeric_limits<long>::max()));
}

short count_of(const SAFEARRAY* array, unsigned dimension) noexcept {
  const auto upper = upper_bound(array, dimension);
  if (!upper || *upper < std::numeric_limits<short>::min() - 1 ||
      *upper >= std::numeric_limits<short>::max()) {
    return -1;
  }
  return static_cast<short>(*upper + 1);
}

bool may_hold(const SAFEARRAY* array, VARTYPE type) noexcept {
  constexpr USHORT kTyped =
      FADF_BSTR | FADF_UNKNOWN | FADF_DISPATCH | FADF_VARIANT | FADF_RECORD | FADF_HAVEVARTYPE;
  if (!(array->fFeatures & kTyped)) return true;
  VARTYPE found = VT_EMPTY;
  return SUCCEEDED(SafeArrayGetVartype(const_cast<SAFEARRAY*>(array), &found)) && found == type;
}

void require_resizable(const SAFEARRAY* array) {
  if (array && (array->cLocks > 0 || (array->fFeatures & (FADF_STATIC | FADF_FIXEDSIZE)))) {
    raise(Fault::ArrayLocked);
  }
}

}  // namespace velmosav
