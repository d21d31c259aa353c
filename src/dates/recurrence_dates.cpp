// The dates that a recurrence rule selects.
#include "automation/date_text.h"
#include "automation/fault.h"
#include "automation/number_text.h"
#include "dates/calendar.h"
#include "dates/recurrence.h"

namespace velmosav {
namespace {

std::wstring_view short_year_format() { return initial<ApiGeneralConstants>.m_FMT_DATE; }

/// The nearest month, from `month` on in steps of `step` and back to it after a year, whose key the rule
/// lists; 0 when it lists none.
int next_listed_month(std::wstring_view listed, int month, int step) {
  for (int i = 1; i <= 12; ++i) {
    const int candidate = (month - 1 + step * i + 24) % 12 + 1;
    if (listed.find(month_key(candidate)) != std::wstring_view::npos) return candidate;
  }
  return 0;
}

/// Text of an optional month or year; the current one, stored, when it is missing.
Bstr text_or_current(VARIANT* argument, int current) {
  if (!is_missing(argument)) return to_text(*argument);
  if (argument) store_variable(*argument, Variant(static_cast<short>(current)));
  return whole_number_text(current);
}

/// Weekday with Sunday = 1 of a key in either case; 0 when the text is no single key.
int weekday_of_key(std::wstring_view key) {
  const Bstr wanted = upper(key);
  for (int day = 1; day <= 7; ++day) {
    if (wanted.view() == weekday_key(day)) return day;
  }
  return 0;
}

/// The day that the ordinal starts from (the first or last of the month, or whole weeks after the first), and
/// the direction of the walk.
struct WalkStart {
  Bstr date;
  int step;
};

WalkStart walk_start(std::wstring_view ordinal, Bstr first, std::wstring_view month, VARIANT* year) {
  const Bstr key = upper(ordinal);
  int weeks = 0;
  if (key.view() == L"R") {
    const short month_number = to_short(Variant(Bstr(month)).get());
    return {last_day_of_month(month_number, year), -1};
  }
  if (key.view() == L"D") weeks = 1;
  if (key.view() == L"T") weeks = 2;
  if (key.view() == L"Q") weeks = 3;
  if (weeks == 0) return {std::move(first), 1};
  return {short_date_text(add_to_date(to_date(first.view()), L"ww", weeks)), 1};
}

}  // namespace

Bstr neighbour_month_date(const PeriodiciteConstants& constants, std::wstring_view date,
                          const Type_Periodicite& rule, bool previous) {
  if (view(rule.Periodicite) != constants.m_c_sPeriod_Mens.view()) return Bstr(date);
  const int step = previous ? -1 : 1;
  const DATE origin = to_date(date);
  if (rule.TousLes != 0) {
    return format_date(add_to_date(origin, L"m", rule.TousLes * static_cast<long long>(step)),
                       short_year_format());
  }

  const CalendarDay day = calendar_parts(origin);
  const int found = next_listed_month(view(rule.Mois), day.month, step);
  if (found == 0) return Bstr(date);
  const int year = day.year + (found * step > day.month * step ? 0 : step);
  const DayText moved(day.day, found, year);
  const auto found_date = parse_date(moved.view());
  if (!found_date) return corrected_date(moved.view());
  return corrected_date(format_date(*found_date, initial<ApiGeneralConstants>.m_FMT_DATE_Y4));
}

Bstr date_of_rule_day(const Type_Periodicite& rule, VARIANT* month, VARIANT* year) {
  const Bstr month_text = text_or_current(month, calendar_month(today()));
  // A year that was given is read as a number only where a step needs one.
  const Bstr year_text = text_or_current(year, calendar_year(today()));
  const Bstr written = concat({L"01/", month_text.view(), L"/", year_text.view()});
  Bstr first = format_date_text(written.view(), short_year_format());

  Variant year_copy;
  if (!year) year_copy = Variant(Bstr(year_text.view()));
  WalkStart start =
      walk_start(view(rule.Le), std::move(first), month_text.view(), year ? year : &year_copy.get());
  const DATE from = to_date(start.date.view());
  const int wanted = weekday_of_key(view(rule.Jour));
  if (wanted == 0) raise(Fault::InvalidArgument);
  const int ahead = (wanted - weekday(from)) * start.step;
  const int days = (ahead + 7) % 7;
  if (days == 0) return std::move(start.date);
  return short_date_text(add_to_date(from, L"d", days * static_cast<long long>(start.step)));
}

}  // namespace velmosav
