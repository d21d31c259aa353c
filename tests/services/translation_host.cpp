#include "services/translation_host.h"

namespace host {
namespace {

void write_key(const std::wstring& key, const std::wstring& text) {
  HKEY handle = nullptr;
  ASSERT_EQ(ERROR_SUCCESS, RegCreateKeyExW(HKEY_CLASSES_ROOT, key.c_str(), 0, nullptr, 0, KEY_WRITE, nullptr,
                                           &handle, nullptr));
  const auto size = static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t));
  EXPECT_EQ(ERROR_SUCCESS,
            RegSetValueExW(handle, nullptr, 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()), size));
  RegCloseKey(handle);
}

}  // namespace

class TranslationHost::Factory final : public IClassFactory {
 public:
  explicit Factory(TranslationHost& host) : host_(host) {}

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
    *object = nullptr;
    if (iid != IID_IUnknown && iid != IID_IClassFactory) return E_NOINTERFACE;
    *object = static_cast<IClassFactory*>(this);
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return static_cast<ULONG>(++references_); }
  ULONG STDMETHODCALLTYPE Release() override {
    const long left = --references_;
    if (left == 0) delete this;
    return static_cast<ULONG>(left);
  }
  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, REFIID iid, void** object) override {
    *object = nullptr;
    if (host_.makes_none) return E_FAIL;
    return host_.make_link()->QueryInterface(iid, object);
  }
  HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }

 private:
  virtual ~Factory() = default;

  TranslationHost& host_;
  long references_ = 1;
};

TranslationHost::TranslationHost(std::wstring name) : key_(std::move(name) + L".ClsSAVLinkOCX") {
  CLSID id;
  wchar_t text[40];
  EXPECT_EQ(S_OK, CoCreateGuid(&id));
  StringFromGUID2(id, text, 40);
  write_key(key_, L"Lien de traduction");
  write_key(key_ + L"\\CLSID", text);
  factory_ = ComPtr<IClassFactory>::attach(new Factory(*this));
  EXPECT_EQ(S_OK, CoRegisterClassObject(id, factory_.get(), CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE,
                                        &registration_));
}

TranslationHost::~TranslationHost() {
  EXPECT_EQ(S_OK, CoRevokeClassObject(registration_));
  EXPECT_EQ(ERROR_SUCCESS, RegDeleteTreeW(HKEY_CLASSES_ROOT, key_.c_str()));
}

ComPtr<FakeObject> TranslationHost::make_link() {
  auto link = FakeObject::make();
  if (!is_mute) {
    link->on_get(L"GetTraduction_EXE",
                 [this](const FakeObject::Arguments& arguments) { return translate(arguments); });
  }
  links.push_back(link);
  return link;
}

Variant TranslationHost::translate(const FakeObject::Arguments& arguments) {
  EXPECT_EQ(1U, arguments.size());
  const VARIANT& argument = arguments.at(0);
  const long identifier = argument.vt == VT_I2 ? argument.iVal : argument.vt == VT_I4 ? argument.lVal : 0;
  requests.push_back({identifier, argument.vt});
  if (requests.size() == fails_at) {
    throw FakeObject::Error{kFailure, L"TestHote", L"Texte " + std::to_wstring(identifier) + L" absent"};
  }
  return answer ? answer(identifier) : text_value(prefix + std::to_wstring(identifier));
}

}  // namespace host
