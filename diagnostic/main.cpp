// sav-diagnostic: can the library be used on this machine? Exit code 0 only when all is well.
#include "checks.h"

int main() {
  diagnostic::Report report;
  if (const HRESULT code = CoInitialize(nullptr); FAILED(code)) {
    report.failure(L"COM", diagnostic::message_of(code), L"");
    return 1;
  }
  diagnostic::check_registration(report);
  diagnostic::check_environment(report);
  diagnostic::check_classes(report);
  CoUninitialize();
  report.verdict();
  return report.failures() == 0 ? 0 : 1;
}
