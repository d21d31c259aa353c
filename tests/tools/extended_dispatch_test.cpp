// Host objects that answer only the extended dispatch interface, as classes written in a script do.
#include <dispex.h>

#include "support/host.h"

namespace {

using host::ComPtr;

/// A numeric entry control: TypeChamp 1, Valeur and Format as given. GetIDsOfNames knows no name.
class ExtendedControl final : public IDispatchEx {
 public:
  ExtendedControl(std::wstring value, std::wstring format)
      : value_(std::move(value)), format_(std::move(format)) {}

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
    *object = nullptr;
    if (iid != IID_IUnknown && iid != IID_IDispatch && iid != __uuidof(IDispatchEx)) return E_NOINTERFACE;
    *object = static_cast<IDispatchEx*>(this);
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
    return DISP_E_UNKNOWNNAME;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                                   UINT*) override {
    return DISP_E_MEMBERNOTFOUND;
  }

  HRESULT STDMETHODCALLTYPE GetDispID(BSTR name, DWORD flags, DISPID* id) override {
    ignored_case = (flags & fdexNameCaseInsensitive) != 0;
    const std::wstring_view wanted = velmosav::view(name);
    *id = wanted == L"TypeChamp" ? 1 : wanted == L"Valeur" ? 2 : wanted == L"Format" ? 3 : DISPID_UNKNOWN;
    return *id == DISPID_UNKNOWN ? DISP_E_UNKNOWNNAME : S_OK;
  }
  HRESULT STDMETHODCALLTYPE InvokeEx(DISPID id, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                                     IServiceProvider*) override {
    host::Variant value =
        id == 1 ? host::Variant(short{1}) : host::text_value(id == 2 ? std::wstring_view(value_) : format_);
    *result = value.detach();
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE DeleteMemberByName(BSTR, DWORD) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE DeleteMemberByDispID(DISPID) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetMemberProperties(DISPID, DWORD, DWORD*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetMemberName(DISPID, BSTR*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetNextDispID(DWORD, DISPID, DISPID*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetNameSpaceParent(IUnknown**) override { return E_NOTIMPL; }

  bool ignored_case = false;

 private:
  std::wstring value_;
  std::wstring format_;
};

bool check(ExtendedControl& control, host::Variant& value) {
  const auto tools = host::create<_Outil>(L"Outil");
  IDispatch* object = &control;
  VARIANT_BOOL answer = VARIANT_FALSE;
  EXPECT_EQ(S_OK, tools->CheckFmtNum(&object, &value.get(), &answer));
  return answer != VARIANT_FALSE;
}

TEST(ExtendedDispatch, MembersAreFoundThroughTheExtendedInterface) {
  ExtendedControl control(L"519,4", L"N;3.0;>0;<520;B");
  host::Variant value = host::missing();
  EXPECT_TRUE(check(control, value));
  EXPECT_TRUE(control.ignored_case);
  EXPECT_EQ(VT_R8, value.get().vt);
  EXPECT_EQ(519.4, value.get().dblVal);
}

TEST(ExtendedDispatch, ValueOutsideTheFormatIsRefused) {
  ExtendedControl control(L"520,5", L"N;3.1;>0;<520;B");
  host::Variant value = host::missing();
  EXPECT_FALSE(check(control, value));
}

}  // namespace
