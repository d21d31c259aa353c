#include "dates.h"

#include <chrono>
#include <cmath>
#include <map>

#include "com_support.h"

namespace facturation {
namespace {

std::optional<unsigned> digits(std::string_view text, std::size_t count) {
  if (text.size() != count) return std::nullopt;
  unsigned value = 0;
  for (const char c : text) {
    if (c < '0' || c > '9') return std::nullopt;
    value = value * 10 + static_cast<unsigned>(c - '0');
  }
  return value;
}

}  // namespace

std::optional<DATE> parse_day(std::string_view text) {
  using namespace std::chrono;
  if (text.size() != 10 || text[2] != '/' || text[5] != '/') return std::nullopt;
  const auto d = digits(text.substr(0, 2), 2);
  const auto m = digits(text.substr(3, 2), 2);
  const auto y = digits(text.substr(6), 4);
  if (!d || !m || !y) return std::nullopt;
  const year_month_day date{year{static_cast<int>(*y)}, month{*m}, day{*d}};
  if (!date.ok()) return std::nullopt;
  constexpr sys_days kAutomationEpoch = year{1899} / December / 30;
  return static_cast<DATE>((sys_days{date} - kAutomationEpoch).count());
}

std::optional<DATE> platform_day(BSTR text) {
  if (!text) return std::nullopt;
  // Schedules share few dates: the platform reads each of them once.
  static std::map<std::wstring, std::optional<DATE>, std::less<>> known;
  const std::wstring_view key(text, SysStringLen(text));
  const auto place = known.lower_bound(key);
  if (place != known.end() && place->first == key) return place->second;
  DATE date = 0;
  const bool read = SUCCEEDED(VarDateFromStr(text, LOCALE_USER_DEFAULT, 0, &date));
  return known.emplace_hint(place, key, read ? std::optional(std::floor(date)) : std::nullopt)->second;
}

bool survives_two_digits(std::string_view day) {
  const std::string shortened = std::string(day.substr(0, 6)) + std::string(day.substr(8));
  return platform_day(Text(shortened).get()) == parse_day(day);
}

bool session_is_day_first() { return platform_day(Text("02/01/2026").get()) == parse_day("02/01/2026"); }

}  // namespace facturation
