// Numbers as text by the user's regional settings (decimal separator; up to 15 significant digits).
#pragma once

#include <string_view>

#include "automation/text.h"

namespace velmosav {

/// General form: no thousands separator, as many decimals as the value needs.
Bstr number_text(double value);
/// Fixed number of decimals (0 to 60), at least one digit before the separator, no thousands separator.
/// The value must already be rounded to that many decimals.
Bstr fixed_number_text(double value, int decimals);
Bstr whole_number_text(long value);

/// A number in digits with a point at the front of a text, and how far it goes (0: there is none). Too small
/// a number is 0; fault 6 for one too large.
struct NumberRead {
  double value;
  std::size_t length;
};
NumberRead read_number(std::string_view text);

/// Number at the front of a text, whatever the regional settings: leading blanks are skipped, the decimal
/// mark is a point, reading stops at the first character that is no part of a number. 0 when there is none,
/// fault 6 beyond the range.
double leading_number(std::wstring_view text);

}  // namespace velmosav
