// A host that runs with nothing registered: the library lies beside it, and its manifest names the library's
// assembly. Shows which file served it, and one result of the library.
#include <cstdio>

#include "sav.h"

int main() {
  SetConsoleOutputCP(CP_UTF8);
  sav::check(CoInitialize(nullptr));
  int code = 1;
  try {
    const auto documents = sav::create<_ContratDoc>(L"ContratDoc");
    sav::Text end;
    sav::check(documents->SetDateByDuree(sav::Text(L"01/01/2026"), 12, sav::Text(L"M"), &end));
    std::printf("Un contrat de 12 mois du 01/01/2026 finit le %s\n", sav::utf8(end).c_str());

    wchar_t path[MAX_PATH] = L"";
    GetModuleFileNameW(GetModuleHandleW(L"VelmoSAV_DLL14.dll"), path, MAX_PATH);
    std::printf("Bibliothèque : %s\n", sav::utf8(sav::Text(path)).c_str());
    code = 0;
  } catch (const sav::Failure& failure) {
    std::printf("Erreur %ld : %s\n", failure.code & 0xFFFF, failure.what());
  }
  CoUninitialize();
  return code;
}
