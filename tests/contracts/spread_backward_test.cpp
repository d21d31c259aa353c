// CadFact_SpreadPeriodDateEdition after the start of a row was edited: earlier rows follow.
#include "contracts/contract_fixture.h"

namespace {

using namespace host;

/// Four months, one row each, in a contract of the year 2025.
Record<Type_Contrat> monthly(const wchar_t* contract_end = L"31/12/2025") {
  return contract(L"01/01/2025", contract_end,
                  {{L"01/01/2025", L"31/01/2025"},
                   {L"01/02/2025", L"28/02/2025"},
                   {L"01/03/2025", L"31/03/2025"},
                   {L"01/04/2025", L"30/04/2025"}});
}

TEST(ContratDoc, CadFact_SpreadPeriodDateEdition_StartOfRow0ReturnsMinus1) {
  auto record = monthly();
  const auto before = snapshot(*record);
  EXPECT_EQ(-1, Contracts().spread_start(record, 0, L"15/01/2025"));
  expect_same(*before, *record);
}

TEST(ContratDoc, CadFact_SpreadPeriodDateEdition_StartOfRow0WithoutScheduleReturnsMinus1) {
  auto record = contract(L"01/01/2025", L"31/12/2025");
  EXPECT_EQ(-1, Contracts().spread_start(record, 0, L"jamais"));
}

TEST(ContratDoc, CadFact_SpreadPeriodDateEdition_PreviousPeriodStillValidAbsorbsTheStart) {
  auto record = monthly();
  auto expected = snapshot(*record);
  set(row(expected, 1).DateFin, L"09/02/25");
  EXPECT_EQ(1, Contracts().spread_start(record, 2, L"10/02/2025"));
  expect_same(*expected, *record);
}

TEST(ContratDoc, CadFact_SpreadPeriodDateEdition_LaterStartLengthensThePreviousPeriod) {
  auto record = monthly();
  auto expected = snapshot(*record);
  set(row(expected, 2).DateFin, L"14/04/25");
  EXPECT_EQ(2, Contracts().spread_start(record, 3, L"15/04/2025"));
  expect_same(*expected, *record);
}

TEST(ContratDoc, CadFact_SpreadPeriodDateEdition_PreviousPeriodOfOneDayIsStillValid) {
  auto record = monthly();
  auto expected = snapshot(*record);
  set(row(expected, 1).DateFin, L"01/02/25");
  EXPECT_EQ(1, Contracts().spread_start(record, 2, L"02/02/2025"));
  expect_same(*expected, *record);
}

TEST(ContratDoc, CadFact_SpreadPeriodDateEdition_PreviousPeriodNotYetBegunShrinksToOneDay) {
  auto record = monthly();
  auto expected = snapshot(*record);
  set_period(row(expected, 1), L"19/01/25", L"19/01/25");
  set(row(expected, 0).DateFin, L"18/01/25");
  EXPECT_EQ(0, Contracts().spread_start(record, 2, L"20/01/2025"));
  expect_same(*expected, *record);
}

TEST(ContratDoc, CadFact_SpreadPeriodDateEdition_SeveralPeriodsNotYetBegunBecomeConsecutiveDays) {
  auto record = monthly();
  auto expected = snapshot(*record);
  set_period(row(expected, 2), L"09/01/25", L"09/01/25");
  set_period(row(expected, 1), L"08/01/25", L"08/01/25");
  set(row(expected, 0).DateFin, L"07/01/25");
  EXPECT_EQ(0, Contracts().spread_start(record, 3, L"10/01/2025"));
  expect_same(*expected, *record);
}

TEST(ContratDoc, CadFact_SpreadPeriodDateEdition_Row0MayShrinkToOneDayToo) {
  auto record = monthly();
  set_period(row(record, 0), L"15/01/2025", L"31/01/2025");
  auto expected = snapshot(*record);
  set_period(row(expected, 0), L"09/01/25", L"09/01/25");
  EXPECT_EQ(0, Contracts().spread_start(record, 1, L"10/01/2025"));
  expect_same(*expected, *record);
}

TEST(ContratDoc, CadFact_SpreadPeriodDateEdition_EndPastTheContractsEndIsCappedToIt) {
  auto record = monthly(L"15/04/2025");
  auto expected = snapshot(*record);
  set(row(expected, 2).DateFin, L"15/04/2025");
  EXPECT_EQ(2, Contracts().spread_start(record, 3, L"20/04/2025"));
  expect_same(*expected, *record);
}

TEST(ContratDoc, CadFact_SpreadPeriodDateEdition_CappedEndBeforeThePreviousStartShrinksItThere) {
  auto record = monthly(L"15/02/2025");
  auto expected = snapshot(*record);
  set_period(row(expected, 2), L"15/02/2025", L"15/02/2025");
  set(row(expected, 1).DateFin, L"14/02/25");
  EXPECT_EQ(1, Contracts().spread_start(record, 3, L"20/04/2025"));
  expect_same(*expected, *record);
}

TEST(ContratDoc, CadFact_SpreadPeriodDateEdition_BlankContractEndDisablesTheCapBackwardToo) {
  auto record = monthly(L" ");
  auto expected = snapshot(*record);
  set(row(expected, 2).DateFin, L"19/04/28");
  EXPECT_EQ(2, Contracts().spread_start(record, 3, L"20/04/2028"));
  expect_same(*expected, *record);
}

TEST(ContratDoc, CadFact_SpreadPeriodDateEdition_EndOnTheContractsFirstDayIsAllowed) {
  auto record = monthly();
  auto expected = snapshot(*record);
  set(row(expected, 0).DateFin, L"01/01/25");
  EXPECT_EQ(0, Contracts().spread_start(record, 1, L"02/01/2025"));
  expect_same(*expected, *record);
}

TEST(ContratDoc, CadFact_SpreadPeriodDateEdition_EndBeforeTheContractsStartReturnsMinus1) {
  auto record = monthly();
  const auto before = snapshot(*record);
  EXPECT_EQ(-1, Contracts().spread_start(record, 1, L"01/01/2025"));
  expect_same(*before, *record);
}

TEST(ContratDoc, CadFact_SpreadPeriodDateEdition_EndBeforeTheContractsStartUndoesEveryChangeOfTheCall) {
  auto record = monthly();
  const auto before = snapshot(*record);
  EXPECT_EQ(-1, Contracts().spread_start(record, 3, L"03/01/2025"));  // rows 2 and 1 have moved by then
  expect_same(*before, *record);
}

TEST(ContratDoc, CadFact_SpreadPeriodDateEdition_TransferredPreviousRowReturnsMinus1) {
  auto record = monthly();
  row(record, 1).Transfere = VARIANT_TRUE;
  const auto before = snapshot(*record);
  EXPECT_EQ(-1, Contracts().spread_start(record, 2, L"10/03/2025"));
  expect_same(*before, *record);
}

TEST(ContratDoc, CadFact_SpreadPeriodDateEdition_TransferredEarlierRowUndoesEveryChangeOfTheCall) {
  auto record = monthly();
  row(record, 1).Transfere = VARIANT_TRUE;
  const auto before = snapshot(*record);
  EXPECT_EQ(-1, Contracts().spread_start(record, 3, L"20/02/2025"));  // row 2 shrinks first
  expect_same(*before, *record);
}

TEST(ContratDoc, CadFact_SpreadPeriodDateEdition_TransferredRowBeforeTheOneThatAbsorbsIsNotReached) {
  auto record = monthly();
  row(record, 0).Transfere = VARIANT_TRUE;
  auto expected = snapshot(*record);
  set(row(expected, 1).DateFin, L"09/02/25");
  EXPECT_EQ(1, Contracts().spread_start(record, 2, L"10/02/2025"));
  expect_same(*expected, *record);
}

TEST(ContratDoc, CadFact_SpreadPeriodDateEdition_DateIsNotReadAfterATransferredRow) {
  auto record = monthly();
  row(record, 0).Transfere = VARIANT_TRUE;
  EXPECT_EQ(-1, Contracts().spread_start(record, 1, L"jamais"));
}

TEST(ContratDoc, CadFact_SpreadPeriodDateEdition_StartOfTheRowAfterTheLastMovesTheLast) {
  auto record = monthly();
  auto expected = snapshot(*record);
  set(row(expected, 3).DateFin, L"14/05/25");
  EXPECT_EQ(3, Contracts().spread_start(record, 4, L"15/05/2025"));
  expect_same(*expected, *record);
}

TEST(ContratDoc, CadFact_SpreadPeriodDateEdition_StartOfANegativeRowReturnsTheRow) {
  auto record = monthly();
  const auto before = snapshot(*record);
  EXPECT_EQ(-1, Contracts().spread_start(record, -1, L"15/01/2025"));
  EXPECT_EQ(-3, Contracts().spread_start(record, -3, L"15/01/2025"));
  expect_same(*before, *record);
}

TEST(ContratDoc, CadFact_SpreadPeriodDateEdition_AnyFlagButZeroMeansThatTheStartWasEdited) {
  auto record = monthly();
  auto expected = snapshot(*record);
  set(row(expected, 1).DateFin, L"09/02/25");
  short result = -99;
  EXPECT_EQ(S_OK, Contracts()->CadFact_SpreadPeriodDateEdition(record, 2, Text(L"10/02/2025"), 1, &result));
  EXPECT_EQ(1, result);
  expect_same(*expected, *record);
}

}  // namespace
