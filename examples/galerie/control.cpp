#include "control.h"

#include <cstdint>
#include <cwchar>
#include <new>

namespace galerie {
namespace {

const VARIANT& dereferenced(const VARIANT& value) {
  return value.vt == (VT_BYREF | VT_VARIANT) ? *value.pvarVal : value;
}

/// Takes another type; a value that cannot stays empty.
VARIANT converted(const VARIANT& value, VARTYPE type) {
  VARIANT result;
  VariantInit(&result);
  VariantChangeType(&result, const_cast<VARIANT*>(&value), 0, type);
  return result;
}

}  // namespace

void Control::add(const wchar_t* name, Getter getter, Setter setter) {
  members_.push_back({name, std::move(getter), std::move(setter)});
}

HRESULT Control::QueryInterface(REFIID iid, void** object) {
  if (!object) return E_POINTER;
  const bool known = iid == IID_IUnknown || iid == IID_IDispatch;
  *object = known ? static_cast<IDispatch*>(this) : nullptr;
  return known ? S_OK : E_NOINTERFACE;
}

HRESULT Control::GetTypeInfoCount(UINT* count) {
  if (!count) return E_POINTER;
  *count = 0;
  return S_OK;
}

HRESULT Control::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
  if (!names || !ids || count == 0) return E_INVALIDARG;
  for (UINT i = 0; i < count; ++i) ids[i] = DISPID_UNKNOWN;
  for (std::size_t i = 0; i < members_.size(); ++i) {
    if (_wcsicmp(names[0], members_[i].name) == 0) ids[0] = static_cast<DISPID>(i + 1);
  }
  return count == 1 && ids[0] != DISPID_UNKNOWN ? S_OK : DISP_E_UNKNOWNNAME;
}

HRESULT Control::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                        EXCEPINFO*, UINT*) {
  if (id < 1 || static_cast<std::size_t>(id) > members_.size()) return DISP_E_MEMBERNOTFOUND;
  const Member& member = members_[static_cast<std::size_t>(id) - 1];
  try {
    if (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) {
      if (!member.setter) return DISP_E_MEMBERNOTFOUND;
      if (!parameters || parameters->cArgs != 1) return DISP_E_BADPARAMCOUNT;
      member.setter(dereferenced(parameters->rgvarg[0]));
      return S_OK;
    }
    Arguments arguments;
    for (UINT i = parameters ? parameters->cArgs : 0; i > 0; --i) {
      arguments.push_back(&dereferenced(parameters->rgvarg[i - 1]));
    }
    VARIANT answer = member.getter(arguments);
    if (result) {
      *result = answer;
    } else {
      VariantClear(&answer);
    }
    return S_OK;
  } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
  } catch (const std::exception&) {
    return DISP_E_BADPARAMCOUNT;
  }
}

VARIANT value(long number) {
  VARIANT result;
  VariantInit(&result);
  result.vt = VT_I4;
  result.lVal = number;
  return result;
}

VARIANT value(std::wstring_view text) {
  VARIANT result;
  VariantInit(&result);
  result.bstrVal = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
  if (!result.bstrVal) throw std::bad_alloc();
  result.vt = VT_BSTR;
  return result;
}

VARIANT value(IDispatch* object) {
  VARIANT result;
  VariantInit(&result);
  result.vt = VT_DISPATCH;
  result.pdispVal = object;
  if (object) object->AddRef();
  return result;
}

VARIANT handle_value(HWND window) {
  return value(static_cast<long>(reinterpret_cast<std::intptr_t>(window)));
}

long number_of(const VARIANT& value) { return converted(value, VT_I4).lVal; }

std::wstring text_of(const VARIANT& value) {
  VARIANT text = converted(value, VT_BSTR);
  std::wstring result;
  if (text.vt == VT_BSTR && text.bstrVal) result.assign(text.bstrVal, SysStringLen(text.bstrVal));
  VariantClear(&text);
  return result;
}

}  // namespace galerie
