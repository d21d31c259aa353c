// Periodicite.GetPrevNextMonth: the next or previous date of a monthly rule.
#include "dates/recurrence_fixture.h"

namespace {

using namespace host;

std::wstring next(const wchar_t* date, const RuleFields& fields) { return Recurrence().next(date, fields); }
std::wstring previous(const wchar_t* date, const RuleFields& fields) {
  return Recurrence().previous(date, fields);
}
std::wstring next_in(const wchar_t* date, const wchar_t* months) {
  return next(date, {.kind = L"M", .months = months});
}
std::wstring previous_in(const wchar_t* date, const wchar_t* months) {
  return previous(date, {.kind = L"M", .months = months});
}

HRESULT outcome(const wchar_t* date, const RuleFields& fields) {
  auto record = rule(fields);
  Text origin(date);
  VARIANT_BOOL back = VARIANT_FALSE;
  Text result;
  return Recurrence()->GetPrevNextMonth(origin.in_out(), record, &back, &result);
}

TEST(Periodicite, GetPrevNextMonth_OtherKindLeavesTheTextUnchanged) {
  for (const wchar_t* kind : {L"Q", L"H", L"A", L"", L"m", L"X"}) {
    EXPECT_EQ(L"31/01/2025", next(L"31/01/2025", {.kind = kind, .every = 1, .months = L"F"})) << utf8(kind);
    EXPECT_EQ(L"no date", previous(L"no date", {.kind = kind, .every = 1, .months = L"F"})) << utf8(kind);
  }
}

TEST(Periodicite, GetPrevNextMonth_IntervalMovesByThatManyMonths) {
  EXPECT_EQ(L"15/04/25", next(L"15/03/2025", {.kind = L"M", .every = 1}));
  EXPECT_EQ(L"15/02/25", previous(L"15/03/2025", {.kind = L"M", .every = 1}));
  EXPECT_EQ(L"15/09/26", next(L"15/03/2025", {.kind = L"M", .every = 18}));
  EXPECT_EQ(L"15/09/23", previous(L"15/03/2025", {.kind = L"M", .every = 18}));
}

TEST(Periodicite, GetPrevNextMonth_IntervalClampsTheDayToAShorterMonth) {
  EXPECT_EQ(L"28/02/25", next(L"31/01/2025", {.kind = L"M", .every = 1}));
  EXPECT_EQ(L"29/02/24", previous(L"31/03/2024", {.kind = L"M", .every = 1}));
  EXPECT_EQ(L"30/04/25", next(L"31/03/2025", {.kind = L"M", .every = 1}));
}

TEST(Periodicite, GetPrevNextMonth_NegativeIntervalTurnsTheDirection) {
  EXPECT_EQ(L"15/01/25", next(L"15/03/2025", {.kind = L"M", .every = -2}));
  EXPECT_EQ(L"15/05/25", previous(L"15/03/2025", {.kind = L"M", .every = -2}));
}

TEST(Periodicite, GetPrevNextMonth_IntervalDoesNotLookAtTheMonths) {
  EXPECT_EQ(L"15/04/25", next(L"15/03/2025", {.kind = L"M", .every = 1, .months = L"D"}));
}

TEST(Periodicite, GetPrevNextMonth_IntervalReadsATwoDigitYear) {
  EXPECT_EQ(L"15/04/25", next(L"15/03/25", {.kind = L"M", .every = 1}));
}

TEST(Periodicite, GetPrevNextMonth_ForwardToAListedMonthCorrectsTheDay) {
  EXPECT_EQ(L"30/04/2025", next_in(L"31/01/2025", L"A"));
}

TEST(Periodicite, GetPrevNextMonth_BackwardToAListedMonthOfThePreviousYear) {
  EXPECT_EQ(L"15/10/2024", previous_in(L"15/03/2025", L"C"));
}

TEST(Periodicite, GetPrevNextMonth_ForwardPastDecemberTakesTheNextYear) {
  EXPECT_EQ(L"15/01/2026", next_in(L"15/11/2025", L"J"));
  EXPECT_EQ(L"15/12/2025", next_in(L"15/11/2025", L"JD"));
}

TEST(Periodicite, GetPrevNextMonth_BackwardStaysInTheYearWhereItCan) {
  EXPECT_EQ(L"15/01/2025", previous_in(L"15/03/2025", L"JC"));
  EXPECT_EQ(L"15/12/2024", previous_in(L"15/01/2025", L"JD"));
}

TEST(Periodicite, GetPrevNextMonth_NearestListedMonthWinsWhateverTheOrderOfTheKeys) {
  EXPECT_EQ(L"10/06/2025", next_in(L"10/05/2025", L"SUDJ"));
  EXPECT_EQ(L"10/03/2025", previous_in(L"10/05/2025", L"JMFD"));
}

TEST(Periodicite, GetPrevNextMonth_OnlyTheCurrentMonthMovesAWholeYear) {
  EXPECT_EQ(L"15/03/2026", next_in(L"15/03/2025", L"M"));
  EXPECT_EQ(L"15/03/2024", previous_in(L"15/03/2025", L"M"));
}

TEST(Periodicite, GetPrevNextMonth_CurrentMonthIsTheLastChoice) {
  EXPECT_EQ(L"15/02/2026", next_in(L"15/03/2025", L"MF"));
  EXPECT_EQ(L"15/04/2024", previous_in(L"15/03/2025", L"MA"));
}

TEST(Periodicite, GetPrevNextMonth_EachListedMonthIsFoundForward) {
  constexpr std::wstring_view kKeys = L"JFMAIULOSCND";
  for (int month = 1; month <= 12; ++month) {
    const std::wstring key(1, kKeys[static_cast<std::size_t>(month) - 1]);
    const std::wstring year = month > 6 ? L"2025" : L"2026";
    EXPECT_EQ(L"05/" + two_digits(month) + L"/" + year, next_in(L"05/06/2025", key.c_str()));
  }
}

TEST(Periodicite, GetPrevNextMonth_EachListedMonthIsFoundBackward) {
  constexpr std::wstring_view kKeys = L"JFMAIULOSCND";
  for (int month = 1; month <= 12; ++month) {
    const std::wstring key(1, kKeys[static_cast<std::size_t>(month) - 1]);
    const std::wstring year = month < 6 ? L"2025" : L"2024";
    EXPECT_EQ(L"05/" + two_digits(month) + L"/" + year, previous_in(L"05/06/2025", key.c_str()));
  }
}

TEST(Periodicite, GetPrevNextMonth_ListedFebruaryCorrectsToATwoDigitYear) {
  EXPECT_EQ(L"28/02/25", next_in(L"31/01/2025", L"F"));
  EXPECT_EQ(L"29/02/24", next_in(L"30/01/2024", L"F"));
  EXPECT_EQ(L"29/02/24", previous_in(L"29/03/2024", L"F"));
}

TEST(Periodicite, GetPrevNextMonth_ListedFebruaryWithAnEarlierDayKeepsFourDigits) {
  EXPECT_EQ(L"28/02/2025", next_in(L"28/01/2025", L"F"));
}

TEST(Periodicite, GetPrevNextMonth_ListedFebruaryOfACenturyYearStaysUnformatted) {
  EXPECT_EQ(L"29/02/2100", next_in(L"31/01/2100", L"F"));
}

TEST(Periodicite, GetPrevNextMonth_ListedMonthReadsATwoDigitYearAndWritesFour) {
  EXPECT_EQ(L"05/04/2025", next_in(L"5/3/25", L"A"));
  EXPECT_EQ(L"15/04/1960", next_in(L"15/03/60", L"A"));
}

TEST(Periodicite, GetPrevNextMonth_EmptyMonthsLeaveTheDateUnchanged) {
  EXPECT_EQ(L"5/3/25", next_in(L"5/3/25", L""));
  EXPECT_EQ(L"5/3/25", previous_in(L"5/3/25", L""));
}

TEST(Periodicite, GetPrevNextMonth_MonthsWithoutAnyKeyLeaveTheDateUnchanged) {
  EXPECT_EQ(L"15/03/2025", next_in(L"15/03/2025", L"XYZ 12"));
}

TEST(Periodicite, GetPrevNextMonth_MonthKeysAreCaseSensitive) {
  EXPECT_EQ(L"15/03/2025", next_in(L"15/03/2025", L"a"));
  EXPECT_EQ(L"15/09/2025", next_in(L"15/03/2025", L"aS"));
}

TEST(Periodicite, GetPrevNextMonth_TextThatIsNoDateIsFault13) {
  EXPECT_TRUE(is_fault(outcome(L"no date", {.kind = L"M", .every = 1}), 13, L"Periodicite"));
  EXPECT_TRUE(is_fault(outcome(L"31/02/2025", {.kind = L"M", .every = 1}), 13, L"Periodicite"));
  EXPECT_TRUE(is_fault(outcome(L"", {.kind = L"M", .months = L"A"}), 13, L"Periodicite"));
}

TEST(Periodicite, GetPrevNextMonth_YearBeyondTheCalendarIsFault5) {
  EXPECT_TRUE(is_fault(outcome(L"01/12/9999", {.kind = L"M", .every = 1}), 5, L"Periodicite"));
}

TEST(Periodicite, GetPrevNextMonth_KindLetterIsThatOfTheInstance) {
  const Recurrence object;
  ASSERT_EQ(S_OK, object->put_c_sPeriod_Mens(Text(L"X")));
  EXPECT_EQ(L"15/04/25", object.next(L"15/03/2025", {.kind = L"X", .every = 1}));
  EXPECT_EQ(L"15/03/2025", object.next(L"15/03/2025", {.kind = L"M", .every = 1}));
}

TEST(Periodicite, GetPrevNextMonth_LeavesItsArgumentsAsTheyAre) {
  auto record = rule({.kind = L"M", .months = L"A"});
  const auto before = snapshot(*record);
  Text origin(L"31/01/2025");
  VARIANT_BOOL back = VARIANT_TRUE;
  Text result;
  ASSERT_EQ(S_OK, Recurrence()->GetPrevNextMonth(origin.in_out(), record, &back, &result));
  EXPECT_EQ(result, std::wstring_view(L"30/04/2024"));
  EXPECT_EQ(origin, std::wstring_view(L"31/01/2025"));
  EXPECT_EQ(VARIANT_TRUE, back);
  EXPECT_EQ(std::vector<std::string>(), differences(*before, *record));
}

TEST(Periodicite, GetPrevNextMonth_AnyValueButFalseGoesBack) {
  auto record = rule({.kind = L"M", .every = 1});
  Text origin(L"15/03/2025");
  VARIANT_BOOL back = 1;
  Text result;
  ASSERT_EQ(S_OK, Recurrence()->GetPrevNextMonth(origin.in_out(), record, &back, &result));
  EXPECT_EQ(L"15/02/25", result.str());
}

}  // namespace
