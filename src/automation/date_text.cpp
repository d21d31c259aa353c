#include "automation/date_text.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <charconv>
#include <chrono>
#include <cmath>
#include <string>

#include "automation/fault.h"
#include "automation/variant.h"

namespace velmosav {
namespace {

using std::chrono::day;
using std::chrono::days;
using std::chrono::month;
using std::chrono::sys_days;
using std::chrono::year;
using std::chrono::year_month_day;

constexpr sys_days kEpoch = sys_days(year(1899) / 12 / 30);
constexpr int kFirstYear = 100;
constexpr int kLastYear = 9999;

constexpr int serial_of(year_month_day date) { return static_cast<int>((sys_days(date) - kEpoch).count()); }

/// The day's number: a date's whole part, which for a valid date is far from the limits of an int.
int serial_of(DATE date) noexcept { return static_cast<int>(date); }

year_month_day calendar_day(DATE date) { return year_month_day(kEpoch + days(serial_of(date))); }

/// The user's way of writing dates, read once per process.
struct DateSettings {
  bool slashed_day_first;
  wchar_t separator;
};

const DateSettings& settings() {
  static const DateSettings cached = [] {
    wchar_t order[4] = L"";
    wchar_t separator[8] = L"";
    GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_IDATE, order, 4);
    GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDATE, separator, 8);
    const bool one_character = separator[0] != 0 && separator[1] == 0;
    const wchar_t mark = one_character ? separator[0] : L'\0';
    return DateSettings{order[0] == L'1' && mark == L'/', mark};
  }();
  return cached;
}

std::optional<DATE> platform_parse(std::wstring_view text) {
  std::wstring terminated(text);
  DATE date = 0;
  const HRESULT code = VarDateFromStr(terminated.data(), LOCALE_USER_DEFAULT, 0, &date);
  if (code == E_OUTOFMEMORY) raise(code);
  return SUCCEEDED(code) ? std::optional(date) : std::nullopt;
}

/// The full year of a two-digit one, asked of the platform once per value.
int full_year(int two_digits) {
  static std::array<std::atomic<short>, 100> known{};
  auto& slot = known[static_cast<std::size_t>(two_digits)];
  short result = slot.load(std::memory_order_relaxed);
  if (result == 0) {
    const wchar_t probe[] = {L'0',
                             L'1',
                             L'/',
                             L'0',
                             L'1',
                             L'/',
                             static_cast<wchar_t>(L'0' + two_digits / 10),
                             static_cast<wchar_t>(L'0' + two_digits % 10)};
    const auto date = platform_parse({probe, std::size(probe)});
    if (!date) return -1;
    result = static_cast<short>(int(calendar_day(*date).year()));
    slot.store(result, std::memory_order_relaxed);
  }
  return result;
}

/// Reads `least` to `most` digits at the front of `text` and drops them; -1 when there are fewer or more.
int take_digits(std::wstring_view& text, std::size_t least, std::size_t most) {
  int value = 0;
  std::size_t count = 0;
  while (count < text.size() && text[count] >= L'0' && text[count] <= L'9') {
    if (count == most) return -1;
    value = value * 10 + (text[count] - L'0');
    ++count;
  }
  if (count < least) return -1;
  text.remove_prefix(count);
  return value;
}

bool take(std::wstring_view& text, wchar_t mark) {
  if (text.empty() || text.front() != mark) return false;
  text.remove_prefix(1);
  return true;
}

/// What a look at the form of a text tells.
struct FastReading {
  enum class Kind { Date, NoDate, Unknown } kind = Kind::Unknown;
  DATE date = 0;
};

constexpr FastReading kUnknown{};

/// The numbers of a text, which need not make a date.
struct Numbers {
  int day_number;
  int month_number;
  int year_number;
  bool full;  // four digits of the year were written

  [[nodiscard]] year_month_day date() const {
    return year(year_number) / month(static_cast<unsigned>(month_number)) /
           day(static_cast<unsigned>(day_number));
  }
};

/// d/m/yy, dd/mm/yyyy and the like, without time of day: the forms that a schedule is made of.
std::optional<Numbers> numbers_of(std::wstring_view text) {
  const int day_number = take_digits(text, 1, 2);
  if (day_number < 1 || !take(text, L'/')) return std::nullopt;
  const int month_number = take_digits(text, 1, 2);
  if (month_number < 1 || !take(text, L'/')) return std::nullopt;
  const std::size_t year_digits = text.size();
  if (year_digits != 2 && year_digits != 4) return std::nullopt;
  int year_number = take_digits(text, year_digits, year_digits);
  if (year_digits == 2 && year_number >= 0) year_number = full_year(year_number);
  if (year_number < kFirstYear) return std::nullopt;
  return Numbers{day_number, month_number, year_number, year_digits == 4};
}

FastReading fast_parse(std::wstring_view text) {
  const auto numbers = numbers_of(text);
  if (!numbers) return kUnknown;
  const year_month_day date = numbers->date();
  if (date.ok()) return {FastReading::Kind::Date, static_cast<DATE>(serial_of(date))};
  // A day behind the end of its month can be no month, and a year of four digits no day: read in any order it
  // is no date. What the platform makes of other texts is the platform's.
  const int day_number = numbers->day_number;
  const bool behind_its_month = date.month().ok() && day_number > 28 && day_number <= 31;
  return behind_its_month && numbers->full ? FastReading{FastReading::Kind::NoDate} : kUnknown;
}

Bstr platform_format(DATE date, std::wstring_view pattern) {
  VARIANT value;
  value.vt = VT_DATE;
  value.date = date;
  Bstr format(pattern);
  Bstr text;
  check_conversion(VarFormat(&value, format.get(), 0, 0, 0, text.receive()));
  return text;
}

wchar_t* put_two_digits(wchar_t* place, unsigned value) {
  *place++ = static_cast<wchar_t>(L'0' + value / 10 % 10);
  *place++ = static_cast<wchar_t>(L'0' + value % 10);
  return place;
}

/// Digits of the year in a pattern that is written without the platform's help; 0 for any other.
int year_digits_of(std::wstring_view pattern) {
  return pattern == L"dd/mm/yy" ? 2 : pattern == L"dd/mm/yyyy" ? 4 : 0;
}

bool is_written_fast(year_month_day date) {
  return int(date.year()) >= 1000 && int(date.year()) <= kLastYear;
}

/// A day in one of these patterns.
class FastText {
 public:
  FastText(year_month_day date, int year_digits, wchar_t separator) {
    wchar_t* end = put_two_digits(text_, unsigned(date.day()));
    *end++ = separator;
    end = put_two_digits(end, unsigned(date.month()));
    *end++ = separator;
    const auto year_number = static_cast<unsigned>(int(date.year()));
    if (year_digits == 4) end = put_two_digits(end, year_number / 100);
    end = put_two_digits(end, year_number);
    length_ = static_cast<std::size_t>(end - text_);
  }
  [[nodiscard]] std::wstring_view view() const { return {text_, length_}; }

 private:
  wchar_t text_[10];
  std::size_t length_;
};

}  // namespace

std::optional<DATE> parse_date(std::wstring_view text) {
  if (settings().slashed_day_first) {
    const FastReading reading = fast_parse(text);
    if (reading.kind == FastReading::Kind::Date) return reading.date;
    if (reading.kind == FastReading::Kind::NoDate) return std::nullopt;
  }
  return platform_parse(text);
}

DATE to_date(std::wstring_view text) {
  const auto date = parse_date(text);
  if (!date) raise(Fault::TypeMismatch);
  return *date;
}

Bstr format_date(DATE date, std::wstring_view pattern) {
  const int year_digits = year_digits_of(pattern);
  if (year_digits != 0 && settings().separator != 0) {
    const year_month_day calendar = calendar_day(date);
    if (is_written_fast(calendar)) {
      return Bstr(FastText(calendar, year_digits, settings().separator).view());
    }
  }
  return platform_format(date, pattern);
}

WrittenDate write_date(DATE date, std::wstring_view pattern) {
  const int year_digits = year_digits_of(pattern);
  if (year_digits != 0 && settings().slashed_day_first) {
    const year_month_day calendar = calendar_day(date);
    const int year_number = int(calendar.year());
    if (is_written_fast(calendar) && (year_digits == 4 || full_year(year_number % 100) == year_number)) {
      return {Bstr(FastText(calendar, year_digits, L'/').view()), static_cast<DATE>(serial_of(date))};
    }
  }
  Bstr text = format_date(date, pattern);
  const DATE read = to_date(text.view());
  return {std::move(text), read};
}

Bstr neighbour_date_text(std::wstring_view text, int step, std::wstring_view pattern) {
  const int year_digits = year_digits_of(pattern);
  if (year_digits != 0 && settings().slashed_day_first) {
    const auto numbers = numbers_of(text);
    // Inside every month the neighbour has the same month and year.
    if (numbers && numbers->month_number <= 12 && numbers->day_number > 1 && numbers->day_number < 28) {
      const year_month_day date = numbers->date();
      const auto moved = day(static_cast<unsigned>(numbers->day_number + step));
      if (is_written_fast(date)) {
        return Bstr(FastText(date.year() / date.month() / moved, year_digits, L'/').view());
      }
    }
  }
  return format_date(add_to_date(to_date(text), L"d", step), pattern);
}

Bstr format_date_text(std::wstring_view text, std::wstring_view pattern) {
  const auto date = parse_date(text);
  return date ? format_date(*date, pattern) : Bstr(text);
}

DayText::DayText(int day, int month, int year) noexcept {
  wchar_t* end = text_;
  const auto put = [&end](int number) {
    char digits[12];
    const char* last = std::to_chars(digits, digits + sizeof digits, number).ptr;
    end = std::copy(static_cast<const char*>(digits), last, end);
  };
  put(day);
  *end++ = L'/';
  if (month < 10) *end++ = L'0';
  put(month);
  *end++ = L'/';
  put(year);
  length_ = static_cast<std::size_t>(end - text_);
}

DATE add_to_date(DATE date, std::wstring_view interval, long long count) {
  // Beyond this no count can lead to a valid year, and the sums below stay in range.
  constexpr long long kFarthest = 4'000'000;
  if (count > kFarthest || count < -kFarthest) raise(Fault::InvalidArgument);
  const int steps = static_cast<int>(count);
  int serial = serial_of(date);
  const double time = std::fabs(date - serial);
  if (interval == L"d") {
    serial += steps;
  } else if (interval == L"ww") {
    serial += 7 * steps;
  } else if (interval == L"m" || interval == L"yyyy") {
    const year_month_day start = calendar_day(date);
    const int months = int(start.year()) * 12 + static_cast<int>(unsigned(start.month())) - 1 +
                       (interval == L"m" ? steps : 12 * steps);
    if (months < kFirstYear * 12 || months > kLastYear * 12 + 11) raise(Fault::InvalidArgument);
    year_month_day target = year(months / 12) / month(static_cast<unsigned>(months % 12 + 1)) / start.day();
    if (!target.ok()) target = target.year() / target.month() / std::chrono::last;
    serial = serial_of(target);
  } else {
    raise(Fault::InvalidArgument);
  }
  constexpr int kFirst = serial_of(year(kFirstYear) / 1 / 1);
  constexpr int kLast = serial_of(year(kLastYear) / 12 / 31);
  if (serial < kFirst || serial > kLast) raise(Fault::InvalidArgument);
  const auto moved = static_cast<double>(serial);
  return moved < 0 ? moved - time : moved + time;
}

long long days_between(DATE from, DATE to) noexcept { return serial_of(to) - serial_of(from); }

long long days_between(std::wstring_view from, std::wstring_view to) {
  const DATE start = to_date(from);
  return days_between(start, to_date(to));
}

DATE today() noexcept {
  SYSTEMTIME now;
  GetLocalTime(&now);
  return static_cast<DATE>(serial_of(year(now.wYear) / month(now.wMonth) / day(now.wDay)));
}

CalendarDay calendar_parts(DATE date) noexcept {
  const year_month_day calendar = calendar_day(date);
  return {int(calendar.year()), static_cast<int>(unsigned(calendar.month())),
          static_cast<int>(unsigned(calendar.day()))};
}

int calendar_year(DATE date) noexcept { return int(calendar_day(date).year()); }

int calendar_month(DATE date) noexcept { return static_cast<int>(unsigned(calendar_day(date).month())); }

int weekday(DATE date) noexcept {
  const std::chrono::weekday day(kEpoch + days(serial_of(date)));
  return static_cast<int>(day.c_encoding()) + 1;
}

}  // namespace velmosav
