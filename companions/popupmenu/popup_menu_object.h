// The component's one class, called by name only.
//
//   AddItem caption, key         appends an entry
//   AddItem "-"                  appends a separator
//   ExecuteFromWindow(hWnd)      shows the menu and waits; the chosen entry's key, "" when dismissed
//
// An entry added without key answers "", so its choice looks like a dismissal. An object keeps its entries
// and can be shown again.
#pragma once

#include "automation/platform.h"

#include <atomic>

#include "automation/module.h"
#include "automation/variant.h"
#include "menu.h"

namespace popupmenu {

inline constexpr wchar_t kProgId[] = L"Lumbra30.ApiPopupMenu";

class PopupMenuObject final : public IDispatch {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) noexcept override;
  ULONG STDMETHODCALLTYPE AddRef() noexcept override;
  ULONG STDMETHODCALLTYPE Release() noexcept override;

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) noexcept override;
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) noexcept override;
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale,
                                          DISPID* ids) noexcept override;
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* parameters,
                                   VARIANT* result, EXCEPINFO* exception,
                                   UINT* bad_argument) noexcept override;

 private:
  virtual ~PopupMenuObject() = default;

  velmosav::Variant perform(DISPID id, const DISPPARAMS& parameters);
  void add_item(const VARIANT& caption, const VARIANT* key);

  Menu menu_;
  std::atomic<ULONG> references_{1};
  velmosav::module::Reference module_reference_;
};

/// One reference, null when memory lacks.
IDispatch* create_popup_menu();

}  // namespace popupmenu
