#include "host_object.h"

#include <cwchar>

namespace facturation {

HRESULT HostObject::QueryInterface(REFIID iid, void** object) {
  if (!object) return E_POINTER;
  const bool known = iid == IID_IUnknown || iid == IID_IDispatch;
  *object = known ? static_cast<IDispatch*>(this) : nullptr;
  if (!known) return E_NOINTERFACE;
  AddRef();
  return S_OK;
}

ULONG HostObject::Release() {
  const ULONG left = --references_;
  if (left == 0) delete this;
  return left;
}

HRESULT HostObject::GetTypeInfoCount(UINT* count) {
  if (!count) return E_POINTER;
  *count = 0;
  return S_OK;
}

HRESULT HostObject::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
  if (!names || !ids || count == 0) return E_INVALIDARG;
  for (UINT i = 0; i < count; ++i) ids[i] = DISPID_UNKNOWN;
  for (std::size_t i = 0; i < members_.size(); ++i) {
    if (_wcsicmp(names[0], members_[i]) == 0) ids[0] = static_cast<DISPID>(i + 1);
  }
  // Named arguments are not offered: a second name is always unknown.
  return count == 1 && ids[0] != DISPID_UNKNOWN ? S_OK : DISP_E_UNKNOWNNAME;
}

HRESULT HostObject::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                           EXCEPINFO*, UINT*) {
  if (id < 1 || static_cast<std::size_t>(id) > members_.size()) return DISP_E_MEMBERNOTFOUND;
  if (!(flags & (DISPATCH_METHOD | DISPATCH_PROPERTYGET))) return DISP_E_MEMBERNOTFOUND;
  if (parameters && parameters->cNamedArgs) return DISP_E_NONAMEDARGS;
  VARIANT value;
  VariantInit(&value);
  const std::span<VARIANTARG> arguments =
      parameters ? std::span(parameters->rgvarg, parameters->cArgs) : std::span<VARIANTARG>();
  const HRESULT outcome = answer(id, arguments, value);
  if (SUCCEEDED(outcome) && result) {
    *result = value;
  } else {
    VariantClear(&value);
  }
  return outcome;
}

HRESULT answer_text(const wchar_t* text, VARIANT& result) {
  result.bstrVal = SysAllocString(text);
  if (!result.bstrVal) return E_OUTOFMEMORY;
  result.vt = VT_BSTR;
  return S_OK;
}

}  // namespace facturation
