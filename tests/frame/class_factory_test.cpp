// DllGetClassObject and the class objects it hands out.
#include "frame/library.h"
#include "support/fake_object.h"

namespace {

using host::catalogue;
using host::CatalogueEntry;
using host::ComPtr;
using host::Library;

// {6D0A5C35-5B3B-4D2A-9C26-2E0C0B9A7F11}: no class and no interface of anybody.
constexpr GUID kUnknown = {0x6D0A5C35, 0x5B3B, 0x4D2A, {0x9C, 0x26, 0x2E, 0x0C, 0x0B, 0x9A, 0x7F, 0x11}};

const CLSID& any_class() { return __uuidof(::Article); }

class ClassFactory : public ::testing::Test {
 protected:
  Library library_;
  void* received_ = &library_;  // must be overwritten
};

class ClassFactoryOfEachClass : public ::testing::TestWithParam<CatalogueEntry> {
 protected:
  Library library_;
};

TEST_F(ClassFactory, DllGetClassObject_UnknownClass_IsNotAvailable) {
  EXPECT_EQ(CLASS_E_CLASSNOTAVAILABLE, library_.class_object(kUnknown, IID_IClassFactory, &received_));
}

TEST_F(ClassFactory, DllGetClassObject_UnknownClass_ClearsTheResult) {
  library_.class_object(kUnknown, IID_IClassFactory, &received_);
  EXPECT_EQ(nullptr, received_);
}

TEST_F(ClassFactory, DllGetClassObject_InterfaceIdentifierAsClass_IsNotAvailable) {
  EXPECT_EQ(CLASS_E_CLASSNOTAVAILABLE,
            library_.class_object(__uuidof(::_Article), IID_IClassFactory, &received_));
}

TEST_F(ClassFactory, DllGetClassObject_NullResult_IsRefused) {
  EXPECT_EQ(E_POINTER, library_.class_object(any_class(), IID_IClassFactory, nullptr));
}

TEST_F(ClassFactory, DllGetClassObject_UnknownInterface_IsRefused) {
  EXPECT_EQ(E_NOINTERFACE, library_.class_object(any_class(), kUnknown, &received_));
  EXPECT_EQ(nullptr, received_);
}

TEST_F(ClassFactory, DllGetClassObject_UnknownInterface_LeavesNothingBehind) {
  library_.class_object(any_class(), kUnknown, &received_);
  EXPECT_EQ(S_OK, library_.can_unload());
}

TEST_F(ClassFactory, QueryInterface_UnknownAndFactory_AreOneObject) {
  const auto factory = library_.factory(any_class());
  ComPtr<IUnknown> unknown;
  ASSERT_EQ(S_OK, factory->QueryInterface(IID_IUnknown, unknown.receive_void()));
  ComPtr<IClassFactory> again;
  ASSERT_EQ(S_OK, unknown->QueryInterface(IID_IClassFactory, again.receive_void()));
  EXPECT_EQ(factory.get(), again.get());
}

TEST_F(ClassFactory, QueryInterface_Dispatch_IsRefused) {
  EXPECT_EQ(E_NOINTERFACE, library_.factory(any_class())->QueryInterface(IID_IDispatch, &received_));
  EXPECT_EQ(nullptr, received_);
}

TEST_F(ClassFactory, QueryInterface_NullResult_IsRefused) {
  EXPECT_EQ(E_POINTER, library_.factory(any_class())->QueryInterface(IID_IUnknown, nullptr));
}

TEST_F(ClassFactory, Release_CountsReferences) {
  ComPtr<IClassFactory> factory = library_.factory(any_class());
  EXPECT_EQ(2u, factory->AddRef());
  EXPECT_EQ(1u, factory->Release());
  EXPECT_EQ(0u, factory.detach()->Release());
}

TEST_F(ClassFactory, CreateInstance_Aggregated_IsRefused) {
  const auto outer = host::FakeObject::make();
  EXPECT_EQ(CLASS_E_NOAGGREGATION,
            library_.factory(any_class())->CreateInstance(outer.get(), IID_IUnknown, &received_));
  EXPECT_EQ(nullptr, received_);
}

TEST_F(ClassFactory, CreateInstance_NullResult_IsRefused) {
  EXPECT_EQ(E_POINTER, library_.factory(any_class())->CreateInstance(nullptr, IID_IUnknown, nullptr));
}

TEST_F(ClassFactory, CreateInstance_UnknownInterface_IsRefused) {
  EXPECT_EQ(E_NOINTERFACE, library_.factory(any_class())->CreateInstance(nullptr, kUnknown, &received_));
  EXPECT_EQ(nullptr, received_);
}

TEST_F(ClassFactory, CreateInstance_UnknownInterface_LeavesNothingBehind) {
  library_.factory(any_class())->CreateInstance(nullptr, kUnknown, &received_);
  EXPECT_EQ(S_OK, library_.can_unload());
}

TEST_F(ClassFactory, CreateInstance_Twice_GivesTwoObjects) {
  const auto factory = library_.factory(any_class());
  ComPtr<IUnknown> first, second;
  ASSERT_EQ(S_OK, factory->CreateInstance(nullptr, IID_IUnknown, first.receive_void()));
  ASSERT_EQ(S_OK, factory->CreateInstance(nullptr, IID_IUnknown, second.receive_void()));
  EXPECT_NE(first.get(), second.get());
}

TEST_P(ClassFactoryOfEachClass, CreateInstance_OwnInterface_IsGiven) {
  ComPtr<IUnknown> object;
  EXPECT_EQ(
      S_OK,
      library_.factory(GetParam().clsid)->CreateInstance(nullptr, GetParam().iid, object.receive_void()));
}

TEST_P(ClassFactoryOfEachClass, CreateInstance_Released_LeavesNothingBehind) {
  ComPtr<IUnknown> object;
  library_.factory(GetParam().clsid)->CreateInstance(nullptr, IID_IUnknown, object.receive_void());
  object = nullptr;
  EXPECT_EQ(S_OK, library_.can_unload());
}

INSTANTIATE_TEST_SUITE_P(, ClassFactoryOfEachClass, ::testing::ValuesIn(catalogue()), host::class_name_of);

}  // namespace
