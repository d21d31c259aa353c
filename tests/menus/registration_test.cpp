// What the component writes into the registry, what it leaves alone, and what keeps it loaded.
#include <set>

#include "menus/component.h"
#include "support/classes_root.h"

namespace {

using host::Component;
using host::ComPtr;

constexpr wchar_t kProgIdClass[] = L"Lumbra30.ApiPopupMenu\\CLSID";
constexpr wchar_t kOtherClass[] = L"{11111111-2222-3333-4444-555555555555}";

class ComponentRegistration : public host::EmptyClassesRoot {
 protected:
  void write(const std::wstring& key, const std::wstring& value) {
    ASSERT_EQ(ERROR_SUCCESS, RegSetKeyValueW(root(), key.c_str(), nullptr, REG_SZ, value.c_str(),
                                             static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t))));
  }
  [[nodiscard]] std::wstring value(const std::wstring& key, const wchar_t* name = nullptr) const {
    wchar_t text[512];
    DWORD size = sizeof text;
    const LSTATUS status = RegGetValueW(root(), key.c_str(), name, RRF_RT_REG_SZ, nullptr, text, &size);
    return status == ERROR_SUCCESS ? text : L"(none)";
  }
  /// Every key below the root.
  [[nodiscard]] std::set<std::wstring> keys() const {
    std::set<std::wstring> found;
    collect(root(), L"", found);
    return found;
  }

  static std::wstring class_text() {
    wchar_t text[40];
    StringFromGUID2(host::kPopupMenuClass, text, 40);
    return text;
  }
  static std::wstring class_key() { return L"CLSID\\" + class_text(); }

  Component component_;

 private:
  static void collect(HKEY parent, const std::wstring& path, std::set<std::wstring>& found) {
    wchar_t name[256];
    for (DWORD i = 0, length = 256;
         RegEnumKeyExW(parent, i, name, &length, nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS;
         ++i, length = 256) {
      found.insert(path + name);
      HKEY child = nullptr;
      if (RegOpenKeyExW(parent, name, 0, KEY_READ, &child) != ERROR_SUCCESS) continue;
      collect(child, path + name + L"\\", found);
      RegCloseKey(child);
    }
  }
};

TEST_F(ComponentRegistration, WritesTheProgIdAndTheClass_AndNothingElse) {
  ASSERT_EQ(S_OK, component_.register_server());
  EXPECT_EQ((std::set<std::wstring>{L"CLSID", class_key(), class_key() + L"\\InprocServer32",
                                    class_key() + L"\\ProgID", L"Lumbra30.ApiPopupMenu", kProgIdClass}),
            keys());
  EXPECT_EQ(class_text(), value(kProgIdClass));
  EXPECT_EQ(L"Lumbra30.ApiPopupMenu", value(class_key() + L"\\ProgID"));
  EXPECT_EQ(host::component_path(), value(class_key() + L"\\InprocServer32"));
  EXPECT_EQ(L"Apartment", value(class_key() + L"\\InprocServer32", L"ThreadingModel"));
}

TEST_F(ComponentRegistration, Twice_WritesWhatOnceWrites) {
  ASSERT_EQ(S_OK, component_.register_server());
  const auto once = keys();
  EXPECT_EQ(S_OK, component_.register_server());
  EXPECT_EQ(once, keys());
}

TEST_F(ComponentRegistration, AgainFromAnotherFolder_TakesTheNewPath) {
  write(kProgIdClass, class_text());
  write(class_key() + L"\\InprocServer32", L"C:\\ancien\\ApiPopupMenu.dll");
  ASSERT_EQ(S_OK, component_.register_server());
  EXPECT_EQ(host::component_path(), value(class_key() + L"\\InprocServer32"));
}

TEST_F(ComponentRegistration, Removed_LeavesNothingOfItsOwn) {
  ASSERT_EQ(S_OK, component_.register_server());
  EXPECT_EQ(S_OK, component_.unregister_server());
  EXPECT_EQ(std::set<std::wstring>{L"CLSID"}, keys());
}

TEST_F(ComponentRegistration, RemovedTwice_Succeeds) {
  ASSERT_EQ(S_OK, component_.register_server());
  ASSERT_EQ(S_OK, component_.unregister_server());
  EXPECT_EQ(S_OK, component_.unregister_server());
}

TEST_F(ComponentRegistration, RemovedWithoutRegistration_Succeeds) {
  EXPECT_EQ(S_OK, component_.unregister_server());
}

TEST_F(ComponentRegistration, TheHostsOwnComponentIsThere_WritesNothingAndAnswersSFalse) {
  write(kProgIdClass, kOtherClass);
  const auto before = keys();
  EXPECT_EQ(S_FALSE, component_.register_server());
  EXPECT_EQ(before, keys());
  EXPECT_EQ(kOtherClass, value(kProgIdClass));
}

TEST_F(ComponentRegistration, AProgIdWithAnUnreadableClass_StaysAsItIs) {
  write(kProgIdClass, std::wstring(200, L'x'));
  EXPECT_EQ(S_FALSE, component_.register_server());
  EXPECT_EQ(std::wstring(200, L'x'), value(kProgIdClass));
}

TEST_F(ComponentRegistration, TheHostsOwnComponentIsThere_RemovalLeavesIt) {
  write(L"Lumbra30.ApiPopupMenu", L"Composant de l'application");
  write(kProgIdClass, kOtherClass);
  EXPECT_EQ(S_OK, component_.unregister_server());
  EXPECT_EQ(kOtherClass, value(kProgIdClass));
  EXPECT_EQ(L"Composant de l'application", value(L"Lumbra30.ApiPopupMenu"));
}

TEST_F(ComponentRegistration, TheHostsOwnComponentCameLater_RemovalTakesTheClassOnly) {
  ASSERT_EQ(S_OK, component_.register_server());
  write(kProgIdClass, kOtherClass);
  EXPECT_EQ(S_OK, component_.unregister_server());
  EXPECT_EQ((std::set<std::wstring>{L"CLSID", L"Lumbra30.ApiPopupMenu", kProgIdClass}), keys());
}

TEST_F(ComponentRegistration, AProgIdWithoutClass_IsTaken) {
  write(L"Lumbra30.ApiPopupMenu", L"reste");
  ASSERT_EQ(S_OK, component_.register_server());
  EXPECT_EQ(class_text(), value(kProgIdClass));
}

TEST_F(ComponentRegistration, ItsOwnClassInLowerCase_IsItsOwn) {
  std::wstring text = class_text();
  CharLowerW(text.data());
  write(kProgIdClass, text);
  EXPECT_EQ(S_OK, component_.register_server());
  EXPECT_EQ(S_OK, component_.unregister_server());
  EXPECT_EQ(std::set<std::wstring>{L"CLSID"}, keys());
}

class ComponentModule : public ::testing::Test {
 protected:
  ComPtr<IClassFactory> factory() {
    ComPtr<IClassFactory> result;
    EXPECT_EQ(S_OK, component_.class_object(host::kPopupMenuClass, IID_IClassFactory, result.receive_void()));
    return result;
  }

  Component component_;
};

TEST_F(ComponentModule, MayBeUnloadedWhenNothingIsLeft) {
  EXPECT_EQ(S_OK, component_.can_unload());
  { const auto popup = host::create_popup_menu(); }
  EXPECT_EQ(S_OK, component_.can_unload());
}

TEST_F(ComponentModule, AnObjectKeepsItLoaded) {
  const auto popup = host::create_popup_menu();
  EXPECT_EQ(S_FALSE, component_.can_unload());
}

TEST_F(ComponentModule, AClassFactoryKeepsItLoaded) {
  const auto kept = factory();
  EXPECT_EQ(S_FALSE, component_.can_unload());
}

TEST_F(ComponentModule, ALockKeepsItLoaded) {
  factory()->LockServer(TRUE);
  EXPECT_EQ(S_FALSE, component_.can_unload());
  factory()->LockServer(FALSE);
  EXPECT_EQ(S_OK, component_.can_unload());
}

TEST_F(ComponentModule, HasNoOtherClass) {
  ComPtr<IUnknown> object;
  EXPECT_EQ(CLASS_E_CLASSNOTAVAILABLE,
            component_.class_object(__uuidof(::ContratDoc), IID_IClassFactory, object.receive_void()));
}

TEST_F(ComponentModule, IsNotAggregated) {
  const auto outer = host::create_popup_menu();
  ComPtr<IUnknown> object;
  EXPECT_EQ(CLASS_E_NOAGGREGATION,
            factory()->CreateInstance(outer.get(), IID_IUnknown, object.receive_void()));
}

TEST_F(ComponentModule, ItsObjectsAreLateBoundOnly) {
  const auto popup = host::create_popup_menu();
  UINT count = 9;
  ComPtr<ITypeInfo> information;
  EXPECT_EQ(S_OK, popup->GetTypeInfoCount(&count));
  EXPECT_EQ(0u, count);
  EXPECT_EQ(E_NOTIMPL, popup->GetTypeInfo(0, LOCALE_USER_DEFAULT, information.receive()));
}

}  // namespace
