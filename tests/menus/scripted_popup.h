// A popup-menu object played by the test: it stands behind the component's ProgID while it lives, and keeps
// the calls that it gets.
#pragma once

#include "support/fake_object.h"

namespace host {

class ScriptedPopup final : public IClassFactory {
 public:
  /// `key` is what ExecuteFromWindow answers.
  explicit ScriptedPopup(Variant key = text_value(L""));
  ~ScriptedPopup();
  ScriptedPopup(const ScriptedPopup&) = delete;
  ScriptedPopup& operator=(const ScriptedPopup&) = delete;

  /// Creations, calls with their arguments, and the button's use where it shares the list:
  /// "create", "AddItem(BSTR Liste des sites, BSTR 0)", "ExecuteFromWindow(I4 65582)".
  std::vector<std::wstring> calls;

  [[nodiscard]] const ComPtr<FakeObject>& object() const { return object_; }
  /// What CreateInstance answers.
  HRESULT creation = S_OK;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override;
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, void** object) override;
  HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }

 private:
  void record(const wchar_t* member, const FakeObject::Arguments& arguments);

  ComPtr<FakeObject> object_ = FakeObject::make();
  Variant key_;
  DWORD registration_ = 0;
};

}  // namespace host
