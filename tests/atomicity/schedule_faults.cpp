// Faults of the billing schedule.
#include "atomicity/fault_case.h"

namespace atomicity {
namespace {

constexpr wchar_t kClass[] = L"ContratDoc";

SAFEARRAY*& rows(World& world) { return world.contract->TabCadFact; }
void lower_bound_1(World& world) { rows(world)->rgsabound[0].lLbound = 1; }
void lower_bound_0(World& world) { rows(world)->rgsabound[0].lLbound = 0; }
void larger(World& world) { rows(world)->cbElements += 1; }
void as_large_as_before(World& world) { rows(world)->cbElements -= 1; }
void end_is_no_date(World& world) { host::set(world.contract->DateFin, L"sans"); }

HRESULT add_row(World& world, const wchar_t* end) {
  return contracts()->AjouterCadFactCtt(world.contract, Text(L"01/04/2025"), Text(L"01/04/2025"), Text(end),
                                        &world.number, world.short_result());
}
HRESULT add_good_row(World& world) { return add_row(world, L"30/04/2025"); }
HRESULT add_bad_row(World& world) { return add_row(world, L"demain"); }

HRESULT spread(World& world, short row, const wchar_t* date, bool start) {
  return contracts()->CadFact_SpreadPeriodDateEdition(
      world.contract, row, Text(date), start ? VARIANT_TRUE : VARIANT_FALSE, world.short_result());
}

HRESULT is_committed(World& world) {
  return contracts()->IsEchCttTransferee(world.contract, &world.value.get(), &world.other_value.get(),
                                         &world.third_value.get(), world.truth_result());
}
HRESULT last_transferred(World& world) {
  return contracts()->GetLastDatePeriode(world.contract, VARIANT_TRUE, nullptr, world.text_result());
}
HRESULT invoiced_rows(World& world) {
  return contracts()->NbrCadFactFacture(world.contract, world.short_result());
}
HRESULT is_forced(World& world) { return contracts()->IsEchCttForcee(world.contract, world.truth_result()); }

void flags(World& world, Variant billing, Variant interventions, Variant number) {
  world.value = std::move(billing);
  world.other_value = std::move(interventions);
  world.third_value = std::move(number);
}

}  // namespace

std::vector<FaultCase> schedule_faults() {
  return {
      {kClass, L"CadFactPeriod_GetEndFromNextStart", "a start that is no date", 13,
       [](World& world) {
         return contracts()->CadFactPeriod_GetEndFromNextStart(Text(L"demain"), world.text_result());
       }},
      {kClass, L"CadFactPeriod_GetStartFromPreviousEnd", "the last day of the calendar", 5,
       [](World& world) {
         return contracts()->CadFactPeriod_GetStartFromPreviousEnd(Text(L"31/12/9999"), world.text_result());
       }},
      {kClass, L"Ctt_SetCadFactStartPeriod", "a contract end that is no date", 13,
       [](World& world) {
         return contracts()->Ctt_SetCadFactStartPeriod(world.contract, Text(L"31/03/2025"),
                                                       world.text_result());
       },
       end_is_no_date},
      {kClass, L"Ctt_SetCadFactEndPeriod", "a contract end that is no date", 13,
       [](World& world) {
         return contracts()->Ctt_SetCadFactEndPeriod(world.contract, Text(L"31/03/2025"),
                                                     world.text_result());
       },
       end_is_no_date},
      {kClass, L"CadFact_SpreadPeriodDateEdition", "the end of the second row reached is no date", 13,
       [](World& world) { return spread(world, 0, L"31/03/2025", false); },
       [](World& world) { host::set(world.billing(2).DateFin, L"demain"); }},
      {kClass, L"CadFact_SpreadPeriodDateEdition", "backwards, a row's start is no date", 13,
       [](World& world) { return spread(world, 2, L"15/01/2025", true); },
       [](World& world) { host::set(world.billing(0).DateDeb, L"demain"); }},
      {kClass, L"CadFact_SpreadPeriodDateEdition", "an edited date that is no date", 13,
       [](World& world) { return spread(world, 0, L"demain", false); }},
      {kClass, L"CadFact_SpreadPeriodDateEdition", "a row before the schedule", 9,
       [](World& world) { return spread(world, -3, L"31/03/2025", false); }},
      {kClass, L"CadFact_SpreadPeriodDateEdition", "rows with another lower bound", 9,
       [](World& world) { return spread(world, 2, L"01/12/2025", true); },
       [](World& world) {
         lower_bound_1(world);
         for (unsigned long i = 0; i < 3; ++i) host::set(world.billing(i).DateDeb, L"01/12/2025");
       }},
      {kClass,
       L"AjouterCadFactCtt",
       "an end that is no date, on a new row",
       13,
       add_bad_row,
       [](World& world) { world.number = -1; },
       {},
       {"contract.TabCadFact", "number"}},
      {kClass,
       L"AjouterCadFactCtt",
       "an end that is no date, on the last row",
       13,
       add_bad_row,
       [](World& world) { world.number = 2; },
       {},
       {"contract.TabCadFact(2).CodeContrat", "contract.TabCadFact(2).NumEch",
        "contract.TabCadFact(2).Libelle", "contract.TabCadFact(2).DateDeb"}},
      {kClass,
       L"AjouterCadFactCtt",
       "a locked schedule, at its end",
       10,
       add_good_row,
       [](World& world) {
         world.number = -1;
         SafeArrayLock(rows(world));
       },
       [](World& world) { SafeArrayUnlock(rows(world)); },
       {"number"}},
      {kClass, L"AjouterCadFactCtt", "a locked schedule, at an index", 10, add_good_row,
       [](World& world) { SafeArrayLock(rows(world)); }, [](World& world) { SafeArrayUnlock(rows(world)); }},
      {kClass, L"AjouterCadFactCtt", "a schedule with another lower bound", 9, add_good_row, lower_bound_1,
       lower_bound_0},
      {kClass, L"AjouterCadFactCtt", "a schedule of elements of another size", 13, add_good_row, larger,
       as_large_as_before},
      {kClass, L"GetLastDatePeriode", "a schedule with another lower bound", 9, last_transferred,
       lower_bound_1, lower_bound_0},
      {kClass, L"GetLastDatePeriode", "a schedule of elements of another size", 13, last_transferred, larger,
       as_large_as_before},
      {kClass, L"NbrCadFactFacture", "a schedule with another lower bound", 9, invoiced_rows, lower_bound_1,
       lower_bound_0},
      {kClass, L"IsEchCttForcee", "a schedule of elements of another size", 13, is_forced, larger,
       as_large_as_before},
      {kClass, L"IsEchCttTransferee", "a first flag that is no Boolean", 13, is_committed,
       [](World& world) { flags(world, host::text_value(L"x"), Variant(1L), Variant(1L)); }},
      {kClass,
       L"IsEchCttTransferee",
       "a second flag that is no Boolean",
       13,
       is_committed,
       [](World& world) { flags(world, Variant(0L), host::text_value(L"x"), Variant(1L)); },
       {},
       {"value"}},
      {kClass,
       L"IsEchCttTransferee",
       "Null as intervention",
       94,
       is_committed,
       [](World& world) { flags(world, Variant(0L), Variant(1L), host::null_value()); },
       {},
       {"value", "other_value"}},
      {kClass,
       L"IsEchCttTransferee",
       "interventions with another lower bound",
       9,
       is_committed,
       [](World& world) {
         flags(world, Variant(0L), Variant(1L), Variant(1L));
         world.contract->TabCadInterv->rgsabound[0].lLbound = 1;
       },
       {},
       {"value", "other_value", "third_value"}},
      {kClass, L"SetDateByDuree", "a duration beyond the calendar", 5,
       [](World& world) {
         return contracts()->SetDateByDuree(Text(L"01/01/2025"), 1000000, Text(L"M"), world.text_result());
       }},
  };
}

}  // namespace atomicity
