// How one public variable of a class is held.
#pragma once

#include "automation/platform.h"

#include "automation/text.h"

namespace velmosav {

/// A text variable: its literal until a host assigns another text, so that creating an instance with a
/// hundred of them allocates nothing.
class TextConstant {
 public:
  // The value of a list line initialises the member in place.
  constexpr TextConstant(const wchar_t* literal) noexcept : literal_(literal) {}
  constexpr ~TextConstant() {
    if (assigned_) SysFreeString(assigned_);
  }
  TextConstant(const TextConstant&) = delete;
  TextConstant& operator=(const TextConstant&) = delete;

  [[nodiscard]] std::wstring_view view() const noexcept {
    return assigned_ ? velmosav::view(assigned_) : std::wstring_view(literal_);
  }
  operator std::wstring_view() const noexcept { return view(); }

  void assign(Bstr text) noexcept { text.swap(assigned_); }
  /// Back to a literal.
  void reset(const wchar_t* literal) noexcept {
    assign(Bstr());
    literal_ = literal;
  }

 private:
  const wchar_t* literal_;
  BSTR assigned_ = nullptr;
};

using StoredText = TextConstant;
using StoredByte = BYTE;
using StoredInteger = short;
using StoredLong = long;
using StoredBoolean = VARIANT_BOOL;

}  // namespace velmosav

// The initial value as the list writes it, for each type. Long: a colour above 0x7FFFFFFF keeps its bits.
#define INITIAL_Text(value) L##value
#define INITIAL_Byte(value) value
#define INITIAL_Integer(value) value
#define INITIAL_Long(value) static_cast<long>(value)
#define INITIAL_Boolean(value) value
