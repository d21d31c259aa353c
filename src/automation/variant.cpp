#include "automation/variant.h"

#include <cstring>
#include <limits>

#include "automation/array.h"
#include "automation/fault.h"

namespace velmosav {
namespace {

Variant converted(const VARIANT& value, VARTYPE type) {
  const VARIANT& source = dereferenced(value);
  if (source.vt == VT_NULL) raise(Fault::InvalidUseOfNull);
  if (is_missing(source) || !is_convertible(source)) raise(Fault::TypeMismatch);
  Variant result;
  // The platform takes the argument as non-const but does not write to it.
  check_conversion(VariantChangeTypeEx(&result.get(), const_cast<VARIANT*>(&source), LOCALE_USER_DEFAULT,
                                       VARIANT_LOCALBOOL, type));
  return result;
}

/// Bytes that a plain type takes in memory; fault 13 for a type that is no plain value.
std::size_t plain_size(VARTYPE type) {
  switch (type) {
    case VT_I1:
    case VT_UI1:
      return 1;
    case VT_I2:
    case VT_UI2:
    case VT_BOOL:
      return 2;
    case VT_I4:
    case VT_UI4:
    case VT_INT:
    case VT_UINT:
    case VT_R4:
    case VT_ERROR:
      return 4;
    case VT_R8:
    case VT_CY:
    case VT_DATE:
    case VT_I8:
    case VT_UI8:
      return 8;
    default:
      raise(Fault::TypeMismatch);
  }
}

}  // namespace

bool is_convertible(const VARIANT& value) noexcept {
  const VARIANT& source = dereferenced(value);
  const bool refers_to_nothing = (source.vt & VT_BYREF) && !source.byref;
  return !refers_to_nothing && source.vt != kReference && (source.vt & VT_TYPEMASK) != VT_RECORD;
}

const VARIANT& end_of_references(const VARIANT& reference) noexcept {
  // A variable may refer to itself.
  constexpr unsigned kMostReferences = 64;
  const VARIANT* found = &reference;
  for (unsigned i = 0; i < kMostReferences && found->vt == kReference && found->pvarVal; ++i) {
    found = found->pvarVal;
  }
  return *found;
}

bool is_missing(const VARIANT& value) noexcept {
  const VARIANT& source = dereferenced(value);
  return source.vt == VT_ERROR && source.scode == DISP_E_PARAMNOTFOUND;
}

bool to_bool(const VARIANT& value) { return converted(value, VT_BOOL).get().boolVal != VARIANT_FALSE; }

short to_short(const VARIANT& value) { return converted(value, VT_I2).get().iVal; }

long to_long(const VARIANT& value) { return converted(value, VT_I4).get().lVal; }

double to_double(const VARIANT& value) { return converted(value, VT_R8).get().dblVal; }

Bstr to_text(const VARIANT& value) {
  Variant text = converted(value, VT_BSTR);
  return Bstr::attach(text.detach().bstrVal);
}

IDispatch* to_object(const VARIANT& value) {
  const VARIANT& source = dereferenced(value);
  if (source.vt == VT_DISPATCH) return source.pdispVal;
  if (source.vt == (VT_BYREF | VT_DISPATCH) && source.ppdispVal) return *source.ppdispVal;
  raise(Fault::ObjectRequired);
}

void store_variable(VARIANT& argument, Variant value) {
  VARIANT& variable = dereferenced(argument);
  if (!is_convertible(variable)) raise(Fault::TypeMismatch);
  if (!(variable.vt & VT_BYREF)) {
    // A locked array could not be freed.
    if (variable.vt & VT_ARRAY) require_resizable(variable.parray);
    std::swap(variable, value.get());
    return;
  }
  Variant typed = converted(value.get(), static_cast<VARTYPE>(variable.vt & ~VT_BYREF));
  if (typed.get().vt == VT_BSTR) {
    std::swap(*variable.pbstrVal, typed.get().bstrVal);
  } else {
    std::memcpy(variable.byref, &typed.get().lVal, plain_size(typed.get().vt));
  }
}

short narrow_to_short(long long value) {
  if (value < std::numeric_limits<short>::min() || value > std::numeric_limits<short>::max()) {
    raise(Fault::Overflow);
  }
  return static_cast<short>(value);
}

}  // namespace velmosav
