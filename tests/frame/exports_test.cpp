// What the DLL shows to the loader.
#include "frame/library.h"

namespace {

using host::Library;

template <class T>
const T* at(HMODULE module, DWORD offset) {
  return reinterpret_cast<const T*>(reinterpret_cast<const char*>(module) + offset);
}

const IMAGE_EXPORT_DIRECTORY& export_directory(HMODULE module) {
  const auto* dos = at<IMAGE_DOS_HEADER>(module, 0);
  const auto* headers = at<IMAGE_NT_HEADERS>(module, static_cast<DWORD>(dos->e_lfanew));
  const auto& entry = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_EXPORT];
  return *at<IMAGE_EXPORT_DIRECTORY>(module, entry.VirtualAddress);
}

TEST(Exports, ExportTableNamesTheFourFunctionsOnly) {
  const Library library;
  const IMAGE_EXPORT_DIRECTORY& table = export_directory(library.module());
  const DWORD* names = at<DWORD>(library.module(), table.AddressOfNames);
  std::vector<std::string> found;
  for (DWORD i = 0; i < table.NumberOfNames; ++i) found.emplace_back(at<char>(library.module(), names[i]));
  const std::vector<std::string> expected{"DllCanUnloadNow", "DllGetClassObject", "DllRegisterServer",
                                          "DllUnregisterServer"};
  EXPECT_EQ(expected, found);
}

TEST(Exports, ExportTableHoldsNothingByOrdinalOnly) {
  const Library library;
  EXPECT_EQ(4u, export_directory(library.module()).NumberOfFunctions);
}

TEST(Exports, ImportTableNeedsNoCompilerRunTime) {
  const Library library;
  const auto* dos = at<IMAGE_DOS_HEADER>(library.module(), 0);
  const auto* headers = at<IMAGE_NT_HEADERS>(library.module(), static_cast<DWORD>(dos->e_lfanew));
  const auto& entry = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
  int count = 0;
  for (const auto* import = at<IMAGE_IMPORT_DESCRIPTOR>(library.module(), entry.VirtualAddress); import->Name;
       ++import, ++count) {
    const std::string name = at<char>(library.module(), import->Name);
    EXPECT_EQ(std::string::npos, name.find("lib")) << name;
  }
  EXPECT_GT(count, 0);
}

}  // namespace
