// Outil.DoubleToDuree: a number of units as a text of fields, most significant first.
#include <cmath>
#include <limits>

#include "tools/tools_fixture.h"

namespace {

using host::Text;
using host::Variant;
using Units = std::vector<std::wstring>;

class DoubleToDuree : public host::ToolsTest {
 protected:
  ~DoubleToDuree() override { SafeArrayDestroy(fields_); }

  void set_fields(SAFEARRAY* fields) {
    SafeArrayDestroy(fields_);
    fields_ = fields;
  }
  HRESULT run(double number, const wchar_t* unit) {
    Text unit_text(unit);
    return tools_->DoubleToDuree(&number, unit_text.in_out(), &fields_, &result_);
  }
  std::wstring text(double number, const wchar_t* unit) {
    result_ = L"?";
    EXPECT_EQ(S_OK, run(number, unit));
    return result_.str();
  }
  std::wstring text(double number, const wchar_t* unit, const Units& units) {
    set_fields(host::unit_array(units));
    return text(number, unit);
  }

  SAFEARRAY* fields_ = nullptr;
  Text result_;
};

struct Case {
  double number;
  const wchar_t* unit;
  Units fields;
  const wchar_t* expected;
};

void PrintTo(const Case& tried, std::ostream* stream) {
  *stream << tried.number << " " << host::utf8(tried.unit) << " as";
  for (const auto& field : tried.fields) *stream << " " << host::utf8(field);
}

class DoubleToDureeOf : public DoubleToDuree, public ::testing::WithParamInterface<Case> {
 protected:
  void check() {
    const auto& [number, unit, fields, expected] = GetParam();
    EXPECT_EQ(expected, text(number, unit, fields));
  }
};

class DoubleToDureeExamples : public DoubleToDureeOf {};
TEST_P(DoubleToDureeExamples, HoldWhatTheyPromise) { check(); }
INSTANTIATE_TEST_SUITE_P(All, DoubleToDureeExamples,
                         ::testing::Values(Case{1.5, L"h", {L"h", L"n"}, L"01:30"},
                                           Case{125, L"n", {L"h", L"n"}, L"02:05"},
                                           Case{100.25, L"h", {L"h", L"n"}, L"100:15"},
                                           Case{0.5, L"j", {L"h", L"n", L"s"}, L"12:00:00"},
                                           Case{90, L"s", {L"n"}, L"01"}));

class DoubleToDureeUnits : public DoubleToDureeOf {};
TEST_P(DoubleToDureeUnits, HaveTheirSeconds) { check(); }
INSTANTIATE_TEST_SUITE_P(All, DoubleToDureeUnits,
                         ::testing::Values(Case{1, L"s", {L"s"}, L"01"}, Case{1, L"n", {L"s"}, L"60"},
                                           Case{1, L"h", {L"s"}, L"3600"}, Case{1, L"j", {L"s"}, L"86400"},
                                           Case{1, L"w", {L"s"}, L"604800"},
                                           Case{1, L"m", {L"s"}, L"2592000"},
                                           Case{1, L"y", {L"s"}, L"31557600"},
                                           Case{1, L"y", {L"m", L"w", L"j", L"h"}, L"12:00:05:06"}));

class DoubleToDureeFields : public DoubleToDureeOf {};
TEST_P(DoubleToDureeFields, ArePaddedToTwoDigits) { check(); }
INSTANTIATE_TEST_SUITE_P(All, DoubleToDureeFields,
                         ::testing::Values(Case{0, L"h", {L"h", L"n"}, L"00:00"},
                                           Case{9, L"h", {L"h"}, L"09"}, Case{10, L"h", {L"h"}, L"10"},
                                           Case{99, L"h", {L"h"}, L"99"}, Case{100, L"h", {L"h"}, L"100"},
                                           Case{2147483647, L"s", {L"s"}, L"2147483647"}));

class DoubleToDureeTotals : public DoubleToDureeOf {};
TEST_P(DoubleToDureeTotals, AreRoundedWithHalvesToEven) { check(); }
INSTANTIATE_TEST_SUITE_P(All, DoubleToDureeTotals,
                         ::testing::Values(Case{0.5, L"s", {L"s"}, L"00"}, Case{1.5, L"s", {L"s"}, L"02"},
                                           Case{2.5, L"s", {L"s"}, L"02"}, Case{2.51, L"s", {L"s"}, L"03"},
                                           Case{59.5, L"s", {L"n", L"s"}, L"01:00"},
                                           Case{1.0 / 3, L"h", {L"n", L"s"}, L"20:00"},
                                           Case{-0.4, L"s", {L"s"}, L"00"}));

class DoubleToDureeRests : public DoubleToDureeOf {};
TEST_P(DoubleToDureeRests, BelowTheLastFieldAreDropped) { check(); }
INSTANTIATE_TEST_SUITE_P(All, DoubleToDureeRests,
                         ::testing::Values(Case{59, L"s", {L"n"}, L"00"}, Case{119, L"s", {L"n"}, L"01"},
                                           Case{3599, L"s", {L"h"}, L"00"}, Case{1.99, L"j", {L"j"}, L"01"}));

class DoubleToDureeOrder : public DoubleToDureeOf {};
TEST_P(DoubleToDureeOrder, OfTheFieldsIsTheCallers) { check(); }
INSTANTIATE_TEST_SUITE_P(
    All, DoubleToDureeOrder,
    ::testing::Values(Case{1.5, L"h", {L"n", L"h"}, L"90:00"},
                      Case{1.5, L"h", {L"h", L"h", L"n"}, L"01:00:30"},
                      Case{400, L"j", {L"y", L"m", L"j", L"h", L"n", L"s"}, L"01:01:04:18:00:00"}));

class DoubleToDureeCodes : public DoubleToDureeOf {};
TEST_P(DoubleToDureeCodes, AreReadInEitherCaseAndTrimmedInTheFieldsOnly) { check(); }
INSTANTIATE_TEST_SUITE_P(All, DoubleToDureeCodes,
                         ::testing::Values(Case{1.5, L"H", {L"H", L"N"}, L"01:30"},
                                           Case{1, L"J", {L" h "}, L"24"},
                                           Case{1, L" h", {L"h", L"n"}, L"00:00"},
                                           Case{1, L"h", {L"\th", L"n"}, L"00:60"}));

class DoubleToDureeUnknownUnits : public DoubleToDureeOf {};
TEST_P(DoubleToDureeUnknownUnits, CountNothing) { check(); }
INSTANTIATE_TEST_SUITE_P(All, DoubleToDureeUnknownUnits,
                         ::testing::Values(Case{5, L"x", {L"h", L"n"}, L"00:00"}, Case{5, L"", {L"h"}, L"00"},
                                           Case{5, L"hh", {L"h"}, L"00"}, Case{1e300, L"x", {L"h"}, L"00"},
                                           Case{1.5, L"h", {L"x", L"h", L"", L"n"}, L"00:01:00:30"}));

class DoubleToDureeNegatives : public DoubleToDureeOf {};
TEST_P(DoubleToDureeNegatives, AreZeroInEveryField) { check(); }
INSTANTIATE_TEST_SUITE_P(All, DoubleToDureeNegatives,
                         ::testing::Values(Case{-1.5, L"h", {L"h", L"n", L"s"}, L"00:00:00"},
                                           Case{-1, L"s", {L"x", L"s"}, L"00:00"},
                                           Case{-2147483648.0, L"s", {L"s"}, L"00"}));

// 2^31 seconds are 596523:14:08; 2^31 minutes are 35791394:08.
class DoubleToDureeScale : public DoubleToDureeOf {};
TEST_P(DoubleToDureeScale, GrowsToMinutesAndHours) { check(); }
INSTANTIATE_TEST_SUITE_P(
    All, DoubleToDureeScale,
    ::testing::Values(Case{596523, L"h", {L"h", L"n", L"s"}, L"596523:00:00"},
                      Case{596524, L"h", {L"h", L"n", L"s"}, L"596524:00:00"},
                      Case{596524.508, L"h", {L"h", L"n"}, L"596524:30"},  // whole minutes
                      Case{596524.5, L"h", {L"s", L"h"}, L"00:596524"},    // seconds are below the scale
                      Case{-600000, L"h", {L"h"}, L"00"}, Case{35791394, L"h", {L"h", L"n"}, L"35791394:00"},
                      Case{35791395, L"h", {L"h", L"n"}, L"35791395:00"},
                      Case{35791395.5, L"h", {L"h", L"n"}, L"35791396:00"},  // whole hours, halves to even
                      Case{35791394.5 + 2, L"h", {L"h", L"n"}, L"35791396:00"},
                      Case{2147483647, L"h", {L"h"}, L"2147483647"}, Case{69, L"y", {L"y", L"m"}, L"69:00"},
                      Case{5000, L"y", {L"y", L"h"}, L"5000:00"},
                      Case{3e9, L"s", {L"h", L"n"}, L"00:00"},    // a second is no whole minute
                      Case{3e9, L"n", {L"h", L"n"}, L"00:00"}));  // a minute is no whole hour

class DoubleToDureeBeyondEveryScale : public DoubleToDureeOf {};
TEST_P(DoubleToDureeBeyondEveryScale, IsEmpty) { check(); }
INSTANTIATE_TEST_SUITE_P(All, DoubleToDureeBeyondEveryScale,
                         ::testing::Values(Case{2147483648.0, L"h", {L"h"}, L""},
                                           Case{250000, L"y", {L"y"}, L""}, Case{-1e300, L"h", {L"h"}, L""},
                                           Case{std::numeric_limits<double>::infinity(), L"h", {L"h"}, L""}));

TEST_F(DoubleToDuree, TakesSixFields) {
  EXPECT_EQ(L"00:00:00:00:00:07", text(7, L"s", {L"y", L"m", L"j", L"h", L"n", L"s"}));
}

TEST_F(DoubleToDuree, IsEmptyForMoreThanSixFields) {
  EXPECT_EQ(L"", text(7, L"s", {L"y", L"m", L"w", L"j", L"h", L"n", L"s"}));
  set_fields(host::unit_array({L"h", L"n"}, 5));  // upper bound 6
  EXPECT_EQ(L"", text(7, L"s"));
}

TEST_F(DoubleToDuree, IsEmptyForNoField) { EXPECT_EQ(L"", text(7, L"s", {})); }

TEST_F(DoubleToDuree, WritesZerosForACellWithoutText) {
  std::vector<Variant> cells;
  cells.push_back(host::null_value());
  cells.push_back(host::text_value(L"h"));
  cells.push_back(host::null_value());
  cells.push_back(host::missing());
  cells.push_back(Variant());
  cells.push_back(host::text_value(L"n"));
  set_fields(host::variant_array(std::move(cells)));
  EXPECT_EQ(L"00:01:00:00:00:30", text(1.5, L"h"));
}

TEST_F(DoubleToDuree, LeavesNoErrorInformationForACellWithoutText) {
  std::vector<Variant> cells;
  cells.push_back(host::null_value());
  set_fields(host::variant_array(std::move(cells)));
  host::take_error();
  EXPECT_EQ(L"00", text(1.5, L"h"));
  EXPECT_EQ(L"", host::take_error().description);
}

TEST_F(DoubleToDuree, WritesZerosForFieldsBelowTheLowerBound) {
  set_fields(host::unit_array({L"h", L"n"}, 1));
  EXPECT_EQ(L"00:01:30", text(1.5, L"h"));
}

TEST_F(DoubleToDuree, PassesOverFieldsBelowZero) {
  set_fields(host::unit_array({L"h", L"n"}, -1));
  EXPECT_EQ(L"90", text(1.5, L"h"));
}

TEST_F(DoubleToDuree, ReadsALockedArray) {
  set_fields(host::unit_array({L"h", L"n"}));
  SafeArrayLock(fields_);
  EXPECT_EQ(L"01:30", text(1.5, L"h"));
  SafeArrayUnlock(fields_);
}

TEST_F(DoubleToDuree, LeavesItsArguments) {
  double number = 1.5;
  Text unit(L"H");
  set_fields(host::unit_array({L" h ", L"N"}));
  ASSERT_EQ(S_OK, tools_->DoubleToDuree(&number, unit.in_out(), &fields_, &result_));
  EXPECT_EQ(1.5, number);
  EXPECT_EQ(L"H", unit.str());
  EXPECT_EQ(L" h ", host::get(static_cast<VARIANT*>(fields_->pvData)[0].bstrVal));
  EXPECT_EQ(L"N", host::get(static_cast<VARIANT*>(fields_->pvData)[1].bstrVal));
}

TEST_F(DoubleToDuree, FailsForFieldsNeverDimensioned) {
  EXPECT_TRUE(host::is_fault(run(1.5, L"h"), 9, L"Outil"));
}

TEST_F(DoubleToDuree, FailsForFieldsThatAreNoVariants) {
  SAFEARRAYBOUND bound{2, 0};
  set_fields(SafeArrayCreate(VT_BSTR, 1, &bound));
  EXPECT_TRUE(host::is_fault(run(1.5, L"h"), 13, L"Outil"));
}

TEST_F(DoubleToDuree, AnswersALateBoundCall) {
  Variant fields, number(1.5), result;
  fields.get().vt = VT_ARRAY | VT_VARIANT;
  fields.get().parray = host::unit_array({L"h", L"n"});
  ASSERT_EQ(S_OK, host::call(tools_.get(), L"DoubleToDuree",
                             host::arguments(host::by_reference(number.get()), host::text_value(L"h"),
                                             host::by_reference(fields.get())),
                             result.receive()));
  ASSERT_EQ(VT_BSTR, result.get().vt);
  EXPECT_EQ(L"01:30", host::get(result.get().bstrVal));
  EXPECT_EQ(VT_R8, number.get().vt);
}

TEST_F(DoubleToDuree, RefusesNullPointers) {
  double number = 1;
  Text unit(L"h");
  set_fields(host::unit_array({L"h"}));
  EXPECT_EQ(E_POINTER, tools_->DoubleToDuree(nullptr, unit.in_out(), &fields_, &result_));
  EXPECT_EQ(E_POINTER, tools_->DoubleToDuree(&number, nullptr, &fields_, &result_));
  EXPECT_EQ(E_POINTER, tools_->DoubleToDuree(&number, unit.in_out(), nullptr, &result_));
  EXPECT_EQ(E_POINTER, tools_->DoubleToDuree(&number, unit.in_out(), &fields_, nullptr));
}

}  // namespace
