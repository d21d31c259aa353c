#include "atomicity/world.h"

#include <cstring>

#include "support/fake_object.h"

namespace atomicity {
namespace {

using host::dimension;
using host::element;
using host::set;

void fill_contract(Type_Contrat& contract) {
  set(contract.Code, L"CTT-7");
  set(contract.DateDeb, L"01/01/2025");
  set(contract.DateFin, L"31/12/2025");
  contract.Duree = 12;
  set(contract.UnitDuree, L"M");
  set(contract.PreavisD.Unite, L"M");
  contract.PreavisD.Duree = 3;
  set(contract.Vendeur, L"V1");
  set(contract.CodeClient, L"CLI-1");
  set(contract.TypeTypTarif, L"H");
  contract.MontantHT = 90;
  contract.MontantTTC = 108;
  contract.MontantHTBrut = 1;
  contract.MontantTTCBrut = 2;
  contract.Remise = 10;
  dimension<Type_CadencierFact>(contract.TabCadFact, 3);
  const wchar_t* const starts[] = {L"01/01/2025", L"01/02/2025", L"01/03/2025"};
  const wchar_t* const ends[] = {L"31/01/2025", L"28/02/2025", L"31/12/2025"};
  for (unsigned long i = 0; i < 3; ++i) {
    auto& row = element<Type_CadencierFact>(contract.TabCadFact, i);
    set(row.DateDeb, starts[i]);
    set(row.DateFin, ends[i]);
    set(row.DateFact, ends[i]);
    set(row.Libelle, L"échéance");
    row.MontantHT = 100 + i;
    row.MontantTTC = 120 + i;
    row.NumAuto = static_cast<long>(i + 40);
    row.RepartTva.Lignes[1].Pourcent = 100;
    row.RepartTva.Lignes[1].MontantBase = 100;
  }
  dimension<Type_Intervention>(contract.TabInterv, 2);
  dimension<Type_CadencierInterv>(contract.TabCadInterv, 2);
  for (unsigned long i = 0; i < 2; ++i) {
    auto& visit = element<Type_Intervention>(contract.TabInterv, i);
    set(visit.CodeSite, i == 0 ? L"A" : L"B");
    set(visit.Libelle, L"Visite");
    set(visit.DatePrem, L"01/02/2024");
    set(visit.DateFin, L"01/02/2027");
    auto& scheduled = element<Type_CadencierInterv>(contract.TabCadInterv, i);
    set(scheduled.CodeSite, L"A");
    set(scheduled.Libelle, L"Visite");
    scheduled.NumInterv = 5;
  }
}

SAFEARRAY* objects_of(ULONG rows, ULONG columns) {
  SAFEARRAYBOUND bounds[] = {{rows, 0}, {columns, 0}};
  SAFEARRAY* array = SafeArrayCreate(VT_DISPATCH, columns ? 2 : 1, bounds);
  element<IDispatch*>(array, 0) = host::FakeObject::make().detach();
  return array;
}

void fill_order(Type_Bon& order) {
  set(order.Code, L"INT-9");
  set(order.Libelle, L"Entretien");
  set(order.DateDeb, L"03/02/2025");
  dimension<Type_LigneRessource>(order.TabTech, 2);
  for (unsigned long i = 0; i < 2; ++i) {
    dimension<Type_BarTime>(element<Type_LigneRessource>(order.TabTech, i).TabPlage, 1);
  }
  order.TabAppareil = objects_of(2, 0);
  dimension<Type_LigneArticle>(order.TabArticle, 2);
  set(element<Type_LigneArticle>(order.TabArticle, 0).CodeArt, L"A1");
  set(element<Type_LigneArticle>(order.TabArticle, 1).CodeArt, L"B2");
  order.oTVADoc = host::FakeObject::make().detach();
}

void fill_intervention(Type_Intervention& intervention) {
  intervention.TabAppareil = objects_of(1, 2);
  dimension<Type_LigneCouverture>(intervention.Couverture.Liste, 2);
  set(element<Type_LigneCouverture>(intervention.Couverture.Liste, 1).Code, L"A1");
  SAFEARRAYBOUND bounds[] = {{1, 0}, {2, 0}};
  intervention.TabRes = SafeArrayCreate(VT_BSTR, 2, bounds);
  set(element<BSTR>(intervention.TabRes, 0), L"T");
}

void fill_lists(Variables& world) {
  set(world.coverage->Condition, L"Hors casse");
  dimension<Type_LigneCouverture>(world.coverage->Liste, 2);
  set(element<Type_LigneCouverture>(world.coverage->Liste, 0).Code, L"A1");
  set(element<Type_LigneCouverture>(world.coverage->Liste, 1).Code, L"B2");
  dimension<Type_BarTime>(world.technician->TabPlage, 2);
  for (unsigned long i = 0; i < 2; ++i) {
    auto& slot = element<Type_BarTime>(world.technician->TabPlage, i);
    set(slot.DateDeb, L"01/03/2025");
    set(slot.HeureDebut, L"08:00");
    set(slot.DateFin, L"01/03/2025");
    set(slot.HeureFin, L"10:30");
  }
  for (int i = 1; i <= 2; ++i) {
    world.distribution->Lignes[i].Pourcent = 50;
    world.distribution->Lignes[i].TauxTva = 20;
    set(world.distribution->Lignes[i].Compte, L"445");
  }
  set(world.rule->Periodicite, L"M");
  set(world.rule->Jour, L"V");
  world.rule->TousLes = 1;
}

Variant table_of(ULONG rows, ULONG columns) {
  SAFEARRAYBOUND bounds[] = {{rows, 0}, {columns, 0}};
  Variant table;
  table.get().vt = VT_ARRAY | VT_VARIANT;
  table.get().parray = SafeArrayCreate(VT_VARIANT, 2, bounds);
  for (ULONG i = 0; i < rows * columns; ++i) element<VARIANT>(table.get().parray, i) = Variant(1L).detach();
  return table;
}

std::string bits_of(const SAFEARRAY* array) {
  if (!array) return "none";
  std::size_t size = array->cbElements;
  for (USHORT i = 0; i < array->cDims; ++i) size *= array->rgsabound[i].cElements;
  return std::string(reinterpret_cast<const char*>(array),
                     sizeof *array + (array->cDims - 1u) * sizeof(SAFEARRAYBOUND)) +
         std::string(static_cast<const char*>(array->pvData), array->pvData ? size : 0);
}

/// Type and value; for an array its bounds and every element.
std::string shown(const VARIANT& value) {
  std::string text = std::to_string(value.vt) + " ";
  if (value.vt == (VT_ARRAY | VT_VARIANT)) {
    const SAFEARRAY* array = value.parray;
    ULONG count = 1;
    for (USHORT i = 0; i < array->cDims; ++i) {
      count *= array->rgsabound[i].cElements;
      text += std::to_string(array->rgsabound[i].cElements) + "/";
    }
    for (ULONG i = 0; i < count; ++i) text += shown(static_cast<const VARIANT*>(array->pvData)[i]) + ";";
    return text;
  }
  if (value.vt == VT_BSTR) return text + host::utf8(host::get(value.bstrVal));
  if (value.vt == VT_EMPTY || value.vt == VT_NULL) return text;
  return text + std::string(reinterpret_cast<const char*>(&value.llVal), value.vt == VT_R8 ? 8 : 2);
}

template <class T>
void copy(const Record<T>& source, Record<T>& target) {
  velmosav::clear(*target);
  host::deep_copy(velmosav::layout_of<T>(), &*source, &*target);
}

template <class T>
void compare(const char* name, const Record<T>& before, const Record<T>& now,
             std::vector<std::string>& found) {
  for (const std::string& difference : host::differences(*before, *now)) {
    const std::string path = difference.substr(0, difference.find(": "));
    found.push_back(std::string(name) + (path.front() == '.' ? "" : ".") + path);
  }
}

}  // namespace

VARIANT& cell(Variant& table, long row, long column) {
  SAFEARRAY* array = table.get().parray;
  return element<VARIANT>(
      array, static_cast<ULONG>(column) * array->rgsabound[1].cElements + static_cast<ULONG>(row));
}

World::World() {
  fill_contract(*contract);
  fill_order(*order);
  fill_intervention(*intervention);
  fill_lists(*this);
  grid = table_of(3, 14);
  renewal = table_of(3, 27);
  for (long row = 0; row < 3; ++row) {
    cell(grid, row, IndTabGener_ColSelect) = host::bool_value(true).detach();
    cell(grid, row, IndTabGener_ColTypeDoc) = host::text_value(L"G").detach();
  }
}

World::~World() {
  if (array) SafeArrayDestroy(array);
}

void World::remember() {
  copy(contract, before_.contract);
  copy(order, before_.order);
  copy(intervention, before_.intervention);
  copy(coverage, before_.coverage);
  copy(technician, before_.technician);
  copy(distribution, before_.distribution);
  copy(rule, before_.rule);
  copy(address, before_.address);
  plain_before_ = plain_values();
}

std::vector<std::pair<std::string, std::string>> World::plain_values() const {
  return {{"number", std::to_string(number)},
          {"other_number", std::to_string(other_number)},
          {"flag", std::to_string(flag)},
          {"other_flag", std::to_string(other_flag)},
          {"real", std::to_string(real)},
          {"text", host::utf8(text.str())},
          {"other_text", host::utf8(other_text.str())},
          {"third_text", host::utf8(third_text.str())},
          {"value", shown(value.get())},
          {"other_value", shown(other_value.get())},
          {"third_value", shown(third_value.get())},
          {"array", bits_of(array)},
          {"grid", shown(grid.get())},
          {"renewal", shown(renewal.get())}};
}

std::vector<std::string> World::differences() const {
  std::vector<std::string> found;
  compare("contract", before_.contract, contract, found);
  compare("order", before_.order, order, found);
  compare("intervention", before_.intervention, intervention, found);
  compare("coverage", before_.coverage, coverage, found);
  compare("technician", before_.technician, technician, found);
  compare("distribution", before_.distribution, distribution, found);
  compare("rule", before_.rule, rule, found);
  compare("address", before_.address, address, found);
  const auto now = plain_values();
  for (std::size_t i = 0; i < now.size(); ++i) {
    if (now[i] != plain_before_[i]) found.push_back(now[i].first);
  }
  return found;
}

BSTR* World::text_result() {
  static const Text content(L"avant");
  text_result_ = content;
  return &text_result_;
}

short* World::short_result() {
  short_result_ = 77;
  return &short_result_;
}

double* World::real_result() {
  real_result_ = 77;
  return &real_result_;
}

}  // namespace atomicity
