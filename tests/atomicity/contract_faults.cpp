// Faults of a contract's amounts, sites and interventions.
#include "atomicity/fault_case.h"
#include "support/arguments.h"

namespace atomicity {
namespace {

constexpr wchar_t kClass[] = L"ContratDoc";

HRESULT totals(World& world) {
  return contracts()->GetMttCtt(world.contract, &world.value.get(), &world.other_value.get(),
                                world.real_result());
}
HRESULT sum(World& world) { return contracts()->CalculSommeMtt(world.contract, 2); }
HRESULT gross(World& world) { return contracts()->CalculMttBrut(world.contract, 2); }
HRESULT transferred(World& world) {
  CY total{};
  total.int64 = 77;
  const HRESULT code = contracts()->GetMttEchTransf(world.contract, world.value.get(), &total);
  EXPECT_EQ(0, total.int64);
  return code;
}
HRESULT scheduled(World& world) { return contracts()->NbrCadInterv(world.contract, world.short_result()); }
HRESULT first_of_site(World& world) {
  return contracts()->FirstIntervSite(world.contract, &world.number, &world.flag, &world.other_flag,
                                      world.short_result());
}
HRESULT site_number(World& world) {
  return contracts()->GetNumSite_Dll(world.contract, &world.number, world.short_result());
}
HRESULT index_of_site(World& world) {
  return contracts()->GetIndByNumSite(world.contract, &world.number, world.short_result());
}
HRESULT correct_dates(World& world) {
  return contracts()->CheckDateInterCtt(world.number, world.contract, world.truth_result());
}
HRESULT labels(World& world) {
  return contracts()->CheckLibInterCtt(world.contract, &world.value.get(), world.truth_result());
}
HRESULT sites(World& world) { return contracts()->ListeSitesCttSQL(world.contract, world.text_result()); }
HRESULT is_modifiable(World& world) {
  return contracts()->IsInfosIntervModifiable(world.contract, world.value.get(), world.truth_result());
}
HRESULT notice(World& world) {
  return contracts()->CheckPreavisDocCtt(world.contract, VARIANT_FALSE, world.truth_result());
}
HRESULT reset(World& world) { return contracts()->RazDocCtt(world.contract); }

/// A typed variable behind a reference, too narrow for an amount.
Variant narrow_variable(World& world) { return host::by_reference(world.other_number); }

void visits_from_1(World& world) { world.contract->TabInterv->rgsabound[0].lLbound = 1; }
void visits_from_0(World& world) { world.contract->TabInterv->rgsabound[0].lLbound = 0; }

}  // namespace

std::vector<FaultCase> contract_faults() {
  return {
      {kClass, L"GetMttCtt", "a total that is too large", 6, totals,
       [](World& world) { world.billing(0).MontantHT = world.billing(1).MontantHT = 1e308; }},
      {kClass,
       L"GetMttCtt",
       "a second variable too narrow for its total",
       6,
       totals,
       [](World& world) {
         world.billing(0).MontantTTC = 1e6;
         world.other_value = narrow_variable(world);
       },
       {},
       {"value"}},
      {kClass, L"CalculSommeMtt", "a total that is too large", 6, sum,
       [](World& world) { world.billing(0).MontantHT = world.billing(1).MontantHT = 1e308; }},
      {kClass,
       L"CalculSommeMtt",
       "a discount of 100 %",
       11,
       sum,
       [](World& world) { world.contract->Remise = 100; },
       {},
       {"contract.MontantHT"}},
      {kClass, L"CalculMttBrut", "a discount of 100 %", 11, gross,
       [](World& world) { world.contract->Remise = 100; }},
      {kClass,
       L"CalculMttBrut",
       "an amount before tax that becomes too large",
       6,
       gross,
       [](World& world) {
         world.contract->MontantHT = 1e307;
         world.contract->Remise = 99.9;
       },
       {},
       {"contract.MontantTTCBrut"}},
      {kClass, L"GetMttEchTransf", "Null as tariff", 94, transferred,
       [](World& world) { world.value = host::null_value(); }},
      {kClass, L"GetMttEchTransf", "an amount beyond a currency", 6, transferred,
       [](World& world) {
         world.value = host::text_value(L"H");
         world.billing(1).Transfere = VARIANT_TRUE;
         world.billing(1).MontantHT = 1e300;
       }},
      {kClass, L"NbrCadInterv", "a schedule with another lower bound", 9, scheduled,
       [](World& world) { world.contract->TabCadInterv->rgsabound[0].lLbound = 1; },
       [](World& world) { world.contract->TabCadInterv->rgsabound[0].lLbound = 0; }},
      {kClass, L"FirstIntervSite", "an index past the end", 9, first_of_site,
       [](World& world) { world.number = 9; }},
      {kClass,
       L"FirstIntervSite",
       "an index past the end, in both directions",
       9,
       first_of_site,
       [](World& world) {
         world.number = 9;
         world.flag = world.other_flag = VARIANT_TRUE;
       },
       {},
       {"other_flag"}},
      {kClass, L"GetNumSite_Dll", "an index past the end", 9, site_number,
       [](World& world) { world.number = 9; }},
      {kClass, L"GetIndByNumSite", "a group past the last", 9, index_of_site,
       [](World& world) { world.number = 9; }},
      {kClass, L"CheckDateInterCtt", "an index past the end", 9, correct_dates,
       [](World& world) { world.number = 9; }},
      {kClass, L"CheckDateInterCtt", "a contract start that is no date", 13, correct_dates,
       [](World& world) { host::set(world.contract->DateDeb, L"sans"); }},
      {kClass,
       L"CheckDateInterCtt",
       "a contract end that is no date",
       13,
       correct_dates,
       [](World& world) { host::set(world.contract->DateFin, L"sans"); },
       {},
       {"contract.TabInterv(0).DatePrem"}},
      {kClass, L"CheckLibInterCtt", "interventions with another lower bound", 9, labels, visits_from_1,
       visits_from_0},
      {kClass, L"CheckLibInterCtt", "a variable that takes no number", 13, labels,
       [](World& world) {
         host::set(world.visit(1).CodeSite, L"A");
         world.value.get().vt = VT_BYREF | VT_DISPATCH;
         static IDispatch* none = nullptr;
         world.value.get().ppdispVal = &none;
       }},
      {kClass, L"ListeSitesCttSQL", "interventions that were never dimensioned", 9, sites,
       [](World& world) { velmosav::erase<Type_Intervention>(world.contract->TabInterv); }},
      {kClass, L"ListeSitesCttSQL", "interventions with another lower bound", 9, sites, visits_from_1,
       visits_from_0},
      {kClass, L"IsInfosIntervModifiable", "an index past the end", 9, is_modifiable,
       [](World& world) { world.value = Variant(9L); }},
      {kClass, L"IsInfosIntervModifiable", "Null as index", 94, is_modifiable,
       [](World& world) { world.value = host::null_value(); }},
      {kClass, L"CheckPreavisDocCtt", "a contract start that is no date", 13, notice,
       [](World& world) { host::set(world.contract->DateDeb, L"sans"); }},
      {kClass, L"CheckPreavisDocCtt", "a contract that ends beyond the calendar", 5, notice,
       [](World& world) {
         host::set(world.contract->UnitDuree, L"A");
         world.contract->Duree = 32767;
       }},
      {kClass, L"RazDocCtt", "locked interventions", 10, reset,
       [](World& world) { SafeArrayLock(world.contract->TabInterv); },
       [](World& world) { SafeArrayUnlock(world.contract->TabInterv); }},
      {kClass,
       L"RazDocCtt",
       "a locked billing schedule",
       10,
       reset,
       [](World& world) { SafeArrayLock(world.contract->TabCadFact); },
       [](World& world) { SafeArrayUnlock(world.contract->TabCadFact); },
       {"contract.TabInterv", "contract.TabCadInterv"}},
      {kClass,
       L"RazDocCtt",
       "a billing schedule of elements of another size",
       13,
       reset,
       [](World& world) { world.contract->TabCadFact->cbElements += 1; },
       [](World& world) { world.contract->TabCadFact->cbElements -= 1; },
       {"contract.TabInterv", "contract.TabCadInterv"}},
  };
}

}  // namespace atomicity
