#include "checks.h"

#include <VelmoSAV_DLL14.h>

#include "automation/com_ptr.h"

namespace diagnostic {
namespace {

/// The library frees itself once nothing is held: what stays loaded after a class's release was not released.
HRESULT create_and_release(const wchar_t* prog_id, REFIID iid) {
  CLSID clsid;
  if (const HRESULT code = CLSIDFromProgID(prog_id, &clsid); FAILED(code)) return code;
  velmosav::ComPtr<IDispatch> object;
  const HRESULT code = CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, iid, object.receive_void());
  if (FAILED(code)) return code;
  return object.detach()->Release() == 0 ? S_OK : E_UNEXPECTED;
}

void check_class(Report& report, const wchar_t* name, REFIID iid) {
  const HRESULT code = create_and_release((L"VelmoSAV_DLL14." + std::wstring(name)).c_str(), iid);
  if (SUCCEEDED(code)) {
    report.well(name, L"créée et libérée");
  } else {
    report.failure(name, code == E_UNEXPECTED ? L"créée, mais non libérée" : message_of(code), L"");
  }
}

}  // namespace

void check_classes(Report& report) {
  report.title(L"Classes");
#define AUTOMATION_CLASS(name) check_class(report, L"" #name, __uuidof(_##name));
#include "classes.def"
#undef AUTOMATION_CLASS
}

}  // namespace diagnostic
