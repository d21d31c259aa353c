#include "object/boundary.h"

#include <new>
#include <stdexcept>

namespace velmosav {
namespace {

/// Error information without allocation failures in the way: when it cannot be made, the HRESULT still goes
/// out.
void set_error_information(const wchar_t* class_name, HRESULT code) noexcept {
  SetErrorInfo(0, nullptr);
  ComPtr<ICreateErrorInfo> creation;
  if (FAILED(CreateErrorInfo(creation.receive()))) return;
  wchar_t source[64] = L"VelmoSAV_DLL14.";
  lstrcatW(source, class_name);
  creation->SetSource(source);
  creation->SetDescription(const_cast<wchar_t*>(failure_text(code)));
  ComPtr<IErrorInfo> information;
  if (SUCCEEDED(creation->QueryInterface(IID_IErrorInfo, information.receive_void()))) {
    SetErrorInfo(0, information.get());
  }
}

HRESULT out_of_memory(const wchar_t* class_name) noexcept {
  set_error_information(class_name, E_OUTOFMEMORY);
  return E_OUTOFMEMORY;
}

}  // namespace

HRESULT report_failure(const wchar_t* class_name) noexcept {
  try {
    throw;
  } catch (const Failure& failure) {
    if (failure.information) {
      SetErrorInfo(0, failure.information.get());
    } else {
      set_error_information(class_name, failure.code);
    }
    return failure.code;
  } catch (const std::bad_alloc&) {
    return out_of_memory(class_name);
  } catch (const std::length_error&) {
    return out_of_memory(class_name);
  } catch (...) {
    set_error_information(class_name, E_UNEXPECTED);
    return E_UNEXPECTED;
  }
}

}  // namespace velmosav
