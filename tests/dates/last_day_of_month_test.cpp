// Periodicite.LastDayOfMonth, and what becomes of the year variable.
#include <cstring>

#include "dates/recurrence_fixture.h"

namespace {

using namespace host;

/// The result for a month of the given year variable.
std::wstring last_day(short month, Variant& year) {
  Text result(L"not set");
  EXPECT_EQ(S_OK, Recurrence()->LastDayOfMonth(&month, &year.get(), &result));
  return result.str();
}

/// The result that belongs to a month of this year.
std::wstring expected_this_year(int month) {
  constexpr int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  const int year = local_today().wYear;
  const bool leap = month == 2 && year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
  return two_digits(kDays[month - 1] + (leap ? 1 : 0)) + L"/" + two_digits(month) + L"/" + two_digits(year);
}

TEST(Periodicite, LastDayOfMonth_FebruaryOfALeapYear) {
  EXPECT_EQ(L"29/02/24", Recurrence().last_day(2, 2024));
}

TEST(Periodicite, LastDayOfMonth_EveryMonthOfAnOrdinaryYear) {
  constexpr int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  for (short month = 1; month <= 12; ++month) {
    EXPECT_EQ(two_digits(kDays[month - 1]) + L"/" + two_digits(month) + L"/25",
              Recurrence().last_day(month, 2025));
  }
}

TEST(Periodicite, LastDayOfMonth_TwoDigitYear) { EXPECT_EQ(L"29/02/28", Recurrence().last_day(2, 28)); }

TEST(Periodicite, LastDayOfMonth_CenturyIsReadBackFromTwoDigits) {
  // 01/03/1900 and 01/03/2100 are written 01/03/00, which is a day of 2000.
  EXPECT_EQ(L"29/02/00", Recurrence().last_day(2, 1900));
  EXPECT_EQ(L"29/02/00", Recurrence().last_day(2, 2100));
}

TEST(Periodicite, LastDayOfMonth_GivenYearIsWrittenBackAsADouble) {
  Variant year(static_cast<short>(2024));
  EXPECT_EQ(L"30/04/24", last_day(4, year));
  EXPECT_EQ(VT_R8, year.get().vt);
  EXPECT_EQ(2024.0, year.get().dblVal);
}

TEST(Periodicite, LastDayOfMonth_YearMayBeText) {
  Variant year = text_value(L"2025");
  EXPECT_EQ(L"28/02/25", last_day(2, year));
  EXPECT_EQ(VT_R8, year.get().vt);
  EXPECT_EQ(2025.0, year.get().dblVal);
}

TEST(Periodicite, LastDayOfMonth_MissingYearIsTheCurrentOneStoredAs16Bits) {
  Variant year = missing();
  EXPECT_EQ(expected_this_year(2), last_day(2, year));
  EXPECT_EQ(VT_I2, year.get().vt);
  EXPECT_EQ(static_cast<short>(local_today().wYear), year.get().iVal);
}

TEST(Periodicite, LastDayOfMonth_NullAddressOfTheYearIsAMissingYear) {
  short month = 11;
  Text result;
  ASSERT_EQ(S_OK, Recurrence()->LastDayOfMonth(&month, nullptr, &result));
  EXPECT_EQ(expected_this_year(11), result.str());
}

TEST(Periodicite, LastDayOfMonth_EmptyYearIsNotMissing) {
  Variant year;
  EXPECT_EQ(L"29/02/00", last_day(2, year));  // year 0, that is 2000
  EXPECT_EQ(VT_R8, year.get().vt);
  EXPECT_EQ(0.0, year.get().dblVal);
}

TEST(Periodicite, LastDayOfMonth_TypedYearVariableKeepsItsType) {
  short stored = 2024;
  Variant year = by_reference(stored);
  EXPECT_EQ(L"29/02/24", last_day(2, year));
  EXPECT_EQ(VT_BYREF | VT_I2, year.get().vt);
  EXPECT_EQ(2024, stored);
}

TEST(Periodicite, LastDayOfMonth_VariableOfATypeThatTakesNoNumberIsFault13AndStays) {
  DECIMAL stored;
  ASSERT_EQ(S_OK, VarDecFromI4(2024, &stored));
  const DECIMAL before = stored;
  Variant year = by_reference(VT_DECIMAL, &stored);
  short month = 2;
  Text result;
  EXPECT_TRUE(is_fault(Recurrence()->LastDayOfMonth(&month, &year.get(), &result), 13, L"Periodicite"));
  EXPECT_EQ(0, std::memcmp(&before, &stored, sizeof stored));
  EXPECT_EQ(result, std::wstring_view());
}

TEST(Periodicite, LastDayOfMonth_ScriptVariableReceivesTheNumber) {
  Variant variable = text_value(L"2023");
  Variant year = by_reference(variable.get());
  EXPECT_EQ(L"28/02/23", last_day(2, year));
  EXPECT_EQ(VT_R8, variable.get().vt);
  EXPECT_EQ(2023.0, variable.get().dblVal);
}

TEST(Periodicite, LastDayOfMonth_LeavesTheMonthAsItIs) {
  short month = 12;
  Variant year(2024L);
  Text result;
  ASSERT_EQ(S_OK, Recurrence()->LastDayOfMonth(&month, &year.get(), &result));
  EXPECT_EQ(result, std::wstring_view(L"31/12/24"));
  EXPECT_EQ(12, month);
}

TEST(Periodicite, LastDayOfMonth_MonthZeroIsFault13) {
  short month = 0;
  Variant year(2024L);
  Text result;
  EXPECT_TRUE(is_fault(Recurrence()->LastDayOfMonth(&month, &year.get(), &result), 13, L"Periodicite"));
}

TEST(Periodicite, LastDayOfMonth_December9999IsFault5) {
  short month = 12;
  Variant year(9999L);
  Text result;
  EXPECT_TRUE(is_fault(Recurrence()->LastDayOfMonth(&month, &year.get(), &result), 5, L"Periodicite"));
}

TEST(Periodicite, LastDayOfMonth_YearThatIsNoNumberIsFault13AndStays) {
  short month = 1;
  Variant year = text_value(L"abc");
  Text result;
  EXPECT_TRUE(is_fault(Recurrence()->LastDayOfMonth(&month, &year.get(), &result), 13, L"Periodicite"));
  EXPECT_EQ(VT_BSTR, year.get().vt);
}

TEST(Periodicite, LastDayOfMonth_NullYearIsFault94) {
  short month = 1;
  Variant year = null_value();
  Text result;
  EXPECT_TRUE(is_fault(Recurrence()->LastDayOfMonth(&month, &year.get(), &result), 94, L"Periodicite"));
}

}  // namespace
