#include "support/fake_object.h"

namespace host {

ComPtr<FakeObject> FakeObject::make() { return ComPtr<FakeObject>::attach(new FakeObject); }

FakeObject::Member& FakeObject::member(const std::wstring& name) {
  const auto [place, added] = members_.try_emplace(name);
  if (added) names_.push_back(name);
  return place->second;
}

void FakeObject::on_get(std::wstring name, Getter getter) { member(name).getter = std::move(getter); }

void FakeObject::on_put(std::wstring name, Setter setter) { member(name).setter = std::move(setter); }

void FakeObject::property(std::wstring name, Variant initial) {
  Member& added = member(name);
  added.stored = std::move(initial);
  added.getter = [&added](const Arguments&) {
    Variant copy;
    VariantCopy(copy.receive(), &added.stored.get());
    return copy;
  };
  added.setter = [&added](const VARIANT& value) {
    VariantCopy(added.stored.receive(), const_cast<VARIANT*>(&value));
  };
}

const VARIANT& FakeObject::value(const std::wstring& name) const { return members_.at(name).stored.get(); }

HRESULT FakeObject::QueryInterface(REFIID iid, void** object) {
  *object = nullptr;
  if (iid != IID_IUnknown && iid != IID_IDispatch) return E_NOINTERFACE;
  *object = static_cast<IDispatch*>(this);
  AddRef();
  return S_OK;
}

ULONG FakeObject::AddRef() { return static_cast<ULONG>(++references_); }

ULONG FakeObject::Release() {
  const long left = --references_;
  if (left == 0) delete this;
  return static_cast<ULONG>(left);
}

HRESULT FakeObject::GetTypeInfoCount(UINT* count) {
  *count = 0;
  return S_OK;
}

HRESULT FakeObject::GetTypeInfo(UINT, LCID, ITypeInfo**) { return E_NOTIMPL; }

HRESULT FakeObject::GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) {
  for (std::size_t i = 0; i < names_.size(); ++i) {
    if (lstrcmpiW(names_[i].c_str(), names[0]) == 0) {
      ids[0] = static_cast<DISPID>(i + 1);
      return S_OK;
    }
  }
  ids[0] = DISPID_UNKNOWN;
  return DISP_E_UNKNOWNNAME;
}

HRESULT FakeObject::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                           EXCEPINFO* exception, UINT*) {
  if (id < 1 || static_cast<std::size_t>(id) > names_.size()) return DISP_E_MEMBERNOTFOUND;
  const std::wstring& name = names_[static_cast<std::size_t>(id) - 1];
  Member& used = members_.at(name);
  try {
    if (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) {
      log.push_back(L"put " + name);
      if (!used.setter) return DISP_E_MEMBERNOTFOUND;
      used.setter(velmosav::dereferenced(parameters->rgvarg[0]));
      return S_OK;
    }
    Arguments arguments;
    for (UINT i = parameters->cArgs; i > 0; --i) {
      arguments.push_back(velmosav::dereferenced(parameters->rgvarg[i - 1]));
    }
    log.push_back(arguments.empty() ? L"get " + name
                                    : L"call " + name + L"(" + std::to_wstring(arguments.size()) + L")");
    if (!used.getter) return DISP_E_MEMBERNOTFOUND;
    Variant value = used.getter(arguments);
    if (result) *result = value.detach();
    return S_OK;
  } catch (const Error& error) {
    if (exception) {
      *exception = {};
      exception->scode = error.code;
      exception->wCode = error.number;
      exception->bstrSource = SysAllocString(error.source.c_str());
      exception->bstrDescription = SysAllocString(error.description.c_str());
    }
    return DISP_E_EXCEPTION;
  } catch (const Refusal& refusal) {
    return refusal.code;
  }
}

}  // namespace host
