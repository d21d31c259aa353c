// CadFact_SpreadPeriodDateEdition beyond the years that two digits stand for: a date that was written with a
// two-digit year is read back a century earlier.
#include "contracts/contract_fixture.h"

namespace {

using namespace host;

class SpreadYears : public ::testing::Test {
 protected:
  const int last_ = last_two_digit_year();
  const int next_ = last_ + 1;  // read as next_ - 100
};

TEST_F(SpreadYears, CadFact_SpreadPeriodDateEdition_StartAfterTheLastYearIsReadACenturyEarlierAndAbsorbs) {
  auto record = contract(long_date(1, 1, last_ - 1), long_date(31, 12, next_ + 5),
                         {{long_date(1, 1, last_), long_date(31, 12, last_)},
                          {long_date(1, 1, next_), long_date(15, 1, next_)},
                          {long_date(16, 1, next_), long_date(31, 1, next_)}});
  auto expected = snapshot(*record);
  // Later than the row's end by its text, a century earlier by its reading: the period counts as valid.
  set(row(expected, 1).DateDeb, short_date(21, 1, next_));
  EXPECT_EQ(1, Contracts().spread_end(record, 0, long_date(20, 1, next_)));
  expect_same(*expected, *record);
}

TEST_F(SpreadYears, CadFact_SpreadPeriodDateEdition_StartAfterTheLastYearIsNotCappedByTheContractsEnd) {
  auto record = contract(long_date(1, 1, last_ - 1), long_date(31, 12, last_),
                         {{long_date(1, 1, last_), long_date(30, 11, last_)},
                          {long_date(1, 12, last_), long_date(31, 12, last_)}});
  auto expected = snapshot(*record);
  set(row(expected, 1).DateDeb, short_date(1, 1, next_));
  EXPECT_EQ(1, Contracts().spread_end(record, 0, long_date(31, 12, last_)));
  expect_same(*expected, *record);
}

TEST_F(SpreadYears, CadFact_SpreadPeriodDateEdition_StartInTheLastYearIsReadInItsOwnCentury) {
  auto record = contract(long_date(1, 1, last_ - 1), long_date(31, 12, next_),
                         {{long_date(1, 1, last_), long_date(31, 10, last_)},
                          {long_date(1, 11, last_), long_date(30, 11, last_)},
                          {long_date(1, 12, last_), long_date(31, 12, last_)}});
  auto expected = snapshot(*record);
  set_period(row(expected, 1), short_date(16, 12, last_), short_date(16, 12, last_));
  set(row(expected, 2).DateDeb, short_date(17, 12, last_));
  EXPECT_EQ(2, Contracts().spread_end(record, 0, long_date(15, 12, last_)));
  expect_same(*expected, *record);
}

TEST_F(SpreadYears, CadFact_SpreadPeriodDateEdition_RowsWrittenWithTwoDigitsShrinkTogether) {
  auto record = contract(long_date(1, 1, last_ - 1), L"",
                         {{short_date(1, 1, last_), short_date(31, 12, last_)},
                          {short_date(1, 1, next_), short_date(15, 1, next_)},
                          {short_date(16, 1, next_), short_date(31, 1, next_)}});
  auto expected = snapshot(*record);
  set_period(row(expected, 1), short_date(21, 1, next_), short_date(21, 1, next_));
  set(row(expected, 2).DateDeb, short_date(22, 1, next_));
  EXPECT_EQ(2, Contracts().spread_end(record, 0, long_date(20, 1, next_)));
  expect_same(*expected, *record);
}

TEST_F(SpreadYears, CadFact_SpreadPeriodDateEdition_ShrunkRowIsReadBackAcrossTheLastYear) {
  auto record = contract(long_date(1, 1, last_ - 1), L"",
                         {{short_date(1, 12, last_), long_date(20, 12, last_)},
                          {short_date(21, 12, last_), short_date(25, 12, last_)},
                          {short_date(26, 12, last_), short_date(28, 12, last_)}});
  auto expected = snapshot(*record);
  set_period(row(expected, 1), short_date(31, 12, last_), short_date(31, 12, last_));
  set(row(expected, 2).DateDeb, short_date(1, 1, next_));  // a century before the row's end
  EXPECT_EQ(2, Contracts().spread_end(record, 0, long_date(30, 12, last_)));
  expect_same(*expected, *record);
}

TEST_F(SpreadYears, CadFact_SpreadPeriodDateEdition_EndAfterTheLastYearIsReadBeforeTheContractsStart) {
  auto record = contract(long_date(1, 1, last_ - 1), long_date(31, 12, next_ + 5),
                         {{long_date(1, 1, next_), long_date(30, 6, next_)},
                          {long_date(1, 7, next_), long_date(31, 12, next_)}});
  const auto before = snapshot(*record);
  EXPECT_EQ(-1, Contracts().spread_start(record, 1, long_date(1, 8, next_)));
  expect_same(*before, *record);
}

TEST_F(SpreadYears, CadFact_SpreadPeriodDateEdition_EndInTheLastYearOfAStartAfterItIsInsideTheContract) {
  auto record = contract(long_date(1, 1, last_ - 1), long_date(31, 12, next_ + 5),
                         {{long_date(1, 1, last_), long_date(30, 6, last_)},
                          {long_date(1, 7, last_), long_date(31, 12, next_)}});
  auto expected = snapshot(*record);
  set(row(expected, 0).DateFin, short_date(31, 12, last_));
  EXPECT_EQ(0, Contracts().spread_start(record, 1, long_date(1, 1, next_)));
  expect_same(*expected, *record);
}

TEST_F(SpreadYears, CadFact_SpreadPeriodDateEdition_DateGivenWithTwoDigitsIsReadAsThePlatformReadsIt) {
  auto record = contract(L"", L"",
                         {{long_date(1, 1, next_ - 100), long_date(31, 1, next_ - 100)},
                          {long_date(1, 2, next_ - 100), long_date(28, 2, next_ - 100)}});
  auto expected = snapshot(*record);
  set(row(expected, 1).DateDeb, short_date(11, 2, next_));
  EXPECT_EQ(1, Contracts().spread_end(record, 0, short_date(10, 2, next_)));
  expect_same(*expected, *record);
}

TEST_F(SpreadYears, Ctt_SetCadFactStartPeriod_ReadsBackTheTwoDigitYearItWrote) {
  auto record = contract(long_date(1, 1, last_ - 1), long_date(30, 6, last_));
  // Read a century before the contract's end: not capped.
  EXPECT_EQ(short_date(1, 1, next_), Contracts().start_after(record, long_date(31, 12, last_)));
  EXPECT_EQ(long_date(30, 6, last_), Contracts().start_after(record, long_date(30, 12, last_)));
}

TEST_F(SpreadYears, Ctt_SetCadFactEndPeriod_ReadsBackTheTwoDigitYearItWrote) {
  auto record = contract(long_date(1, 1, last_ - 1), long_date(30, 6, last_));
  EXPECT_EQ(short_date(1, 1, next_), Contracts().end_before(record, long_date(2, 1, next_)));
  EXPECT_EQ(long_date(30, 6, last_), Contracts().end_before(record, long_date(1, 1, next_)));
}

TEST_F(SpreadYears, AjouterCadFactCtt_TwoDigitEndIsReadAsThePlatformReadsIt) {
  auto record = contract(long_date(1, 1, last_ - 1), long_date(30, 6, last_),
                         {{long_date(1, 1, last_), long_date(31, 3, last_)}});
  const Contracts contracts;
  contracts.add(record, L"", L"", short_date(31, 1, next_));
  EXPECT_EQ(short_date(31, 1, next_), get(row(record, 1).DateFin));
  contracts.add(record, L"", L"", long_date(31, 1, next_));
  EXPECT_EQ(long_date(30, 6, last_), get(row(record, 2).DateFin));
}

TEST_F(SpreadYears, SetDateByDuree_TwoDigitStartIsReadAsThePlatformReadsIt) {
  // The leap days tell the centuries apart: 1900 has none, 2000 has one.
  EXPECT_EQ(L"29/02/00", Contracts().end_of(L"28/02/00", 2, L"J"));
  EXPECT_EQ(L"01/03/00", Contracts().end_of(L"28/02/1900", 2, L"J"));
}

}  // namespace
