#include "memory/documents.h"

#include "documents/object_array.h"
#include "invoicing/invoice_fixture.h"
#include "sites/contract_fixture.h"

namespace host {
namespace {

SAFEARRAY* array_of_objects() {
  Objects objects(2);
  return objects.array_of({{2, 0}});
}

}  // namespace

Record<Type_Contrat> billed_contract() {
  auto contract = sample_contract();
  set(contract->TypeTypTarif, L"H");
  contract->MontantHT = 1200;
  contract->MontantTTC = 1440;
  contract->Remise = 10;
  contract->Duree = 12;
  set(contract->UnitDuree, L"m");
  set(contract->LibelleFact, L"Entretien annuel");
  contract->CodeTva = 1;
  contract->RepartTva.Lignes[1].Pourcent = 100;
  set(contract->RepartTva.Lignes[1].Compte, L"445711");
  set(contract->RepartTva.FormatTVA, L"{TVA}");
  const wchar_t* const bounds[][2] = {{L"01/01/25", L"31/03/25"},
                                      {L"01/04/25", L"30/06/25"},
                                      {L"01/07/25", L"30/09/25"},
                                      {L"01/10/25", L"31/12/25"}};
  dimension<Type_CadencierFact>(contract->TabCadFact, 4);
  for (unsigned long i = 0; i < 4; ++i) {
    auto& row = element<Type_CadencierFact>(contract->TabCadFact, i);
    row.NumEch = static_cast<short>(i);
    set(row.Libelle, L"Échéance");
    set(row.DateDeb, bounds[i][0]);
    set(row.DateFin, bounds[i][1]);
    set(row.DateFact, bounds[i][0]);
    set(row.TypeTypTarif, L"H");
    row.MontantHT = 300;
    row.MontantTTC = 360;
    row.Transfere = velmosav::to_variant_bool(i == 0);
    row.RepartTva.Lignes[1].Pourcent = 60;
    row.RepartTva.Lignes[1].MontantBase = 180;
    row.RepartTva.Lignes[2].Pourcent = 40;
    row.RepartTva.Lignes[2].MontantBase = 120;
  }
  return contract;
}

Record<Type_Contrat> visited_contract() {
  auto contract = sample_contract();
  contract->Duree = 12;
  set(contract->UnitDuree, L"m");
  contract->PreavisD.Duree = 3;
  set(contract->PreavisD.Unite, L"m");
  set_visits(*contract, {{L"NORD", L"Révision"},
                         {L"NORD", L"Nettoyage", false, 1},
                         {L"SUD", L"Révision", true},
                         {L"SUD", L"révision"},
                         {L"EST", L"Contrôle"}});
  set_schedule(*contract, {{L"NORD", L"Révision", 0, L""}, {L"SUD", L"Révision", 3, L"BI7"}});
  for (unsigned long i = 0; i < 5; ++i) {
    set(visit(*contract, i).DatePrem, L"01/03/2026");
    set(visit(*contract, i).DateFin, L"02/02/2024");
  }
  return contract;
}

void add_slots(Type_LigneRessource& technician) {
  dimension<Type_BarTime>(technician.TabPlage, 2);
  for (unsigned long i = 0; i < 2; ++i) {
    auto& slot = element<Type_BarTime>(technician.TabPlage, i);
    set(slot.DateDeb, L"15/03/2025");
    set(slot.HeureDebut, L"08:00");
    set(slot.DateFin, L"15/03/2025");
    set(slot.HeureFin, L"10:00");
  }
}

Record<Type_Bon> full_work_order() {
  auto order = sample_work_order();
  fill_address(order->Adr, L"bon", 2);
  dimension<Type_LigneRessource>(order->TabTech, 2);
  for (unsigned long i = 0; i < 2; ++i) add_slots(element<Type_LigneRessource>(order->TabTech, i));
  order->TabAppareil = array_of_objects();
  set_articles(*order, {{L"ART1", L"F"}, {L"ART2", L"C"}});
  order->oTVADoc = FakeObject::make().detach();
  return order;
}

Record<Type_Intervention> full_intervention() {
  Record<Type_Intervention> intervention;
  set(intervention->CodeSite, L"NORD");
  SAFEARRAYBOUND cells[] = {{1, 0}, {1, 0}};
  intervention->TabRes = SafeArrayCreate(VT_BSTR, 2, cells);
  set(element<BSTR>(intervention->TabRes, 0), L"TECH1");
  Objects objects(2);
  intervention->TabAppareil = objects.array_of({{1, 0}, {2, 0}});
  dimension<Type_LigneCouverture>(intervention->Couverture.Liste, 2);
  set(element<Type_LigneCouverture>(intervention->Couverture.Liste, 0).Code, L"PIECE");
  return intervention;
}

}  // namespace host
