// Outil.DureeToDouble: the number of units of a duration text.
#include "tools/tools_fixture.h"

namespace {

using host::Text;
using host::Variant;

class DureeToDouble : public host::ToolsTest {
 protected:
  HRESULT run(std::wstring_view duration, std::wstring_view unit, bool long_form) {
    Text text(duration), unit_text(unit);
    VARIANT_BOOL flag = velmosav::to_variant_bool(long_form);
    return tools_->DureeToDouble(text.in_out(), unit_text.in_out(), &flag, &result_);
  }
  double number(std::wstring_view duration, std::wstring_view unit, bool long_form = false) {
    result_ = 77;
    EXPECT_EQ(S_OK, run(duration, unit, long_form)) << host::utf8(duration);
    return result_;
  }

  double result_ = 77;
};

struct Case {
  const wchar_t* text;
  const wchar_t* unit;
  double expected;
};

void PrintTo(const Case& tried, std::ostream* stream) {
  *stream << '"' << host::utf8(tried.text) << "\" in " << host::utf8(tried.unit);
}

class DureeToDoubleOf : public DureeToDouble, public ::testing::WithParamInterface<Case> {
 protected:
  void check(bool long_form = false) {
    EXPECT_EQ(GetParam().expected, number(GetParam().text, GetParam().unit, long_form));
  }
};

class DureeToDoubleExamples : public DureeToDoubleOf {};
TEST_P(DureeToDoubleExamples, HoldWhatTheyPromise) { check(); }
INSTANTIATE_TEST_SUITE_P(All, DureeToDoubleExamples,
                         ::testing::Values(Case{L"02:30", L"h", 2.5}, Case{L"02:30", L"n", 150},
                                           Case{L"1:30:30", L"n", 90.5}, Case{L"", L"h", 0},
                                           Case{L"45", L"h", 45}));

class DureeToDoubleUnits : public DureeToDoubleOf {};
TEST_P(DureeToDoubleUnits, HaveTheirSecondsInLowerCaseOnly) { check(); }
INSTANTIATE_TEST_SUITE_P(All, DureeToDoubleUnits,
                         ::testing::Values(Case{L"10:00:01", L"s", 36001}, Case{L"10:00:30", L"n", 600.5},
                                           Case{L"10:15", L"h", 10.25}, Case{L"36", L"j", 1.5},
                                           Case{L"84", L"w", 0.5}, Case{L"360", L"m", 0.5},
                                           Case{L"8766", L"y", 1}, Case{L"2:30", L"H", 0},
                                           Case{L"2:30", L"Y", 0}, Case{L"2:30", L"", 0},
                                           Case{L"2:30", L" h", 0}, Case{L"2:30", L"x", 0},
                                           Case{L"2:30", L"hh", 0}, Case{L"9999999", L"x", 0}));

class DureeToDoubleFields : public DureeToDoubleOf {};
TEST_P(DureeToDoubleFields, BecomeWholeNumbersWithHalvesToEven) { check(); }
INSTANTIATE_TEST_SUITE_P(All, DureeToDoubleFields,
                         ::testing::Values(Case{L"1.5", L"h", 2}, Case{L"2.5", L"h", 2},
                                           Case{L"0.5", L"h", 0}, Case{L"2.51", L"h", 3},
                                           Case{L"0:1.5", L"n", 2}, Case{L"0:2.5", L"n", 2},
                                           Case{L"0:0:1.5", L"s", 2}, Case{L"0:0:2.5", L"s", 2},
                                           Case{L"-0.5", L"h", 0}, Case{L"-1.5", L"h", -2}));

class DureeToDoubleReader : public DureeToDoubleOf {};
TEST_P(DureeToDoubleReader, StopsAtTheFirstCharacterThatIsNoPartOfANumber) { check(); }
INSTANTIATE_TEST_SUITE_P(All, DureeToDoubleReader,
                         ::testing::Values(Case{L"2h:30mn", L"n", 150}, Case{L"  2:  30", L"n", 150},
                                           Case{L"2,9", L"h", 2}, Case{L"abc:30", L"n", 30},
                                           Case{L":30", L"n", 30}, Case{L"2::5", L"s", 7205},
                                           Case{L"-1:30", L"n", -30}, Case{L"+2", L"h", 2},
                                           Case{L"\x0662", L"h", 0}, Case{L"2;30", L"n", 120}));

class DureeToDoubleBlankRest : public DureeToDoubleOf {};
TEST_P(DureeToDoubleBlankRest, CountsAsZeros) { check(); }
INSTANTIATE_TEST_SUITE_P(All, DureeToDoubleBlankRest,
                         ::testing::Values(Case{L"02:", L"h", 2}, Case{L"02", L"h", 2},
                                           Case{L"02: ", L"h", 2}, Case{L"   ", L"h", 0}, Case{L":", L"h", 0},
                                           Case{L"02::", L"h", 2}));

class DureeToDoubleSurplus : public DureeToDoubleOf {};
TEST_P(DureeToDoubleSurplus, FieldsAreNotRead) { check(); }
INSTANTIATE_TEST_SUITE_P(All, DureeToDoubleSurplus,
                         ::testing::Values(Case{L"1:2:3:4", L"s", 3723},
                                           Case{L"1:2:3:99999999999", L"s", 3723}));

class DureeToDoubleLongForm : public DureeToDoubleOf {};
TEST_P(DureeToDoubleLongForm, ReadsYearsMonthsDaysHoursMinutesSeconds) { check(true); }
INSTANTIATE_TEST_SUITE_P(All, DureeToDoubleLongForm,
                         ::testing::Values(Case{L"1:0:2:3:0:0", L"h", 8817}, Case{L"1", L"h", 8766},
                                           Case{L"0:1", L"h", 720}, Case{L"0:0:1", L"h", 24},
                                           Case{L"0:0:0:1", L"h", 1}, Case{L"0:0:0:0:1", L"n", 1},
                                           Case{L"0:0:0:0:0:1", L"s", 1}, Case{L"", L"h", 0},
                                           Case{L"0.5", L"h", 4383},   // a part of a year becomes whole hours
                                           Case{L"0:0.001", L"h", 1},  // 0.72 hour
                                           Case{L"0:0:0.0625", L"h", 2},  // 1.5 hours, halves to even
                                           Case{L"1:0:2:3:0:0:9", L"h", 8817}));

// 2147483647 seconds are 596523:14:07, 2147483647 minutes 35791394:07.
class DureeToDoubleBeyondSeconds : public DureeToDoubleOf {};
TEST_P(DureeToDoubleBeyondSeconds, FallsBackToMinutesThenToHours) { check(); }
INSTANTIATE_TEST_SUITE_P(
    All, DureeToDoubleBeyondSeconds,
    ::testing::Values(Case{L"596523:14:07", L"s", 2147483647}, Case{L"596523:14:59", L"n", 35791394},
                      Case{L"596523:15:00", L"h", 596523.25}, Case{L"600000:30:59", L"h", 600000.5},
                      Case{L"600000", L"j", 25000}, Case{L"600000", L"s", 600000.0 * 60 / (1.0 / 60)},
                      Case{L"35791394:07", L"n", 2147483647}, Case{L"35791394:08", L"n", 35791394},
                      Case{L"35791395", L"s", 35791395}, Case{L"2147483647:59", L"j", 2147483647},
                      Case{L"-596523:-14:-8", L"s", -2147483648.0}, Case{L"-596523:-14:-9", L"n", -35791394},
                      Case{L"-35791395", L"h", -35791395},
                      Case{L"0:35791395", L"n", 35791395},  // the minutes' seconds do not fit
                      Case{L"596524:-30:00", L"n", 596524.0 * 60 - 30}));

TEST_F(DureeToDouble, FailsForAFieldBeyond32Bits) {
  for (const wchar_t* text : {L"2147483648", L"-2147483649", L"0:2147483648", L"0:0:2147483648",
                              L"2147483647.5", L"1e300", L"0:1e300"}) {
    result_ = 77;
    EXPECT_TRUE(host::is_fault(run(text, L"h", false), 6, L"Outil")) << host::utf8(text);
    EXPECT_EQ(0, result_) << host::utf8(text);
  }
}

TEST_F(DureeToDouble, TakesFieldsUpTo32Bits) {
  EXPECT_EQ(2147483647, number(L"2147483647.4", L"h"));
  EXPECT_EQ(-2147483648.0, number(L"-2147483648.5", L"h"));
}

TEST_F(DureeToDouble, FailsForAFieldBeyondEveryNumber) {
  EXPECT_TRUE(host::is_fault(run(L"1e400", L"h", false), 6, L"Outil"));
  EXPECT_TRUE(host::is_fault(run(std::wstring(350, L'9'), L"h", false), 6, L"Outil"));
  EXPECT_TRUE(host::is_fault(run(std::wstring(1000, L'9'), L"h", false), 6, L"Outil"));
}

TEST_F(DureeToDouble, ReadsAFieldOfManyDecimals) {
  EXPECT_EQ(1, number(L"1." + std::wstring(1000, L'0'), L"h"));
  EXPECT_EQ(7, number(std::wstring(1000, L'0') + L"7", L"h"));
}

TEST_F(DureeToDouble, FailsForAFieldBeyond32BitsWhateverTheUnit) {
  EXPECT_TRUE(host::is_fault(run(L"2147483648", L"x", false), 6, L"Outil"));
}

TEST_F(DureeToDouble, FailsInTheLongFormWhenTheHoursOverflow) {
  // 244979 years are 2147485914 hours.
  EXPECT_TRUE(host::is_fault(run(L"244979", L"h", true), 6, L"Outil"));
  EXPECT_TRUE(host::is_fault(run(L"0:2982617", L"h", true), 6, L"Outil"));
  EXPECT_TRUE(host::is_fault(run(L"244978:0:0:99999", L"h", true), 6, L"Outil"));
  EXPECT_EQ(244978.0 * 8766, number(L"244978", L"h", true));
}

TEST_F(DureeToDouble, LeavesNoErrorInformationWhenItFallsBack) {
  host::take_error();
  EXPECT_EQ(35791395, number(L"35791395", L"h"));
  EXPECT_EQ(0, number(L"1", L"x"));
  EXPECT_EQ(L"", host::take_error().description);
}

TEST_F(DureeToDouble, TakesANullFlagForTheShortForm) {
  Text text(L"1:30"), unit(L"h");
  ASSERT_EQ(S_OK, tools_->DureeToDouble(text.in_out(), unit.in_out(), nullptr, &result_));
  EXPECT_EQ(1.5, result_);
}

TEST_F(DureeToDouble, LeavesItsArguments) {
  Text text(L" 1:30"), unit(L"h");
  VARIANT_BOOL flag = VARIANT_TRUE;
  ASSERT_EQ(S_OK, tools_->DureeToDouble(text.in_out(), unit.in_out(), &flag, &result_));
  EXPECT_EQ(L" 1:30", text.str());
  EXPECT_EQ(L"h", unit.str());
  EXPECT_EQ(VARIANT_TRUE, flag);
}

TEST_F(DureeToDouble, ReadsTheEmptyTextOfANullAddress) {
  BSTR none = nullptr;
  Text unit(L"h");
  ASSERT_EQ(S_OK, tools_->DureeToDouble(&none, unit.in_out(), nullptr, &result_));
  EXPECT_EQ(0, result_);
}

TEST_F(DureeToDouble, AnswersALateBoundCallWithAndWithoutTheFlag) {
  Variant result;
  ASSERT_EQ(S_OK, host::call(tools_.get(), L"DureeToDouble",
                             host::arguments(host::text_value(L"02:30"), host::text_value(L"h")),
                             result.receive()));
  ASSERT_EQ(VT_R8, result.get().vt);
  EXPECT_EQ(2.5, result.get().dblVal);
  ASSERT_EQ(S_OK, host::call(tools_.get(), L"DureeToDouble",
                             host::arguments(host::text_value(L"1:0:2:3:0:0"), host::text_value(L"h"),
                                             host::bool_value(true)),
                             result.receive()));
  EXPECT_EQ(8817, result.get().dblVal);
}

TEST_F(DureeToDouble, RefusesNullPointers) {
  Text text(L"1"), unit(L"h");
  EXPECT_EQ(E_POINTER, tools_->DureeToDouble(nullptr, unit.in_out(), nullptr, &result_));
  EXPECT_EQ(E_POINTER, tools_->DureeToDouble(text.in_out(), nullptr, nullptr, &result_));
  EXPECT_EQ(E_POINTER, tools_->DureeToDouble(text.in_out(), unit.in_out(), nullptr, nullptr));
}

}  // namespace
