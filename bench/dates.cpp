// Dates: against the platform's conversions, and against the cost of the result text alone.
#include "support/host.h"
#include "support/records.h"
#include "works.h"

namespace bench {
namespace {

using host::Text;

/// A date read and written by the platform, as a host would do it.
Operation platform_route(const Text& date) {
  return {[&date] {
    VARIANT value;
    value.vt = VT_DATE;
    must(VarDateFromStr(date, LOCALE_USER_DEFAULT, 0, &value.date), "VarDateFromStr");
    wchar_t pattern[] = L"dd/mm/yy";
    BSTR written = nullptr;
    must(VarFormat(&value, pattern, 0, 0, 0, &written), "VarFormat");
    SysFreeString(written);
  }};
}

Operation result_text() {
  return {[] { SysFreeString(SysAllocStringLen(L"31/12/26", 8)); }};
}

void compare(Bench& bench, const std::string& name, const Text& date, const Operation& library) {
  if (bench.wants(name + "-platform")) bench.compare(name + "-platform", library, platform_route(date));
  if (bench.wants(name + "-text")) bench.compare(name + "-text", library, result_text());
}

}  // namespace

void measure_dates(Bench& bench) {
  const auto contracts = host::create<_ContratDoc>(L"ContratDoc");
  const auto rules = host::create<_Periodicite>(L"Periodicite");
  BSTR result = nullptr;

  const Text end(L"31/03/2026");
  compare(bench, "neighbour", end, {[&] {
            contracts->CadFactPeriod_GetStartFromPreviousEnd(end, &result);
            SysFreeString(result);
          }});

  const Text start(L"01/01/2026");
  const Text unit(L"M");
  compare(bench, "duration", start, {[&] {
            contracts->SetDateByDuree(start, 12, unit, &result);
            SysFreeString(result);
          }});

  // The platform takes no such day: its route is given one that exists.
  const Text february(L"31/02/2026");
  const Text last_of_february(L"28/02/2026");
  compare(bench, "check", last_of_february, {[&] {
            rules->CheckDate(february, &result);
            SysFreeString(result);
          }});

  Text date(L"31/01/2026");
  host::Record<Type_Periodicite> rule;
  host::set(rule->Periodicite, L"M");
  host::set(rule->Mois, L"A");
  VARIANT_BOOL previous = VARIANT_FALSE;
  compare(bench, "month", date, {[&] {
            rules->GetPrevNextMonth(date.in_out(), rule, &previous, &result);
            SysFreeString(result);
          }});
}

}  // namespace bench
