// ContratDoc.CadFact_SpreadPeriodDateEdition after an end date was edited: the rows that follow move.
#include "schedule/schedule_fixture.h"

namespace {

using host::periods_of;
using host::row;
using host::Text;
using Periods = std::vector<std::string>;

class SpreadEditedEnd : public host::ScheduleTest {
 protected:
  host::Record<Type_Contrat> contract_ = host::sample_contract(host::four_months());
};

TEST_F(SpreadEditedEnd, LastRowSpreadsNothingAndIsTheResult) {
  expect_spread_nothing(3, *contract_, 3, L"15/05/2025", false);
}

TEST_F(SpreadEditedEnd, RowWhosePeriodStaysValidAbsorbsTheChange) {
  EXPECT_EQ(2, spread_end(*contract_, 1, L"15/03/2025"));
  EXPECT_EQ((Periods{"01/01/2025-31/01/2025", "01/02/2025-28/02/2025", "16/03/25-31/03/2025",
                     "01/04/2025-30/04/2025"}),
            periods_of(*contract_));
}

TEST_F(SpreadEditedEnd, EarlierEndPullsTheNextStartBack) {
  EXPECT_EQ(2, spread_end(*contract_, 1, L"10/02/2025"));
  EXPECT_EQ("11/02/25-31/03/2025", periods_of(*contract_)[2]);
}

TEST_F(SpreadEditedEnd, PeriodOfOneDayIsStillValid) {
  EXPECT_EQ(2, spread_end(*contract_, 1, L"30/03/2025"));
  EXPECT_EQ("31/03/25-31/03/2025", periods_of(*contract_)[2]);
  EXPECT_EQ("01/04/2025-30/04/2025", periods_of(*contract_)[3]);
}

TEST_F(SpreadEditedEnd, RowOvertakenShrinksToOneDayAndTheNextFollowsIt) {
  host::set_periods(*contract_, {{L"01/01/2025", L"31/01/2025"},
                                 {L"01/02/2025", L"28/02/2025"},
                                 {L"01/03/2025", L"10/03/2025"},
                                 {L"11/03/2025", L"30/04/2025"}});
  EXPECT_EQ(3, spread_end(*contract_, 1, L"15/03/2025"));
  EXPECT_EQ(
      (Periods{"01/01/2025-31/01/2025", "01/02/2025-28/02/2025", "16/03/25-16/03/25", "17/03/25-30/04/2025"}),
      periods_of(*contract_));
}

TEST_F(SpreadEditedEnd, SeveralRowsShrinkToOneDayEach) {
  EXPECT_EQ(3, spread_end(*contract_, 0, L"10/04/2025"));
  EXPECT_EQ(
      (Periods{"01/01/2025-31/01/2025", "11/04/25-11/04/25", "12/04/25-12/04/25", "13/04/25-30/04/2025"}),
      periods_of(*contract_));
}

TEST_F(SpreadEditedEnd, LastRowShrinksTooWhenNoneAbsorbs) {
  EXPECT_EQ(3, spread_end(*contract_, 1, L"10/06/2025"));
  EXPECT_EQ("11/06/25-11/06/25", periods_of(*contract_)[2]);
  EXPECT_EQ("12/06/25-12/06/25", periods_of(*contract_)[3]);
}

TEST_F(SpreadEditedEnd, StartPastTheContractsEndIsCappedToItAsWritten) {
  host::set(contract_->DateFin, L"20/04/2025");
  EXPECT_EQ(3, spread_end(*contract_, 2, L"25/04/2025"));
  EXPECT_EQ("20/04/2025-30/04/2025", periods_of(*contract_)[3]);
}

TEST_F(SpreadEditedEnd, EveryRowPastTheContractsEndGetsItAsOneDay) {
  host::set(contract_->DateFin, L"05/05/2025");
  EXPECT_EQ(3, spread_end(*contract_, 1, L"10/06/2025"));
  EXPECT_EQ("05/05/2025-05/05/2025", periods_of(*contract_)[2]);
  EXPECT_EQ("05/05/2025-05/05/2025", periods_of(*contract_)[3]);
}

TEST_F(SpreadEditedEnd, BlankContractEndDisablesTheCap) {
  for (const wchar_t* end : {L"", L"  "}) {
    auto contract = host::sample_contract(host::four_months());
    host::set(contract->DateFin, end);
    EXPECT_EQ(3, spread_end(*contract, 2, L"10/02/2026"));
    EXPECT_EQ("11/02/26-11/02/26", periods_of(*contract)[3]);
  }
}

TEST_F(SpreadEditedEnd, ContractStartIsNotRead) {
  host::set(contract_->DateDeb, L"début");
  EXPECT_EQ(2, spread_end(*contract_, 1, L"10/02/2025"));
}

TEST_F(SpreadEditedEnd, TransferredNeighbourReturnsMinus1AndChangesNothing) {
  row(*contract_, 2).Transfere = VARIANT_TRUE;
  expect_spread_nothing(-1, *contract_, 1, L"15/03/2025", false);
}

TEST_F(SpreadEditedEnd, TransferredRowFurtherOnUndoesTheRowsBeforeIt) {
  row(*contract_, 3).Transfere = VARIANT_TRUE;
  expect_spread_nothing(-1, *contract_, 0, L"15/04/2025", false);
}

TEST_F(SpreadEditedEnd, TransferredRowBeyondTheAbsorbingOneIsNotReached) {
  row(*contract_, 3).Transfere = VARIANT_TRUE;
  EXPECT_EQ(2, spread_end(*contract_, 1, L"15/03/2025"));
}

TEST_F(SpreadEditedEnd, EditedRowMayBeTransferredItself) {
  row(*contract_, 1).Transfere = VARIANT_TRUE;
  EXPECT_EQ(2, spread_end(*contract_, 1, L"15/03/2025"));
}

TEST_F(SpreadEditedEnd, InvoiceCodeAloneDoesNotHoldARow) {
  host::set(row(*contract_, 2).codeFact, L"FA-1");
  EXPECT_EQ(2, spread_end(*contract_, 1, L"15/03/2025"));
}

TEST_F(SpreadEditedEnd, OnlyTheDatesOfTheMovedRowsChange) {
  const auto before = host::snapshot(*contract_);
  spread_end(*contract_, 0, L"15/03/2025");
  for (const unsigned long moved : {1UL, 2UL}) {
    host::set(row(*contract_, moved).DateDeb, host::get(row(*before, moved).DateDeb));
    host::set(row(*contract_, moved).DateFin, host::get(row(*before, moved).DateFin));
  }
  EXPECT_EQ(host::kNone, host::differences(*before, *contract_));
}

TEST_F(SpreadEditedEnd, RowBeyondTheScheduleSpreadsNothing) {
  expect_spread_nothing(4, *contract_, 4, L"15/03/2025", false);
  expect_spread_nothing(300, *contract_, 300, L"15/03/2025", false);
}

TEST_F(SpreadEditedEnd, RowMinus1MovesTheFirstRow) {
  EXPECT_EQ(0, spread_end(*contract_, -1, L"09/01/2025"));
  EXPECT_EQ("10/01/25-31/01/2025", periods_of(*contract_)[0]);
}

TEST_F(SpreadEditedEnd, RowBelowMinus1IsFault9AndChangesNothing) {
  expect_spread_fault(9, *contract_, -2, L"09/01/2025", false);
}

TEST_F(SpreadEditedEnd, ScheduleNeverDimensionedSpreadsNothing) {
  auto contract = host::sample_contract();
  expect_spread_nothing(0, *contract, 0, L"15/03/2025", false);
  EXPECT_EQ(nullptr, contract->TabCadFact);
}

TEST_F(SpreadEditedEnd, DateThatIsNoneIsFault13AndChangesNothing) {
  expect_spread_fault(13, *contract_, 1, L"mars", false);
  expect_spread_fault(13, *contract_, 1, L"", false);
}

TEST_F(SpreadEditedEnd, DateThatIsNoneIsNotReadWhereNothingFollows) {
  expect_spread_nothing(3, *contract_, 3, L"mars", false);
}

TEST_F(SpreadEditedEnd, EndOfARowThatIsNoDateIsFault13AndUndoesTheRowsBefore) {
  host::set(row(*contract_, 2).DateFin, L"");
  expect_spread_fault(13, *contract_, 0, L"15/03/2025", false);
}

TEST_F(SpreadEditedEnd, StartOfARowNeedNotBeADate) {
  host::set(row(*contract_, 2).DateDeb, L"");
  EXPECT_EQ(2, spread_end(*contract_, 1, L"15/03/2025"));
  EXPECT_EQ("16/03/25-31/03/2025", periods_of(*contract_)[2]);
}

TEST_F(SpreadEditedEnd, ContractEndThatIsNoDateIsFault13AndChangesNothing) {
  host::set(contract_->DateFin, L"fin");
  expect_spread_fault(13, *contract_, 1, L"15/03/2025", false);
}

TEST_F(SpreadEditedEnd, AnyNonZeroBooleanEditsAStart) {
  short result = 0;
  EXPECT_EQ(S_OK, contracts_->CadFact_SpreadPeriodDateEdition(contract_, 0, Text(L"05/01/2025"), 1, &result));
  EXPECT_EQ(-1, result);
}

TEST_F(SpreadEditedEnd, NullRecordOrResultIsEPointer) {
  short result = 0;
  Text date(L"15/03/2025");
  const auto before = host::snapshot(*contract_);
  EXPECT_EQ(E_POINTER, contracts_->CadFact_SpreadPeriodDateEdition(nullptr, 0, date, VARIANT_FALSE, &result));
  EXPECT_EQ(E_POINTER,
            contracts_->CadFact_SpreadPeriodDateEdition(contract_, 1, date, VARIANT_FALSE, nullptr));
  EXPECT_EQ(host::kNone, host::differences(*before, *contract_));
}

}  // namespace
