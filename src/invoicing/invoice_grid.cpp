#include "invoicing/invoice_grid.h"

#include "automation/variant_compare.h"

namespace velmosav {

bool same_invoice(const VariantGrid& grid, long row, long other) {
  bool same = true;
  for (const long column : kInvoiceKeys)
    same = equal_values(grid.cell(row, column), grid.cell(other, column)) && same;
  return same;
}

}  // namespace velmosav
