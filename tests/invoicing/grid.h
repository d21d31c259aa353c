// The invoice-generation grid as a host holds it: rows first, then the columns of IndTabGener.
#pragma once

#include <string>
#include <vector>

#include "support/host.h"

namespace host {

/// One item of the grid. Every column that is only copied gets a text of its own, made of the name.
struct Item {
  const wchar_t* name;
  const wchar_t* customer = L"C1";
  const wchar_t* price_list = L"T";
  const wchar_t* representative = L"V";
  const wchar_t* vat_format = L"X";
  bool ticked = true;
  const wchar_t* type = L"G";
};

/// A two-dimensional array of VARIANTs inside a VARIANT, freed with the object.
class Grid {
 public:
  static constexpr unsigned long kColumns = 14;

  explicit Grid(unsigned long rows, unsigned long columns = kColumns, long first_row = 0,
                long first_column = 0);
  Grid(const std::vector<Item>& items);
  Grid(const Grid& other);
  Grid& operator=(const Grid&) = delete;
  ~Grid();

  /// Cell by index; the test fails when the index lies outside.
  [[nodiscard]] VARIANT& cell(long row, long column) const;
  void set(long row, long column, Variant value);

  /// The argument VT_ARRAY|VT_VARIANT.
  operator VARIANT*() { return &value_; }
  [[nodiscard]] VARIANT* argument() { return &value_; }
  [[nodiscard]] SAFEARRAY*& array() { return value_.parray; }
  [[nodiscard]] const SAFEARRAY* array() const { return value_.parray; }

  [[nodiscard]] long rows() const;
  /// Column `ColNom` from top to bottom.
  [[nodiscard]] std::vector<std::wstring> names() const;
  /// Bounds and all cells, type and value, one text a row.
  [[nodiscard]] std::vector<std::string> content() const;

 private:
  VARIANT value_;
};

/// Type and value of a cell, as a test failure shows them.
std::string describe(const VARIANT& value);

}  // namespace host
