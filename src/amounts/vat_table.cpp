#include "amounts/vat_table.h"

#include "automation/attempt.h"
#include "automation/late_bound.h"

namespace velmosav {
namespace {

void fill_line(const HostObject& entry, Type_LigneRepartTVA& line) {
  attempt([&] { line.TauxTva = to_double(entry.get(L"TauxTva").get()); });
  attempt([&] { assign(line.Compte, to_text(entry.get(L"Compte").get())); });
  attempt([&] { assign(line.CompteEnc, to_text(entry.get(L"CompteEnc").get())); });
}

void fill_lines(IDispatch* table, short highest_code, Type_RepartTVA& distribution) {
  const HostMember entries(table, L"EnrTva");
  for (short code = 1; code <= highest_code; ++code) {
    // Most tables fail for most codes.
    const std::optional<Variant> entry = entries.find(Variant(code));
    if (!entry) continue;
    attempt([&] { fill_line(HostObject(to_object(entry->get())), line_of(distribution, code)); });
  }
}

}  // namespace

void fill_from_vat_table(IDispatch* table, short highest_code, Type_RepartTVA& distribution) {
  const HostObject host(table);
  attempt([&] { fill_lines(table, highest_code, distribution); });
  attempt([&] { assign(distribution.FormatTVA, to_text(host.get(L"FormatTVA").get())); });
  attempt([&] { assign(distribution.FormatTVANonMulti, to_text(host.get(L"FormatTVANonMulti").get())); });
}

}  // namespace velmosav
