// Calendar helpers on dates as text: keys of days and months, ends of months, impossible days.
#pragma once

#include "automation/text.h"
#include "automation/variant.h"

namespace velmosav {

/// Key of a weekday, 1 = Sunday to 7 = Saturday; empty for another number.
std::wstring_view weekday_key(int number) noexcept;
/// Key of a month, 1 to 12; empty for another number.
std::wstring_view month_key(int number) noexcept;
/// Two-digit number of a month's key in either case; empty for an unknown one.
Bstr month_number_of(std::wstring_view key);

/// Corrects a day that its month does not have: above 28 in February (every fourth year has 29 days,
/// centuries included; the result is written "dd/mm/yy"), 31 in a month of 30 days. Any other text comes back
/// unchanged.
/// A year that is no 32-bit number is fault 6.
Bstr corrected_date(std::wstring_view date);
Bstr corrected_date(Bstr date);

/// Last day of a month as "dd/mm/yy". `year` becomes the number it was read as, the current year when
/// missing. Faults: 13 for a month and year that make no date, 94 for Null, 5 for December 9999.
Bstr last_day_of_month(short month, VARIANT* year);

/// A date as text without a pattern: the system's short form.
Bstr short_date_text(DATE date);

}  // namespace velmosav
