// Counts and flags over the billing schedule: NbrCadFact, NbrCadFactFacture, NbrEchP, IsEchCttForcee.
#include "contracts/contract_fixture.h"

namespace {

using namespace host;

Record<Type_Contrat> three_rows() {
  return contract(
      L"01/01/2025", L"31/12/2025",
      {{L"01/01/2025", L"31/01/2025"}, {L"01/02/2025", L"28/02/2025"}, {L"01/03/2025", L"31/03/2025"}});
}

short count(Contracts::Question question, Record<Type_Contrat>& record) {
  return Contracts().answer(question, record);
}

constexpr Contracts::Question kRows = &_ContratDoc::NbrCadFact;
constexpr Contracts::Question kInvoiced = &_ContratDoc::NbrCadFactFacture;
constexpr Contracts::Question kTechnicians = &_ContratDoc::NbrEchP;
constexpr Contracts::Question kForced = &_ContratDoc::IsEchCttForcee;

TEST(ContratDoc, NbrCadFact_IsTheNumberOfRows) {
  auto record = three_rows();
  EXPECT_EQ(3, count(kRows, record));
}

TEST(ContratDoc, NbrCadFact_ScheduleNeverDimensionedIsMinus1) {
  auto record = contract(L"01/01/2025", L"31/12/2025");
  EXPECT_EQ(-1, count(kRows, record));
}

TEST(ContratDoc, NbrCadFact_EmptiedButDimensionedScheduleIsItsDimensionedSize) {
  auto record = three_rows();
  for (unsigned long i = 0; i < 3; ++i) velmosav::clear(row(record, i));
  EXPECT_EQ(3, count(kRows, record));
}

TEST(ContratDoc, NbrCadFact_ScheduleOfNoRowIs0) {
  auto record = contract(L"01/01/2025", L"31/12/2025");
  dimension<Type_CadencierFact>(record->TabCadFact, 0);
  EXPECT_EQ(0, count(kRows, record));
}

TEST(ContratDoc, NbrCadFact_OtherLowerBoundIsTheUpperBoundAndOne) {
  auto record = contract(L"01/01/2025", L"31/12/2025");
  dimension_from_one(*record, 2);
  EXPECT_EQ(3, count(kRows, record));
}

TEST(ContratDoc, NbrCadFact_ScheduleOfTwoDimensionsCountsTheFirst) {
  auto record = contract(L"01/01/2025", L"31/12/2025");
  dimension_two_dimensions(*record);
  EXPECT_EQ(3, count(kRows, record));
}

TEST(ContratDoc, NbrCadFact_LockedScheduleIsCounted) {
  auto record = three_rows();
  ASSERT_EQ(S_OK, SafeArrayLock(record->TabCadFact));
  EXPECT_EQ(3, count(kRows, record));
  ASSERT_EQ(S_OK, SafeArrayUnlock(record->TabCadFact));
}

TEST(ContratDoc, NbrEchP_IsTheNumberOfTechnicians) {
  auto record = three_rows();
  EXPECT_EQ(2, count(kTechnicians, record));
}

TEST(ContratDoc, NbrEchP_ArrayNeverDimensionedIsMinus1) {
  auto record = three_rows();
  velmosav::erase<Type_Technicien>(record->Tech);
  EXPECT_EQ(-1, count(kTechnicians, record));
}

TEST(ContratDoc, NbrEchP_ArrayOfNoEntryIs0) {
  auto record = three_rows();
  dimension<Type_Technicien>(record->Tech, 0);
  EXPECT_EQ(0, count(kTechnicians, record));
}

TEST(ContratDoc, NbrCadFactFacture_RowWithAnInvoiceCodeCounts) {
  auto record = three_rows();
  set(row(record, 1).codeFact, L"FA0001");
  EXPECT_EQ(1, count(kInvoiced, record));
}

TEST(ContratDoc, NbrCadFactFacture_TransferredRowCounts) {
  auto record = three_rows();
  row(record, 2).Transfere = VARIANT_TRUE;
  EXPECT_EQ(1, count(kInvoiced, record));
}

TEST(ContratDoc, NbrCadFactFacture_RowThatIsBothCountsOnce) {
  auto record = three_rows();
  set(row(record, 0).codeFact, L"FA0001");
  row(record, 0).Transfere = VARIANT_TRUE;
  set(row(record, 2).codeFact, L"FA0002");
  EXPECT_EQ(2, count(kInvoiced, record));
}

TEST(ContratDoc, NbrCadFactFacture_BlankInvoiceCodeDoesNotCount) {
  auto record = three_rows();
  set(row(record, 0).codeFact, L"   ");
  EXPECT_EQ(0, count(kInvoiced, record));
}

TEST(ContratDoc, NbrCadFactFacture_WithoutScheduleIs0) {
  auto record = contract(L"01/01/2025", L"31/12/2025");
  EXPECT_EQ(0, count(kInvoiced, record));
  dimension<Type_CadencierFact>(record->TabCadFact, 0);
  EXPECT_EQ(0, count(kInvoiced, record));
}

TEST(ContratDoc, IsEchCttForcee_ScheduleWithoutForcedRowIsNot) {
  auto record = three_rows();  // the VAT of its rows is forced, their amounts are not
  EXPECT_EQ(VARIANT_FALSE, count(kForced, record));
}

TEST(ContratDoc, IsEchCttForcee_OneForcedRowIsEnough) {
  for (unsigned long forced = 0; forced < 3; ++forced) {
    auto record = three_rows();
    row(record, forced).Force = VARIANT_TRUE;
    EXPECT_EQ(VARIANT_TRUE, count(kForced, record)) << forced;
  }
}

TEST(ContratDoc, IsEchCttForcee_WithoutScheduleIsNot) {
  auto record = contract(L"01/01/2025", L"31/12/2025");
  EXPECT_EQ(VARIANT_FALSE, count(kForced, record));
}

TEST(ContratDoc, CountsAndFlags_LeaveTheContractAsItWas) {
  auto record = three_rows();
  const auto before = snapshot(*record);
  for (const auto question : {kRows, kInvoiced, kTechnicians, kForced}) {
    (void)count(question, record);
  }
  expect_same(*before, *record);
}

TEST(ContratDoc, CountsAndFlags_RowBelowTheLowerBoundIsFault9) {
  auto record = contract(L"01/01/2025", L"31/12/2025");
  dimension_from_one(*record, 2);
  short result = 0;
  EXPECT_TRUE(is_contract_fault(Contracts()->NbrCadFactFacture(record, &result), 9));
  EXPECT_TRUE(is_contract_fault(Contracts()->IsEchCttForcee(record, &result), 9));
}

TEST(ContratDoc, CountsAndFlags_ScheduleOfTwoDimensionsIsFault9) {
  auto record = contract(L"01/01/2025", L"31/12/2025");
  dimension_two_dimensions(*record);
  short result = 0;
  EXPECT_TRUE(is_contract_fault(Contracts()->NbrCadFactFacture(record, &result), 9));
  EXPECT_TRUE(is_contract_fault(Contracts()->IsEchCttForcee(record, &result), 9));
}

TEST(ContratDoc, CountsAndFlags_ScheduleOfOtherElementsIsFault13) {
  auto record = contract(L"01/01/2025", L"31/12/2025");
  dimension_other_elements(*record);
  short result = 0;
  EXPECT_TRUE(is_contract_fault(Contracts()->NbrCadFactFacture(record, &result), 13));
  EXPECT_TRUE(is_contract_fault(Contracts()->IsEchCttForcee(record, &result), 13));
}

TEST(ContratDoc, CountsAndFlags_NullContractOrResultIsEPointer) {
  auto record = three_rows();
  const Contracts contracts;
  short result = 0;
  for (const auto question : {kRows, kInvoiced, kTechnicians, kForced}) {
    EXPECT_EQ(E_POINTER, (contracts.operator->()->*question)(nullptr, &result));
    EXPECT_EQ(E_POINTER, (contracts.operator->()->*question)(record, nullptr));
  }
}

TEST(ContratDoc, NbrCadFactFacture_MoreThan16BitsHoldIsOverflow) {
  auto record = contract(L"01/01/2025", L"31/12/2025");
  constexpr unsigned long kRowsInvoiced = 32768;
  dimension<Type_CadencierFact>(record->TabCadFact, kRowsInvoiced);
  for (unsigned long i = 0; i < kRowsInvoiced; ++i) row(record, i).Transfere = VARIANT_TRUE;
  short result = 77;
  EXPECT_TRUE(is_contract_fault(Contracts()->NbrCadFactFacture(record, &result), 6));
  row(record, 5).Transfere = VARIANT_FALSE;
  EXPECT_EQ(32767, count(kInvoiced, record));
}

}  // namespace
