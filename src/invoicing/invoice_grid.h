// The host's invoice-generation grid: a two-dimensional array of VARIANTs, rows first, columns 0 to 13.
#pragma once

#include "automation/platform.h"

#include <VelmoSAV_DLL14.h>

#include <string_view>

#include "automation/variant_grid.h"

namespace velmosav {

inline constexpr long kGridColumns = IndTabGener_Max + 1;

/// What makes an invoice: customer, price list, representative and VAT format.
inline constexpr long kInvoiceKeys[] = {IndTabGener_ColCodeCli, IndTabGener_ColTypeTarif,
                                        IndTabGener_ColCodeVend, IndTabGener_ColFormatTVA};

/// True when two rows go onto the same invoice: its keys are equal. Fault 94 when a key cell is Null.
bool same_invoice(const VariantGrid& grid, long row, long other);

/// Groups the ticked rows of the grid by invoice, each group where its first row stood, and drops all others.
/// `invoice_type`: rows of this document type are left out. Fault 9 when no row is left: the grid is
/// unchanged.
void group_by_invoice(const VariantGrid& grid, std::wstring_view invoice_type);

}  // namespace velmosav
