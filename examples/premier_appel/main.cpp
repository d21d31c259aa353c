// A first host in C++: creates classes by ProgID, passes a record and an array of records, meets a fault.
#include <cstdio>

#include "sav.h"

namespace {

using sav::check;

/// Frees what a contract's schedule holds, then the array: the library does it for the host.
struct Contract : Type_Contrat {
  explicit Contract(_ContratDoc* documents) : Type_Contrat{}, documents_(documents) {}
  Contract(const Contract&) = delete;
  Contract& operator=(const Contract&) = delete;
  ~Contract() {
    documents_->RazDocCtt(this);
    for (BSTR text : {Code, DateDeb, DateFin, TypeTypTarif}) SysFreeString(text);
  }

 private:
  _ContratDoc* documents_;
};

void run() {
  const auto documents = sav::create<_ContratDoc>(L"ContratDoc");

  Contract contract(documents.get());
  sav::set(contract.Code, L"CT001");
  sav::set(contract.TypeTypTarif, L"H");
  sav::set(contract.DateDeb, L"01/01/2026");
  sav::Text end;
  check(documents->SetDateByDuree(contract.DateDeb, 12, sav::Text(L"M"), &end));
  sav::set(contract.DateFin, end);

  // The first row is written at index 0, the others are appended.
  short index = 0, row = 0;
  sav::Text due(L"01/01/2026"), first_end(L"30/06/2026"), second_start(L"01/07/2026");
  check(documents->AjouterCadFactCtt(&contract, due, contract.DateDeb, first_end, &index, &row));
  index = -1;
  check(documents->AjouterCadFactCtt(&contract, second_start, second_start, contract.DateFin, &index, &row));

  short rows = 0;
  check(documents->NbrCadFact(&contract, &rows));
  for (short i = 0; i < rows; ++i) {
    const auto& line = sav::element<Type_CadencierFact>(contract.TabCadFact, static_cast<ULONG>(i));
    std::printf("%s, du %s au %s\n", sav::utf8(line.Libelle).c_str(), sav::utf8(line.DateDeb).c_str(),
                sav::utf8(line.DateFin).c_str());
  }

  sav::Text sites;
  check(documents->ListeSitesCttSQL(&contract, &sites));  // no interventions: a fault
}

}  // namespace

int main() {
  SetConsoleOutputCP(CP_UTF8);
  check(CoInitialize(nullptr));
  try {
    run();
  } catch (const sav::Failure& failure) {
    std::printf("Erreur %ld : %s\n", failure.code & 0xFFFF, failure.what());
  }
  CoUninitialize();
}
