#include "automation/fault.h"

#include "automation/platform.h"

#include <cmath>

namespace velmosav {

namespace {

/// An object may leave information that says nothing: its code then gets a text of the library.
bool has_text(IErrorInfo& information) noexcept {
  BSTR text = nullptr;
  information.GetDescription(&text);
  const bool found = SysStringLen(text) != 0;
  SysFreeString(text);
  return found;
}

}  // namespace

const wchar_t* failure_text(HRESULT code) noexcept {
  switch (code) {
#define FAULT(number, name, text) \
  case fault_code(Fault::name):   \
    return L##text;
#include "automation/faults.def"
    case E_OUTOFMEMORY:
      return L"Mémoire insuffisante";
    case E_POINTER:
      return L"Adresse d'enregistrement ou de résultat absente";
    default:
      return L"L'opération a échoué";
  }
}

void raise(Fault fault) { throw Failure{fault_code(fault), nullptr}; }

void raise(HRESULT code) { throw Failure{code, nullptr}; }

void raise_call_failure(HRESULT code) {
  ComPtr<IErrorInfo> information;
  if (code != E_OUTOFMEMORY && GetErrorInfo(0, information.receive()) != S_OK) information = nullptr;
  if (information && !has_text(*information.get())) information = nullptr;
  throw Failure{code, information};
}

void check_conversion(HRESULT code) {
  if (SUCCEEDED(code)) return;
  if (code == DISP_E_TYPEMISMATCH || code == DISP_E_BADVARTYPE || code == E_INVALIDARG)
    raise(Fault::TypeMismatch);
  if (code == DISP_E_OVERFLOW) raise(Fault::Overflow);
  raise(code);
}

double finite(double value) {
  if (!std::isfinite(value)) raise(Fault::Overflow);
  return value;
}

double divide(double numerator, double denominator) {
  if (denominator == 0 && numerator != 0 && !std::isnan(numerator)) raise(Fault::DivisionByZero);
  return finite(numerator / denominator);
}

}  // namespace velmosav
