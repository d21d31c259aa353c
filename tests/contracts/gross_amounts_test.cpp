// CalculSommeMtt and CalculMttBrut: net amounts from the schedule, gross amounts from the net ones.
#include "contracts/contract_fixture.h"

#include <limits>

namespace {

using namespace host;

constexpr double kLargest = std::numeric_limits<double>::max();

/// Without a discount.
Record<Type_Contrat> priced(const wchar_t* kind) {
  auto record = priced_contract(kind);
  record->Remise = 0;
  return record;
}

TEST(ContratDoc, CalculSommeMtt_BeforeTaxKindTotalsThatSideAndLeavesTheOther) {
  auto record = priced(L"H");
  auto expected = snapshot(*record);
  expected->MontantHT = 100.10 + 200.20;
  expected->MontantHTBrut = 300.3;
  expected->MontantTTCBrut = 108;
  EXPECT_EQ(S_OK, Contracts()->CalculSommeMtt(record, 2));
  expect_same(*expected, *record);
}

TEST(ContratDoc, CalculSommeMtt_TotalIsNotRounded) {
  auto record = priced(L"H");
  row(record, 0).MontantHT = 0.1;
  row(record, 1).MontantHT = 0.2;
  EXPECT_EQ(S_OK, Contracts()->CalculSommeMtt(record, 2));
  EXPECT_EQ(0.1 + 0.2, record->MontantHT);
  EXPECT_NE(0.3, record->MontantHT);
  EXPECT_EQ(0.3, record->MontantHTBrut);
}

TEST(ContratDoc, CalculSommeMtt_AnyOtherKindTotalsTheSideWithTaxAndLeavesTheOther) {
  for (const wchar_t* kind : {L"T", L"D", L"", L"h"}) {
    auto record = priced(kind);
    auto expected = snapshot(*record);
    expected->MontantTTC = 120.12 + 240.24;
    expected->MontantTTCBrut = 360.36;
    expected->MontantHTBrut = 90;
    EXPECT_EQ(S_OK, Contracts()->CalculSommeMtt(record, 2));
    expect_same(*expected, *record);
  }
}

TEST(ContratDoc, CalculSommeMtt_GrossAmountsTakeTheDiscountIntoAccount) {
  auto record = priced(L"H");
  record->Remise = 10;
  EXPECT_EQ(S_OK, Contracts()->CalculSommeMtt(record, 2));
  EXPECT_EQ(333.67, record->MontantHTBrut);
  EXPECT_EQ(120.0, record->MontantTTCBrut);
}

TEST(ContratDoc, CalculSommeMtt_NumberOfDecimalsIsTheGrossAmounts) {
  auto record = priced(L"H");
  record->Remise = 10;
  EXPECT_EQ(S_OK, Contracts()->CalculSommeMtt(record, 0));
  EXPECT_EQ(100.10 + 200.20, record->MontantHT);
  EXPECT_EQ(334.0, record->MontantHTBrut);
}

TEST(ContratDoc, CalculSommeMtt_WithoutScheduleTotals0) {
  auto record = contract(L"01/01/2025", L"31/12/2025");
  set(record->TypeTypTarif, L"H");
  record->Remise = 10;
  record->MontantHT = 90;
  record->MontantTTC = 108;
  auto expected = snapshot(*record);
  expected->MontantHT = 0;
  expected->MontantHTBrut = 0;
  expected->MontantTTCBrut = 120;
  EXPECT_EQ(S_OK, Contracts()->CalculSommeMtt(record, 2));
  expect_same(*expected, *record);
}

TEST(ContratDoc, CalculSommeMtt_FaultOfTheScheduleLeavesTheContract) {
  auto record = priced(L"H");
  row(record, 0).MontantHT = kLargest;
  row(record, 1).MontantHT = kLargest;
  const auto before = snapshot(*record);
  EXPECT_TRUE(is_contract_fault(Contracts()->CalculSommeMtt(record, 2), 6));
  expect_same(*before, *record);
}

TEST(ContratDoc, CalculSommeMtt_RowBelowTheLowerBoundIsFault9) {
  auto record = contract(L"01/01/2025", L"31/12/2025");
  dimension_from_one(*record, 2);
  EXPECT_TRUE(is_contract_fault(Contracts()->CalculSommeMtt(record, 2), 9));
}

TEST(ContratDoc, CalculSommeMtt_DiscountOf100IsFault11AndLeavesTheNewNetAmount) {
  auto record = priced(L"H");
  record->Remise = 100;
  auto expected = snapshot(*record);
  expected->MontantHT = 100.10 + 200.20;
  EXPECT_TRUE(is_contract_fault(Contracts()->CalculSommeMtt(record, 2), 11));
  expect_same(*expected, *record);
}

TEST(ContratDoc, CalculSommeMtt_NumberOfDecimalsOutsideAByteIsFault6) {
  for (const short decimals : {short{-1}, short{256}}) {
    auto record = priced(L"H");
    auto expected = snapshot(*record);
    expected->MontantHT = 100.10 + 200.20;
    EXPECT_TRUE(is_contract_fault(Contracts()->CalculSommeMtt(record, decimals), 6)) << decimals;
    expect_same(*expected, *record);
  }
}

TEST(ContratDoc, CalculMttBrut_IsTheNetAmountBeforeTheDiscount) {
  auto record = priced(L"H");
  record->Remise = 10;
  auto expected = snapshot(*record);
  expected->MontantHTBrut = 100;
  expected->MontantTTCBrut = 120;
  EXPECT_EQ(S_OK, Contracts()->CalculMttBrut(record, 2));
  expect_same(*expected, *record);
}

TEST(ContratDoc, CalculMttBrut_WithoutDiscountIsTheNetAmountRounded) {
  auto record = priced(L"H");
  record->MontantHT = 12.3456;
  record->MontantTTC = 14.8147;
  auto expected = snapshot(*record);
  expected->MontantHTBrut = 12.35;
  expected->MontantTTCBrut = 14.81;
  EXPECT_EQ(S_OK, Contracts()->CalculMttBrut(record, 2));
  expect_same(*expected, *record);
}

TEST(ContratDoc, CalculMttBrut_RoundsToTheNumberOfDecimals) {
  auto record = priced(L"H");
  record->MontantHT = 12.3456;
  record->MontantTTC = 14.8147;
  EXPECT_EQ(S_OK, Contracts()->CalculMttBrut(record, 0));
  EXPECT_EQ(12.0, record->MontantHTBrut);
  EXPECT_EQ(15.0, record->MontantTTCBrut);
  EXPECT_EQ(S_OK, Contracts()->CalculMttBrut(record, 3));
  EXPECT_EQ(12.346, record->MontantHTBrut);
  EXPECT_EQ(14.815, record->MontantTTCBrut);
}

TEST(ContratDoc, CalculMttBrut_SidesAreIndependent) {
  auto record = priced(L"H");
  record->Remise = 20;
  record->MontantHT = 0;
  EXPECT_EQ(S_OK, Contracts()->CalculMttBrut(record, 2));
  EXPECT_EQ(0.0, record->MontantHTBrut);
  EXPECT_EQ(135.0, record->MontantTTCBrut);
}

TEST(ContratDoc, CalculMttBrut_NegativeDiscountLowersTheGrossAmount) {
  auto record = priced(L"H");
  record->Remise = -20;
  EXPECT_EQ(S_OK, Contracts()->CalculMttBrut(record, 2));
  EXPECT_EQ(75.0, record->MontantHTBrut);
}

TEST(ContratDoc, CalculMttBrut_DoesNotReadTheSchedule) {
  auto record = priced(L"H");
  dimension_other_elements(*record);
  EXPECT_EQ(S_OK, Contracts()->CalculMttBrut(record, 2));
  EXPECT_EQ(90.0, record->MontantHTBrut);
}

TEST(ContratDoc, CalculMttBrut_DiscountOf100IsFault11AndChangesNothing) {
  auto record = priced(L"H");
  record->Remise = 100;
  const auto before = snapshot(*record);
  EXPECT_TRUE(is_contract_fault(Contracts()->CalculMttBrut(record, 2), 11));
  expect_same(*before, *record);
}

TEST(ContratDoc, CalculMttBrut_NoAmountUnderADiscountOf100IsFault6) {
  auto record = priced(L"H");
  record->Remise = 100;
  record->MontantTTC = 0;
  EXPECT_TRUE(is_contract_fault(Contracts()->CalculMttBrut(record, 2), 6));
}

TEST(ContratDoc, CalculMttBrut_FaultOfTheSideBeforeTaxLeavesTheOtherWritten) {
  auto record = priced(L"H");
  record->Remise = 90;
  record->MontantHT = kLargest;
  auto expected = snapshot(*record);
  expected->MontantTTCBrut = 1080;
  EXPECT_TRUE(is_contract_fault(Contracts()->CalculMttBrut(record, 2), 6));
  expect_same(*expected, *record);
}

TEST(ContratDoc, CalculMttBrut_NumberOfDecimalsOutsideAByteIsFault6AndChangesNothing) {
  for (const short decimals : {short{-1}, short{256}}) {
    auto record = priced(L"H");
    const auto before = snapshot(*record);
    EXPECT_TRUE(is_contract_fault(Contracts()->CalculMttBrut(record, decimals), 6)) << decimals;
    expect_same(*before, *record);
  }
}

TEST(ContratDoc, GrossAmounts_NullContractIsEPointer) {
  EXPECT_EQ(E_POINTER, Contracts()->CalculSommeMtt(nullptr, 2));
  EXPECT_EQ(E_POINTER, Contracts()->CalculMttBrut(nullptr, 2));
}

}  // namespace
