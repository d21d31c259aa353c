// ContratDoc.CadFact_SpreadPeriodDateEdition after a start date was edited: the rows before it move.
#include "schedule/schedule_fixture.h"

namespace {

using host::periods_of;
using host::row;
using Periods = std::vector<std::string>;

class SpreadEditedStart : public host::ScheduleTest {
 protected:
  host::Record<Type_Contrat> contract_ = host::sample_contract(host::four_months());
};

TEST_F(SpreadEditedStart, Row0ReturnsMinus1AndChangesNothing) {
  expect_spread_nothing(-1, *contract_, 0, L"10/01/2025", true);
}

TEST_F(SpreadEditedStart, Row0DoesNotReadTheDate) { expect_spread_nothing(-1, *contract_, 0, L"mars", true); }

TEST_F(SpreadEditedStart, RowWhosePeriodStaysValidAbsorbsTheChange) {
  EXPECT_EQ(1, spread_start(*contract_, 2, L"15/02/2025"));
  EXPECT_EQ((Periods{"01/01/2025-31/01/2025", "01/02/2025-14/02/25", "01/03/2025-31/03/2025",
                     "01/04/2025-30/04/2025"}),
            periods_of(*contract_));
}

TEST_F(SpreadEditedStart, LastRowMovesTheOneBeforeIt) {
  EXPECT_EQ(2, spread_start(*contract_, 3, L"20/04/2025"));
  EXPECT_EQ("01/03/2025-19/04/25", periods_of(*contract_)[2]);
}

TEST_F(SpreadEditedStart, PeriodOfOneDayIsStillValid) {
  EXPECT_EQ(1, spread_start(*contract_, 2, L"02/02/2025"));
  EXPECT_EQ("01/02/2025-01/02/25", periods_of(*contract_)[1]);
  EXPECT_EQ("01/01/2025-31/01/2025", periods_of(*contract_)[0]);
}

TEST_F(SpreadEditedStart, RowOvertakenShrinksToOneDayAndTheOneBeforeFollowsIt) {
  EXPECT_EQ(0, spread_start(*contract_, 2, L"20/01/2025"));
  EXPECT_EQ(
      (Periods{"01/01/2025-18/01/25", "19/01/25-19/01/25", "01/03/2025-31/03/2025", "01/04/2025-30/04/2025"}),
      periods_of(*contract_));
}

TEST_F(SpreadEditedStart, SeveralRowsShrinkToOneDayEach) {
  EXPECT_EQ(0, spread_start(*contract_, 3, L"20/01/2025"));
  EXPECT_EQ(
      (Periods{"01/01/2025-17/01/25", "18/01/25-18/01/25", "19/01/25-19/01/25", "01/04/2025-30/04/2025"}),
      periods_of(*contract_));
}

TEST_F(SpreadEditedStart, FirstRowShrinksTooWhenTheContractStartsBefore) {
  host::set(contract_->DateDeb, L"01/12/2024");
  EXPECT_EQ(0, spread_start(*contract_, 1, L"20/12/2024"));
  EXPECT_EQ("19/12/24-19/12/24", periods_of(*contract_)[0]);
}

TEST_F(SpreadEditedStart, EndBeforeTheContractsStartReturnsMinus1AndChangesNothing) {
  expect_spread_nothing(-1, *contract_, 1, L"01/01/2025", true);
}

TEST_F(SpreadEditedStart, EndOnTheContractsStartIsAllowed) {
  EXPECT_EQ(0, spread_start(*contract_, 1, L"02/01/2025"));
  EXPECT_EQ("01/01/2025-01/01/25", periods_of(*contract_)[0]);
}

TEST_F(SpreadEditedStart, ContractsStartReachedFurtherBackUndoesTheRowsBefore) {
  expect_spread_nothing(-1, *contract_, 3, L"03/01/2025", true);
}

TEST_F(SpreadEditedStart, EndPastTheContractsEndIsCappedToItAsWritten) {
  host::set(contract_->DateFin, L"20/04/2025");
  EXPECT_EQ(2, spread_start(*contract_, 3, L"25/04/2025"));
  EXPECT_EQ("01/03/2025-20/04/2025", periods_of(*contract_)[2]);
}

TEST_F(SpreadEditedStart, BlankContractEndDisablesTheCap) {
  for (const wchar_t* end : {L"", L"  "}) {
    auto contract = host::sample_contract(host::four_months());
    host::set(contract->DateFin, end);
    EXPECT_EQ(2, spread_start(*contract, 3, L"10/02/2026"));
    EXPECT_EQ("01/03/2025-09/02/26", periods_of(*contract)[2]);
  }
}

TEST_F(SpreadEditedStart, TransferredNeighbourReturnsMinus1AndChangesNothing) {
  row(*contract_, 1).Transfere = VARIANT_TRUE;
  expect_spread_nothing(-1, *contract_, 2, L"15/02/2025", true);
}

TEST_F(SpreadEditedStart, TransferredRowFurtherBackUndoesTheRowsBeforeIt) {
  row(*contract_, 0).Transfere = VARIANT_TRUE;
  expect_spread_nothing(-1, *contract_, 2, L"20/01/2025", true);
}

TEST_F(SpreadEditedStart, TransferredRowBeyondTheAbsorbingOneIsNotReached) {
  row(*contract_, 0).Transfere = VARIANT_TRUE;
  EXPECT_EQ(1, spread_start(*contract_, 2, L"15/02/2025"));
}

TEST_F(SpreadEditedStart, OnlyTheDatesOfTheMovedRowsChange) {
  const auto before = host::snapshot(*contract_);
  spread_start(*contract_, 2, L"20/01/2025");
  for (const unsigned long moved : {0UL, 1UL}) {
    host::set(row(*contract_, moved).DateDeb, host::get(row(*before, moved).DateDeb));
    host::set(row(*contract_, moved).DateFin, host::get(row(*before, moved).DateFin));
  }
  EXPECT_EQ(host::kNone, host::differences(*before, *contract_));
}

TEST_F(SpreadEditedStart, RowJustBeyondTheScheduleMovesTheLastRow) {
  EXPECT_EQ(3, spread_start(*contract_, 4, L"20/04/2025"));
  EXPECT_EQ("01/04/2025-19/04/25", periods_of(*contract_)[3]);
}

TEST_F(SpreadEditedStart, RowFurtherBeyondTheScheduleIsFault9AndChangesNothing) {
  expect_spread_fault(9, *contract_, 5, L"20/04/2025", true);
}

TEST_F(SpreadEditedStart, NegativeRowSpreadsNothingAndIsTheResult) {
  expect_spread_nothing(-1, *contract_, -1, L"20/04/2025", true);
  expect_spread_nothing(-7, *contract_, -7, L"20/04/2025", true);
}

TEST_F(SpreadEditedStart, ScheduleNeverDimensionedIsFault9) {
  auto contract = host::sample_contract();
  expect_spread_fault(9, *contract, 1, L"20/04/2025", true);
  EXPECT_EQ(nullptr, contract->TabCadFact);
}

TEST_F(SpreadEditedStart, DateThatIsNoneIsFault13AndChangesNothing) {
  expect_spread_fault(13, *contract_, 2, L"mars", true);
  expect_spread_fault(13, *contract_, 2, L"", true);
}

TEST_F(SpreadEditedStart, StartOfARowThatIsNoDateIsFault13AndUndoesTheRowsBefore) {
  host::set(row(*contract_, 0).DateDeb, L"janvier-");
  expect_spread_fault(13, *contract_, 2, L"20/01/2025", true);
}

TEST_F(SpreadEditedStart, EndOfARowNeedNotBeADate) {
  host::set(row(*contract_, 1).DateFin, L"");
  EXPECT_EQ(1, spread_start(*contract_, 2, L"15/02/2025"));
  EXPECT_EQ("01/02/2025-14/02/25", periods_of(*contract_)[1]);
}

TEST_F(SpreadEditedStart, BlankContractStartIsFault13AndChangesNothing) {
  host::set(contract_->DateDeb, L"");
  expect_spread_fault(13, *contract_, 2, L"15/02/2025", true);
}

}  // namespace
