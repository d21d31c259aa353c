// GetLastDatePeriode: the end of the last row, or of the last transferred one.
#include "contracts/contract_fixture.h"

namespace {

using namespace host;

Record<Type_Contrat> three_rows(bool second_transferred = false) {
  return contract(L"01/01/2025", L"31/12/2025",
                  {{L"01/01/2025", L"31/01/2025"},
                   {L"01/02/2025", L"28/02/25", second_transferred},
                   {L"01/03/2025", L"31/03/2025"}});
}

TEST(ContratDoc, GetLastDatePeriode_WithoutTransferIsTheEndOfTheLastRow) {
  auto record = three_rows(true);
  EXPECT_EQ(L"31/03/2025", Contracts().last_end(record, false, L"15/12/2024"));
}

TEST(ContratDoc, GetLastDatePeriode_WithTransferIsTheEndOfTheLastTransferredRow) {
  auto record = three_rows(true);
  row(record, 0).Transfere = VARIANT_TRUE;
  EXPECT_EQ(L"28/02/25", Contracts().last_end(record, true, L"15/12/2024"));
}

TEST(ContratDoc, GetLastDatePeriode_InvoiceCodeAloneIsNoTransfer) {
  auto record = three_rows(true);
  set(row(record, 2).codeFact, L"FA0001");
  EXPECT_EQ(L"28/02/25", Contracts().last_end(record, true, L""));
}

TEST(ContratDoc, GetLastDatePeriode_WithTransferAndNoneTransferredIsTheDefault) {
  auto record = three_rows();
  EXPECT_EQ(L" 15/12/2024", Contracts().last_end(record, true, L" 15/12/2024"));
}

TEST(ContratDoc, GetLastDatePeriode_WithTransferAndABlankDefaultIsTheContractsStart) {
  auto record = three_rows();
  EXPECT_EQ(L"01/01/2025", Contracts().last_end(record, true, L""));
  EXPECT_EQ(L"01/01/2025", Contracts().last_end(record, true, L"   "));
}

TEST(ContratDoc, GetLastDatePeriode_NullDefaultIsBlank) {
  auto record = three_rows();
  Text result;
  EXPECT_EQ(S_OK, Contracts()->GetLastDatePeriode(record, VARIANT_TRUE, nullptr, &result));
  EXPECT_EQ(L"01/01/2025", result.str());
}

TEST(ContratDoc, GetLastDatePeriode_WithoutScheduleIsTheDefaultOrTheContractsStart) {
  auto record = contract(L"01/01/2025", L"31/12/2025");
  EXPECT_EQ(L"15/12/2024", Contracts().last_end(record, false, L"15/12/2024"));
  EXPECT_EQ(L"01/01/2025", Contracts().last_end(record, false, L""));
  dimension<Type_CadencierFact>(record->TabCadFact, 0);
  EXPECT_EQ(L"01/01/2025", Contracts().last_end(record, false, L""));
}

TEST(ContratDoc, GetLastDatePeriode_RowsEndIsTakenAsItIs) {
  auto record = three_rows();
  set(row(record, 2).DateFin, L"à définir");
  EXPECT_EQ(L"à définir", Contracts().last_end(record, false, L"15/12/2024"));
  set(row(record, 2).DateFin, L"");
  EXPECT_EQ(L"", Contracts().last_end(record, false, L"15/12/2024"));
}

TEST(ContratDoc, GetLastDatePeriode_LeavesTheContractAsItWas) {
  auto record = three_rows(true);
  const auto before = snapshot(*record);
  (void)Contracts().last_end(record, true, L"");
  expect_same(*before, *record);
}

TEST(ContratDoc, GetLastDatePeriode_RowBelowTheLowerBoundIsFault9) {
  auto record = contract(L"01/01/2025", L"31/12/2025");
  dimension_from_one(*record, 2);
  element<Type_CadencierFact>(record->TabCadFact, 0).Transfere = VARIANT_FALSE;
  element<Type_CadencierFact>(record->TabCadFact, 1).Transfere = VARIANT_FALSE;
  set(element<Type_CadencierFact>(record->TabCadFact, 1).DateFin, L"31/03/2025");
  EXPECT_EQ(L"31/03/2025", Contracts().last_end(record, false, L""));
  Text result;
  EXPECT_TRUE(
      is_contract_fault(Contracts()->GetLastDatePeriode(record, VARIANT_TRUE, Text(L""), &result), 9));
}

TEST(ContratDoc, GetLastDatePeriode_ScheduleOfOtherElementsIsFault13) {
  auto record = contract(L"01/01/2025", L"31/12/2025");
  dimension_other_elements(*record);
  Text result;
  EXPECT_TRUE(
      is_contract_fault(Contracts()->GetLastDatePeriode(record, VARIANT_FALSE, Text(L""), &result), 13));
}

TEST(ContratDoc, GetLastDatePeriode_NullContractOrResultIsEPointer) {
  auto record = three_rows();
  Text result;
  EXPECT_EQ(E_POINTER, Contracts()->GetLastDatePeriode(nullptr, VARIANT_FALSE, Text(L""), &result));
  EXPECT_EQ(E_POINTER, Contracts()->GetLastDatePeriode(record, VARIANT_FALSE, Text(L""), nullptr));
}

}  // namespace
