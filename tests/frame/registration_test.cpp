// What registration writes into the registry, and that its removal leaves no trace.
#include <algorithm>
#include <iterator>

#include "frame/library.h"
#include "frame/registry.h"
#include "support/classes_root.h"

namespace {

using host::catalogue;
using host::CatalogueEntry;
using host::class_value;
using host::guid_text;
using host::Library;
using host::registry_dump;
using host::utf8;

using Lines = std::vector<std::string>;

constexpr wchar_t kDispatchProxy[] = L"{00020424-0000-0000-C000-000000000046}";

std::wstring type_library_id() { return guid_text(LIBID_VelmoSAV_DLL14); }

/// Lines of `after` that `before` does not have.
Lines added(const Lines& before, const Lines& after) {
  Lines result;
  std::set_difference(after.begin(), after.end(), before.begin(), before.end(), std::back_inserter(result));
  return result;
}

/// However a test leaves the registry, the library is registered afterwards.
class Registration : public ::testing::Test {
 protected:
  ~Registration() override { EXPECT_EQ(S_OK, library_.register_server()); }

  static Lines machine_classes() { return registry_dump(HKEY_LOCAL_MACHINE, L"Software\\Classes"); }
  static Lines user_classes() { return registry_dump(HKEY_CURRENT_USER, L"Software\\Classes"); }

  Library library_;
};

TEST_F(Registration, DllRegisterServer_Succeeds) { EXPECT_EQ(S_OK, library_.register_server()); }

TEST_F(Registration, DllRegisterServer_Twice_Succeeds) {
  library_.register_server();
  EXPECT_EQ(S_OK, library_.register_server());
}

TEST_F(Registration, DllRegisterServer_Twice_WritesWhatOnceWrites) {
  library_.register_server();
  const Lines once = machine_classes();
  library_.register_server();
  EXPECT_EQ(Lines(), added(once, machine_classes()));
}

TEST_F(Registration, DllRegisterServer_AfterRemoval_WritesWhatTheFirstWrote) {
  library_.unregister_server();
  const Lines without = machine_classes();
  ASSERT_EQ(S_OK, library_.register_server());
  const Lines with = machine_classes();
  ASSERT_EQ(S_OK, library_.unregister_server());
  EXPECT_EQ(without, machine_classes());
  ASSERT_EQ(S_OK, library_.register_server());
  EXPECT_EQ(with, machine_classes());
}

TEST_F(Registration, CoCreateInstance_DllIsNotWhereItIsRegistered_FailsWithAnHresult) {
  ASSERT_EQ(S_OK, library_.register_server());
  constexpr wchar_t kNowhere[] = L"C:\\nulle part\\VelmoSAV_DLL14.dll";
  const CatalogueEntry& entry = catalogue().front();
  ASSERT_EQ(
      ERROR_SUCCESS,
      RegSetKeyValueW(HKEY_CLASSES_ROOT, (L"CLSID\\" + guid_text(entry.clsid) + L"\\InprocServer32").c_str(),
                      nullptr, REG_SZ, kNowhere, sizeof kNowhere));
  host::ComPtr<IDispatch> object;
  EXPECT_TRUE(FAILED(
      CoCreateInstance(entry.clsid, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, object.receive_void())));
  EXPECT_FALSE(object);
}

TEST_F(Registration, DllUnregisterServer_Succeeds) { EXPECT_EQ(S_OK, library_.unregister_server()); }

TEST_F(Registration, DllUnregisterServer_Twice_Succeeds) {
  library_.unregister_server();
  EXPECT_EQ(S_OK, library_.unregister_server());
}

TEST_F(Registration, DllUnregisterServer_OneClassMissingAlready_Succeeds) {
  library_.register_server();
  RegDeleteTreeW(HKEY_CLASSES_ROOT, L"VelmoSAV_DLL14.Bon");
  EXPECT_EQ(S_OK, library_.unregister_server());
}

TEST_F(Registration, DllUnregisterServer_ProgIdIsUnknownAfterwards) {
  library_.unregister_server();
  CLSID clsid;
  EXPECT_EQ(CO_E_CLASSSTRING, CLSIDFromProgID(L"VelmoSAV_DLL14.Periodicite", &clsid));
}

TEST_F(Registration, DllUnregisterServer_RegistryIsAsBeforeRegistration) {
  library_.unregister_server();
  const Lines before = machine_classes();
  ASSERT_EQ(S_OK, library_.register_server());
  ASSERT_NE(Lines(), added(before, machine_classes()));
  ASSERT_EQ(S_OK, library_.unregister_server());
  EXPECT_EQ(before, machine_classes());
}

TEST_F(Registration, DllUnregisterServer_NothingLeftMentionsTheLibrary) {
  library_.unregister_server();
  std::vector<std::string> marks{"VelmoSAV", utf8(type_library_id())};
  for (const CatalogueEntry& entry : catalogue()) {
    marks.push_back(utf8(guid_text(entry.clsid)));
    marks.push_back(utf8(guid_text(entry.iid)));
  }
  const Lines left = machine_classes();
  ASSERT_GT(left.size(), 100u);
  for (const std::string& line : left) {
    for (const std::string& mark : marks) EXPECT_EQ(std::string::npos, line.find(mark)) << line;
  }
}

TEST_F(Registration, DllRegisterServer_WritesNothingForTheUserAlone) {
  library_.unregister_server();
  const Lines before = user_classes();
  library_.register_server();
  EXPECT_EQ(before, user_classes());
}

TEST_F(Registration, DllRegisterServer_TypeLibrary_IsFoundByItsIdentifier) {
  library_.register_server();
  host::ComPtr<ITypeLib> found;
  EXPECT_EQ(S_OK, LoadRegTypeLib(LIBID_VelmoSAV_DLL14, 1, 0, LOCALE_NEUTRAL, found.receive()));
}

TEST_F(Registration, DllRegisterServer_TypeLibrary_NamesTheDll) {
  library_.register_server();
  EXPECT_EQ(utf8(host::library_path()),
            utf8(class_value(L"TypeLib\\" + type_library_id() + L"\\1.0\\0\\win32")));
}

TEST_F(Registration, DllRegisterServer_TypeLibrary_HelpFolderIsThatOfTheDll) {
  library_.register_server();
  EXPECT_EQ(utf8(host::library_folder()),
            utf8(class_value(L"TypeLib\\" + type_library_id() + L"\\1.0\\HELPDIR")));
}

TEST_F(Registration, DllUnregisterServer_TypeLibraryIsUnknownAfterwards) {
  library_.unregister_server();
  host::ComPtr<ITypeLib> found;
  EXPECT_EQ(TYPE_E_LIBNOTREGISTERED,
            LoadRegTypeLib(LIBID_VelmoSAV_DLL14, 1, 0, LOCALE_NEUTRAL, found.receive()));
}

/// What is written for each class.
class RegistrationOfEachClass : public ::testing::TestWithParam<CatalogueEntry> {
 protected:
  [[nodiscard]] std::wstring prog_id() const { return std::wstring(L"VelmoSAV_DLL14.") + GetParam().name; }
  [[nodiscard]] std::wstring class_key() const { return L"CLSID\\" + guid_text(GetParam().clsid); }
  [[nodiscard]] std::wstring interface_key() const { return L"Interface\\" + guid_text(GetParam().iid); }
};

TEST_P(RegistrationOfEachClass, ProgIdKey_NamesTheClass) {
  EXPECT_EQ(guid_text(GetParam().clsid), class_value(prog_id() + L"\\CLSID"));
}

TEST_P(RegistrationOfEachClass, ClassKey_NamesTheProgId) {
  EXPECT_EQ(prog_id(), class_value(class_key() + L"\\ProgID"));
}

TEST_P(RegistrationOfEachClass, ClassKey_NamesTheDll) {
  EXPECT_EQ(utf8(host::library_path()), utf8(class_value(class_key() + L"\\InprocServer32")));
}

TEST_P(RegistrationOfEachClass, ClassKey_IsApartmentThreaded) {
  EXPECT_EQ(L"Apartment", class_value(class_key() + L"\\InprocServer32", L"ThreadingModel"));
}

TEST_P(RegistrationOfEachClass, ClassKey_NamesTheTypeLibrary) {
  EXPECT_EQ(type_library_id(), class_value(class_key() + L"\\TypeLib"));
}

TEST_P(RegistrationOfEachClass, InterfaceKey_NamesTheInterface) {
  EXPECT_EQ(std::wstring(L"_") + GetParam().name, class_value(interface_key()));
}

TEST_P(RegistrationOfEachClass, InterfaceKey_NamesTheTypeLibrary) {
  EXPECT_EQ(type_library_id(), class_value(interface_key() + L"\\TypeLib"));
}

TEST_P(RegistrationOfEachClass, InterfaceKey_UsesTheAutomationProxy) {
  EXPECT_EQ(kDispatchProxy, class_value(interface_key() + L"\\ProxyStubClsid32"));
}

INSTANTIATE_TEST_SUITE_P(, RegistrationOfEachClass, ::testing::ValuesIn(catalogue()), host::class_name_of);

class RegistrationInAnEmptyRegistry : public host::EmptyClassesRoot {
 protected:
  static Lines written() { return registry_dump(HKEY_CURRENT_USER, kKey); }

  Library library_;
};

TEST_F(RegistrationInAnEmptyRegistry, DllRegisterServer_WritesAKeyForEveryProgId) {
  ASSERT_EQ(S_OK, library_.register_server());
  const Lines lines = written();
  const auto prog_ids = std::count_if(lines.begin(), lines.end(), [](const std::string& line) {
    return line.rfind("\\VelmoSAV_DLL14.", 0) == 0 && line.find_first_of("\\|", 1) == std::string::npos;
  });
  EXPECT_EQ(31, prog_ids);
}

TEST_F(RegistrationInAnEmptyRegistry, DllUnregisterServer_LeavesNoValueAndNoKeyOfItsOwn) {
  ASSERT_EQ(S_OK, library_.register_server());
  ASSERT_EQ(S_OK, library_.unregister_server());
  // The roots of the registry's own structure may stay, empty.
  for (const std::string& line : written()) {
    const bool is_root = line.empty() || lstrcmpiA(line.c_str(), "\\CLSID") == 0 ||
                         lstrcmpiA(line.c_str(), "\\Interface") == 0 ||
                         lstrcmpiA(line.c_str(), "\\TypeLib") == 0;
    EXPECT_TRUE(is_root) << line;
  }
}

TEST_F(RegistrationInAnEmptyRegistry, DllUnregisterServer_NothingRegistered_Succeeds) {
  EXPECT_EQ(S_OK, library_.unregister_server());
}

TEST_F(RegistrationInAnEmptyRegistry, DllUnregisterServer_KeysOfOthersStay) {
  HKEY other = nullptr;
  RegCreateKeyExW(root(), L"CLSID\\Autre", 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &other, nullptr);
  RegCloseKey(other);
  library_.register_server();
  library_.unregister_server();
  EXPECT_TRUE(host::class_key_exists(L"CLSID\\Autre"));
}

}  // namespace
