#include "automation/variant_grid.h"

#include "automation/array.h"
#include "automation/fault.h"
#include "automation/variant.h"

namespace velmosav {
namespace {

/// Where the argument holds its array, however often it is wrapped.
SAFEARRAY** array_place(VARIANT& argument) {
  VARIANT& value = dereferenced(argument);
  if (value.vt == (VT_ARRAY | VT_VARIANT)) return &value.parray;
  if (value.vt == (VT_BYREF | VT_ARRAY | VT_VARIANT) && value.pparray) return value.pparray;
  raise(Fault::TypeMismatch);
}

}  // namespace

VariantGrid::VariantGrid(VARIANT& argument) : array_(array_place(argument)) {
  if (!upper_bound(*array_, 2) || (*array_)->cDims != 2) raise(Fault::SubscriptOutOfRange);
  if ((*array_)->cbElements != sizeof(VARIANT) || !may_hold(*array_, VT_VARIANT)) raise(Fault::TypeMismatch);
}

long VariantGrid::last_row() const noexcept { return *upper_bound(*array_, 1); }

VARIANT& VariantGrid::cell(long row, long column) const {
  // The bounds stand last dimension first.
  const SAFEARRAYBOUND& rows = (*array_)->rgsabound[1];
  const SAFEARRAYBOUND& columns = (*array_)->rgsabound[0];
  const long long i = static_cast<long long>(row) - rows.lLbound;
  const long long j = static_cast<long long>(column) - columns.lLbound;
  if (i < 0 || i >= rows.cElements || j < 0 || j >= columns.cElements) raise(Fault::SubscriptOutOfRange);
  return static_cast<VARIANT*>((*array_)->pvData)[j * rows.cElements + i];
}

}  // namespace velmosav
