#include "dates/calendar.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "automation/date_text.h"
#include "automation/fault.h"
#include "automation/number_text.h"
#include "automation/variant.h"
#include "constants/constant_sets.h"

namespace velmosav {
namespace {

constexpr std::wstring_view kWeekdayKeys = L"DLMEJVS";
constexpr std::wstring_view kMonthKeys = L"JFMAIULOSCND";

std::wstring_view key_at(std::wstring_view keys, int number) noexcept {
  if (number < 1 || number > static_cast<int>(keys.size())) return {};
  return keys.substr(static_cast<std::size_t>(number) - 1, 1);
}

/// The part of a date from a position on; empty beyond its end.
std::wstring_view from(std::wstring_view text, std::size_t start) {
  return start < text.size() ? text.substr(start) : std::wstring_view();
}

/// Every fourth year has a 29th, centuries included.
int february_end(long year) noexcept { return year % 4 == 0 ? 29 : 28; }

Bstr corrected_february(std::wstring_view date) {
  // A month written without its zero leaves the year to be read from the fourth character on.
  constexpr std::wstring_view kMonth = L"/02/";
  const std::size_t place = date.find(kMonth);
  const double year =
      leading_number(from(date, place == std::wstring_view::npos ? 3 : place + kMonth.size()));
  const std::wstring_view pattern = initial<ApiGeneralConstants>.m_FMT_DATE;
  if (const int whole = static_cast<int>(std::clamp(year, 0.0, 9999.0)); whole == year) {
    return format_date_text(DayText(february_end(whole), 2, whole).view(), pattern);
  }
  const int day = february_end(to_long(Variant(year).get()));
  const Bstr corrected = concat({day == 29 ? L"29/02/" : L"28/02/", number_text(year).view()});
  return format_date_text(corrected.view(), pattern);
}

/// What the text becomes; nothing when it stays.
std::optional<Bstr> correction_of(std::wstring_view date) {
  const std::size_t first = date.find(L'/');
  const std::size_t second = first == std::wstring_view::npos ? first : date.find(L'/', first + 1);
  if (second == std::wstring_view::npos) return std::nullopt;
  const double day = leading_number(date.substr(0, first));
  const double month = leading_number(date.substr(first + 1, second - first - 1));
  if (month == 2 && day > 28) return corrected_february(date);
  if ((month == 4 || month == 6 || month == 9 || month == 11) && day == 31) {
    return concat({L"30", date.substr(first)});
  }
  return std::nullopt;
}

}  // namespace

std::wstring_view weekday_key(int number) noexcept { return key_at(kWeekdayKeys, number); }

std::wstring_view month_key(int number) noexcept { return key_at(kMonthKeys, number); }

Bstr month_number_of(std::wstring_view key) {
  const Bstr wanted = upper(key);
  for (int month = 1; month <= 12; ++month) {
    if (wanted.view() == month_key(month)) {
      return concat({month < 10 ? L"0" : L"", whole_number_text(month).view()});
    }
  }
  return Bstr(L"");
}

Bstr corrected_date(std::wstring_view date) {
  auto corrected = correction_of(date);
  return corrected ? std::move(*corrected) : Bstr(date);
}

Bstr corrected_date(Bstr date) {
  auto corrected = correction_of(date.view());
  return corrected ? std::move(*corrected) : std::move(date);
}

Bstr last_day_of_month(short month, VARIANT* year) {
  Bstr year_text;
  if (is_missing(year)) {
    const short current = static_cast<short>(calendar_year(today()));
    year_text = whole_number_text(current);
    if (year) store_variable(*year, Variant(current));
  } else {
    const double number = to_double(*year);
    year_text = number_text(number);
    store_variable(*year, Variant(number));
  }
  const std::wstring_view pattern = initial<ApiGeneralConstants>.m_FMT_DATE;
  const Bstr start = concat({L"01/", whole_number_text(month).view(), L"/", year_text.view()});
  const Bstr next_month = format_date(add_to_date(to_date(start.view()), L"m", 1), pattern);
  return format_date(add_to_date(to_date(next_month.view()), L"d", -1), pattern);
}

Bstr short_date_text(DATE date) {
  Bstr text;
  check_conversion(VarBstrFromDate(date, LOCALE_USER_DEFAULT, 0, text.receive()));
  return text;
}

}  // namespace velmosav
