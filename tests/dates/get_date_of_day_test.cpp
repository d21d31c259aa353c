// Periodicite.GetDateOfDay: the date of a rule's ordinal weekday in a month. May 2025 starts on a Thursday.
#include "dates/recurrence_fixture.h"

namespace {

using namespace host;

std::wstring may_2025(const wchar_t* ordinal, const wchar_t* weekday) {
  return Recurrence().day_in(5, 2025, {.ordinal = ordinal, .weekdays = weekday});
}

HRESULT outcome(const RuleFields& fields, Variant month, Variant year) {
  auto record = rule(fields);
  Text result;
  return Recurrence()->GetDateOfDay(record, &month.get(), &year.get(), &result);
}

/// The result for variables that the call may change.
std::wstring day_in(const RuleFields& fields, VARIANT* month, VARIANT* year) {
  auto record = rule(fields);
  Text result(L"not set");
  EXPECT_EQ(S_OK, Recurrence()->GetDateOfDay(record, month, year, &result));
  return result.str();
}

int weekday_of(std::wstring date) {
  DATE value = 0;
  SYSTEMTIME parts{};
  EXPECT_EQ(S_OK, VarDateFromStr(date.data(), LOCALE_USER_DEFAULT, 0, &value)) << utf8(date);
  EXPECT_TRUE(VariantTimeToSystemTime(value, &parts));
  return parts.wDayOfWeek;
}

TEST(Periodicite, GetDateOfDay_FirstOfEachWeekday) {
  EXPECT_EQ(L"02/05/2025", may_2025(L"P", L"V"));
  EXPECT_EQ(L"03/05/2025", may_2025(L"P", L"S"));
  EXPECT_EQ(L"04/05/2025", may_2025(L"P", L"D"));
  EXPECT_EQ(L"05/05/2025", may_2025(L"P", L"L"));
  EXPECT_EQ(L"06/05/2025", may_2025(L"P", L"M"));
  EXPECT_EQ(L"07/05/2025", may_2025(L"P", L"E"));
}

TEST(Periodicite, GetDateOfDay_FirstDayOfTheMonthNeedsNoStepAndHasATwoDigitYear) {
  EXPECT_EQ(L"01/05/25", may_2025(L"P", L"J"));
}

TEST(Periodicite, GetDateOfDay_SecondTuesday) { EXPECT_EQ(L"13/05/2025", may_2025(L"D", L"M")); }

TEST(Periodicite, GetDateOfDay_ThirdSunday) { EXPECT_EQ(L"18/05/2025", may_2025(L"T", L"D")); }

TEST(Periodicite, GetDateOfDay_FourthWednesday) { EXPECT_EQ(L"28/05/2025", may_2025(L"Q", L"E")); }

TEST(Periodicite, GetDateOfDay_AddedWeeksAloneGiveTheSystemsShortForm) {
  EXPECT_EQ(L"08/05/2025", may_2025(L"D", L"J"));
  EXPECT_EQ(L"15/05/2025", may_2025(L"T", L"J"));
  EXPECT_EQ(L"22/05/2025", may_2025(L"Q", L"J"));
}

TEST(Periodicite, GetDateOfDay_LastFriday) { EXPECT_EQ(L"30/05/2025", may_2025(L"R", L"V")); }

TEST(Periodicite, GetDateOfDay_LastWalksBackAWholeWeekAtMost) {
  EXPECT_EQ(L"25/05/2025", may_2025(L"R", L"D"));
}

TEST(Periodicite, GetDateOfDay_LastDayOfTheMonthNeedsNoStepAndHasATwoDigitYear) {
  EXPECT_EQ(L"31/05/25", may_2025(L"R", L"S"));
}

TEST(Periodicite, GetDateOfDay_OtherOrdinalIsTheFirst) {
  for (const wchar_t* ordinal : {L"", L"X", L"PD", L"R "}) {
    EXPECT_EQ(L"02/05/2025", may_2025(ordinal, L"V")) << utf8(ordinal);
  }
}

TEST(Periodicite, GetDateOfDay_KeysMayBeInLowerCase) {
  EXPECT_EQ(L"30/05/2025", may_2025(L"r", L"v"));
  EXPECT_EQ(L"13/05/2025", may_2025(L"d", L"m"));
}

TEST(Periodicite, GetDateOfDay_KindAndIntervalDoNotCount) {
  EXPECT_EQ(
      L"02/05/2025",
      Recurrence().day_in(5, 2025, {.kind = L"Q", .every = 7, .day = 9, .ordinal = L"P", .weekdays = L"V"}));
}

TEST(Periodicite, GetDateOfDay_TwoDigitYearIsReadBack) {
  // 2060 is written 60, which is 1960: the month then starts on a Sunday, not on a Saturday.
  EXPECT_EQ(L"01/05/60", Recurrence().day_in(5, 2060, {.ordinal = L"P", .weekdays = L"D"}));
  EXPECT_EQ(L"02/05/1960", Recurrence().day_in(5, 2060, {.ordinal = L"P", .weekdays = L"L"}));
}

TEST(Periodicite, GetDateOfDay_MonthAndYearMayBeTexts) {
  Variant month = text_value(L"05");
  Variant year = text_value(L"2025");
  EXPECT_EQ(L"30/05/2025", day_in({.ordinal = L"R", .weekdays = L"V"}, &month.get(), &year.get()));
}

TEST(Periodicite, GetDateOfDay_LastMakesAGivenYearADouble) {
  Variant month(5L);
  Variant year = text_value(L"2025");
  ASSERT_EQ(L"30/05/2025", day_in({.ordinal = L"R", .weekdays = L"V"}, &month.get(), &year.get()));
  EXPECT_EQ(VT_R8, year.get().vt);
  EXPECT_EQ(2025.0, year.get().dblVal);
  EXPECT_EQ(VT_I4, month.get().vt);
  EXPECT_EQ(5, month.get().lVal);
}

TEST(Periodicite, GetDateOfDay_OtherOrdinalsLeaveAGivenYearAsItIs) {
  Variant month(5L);
  Variant year = text_value(L"2025");
  ASSERT_EQ(L"13/05/2025", day_in({.ordinal = L"D", .weekdays = L"M"}, &month.get(), &year.get()));
  EXPECT_EQ(VT_BSTR, year.get().vt);
  EXPECT_EQ(L"2025", velmosav::view(year.get().bstrVal));
}

TEST(Periodicite, GetDateOfDay_MissingMonthIsTheCurrentOneStored) {
  Variant month = missing();
  Variant year(static_cast<short>(2025));
  const std::wstring date = day_in({.ordinal = L"D", .weekdays = L"L"}, &month.get(), &year.get());
  EXPECT_EQ(VT_I2, month.get().vt);
  EXPECT_EQ(static_cast<short>(local_today().wMonth), month.get().iVal);
  ASSERT_EQ(10U, date.size());
  EXPECT_EQ(L"/" + two_digits(local_today().wMonth) + L"/2025", date.substr(2));
  EXPECT_EQ(1, weekday_of(date));
}

TEST(Periodicite, GetDateOfDay_MissingYearIsTheCurrentOneStored) {
  Variant month(static_cast<short>(3));
  Variant year = missing();
  const std::wstring date = day_in({.ordinal = L"D", .weekdays = L"L"}, &month.get(), &year.get());
  EXPECT_EQ(VT_I2, year.get().vt);
  EXPECT_EQ(static_cast<short>(local_today().wYear), year.get().iVal);
  ASSERT_EQ(10U, date.size());
  EXPECT_EQ(L"/03/" + std::to_wstring(local_today().wYear), date.substr(2));
  EXPECT_EQ(1, weekday_of(date));
}

TEST(Periodicite, GetDateOfDay_NullAddressesAreAMissingMonthAndYear) {
  Variant month = missing();
  Variant year = missing();
  const RuleFields fields{.ordinal = L"R", .weekdays = L"E"};
  EXPECT_EQ(day_in(fields, &month.get(), &year.get()), day_in(fields, nullptr, nullptr));
}

TEST(Periodicite, GetDateOfDay_ScriptVariablesReceiveTheCurrentMonthAndYear) {
  Variant month_variable = missing();
  Variant year_variable = missing();
  Variant month = by_reference(month_variable.get());
  Variant year = by_reference(year_variable.get());
  (void)day_in({.ordinal = L"P", .weekdays = L"L"}, &month.get(), &year.get());
  EXPECT_EQ(static_cast<short>(local_today().wMonth), month_variable.get().iVal);
  EXPECT_EQ(static_cast<short>(local_today().wYear), year_variable.get().iVal);
}

TEST(Periodicite, GetDateOfDay_WeekdaySelectionThatIsNoSingleKeyIsFault5) {
  for (const wchar_t* weekdays : {L"", L" ", L"X", L"LM", L"L ", L"Lundi"}) {
    for (const wchar_t* ordinal : {L"P", L"D", L"R"}) {
      EXPECT_TRUE(is_fault(outcome({.ordinal = ordinal, .weekdays = weekdays}, Variant(5L), Variant(2025L)),
                           5, L"Periodicite"))
          << utf8(weekdays) << " " << utf8(ordinal);
    }
  }
}

TEST(Periodicite, GetDateOfDay_MonthOrYearThatMakesNoDateIsFault13) {
  for (const wchar_t* ordinal : {L"P", L"T", L"R"}) {
    const RuleFields fields{.ordinal = ordinal, .weekdays = L"L"};
    EXPECT_TRUE(is_fault(outcome(fields, Variant(0L), Variant(2025L)), 13, L"Periodicite")) << utf8(ordinal);
    EXPECT_TRUE(is_fault(outcome(fields, Variant(5L), text_value(L"abc")), 13, L"Periodicite"))
        << utf8(ordinal);
  }
}

TEST(Periodicite, GetDateOfDay_LastWeekdayOfDecember9999IsFault5) {
  const RuleFields fields{.ordinal = L"R", .weekdays = L"L"};
  EXPECT_TRUE(is_fault(outcome(fields, Variant(12L), Variant(9999L)), 5, L"Periodicite"));
}

TEST(Periodicite, GetDateOfDay_LastWeekdayOfAMonthBeyond16BitsIsFault6) {
  const RuleFields last{.ordinal = L"R", .weekdays = L"L"};
  EXPECT_TRUE(is_fault(outcome(last, Variant(32768L), Variant(2025L)), 6, L"Periodicite"));
  const RuleFields first{.ordinal = L"P", .weekdays = L"L"};
  EXPECT_TRUE(is_fault(outcome(first, Variant(32768L), Variant(2025L)), 13, L"Periodicite"));
}

TEST(Periodicite, GetDateOfDay_LeavesTheRuleAsItIs) {
  auto record = rule({.kind = L"M", .every = 1, .ordinal = L"r", .weekdays = L"v", .months = L"I"});
  const auto before = snapshot(*record);
  Variant month(5L);
  Variant year(2025L);
  Text result;
  ASSERT_EQ(S_OK, Recurrence()->GetDateOfDay(record, &month.get(), &year.get(), &result));
  EXPECT_EQ(std::vector<std::string>(), differences(*before, *record));
}

}  // namespace
