// ContratDoc.AjouterCadFactCtt: the index of the row and the row that is written.
#include "schedule/schedule_fixture.h"

namespace {

using host::row;
using host::rows_of;
using host::Text;

class AddBillingRow : public host::ScheduleTest {
 protected:
  /// Adds a row; the test fails when the call does.
  short add_row(Type_Contrat& contract, short* index, const wchar_t* end = L"30/06/2025") {
    short result = 9999;
    EXPECT_EQ(S_OK, add(contract, index, result, end));
    return result;
  }
  void expect_fault(int fault, Type_Contrat& contract, short* index, const wchar_t* end = L"30/06/2025") {
    short result = 0;
    EXPECT_TRUE(is_contract_fault(add(contract, index, result, end), fault));
  }

  host::Record<Type_Contrat> contract_ = host::sample_contract(host::four_months());
};

/// What a row written at `index` of `contract` must be, in an element that holds `former`.
void write_expected(const Type_Contrat& contract, Type_CadencierFact& line, short index) {
  velmosav::clear(line);
  velmosav::copy(contract.RepartTva, line.RepartTva);
  host::set(line.CodeContrat, L"CTT-7");
  line.NumEch = index;
  host::set(line.Libelle,
            std::to_wstring(index + 1) + (index ? L"ème" : L"ère") + L" échéance de facturation");
  host::set(line.DateDeb, index ? L"01/06/2025" : L"01/01/2025");
  host::set(line.DateFin, L"30/06/2025");
  host::set(line.DateFact, L"15/06/2025");
  host::set(line.Vendeur, L"REP-2");
  host::set(line.TypeTypTarif, L"H");
  line.CodeTva = 4;
  line.NumAuto = -1;
}

TEST_F(AddBillingRow, WithoutIndexAppends) {
  EXPECT_EQ(4, add_row(*contract_, nullptr));
  EXPECT_EQ(5, rows_of(contract_->TabCadFact));
}

TEST_F(AddBillingRow, IndexMinus1AppendsAndReceivesTheIndex) {
  short index = -1;
  EXPECT_EQ(4, add_row(*contract_, &index));
  EXPECT_EQ(4, index);
  EXPECT_EQ(5, rows_of(contract_->TabCadFact));
}

TEST_F(AddBillingRow, AppendedRowIsFilledAndTheRestOfTheRecordStays) {
  auto expected = host::sample_contract();
  auto periods = host::four_months();
  periods.push_back({});
  host::set_periods(*expected, periods);
  write_expected(*contract_, row(*expected, 4), 4);
  add_row(*contract_, nullptr);
  EXPECT_EQ(host::kNone, host::differences(*expected, *contract_));
}

TEST_F(AddBillingRow, RowWrittenOverAnotherKeepsNothingOfIt) {
  Type_CadencierFact& former = row(*contract_, 3);
  former.MontantHTPrev = 1;
  former.MontantTTCPrev = 2;
  former.Transfere = former.Force = former.ForceTVA = VARIANT_TRUE;
  host::set(former.codeFact, L"FA-1");
  auto expected = host::snapshot(*contract_);
  write_expected(*contract_, row(*expected, 3), 3);
  short index = 3;
  EXPECT_EQ(3, add_row(*contract_, &index));
  EXPECT_EQ(3, index);
  EXPECT_EQ(host::kNone, host::differences(*expected, *contract_));
}

TEST_F(AddBillingRow, Index0TakesTheContractsStartNotTheArgument) {
  auto expected = host::sample_contract({{}});
  write_expected(*contract_, row(*expected, 0), 0);
  short index = 0;
  EXPECT_EQ(0, add_row(*contract_, &index));
  EXPECT_EQ(host::kNone, host::differences(*expected, *contract_));
}

TEST_F(AddBillingRow, Index0TakesTheContractsStartAsWritten) {
  host::set(contract_->DateDeb, L"début");
  short index = 0;
  add_row(*contract_, &index);
  EXPECT_EQ(L"début", host::get(row(*contract_, 0).DateDeb));
}

TEST_F(AddBillingRow, Index2OfFiveRowsLeavesThreeRows) {
  add_row(*contract_, nullptr);
  ASSERT_EQ(5, rows_of(contract_->TabCadFact));
  short index = 2;
  EXPECT_EQ(2, add_row(*contract_, &index));
  EXPECT_EQ(3, rows_of(contract_->TabCadFact));
  EXPECT_EQ(L"libellé 1", host::get(row(*contract_, 1).Libelle));
  EXPECT_EQ(L"3ème échéance de facturation", host::get(row(*contract_, 2).Libelle));
}

TEST_F(AddBillingRow, IndexBeyondTheScheduleLeavesBlankRowsBetween) {
  short index = 6;
  EXPECT_EQ(6, add_row(*contract_, &index));
  ASSERT_EQ(7, rows_of(contract_->TabCadFact));
  const host::Record<Type_CadencierFact> blank;
  EXPECT_EQ(host::kNone, host::differences(*blank, row(*contract_, 4)));
  EXPECT_EQ(host::kNone, host::differences(*blank, row(*contract_, 5)));
}

TEST_F(AddBillingRow, NegativeIndexReturnsMinus1AndChangesNothing) {
  const auto before = host::snapshot(*contract_);
  short index = -2;
  EXPECT_EQ(-1, add_row(*contract_, &index));
  EXPECT_EQ(-2, index);
  EXPECT_EQ(host::kNone, host::differences(*before, *contract_));
}

TEST_F(AddBillingRow, NegativeIndexReadsNoDate) {
  host::set(contract_->DateFin, L"");
  short index = -5;
  EXPECT_EQ(-1, add_row(*contract_, &index, L"juin"));
}

TEST_F(AddBillingRow, AppendedToAScheduleNeverDimensionedIsRefused) {
  auto contract = host::sample_contract();
  const auto before = host::snapshot(*contract);
  short index = -1;
  EXPECT_EQ(-1, add_row(*contract, &index));
  EXPECT_EQ(-1, index);
  EXPECT_EQ(host::kNone, host::differences(*before, *contract));
}

TEST_F(AddBillingRow, Index0OfAScheduleNeverDimensionedMakesItWithRecordInformation) {
  auto contract = host::sample_contract();
  short index = 0;
  EXPECT_EQ(0, add_row(*contract, &index));
  ASSERT_EQ(1, rows_of(contract->TabCadFact));
  EXPECT_EQ(0, contract->TabCadFact->rgsabound[0].lLbound);
  EXPECT_NE(0, contract->TabCadFact->fFeatures & FADF_RECORD);
  host::ComPtr<IRecordInfo> info;
  ASSERT_EQ(S_OK, SafeArrayGetRecordInfo(contract->TabCadFact, info.receive()));
  GUID id{};
  EXPECT_EQ(S_OK, info->GetGuid(&id));
  EXPECT_TRUE(IsEqualGUID(velmosav::layout_of<Type_CadencierFact>().id, id));
}

TEST_F(AddBillingRow, AppendedToAScheduleOfNoElementIsRow0) {
  auto contract = host::sample_contract();
  host::dimension<Type_CadencierFact>(contract->TabCadFact, 0);
  EXPECT_EQ(0, add_row(*contract, nullptr));
  EXPECT_EQ(L"1ère échéance de facturation", host::get(row(*contract, 0).Libelle));
}

TEST_F(AddBillingRow, EndPastTheContractsEndIsItsEndAsWritten) {
  add_row(*contract_, nullptr, L"01/01/26");
  EXPECT_EQ(L"31/12/2025", host::get(row(*contract_, 4).DateFin));
}

TEST_F(AddBillingRow, EndOnTheContractsEndIsTheArgumentAsWritten) {
  add_row(*contract_, nullptr, L"31/12/25");
  EXPECT_EQ(L"31/12/25", host::get(row(*contract_, 4).DateFin));
}

TEST_F(AddBillingRow, LabelsAreMadeOfTheInstancesMembers) {
  Text definition(L"terme"), first(L"er"), other(L"e");
  ASSERT_EQ(S_OK, contracts_->put_PC_EchFact_LibDef(definition));
  ASSERT_EQ(S_OK, contracts_->put_PC_EchFact_PrefEnumUn(first));
  ASSERT_EQ(S_OK, contracts_->put_PC_EchFact_PrefEnum(other));
  add_row(*contract_, nullptr);
  EXPECT_EQ(L"5e terme", host::get(row(*contract_, 4).Libelle));
  short index = 0;
  add_row(*contract_, &index);
  EXPECT_EQ(L"1er terme", host::get(row(*contract_, 0).Libelle));
}

TEST_F(AddBillingRow, MembersOfAnotherInstanceAreNotUsed) {
  const auto other = host::create<_ContratDoc>(L"ContratDoc");
  Text definition(L"terme");
  ASSERT_EQ(S_OK, other->put_PC_EchFact_LibDef(definition));
  add_row(*contract_, nullptr);
  EXPECT_EQ(L"5ème échéance de facturation", host::get(row(*contract_, 4).Libelle));
}

TEST_F(AddBillingRow, TextsOfTheVatDistributionAreTheRowsOwn) {
  add_row(*contract_, nullptr);
  const Type_RepartTVA& source = contract_->RepartTva;
  const Type_RepartTVA& copy = row(*contract_, 4).RepartTva;
  EXPECT_NE(source.Lignes[4].Compte, copy.Lignes[4].Compte);
  EXPECT_NE(source.FormatTVA, copy.FormatTVA);
  host::set(contract_->RepartTva.Lignes[4].Compte, L"changed");
  host::set(contract_->RepartTva.FormatTVA, L"changed");
  EXPECT_EQ(L"445714", host::get(copy.Lignes[4].Compte));
  EXPECT_EQ(L"fmt", host::get(copy.FormatTVA));
}

TEST_F(AddBillingRow, TextsCopiedFromTheContractAreTheRowsOwn) {
  add_row(*contract_, nullptr);
  EXPECT_NE(contract_->Code, row(*contract_, 4).CodeContrat);
  EXPECT_NE(contract_->Vendeur, row(*contract_, 4).Vendeur);
  EXPECT_NE(contract_->TypeTypTarif, row(*contract_, 4).TypeTypTarif);
}

TEST_F(AddBillingRow, BlankContractEndIsFault13) {
  host::set(contract_->DateFin, L"");
  expect_fault(13, *contract_, nullptr);
}

TEST_F(AddBillingRow, EndThatIsNoDateIsFault13) { expect_fault(13, *contract_, nullptr, L"juin"); }

TEST_F(AddBillingRow, LockedScheduleIsFault10AndChangesNothing) {
  const auto before = host::snapshot(*contract_);
  ASSERT_EQ(S_OK, SafeArrayLock(contract_->TabCadFact));
  expect_fault(10, *contract_, nullptr);
  ASSERT_EQ(S_OK, SafeArrayUnlock(contract_->TabCadFact));
  EXPECT_EQ(host::kNone, host::differences(*before, *contract_));
}

TEST_F(AddBillingRow, LowerBound1IsFault9AndChangesNothing) {
  host::dimension<Type_CadencierFact>(contract_->TabCadFact, 2, 1);
  const auto before = host::snapshot(*contract_);
  expect_fault(9, *contract_, nullptr);
  EXPECT_EQ(host::kNone, host::differences(*before, *contract_));
}

TEST_F(AddBillingRow, ScheduleOfOtherElementsIsFault13) {
  host::dimension<Type_CadencierFact>(contract_->TabCadFact, 0);
  contract_->TabCadFact->cbElements -= 4;
  expect_fault(13, *contract_, nullptr);
  EXPECT_EQ(0, rows_of(contract_->TabCadFact));
  contract_->TabCadFact->cbElements += 4;
}

TEST_F(AddBillingRow, NullRecordOrResultIsEPointer) {
  Text date(L"01/06/2025");
  short index = -1;
  short result = 0;
  const auto before = host::snapshot(*contract_);
  EXPECT_EQ(E_POINTER, contracts_->AjouterCadFactCtt(nullptr, date, date, date, &index, &result));
  EXPECT_EQ(E_POINTER, contracts_->AjouterCadFactCtt(contract_, date, date, date, &index, nullptr));
  EXPECT_EQ(host::kNone, host::differences(*before, *contract_));
}

}  // namespace
