// ContratDoc.RazDocCtt: lists inside the interventions whose elements are other records than those expected.
#include <cstring>

#include "sites/contract_fixture.h"
#include "support/fake_object.h"

namespace host {
namespace {

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

TEST_F(ContratDocInterventions, RazDocCtt_ListsOfOtherRecordsInside_AreReleasedWithWhatTheyHold) {
  const auto object = FakeObject::make();
  set_visits(*contract_, {{}, {}});
  auto& intervention = visit(*contract_, 1);
  intervention.Couverture.Liste = array_of_work_orders(object.get());
  intervention.TabRes = array_of_work_orders(object.get());
  ASSERT_EQ(5, object->references());
  ASSERT_EQ(S_OK, contracts_->RazDocCtt(contract_));
  EXPECT_EQ(1, object->references());
  EXPECT_EQ(nullptr, contract_->TabInterv);
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

class ForeignListInside : public ContratDocInterventions {
 protected:
  void expect_elements_left_alone(ForeignRecord& description);
};

void ForeignListInside::expect_elements_left_alone(ForeignRecord& description) {
  set_visits(*contract_, {{}, {}});
  auto& list = visit(*contract_, 1).Couverture.Liste;
  ASSERT_EQ(S_OK, SafeArrayAllocDescriptorEx(VT_RECORD, 1, &list));
  list->cbElements = sizeof(Type_LigneCouverture);
  list->rgsabound[0] = {2, 0};
  ASSERT_EQ(S_OK, SafeArraySetRecordInfo(list, &description));
  ASSERT_EQ(S_OK, SafeArrayAllocData(list));
  // Nothing in it is an address.
  std::memset(list->pvData, 0x5A, 2 * sizeof(Type_LigneCouverture));
  ASSERT_EQ(S_OK, contracts_->RazDocCtt(contract_));
  EXPECT_EQ(nullptr, contract_->TabInterv);
  EXPECT_EQ(0U, description.references);
}

TEST_F(ForeignListInside, OfUnknownRecords_IsReleasedByRazDocCttAndItsElementsAreLeftAlone) {
  ForeignRecord description;
  expect_elements_left_alone(description);
}

TEST_F(ForeignListInside, OfRecordsThatDoNotSayWhich_IsReleasedByRazDocCttAndItsElementsAreLeftAlone) {
  ForeignRecord description;
  description.identifies = false;
  expect_elements_left_alone(description);
}

}  // namespace
}  // namespace host
