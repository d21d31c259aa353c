// The renewal grid as a host holds it: rows first, then 27 columns.
#pragma once

#include <string>
#include <vector>

#include "support/arguments.h"

namespace host {

/// A two-dimensional array of VARIANTs, freed with the object. Every cell that is not read has a text of its
/// own.
class RenewalGrid {
 public:
  explicit RenewalGrid(unsigned long rows, unsigned long columns = 27, long first_row = 0,
                       long first_column = 0);
  ~RenewalGrid();
  RenewalGrid(const RenewalGrid&) = delete;
  RenewalGrid& operator=(const RenewalGrid&) = delete;

  /// Cell by index; the test fails when the index lies outside.
  [[nodiscard]] VARIANT& cell(long row, long column) const;
  void set(long row, long column, Variant value) const;
  /// The same amount in all six cells of a row.
  void set_equal(long row, double amount) const;

  [[nodiscard]] SAFEARRAY*& array() { return array_; }
  /// VT_ARRAY|VT_VARIANT that stays the grid's.
  [[nodiscard]] VARIANT argument() const;
  /// Type and value of every cell.
  [[nodiscard]] std::vector<std::string> content() const;

 private:
  SAFEARRAY* array_ = nullptr;
};

/// A number of any type, converted from a double.
Variant number_of_type(VARTYPE type, double value);

}  // namespace host
