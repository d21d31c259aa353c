// The amount a contract is priced in, and the totals of its schedule: GetMttPivot, GetMttPivotCadFact,
// GetMttCtt.
#include "contracts/contract_fixture.h"

#include <cmath>
#include <limits>

namespace {

using namespace host;

constexpr double kLargest = std::numeric_limits<double>::max();

double total(Record<Type_Contrat>& record, VARIANT* before_tax = nullptr, VARIANT* tax_included = nullptr) {
  double result = -1;
  EXPECT_EQ(S_OK, Contracts()->GetMttCtt(record, before_tax, tax_included, &result));
  return result;
}

double pivot(Record<Type_Contrat>& record) {
  double result = -1;
  EXPECT_EQ(S_OK, Contracts()->GetMttPivot(record, &result));
  return result;
}

double row_pivot(const wchar_t* kind) {
  Record<Type_CadencierFact> line;
  fill(*line);
  set(line->TypeTypTarif, kind);
  line->MontantHT = 90;
  line->MontantTTC = 108;
  const auto before = snapshot(*line);
  double result = -1;
  EXPECT_EQ(S_OK, Contracts()->GetMttPivotCadFact(line, &result));
  EXPECT_EQ(std::vector<std::string>(), differences(*before, *line));
  return result;
}

TEST(ContratDoc, GetMttPivot_BeforeTaxKindIsTheAmountBeforeTax) {
  auto record = priced_contract(L"H");
  EXPECT_EQ(90.0, pivot(record));
}

TEST(ContratDoc, GetMttPivot_AnyOtherKindIsTheAmountWithTax) {
  for (const wchar_t* kind : {L"T", L"D", L"", L"h", L"H ", L" H", L"HT"}) {
    auto record = priced_contract(kind);
    EXPECT_EQ(108.0, pivot(record)) << utf8(kind);
  }
}

TEST(ContratDoc, GetMttPivot_LeavesTheContractAsItWas) {
  auto record = priced_contract(L"H");
  const auto before = snapshot(*record);
  (void)pivot(record);
  expect_same(*before, *record);
}

TEST(ContratDoc, GetMttPivotCadFact_BeforeTaxKindIsTheAmountBeforeTax) { EXPECT_EQ(90.0, row_pivot(L"H")); }

TEST(ContratDoc, GetMttPivotCadFact_AnyOtherKindIsTheAmountWithTax) {
  for (const wchar_t* kind : {L"T", L"D", L"", L"h", L"H "}) EXPECT_EQ(108.0, row_pivot(kind)) << utf8(kind);
}

TEST(ContratDoc, GetMttCtt_WithNeitherVariableIsTheTotalOfThePivotSide) {
  auto record = priced_contract(L"H");
  EXPECT_EQ(100.10 + 200.20, total(record));
  set(record->TypeTypTarif, L"T");
  EXPECT_EQ(120.12 + 240.24, total(record));
}

TEST(ContratDoc, GetMttCtt_AnyKindButBeforeTaxIsTheTotalWithTax) {
  for (const wchar_t* kind : {L"D", L"", L"h", L"H "}) {
    auto record = priced_contract(kind);
    EXPECT_EQ(120.12 + 240.24, total(record)) << utf8(kind);
  }
}

TEST(ContratDoc, GetMttCtt_KindIsTheContractsNotTheRows) {
  auto record = priced_contract(L"H");
  set(row(record, 0).TypeTypTarif, L"T");
  set(row(record, 1).TypeTypTarif, L"D");
  EXPECT_EQ(100.10 + 200.20, total(record));
}

TEST(ContratDoc, GetMttCtt_VariablesReceiveBothTotalsAsDoubles) {
  auto record = priced_contract(L"H");
  Variant before_tax, tax_included = text_value(L"ancien");
  (void)total(record, &before_tax.get(), &tax_included.get());
  EXPECT_EQ(VT_R8, before_tax.get().vt);
  EXPECT_EQ(100.10 + 200.20, before_tax.get().dblVal);
  EXPECT_EQ(VT_R8, tax_included.get().vt);
  EXPECT_EQ(120.12 + 240.24, tax_included.get().dblVal);
}

TEST(ContratDoc, GetMttCtt_MissingVariablesStayMissing) {
  auto record = priced_contract(L"H");
  Variant before_tax = missing(), tax_included;
  (void)total(record, &before_tax.get(), &tax_included.get());
  EXPECT_EQ(VT_ERROR, before_tax.get().vt);
  EXPECT_EQ(120.12 + 240.24, tax_included.get().dblVal);
  before_tax = Variant();
  tax_included = missing();
  (void)total(record, &before_tax.get(), &tax_included.get());
  EXPECT_EQ(100.10 + 200.20, before_tax.get().dblVal);
  EXPECT_EQ(VT_ERROR, tax_included.get().vt);
}

TEST(ContratDoc, GetMttCtt_VariableBehindAReferenceReceivesTheTotal) {
  auto record = priced_contract(L"H");
  Variant variable;
  Variant argument = by_reference(variable.get());
  (void)total(record, &argument.get());
  EXPECT_EQ(VT_R8, variable.get().vt);
  EXPECT_EQ(100.10 + 200.20, variable.get().dblVal);
}

TEST(ContratDoc, GetMttCtt_RowsAreAddedInOrderWithoutRounding) {
  auto record = priced_contract(L"H");
  resize_schedule(*record, 3);
  row(record, 0).MontantHT = 1e16;
  row(record, 1).MontantHT = 1;
  row(record, 2).MontantHT = -1e16;
  EXPECT_EQ(0.0, total(record));  // the 1 is lost in the first sum
  row(record, 0).MontantHT = 0.1;
  row(record, 1).MontantHT = 0.2;
  row(record, 2).MontantHT = 0.0004;
  EXPECT_EQ(0.1 + 0.2 + 0.0004, total(record));
}

TEST(ContratDoc, GetMttCtt_TransferredAndInvoicedRowsCountLikeOthers) {
  auto record = priced_contract(L"H");
  row(record, 0).Transfere = VARIANT_TRUE;
  set(row(record, 1).codeFact, L"FA0001");
  EXPECT_EQ(100.10 + 200.20, total(record));
}

TEST(ContratDoc, GetMttCtt_WithoutScheduleIs0) {
  auto record = contract(L"01/01/2025", L"31/12/2025");
  Variant before_tax, tax_included;
  EXPECT_EQ(0.0, total(record, &before_tax.get(), &tax_included.get()));
  EXPECT_EQ(VT_R8, before_tax.get().vt);
  EXPECT_EQ(0.0, before_tax.get().dblVal);
  EXPECT_EQ(0.0, tax_included.get().dblVal);
  dimension<Type_CadencierFact>(record->TabCadFact, 0);
  EXPECT_EQ(0.0, total(record));
}

TEST(ContratDoc, GetMttCtt_LeavesTheContractAsItWas) {
  auto record = priced_contract(L"H");
  const auto before = snapshot(*record);
  (void)total(record);
  expect_same(*before, *record);
}

TEST(ContratDoc, GetMttCtt_TotalThatIsNotFiniteIsFault6AndWritesNothing) {
  auto record = priced_contract(L"H");
  row(record, 0).MontantTTC = kLargest;
  row(record, 1).MontantTTC = kLargest;
  Variant before_tax, tax_included;
  double result = -1;
  EXPECT_TRUE(
      is_contract_fault(Contracts()->GetMttCtt(record, &before_tax.get(), &tax_included.get(), &result), 6));
  EXPECT_EQ(VT_EMPTY, before_tax.get().vt);
  EXPECT_EQ(VT_EMPTY, tax_included.get().vt);
}

TEST(ContratDoc, GetMttCtt_RowBelowTheLowerBoundIsFault9) {
  auto record = contract(L"01/01/2025", L"31/12/2025");
  dimension_from_one(*record, 2);
  double result = -1;
  EXPECT_TRUE(is_contract_fault(Contracts()->GetMttCtt(record, nullptr, nullptr, &result), 9));
}

TEST(ContratDoc, GetMttCtt_ScheduleOfOtherElementsIsFault13) {
  auto record = contract(L"01/01/2025", L"31/12/2025");
  dimension_other_elements(*record);
  double result = -1;
  EXPECT_TRUE(is_contract_fault(Contracts()->GetMttCtt(record, nullptr, nullptr, &result), 13));
}

TEST(ContratDoc, AmountsOfAContract_NullRecordOrResultIsEPointer) {
  auto record = priced_contract(L"H");
  const Contracts contracts;
  double result = 0;
  EXPECT_EQ(E_POINTER, contracts->GetMttPivot(nullptr, &result));
  EXPECT_EQ(E_POINTER, contracts->GetMttPivot(record, nullptr));
  EXPECT_EQ(E_POINTER, contracts->GetMttPivotCadFact(nullptr, &result));
  EXPECT_EQ(E_POINTER, contracts->GetMttPivotCadFact(&row(record, 0), nullptr));
  EXPECT_EQ(E_POINTER, contracts->GetMttCtt(nullptr, nullptr, nullptr, &result));
  EXPECT_EQ(E_POINTER, contracts->GetMttCtt(record, nullptr, nullptr, nullptr));
}

}  // namespace
