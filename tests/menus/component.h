// The popup-menu component: the DLL itself, its registration, and objects of it.
#pragma once

#include "support/host.h"

namespace host {

inline constexpr wchar_t kPopupMenuProgId[] = L"Lumbra30.ApiPopupMenu";
inline constexpr CLSID kPopupMenuClass{
    0x57f0aa60, 0xd385, 0x429c, {0xa9, 0xfb, 0x8d, 0x5d, 0x18, 0xaa, 0xac, 0xd4}};

/// Full path of the DLL, in bin/ beside the folder of the tests.
std::wstring component_path();

/// The DLL, held in the process. Registered while the tests run, whatever the machine has registered; a
/// machine without it is without it again afterwards.
class Component {
 public:
  Component();
  ~Component();
  Component(const Component&) = delete;
  Component& operator=(const Component&) = delete;

  [[nodiscard]] HMODULE module() const { return module_; }
  [[nodiscard]] HRESULT register_server() const { return call("DllRegisterServer"); }
  [[nodiscard]] HRESULT unregister_server() const { return call("DllUnregisterServer"); }
  [[nodiscard]] HRESULT can_unload() const { return call("DllCanUnloadNow"); }
  HRESULT class_object(REFCLSID clsid, REFIID iid, void** object) const;

 private:
  HRESULT call(const char* name) const;

  HMODULE module_;
};

/// A new object by the ProgID.
ComPtr<IDispatch> create_popup_menu();

/// While it lives, the component is not registered.
class WithoutComponent {
 public:
  WithoutComponent() { EXPECT_EQ(S_OK, component_.unregister_server()); }
  ~WithoutComponent() { EXPECT_EQ(S_OK, component_.register_server()); }
  WithoutComponent(const WithoutComponent&) = delete;
  WithoutComponent& operator=(const WithoutComponent&) = delete;

 private:
  Component component_;
};

}  // namespace host
