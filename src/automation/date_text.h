// Dates as text. A date is read by the user's regional settings and written by a pattern such as
// "dd/mm/yy"; a text that is written with a two-digit year and read back falls into the platform's
// window of a hundred years, and computations rely on that.
//
//   Bstr eve = format_date(add_to_date(to_date(L"01/03/2025"), L"d", -1), L"dd/mm/yy");   "28/02/25"
#pragma once

#include "automation/platform.h"

#include <optional>

#include "automation/text.h"

namespace velmosav {

/// The date and time a text holds, by the user's regional settings; nothing when it holds none.
std::optional<DATE> parse_date(std::wstring_view text);
/// The same; fault 13 when the text is no date.
DATE to_date(std::wstring_view text);

/// Writes a date by a pattern of the automation run-time.
Bstr format_date(DATE date, std::wstring_view pattern);
/// Writes a text's date by a pattern; a text that is no date comes back as it is.
Bstr format_date_text(std::wstring_view text, std::wstring_view pattern);

/// A text that a step wrote, and the date that the next one reads in it: two digits of a year may lead into
/// another century. Fault 13 where the platform does not read what it wrote.
struct WrittenDate {
  Bstr text;
  DATE date;
};
WrittenDate write_date(DATE date, std::wstring_view pattern);

/// The day before (-1) or behind (1) a text's date, by a pattern; fault 13 when the text is no date.
Bstr neighbour_date_text(std::wstring_view text, int step, std::wstring_view pattern);

/// A day as a step writes it before another reads it: "31/04/2026", months with or without their zero.
class DayText {
 public:
  DayText(int day, int month, int year) noexcept;
  [[nodiscard]] std::wstring_view view() const noexcept { return {text_, length_}; }

 private:
  wchar_t text_[36];
  std::size_t length_;
};

/// Adds `count` intervals: "d" days, "ww" weeks, "m" months, "yyyy" years. Months clamp the day to the end of
/// a shorter month; the time of day stays. Fault 5 for another interval or a year outside 100 to 9999.
DATE add_to_date(DATE date, std::wstring_view interval, long long count);

/// Whole calendar days from one date to the other, negative when `to` is earlier.
long long days_between(DATE from, DATE to) noexcept;
/// The same between two texts; fault 13 when one is no date.
long long days_between(std::wstring_view from, std::wstring_view to);

/// Today, without time of day.
DATE today() noexcept;

/// Parts of a date.
int calendar_year(DATE date) noexcept;
int calendar_month(DATE date) noexcept;
struct CalendarDay {
  int year;
  int month;
  int day;
};
CalendarDay calendar_parts(DATE date) noexcept;
/// 1 = Sunday to 7 = Saturday.
int weekday(DATE date) noexcept;

}  // namespace velmosav
