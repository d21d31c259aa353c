#include "support/library_path.h"

#include "automation/platform.h"

namespace host {

std::wstring library_path() { return library_folder() + L"\\VelmoSAV_DLL14.dll"; }

std::wstring library_folder() {
  wchar_t program[MAX_PATH];
  GetModuleFileNameW(nullptr, program, MAX_PATH);
  const std::wstring path = program;
  wchar_t folder[MAX_PATH];
  GetFullPathNameW((path.substr(0, path.find_last_of(L"\\/")) + L"\\..\\bin").c_str(), MAX_PATH, folder,
                   nullptr);
  return folder;
}

}  // namespace host
