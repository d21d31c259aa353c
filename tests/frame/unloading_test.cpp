// DllCanUnloadNow: what keeps the DLL loaded, and what no longer does.
#include <algorithm>

#include "frame/library.h"
#include "support/import_table.h"

namespace {

using host::ComPtr;
using host::Library;
using host::Variant;

class Unloading : public ::testing::Test {
 protected:
  ComPtr<IDispatch> create(REFCLSID clsid) {
    ComPtr<IDispatch> object;
    EXPECT_EQ(S_OK, library_.factory(clsid)->CreateInstance(nullptr, IID_IDispatch, object.receive_void()));
    return object;
  }

  /// A late-bound use: fills what the library keeps for such uses.
  static std::wstring tariff_kind(IDispatch* article) {
    Variant value;
    EXPECT_EQ(S_OK, host::get_property(article, L"PC_TARIF_HT", value.receive()));
    return host::get(value.get().bstrVal);
  }

  Library library_;
};

TEST_F(Unloading, DllCanUnloadNow_NothingOutstanding_Agrees) { EXPECT_EQ(S_OK, library_.can_unload()); }

TEST_F(Unloading, DllCanUnloadNow_ObjectOutstanding_Refuses) {
  const auto object = create(__uuidof(::Article));
  EXPECT_EQ(S_FALSE, library_.can_unload());
}

TEST_F(Unloading, DllCanUnloadNow_ObjectReleased_Agrees) {
  create(__uuidof(::Article));
  EXPECT_EQ(S_OK, library_.can_unload());
}

TEST_F(Unloading, DllCanUnloadNow_OneOfTwoObjectsReleased_Refuses) {
  const auto kept = create(__uuidof(::Article));
  create(__uuidof(::Outil));
  EXPECT_EQ(S_FALSE, library_.can_unload());
}

TEST_F(Unloading, DllCanUnloadNow_FactoryOutstanding_Refuses) {
  const auto factory = library_.factory(__uuidof(::Article));
  EXPECT_EQ(S_FALSE, library_.can_unload());
}

TEST_F(Unloading, DllCanUnloadNow_FactoryReleased_Agrees) {
  library_.factory(__uuidof(::Article)) = nullptr;
  EXPECT_EQ(S_OK, library_.can_unload());
}

TEST_F(Unloading, DllCanUnloadNow_Locked_Refuses) {
  ASSERT_EQ(S_OK, library_.factory(__uuidof(::Article))->LockServer(TRUE));
  EXPECT_EQ(S_FALSE, library_.can_unload());
  library_.factory(__uuidof(::Article))->LockServer(FALSE);
}

TEST_F(Unloading, DllCanUnloadNow_LockedTwiceUnlockedOnce_Refuses) {
  library_.factory(__uuidof(::Article))->LockServer(TRUE);
  library_.factory(__uuidof(::Article))->LockServer(TRUE);
  library_.factory(__uuidof(::Article))->LockServer(FALSE);
  EXPECT_EQ(S_FALSE, library_.can_unload());
  library_.factory(__uuidof(::Article))->LockServer(FALSE);
}

TEST_F(Unloading, DllCanUnloadNow_LockOfOneClassGivenBackThroughAnother_Agrees) {
  library_.factory(__uuidof(::Article))->LockServer(TRUE);
  library_.factory(__uuidof(::Outil))->LockServer(FALSE);
  EXPECT_EQ(S_OK, library_.can_unload());
}

TEST_F(Unloading, DllCanUnloadNow_ObjectUsedByNameAndReleased_Agrees) {
  EXPECT_EQ(L"H", tariff_kind(create(__uuidof(::Article)).get()));
  EXPECT_EQ(S_OK, library_.can_unload());
}

TEST_F(Unloading, Invoke_AfterTheLibraryAgreedToUnload_WorksAgain) {
  tariff_kind(create(__uuidof(::Article)).get());
  ASSERT_EQ(S_OK, library_.can_unload());
  EXPECT_EQ(L"H", tariff_kind(create(__uuidof(::Article)).get()));
}

TEST_F(Unloading, Invoke_ObjectOutlivingARefusalToUnload_Works) {
  const auto object = create(__uuidof(::Article));
  tariff_kind(object.get());
  ASSERT_EQ(S_FALSE, library_.can_unload());
  EXPECT_EQ(L"H", tariff_kind(object.get()));
}

TEST_F(Unloading, DllCanUnloadNow_TypeInformationKept_StillAnswersAfterwards) {
  ComPtr<ITypeInfo> information;
  ASSERT_EQ(S_OK, create(__uuidof(::Article))->GetTypeInfo(0, LOCALE_USER_DEFAULT, information.receive()));
  library_.can_unload();
  host::Bstr name;
  EXPECT_EQ(S_OK, information->GetDocumentation(MEMBERID_NIL, name.receive(), nullptr, nullptr, nullptr));
  EXPECT_EQ(L"_Article", name.view());
}

TEST_F(Unloading, DllCanUnloadNow_Agreed_TypeInformationIsNoLongerHeld) {
  ComPtr<ITypeInfo> information;
  ASSERT_EQ(S_OK, create(__uuidof(::Article))->GetTypeInfo(0, LOCALE_USER_DEFAULT, information.receive()));
  ASSERT_EQ(S_OK, library_.can_unload());
  EXPECT_EQ(0u, information.detach()->Release());
}

/// Where the library lies, as far as one function tells.
struct Path {
  static inline std::vector<DWORD> rooms;

  static DWORD WINAPI unknown(HMODULE, wchar_t*, DWORD) {
    SetLastError(ERROR_ACCESS_DENIED);
    return 0;
  }
  static DWORD WINAPI of_many_letters(HMODULE module, wchar_t* room, DWORD size) {
    rooms.push_back(size);
    if (size > 2 * MAX_PATH) return GetModuleFileNameW(module, room, size);
    std::fill_n(room, size, L'x');
    return size;
  }
};

TEST_F(Unloading, GetTypeInfo_LibraryWithALongPath_LoadsItsTypesFromThere) {
  ASSERT_EQ(S_OK, library_.can_unload());  // and gives up the types that it has
  const auto object = create(__uuidof(::Article));
  Path::rooms.clear();
  const host::ReplacedImport path(GetModuleHandleW(L"VelmoSAV_DLL14.dll"), "GetModuleFileNameW",
                                  Path::of_many_letters);
  ComPtr<ITypeInfo> information;
  EXPECT_EQ(S_OK, object->GetTypeInfo(0, LOCALE_USER_DEFAULT, information.receive()));
  EXPECT_EQ((std::vector<DWORD>{MAX_PATH, 2 * MAX_PATH, 4 * MAX_PATH}), Path::rooms);
}

TEST_F(Unloading, GetTypeInfo_LibraryThatDoesNotFindItself_IsThePlatformsError) {
  ASSERT_EQ(S_OK, library_.can_unload());
  const auto object = create(__uuidof(::Article));
  ComPtr<ITypeInfo> information;
  {
    const host::ReplacedImport path(GetModuleHandleW(L"VelmoSAV_DLL14.dll"), "GetModuleFileNameW",
                                    Path::unknown);
    EXPECT_EQ(E_ACCESSDENIED, object->GetTypeInfo(0, LOCALE_USER_DEFAULT, information.receive()));
  }
  EXPECT_FALSE(host::take_error().description.empty());
  EXPECT_EQ(S_OK, object->GetTypeInfo(0, LOCALE_USER_DEFAULT, information.receive()));
}

/// Whether COM still holds the DLL in the process.
bool is_loaded() { return GetModuleHandleW(L"VelmoSAV_DLL14.dll") != nullptr; }

TEST(UnloadingByCom, CoFreeUnusedLibraries_ObjectOutstanding_KeepsTheLibrary) {
  const auto object = host::create_dispatch(L"Article");
  CoFreeUnusedLibrariesEx(0, 0);
  EXPECT_TRUE(is_loaded());
}

TEST(UnloadingByCom, CoFreeUnusedLibraries_ObjectUsedByNameAndReleased_UnloadsTheLibrary) {
  Variant value;
  host::get_property(host::create_dispatch(L"Article").get(), L"PC_TARIF_HT", value.receive());
  CoFreeUnusedLibrariesEx(0, 0);
  EXPECT_FALSE(is_loaded());
}

TEST(UnloadingByCom, CoCreateInstance_AfterTheLibraryWasUnloaded_LoadsItAgain) {
  Variant value;
  host::get_property(host::create_dispatch(L"Article").get(), L"PC_TARIF_HT", value.receive());
  CoFreeUnusedLibrariesEx(0, 0);
  EXPECT_EQ(S_OK,
            host::get_property(host::create_dispatch(L"Article").get(), L"PC_TARIF_TTC", value.receive()));
}

}  // namespace
