// The host's invoice-generation grid: a two-dimensional array of VARIANTs, rows first, columns 0 to 13.
#pragma once

#include "automation/platform.h"

#include <VelmoSAV_DLL14.h>

#include <string_view>

namespace velmosav {

inline constexpr long kGridColumns = IndTabGener_Max + 1;

/// The grid of an argument, borrowed. The platform stores it column by column, from the first index on.
class InvoiceGrid {
 public:
  /// Takes the array as a host or a script passes it. Fault 13 when the argument holds no array of VARIANTs,
  /// 9 when it was never dimensioned or has not two dimensions.
  explicit InvoiceGrid(VARIANT& argument);

  [[nodiscard]] long last_row() const noexcept;
  /// Fault 9 outside the bounds.
  [[nodiscard]] VARIANT& cell(long row, long column) const;

  /// The host's array, to be replaced as a whole.
  [[nodiscard]] SAFEARRAY*& array() const noexcept { return *array_; }

 private:
  SAFEARRAY** array_;
};

/// True when two rows go onto the same invoice: customer, price list, representative and VAT format are
/// equal. Fault 94 when a key cell is Null.
bool same_invoice(const InvoiceGrid& grid, long row, long other);

/// Groups the ticked rows of the grid by invoice, each group where its first row stood, and drops all others.
/// `invoice_type`: rows of this document type are left out. Fault 9 when no row is left: the grid is
/// unchanged.
void group_by_invoice(const InvoiceGrid& grid, std::wstring_view invoice_type);

}  // namespace velmosav
