// IsEchCttTransferee: whether billing rows are invoiced or work orders issued, and what its arguments become.
#include "contracts/contract_fixture.h"

namespace {

using namespace host;

/// Two billing rows that are not invoiced, three scheduled interventions (numbers 0, 1 and 2) without work
/// order.
Record<Type_Contrat> free_contract() {
  auto record = contract(L"01/01/2025", L"31/12/2025",
                         {{L"01/01/2025", L"30/06/2025"}, {L"01/07/2025", L"31/12/2025"}});
  dimension<Type_CadencierInterv>(record->TabCadInterv, 3);
  for (unsigned long i = 0; i < 3; ++i) {
    auto& line = element<Type_CadencierInterv>(record->TabCadInterv, i);
    fill(line);
    line.NumInterv = static_cast<short>(i);
    set(line.CodeBon, L"");
  }
  return record;
}

Type_CadencierInterv& planned(Record<Type_Contrat>& record, unsigned long index) {
  return element<Type_CadencierInterv>(record->TabCadInterv, index);
}

/// A billing row is invoiced, and intervention 1 has a work order.
Record<Type_Contrat> invoiced_contract() {
  auto record = free_contract();
  set(row(record, 1).codeFact, L"FA0001");
  return record;
}
Record<Type_Contrat> contract_with_order() {
  auto record = free_contract();
  set(planned(record, 1).CodeBon, L"BT0001");
  return record;
}

bool asked_of_billing(Record<Type_Contrat>& record) {
  Variant yes(true), no(false);
  return Contracts().is_committed(record, &yes.get(), &no.get());
}
bool asked_of_interventions(Record<Type_Contrat>& record, Variant number = missing()) {
  Variant yes(true), no(false);
  return Contracts().is_committed(record, &no.get(), &yes.get(), &number.get());
}

TEST(ContratDoc, IsEchCttTransferee_NothingInvoicedAndNoOrderIsNot) {
  auto record = free_contract();
  EXPECT_FALSE(Contracts().is_committed(record));
}

TEST(ContratDoc, IsEchCttTransferee_InvoicedRowIs) {
  auto record = invoiced_contract();
  EXPECT_TRUE(Contracts().is_committed(record));
  EXPECT_TRUE(asked_of_billing(record));
}

TEST(ContratDoc, IsEchCttTransferee_TransferredRowIs) {
  auto record = free_contract();
  row(record, 0).Transfere = VARIANT_TRUE;
  EXPECT_TRUE(asked_of_billing(record));
}

TEST(ContratDoc, IsEchCttTransferee_BlankInvoiceCodeIsNot) {
  auto record = free_contract();
  set(row(record, 0).codeFact, L"  ");
  EXPECT_FALSE(asked_of_billing(record));
}

TEST(ContratDoc, IsEchCttTransferee_InvoicedRowIsNotLookedAtWithoutFlagFact) {
  auto record = invoiced_contract();
  EXPECT_FALSE(asked_of_interventions(record));
}

TEST(ContratDoc, IsEchCttTransferee_WorkOrderIs) {
  auto record = contract_with_order();
  EXPECT_TRUE(Contracts().is_committed(record));
  EXPECT_TRUE(asked_of_interventions(record));
}

TEST(ContratDoc, IsEchCttTransferee_WorkOrderIsNotLookedAtWithoutFlagInt) {
  auto record = contract_with_order();
  EXPECT_FALSE(asked_of_billing(record));
}

TEST(ContratDoc, IsEchCttTransferee_BlankWorkOrderIsNot) {
  auto record = free_contract();
  set(planned(record, 1).CodeBon, L"   ");
  EXPECT_FALSE(asked_of_interventions(record));
}

TEST(ContratDoc, IsEchCttTransferee_NeitherFlagIsNot) {
  auto record = contract_with_order();
  row(record, 0).Transfere = VARIANT_TRUE;
  Variant no(false), none(false);
  EXPECT_FALSE(Contracts().is_committed(record, &no.get(), &none.get()));
}

TEST(ContratDoc, IsEchCttTransferee_NumberOfTheInterventionWithAnOrderIs) {
  auto record = contract_with_order();
  EXPECT_TRUE(asked_of_interventions(record, Variant(1L)));
}

TEST(ContratDoc, IsEchCttTransferee_NumberOfAnotherInterventionIsNot) {
  auto record = contract_with_order();
  EXPECT_FALSE(asked_of_interventions(record, Variant(2L)));
  EXPECT_FALSE(asked_of_interventions(record, Variant(-2L)));
}

TEST(ContratDoc, IsEchCttTransferee_NumberIsTheRowsNumberNotItsIndex) {
  auto record = contract_with_order();
  planned(record, 1).NumInterv = 7;
  EXPECT_FALSE(asked_of_interventions(record, Variant(1L)));
  EXPECT_TRUE(asked_of_interventions(record, Variant(7L)));
}

TEST(ContratDoc, IsEchCttTransferee_NumberMinus1MeansAny) {
  auto record = contract_with_order();
  EXPECT_TRUE(asked_of_interventions(record, Variant(-1L)));
}

TEST(ContratDoc, IsEchCttTransferee_NumberMayBeAText) {
  auto record = contract_with_order();
  EXPECT_TRUE(asked_of_interventions(record, text_value(L"1")));
  EXPECT_FALSE(asked_of_interventions(record, text_value(L"2")));
}

TEST(ContratDoc, IsEchCttTransferee_OnlyAsManyRowsAsAreCountedAreLookedAt) {
  auto record = free_contract();
  set(planned(record, 0).CodeSite, L"");
  set(planned(record, 0).Libelle, L"");
  set(planned(record, 2).CodeBon, L"BT0001");  // one blank row: rows 0 and 1 are walked
  EXPECT_FALSE(asked_of_interventions(record));
  set(planned(record, 1).CodeBon, L"BT0002");
  EXPECT_TRUE(asked_of_interventions(record));
}

TEST(ContratDoc, IsEchCttTransferee_WithoutSchedulesIsNot) {
  auto record = contract(L"01/01/2025", L"31/12/2025");
  velmosav::erase<Type_CadencierInterv>(record->TabCadInterv);
  EXPECT_FALSE(Contracts().is_committed(record));
}

TEST(ContratDoc, IsEchCttTransferee_LeavesTheContractAsItWas) {
  auto record = contract_with_order();
  const auto before = snapshot(*record);
  (void)Contracts().is_committed(record);
  expect_same(*before, *record);
}

TEST(ContratDoc, IsEchCttTransferee_MissingFlagsCountAsTrueAndAreWrittenBack) {
  auto record = free_contract();
  Variant billing = missing(), interventions = missing();
  EXPECT_FALSE(Contracts().is_committed(record, &billing.get(), &interventions.get()));
  EXPECT_EQ(VT_BOOL, billing.get().vt);
  EXPECT_EQ(VARIANT_TRUE, billing.get().boolVal);
  EXPECT_EQ(VT_BOOL, interventions.get().vt);
  EXPECT_EQ(VARIANT_TRUE, interventions.get().boolVal);
}

TEST(ContratDoc, IsEchCttTransferee_MissingFlagsMakeBothSidesCount) {
  auto invoiced = invoiced_contract();
  auto ordered = contract_with_order();
  Variant no(false), left_out = missing();
  EXPECT_TRUE(Contracts().is_committed(invoiced, &left_out.get(), &no.get()));
  left_out = missing();
  EXPECT_TRUE(Contracts().is_committed(ordered, &no.get(), &left_out.get()));
}

TEST(ContratDoc, IsEchCttTransferee_FlagsAreConvertedAndWrittenBackAsBooleans) {
  auto record = free_contract();
  Variant billing(2.5), interventions = text_value(L"0");
  EXPECT_FALSE(Contracts().is_committed(record, &billing.get(), &interventions.get()));
  EXPECT_EQ(VT_BOOL, billing.get().vt);
  EXPECT_EQ(VARIANT_TRUE, billing.get().boolVal);
  EXPECT_EQ(VT_BOOL, interventions.get().vt);
  EXPECT_EQ(VARIANT_FALSE, interventions.get().boolVal);
}

TEST(ContratDoc, IsEchCttTransferee_EmptyFlagIsPassedAndFalse) {
  auto record = invoiced_contract();
  Variant billing, interventions;
  EXPECT_FALSE(Contracts().is_committed(record, &billing.get(), &interventions.get()));
  EXPECT_EQ(VT_BOOL, billing.get().vt);
  EXPECT_EQ(VARIANT_FALSE, billing.get().boolVal);
}

TEST(ContratDoc, IsEchCttTransferee_FlagIntIsWrittenBackBeforeTheBillingAnswers) {
  auto record = invoiced_contract();
  Variant billing(true), interventions(3L);
  EXPECT_TRUE(Contracts().is_committed(record, &billing.get(), &interventions.get()));
  EXPECT_EQ(VT_BOOL, interventions.get().vt);
  EXPECT_EQ(VARIANT_TRUE, interventions.get().boolVal);
}

TEST(ContratDoc, IsEchCttTransferee_MissingNumberBecomesMinus1As16Bits) {
  auto record = free_contract();
  Variant no(false), yes(true), number = missing();
  EXPECT_FALSE(Contracts().is_committed(record, &no.get(), &yes.get(), &number.get()));
  EXPECT_EQ(VT_I2, number.get().vt);
  EXPECT_EQ(-1, number.get().iVal);
}

TEST(ContratDoc, IsEchCttTransferee_PassedNumberIsWrittenBackAsADouble) {
  auto record = free_contract();
  for (Variant& number : arguments(Variant(short{2}), Variant(2L), text_value(L"2"), Variant(2.0))) {
    Variant no(false), yes(true);
    EXPECT_FALSE(Contracts().is_committed(record, &no.get(), &yes.get(), &number.get()));
    EXPECT_EQ(VT_R8, number.get().vt);
    EXPECT_EQ(2.0, number.get().dblVal);
  }
}

TEST(ContratDoc, IsEchCttTransferee_EmptyNumberIsPassedAndZero) {
  auto record = contract_with_order();
  EXPECT_FALSE(asked_of_interventions(record, Variant()));
  planned(record, 1).NumInterv = 0;
  EXPECT_TRUE(asked_of_interventions(record, Variant()));
}

TEST(ContratDoc, IsEchCttTransferee_NumberIsNotTouchedWhereTheBillingAnswers) {
  auto record = invoiced_contract();
  Variant billing(true), interventions(true), number = text_value(L"1");
  EXPECT_TRUE(Contracts().is_committed(record, &billing.get(), &interventions.get(), &number.get()));
  EXPECT_EQ(VT_BSTR, number.get().vt);
}

TEST(ContratDoc, IsEchCttTransferee_NumberIsNotTouchedWithoutFlagInt) {
  auto record = contract_with_order();
  Variant billing(true), no(false), number = text_value(L"1");
  EXPECT_FALSE(Contracts().is_committed(record, &billing.get(), &no.get(), &number.get()));
  EXPECT_EQ(VT_BSTR, number.get().vt);
}

TEST(ContratDoc, IsEchCttTransferee_VariablesBehindAReferenceAreWrittenBack) {
  auto record = free_contract();
  Variant billing_variable(0L), interventions_variable(1L), number_variable(1L);
  Variant billing = by_reference(billing_variable.get());
  Variant interventions = by_reference(interventions_variable.get());
  Variant number = by_reference(number_variable.get());
  EXPECT_FALSE(Contracts().is_committed(record, &billing.get(), &interventions.get(), &number.get()));
  EXPECT_EQ(VT_BOOL, billing_variable.get().vt);
  EXPECT_EQ(VARIANT_FALSE, billing_variable.get().boolVal);
  EXPECT_EQ(VT_BOOL, interventions_variable.get().vt);
  EXPECT_EQ(VT_R8, number_variable.get().vt);
  EXPECT_EQ(VT_BYREF | VT_VARIANT, number.get().vt);
}

HRESULT ask(Record<Type_Contrat>& record, VARIANT& billing, VARIANT& interventions, VARIANT& number) {
  VARIANT_BOOL result = VARIANT_FALSE;
  return Contracts()->IsEchCttTransferee(record, &billing, &interventions, &number, &result);
}

TEST(ContratDoc, IsEchCttTransferee_FlagThatIsNoBooleanIsFault13) {
  auto record = free_contract();
  Variant billing = text_value(L"peut-être"), interventions(true), number(1L);
  EXPECT_TRUE(is_contract_fault(ask(record, billing.get(), interventions.get(), number.get()), 13));
  EXPECT_EQ(VT_BSTR, billing.get().vt);
}

TEST(ContratDoc, IsEchCttTransferee_NullFlagIsFault94) {
  auto record = free_contract();
  Variant billing(true), interventions = null_value(), number(1L);
  EXPECT_TRUE(is_contract_fault(ask(record, billing.get(), interventions.get(), number.get()), 94));
}

TEST(ContratDoc, IsEchCttTransferee_FaultOfFlagIntLeavesFlagFactConverted) {
  auto record = invoiced_contract();
  Variant billing(1L), interventions = text_value(L"peut-être"), number(1L);
  EXPECT_TRUE(is_contract_fault(ask(record, billing.get(), interventions.get(), number.get()), 13));
  EXPECT_EQ(VT_BOOL, billing.get().vt);
}

TEST(ContratDoc, IsEchCttTransferee_NumberThatIsNoneIsFault13) {
  auto record = free_contract();
  Variant billing(true), interventions(true), number = text_value(L"deux");
  EXPECT_TRUE(is_contract_fault(ask(record, billing.get(), interventions.get(), number.get()), 13));
  EXPECT_EQ(VT_BSTR, number.get().vt);
  EXPECT_EQ(VT_BOOL, interventions.get().vt);
}

TEST(ContratDoc, IsEchCttTransferee_BillingRowBelowTheLowerBoundIsFault9) {
  auto record = free_contract();
  dimension_from_one(*record, 2);
  Variant billing(true), interventions(true), number(1L);
  EXPECT_TRUE(is_contract_fault(ask(record, billing.get(), interventions.get(), number.get()), 9));
}

TEST(ContratDoc, IsEchCttTransferee_BillingRowsAreNotReadWithoutFlagFact) {
  auto record = free_contract();
  dimension_from_one(*record, 2);
  EXPECT_FALSE(asked_of_interventions(record));
}

TEST(ContratDoc, IsEchCttTransferee_NullContractOrResultIsEPointer) {
  auto record = free_contract();
  VARIANT_BOOL result = VARIANT_FALSE;
  EXPECT_EQ(E_POINTER, Contracts()->IsEchCttTransferee(nullptr, nullptr, nullptr, nullptr, &result));
  EXPECT_EQ(E_POINTER, Contracts()->IsEchCttTransferee(record, nullptr, nullptr, nullptr, nullptr));
}

}  // namespace
