#include "automation/variant_compare.h"

#include <string_view>

#include "automation/fault.h"

namespace velmosav {
namespace {

/// A cell without its references.
struct Cell {
  explicit Cell(const VARIANT& reference) {
    const VARIANT& value = dereferenced(reference);
    type = value.vt;
    data = type & VT_BYREF ? value.byref : &value.lVal;
    // A reference to nothing is no value.
    type = data ? static_cast<VARTYPE>(type & ~VT_BYREF) : static_cast<VARTYPE>(VT_ILLEGAL);
  }

  template <class T>
  [[nodiscard]] T as() const noexcept {
    return *static_cast<const T*>(data);
  }
  [[nodiscard]] std::wstring_view text() const noexcept { return view(as<BSTR>()); }

  VARTYPE type;
  const void* data;
};

/// The value as a double when it says all; false for texts, wide integers, decimals and what is no number.
bool exact_double(const Cell& cell, double& number) noexcept {
  switch (cell.type) {
    case VT_I1:
      number = cell.as<signed char>();
      return true;
    case VT_UI1:
      number = cell.as<BYTE>();
      return true;
    case VT_I2:
    case VT_BOOL:
      number = cell.as<short>();
      return true;
    case VT_UI2:
      number = cell.as<unsigned short>();
      return true;
    case VT_I4:
    case VT_INT:
      number = cell.as<long>();
      return true;
    case VT_UI4:
    case VT_UINT:
      number = cell.as<unsigned long>();
      return true;
    case VT_R4:
      number = cell.as<float>();
      return number == number;
    case VT_R8:
    case VT_DATE:
      number = cell.as<double>();
      return number == number;
    case VT_CY: {
      constexpr long long kWhole = 10000;
      const long long scaled = cell.as<CY>().int64;
      if (scaled % kWhole != 0 || scaled / kWhole > (1LL << 52) || scaled / kWhole < -(1LL << 52))
        return false;
      const long long whole = scaled / kWhole;
      number = static_cast<double>(whole);
      return true;
    }
    default:
      return false;
  }
}

bool is_numeric(VARTYPE type) noexcept {
  switch (type) {
    case VT_I1:
    case VT_UI1:
    case VT_I2:
    case VT_UI2:
    case VT_BOOL:
    case VT_I4:
    case VT_UI4:
    case VT_INT:
    case VT_UINT:
    case VT_I8:
    case VT_UI8:
    case VT_R4:
    case VT_R8:
    case VT_DATE:
    case VT_CY:
    case VT_DECIMAL:
      return true;
    default:
      return false;
  }
}

bool is_value(VARTYPE type) noexcept { return type == VT_EMPTY || type == VT_BSTR || is_numeric(type); }

bool is_floating(VARTYPE type) noexcept { return type == VT_R4 || type == VT_R8 || type == VT_DATE; }

DECIMAL decimal_of(const VARIANT& value) {
  Variant result;
  check_conversion(
      VariantChangeTypeEx(&result.get(), const_cast<VARIANT*>(&value), LOCALE_USER_DEFAULT, 0, VT_DECIMAL));
  return result.get().decVal;
}

/// Numbers that do not all fit a double: exactly when both are fixed-point, else as doubles.
bool equal_numbers(const VARIANT& left, VARTYPE left_type, const VARIANT& right, VARTYPE right_type) {
  if (is_floating(left_type) || is_floating(right_type)) return to_double(left) == to_double(right);
  DECIMAL a = decimal_of(left);
  DECIMAL b = decimal_of(right);
  return VarDecCmp(&a, &b) == VARCMP_EQ;
}

}  // namespace

bool equal_values(const VARIANT& left, const VARIANT& right) {
  const Cell a(left);
  const Cell b(right);
  if (a.type == VT_NULL || b.type == VT_NULL) raise(Fault::InvalidUseOfNull);
  if (!is_value(a.type) || !is_value(b.type)) raise(Fault::TypeMismatch);
  if (a.type == VT_BSTR || b.type == VT_BSTR) {
    if (a.type == VT_EMPTY) return b.text().empty();
    if (b.type == VT_EMPTY) return a.text().empty();
    return a.type == b.type && a.text() == b.text();
  }
  double x = 0;
  double y = 0;
  if ((a.type == VT_EMPTY || exact_double(a, x)) && (b.type == VT_EMPTY || exact_double(b, y))) return x == y;
  return equal_numbers(dereferenced(left), a.type, dereferenced(right), b.type);
}

KeyKind key_kind(const VARIANT& value) noexcept {
  const Cell cell(value);
  double number = 0;
  if (cell.type == VT_BSTR) return KeyKind::Text;
  return exact_double(cell, number) ? KeyKind::Number : KeyKind::Other;
}

std::size_t key_hash(const VARIANT& value) noexcept {
  const Cell cell(value);
  if (cell.type == VT_BSTR) return std::hash<std::wstring_view>{}(cell.text());
  double number = 0;
  exact_double(cell, number);
  if (number == 0) number = 0;  // one zero
  return std::hash<double>{}(number);
}

}  // namespace velmosav
