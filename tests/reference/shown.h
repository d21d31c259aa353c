// The C++ examples of the reference: how a value is written beside the statement that gives it.
#pragma once

#include "../examples/premier_appel/sav.h"

#include <gtest/gtest.h>

#include <concepts>
#include <memory>
#include <string>

namespace reference {

std::string shown_number(long number);

std::string shown(BSTR text);
/// Whole numbers; a failed call's code as 0x800A0009.
template <std::integral Number>
std::string shown(Number number) {
  return shown_number(number);
}
inline std::string shown(bool value) { return value ? "true" : "false"; }
/// Up to 15 significant digits, with a point.
std::string shown(double number);
/// As the user's regional settings have it.
std::string shown(const VARIANT& value);
std::string shown(CY amount);

}  // namespace reference
