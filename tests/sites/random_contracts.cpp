#include "sites/random_contracts.h"

#include <cstdio>
#include <cstdlib>

namespace host {
namespace {

constexpr const wchar_t* kSites[] = {L"A", L"A", L"a", L" A", L"A ", L"B", L"AB", L"",  L"  ",
                                     L"É", L"é", L",", L"C",  L"C",  L"C", L"C1", L"\t"};
constexpr const wchar_t* kLabels[] = {L"Visite", L"VISITE",   L" visite ", L"",  L"  ", L"Relevé",
                                      L"RELEVÉ", L"Relevé\t", L"x",        L"y", L"z",  L"w"};
constexpr const wchar_t* kWorkOrders[] = {L"", L"", L"", L" ", L"INT-1"};
constexpr const wchar_t* kDates[] = {L"01/01/2025", L"31/01/2024", L"29/02/2024",      L"31/12/2049",
                                     L"30/11/25",   L"15/6/1999",  L"31/08/2025 18:30"};
constexpr const wchar_t* kNoDates[] = {L"", L"bientôt", L"32/01/2025"};
constexpr const wchar_t* kUnits[] = {L"J", L"S", L"M", L"M", L"A", L"m", L"", L"X"};

}  // namespace

int RandomContracts::between(int low, int high) {
  return std::uniform_int_distribution<int>(low, high)(engine_);
}

template <class T>
int RandomContracts::dimension_rows(SAFEARRAY*& rows, int most) {
  if (one_in(12)) return 0;
  const int count = one_in(12) ? 0 : between(1, most);
  dimension<T>(rows, static_cast<unsigned long>(count));
  return count;
}

void RandomContracts::fill_interventions(Type_Contrat& contract) {
  const int count = dimension_rows<Type_Intervention>(contract.TabInterv, 8);
  std::wstring site = any(kSites);
  const bool locks = !one_in(3);
  for (int i = 0; i < count; ++i) {
    auto& row = element<Type_Intervention>(contract.TabInterv, static_cast<unsigned long>(i));
    if (one_in(2)) site = any(kSites);
    set(row.CodeSite, site);
    set(row.Libelle, any(kLabels));
    row.NumInterv = static_cast<short>(between(-1, 8));
    row.TypeCadre = velmosav::to_variant_bool(one_in(2));
    if (locks && one_in(8)) row.NbConsInt = static_cast<short>(between(-1, 2));
    if (locks && one_in(8)) row.DurConsInt = between(-1, 2) * 0.25;
  }
}

void RandomContracts::fill_schedule(Type_Contrat& contract) {
  const int count = dimension_rows<Type_CadencierInterv>(contract.TabCadInterv, 8);
  const bool orders = !one_in(3);
  for (int i = 0; i < count; ++i) {
    auto& row = element<Type_CadencierInterv>(contract.TabCadInterv, static_cast<unsigned long>(i));
    if (!one_in(3)) set(row.CodeSite, any(kSites));
    if (!one_in(3)) set(row.Libelle, any(kLabels));
    row.NumInterv = static_cast<short>(between(-1, 8));
    if (orders) set(row.CodeBon, any(kWorkOrders));
  }
}

void RandomContracts::fill_billing(Type_Contrat& contract) {
  const int count = dimension_rows<Type_CadencierFact>(contract.TabCadFact, 2);
  for (int i = 0; i < count; ++i) {
    auto& row = element<Type_CadencierFact>(contract.TabCadFact, static_cast<unsigned long>(i));
    row.Transfere = velmosav::to_variant_bool(one_in(6));
    if (one_in(6)) set(row.codeFact, one_in(2) ? L"FA-1" : L" ");
  }
}

void RandomContracts::fill_notice(Type_PreavisCourrier& notice) {
  notice.Courrier = velmosav::to_variant_bool(!one_in(4));
  notice.Duree = static_cast<short>(between(-3, 40));
  set(notice.Unite, any(kUnits));
}

Record<Type_Contrat> RandomContracts::next() {
  Record<Type_Contrat> contract;
  set(contract->Code, L"CTT-7");
  set(contract->DateDeb, one_in(8) ? any(kNoDates) : any(kDates));
  set(contract->DateFin, any(kDates));
  contract->Duree = static_cast<short>(between(-3, 40));
  set(contract->UnitDuree, any(kUnits));
  fill_notice(contract->Preavis);
  fill_notice(contract->PreavisD);
  fill_interventions(*contract);
  fill_schedule(*contract);
  fill_billing(*contract);
  return contract;
}

}  // namespace host
