// Periodicite.CheckDate: a day that its month does not have; every other text comes back as it is.
#include "dates/recurrence_fixture.h"

namespace {

using namespace host;

TEST(Periodicite, CheckDate_31InAMonthOf30DaysBecomes30) {
  const Recurrence object;
  EXPECT_EQ(L"30/04/2024", object.checked(L"31/04/2024"));
  EXPECT_EQ(L"30/06/2024", object.checked(L"31/06/2024"));
  EXPECT_EQ(L"30/09/2024", object.checked(L"31/09/2024"));
  EXPECT_EQ(L"30/11/2024", object.checked(L"31/11/2024"));
}

TEST(Periodicite, CheckDate_31InAMonthOf31DaysIsUnchanged) {
  for (const wchar_t* date : {L"31/01/2024", L"31/03/2024", L"31/05/2024", L"31/07/2024", L"31/08/2024",
                              L"31/10/2024", L"31/12/2024"}) {
    EXPECT_EQ(date, Recurrence().checked(date));
  }
}

TEST(Periodicite, CheckDate_OnlyExactly31IsCorrectedInAMonthOf30Days) {
  for (const wchar_t* date : {L"30/04/2024", L"32/04/2024", L"99/11/2024", L"3/06/2024", L"/09/2024"}) {
    EXPECT_EQ(date, Recurrence().checked(date));
  }
}

TEST(Periodicite, CheckDate_TextAfterTheDayStaysUnformatted) {
  const Recurrence object;
  EXPECT_EQ(L"30/4/24 08:15", object.checked(L"31/4/24 08:15"));
  EXPECT_EQ(L"30/06/", object.checked(L"31/06/"));
}

TEST(Periodicite, CheckDate_DayAndMonthAreReadAsNumbers) {
  const Recurrence object;
  EXPECT_EQ(L"30/004/2024", object.checked(L"031/004/2024"));
  EXPECT_EQ(L"30/ 6/2024", object.checked(L" 31/ 6/2024"));
}

TEST(Periodicite, CheckDate_ValidDayOfFebruaryIsUnchanged) {
  const Recurrence object;
  EXPECT_EQ(L"15/02/2023", object.checked(L"15/02/2023"));
  EXPECT_EQ(L"28/02/2023", object.checked(L"28/02/2023"));
}

TEST(Periodicite, CheckDate_DayAbove28OfFebruaryIsWrittenWithATwoDigitYear) {
  const Recurrence object;
  EXPECT_EQ(L"28/02/23", object.checked(L"29/02/2023"));
  EXPECT_EQ(L"28/02/25", object.checked(L"30/02/2025"));
  EXPECT_EQ(L"29/02/24", object.checked(L"31/02/2024"));
  EXPECT_EQ(L"28/02/26", object.checked(L"99/02/2026"));
}

TEST(Periodicite, CheckDate_Valid29FebruaryIsStillRebuiltWithATwoDigitYear) {
  EXPECT_EQ(L"29/02/24", Recurrence().checked(L"29/02/2024"));
}

TEST(Periodicite, CheckDate_Year2100CountsAsALeapYearAndStaysUnformatted) {
  // The text handed to the formatting step names a day that the calendar does not have.
  EXPECT_EQ(L"29/02/2100", Recurrence().checked(L"31/02/2100"));
}

TEST(Periodicite, CheckDate_AYearWithAFractionIsRoundedForTheLeapYearAndWrittenAsItIs) {
  EXPECT_EQ(L"28/02/0,9", Recurrence().checked(L"29/02/.9"));
  EXPECT_EQ(L"29/02/0,4", Recurrence().checked(L"29/02/.4"));
}

TEST(Periodicite, CheckDate_Year1900CountsAsALeapYearToo) {
  EXPECT_EQ(L"29/02/1900", Recurrence().checked(L"30/02/1900"));
}

TEST(Periodicite, CheckDate_Year2000IsALeapYear) {
  EXPECT_EQ(L"29/02/00", Recurrence().checked(L"31/02/2000"));
}

TEST(Periodicite, CheckDate_TwoDigitYearDecidesByItself) {
  const Recurrence object;
  EXPECT_EQ(L"29/02/24", object.checked(L"31/02/24"));
  EXPECT_EQ(L"28/02/23", object.checked(L"31/02/23"));
  EXPECT_EQ(L"29/02/00", object.checked(L"31/02/00"));
}

TEST(Periodicite, CheckDate_TextAfterTheYearOfFebruaryIsDropped) {
  EXPECT_EQ(L"28/02/25", Recurrence().checked(L"31/02/2025 08:15"));
}

TEST(Periodicite, CheckDate_FebruaryWithoutLeadingZeroTakesTheYearFromTheWrongPlace) {
  // The year is what stands from the fourth character on: "2/2024" reads as 2.
  EXPECT_EQ(L"28/02/02", Recurrence().checked(L"31/2/2024"));
}

TEST(Periodicite, CheckDate_FebruaryWithoutLeadingZeroAndAValidDayIsUnchanged) {
  EXPECT_EQ(L"28/2/2023", Recurrence().checked(L"28/2/2023"));
}

TEST(Periodicite, CheckDate_TextWithoutTwoSlashesIsUnchanged) {
  for (const wchar_t* text :
       {L"", L" ", L"31", L"31/04", L"31/02", L"31-04-2024", L"31 février 2024", L"abc"}) {
    EXPECT_EQ(text, Recurrence().checked(text));
  }
}

TEST(Periodicite, CheckDate_TextThatIsNoDateIsUnchanged) {
  for (const wchar_t* text :
       {L"31/13/2024", L"31//2024", L"abc/02/2024", L"31/ab/2024", L"//", L"31/-4/2024"}) {
    EXPECT_EQ(text, Recurrence().checked(text));
  }
}

TEST(Periodicite, CheckDate_YearBeyond32BitsIsFault6) {
  const Recurrence object;
  for (const wchar_t* date :
       {L"30/02/1e30", L"30/02/1e300", L"29/02/2147483648", L"30/02/99999999999999999999"}) {
    Text result(L"not set");
    EXPECT_TRUE(is_fault(object->CheckDate(Text(date), &result), 6, L"Periodicite"));
    EXPECT_EQ(L"", result.str());
  }
}

TEST(Periodicite, CheckDate_NullTextIsEmpty) {
  Text result(L"not set");
  ASSERT_EQ(S_OK, Recurrence()->CheckDate(nullptr, &result));
  EXPECT_EQ(L"", result.str());
}

TEST(Periodicite, CheckDate_HostsOwnDateFormatDoesNotCount) {
  const auto general = create<_ApiGeneral>(L"ApiGeneral");
  ASSERT_EQ(S_OK, general->put_FMT_DATE(Text(L"yyyy-mm-dd")));
  EXPECT_EQ(L"28/02/25", Recurrence().checked(L"30/02/2025"));
}

}  // namespace
