// RazDocCtt: the lists of a contract are released, nothing else is touched.
#include "contracts/contract_fixture.h"

namespace {

using namespace host;

Record<Type_Contrat> filled() {
  auto record = contract(L"01/01/2025", L"31/12/2025",
                         {{L"01/01/2025", L"30/06/2025"}, {L"01/07/2025", L"31/12/2025"}});
  Type_Intervention& intervention = element<Type_Intervention>(record->TabInterv, 1);
  dimension<Type_LigneCouverture>(intervention.Couverture.Liste, 2);
  fill(element<Type_LigneCouverture>(intervention.Couverture.Liste, 1));
  return record;
}

void release_lists(Type_Contrat& record) {
  velmosav::erase<Type_Intervention>(record.TabInterv);
  velmosav::erase<Type_CadencierInterv>(record.TabCadInterv);
  velmosav::erase<Type_CadencierFact>(record.TabCadFact);
}

TEST(ContratDoc, RazDocCtt_ReleasesTheThreeListsAndNothingElse) {
  auto record = filled();
  auto expected = snapshot(*record);
  release_lists(*expected);
  EXPECT_EQ(S_OK, Contracts()->RazDocCtt(record));
  expect_same(*expected, *record);
}

TEST(ContratDoc, RazDocCtt_CountsOfReleasedListsAreMinus1) {
  auto record = filled();
  const Contracts contracts;
  ASSERT_EQ(S_OK, contracts->RazDocCtt(record));
  EXPECT_EQ(-1, contracts.answer(&_ContratDoc::NbrInterv, record));
  EXPECT_EQ(-1, contracts.answer(&_ContratDoc::NbrCadInterv, record));
  EXPECT_EQ(-1, contracts.answer(&_ContratDoc::NbrCadFact, record));
}

TEST(ContratDoc, RazDocCtt_ListsNeverDimensionedStaySo) {
  auto record = filled();
  release_lists(*record);
  const auto before = snapshot(*record);
  EXPECT_EQ(S_OK, Contracts()->RazDocCtt(record));
  expect_same(*before, *record);
}

TEST(ContratDoc, RazDocCtt_ListsOfNoRowAreReleased) {
  auto record = filled();
  dimension<Type_CadencierFact>(record->TabCadFact, 0);
  ASSERT_EQ(S_OK, Contracts()->RazDocCtt(record));
  EXPECT_EQ(nullptr, record->TabCadFact);
}

TEST(ContratDoc, RazDocCtt_ScheduleWithRecordInformationIsReleased) {
  auto record = contract(L"01/01/2025", L"31/12/2025");
  const Contracts contracts;
  short index = 3;
  ASSERT_EQ(3, contracts.add(record, L"", L"", L"31/12/2025", &index));
  ASSERT_EQ(S_OK, contracts->RazDocCtt(record));
  EXPECT_EQ(nullptr, record->TabCadFact);
}

TEST(ContratDoc, RazDocCtt_LockedInterventionsAreFault10AndNothingIsReleased) {
  auto record = filled();
  const auto before = snapshot(*record);
  ASSERT_EQ(S_OK, SafeArrayLock(record->TabInterv));
  EXPECT_TRUE(is_contract_fault(Contracts()->RazDocCtt(record), 10));
  ASSERT_EQ(S_OK, SafeArrayUnlock(record->TabInterv));
  expect_same(*before, *record);
}

TEST(ContratDoc, RazDocCtt_LockedBillingScheduleIsFault10AfterTheOthersAreReleased) {
  auto record = filled();
  auto expected = snapshot(*record);
  velmosav::erase<Type_Intervention>(expected->TabInterv);
  velmosav::erase<Type_CadencierInterv>(expected->TabCadInterv);
  ASSERT_EQ(S_OK, SafeArrayLock(record->TabCadFact));
  EXPECT_TRUE(is_contract_fault(Contracts()->RazDocCtt(record), 10));
  ASSERT_EQ(S_OK, SafeArrayUnlock(record->TabCadFact));
  expect_same(*expected, *record);
}

TEST(ContratDoc, RazDocCtt_InterventionsOfElementsOfAnotherSizeAreFault13AndNothingIsReleased) {
  auto record = filled();
  const auto before = snapshot(*record);
  record->TabInterv->cbElements += 4;
  EXPECT_TRUE(is_contract_fault(Contracts()->RazDocCtt(record), 13));
  record->TabInterv->cbElements -= 4;
  expect_same(*before, *record);
}

TEST(ContratDoc, RazDocCtt_NullContractIsEPointer) { EXPECT_EQ(E_POINTER, Contracts()->RazDocCtt(nullptr)); }

}  // namespace
