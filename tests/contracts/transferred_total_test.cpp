// GetMttEchTransf: the total of the transferred rows, in Currency.
#include "contracts/contract_fixture.h"

#include <limits>

namespace {

using namespace host;

/// Three rows of 100.10, 200.20 and 400.40 before tax, 120.12, 240.24 and 480.48 with it; the first two are
/// transferred.
Record<Type_Contrat> transferred(const wchar_t* kind) {
  auto record = contract(L"01/01/2025", L"31/12/2025",
                         {{L"01/01/2025", L"30/04/2025", true},
                          {L"01/05/2025", L"31/08/2025", true},
                          {L"01/09/2025", L"31/12/2025"}});
  set(record->TypeTypTarif, kind);
  double factor = 1;
  for (unsigned long i = 0; i < 3; ++i, factor *= 2) {
    row(record, i).MontantHT = 100.10 * factor;
    row(record, i).MontantTTC = 120.12 * factor;
  }
  return record;
}

/// In ten-thousandths.
long long total(Record<Type_Contrat>& record, const Variant& kind = missing()) {
  CY result;
  result.int64 = -1;
  EXPECT_EQ(S_OK, Contracts()->GetMttEchTransf(record, kind.get(), &result));
  return result.int64;
}

HRESULT try_total(Record<Type_Contrat>& record, const Variant& kind = missing()) {
  CY result;
  return Contracts()->GetMttEchTransf(record, kind.get(), &result);
}

TEST(ContratDoc, GetMttEchTransf_BeforeTaxKindAddsTheAmountsBeforeTax) {
  auto record = transferred(L"T");
  EXPECT_EQ(3003000, total(record, text_value(L"H")));
}

TEST(ContratDoc, GetMttEchTransf_TaxIncludedKindAddsTheAmountsWithTax) {
  auto record = transferred(L"H");
  EXPECT_EQ(3603600, total(record, text_value(L"T")));
}

TEST(ContratDoc, GetMttEchTransf_MissingKindIsTheContracts) {
  auto before_tax = transferred(L"H");
  auto with_tax = transferred(L"T");
  EXPECT_EQ(3003000, total(before_tax));
  EXPECT_EQ(3603600, total(with_tax));
}

TEST(ContratDoc, GetMttEchTransf_PassedKindIsTrimmed) {
  auto record = transferred(L"T");
  EXPECT_EQ(3003000, total(record, text_value(L"  H ")));
}

TEST(ContratDoc, GetMttEchTransf_ContractsKindIsNotTrimmed) {
  auto record = transferred(L" H ");
  EXPECT_EQ(0, total(record));
}

TEST(ContratDoc, GetMttEchTransf_UnknownKindIs0) {
  auto record = transferred(L"H");
  for (const wchar_t* kind : {L"D", L"h", L"t", L"HT", L"", L"  "}) {
    EXPECT_EQ(0, total(record, text_value(kind))) << utf8(kind);
  }
  set(record->TypeTypTarif, L"D");
  EXPECT_EQ(0, total(record));
}

TEST(ContratDoc, GetMttEchTransf_EmptyKindIsPassedAndUnknown) {
  auto record = transferred(L"H");
  EXPECT_EQ(0, total(record, Variant()));
}

TEST(ContratDoc, GetMttEchTransf_KindMayStandBehindAReference) {
  auto record = transferred(L"T");
  Variant variable = text_value(L" H");
  EXPECT_EQ(3003000, total(record, by_reference(variable.get())));
}

TEST(ContratDoc, GetMttEchTransf_KindIsTheSameForEveryRowWhateverTheirs) {
  auto record = transferred(L"H");
  set(row(record, 0).TypeTypTarif, L"T");
  EXPECT_EQ(3003000, total(record));
}

TEST(ContratDoc, GetMttEchTransf_InvoiceCodeAloneDoesNotCount) {
  auto record = transferred(L"H");
  set(row(record, 2).codeFact, L"FA0001");
  EXPECT_EQ(3003000, total(record));
}

TEST(ContratDoc, GetMttEchTransf_EachRowIsRoundedToFourDecimalsBeforeItIsAdded) {
  auto record = transferred(L"H");
  row(record, 0).MontantHT = 0.00004;
  row(record, 1).MontantHT = 0.00004;
  EXPECT_EQ(0, total(record));
  row(record, 0).MontantHT = 0.00006;
  row(record, 1).MontantHT = 0.00006;
  EXPECT_EQ(2, total(record));
}

TEST(ContratDoc, GetMttEchTransf_HalvesGoToTheEvenTenThousandth) {
  auto record = transferred(L"H");
  row(record, 0).MontantHT = 0.03125;  // 312.5 ten-thousandths, exactly
  row(record, 1).MontantHT = 0;
  EXPECT_EQ(312, total(record));
  row(record, 0).MontantHT = 0.09375;  // 937.5
  EXPECT_EQ(938, total(record));
}

TEST(ContratDoc, GetMttEchTransf_NegativeAmountsAreSubtracted) {
  auto record = transferred(L"H");
  row(record, 1).MontantHT = -300.3;
  EXPECT_EQ(-2002000, total(record));
}

TEST(ContratDoc, GetMttEchTransf_WithoutScheduleIs0) {
  auto record = contract(L"01/01/2025", L"31/12/2025");
  EXPECT_EQ(0, total(record, text_value(L"H")));
}

TEST(ContratDoc, GetMttEchTransf_LeavesTheContractAsItWas) {
  auto record = transferred(L"H");
  const auto before = snapshot(*record);
  (void)total(record);
  expect_same(*before, *record);
}

TEST(ContratDoc, GetMttEchTransf_AmountBeyondCurrencyIsFault6) {
  auto record = transferred(L"H");
  row(record, 1).MontantHT = 1e15;
  EXPECT_TRUE(is_contract_fault(try_total(record), 6));
}

TEST(ContratDoc, GetMttEchTransf_TotalBeyondCurrencyIsFault6) {
  auto record = transferred(L"H");
  row(record, 0).MontantHT = 9e14;
  row(record, 1).MontantHT = 9e14;
  EXPECT_TRUE(is_contract_fault(try_total(record), 6));
}

TEST(ContratDoc, GetMttEchTransf_AmountThatIsNotFiniteIsFault6) {
  for (const double amount :
       {std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN()}) {
    auto record = transferred(L"H");
    row(record, 0).MontantHT = amount;
    EXPECT_TRUE(is_contract_fault(try_total(record), 6)) << amount;
  }
}

TEST(ContratDoc, GetMttEchTransf_RowThatIsNotTransferredIsNotConverted) {
  auto record = transferred(L"H");
  row(record, 2).MontantHT = 1e300;
  EXPECT_EQ(3003000, total(record));
}

TEST(ContratDoc, GetMttEchTransf_NullKindIsFault94) {
  auto record = transferred(L"H");
  EXPECT_TRUE(is_contract_fault(try_total(record, null_value()), 94));
}

TEST(ContratDoc, GetMttEchTransf_RowBelowTheLowerBoundIsFault9) {
  auto record = contract(L"01/01/2025", L"31/12/2025");
  dimension_from_one(*record, 2);
  EXPECT_TRUE(is_contract_fault(try_total(record, text_value(L"H")), 9));
}

TEST(ContratDoc, GetMttEchTransf_ScheduleOfOtherElementsIsFault13) {
  auto record = contract(L"01/01/2025", L"31/12/2025");
  dimension_other_elements(*record);
  EXPECT_TRUE(is_contract_fault(try_total(record, text_value(L"T")), 13));
}

TEST(ContratDoc, GetMttEchTransf_NullContractOrResultIsEPointer) {
  auto record = transferred(L"H");
  CY result;
  EXPECT_EQ(E_POINTER, Contracts()->GetMttEchTransf(nullptr, missing().get(), &result));
  EXPECT_EQ(E_POINTER, Contracts()->GetMttEchTransf(record, missing().get(), nullptr));
}

}  // namespace
