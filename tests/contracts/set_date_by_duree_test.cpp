// SetDateByDuree: the last day of a duration.
#include "contracts/contract_fixture.h"

#include <limits>

namespace {

using namespace host;

std::wstring two_digits(int number) {
  return {static_cast<wchar_t>(L'0' + number / 10 % 10), static_cast<wchar_t>(L'0' + number % 10)};
}

/// Today "dd/mm/yy", by the machine's clock.
std::wstring today() {
  SYSTEMTIME now;
  GetLocalTime(&now);
  return two_digits(now.wDay) + L"/" + two_digits(now.wMonth) + L"/" + two_digits(now.wYear);
}

/// Asks again when midnight passed in between.
void expect_as_from_today(const wchar_t* start, long duration, const wchar_t* unit) {
  std::wstring day, expected, answered;
  do {
    day = today();
    expected = Contracts().end_of(day.c_str(), duration, unit);
    answered = Contracts().end_of(start, duration, unit);
  } while (day != today());
  EXPECT_EQ(expected, answered) << utf8(start);
}

TEST(ContratDoc, SetDateByDuree_MonthsEndTheDayBefore) {
  EXPECT_EQ(L"31/12/25", Contracts().end_of(L"01/01/2025", 12, L"M"));
  EXPECT_EQ(L"14/02/25", Contracts().end_of(L"15/01/2025", 1, L"M"));
}

TEST(ContratDoc, SetDateByDuree_DaysCountTheFirst) {
  EXPECT_EQ(L"10/01/25", Contracts().end_of(L"01/01/2025", 10, L"J"));
}

TEST(ContratDoc, SetDateByDuree_OneDayEndsOnItsStart) {
  EXPECT_EQ(L"01/03/25", Contracts().end_of(L"01/03/2025", 1, L"J"));
}

TEST(ContratDoc, SetDateByDuree_WeeksEndTheDayBefore) {
  EXPECT_EQ(L"14/01/25", Contracts().end_of(L"01/01/2025", 2, L"S"));
}

TEST(ContratDoc, SetDateByDuree_YearsEndTheDayBefore) {
  EXPECT_EQ(L"31/12/27", Contracts().end_of(L"01/01/2025", 3, L"A"));
}

TEST(ContratDoc, SetDateByDuree_UnknownUnitCountsDays) {
  EXPECT_EQ(L"10/01/25", Contracts().end_of(L"01/01/2025", 10, L"X"));
}

TEST(ContratDoc, SetDateByDuree_UnitIsComparedExactly) {
  EXPECT_EQ(L"12/01/25", Contracts().end_of(L"01/01/2025", 12, L"m"));
  EXPECT_EQ(L"12/01/25", Contracts().end_of(L"01/01/2025", 12, L" M"));
}

TEST(ContratDoc, SetDateByDuree_NegativeDays) {
  EXPECT_EQ(L"28/12/24", Contracts().end_of(L"01/01/2025", -3, L"J"));
}

TEST(ContratDoc, SetDateByDuree_NegativeDaysOfAnUnknownUnit) {
  EXPECT_EQ(L"28/12/24", Contracts().end_of(L"01/01/2025", -3, L"?"));
}

TEST(ContratDoc, SetDateByDuree_NegativeWeeksMonthsAndYears) {
  const Contracts contracts;
  EXPECT_EQ(L"24/12/24", contracts.end_of(L"01/01/2025", -1, L"S"));
  EXPECT_EQ(L"31/01/25", contracts.end_of(L"01/03/2025", -1, L"M"));
  EXPECT_EQ(L"31/12/22", contracts.end_of(L"01/01/2025", -2, L"A"));
}

TEST(ContratDoc, SetDateByDuree_MonthsClampToTheEndOfAShorterMonthFirst) {
  const Contracts contracts;
  EXPECT_EQ(L"27/02/25", contracts.end_of(L"31/01/2025", 1, L"M"));
  EXPECT_EQ(L"28/02/24", contracts.end_of(L"31/01/2024", 1, L"M"));
  EXPECT_EQ(L"29/04/25", contracts.end_of(L"31/03/2025", 1, L"M"));
  EXPECT_EQ(L"27/02/25", contracts.end_of(L"31/03/2025", -1, L"M"));
}

TEST(ContratDoc, SetDateByDuree_YearsClampTheTwentyNinthOfFebruary) {
  const Contracts contracts;
  EXPECT_EQ(L"27/02/25", contracts.end_of(L"29/02/2024", 1, L"A"));
  EXPECT_EQ(L"28/02/28", contracts.end_of(L"29/02/2024", 4, L"A"));
}

TEST(ContratDoc, SetDateByDuree_FirstOfMarchEndsOnTheLastOfFebruary) {
  const Contracts contracts;
  EXPECT_EQ(L"29/02/24", contracts.end_of(L"01/03/2023", 12, L"M"));
  EXPECT_EQ(L"28/02/25", contracts.end_of(L"01/03/2024", 1, L"A"));
}

TEST(ContratDoc, SetDateByDuree_TheDateBetweenIsNotWrittenWithTwoDigits) {
  EXPECT_EQ(L"28/02/00", Contracts().end_of(L"01/03/2000", 100, L"A"));  // 2100, no leap year
}

TEST(ContratDoc, SetDateByDuree_TimeOfDayIsDropped) {
  EXPECT_EQ(L"10/01/25", Contracts().end_of(L"01/01/2025 23:30", 10, L"J"));
}

TEST(ContratDoc, SetDateByDuree_NoDurationIsTheStartAsWritten) {
  EXPECT_EQ(L"1/1/2025", Contracts().end_of(L"1/1/2025", 0, L"M"));
}

TEST(ContratDoc, SetDateByDuree_BlankUnitIsTheStartAsWritten) {
  const Contracts contracts;
  EXPECT_EQ(L"1/1/2025", contracts.end_of(L"1/1/2025", 12, L""));
  EXPECT_EQ(L"1/1/2025", contracts.end_of(L"1/1/2025", 12, L"  "));
}

TEST(ContratDoc, SetDateByDuree_NullUnitIsBlank) {
  Text result;
  EXPECT_EQ(S_OK, Contracts()->SetDateByDuree(Text(L"01/01/2025"), 12, nullptr, &result));
  EXPECT_EQ(L"01/01/2025", result.str());
}

TEST(ContratDoc, SetDateByDuree_InvalidStartCountsFromToday) {
  for (const wchar_t* start : {L"", L"  ", L"bientôt", L"32/13/2025"}) {
    expect_as_from_today(start, 10, L"J");
    expect_as_from_today(start, 12, L"M");
  }
}

TEST(ContratDoc, SetDateByDuree_InvalidStartWithoutDurationIsTodayWithATwoDigitYear) {
  expect_as_from_today(L"bientôt", 0, L"M");
  expect_as_from_today(L"", 12, L"");
}

TEST(ContratDoc, SetDateByDuree_BeyondTheLastYearIsFault5) {
  const Contracts contracts;
  constexpr long kLongest = std::numeric_limits<long>::max();
  for (const wchar_t* unit : {L"J", L"S", L"M", L"A", L"X"}) {
    Text result;
    EXPECT_TRUE(
        is_contract_fault(contracts->SetDateByDuree(Text(L"01/01/2025"), kLongest, Text(unit), &result), 5))
        << utf8(unit);
  }
}

TEST(ContratDoc, SetDateByDuree_BeforeTheFirstYearIsFault5) {
  const Contracts contracts;
  for (const wchar_t* unit : {L"J", L"S", L"M", L"A", L"X"}) {
    Text result;
    EXPECT_TRUE(
        is_contract_fault(contracts->SetDateByDuree(Text(L"01/01/2025"), -3'000'000, Text(unit), &result), 5))
        << utf8(unit);
  }
}

TEST(ContratDoc, SetDateByDuree_LeastNumberOfUnitsIsFault5AndOfDaysOverflow) {
  const Contracts contracts;
  constexpr long kLeast = std::numeric_limits<long>::min();
  for (const auto& [unit, fault] : {std::pair{L"J", 6}, {L"S", 5}, {L"M", 5}, {L"A", 5}, {L"X", 5}}) {
    Text result;
    EXPECT_TRUE(
        is_contract_fault(contracts->SetDateByDuree(Text(L"01/01/2025"), kLeast, Text(unit), &result), fault))
        << utf8(unit);
  }
}

TEST(ContratDoc, SetDateByDuree_NullResultIsEPointer) {
  EXPECT_EQ(E_POINTER, Contracts()->SetDateByDuree(Text(L"01/01/2025"), 1, Text(L"J"), nullptr));
}

}  // namespace
