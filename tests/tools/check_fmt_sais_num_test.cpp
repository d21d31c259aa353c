// Outil.CheckFmtSaisNum: a value within the bounds that a format text sets.
#include <cmath>
#include <limits>

#include "tools/tools_fixture.h"

namespace {

using host::Text;
using host::Variant;

struct Case {
  const wchar_t* format;
  std::vector<double> accepted;
  std::vector<double> rejected;
};

void PrintTo(const Case& tried, std::ostream* stream) { *stream << '"' << host::utf8(tried.format) << '"'; }

class CheckFmtSaisNum : public host::ToolsTest, public ::testing::WithParamInterface<Case> {
 protected:
  HRESULT run(std::wstring_view format, double value) {
    return tools_->CheckFmtSaisNum(Text(format), value, &result_);
  }
  void check() {
    for (const double value : GetParam().accepted) {
      ASSERT_EQ(S_OK, run(GetParam().format, value));
      EXPECT_EQ(VARIANT_TRUE, result_) << value;
    }
    for (const double value : GetParam().rejected) {
      ASSERT_EQ(S_OK, run(GetParam().format, value));
      EXPECT_EQ(VARIANT_FALSE, result_) << value;
    }
  }

  VARIANT_BOOL result_ = 77;
};

class CheckFmtSaisNumBounds : public CheckFmtSaisNum {};
TEST_P(CheckFmtSaisNumBounds, AreInclusive) { check(); }
INSTANTIATE_TEST_SUITE_P(All, CheckFmtSaisNumBounds,
                         ::testing::Values(Case{L"N;3.0;>0;<520;B", {0, 519.4, 520}, {-1, 520.01, 999}},
                                           Case{L"<10", {10, -1e14, 9.99}, {10.01, 11}},
                                           Case{L">10", {10, 1e14}, {9.99, -10}},
                                           Case{L">-5;<-2", {-5, -2, -3.5}, {-5.1, -1.9, 0}},
                                           Case{L"<", {0, -1}, {1}}, Case{L">", {0, 1}, {-1}}));

class CheckFmtSaisNumDigits : public CheckFmtSaisNum {};
TEST_P(CheckFmtSaisNumDigits, AllowThatManyNinesOnBothSides) { check(); }
INSTANTIATE_TEST_SUITE_P(
    All, CheckFmtSaisNumDigits,
    ::testing::Values(Case{L"3.0", {999, -999, 0}, {999.4, 1000, -1000}},
                      Case{L"7.2", {9999999.99, -9999999.99}, {10000000, -10000000, 9999999.999}},
                      Case{L"0.2", {0.99, -0.99}, {1, -1, 0.991}}, Case{L"3.", {999}, {1000, 999.4}},
                      Case{L".1", {0.9}, {1}}, Case{L" 2.0", {99}, {100}},
                      Case{L"3.1.5", {999.99, -999.99}, {1000}},  // 1.5 decimals are 2, halves to even
                      Case{L"3.2.5", {999.99}, {999.999}}, Case{L"300.0", {1e14}, {1.1e14}},
                      Case{L"12.4", {999999999999.9999}, {1e12}}, Case{L"7.9", {9999999.999999999}, {1e7}},
                      Case{L"14.0", {99999999999999}, {1e14}}, Case{L"15.0", {1e14}, {1.1e14}}));

class CheckFmtSaisNumTightening : public CheckFmtSaisNum {};
TEST_P(CheckFmtSaisNumTightening, KeepsTheNarrowestBound) { check(); }
INSTANTIATE_TEST_SUITE_P(All, CheckFmtSaisNumTightening,
                         ::testing::Values(Case{L">5;>2", {5}, {4, 2}}, Case{L">2;>5", {5}, {4, 2}},
                                           Case{L"<10;<20", {10}, {11, 20}}, Case{L"<20;<10", {10}, {11}},
                                           Case{L"<520;3.0", {520, -999}, {521, -1000}},
                                           Case{L"<5000;3.0", {999}, {1000}}, Case{L"3.0;2.0", {99}, {100}},
                                           Case{L"2.0;3.0", {99}, {100}},
                                           Case{L"<1e20;>-1e20", {1e14, -1e14}, {1.1e14, -1.1e14}},
                                           Case{L">10;<5", {}, {4, 5, 7, 10, 11}}));

class CheckFmtSaisNumRounding : public CheckFmtSaisNum {};
TEST_P(CheckFmtSaisNumRounding, RoundsTheBoundsToTheDecimalsOfTheDigits) { check(); }
INSTANTIATE_TEST_SUITE_P(
    All, CheckFmtSaisNumRounding,
    ::testing::Values(Case{L"<10.4", {10}, {10.2, 10.4}}, Case{L"<10.5", {10.9, 11}, {11.1}},
                      Case{L"<0.5", {0.9, 1}, {1.1}}, Case{L">0.5", {1}, {0.5, 0.9}},
                      Case{L">-0.5", {-1, -0.5}, {-1.1}}, Case{L"<2.5", {3}, {3.1}},
                      Case{L">10.6", {11}, {10.6, 10.9}}, Case{L"7.2;<10.555", {10.56}, {10.561}},
                      Case{L"<10.554;7.2", {10.55}, {10.554}}, Case{L"<2.675;7.2", {2.68}, {2.681}},
                      Case{L"3.2;2.0", {99}, {99.5}},  // the last digits set the decimals
                      Case{L"2.0;3.2;<10.25", {10.25}, {10.26}}, Case{L"1.1;0.0;<3", {0}, {0.5, -0.5}}));

class CheckFmtSaisNumOtherItems : public CheckFmtSaisNum {};
TEST_P(CheckFmtSaisNumOtherItems, AreIgnored) { check(); }
INSTANTIATE_TEST_SUITE_P(All, CheckFmtSaisNumOtherItems,
                         ::testing::Values(Case{L"N", {1e14, -1e14}, {1.1e14}},
                                           Case{L"B;;N;12", {1e14}, {-1.1e14}},
                                           Case{L" <5", {6, 1e14}, {}},  // the sign does not stand first
                                           Case{L" ;N;<5", {5}, {6}}, Case{L"=5", {6}, {}}));

class CheckFmtSaisNumNumbers : public CheckFmtSaisNum {};
TEST_P(CheckFmtSaisNumNumbers, AreReadWithAPointAndCountAsZeroWhenTheyAreNone) { check(); }
INSTANTIATE_TEST_SUITE_P(All, CheckFmtSaisNumNumbers,
                         ::testing::Values(Case{L"<abc", {0}, {1}}, Case{L">x1", {0}, {-1}},
                                           Case{L"<10,9", {10}, {10.5}}, Case{L"< 10", {10}, {11}},
                                           Case{L"<10 000", {10}, {11}}, Case{L"x.y", {0}, {1, -1}},
                                           Case{L".", {0}, {0.1}}, Case{L"x.2", {0.99}, {1}}));

TEST_F(CheckFmtSaisNum, AcceptsEverythingWithin14DigitsForAnEmptyFormat) {
  for (const double value : {0.0, 1e14, -1e14, 0.001}) {
    ASSERT_EQ(S_OK, run(L"", value));
    EXPECT_EQ(VARIANT_TRUE, result_) << value;
  }
  for (const double value : {std::nextafter(1e14, 1e15), std::nextafter(-1e14, -1e15), 1e300}) {
    ASSERT_EQ(S_OK, run(L"", value));
    EXPECT_EQ(VARIANT_FALSE, result_) << value;
  }
  ASSERT_EQ(S_OK, tools_->CheckFmtSaisNum(nullptr, 5, &result_));
  EXPECT_EQ(VARIANT_TRUE, result_);
}

TEST_F(CheckFmtSaisNum, FailsForADigitCountBeyond16Bits) {
  for (const wchar_t* format :
       {L"32768.0", L"3.32768", L"99999999999.0", L"1e5.0", L"400.0", L"N;2.0;400.2", L"-32769.0"}) {
    EXPECT_TRUE(host::is_fault(run(format, 1), 6, L"Outil")) << host::utf8(format);
    EXPECT_EQ(VARIANT_FALSE, result_);
  }
}

TEST_F(CheckFmtSaisNum, FailsForANegativeDigitCount) {
  for (const wchar_t* format : {L"-1.0", L"3.-1", L"-32768.0"}) {
    EXPECT_TRUE(host::is_fault(run(format, 1), 5, L"Outil")) << host::utf8(format);
  }
}

TEST_F(CheckFmtSaisNum, FailsForADigitCountBeyondEveryNumber) {
  EXPECT_TRUE(host::is_fault(run(std::wstring(400, L'9') + L".0", 1), 6, L"Outil"));
}

TEST_F(CheckFmtSaisNum, FailsForABoundBeyondEveryNumber) {
  for (const wchar_t* sign : {L"<", L">", L">-"}) {
    result_ = VARIANT_TRUE;
    EXPECT_TRUE(host::is_fault(run(sign + std::wstring(350, L'9'), 5), 6, L"Outil")) << host::utf8(sign);
    EXPECT_EQ(VARIANT_FALSE, result_);
  }
}

TEST_F(CheckFmtSaisNum, TakesManyDecimals) {
  ASSERT_EQ(S_OK, run(L"1.300", 9.5));
  EXPECT_EQ(VARIANT_TRUE, result_);
  ASSERT_EQ(S_OK, run(L"1.300", 10.1));
  EXPECT_EQ(VARIANT_FALSE, result_);
}

TEST_F(CheckFmtSaisNum, RejectsAValueThatIsNoNumber) {
  ASSERT_EQ(S_OK, run(L"", std::numeric_limits<double>::quiet_NaN()));
  EXPECT_EQ(VARIANT_FALSE, result_);
}

TEST_F(CheckFmtSaisNum, AnswersALateBoundCall) {
  Variant result;
  ASSERT_EQ(S_OK, host::call(tools_.get(), L"CheckFmtSaisNum",
                             host::arguments(host::text_value(L"N;3.0;>0;<520;B"), Variant(520L)),
                             result.receive()));
  ASSERT_EQ(VT_BOOL, result.get().vt);
  EXPECT_EQ(VARIANT_TRUE, result.get().boolVal);
}

TEST_F(CheckFmtSaisNum, RefusesANullPointer) {
  EXPECT_EQ(E_POINTER, tools_->CheckFmtSaisNum(Text(L"N"), 1, nullptr));
}

}  // namespace
