// Date arithmetic against the platform's calendar, which knows nothing of automation dates.
// The seed is printed; VELMOSAV_TEST_SEED repeats a run.
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <random>

#include "automation/date_text.h"
#include "automation/fault.h"
#include "support/host.h"
#include "support/chance.h"

namespace {

using host::utf8;

constexpr DATE kFirstDay = 2;     // 01/01/1900
constexpr DATE kLastDay = 73050;  // 31/12/2099

SYSTEMTIME parts_of(DATE date) {
  SYSTEMTIME parts{};
  EXPECT_TRUE(VariantTimeToSystemTime(date, &parts)) << date;
  return parts;
}

/// Hundreds of nanoseconds since 1601, the platform's count that knows nothing of automation dates.
long long ticks_of(const SYSTEMTIME& parts) {
  FILETIME time{};
  EXPECT_TRUE(SystemTimeToFileTime(&parts, &time));
  return (static_cast<long long>(time.dwHighDateTime) << 32) | time.dwLowDateTime;
}

DATE date_of(const SYSTEMTIME& parts) {
  DATE date = 0;
  EXPECT_TRUE(SystemTimeToVariantTime(const_cast<SYSTEMTIME*>(&parts), &date));
  return date;
}

DATE platform_add_days(DATE date, long long count) {
  const long long ticks = ticks_of(parts_of(date)) + count * 864'000'000'000LL;
  const FILETIME time{static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32)};
  SYSTEMTIME moved{};
  EXPECT_TRUE(FileTimeToSystemTime(&time, &moved));
  return date_of(moved);
}

/// Whether the calendar has the day: a day too many moves into the next month, or is refused.
bool exists(const SYSTEMTIME& parts) {
  FILETIME time;
  SYSTEMTIME again;
  return SystemTimeToFileTime(&parts, &time) && FileTimeToSystemTime(&time, &again) &&
         again.wDay == parts.wDay;
}

DATE platform_add_months(DATE date, long long count) {
  SYSTEMTIME parts = parts_of(date);
  const long long months = parts.wYear * 12LL + parts.wMonth - 1 + count;
  parts.wYear = static_cast<WORD>(months / 12);
  parts.wMonth = static_cast<WORD>(months % 12 + 1);
  while (parts.wDay > 28 && !exists(parts)) --parts.wDay;
  return date_of(parts);
}

TEST(AddToDate, AgreesWithThePlatformsCalendarOnRandomDates) {
  const unsigned seed = host::chosen_seed();
  std::mt19937 engine(seed);
  const auto between = [&](int least, int most) {
    return std::uniform_int_distribution<int>(least, most)(engine);
  };
  using Route = std::function<DATE(DATE, long long)>;
  const struct {
    const wchar_t* interval;
    int most;
    Route route;
  } intervals[] = {{L"d", 20000, platform_add_days},
                   {L"ww", 3000, [](DATE date, long long n) { return platform_add_days(date, 7 * n); }},
                   {L"m", 700, platform_add_months},
                   {L"yyyy", 60, [](DATE date, long long n) { return platform_add_months(date, 12 * n); }}};
  for (int i = 0; i < 40000; ++i) {
    // The ends of months are where the arithmetic can go wrong.
    DATE date = between(2, 73050);
    if (between(1, 2) == 1) date += 1 - parts_of(date).wDay - between(0, 3);
    // Whole seconds of the day, before 1900 too: there the time counts against the day.
    const double time = between(1, 3) == 1 ? between(0, 86399) / 86400.0 : 0;
    date = date < 0 ? date - time : date + time;
    for (const auto& [interval, most, route] : intervals) {
      const long long count = between(-most, most);
      const DATE expected = route(date, count);
      const DATE moved = velmosav::add_to_date(date, interval, count);
      ASSERT_EQ(std::trunc(expected), std::trunc(moved))
          << "seed " << seed << ": " << date << " + " << count << " " << utf8(interval);
      ASSERT_NEAR(expected, moved, 1e-8) << "seed " << seed << ": " << date << " + " << count;
    }
  }
}

TEST(AddToDate, TimeOfDayStaysAcrossTheFirstDayOfTheCount) {
  // 29/12/1899 06:00 is -1.25, 31/12/1899 06:00 is 1.25.
  EXPECT_EQ(1.25, velmosav::add_to_date(-1.25, L"d", 2));
  EXPECT_EQ(-1.25, velmosav::add_to_date(1.25, L"d", -2));
}

/// The run-time fault of an addition, 0 when it succeeds.
int fault_of(DATE date, const wchar_t* interval, long long count) {
  try {
    (void)velmosav::add_to_date(date, interval, count);
    return 0;
  } catch (const velmosav::Failure& failure) {
    return static_cast<int>(failure.code & 0xFFFF);
  }
}

TEST(AddToDate, YearOutsideTheCalendarIsFault5) {
  EXPECT_EQ(0, fault_of(2958464, L"d", 1));
  for (const wchar_t* interval : {L"d", L"ww", L"m", L"yyyy"}) {
    EXPECT_EQ(5, fault_of(2958465, interval, 1)) << utf8(interval);
    EXPECT_EQ(5, fault_of(-657434, interval, -1)) << utf8(interval);
    EXPECT_EQ(5, fault_of(45000, interval, 9'000'000'000LL)) << utf8(interval);
  }
}

TEST(AddToDate, UnknownIntervalIsFault5) {
  for (const wchar_t* interval : {L"", L"q", L"D", L"yy", L"h"}) EXPECT_EQ(5, fault_of(45000, interval, 1));
}

TEST(DateArithmetic, PartsOfEveryDayAreThePlatformsOwn) {
  for (DATE date = kFirstDay; date <= kLastDay; ++date) {
    const SYSTEMTIME parts = parts_of(date);
    ASSERT_EQ(parts.wYear, velmosav::calendar_year(date + 0.75)) << date;
    ASSERT_EQ(parts.wMonth, velmosav::calendar_month(date + 0.75)) << date;
    ASSERT_EQ(parts.wDay, velmosav::calendar_parts(date + 0.75).day) << date;
    ASSERT_EQ(parts.wDayOfWeek + 1, velmosav::weekday(date + 0.75)) << date;
  }
}

TEST(DateArithmetic, DaysBetweenCountsCalendarDays) {
  EXPECT_EQ(1, velmosav::days_between(45000.99, 45001.01));
  EXPECT_EQ(-366, velmosav::days_between(L"01/01/25", L"01/01/24"));
  EXPECT_EQ(0, velmosav::days_between(L"05/05/2025 23:59", L"05/05/25"));
}

TEST(DateArithmetic, TodayIsTheMachinesDayWithoutTime) {
  SYSTEMTIME now;
  GetLocalTime(&now);
  now.wHour = now.wMinute = now.wSecond = now.wMilliseconds = 0;
  EXPECT_NEAR(date_of(now), velmosav::today(), 1);  // midnight may pass between the two
  EXPECT_EQ(std::trunc(velmosav::today()), velmosav::today());
}

}  // namespace
