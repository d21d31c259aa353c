#include <charconv>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <string_view>

#include "automation/fault.h"
#include "companion/companion.h"

namespace velmosav::companion {
namespace {

constexpr int kDigits = 15;

/// Adds one to the last of `count` decimal digits; true when the number grew by a digit ("99" is now "10" +
/// 0).
bool increment(char* digits, int count) {
  for (int i = count - 1; i >= 0; --i) {
    if (digits[i] != '9') {
      ++digits[i];
      return false;
    }
    digits[i] = '0';
  }
  digits[0] = '1';
  return true;
}

/// The nearest number of so many significant digits, by all that the value holds.
double rounded_to_digits(double value, int count) {
  constexpr int kExact = std::numeric_limits<double>::max_digits10;
  if (count >= kExact) return value;
  char text[40];
  const auto end =
      std::to_chars(text, text + sizeof text, value, std::chars_format::scientific, count - 1).ptr;
  double result = 0;
  std::from_chars(text, end, result);
  return result;
}

}  // namespace

double round_amount(double value, short decimals) {
  finite(value);
  if (value == 0) return 0;

  // d.dddddddddddddde+xx
  char text[40];
  const auto end =
      std::to_chars(text, text + sizeof text, std::fabs(value), std::chars_format::scientific, kDigits - 1)
          .ptr;
  char digits[kDigits + 8];
  digits[0] = text[0];
  for (int i = 1; i < kDigits; ++i) digits[i] = text[i + 1];
  *end = '\0';
  int exponent = std::atoi(text + kDigits + 2);

  int kept = exponent + 1 + decimals;
  if (kept < 0) return 0;
  if (kept < kDigits) {
    const bool up = digits[kept] >= '5';
    if (kept == 0) {
      if (!up) return 0;
      digits[0] = '1';
      kept = 1;
      ++exponent;
    } else if (up && increment(digits, kept)) {
      ++exponent;
    }
  } else if (kept > kDigits) {
    return std::copysign(rounded_to_digits(std::fabs(value), kept), value);
  }

  // The kept digits as an integer, scaled by its power of ten.
  char* tail = digits + kept;
  *tail++ = 'e';
  tail = std::to_chars(tail, digits + sizeof digits, exponent - kept + 1).ptr;
  double result = 0;
  std::from_chars(digits, tail, result);
  return std::copysign(finite(result), value);
}

}  // namespace velmosav::companion
