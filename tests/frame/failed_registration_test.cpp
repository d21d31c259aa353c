// A registration that cannot be written to its end, and the removal of one that is no longer whole.
//
// A volatile key takes values and no lasting key below it: one that stands in the way makes the registry fail
// there, for whoever writes.
#include <algorithm>

#include "frame/library.h"
#include "frame/registry.h"
#include "support/classes_root.h"
#include "support/import_table.h"

namespace {

using host::catalogue;
using host::CatalogueEntry;
using host::guid_text;
using host::Library;
using host::registry_dump;

using Lines = std::vector<std::string>;

class BrokenRegistration : public host::EmptyClassesRoot {
 protected:
  void SetUp() override {
    host::EmptyClassesRoot::SetUp();
    for (const wchar_t* structure : {L"CLSID", L"Interface", L"TypeLib"}) make(structure);
  }

  void make(const std::wstring& key, DWORD options = 0) {
    HKEY handle = nullptr;
    EXPECT_EQ(ERROR_SUCCESS, RegCreateKeyExW(root(), key.c_str(), 0, nullptr, options, KEY_ALL_ACCESS,
                                             nullptr, &handle, nullptr));
    RegCloseKey(handle);
  }
  void obstruct(const std::wstring& key) {
    RegDeleteTreeW(root(), key.c_str());
    make(key, REG_OPTION_VOLATILE);
  }
  void remove(const std::wstring& key) {
    EXPECT_EQ(ERROR_SUCCESS, RegDeleteTreeW(root(), key.c_str())) << host::utf8(key);
  }
  void write(const std::wstring& key, const std::wstring& text) {
    EXPECT_EQ(ERROR_SUCCESS, RegSetKeyValueW(root(), key.c_str(), nullptr, REG_SZ, text.c_str(),
                                             static_cast<DWORD>(2 * text.size() + 2)));
  }
  static Lines written() { return registry_dump(HKEY_CURRENT_USER, kKey); }

  /// Nothing but the registry's own structure.
  static void is_empty() { EXPECT_EQ((Lines{"", "\\CLSID", "\\Interface", "\\TypeLib"}), written()); }

  static std::wstring prog_id(const CatalogueEntry& entry) {
    return std::wstring(L"VelmoSAV_DLL14.") + entry.name;
  }
  static std::wstring class_key(const CatalogueEntry& entry) { return L"CLSID\\" + guid_text(entry.clsid); }
  static std::wstring library_key() { return L"TypeLib\\" + guid_text(LIBID_VelmoSAV_DLL14); }

  /// Keys below which registration makes others.
  static std::vector<std::wstring> places() {
    std::vector<std::wstring> result{library_key(), library_key() + L"\\1.0"};
    for (const CatalogueEntry& entry : catalogue()) {
      result.push_back(class_key(entry));
      result.push_back(prog_id(entry));
    }
    return result;
  }

  /// The library must give up, say why, and leave what was there.
  void fails(const std::wstring& what) {
    const Lines before = written();
    host::take_error();
    const HRESULT code = library_.register_server();
    EXPECT_TRUE(FAILED(code)) << host::utf8(what) << std::hex << code;
    EXPECT_NE(L"", host::take_error().description) << host::utf8(what);
    EXPECT_EQ(before, written()) << host::utf8(what);
  }

  Library library_;
};

TEST_F(BrokenRegistration, DllRegisterServer_FailsAtEachKeyInTurn_LeavesNothing) {
  for (const std::wstring& place : places()) {
    obstruct(place);
    fails(place);
    remove(place);
    RegDeleteTreeW(root(), library_key().c_str());  // made for the one below it
    is_empty();
  }
  EXPECT_EQ(S_OK, library_.register_server());
}

TEST_F(BrokenRegistration, DllRegisterServer_FailsOverAnEarlierRegistration_LeavesThatOne) {
  ASSERT_EQ(S_OK, library_.register_server());
  write(class_key(catalogue().front()) + L"\\InprocServer32", L"C:\\avant\\VelmoSAV_DLL14.dll");
  write(library_key() + L"\\1.0\\0\\win32", L"C:\\avant\\VelmoSAV_DLL14.dll");
  write(class_key(catalogue().front()) + L"\\Autre", L"d'un autre");
  obstruct(prog_id(catalogue().back()));
  fails(L"an earlier registration");
}

TEST_F(BrokenRegistration, DllRegisterServer_AfterAFailure_Works) {
  obstruct(prog_id(catalogue().back()));
  fails(L"first");
  remove(prog_id(catalogue().back()));
  EXPECT_EQ(S_OK, library_.register_server());
  EXPECT_EQ(guid_text(catalogue().back().clsid), host::class_value(prog_id(catalogue().back()) + L"\\CLSID"));
}

TEST_F(BrokenRegistration, DllRegisterServer_RegistryThatTakesNothing_FailsAndLeavesNothing) {
  HKEY volatile_root = nullptr;
  make(L"Fermé", REG_OPTION_VOLATILE);
  ASSERT_EQ(ERROR_SUCCESS, RegOpenKeyExW(root(), L"Fermé", 0, KEY_ALL_ACCESS, &volatile_root));
  ASSERT_EQ(ERROR_SUCCESS, RegOverridePredefKey(HKEY_CLASSES_ROOT, volatile_root));
  fails(L"everything");
  RegOverridePredefKey(HKEY_CLASSES_ROOT, root());
  RegCloseKey(volatile_root);
}

/// What the registry answers a user who may only read it.
struct ReadOnly {
  static LSTATUS WINAPI create(HKEY, LPCWSTR, DWORD, LPWSTR, DWORD, REGSAM, LPSECURITY_ATTRIBUTES, PHKEY,
                               LPDWORD) {
    return ERROR_ACCESS_DENIED;
  }
  static LSTATUS WINAPI remove(HKEY, LPCWSTR) { return ERROR_ACCESS_DENIED; }
};

TEST_F(BrokenRegistration, DllRegisterServer_RegistryThatDeniesNewKeys_IsDeniedAndLeavesNothing) {
  {
    const host::ReplacedImport denied(GetModuleHandleW(L"VelmoSAV_DLL14.dll"), "RegCreateKeyExW",
                                      ReadOnly::create);
    host::take_error();
    EXPECT_EQ(E_ACCESSDENIED, library_.register_server());
    EXPECT_NE(L"", host::take_error().description);
  }
  is_empty();
  EXPECT_EQ(S_OK, library_.register_server());
}

TEST_F(BrokenRegistration, DllUnregisterServer_RegistryThatDeniesRemoval_IsDeniedAndWorksLater) {
  ASSERT_EQ(S_OK, library_.register_server());
  {
    const host::ReplacedImport denied(GetModuleHandleW(L"VelmoSAV_DLL14.dll"), "RegDeleteTreeW",
                                      ReadOnly::remove);
    host::take_error();
    EXPECT_EQ(E_ACCESSDENIED, library_.unregister_server());
    EXPECT_NE(L"", host::take_error().description);
  }
  EXPECT_TRUE(host::class_key_exists(prog_id(catalogue().front())));
  EXPECT_EQ(S_OK, library_.unregister_server());
  is_empty();
}

TEST_F(BrokenRegistration, DllUnregisterServer_TypeLibraryIsNoLongerThere_LeavesNothing) {
  ASSERT_EQ(S_OK, library_.register_server());
  write(library_key() + L"\\1.0\\0\\win32", L"C:\\nulle part\\VelmoSAV_DLL14.dll");
  EXPECT_EQ(S_OK, library_.unregister_server());
  is_empty();
}

TEST_F(BrokenRegistration, DllUnregisterServer_TypeLibraryWithoutItsPath_LeavesNothing) {
  for (const wchar_t* part : {L"\\1.0\\0\\win32", L"\\1.0\\0"}) {
    ASSERT_EQ(S_OK, library_.register_server());
    remove(library_key() + part);
    EXPECT_EQ(S_OK, library_.unregister_server());
    is_empty();
  }
}

TEST_F(BrokenRegistration, DllUnregisterServer_BrokenTypeLibrary_AnotherVersionStays) {
  ASSERT_EQ(S_OK, library_.register_server());
  write(library_key() + L"\\1.0\\0\\win32", L"C:\\nulle part\\VelmoSAV_DLL14.dll");
  make(library_key() + L"\\2.0");
  EXPECT_EQ(S_OK, library_.unregister_server());
  EXPECT_TRUE(host::class_key_exists(library_key() + L"\\2.0"));
  EXPECT_FALSE(host::class_key_exists(library_key() + L"\\1.0"));
}

/// The DLL under another name in the temporary folder, which can be renamed while it is loaded.
class MovedLibrary : public BrokenRegistration {
 protected:
  void SetUp() override {
    BrokenRegistration::SetUp();
    wchar_t folder[MAX_PATH];
    GetTempPathW(MAX_PATH, folder);
    path_ = folder + (L"VelmoSAV-" + std::to_wstring(GetCurrentProcessId()) + L".dll");
    ASSERT_TRUE(CopyFileW(host::library_path().c_str(), path_.c_str(), FALSE));
    module_ = LoadLibraryW(path_.c_str());
    ASSERT_NE(nullptr, module_);
  }
  void TearDown() override {
    FreeLibrary(module_);
    DeleteFileW(path_.c_str());
    DeleteFileW(moved().c_str());
    BrokenRegistration::TearDown();
  }

  [[nodiscard]] std::wstring moved() const { return path_ + L".bak"; }
  HRESULT call(const char* name) const {
    return reinterpret_cast<HRESULT(STDAPICALLTYPE*)()>(
        reinterpret_cast<void*>(GetProcAddress(module_, name)))();
  }

  std::wstring path_;
  HMODULE module_ = nullptr;
};

TEST_F(MovedLibrary, DllRegisterServer_FailsAndLeavesAnEarlierRegistration) {
  ASSERT_EQ(S_OK, library_.register_server());
  const Lines before = written();
  ASSERT_TRUE(MoveFileW(path_.c_str(), moved().c_str()));
  EXPECT_EQ(HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND), call("DllRegisterServer"));
  EXPECT_EQ(before, written());
}

TEST_F(MovedLibrary, DllUnregisterServer_LeavesNothing) {
  ASSERT_EQ(S_OK, call("DllRegisterServer"));
  ASSERT_TRUE(MoveFileW(path_.c_str(), moved().c_str()));
  EXPECT_EQ(S_OK, call("DllUnregisterServer"));
  is_empty();
}

}  // namespace
