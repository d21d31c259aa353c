// Every class as COM sees it: creation by ProgID, identity, reference count, error support.
#include <map>

#include "frame/library.h"
#include "frame/members.h"
#include "support/type_library.h"

namespace {

using host::catalogue;
using host::CatalogueEntry;
using host::ComPtr;

// {6D0A5C35-5B3B-4D2A-9C26-2E0C0B9A7F11}: an interface of nobody.
constexpr GUID kUnknown = {0x6D0A5C35, 0x5B3B, 0x4D2A, {0x9C, 0x26, 0x2E, 0x0C, 0x0B, 0x9A, 0x7F, 0x11}};

class EachClass : public ::testing::TestWithParam<CatalogueEntry> {
 protected:
  void SetUp() override {
    object_ = host::create_dispatch(GetParam().name);
    ASSERT_TRUE(object_);
  }

  template <class Interface>
  static ComPtr<Interface> queried(IUnknown* object, REFIID iid) {
    ComPtr<Interface> result;
    EXPECT_EQ(S_OK, object->QueryInterface(iid, result.receive_void()));
    return result;
  }

  ComPtr<IDispatch> object_;
};

/// The tests of this program run over the catalogue: a class that it lacks would go untested.
TEST(Catalogue, HoldsEveryClassOfTheTypeLibrary_AndTellsWhichPublishNothing) {
  std::map<std::wstring, bool> published, listed;
  for (const auto& info : contract::every_type()) {
    if (contract::attributes_of(info)->typekind != TKIND_COCLASS) continue;
    const std::wstring name = contract::name_of(info);
    const auto face = contract::dispatch_face(name);
    published.emplace(name, host::members_of(contract::attributes_of(face)->guid).empty());
  }
  for (const CatalogueEntry& entry : catalogue()) listed.emplace(entry.name, entry.empty);
  EXPECT_EQ(31u, published.size());
  EXPECT_EQ(published, listed);
}

TEST(Catalogue, ProgIdOfNoClass_IsUnknown) {
  CLSID clsid;
  EXPECT_EQ(CO_E_CLASSSTRING, CLSIDFromProgID(L"VelmoSAV_DLL14.Inconnue", &clsid));
}

TEST_P(EachClass, ProgId_NamesTheClass) {
  CLSID clsid;
  ASSERT_EQ(S_OK, CLSIDFromProgID((std::wstring(L"VelmoSAV_DLL14.") + GetParam().name).c_str(), &clsid));
  EXPECT_TRUE(IsEqualCLSID(GetParam().clsid, clsid));
}

TEST_P(EachClass, Release_LastReference_AnswersZero) { EXPECT_EQ(0u, object_.detach()->Release()); }

TEST_P(EachClass, AddRef_CountsUp) {
  EXPECT_EQ(2u, object_->AddRef());
  EXPECT_EQ(3u, object_->AddRef());
  EXPECT_EQ(2u, object_->Release());
  EXPECT_EQ(1u, object_->Release());
}

TEST_P(EachClass, QueryInterface_TakesOneReference) {
  IUnknown* unknown = nullptr;
  ASSERT_EQ(S_OK, object_->QueryInterface(IID_IUnknown, reinterpret_cast<void**>(&unknown)));
  EXPECT_EQ(1u, unknown->Release());
}

TEST_P(EachClass, QueryInterface_ErrorSupport_SharesTheReferenceCount) {
  ISupportErrorInfo* support = nullptr;
  ASSERT_EQ(S_OK, object_->QueryInterface(IID_ISupportErrorInfo, reinterpret_cast<void**>(&support)));
  EXPECT_EQ(1u, support->Release());
}

TEST_P(EachClass, QueryInterface_UnknownFromEveryInterface_IsTheSame) {
  const auto expected = queried<IUnknown>(object_.get(), IID_IUnknown);
  for (const IID& iid : {IID_IUnknown, IID_IDispatch, GetParam().iid, IID_ISupportErrorInfo}) {
    const auto other = queried<IUnknown>(object_.get(), iid);
    EXPECT_EQ(expected.get(), queried<IUnknown>(other.get(), IID_IUnknown).get());
  }
}

TEST_P(EachClass, QueryInterface_EveryInterfaceReachesEveryOther) {
  const IID all[] = {IID_IUnknown, IID_IDispatch, GetParam().iid, IID_ISupportErrorInfo};
  for (const IID& from : all) {
    const auto start = queried<IUnknown>(object_.get(), from);
    for (const IID& to : all) EXPECT_TRUE(queried<IUnknown>(start.get(), to));
  }
}

TEST_P(EachClass, QueryInterface_OwnInterface_IsTheDispatchInterface) {
  EXPECT_EQ(object_.get(), queried<IDispatch>(object_.get(), GetParam().iid).get());
}

TEST_P(EachClass, QueryInterface_InterfaceOfAnotherClass_IsRefused) {
  const IID& other = GetParam().iid == __uuidof(::_TPF) ? __uuidof(::_Garantie) : __uuidof(::_TPF);
  void* received = this;
  EXPECT_EQ(E_NOINTERFACE, object_->QueryInterface(other, &received));
  EXPECT_EQ(nullptr, received);
}

TEST_P(EachClass, QueryInterface_UnknownInterface_IsRefused) {
  void* received = this;
  EXPECT_EQ(E_NOINTERFACE, object_->QueryInterface(kUnknown, &received));
  EXPECT_EQ(nullptr, received);
}

TEST_P(EachClass, QueryInterface_NullResult_IsRefused) {
  EXPECT_EQ(E_POINTER, object_->QueryInterface(IID_IUnknown, nullptr));
}

TEST_P(EachClass, InterfaceSupportsErrorInfo_OwnInterface_IsTrue) {
  const auto support = queried<ISupportErrorInfo>(object_.get(), IID_ISupportErrorInfo);
  EXPECT_EQ(S_OK, support->InterfaceSupportsErrorInfo(GetParam().iid));
}

TEST_P(EachClass, InterfaceSupportsErrorInfo_OtherInterface_IsFalse) {
  const auto support = queried<ISupportErrorInfo>(object_.get(), IID_ISupportErrorInfo);
  EXPECT_EQ(S_FALSE, support->InterfaceSupportsErrorInfo(kUnknown));
}

TEST_P(EachClass, GetTypeInfo_DescribesTheInterface) {
  ComPtr<ITypeInfo> information;
  ASSERT_EQ(S_OK, object_->GetTypeInfo(0, LOCALE_USER_DEFAULT, information.receive()));
  TYPEATTR* attributes = nullptr;
  ASSERT_EQ(S_OK, information->GetTypeAttr(&attributes));
  EXPECT_TRUE(IsEqualIID(GetParam().iid, attributes->guid));
  information->ReleaseTypeAttr(attributes);
}

TEST_P(EachClass, GetTypeInfoCount_IsOne) {
  UINT count = 99;
  EXPECT_EQ(S_OK, object_->GetTypeInfoCount(&count));
  EXPECT_EQ(1u, count);
}

TEST_P(EachClass, GetTypeInfo_SecondIndex_IsRefused) {
  ComPtr<ITypeInfo> information;
  EXPECT_EQ(DISP_E_BADINDEX, object_->GetTypeInfo(1, LOCALE_USER_DEFAULT, information.receive()));
  EXPECT_FALSE(information);
}

INSTANTIATE_TEST_SUITE_P(, EachClass, ::testing::ValuesIn(catalogue()), host::class_name_of);

}  // namespace
