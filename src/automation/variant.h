// VARIANT: its owner, missing arguments, and the run-time's general conversions.
#pragma once

#include "automation/platform.h"

#include "automation/text.h"

namespace velmosav {

/// Owner of a VARIANT.
class Variant {
 public:
  Variant() noexcept { VariantInit(&value_); }
  explicit Variant(long number) noexcept : Variant() {
    value_.vt = VT_I4;
    value_.lVal = number;
  }
  explicit Variant(bool value) noexcept : Variant() {
    value_.vt = VT_BOOL;
    value_.boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
  }
  explicit Variant(short number) noexcept : Variant() {
    value_.vt = VT_I2;
    value_.iVal = number;
  }
  explicit Variant(double number) noexcept : Variant() {
    value_.vt = VT_R8;
    value_.dblVal = number;
  }
  explicit Variant(Bstr text) noexcept : Variant() {
    value_.vt = VT_BSTR;
    value_.bstrVal = text.detach();
  }
  Variant(Variant&& other) noexcept : value_(other.detach()) {}
  Variant& operator=(Variant&& other) noexcept {
    std::swap(value_, other.value_);
    return *this;
  }
  Variant(const Variant&) = delete;
  Variant& operator=(const Variant&) = delete;
  ~Variant() {
    // Up to VT_DATE a value is plain: most are, and the platform's function costs more than their use.
    if (value_.vt > VT_DATE) VariantClear(&value_);
  }

  [[nodiscard]] const VARIANT& get() const noexcept { return value_; }
  [[nodiscard]] VARIANT& get() noexcept { return value_; }
  [[nodiscard]] VARIANT* receive() noexcept {
    VariantClear(&value_);
    return &value_;
  }
  [[nodiscard]] VARIANT detach() noexcept {
    const VARIANT value = value_;
    VariantInit(&value_);
    return value;
  }

 private:
  VARIANT value_;
};

inline constexpr VARTYPE kReference = VT_BYREF | VT_VARIANT;

/// What a chain of references leads to; the last of them when that is nothing or the chain has no end.
const VARIANT& end_of_references(const VARIANT& reference) noexcept;

/// The value behind VT_BYREF|VT_VARIANT, however often it is wrapped, or the variant itself. A reference to
/// nothing or to itself stays one.
inline const VARIANT& dereferenced(const VARIANT& value) noexcept {
  return value.vt == kReference ? end_of_references(value) : value;
}
inline VARIANT& dereferenced(VARIANT& value) noexcept {
  return const_cast<VARIANT&>(dereferenced(const_cast<const VARIANT&>(value)));
}

/// False for what the platform must not be asked to convert or clear: a record, a reference to nothing
/// or to itself.
bool is_convertible(const VARIANT& value) noexcept;

/// True for an optional argument that the caller left out (not for an empty one).
bool is_missing(const VARIANT& value) noexcept;
inline bool is_null(const VARIANT& value) noexcept { return dereferenced(value).vt == VT_NULL; }
inline bool is_missing(const VARIANT* value) noexcept { return !value || is_missing(*value); }

/// The run-time's conversions by the user's regional settings. Null is fault 94, a value of another kind 13,
/// one out of range 6. Whole numbers round halves to even.
bool to_bool(const VARIANT& value);
short to_short(const VARIANT& value);
long to_long(const VARIANT& value);
double to_double(const VARIANT& value);
/// A Boolean becomes a word of the user's language.
Bstr to_text(const VARIANT& value);
/// The object a variant holds, null for Nothing; fault 424 when it holds none.
IDispatch* to_object(const VARIANT& value);

/// Gives a variable of the host a new value. A typed variable behind a reference takes it converted to its
/// type; one that holds a record takes none (fault 13), nor one that holds a locked array (fault 10).
void store_variable(VARIANT& variable, Variant value);

/// 16-bit result of a count or index: fault 6 outside the range.
short narrow_to_short(long long value);

inline constexpr VARIANT_BOOL to_variant_bool(bool value) { return value ? VARIANT_TRUE : VARIANT_FALSE; }

}  // namespace velmosav
