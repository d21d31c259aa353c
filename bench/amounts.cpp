// The distribution of an amount over VAT codes.
#include "amounts/literal_distribution.h"
#include "amounts/vat_table.h"
#include "works.h"

namespace bench {

void measure_amounts(Bench& bench) {
  if (!bench.wants("spread-amount")) return;
  constexpr double kAmount = 1234.56;
  const auto distribution = host::create<_TvaRepart>(L"TvaRepart");
  host::VatTable table = host::VatTable::standard();
  auto record = host::standard_rates();
  for (int code = 1; code <= 5; ++code) host::set_line(*record, code, 20);
  auto literal_record = host::snapshot(*record);
  const auto before_tax = host::text_value(L"H");
  double other = 0;
  double literal_other = 0;
  bench.compare("spread-amount", {[&] {
                  must(distribution->GetAmountByRepartTVA(table.argument(), record, kAmount, before_tax.get(),
                                                          2, &other),
                       "GetAmountByRepartTVA");
                }},
                {[&] { literal_other = literal::spread_amount(*literal_record, kAmount, L"H", 2); }});
  if (other != literal_other) must(E_FAIL, "GetAmountByRepartTVA");
}

}  // namespace bench
