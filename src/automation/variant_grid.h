// A two-dimensional array of VARIANTs of the host: row first, then column.
#pragma once

#include "automation/platform.h"

namespace velmosav {

/// The grid of an argument, borrowed. The platform stores it column by column.
class VariantGrid {
 public:
  /// Takes the array as a host or a script passes it. Fault 13 when the argument holds no array of VARIANTs,
  /// 9 when it was never dimensioned or has not two dimensions.
  explicit VariantGrid(VARIANT& argument);

  [[nodiscard]] long last_row() const noexcept;
  /// Fault 9 outside the bounds.
  [[nodiscard]] VARIANT& cell(long row, long column) const;

  /// The host's array, to be replaced as a whole.
  [[nodiscard]] SAFEARRAY*& array() const noexcept { return *array_; }

 private:
  SAFEARRAY** array_;
};

}  // namespace velmosav
