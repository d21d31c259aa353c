// The type library as a whole: its identity and the list of what it publishes.
#include <algorithm>
#include <cstring>
#include <map>
#include <set>

#include "contract/published.h"
#include "support/library_path.h"
#include "support/type_library.h"

namespace contract {
namespace {

struct NamedType {
  TYPEKIND kind;
  std::wstring name;
  auto operator<=>(const NamedType&) const = default;
};

std::ostream& operator<<(std::ostream& stream, const NamedType& type) {
  return stream << "kind " << type.kind << ' ' << utf8(type.name);
}

std::vector<NamedType> expected_types() {
  std::vector<NamedType> types;
  for (const Class& entry : classes()) {
    types.push_back({TKIND_COCLASS, entry.name});
    types.push_back({TKIND_DISPATCH, L'_' + std::wstring(entry.name)});
  }
  for (const Record& record : records()) types.push_back({TKIND_RECORD, record.name});
  for (const Enumeration& enumeration : enumerations()) types.push_back({TKIND_ENUM, enumeration.name});
  std::sort(types.begin(), types.end());
  return types;
}

struct GuidOrder {
  bool operator()(const GUID& left, const GUID& right) const {
    return std::memcmp(&left, &right, sizeof(GUID)) < 0;
  }
};

TEST(TypeLibrary, Name_IsThatOfTheProject) {
  Bstr name;
  ASSERT_EQ(S_OK, type_library()->GetDocumentation(-1, name.receive(), nullptr, nullptr, nullptr));
  EXPECT_EQ(L"VelmoSAV_DLL14", name.view());
}

TEST(TypeLibrary, Identity_IsTheOneOfTheHeaderVersionOneWin32) {
  const auto library = type_library();
  TLIBATTR* attributes = nullptr;
  ASSERT_EQ(S_OK, library->GetLibAttr(&attributes));
  EXPECT_TRUE(IsEqualGUID(LIBID_VelmoSAV_DLL14, attributes->guid));
  EXPECT_EQ(1, attributes->wMajorVerNum);
  EXPECT_EQ(0, attributes->wMinorVerNum);
  EXPECT_EQ(SYS_WIN32, attributes->syskind);
  EXPECT_EQ(0u, attributes->lcid);
  library->ReleaseTLibAttr(attributes);
}

TEST(TypeLibrary, Registration_LeadsToTheSameFile) {
  Bstr path;
  ASSERT_EQ(S_OK, QueryPathOfRegTypeLib(LIBID_VelmoSAV_DLL14, 1, 0, 0, path.receive()));
  std::wstring without_terminator(path.view().substr(0, path.view().find(L'\0')));
  EXPECT_EQ(0, _wcsicmp(registered_path().c_str(), without_terminator.c_str())) << utf8(without_terminator);
  EXPECT_EQ(0, _wcsicmp(host::library_path().c_str(), registered_path().c_str())) << utf8(registered_path());
  ComPtr<ITypeLib> registered;
  ASSERT_EQ(S_OK, LoadRegTypeLib(LIBID_VelmoSAV_DLL14, 1, 0, 0, registered.receive()));
  EXPECT_EQ(type_library()->GetTypeInfoCount(), registered->GetTypeInfoCount());
}

TEST(TypeLibrary, Classes_AreThirtyOneOfWhichFivePublishNothing) {
  int count = 0;
  std::set<std::wstring> without_members;
  for (const auto& info : every_type()) {
    if (attributes_of(info)->typekind != TKIND_COCLASS) continue;
    ++count;
    const std::wstring name = name_of(info);
    if (attributes_of(vtable_face(name))->cFuncs == 0) without_members.insert(name);
  }
  EXPECT_EQ(31, count);
  EXPECT_EQ((std::set<std::wstring>{L"Adresses", L"Garantie", L"Preavis", L"TPF", L"cToolTip2"}),
            without_members);
}

TEST(TypeLibrary, Types_AreTheClassesTheirInterfacesTheRecordsAndTheEnumerations) {
  std::vector<NamedType> found;
  for (const auto& info : every_type()) found.push_back({attributes_of(info)->typekind, name_of(info)});
  std::sort(found.begin(), found.end());
  EXPECT_EQ(expected_types(), found);
}

TEST(TypeLibrary, EveryType_HasAnIdentifierOfItsOwn) {
  std::map<GUID, std::wstring, GuidOrder> owners{{GUID_NULL, L"no type"},
                                                 {LIBID_VelmoSAV_DLL14, L"the library"}};
  for (const auto& info : every_type()) {
    const auto [owner, is_new] = owners.emplace(attributes_of(info)->guid, name_of(info));
    EXPECT_TRUE(is_new) << utf8(name_of(info)) << " has the identifier of " << utf8(owner->second);
  }
}

class EachClass : public ::testing::TestWithParam<Class> {};

TEST_P(EachClass, HasOneDefaultInterfaceNamedAfterIt) {
  const auto info = type_named(TKIND_COCLASS, GetParam().name);
  ASSERT_TRUE(info);
  ASSERT_EQ(1, attributes_of(info)->cImplTypes);
  INT flags = 0;
  ASSERT_EQ(S_OK, info->GetImplTypeFlags(0, &flags));
  EXPECT_EQ(IMPLTYPEFLAG_FDEFAULT, flags);
  HREFTYPE reference = 0;
  ComPtr<ITypeInfo> implemented;
  ASSERT_EQ(S_OK, info->GetRefTypeOfImplType(0, &reference));
  ASSERT_EQ(S_OK, info->GetRefTypeInfo(reference, implemented.receive()));
  EXPECT_EQ(L'_' + std::wstring(GetParam().name), name_of(implemented));
}

TEST_P(EachClass, CanBeCreated) {
  const auto info = type_named(TKIND_COCLASS, GetParam().name);
  ASSERT_TRUE(info);
  EXPECT_EQ(TYPEFLAG_FCANCREATE, attributes_of(info)->wTypeFlags & TYPEFLAG_FCANCREATE);
}

TEST_P(EachClass, ProgId_LeadsToItsIdentifier) {
  const auto info = type_named(TKIND_COCLASS, GetParam().name);
  ASSERT_TRUE(info);
  CLSID clsid;
  ASSERT_EQ(S_OK, CLSIDFromProgID((L"VelmoSAV_DLL14." + std::wstring(GetParam().name)).c_str(), &clsid));
  EXPECT_TRUE(IsEqualGUID(clsid, attributes_of(info)->guid));
}

TEST_P(EachClass, Interface_IsDualAndDerivesFromIDispatch) {
  const auto dispatch = dispatch_face(GetParam().name);
  ASSERT_TRUE(dispatch);
  EXPECT_NE(0, attributes_of(dispatch)->wTypeFlags & TYPEFLAG_FDUAL);

  const auto vtable = vtable_face(GetParam().name);
  ASSERT_TRUE(vtable);
  EXPECT_EQ(TKIND_INTERFACE, attributes_of(vtable)->typekind);
  EXPECT_NE(0, attributes_of(vtable)->wTypeFlags & TYPEFLAG_FOLEAUTOMATION);
  EXPECT_TRUE(IsEqualGUID(attributes_of(dispatch)->guid, attributes_of(vtable)->guid));
  ASSERT_EQ(1, attributes_of(vtable)->cImplTypes);
  HREFTYPE reference = 0;
  ComPtr<ITypeInfo> base;
  ASSERT_EQ(S_OK, vtable->GetRefTypeOfImplType(0, &reference));
  ASSERT_EQ(S_OK, vtable->GetRefTypeInfo(reference, base.receive()));
  EXPECT_TRUE(IsEqualGUID(IID_IDispatch, attributes_of(base)->guid)) << utf8(name_of(base));
}

TEST_P(EachClass, Instance_HasTheInterface) {
  const auto info = dispatch_face(GetParam().name);
  ASSERT_TRUE(info);
  const auto object = host::create_dispatch(GetParam().name);
  ASSERT_TRUE(object);
  ComPtr<IUnknown> interface_pointer;
  EXPECT_EQ(S_OK, object->QueryInterface(attributes_of(info)->guid, interface_pointer.receive_void()));
}

INSTANTIATE_TEST_SUITE_P(, EachClass, ::testing::ValuesIn(classes()), name_of_case<Class>);

}  // namespace
}  // namespace contract
