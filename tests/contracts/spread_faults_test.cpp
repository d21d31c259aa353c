// CadFact_SpreadPeriodDateEdition where the call fails, and the schedules that it cannot walk.
#include "contracts/contract_fixture.h"

namespace {

using namespace host;

HRESULT spread(Record<Type_Contrat>& record, short edited, const wchar_t* date, bool start) {
  short result = -99;
  return Contracts()->CadFact_SpreadPeriodDateEdition(record, edited, Text(date),
                                                      velmosav::to_variant_bool(start), &result);
}

/// The call fails with the fault, and the contract is as it was.
void expect_fault(int number, Record<Type_Contrat>& record, short edited, const wchar_t* date, bool start) {
  const auto before = snapshot(*record);
  EXPECT_TRUE(is_contract_fault(spread(record, edited, date, start), number));
  expect_same(*before, *record);
}

Record<Type_Contrat> quarterly() {
  return contract(
      L"01/01/2025", L"31/12/2025",
      {{L"01/01/2025", L"31/03/2025"}, {L"01/04/2025", L"30/06/2025"}, {L"01/07/2025", L"30/09/2025"}});
}

TEST(ContratDoc, CadFact_SpreadPeriodDateEdition_ForwardDateThatIsNoneIsFault13) {
  auto record = quarterly();
  expect_fault(13, record, 0, L"31/31/2025", false);
}

TEST(ContratDoc, CadFact_SpreadPeriodDateEdition_BackwardDateThatIsNoneIsFault13) {
  auto record = quarterly();
  expect_fault(13, record, 2, L"", true);
}

TEST(ContratDoc, CadFact_SpreadPeriodDateEdition_ForwardFaultUndoesEveryChangeOfTheCall) {
  auto record = quarterly();
  set(row(record, 2).DateFin, L"à définir");
  expect_fault(13, record, 0, L"31/07/2025", false);  // row 1 has shrunk by then
}

TEST(ContratDoc, CadFact_SpreadPeriodDateEdition_BackwardFaultUndoesEveryChangeOfTheCall) {
  auto record = quarterly();
  set(row(record, 0).DateDeb, L"à définir");
  expect_fault(13, record, 2, L"15/03/2025", true);  // row 1 has shrunk by then
}

TEST(ContratDoc, CadFact_SpreadPeriodDateEdition_BackwardWithoutContractStartIsFault13) {
  auto record = quarterly();
  set(record->DateDeb, L"");
  expect_fault(13, record, 2, L"10/07/2025", true);
}

TEST(ContratDoc, CadFact_SpreadPeriodDateEdition_ForwardDoesNotReadTheContractStart) {
  auto record = quarterly();
  set(record->DateDeb, L"");
  EXPECT_EQ(1, Contracts().spread_end(record, 0, L"10/04/2025"));
}

TEST(ContratDoc, CadFact_SpreadPeriodDateEdition_ForwardDoesNotReadTheStartThatItReplaces) {
  auto record = quarterly();
  set(row(record, 1).DateDeb, L"");
  EXPECT_EQ(1, Contracts().spread_end(record, 0, L"10/04/2025"));
  EXPECT_EQ(L"11/04/25", get(row(record, 1).DateDeb));
}

TEST(ContratDoc, CadFact_SpreadPeriodDateEdition_BackwardDoesNotReadTheEndThatItReplaces) {
  auto record = quarterly();
  set(row(record, 1).DateFin, L"");
  EXPECT_EQ(1, Contracts().spread_start(record, 2, L"10/06/2025"));
  EXPECT_EQ(L"09/06/25", get(row(record, 1).DateFin));
}

TEST(ContratDoc, CadFact_SpreadPeriodDateEdition_ContractEndThatIsNoDateIsFault13) {
  auto record = quarterly();
  set(record->DateFin, L"reconduction");
  expect_fault(13, record, 0, L"10/04/2025", false);
  expect_fault(13, record, 2, L"10/07/2025", true);
}

TEST(ContratDoc, CadFact_SpreadPeriodDateEdition_DateBeyondTheLastYearIsFault5) {
  auto record = quarterly();
  expect_fault(5, record, 0, L"31/12/9999", false);
}

TEST(ContratDoc, CadFact_SpreadPeriodDateEdition_EndOfARowBelowMinus1IsFault9) {
  auto record = quarterly();
  expect_fault(9, record, -2, L"10/04/2025", false);
}

TEST(ContratDoc, CadFact_SpreadPeriodDateEdition_EndOfRowMinus2WithoutScheduleReturnsTheRow) {
  auto record = contract(L"01/01/2025", L"31/12/2025");  // its count is -1: the walk from -1 to -2 is empty
  EXPECT_EQ(-2, Contracts().spread_end(record, -2, L"10/04/2025"));
}

TEST(ContratDoc, CadFact_SpreadPeriodDateEdition_StartOfARowFarBeyondTheScheduleIsFault9) {
  auto record = quarterly();
  expect_fault(9, record, 4, L"10/04/2025", true);
}

TEST(ContratDoc, CadFact_SpreadPeriodDateEdition_StartWithoutScheduleIsFault9) {
  auto record = contract(L"01/01/2025", L"31/12/2025");
  expect_fault(9, record, 1, L"10/04/2025", true);
  dimension<Type_CadencierFact>(record->TabCadFact, 0);
  expect_fault(9, record, 1, L"10/04/2025", true);
}

TEST(ContratDoc, CadFact_SpreadPeriodDateEdition_RowBelowTheLowerBoundIsFault9) {
  auto record = contract(L"01/01/2025", L"31/12/2025");
  dimension_from_one(*record, 2);
  set_period(element<Type_CadencierFact>(record->TabCadFact, 0), L"01/04/2025", L"30/06/2025");
  element<Type_CadencierFact>(record->TabCadFact, 0).Transfere = VARIANT_FALSE;
  expect_fault(9, record, -1, L"10/04/2025", false);
  expect_fault(9, record, 2, L"20/02/2025", true);  // row 1 shrinks first
}

TEST(ContratDoc, CadFact_SpreadPeriodDateEdition_RowsFromLowerBound1AreCountedFrom1) {
  auto record = contract(L"01/01/2025", L"31/12/2025");
  dimension_from_one(*record, 2);
  set_period(element<Type_CadencierFact>(record->TabCadFact, 1), L"01/04/2025", L"30/06/2025");
  element<Type_CadencierFact>(record->TabCadFact, 1).Transfere = VARIANT_FALSE;
  auto expected = snapshot(*record);
  set(element<Type_CadencierFact>(expected->TabCadFact, 1).DateDeb, L"11/04/25");
  EXPECT_EQ(2, Contracts().spread_end(record, 1, L"10/04/2025"));
  expect_same(*expected, *record);
}

TEST(ContratDoc, CadFact_SpreadPeriodDateEdition_ScheduleOfTwoDimensionsIsFault9) {
  auto record = contract(L"01/01/2025", L"31/12/2025");
  dimension_two_dimensions(*record);
  EXPECT_TRUE(is_contract_fault(spread(record, 0, L"10/04/2025", false), 9));
  EXPECT_TRUE(is_contract_fault(spread(record, 1, L"10/04/2025", true), 9));
}

TEST(ContratDoc, CadFact_SpreadPeriodDateEdition_ScheduleOfOtherElementsIsFault13) {
  auto record = contract(L"01/01/2025", L"31/12/2025");
  dimension_other_elements(*record);
  EXPECT_TRUE(is_contract_fault(spread(record, 0, L"10/04/2025", false), 13));
  EXPECT_TRUE(is_contract_fault(spread(record, 1, L"10/04/2025", true), 13));
}

TEST(ContratDoc, CadFact_SpreadPeriodDateEdition_DateMayBeATextOfTheScheduleItself) {
  auto record = quarterly();
  auto expected = snapshot(*record);
  set_period(row(expected, 1), L"01/10/25", L"01/10/25");
  set_period(row(expected, 2), L"02/10/25", L"02/10/25");
  short result = -99;
  EXPECT_EQ(S_OK, Contracts()->CadFact_SpreadPeriodDateEdition(record, 0, row(record, 2).DateFin,
                                                               VARIANT_FALSE, &result));
  EXPECT_EQ(2, result);
  expect_same(*expected, *record);
}

TEST(ContratDoc, CadFact_SpreadPeriodDateEdition_NullContractOrResultIsEPointer) {
  auto record = quarterly();
  short result = 0;
  Text date(L"10/04/2025");
  EXPECT_EQ(E_POINTER,
            Contracts()->CadFact_SpreadPeriodDateEdition(nullptr, 0, date, VARIANT_FALSE, &result));
  EXPECT_EQ(E_POINTER, Contracts()->CadFact_SpreadPeriodDateEdition(record, 0, date, VARIANT_FALSE, nullptr));
}

}  // namespace
