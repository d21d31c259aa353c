#include "support/host.h"

#include <algorithm>
#include <ostream>

namespace host {
namespace {

HRESULT invoke(IDispatch* object, const wchar_t* name, WORD flags, DISPPARAMS& parameters, VARIANT* result,
               EXCEPINFO* exception) {
  auto* names = const_cast<wchar_t*>(name);
  DISPID id = DISPID_UNKNOWN;
  const HRESULT code = object->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id);
  if (FAILED(code)) return code;
  return object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters, result, exception, nullptr);
}

}  // namespace

ComPtr<IDispatch> create_dispatch(std::wstring_view class_name) {
  const std::wstring prog_id = L"VelmoSAV_DLL14." + std::wstring(class_name);
  CLSID clsid;
  ComPtr<IDispatch> object;
  HRESULT code = CLSIDFromProgID(prog_id.c_str(), &clsid);
  if (SUCCEEDED(code)) {
    code = CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, object.receive_void());
  }
  EXPECT_EQ(S_OK, code) << utf8(prog_id);
  return object;
}

std::string utf8(std::wstring_view text) {
  const int size = WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), nullptr, 0,
                                       nullptr, nullptr);
  std::string result(static_cast<std::size_t>(size), '\0');
  WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), result.data(), size, nullptr,
                      nullptr);
  return result;
}

std::ostream& operator<<(std::ostream& stream, const Text& text) {
  return stream << '"' << utf8(text.str()) << '"';
}

Variant missing() {
  Variant value;
  value.get().vt = VT_ERROR;
  value.get().scode = DISP_E_PARAMNOTFOUND;
  return value;
}

Variant null_value() {
  Variant value;
  value.get().vt = VT_NULL;
  return value;
}

Variant text_value(std::wstring_view text) { return Variant(Bstr(text)); }

Variant bool_value(bool value) {
  Variant result;
  result.get().vt = VT_BOOL;
  result.get().boolVal = velmosav::to_variant_bool(value);
  return result;
}

Variant object_value(IDispatch* object) {
  Variant result;
  result.get().vt = VT_DISPATCH;
  result.get().pdispVal = ComPtr<IDispatch>::copy(object).detach();
  return result;
}

ErrorReport take_error() {
  ErrorReport report;
  ComPtr<IErrorInfo> information;
  if (GetErrorInfo(0, information.receive()) != S_OK) return report;
  Bstr source, description;
  information->GetSource(source.receive());
  information->GetDescription(description.receive());
  return {std::wstring(source.view()), std::wstring(description.view())};
}

::testing::AssertionResult is_fault(HRESULT code, int number, std::wstring_view class_name) {
  const ErrorReport report = take_error();
  const auto expected = static_cast<HRESULT>(0x800A0000UL + static_cast<unsigned long>(number));
  if (code != expected) {
    return ::testing::AssertionFailure() << "HRESULT " << std::hex << static_cast<unsigned long>(code)
                                         << " instead of fault " << std::dec << number;
  }
  if (report.source != L"VelmoSAV_DLL14." + std::wstring(class_name)) {
    return ::testing::AssertionFailure() << "source \"" << utf8(report.source) << '"';
  }
  if (report.description.empty()) return ::testing::AssertionFailure() << "no error text";
  return ::testing::AssertionSuccess();
}

HRESULT call(IDispatch* object, const wchar_t* name, std::vector<Variant> arguments, VARIANT* result,
             EXCEPINFO* exception) {
  std::reverse(arguments.begin(), arguments.end());
  DISPPARAMS parameters{arguments.empty() ? nullptr : &arguments[0].get(), nullptr,
                        static_cast<UINT>(arguments.size()), 0};
  return invoke(object, name, DISPATCH_METHOD, parameters, result, exception);
}

HRESULT get_property(IDispatch* object, const wchar_t* name, VARIANT* result) {
  DISPPARAMS parameters{};
  return invoke(object, name, DISPATCH_PROPERTYGET, parameters, result, nullptr);
}

HRESULT put_property(IDispatch* object, const wchar_t* name, Variant value) {
  DISPID named = DISPID_PROPERTYPUT;
  DISPPARAMS parameters{&value.get(), &named, 1, 1};
  return invoke(object, name, DISPATCH_PROPERTYPUT, parameters, nullptr, nullptr);
}

}  // namespace host
