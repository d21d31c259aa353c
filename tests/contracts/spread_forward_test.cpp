// CadFact_SpreadPeriodDateEdition after the end of a row was edited: later rows follow.
#include "contracts/contract_fixture.h"

namespace {

using namespace host;

/// Five months, one row each, in a contract of the year 2025.
Record<Type_Contrat> monthly(const wchar_t* contract_end = L"31/12/2025") {
  return contract(L"01/01/2025", contract_end,
                  {{L"01/01/2025", L"31/01/2025"},
                   {L"01/02/2025", L"28/02/2025"},
                   {L"01/03/2025", L"31/03/2025"},
                   {L"01/04/2025", L"30/04/2025"},
                   {L"01/05/2025", L"31/05/2025"}});
}

TEST(ContratDoc, CadFact_SpreadPeriodDateEdition_EndOfTheLastRowSpreadsNothingAndReturnsTheRow) {
  auto record = monthly();
  const auto before = snapshot(*record);
  EXPECT_EQ(4, Contracts().spread_end(record, 4, L"15/06/2025"));
  expect_same(*before, *record);
}

TEST(ContratDoc, CadFact_SpreadPeriodDateEdition_NextPeriodStillValidAbsorbsTheEnd) {
  auto record = contract(L"01/01/2025", L"31/12/2025",
                         {{L"01/12/2024", L"31/12/2024"},
                          {L"01/01/2025", L"31/01/2025"},
                          {L"01/02/2025", L"28/02/2025"},
                          {L"01/03/2025", L"31/03/2025"},
                          {L"01/04/2025", L"30/04/2025"}});
  auto expected = snapshot(*record);
  set(row(expected, 3).DateDeb, L"16/03/25");
  EXPECT_EQ(3, Contracts().spread_end(record, 2, L"15/03/2025"));
  expect_same(*expected, *record);
}

TEST(ContratDoc, CadFact_SpreadPeriodDateEdition_NextPeriodThatIsOverShrinksToOneDayAndTheNextFollows) {
  auto record = contract(L"01/01/2025", L"31/12/2025",
                         {{L"01/12/2024", L"31/12/2024"},
                          {L"01/01/2025", L"31/01/2025"},
                          {L"01/02/2025", L"28/02/2025"},
                          {L"01/03/2025", L"10/03/2025"},
                          {L"11/03/2025", L"30/04/2025"},
                          {L"01/05/2025", L"31/05/2025"}});
  auto expected = snapshot(*record);
  set_period(row(expected, 3), L"16/03/25", L"16/03/25");
  set(row(expected, 4).DateDeb, L"17/03/25");
  EXPECT_EQ(4, Contracts().spread_end(record, 2, L"15/03/2025"));
  expect_same(*expected, *record);
}

TEST(ContratDoc, CadFact_SpreadPeriodDateEdition_SeveralPeriodsThatAreOverBecomeConsecutiveDays) {
  auto record = monthly();
  auto expected = snapshot(*record);
  set_period(row(expected, 1), L"11/05/25", L"11/05/25");
  set_period(row(expected, 2), L"12/05/25", L"12/05/25");
  set_period(row(expected, 3), L"13/05/25", L"13/05/25");
  set(row(expected, 4).DateDeb, L"14/05/25");
  EXPECT_EQ(4, Contracts().spread_end(record, 0, L"10/05/2025"));
  expect_same(*expected, *record);
}

TEST(ContratDoc, CadFact_SpreadPeriodDateEdition_LastRowMayShrinkToOneDayToo) {
  auto record = monthly();
  auto expected = snapshot(*record);
  set_period(row(expected, 4), L"16/06/25", L"16/06/25");
  EXPECT_EQ(4, Contracts().spread_end(record, 3, L"15/06/2025"));
  expect_same(*expected, *record);
}

TEST(ContratDoc, CadFact_SpreadPeriodDateEdition_NextPeriodOfOneDayIsStillValid) {
  auto record = monthly();
  auto expected = snapshot(*record);
  set(row(expected, 1).DateDeb, L"28/02/25");  // its end keeps its own text
  EXPECT_EQ(1, Contracts().spread_end(record, 0, L"27/02/2025"));
  expect_same(*expected, *record);
}

TEST(ContratDoc, CadFact_SpreadPeriodDateEdition_EarlierEndPullsTheNextStartBack) {
  auto record = monthly();
  auto expected = snapshot(*record);
  set(row(expected, 2).DateDeb, L"11/02/25");
  EXPECT_EQ(2, Contracts().spread_end(record, 1, L"10/02/2025"));
  expect_same(*expected, *record);
}

TEST(ContratDoc, CadFact_SpreadPeriodDateEdition_StartPastTheContractsEndIsCappedToIt) {
  auto record = monthly(L"15/04/2025");
  auto expected = snapshot(*record);
  set(row(expected, 3).DateDeb, L"15/04/2025");
  EXPECT_EQ(3, Contracts().spread_end(record, 2, L"20/04/2025"));
  expect_same(*expected, *record);
}

TEST(ContratDoc, CadFact_SpreadPeriodDateEdition_RowsPastTheContractsEndAllShrinkToIt) {
  auto record = monthly(L"30/06/2025");
  auto expected = snapshot(*record);
  set_period(row(expected, 3), L"30/06/2025", L"30/06/2025");
  set_period(row(expected, 4), L"30/06/2025", L"30/06/2025");
  EXPECT_EQ(4, Contracts().spread_end(record, 2, L"30/06/2025"));
  expect_same(*expected, *record);
}

TEST(ContratDoc, CadFact_SpreadPeriodDateEdition_BlankContractEndDisablesTheCap) {
  for (const wchar_t* end : {L"", L"  "}) {
    auto record = monthly(end);
    auto expected = snapshot(*record);
    set_period(row(expected, 4), L"21/06/27", L"21/06/27");
    EXPECT_EQ(4, Contracts().spread_end(record, 3, L"20/06/2027"));
    expect_same(*expected, *record);
  }
}

TEST(ContratDoc, CadFact_SpreadPeriodDateEdition_TransferredNextRowReturnsMinus1) {
  auto record = monthly();
  row(record, 2).Transfere = VARIANT_TRUE;
  const auto before = snapshot(*record);
  EXPECT_EQ(-1, Contracts().spread_end(record, 1, L"10/02/2025"));
  expect_same(*before, *record);
}

TEST(ContratDoc, CadFact_SpreadPeriodDateEdition_TransferredLaterRowUndoesEveryChangeOfTheCall) {
  auto record = monthly();
  row(record, 3).Transfere = VARIANT_TRUE;
  const auto before = snapshot(*record);
  EXPECT_EQ(-1, Contracts().spread_end(record, 0, L"10/05/2025"));
  expect_same(*before, *record);
}

TEST(ContratDoc, CadFact_SpreadPeriodDateEdition_AnyFlagButZeroIsTransferred) {
  auto record = monthly();
  row(record, 2).Transfere = 1;
  const auto before = snapshot(*record);
  EXPECT_EQ(-1, Contracts().spread_end(record, 1, L"10/02/2025"));
  expect_same(*before, *record);
}

TEST(ContratDoc, CadFact_SpreadPeriodDateEdition_InvoiceCodeAloneDoesNotBlock) {
  auto record = monthly();
  set(row(record, 2).codeFact, L"FA0001");
  EXPECT_EQ(2, Contracts().spread_end(record, 1, L"10/02/2025"));
  EXPECT_EQ(L"11/02/25", get(row(record, 2).DateDeb));
}

TEST(ContratDoc, CadFact_SpreadPeriodDateEdition_TransferredRowAfterTheOneThatAbsorbsIsNotReached) {
  auto record = monthly();
  row(record, 3).Transfere = VARIANT_TRUE;
  auto expected = snapshot(*record);
  set(row(expected, 2).DateDeb, L"11/03/25");
  EXPECT_EQ(2, Contracts().spread_end(record, 1, L"10/03/2025"));
  expect_same(*expected, *record);
}

TEST(ContratDoc, CadFact_SpreadPeriodDateEdition_EditedRowItselfMayBeTransferred) {
  auto record = monthly();
  row(record, 1).Transfere = VARIANT_TRUE;
  auto expected = snapshot(*record);
  set(row(expected, 2).DateDeb, L"11/03/25");
  EXPECT_EQ(2, Contracts().spread_end(record, 1, L"10/03/2025"));
  expect_same(*expected, *record);  // and its own end is not written
}

TEST(ContratDoc, CadFact_SpreadPeriodDateEdition_EndOfARowBeyondTheScheduleReturnsTheRow) {
  auto record = monthly();
  const auto before = snapshot(*record);
  EXPECT_EQ(5, Contracts().spread_end(record, 5, L"10/03/2025"));
  EXPECT_EQ(300, Contracts().spread_end(record, 300, L"10/03/2025"));
  expect_same(*before, *record);
}

TEST(ContratDoc, CadFact_SpreadPeriodDateEdition_EndWithoutScheduleReturnsTheRow) {
  auto record = contract(L"01/01/2025", L"31/12/2025");
  EXPECT_EQ(0, Contracts().spread_end(record, 0, L"10/03/2025"));
  dimension<Type_CadencierFact>(record->TabCadFact, 0);
  EXPECT_EQ(2, Contracts().spread_end(record, 2, L"10/03/2025"));
}

TEST(ContratDoc, CadFact_SpreadPeriodDateEdition_EndOfRowMinus1StartsAtRow0) {
  auto record = monthly();
  auto expected = snapshot(*record);
  set(row(expected, 0).DateDeb, L"11/01/25");
  EXPECT_EQ(0, Contracts().spread_end(record, -1, L"10/01/2025"));
  expect_same(*expected, *record);
}

TEST(ContratDoc, CadFact_SpreadPeriodDateEdition_EndOfRowMinus1WithoutScheduleReturnsMinus1) {
  auto record = contract(L"01/01/2025", L"31/12/2025");
  EXPECT_EQ(-1, Contracts().spread_end(record, -1, L"10/01/2025"));
}

TEST(ContratDoc, CadFact_SpreadPeriodDateEdition_DateIsNotReadWhereNoRowFollows) {
  auto record = monthly();
  EXPECT_EQ(4, Contracts().spread_end(record, 4, L"jamais"));
}

TEST(ContratDoc, CadFact_SpreadPeriodDateEdition_DateIsNotReadBeforeATransferredRow) {
  auto record = monthly();
  row(record, 1).Transfere = VARIANT_TRUE;
  EXPECT_EQ(-1, Contracts().spread_end(record, 0, L"jamais"));
}

TEST(ContratDoc, CadFact_SpreadPeriodDateEdition_OtherListsAndTheirArraysStayTheHosts) {
  auto record = monthly();
  SAFEARRAY* const schedule = record->TabCadFact;
  SAFEARRAY* const interventions = record->TabInterv;
  EXPECT_EQ(4, Contracts().spread_end(record, 0, L"10/05/2025"));
  EXPECT_EQ(schedule, record->TabCadFact);
  EXPECT_EQ(interventions, record->TabInterv);
}

}  // namespace
