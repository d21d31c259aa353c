#include "invoicing/invoice_grid.h"

#include "automation/variant_compare.h"

namespace velmosav {

bool same_invoice(const VariantGrid& grid, long row, long other) {
  constexpr long kKeys[] = {IndTabGener_ColCodeCli, IndTabGener_ColTypeTarif, IndTabGener_ColCodeVend,
                            IndTabGener_ColFormatTVA};
  bool same = true;
  for (const long column : kKeys)
    same = equal_values(grid.cell(row, column), grid.cell(other, column)) && same;
  return same;
}

}  // namespace velmosav
