#include "support/import_table.h"

#include <gtest/gtest.h>

#include <cstring>
#include <utility>

namespace host {

void for_each_import(HMODULE module, const std::function<void(const char* name, void** place)>& visit) {
  char* const base = reinterpret_cast<char*>(module);
  const auto* const headers =
      reinterpret_cast<IMAGE_NT_HEADERS*>(base + reinterpret_cast<IMAGE_DOS_HEADER*>(base)->e_lfanew);
  const IMAGE_DATA_DIRECTORY& directory = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
  for (auto* dll = reinterpret_cast<IMAGE_IMPORT_DESCRIPTOR*>(base + directory.VirtualAddress); dll->Name;
       ++dll) {
    const auto* name = reinterpret_cast<IMAGE_THUNK_DATA*>(base + dll->OriginalFirstThunk);
    auto* place = reinterpret_cast<void**>(base + dll->FirstThunk);
    for (; name->u1.AddressOfData; ++name, ++place) {
      if (IMAGE_SNAP_BY_ORDINAL(name->u1.Ordinal)) continue;
      visit(reinterpret_cast<const char*>(
                reinterpret_cast<IMAGE_IMPORT_BY_NAME*>(base + name->u1.AddressOfData)->Name),
            place);
    }
  }
}

void* write_import(void** place, void* address) {
  DWORD protection = 0;
  VirtualProtect(place, sizeof *place, PAGE_READWRITE, &protection);
  void* const former = std::exchange(*place, address);
  VirtualProtect(place, sizeof *place, protection, &protection);
  return former;
}

ReplacedImport::ReplacedImport(HMODULE module, const char* name, void* replacement) {
  for_each_import(module, [&](const char* imported, void** place) {
    if (std::strcmp(imported, name) != 0) return;
    former_ = write_import(place, replacement);
    places_.push_back(place);
  });
  EXPECT_FALSE(places_.empty()) << name << " is not imported";
}

ReplacedImport::~ReplacedImport() {
  for (void** const place : places_) write_import(place, former_);
}

}  // namespace host
