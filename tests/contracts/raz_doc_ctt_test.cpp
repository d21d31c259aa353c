// RazDocCtt: the lists of a contract are released, nothing else is touched.
#include <cstring>

#include "contracts/contract_fixture.h"
#include "support/fake_object.h"

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

/// An array that says itself that it holds a work order, which has the object in two places.
SAFEARRAY* array_of_work_orders(IDispatch* object) {
  const auto info = record_info<Type_Bon>();
  SAFEARRAYBOUND bound{1, 0};
  SAFEARRAY* const array = SafeArrayCreateEx(VT_RECORD, 1, &bound, info.get());
  auto& order = element<Type_Bon>(array, 0);
  set(order.Code, L"BI1");
  order.oTVADoc = ComPtr<IDispatch>::copy(object).detach();
  order.Adr.RubSup = SafeArrayCreateVector(VT_VARIANT, 0, 1);
  element<VARIANT>(order.Adr.RubSup, 0) = object_value(object).detach();
  return array;
}

TEST(ContratDoc, RazDocCtt_ListsOfOtherRecordsInsideAreReleasedWithWhatTheyHold) {
  auto record = filled();
  const auto object = FakeObject::make();
  auto& intervention = element<Type_Intervention>(record->TabInterv, 1);
  velmosav::erase<Type_LigneCouverture>(intervention.Couverture.Liste);
  intervention.Couverture.Liste = array_of_work_orders(object.get());
  ASSERT_EQ(nullptr, intervention.TabRes);
  intervention.TabRes = array_of_work_orders(object.get());
  ASSERT_EQ(5, object->references());
  ASSERT_EQ(S_OK, Contracts()->RazDocCtt(record));
  EXPECT_EQ(1, object->references());
  EXPECT_EQ(nullptr, record->TabInterv);
}

/// The description of a record that is none of the library's.
class ForeignRecord final : public IRecordInfo {
 public:
  virtual ~ForeignRecord() = default;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
    *object = iid == IID_IUnknown || iid == IID_IRecordInfo ? this : nullptr;
    if (!*object) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
  ULONG STDMETHODCALLTYPE Release() override { return --references; }
  HRESULT STDMETHODCALLTYPE GetGuid(GUID* id) override {
    *id = IID_IRecordInfo;
    return identifies ? S_OK : E_FAIL;
  }
  HRESULT STDMETHODCALLTYPE GetSize(ULONG* size) override {
    *size = sizeof(Type_LigneCouverture);
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE RecordInit(void*) override { return unexpected(); }
  HRESULT STDMETHODCALLTYPE RecordClear(void*) override { return unexpected(); }
  HRESULT STDMETHODCALLTYPE RecordCopy(void*, void*) override { return unexpected(); }
  HRESULT STDMETHODCALLTYPE GetName(BSTR*) override { return unexpected(); }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(ITypeInfo**) override { return unexpected(); }
  HRESULT STDMETHODCALLTYPE GetField(void*, const OLECHAR*, VARIANT*) override { return unexpected(); }
  HRESULT STDMETHODCALLTYPE GetFieldNoCopy(void*, const OLECHAR*, VARIANT*, void**) override {
    return unexpected();
  }
  HRESULT STDMETHODCALLTYPE PutField(ULONG, void*, const OLECHAR*, VARIANT*) override { return unexpected(); }
  HRESULT STDMETHODCALLTYPE PutFieldNoCopy(ULONG, void*, const OLECHAR*, VARIANT*) override {
    return unexpected();
  }
  HRESULT STDMETHODCALLTYPE GetFieldNames(ULONG*, BSTR*) override { return unexpected(); }
  WINBOOL STDMETHODCALLTYPE IsMatchingType(IRecordInfo*) override { return FALSE; }
  void* STDMETHODCALLTYPE RecordCreate() override { return nullptr; }
  HRESULT STDMETHODCALLTYPE RecordCreateCopy(void*, void**) override { return unexpected(); }
  HRESULT STDMETHODCALLTYPE RecordDestroy(void*) override { return unexpected(); }

  bool identifies = true;
  ULONG references = 0;

 private:
  static HRESULT unexpected() {
    ADD_FAILURE() << "a record that nobody knows was touched";
    return E_NOTIMPL;
  }
};

void expect_elements_left_alone(ForeignRecord& description) {
  auto record = filled();
  auto& list = element<Type_Intervention>(record->TabInterv, 1).Couverture.Liste;
  velmosav::erase<Type_LigneCouverture>(list);
  ASSERT_EQ(S_OK, SafeArrayAllocDescriptorEx(VT_RECORD, 1, &list));
  list->cbElements = sizeof(Type_LigneCouverture);
  list->rgsabound[0] = {2, 0};
  ASSERT_EQ(S_OK, SafeArraySetRecordInfo(list, &description));
  ASSERT_EQ(S_OK, SafeArrayAllocData(list));
  // Nothing in it is an address.
  std::memset(list->pvData, 0x5A, 2 * sizeof(Type_LigneCouverture));
  ASSERT_EQ(S_OK, Contracts()->RazDocCtt(record));
  EXPECT_EQ(nullptr, record->TabInterv);
  EXPECT_EQ(0U, description.references);
}

TEST(ContratDoc, RazDocCtt_ListOfUnknownRecordsInsideIsReleasedAndItsElementsAreLeftAlone) {
  ForeignRecord description;
  expect_elements_left_alone(description);
}

TEST(ContratDoc, RazDocCtt_ListOfRecordsThatDoNotSayWhichInsideIsReleasedAndItsElementsAreLeftAlone) {
  ForeignRecord description;
  description.identifies = false;
  expect_elements_left_alone(description);
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
