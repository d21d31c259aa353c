#include "menus/scripted_popup.h"

#include "menus/component.h"

namespace host {
namespace {

std::wstring shown(const VARIANT& value) {
  switch (value.vt) {
    case VT_BSTR:
      return L"BSTR " + get(value.bstrVal);
    case VT_I4:
      return L"I4 " + std::to_wstring(value.lVal);
    default:
      return L"type " + std::to_wstring(value.vt);
  }
}

}  // namespace

ScriptedPopup::ScriptedPopup(Variant key) : key_(std::move(key)) {
  object_->on_get(L"AddItem", [this](const FakeObject::Arguments& arguments) {
    record(L"AddItem", arguments);
    return Variant();
  });
  object_->on_get(L"ExecuteFromWindow", [this](const FakeObject::Arguments& arguments) {
    record(L"ExecuteFromWindow", arguments);
    Variant copy;
    VariantCopy(copy.receive(), &key_.get());
    return copy;
  });
  // A class object of the process comes before the registered DLL.
  EXPECT_EQ(S_OK, CoRegisterClassObject(kPopupMenuClass, this, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE,
                                        &registration_));
}

ScriptedPopup::~ScriptedPopup() { CoRevokeClassObject(registration_); }

void ScriptedPopup::record(const wchar_t* member, const FakeObject::Arguments& arguments) {
  std::wstring call = member;
  for (std::size_t i = 0; i < arguments.size(); ++i) call += (i ? L", " : L"(") + shown(arguments[i]);
  calls.push_back(arguments.empty() ? call : call + L")");
}

HRESULT ScriptedPopup::QueryInterface(REFIID iid, void** object) {
  *object = nullptr;
  if (iid != IID_IUnknown && iid != IID_IClassFactory) return E_NOINTERFACE;
  *object = static_cast<IClassFactory*>(this);
  return S_OK;
}

HRESULT ScriptedPopup::CreateInstance(IUnknown*, REFIID iid, void** object) {
  calls.push_back(L"create");
  *object = nullptr;
  return SUCCEEDED(creation) ? object_->QueryInterface(iid, object) : creation;
}

}  // namespace host
