// Faults of recurrence rules and of the calendar.
#include "atomicity/fault_case.h"

namespace atomicity {
namespace {

constexpr wchar_t kClass[] = L"Periodicite";

HRESULT last_day(World& world) {
  return rules()->LastDayOfMonth(&world.number, &world.value.get(), world.text_result());
}
HRESULT day_of_rule(World& world) {
  return rules()->GetDateOfDay(world.rule, &world.value.get(), &world.other_value.get(), world.text_result());
}
HRESULT next_month(World& world) {
  return rules()->GetPrevNextMonth(world.text.in_out(), world.rule, &world.flag, world.text_result());
}
HRESULT load_file(World& world) {
  IDispatch* field = world.order->oTVADoc;
  return rules()->RenseignerChampBinaire(&field, world.text.in_out(), world.truth_result());
}

}  // namespace

std::vector<FaultCase> date_faults() {
  return {
      {kClass, L"CheckDate", "a year beyond 32 bits", 6,
       [](World& world) { return rules()->CheckDate(Text(L"30/02/1e30"), world.text_result()); }},
      {kClass, L"LastDayOfMonth", "a year that is no number", 13, last_day,
       [](World& world) {
         world.number = 2;
         world.value = host::text_value(L"x");
       }},
      {kClass,
       L"LastDayOfMonth",
       "a month that the calendar does not have",
       13,
       last_day,
       [](World& world) {
         world.number = 99;
         world.value = host::text_value(L"2025");
       },
       {},
       {"value"}},
      {kClass, L"GetPrevNextMonth", "a date that is none", 13, next_month,
       [](World& world) { world.text = Text(L"demain"); }},
      {kClass, L"GetPrevNextMonth", "a step beyond the calendar", 5, next_month,
       [](World& world) {
         world.text = Text(L"31/12/9999");
         world.rule->TousLes = 12;
       }},
      {kClass, L"GetDateOfDay", "Null as month", 94, day_of_rule,
       [](World& world) {
         world.value = host::null_value();
         world.other_value = Variant(2025L);
       }},
      {kClass,
       L"GetDateOfDay",
       "a rule without weekday",
       5,
       day_of_rule,
       [](World& world) {
         world.value = host::missing();
         world.other_value = host::missing();
         host::set(world.rule->Jour, L"");
       },
       {},
       {"value", "other_value"}},
      {kClass, L"RenseignerChampBinaire", "a file that does not exist", 53, load_file,
       [](World& world) { world.text = Text(L"aucun fichier de ce nom.bin"); }},
  };
}

}  // namespace atomicity
