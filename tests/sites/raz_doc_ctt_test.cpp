// ContratDoc.RazDocCtt: frees the interventions and both schedules, and nothing else.
#include "sites/contract_fixture.h"
#include "support/fake_object.h"

namespace host {
namespace {

using Changes = std::vector<std::string>;

TEST_F(ContratDocInterventions, RazDocCtt_LeavesTheThreeListsUndimensionedAndAllElseAsItWas) {
  set(contract_->Code, L"CTT-7");
  set(contract_->DateDeb, L"01/01/2025");
  set(contract_->Adr.NomSite, L"Siège");
  contract_->MontantHT = 125.5;
  contract_->Preavis.Duree = 3;
  set_visits(*contract_, {{.site = L"A", .label = L"Visite"}, {}});
  set_schedule(*contract_, {{.site = L"A"}});
  dimension<Type_CadencierFact>(contract_->TabCadFact, 2);
  dimension<Type_Garantie>(contract_->TabGarant, 2);
  dimension<Type_ElemPR>(contract_->TabElemPR, 2);
  dimension<Type_Technicien>(contract_->Tech, 2);
  const auto before = snapshot(*contract_);
  EXPECT_EQ(S_OK, contracts_->RazDocCtt(contract_));
  EXPECT_EQ(
      (Changes{"TabInterv: dimensioned / never dimensioned", "TabCadInterv: dimensioned / never dimensioned",
               "TabCadFact: dimensioned / never dimensioned"}),
      differences(*before, *contract_));
}

TEST_F(ContratDocInterventions, RazDocCtt_MakesTheCountsMinusOne) {
  set_visits(*contract_, {{}});
  set_schedule(*contract_, {{.site = L"A"}});
  dimension<Type_CadencierFact>(contract_->TabCadFact, 1);
  EXPECT_EQ(S_OK, contracts_->RazDocCtt(contract_));
  short billing_rows = 77;
  EXPECT_EQ(S_OK, contracts_->NbrCadFact(contract_, &billing_rows));
  EXPECT_EQ(-1, value_of(count()));
  EXPECT_EQ(-1, value_of(scheduled_count()));
  EXPECT_EQ(-1, billing_rows);
}

TEST_F(ContratDocInterventions, RazDocCtt_ListsThatWereNeverDimensioned_StaySo) {
  const auto before = snapshot(*contract_);
  EXPECT_EQ(S_OK, contracts_->RazDocCtt(contract_));
  EXPECT_EQ(Changes{}, differences(*before, *contract_));
}

TEST_F(ContratDocInterventions, RazDocCtt_ListsOfNoElement_BecomeUndimensioned) {
  set_visits(*contract_, {});
  set_schedule(*contract_, {});
  dimension<Type_CadencierFact>(contract_->TabCadFact, 0);
  EXPECT_EQ(S_OK, contracts_->RazDocCtt(contract_));
  EXPECT_EQ(nullptr, contract_->TabInterv);
  EXPECT_EQ(nullptr, contract_->TabCadInterv);
  EXPECT_EQ(nullptr, contract_->TabCadFact);
}

TEST_F(ContratDocInterventions, RazDocCtt_ReleasesTheEquipmentOfTheInterventions) {
  const auto equipment = FakeObject::make();
  set_visits(*contract_, {{}});
  SAFEARRAY* items = SafeArrayCreateVector(VT_DISPATCH, 0, 1);
  element<IDispatch*>(items, 0) = ComPtr<IDispatch>::copy(equipment.get()).detach();
  visit(*contract_, 0).TabAppareil = items;
  ASSERT_EQ(2, equipment->references());
  EXPECT_EQ(S_OK, contracts_->RazDocCtt(contract_));
  EXPECT_EQ(1, equipment->references());
}

}  // namespace
}  // namespace host
