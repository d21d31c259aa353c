#include "automation/late_bound.h"

#include <dispex.h>

#include <algorithm>

#include "automation/fault.h"

namespace velmosav {
namespace {

/// The owner of what a failed call left.
struct ExceptionInformation : EXCEPINFO {
  ExceptionInformation() : EXCEPINFO{} {}
  ~ExceptionInformation() {
    SysFreeString(bstrSource);
    SysFreeString(bstrDescription);
    SysFreeString(bstrHelpFile);
  }
  ExceptionInformation(const ExceptionInformation&) = delete;
  ExceptionInformation& operator=(const ExceptionInformation&) = delete;
};

HRESULT code_of(const ExceptionInformation& exception) noexcept {
  if (FAILED(exception.scode)) return exception.scode;
  return exception.wCode != 0 ? static_cast<HRESULT>(0x800A0000UL + exception.wCode) : E_FAIL;
}

ComPtr<IErrorInfo> information_of(const ExceptionInformation& exception) noexcept {
  ComPtr<IErrorInfo> information;
  ComPtr<ICreateErrorInfo> creation;
  if (SysStringLen(exception.bstrDescription) != 0 && SUCCEEDED(CreateErrorInfo(creation.receive()))) {
    creation->SetDescription(exception.bstrDescription);
    creation->SetSource(exception.bstrSource);
    creation->SetHelpFile(exception.bstrHelpFile);
    creation->SetHelpContext(exception.dwHelpContext);
    creation->QueryInterface(IID_IErrorInfo, information.receive_void());
  }
  return information;
}

}  // namespace

ComPtr<IDispatch> create_object(const wchar_t* prog_id) {
  CLSID clsid;
  ComPtr<IDispatch> object;
  HRESULT code = CLSIDFromProgID(prog_id, &clsid);
  if (SUCCEEDED(code)) {
    code = CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER | CLSCTX_LOCAL_SERVER, IID_IDispatch,
                            object.receive_void());
  }
  if (code == E_OUTOFMEMORY) raise(code);
  if (FAILED(code)) raise(Fault::CannotCreateObject);
  return object;
}

HostMember::HostMember(IDispatch* object, const wchar_t* name) : object_(ComPtr<IDispatch>::copy(object)) {
  if (!object) raise(Fault::ObjectNotSet);
  forget_error_information();
  auto* names = const_cast<wchar_t*>(name);
  const HRESULT code = object->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id_);
  if (SUCCEEDED(code)) return;
  ComPtr<IDispatchEx> extended;
  if (SUCCEEDED(object->QueryInterface(__uuidof(IDispatchEx), extended.receive_void()))) {
    Bstr member{std::wstring_view(name)};
    if (SUCCEEDED(extended->GetDispID(member.get(), fdexNameCaseInsensitive, &id_))) {
      extended_ = ComPtr<IDispatch>::attach(extended.detach());
      return;
    }
  }
  if (code == DISP_E_UNKNOWNNAME || code == DISP_E_MEMBERNOTFOUND) raise(Fault::MemberNotFound);
  raise_call_failure(code);
}

void HostMember::raise_if_failed(Outcome outcome) {
  if (SUCCEEDED(outcome.code)) return;
  if (outcome.is_exception) throw Failure{outcome.code, std::move(outcome.information)};
  if (outcome.code == DISP_E_MEMBERNOTFOUND) raise(Fault::MemberNotFound);
  raise_call_failure(outcome.code);
}

HostMember::Outcome HostMember::read(Variant* arguments, std::size_t count, Variant& result) const {
  // The platform takes arguments last first.
  std::reverse(arguments, arguments + count);
  static_assert(sizeof(Variant) == sizeof(VARIANT));
  DISPPARAMS parameters{count ? &arguments->get() : nullptr, nullptr, static_cast<UINT>(count), 0};
  return invoke(DISPATCH_METHOD | DISPATCH_PROPERTYGET, parameters, result.receive());
}

void HostMember::put(Variant value) const {
  DISPID named = DISPID_PROPERTYPUT;
  DISPPARAMS parameters{&value.get(), &named, 1, 1};
  raise_if_failed(invoke(DISPATCH_PROPERTYPUT, parameters, nullptr));
}

HostMember::Outcome HostMember::invoke(WORD flags, DISPPARAMS& parameters, VARIANT* result) const {
  ExceptionInformation exception;
  forget_error_information();
  const HRESULT code =
      extended_ ? static_cast<IDispatchEx*>(extended_.get())
                      ->InvokeEx(id_, LOCALE_USER_DEFAULT, flags, &parameters, result, &exception, nullptr)
                : object_->Invoke(id_, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters, result, &exception,
                                  nullptr);
  if (code != DISP_E_EXCEPTION) return {code, nullptr, false};
  if (exception.pfnDeferredFillIn) exception.pfnDeferredFillIn(&exception);
  return {code_of(exception), information_of(exception), true};
}

}  // namespace velmosav
