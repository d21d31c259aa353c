// ContratDoc.RazDocCtt: frees the interventions and both schedules, and nothing else.
#include "sites/contract_fixture.h"
#include "support/fake_object.h"
#include "support/filled_record.h"

namespace host {
namespace {

using Changes = std::vector<std::string>;

constexpr char kInterventions[] = "TabInterv: dimensioned / never dimensioned";
constexpr char kSchedule[] = "TabCadInterv: dimensioned / never dimensioned";
constexpr char kBilling[] = "TabCadFact: dimensioned / never dimensioned";

/// A contract with every field filled and every list dimensioned.
class FilledContract : public ContratDocInterventions {
 protected:
  FilledContract() {
    fill(*contract_);
    dimension_filled<Type_Intervention>(contract_->TabInterv);
    dimension_filled<Type_LigneCouverture>(visit(*contract_, 1).Couverture.Liste);
    dimension_filled<Type_CadencierInterv>(contract_->TabCadInterv);
    dimension_filled<Type_CadencierFact>(contract_->TabCadFact);
    dimension_filled<Type_Garantie>(contract_->TabGarant);
    dimension_filled<Type_ElemPR>(contract_->TabElemPR);
    dimension_filled<Type_Technicien>(contract_->Tech);
    deep_copy(velmosav::layout_of<Type_Contrat>(), &*contract_, &*before_);
  }

  template <class T>
  static void dimension_filled(SAFEARRAY*& field) {
    dimension<T>(field, 2);
    for (const unsigned long i : {0UL, 1UL}) fill(element<T>(field, i));
  }

  /// The fields in which the contract differs from what it was.
  [[nodiscard]] Changes changes() const { return differences(*before_, *contract_); }

 private:
  Record<Type_Contrat> before_;
};

TEST_F(FilledContract, RazDocCtt_LeavesTheThreeListsUndimensionedAndAllElseAsItWas) {
  EXPECT_EQ(S_OK, contracts_->RazDocCtt(contract_));
  EXPECT_EQ((Changes{kInterventions, kSchedule, kBilling}), changes());
}

TEST_F(FilledContract, RazDocCtt_MakesTheCountsMinusOne) {
  EXPECT_EQ(S_OK, contracts_->RazDocCtt(contract_));
  short billing_rows = 77;
  EXPECT_EQ(S_OK, contracts_->NbrCadFact(contract_, &billing_rows));
  EXPECT_EQ(-1, value_of(count()));
  EXPECT_EQ(-1, value_of(scheduled_count()));
  EXPECT_EQ(-1, billing_rows);
}

TEST_F(FilledContract, RazDocCtt_LockedInterventions_AreFault10AndNothingIsReleased) {
  ASSERT_EQ(S_OK, SafeArrayLock(contract_->TabInterv));
  EXPECT_TRUE(is_fault(contracts_->RazDocCtt(contract_), 10, L"ContratDoc"));
  ASSERT_EQ(S_OK, SafeArrayUnlock(contract_->TabInterv));
  EXPECT_EQ(Changes{}, changes());
}

TEST_F(FilledContract, RazDocCtt_LockedBillingSchedule_IsFault10AfterTheOthersAreReleased) {
  ASSERT_EQ(S_OK, SafeArrayLock(contract_->TabCadFact));
  EXPECT_TRUE(is_fault(contracts_->RazDocCtt(contract_), 10, L"ContratDoc"));
  ASSERT_EQ(S_OK, SafeArrayUnlock(contract_->TabCadFact));
  EXPECT_EQ((Changes{kInterventions, kSchedule}), changes());
}

TEST_F(FilledContract, RazDocCtt_InterventionsOfElementsOfAnotherSize_AreFault13AndNothingIsReleased) {
  contract_->TabInterv->cbElements += 4;
  EXPECT_TRUE(is_fault(contracts_->RazDocCtt(contract_), 13, L"ContratDoc"));
  contract_->TabInterv->cbElements -= 4;
  EXPECT_EQ(Changes{}, changes());
}

TEST_F(ContratDocInterventions, RazDocCtt_ListsThatWereNeverDimensioned_StaySo) {
  fill(*contract_);
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

TEST_F(ContratDocInterventions, RazDocCtt_BillingScheduleWithRecordInformation_IsReleased) {
  set(contract_->DateDeb, L"01/01/2025");
  set(contract_->DateFin, L"31/12/2025");
  short index = 3;
  short added = -99;
  ASSERT_EQ(S_OK,
            contracts_->AjouterCadFactCtt(contract_, Text(), Text(), Text(L"31/12/2025"), &index, &added));
  ASSERT_EQ(3, added);
  EXPECT_EQ(S_OK, contracts_->RazDocCtt(contract_));
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
