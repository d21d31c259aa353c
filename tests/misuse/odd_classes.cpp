#include "misuse/odd_classes.h"

#include "menus/component.h"

namespace misuse {
namespace {

CLSID new_identifier() {
  CLSID id{};
  EXPECT_EQ(S_OK, CoCreateGuid(&id));
  return id;
}

std::wstring link_key() { return OddTexts::host_name() + L".ClsSAVLinkOCX"; }

}  // namespace

OddClass::OddClass(const CLSID& clsid, GeneratedCall* const& call) : call_(call) {
  EXPECT_EQ(S_OK, CoRegisterClassObject(clsid, this, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &place_));
}

HRESULT OddClass::QueryInterface(REFIID iid, void** object) {
  *object = nullptr;
  if (iid != IID_IUnknown && iid != IID_IClassFactory) return E_NOINTERFACE;
  *object = static_cast<IClassFactory*>(this);
  return S_OK;
}

HRESULT OddClass::CreateInstance(IUnknown*, REFIID iid, void** object) {
  *object = nullptr;
  if (!call_ || iid != IID_IDispatch || call_->dice().one_in(20)) return E_NOINTERFACE;
  *object = call_->new_object();
  return *object ? S_OK : E_OUTOFMEMORY;
}

OddClasses::OddClasses()
    : link_id_(new_identifier()), menu_(host::kPopupMenuClass, call), link_(link_id_, call) {
  wchar_t id[39];
  StringFromGUID2(link_id_, id, 39);
  // A program that crashes leaves no lasting key.
  HKEY key = nullptr;
  EXPECT_EQ(ERROR_SUCCESS, RegCreateKeyExW(HKEY_CLASSES_ROOT, (link_key() + L"\\CLSID").c_str(), 0, nullptr,
                                           REG_OPTION_VOLATILE, KEY_WRITE, nullptr, &key, nullptr));
  EXPECT_EQ(ERROR_SUCCESS,
            RegSetValueExW(key, nullptr, 0, REG_SZ, reinterpret_cast<const BYTE*>(id), sizeof id));
  RegCloseKey(key);
}

OddClasses::~OddClasses() { EXPECT_EQ(ERROR_SUCCESS, RegDeleteTreeW(HKEY_CLASSES_ROOT, link_key().c_str())); }

}  // namespace misuse
