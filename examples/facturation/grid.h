// The grid of the lines to invoice, in the form that the library groups.
#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "library.h"
#include "schedule.h"
#include "work_orders.h"

namespace facturation {

/// A line that falls due: an instalment of a contract, or a work order.
struct DueLine {
  ContractDocument* contract = nullptr;
  short instalment = 0;
  WorkOrderDocument* order = nullptr;
  DATE date = 0;
  bool ticked = true;
};

class Grid {
 public:
  Grid(const std::vector<DueLine>& lines, const Codes& codes);
  ~Grid() { VariantClear(&value_); }
  Grid(const Grid&) = delete;
  Grid& operator=(const Grid&) = delete;

  /// What the library regroups in place.
  VARIANT& value() { return value_; }
  [[nodiscard]] std::size_t rows() const;
  /// The line that a row shows, wherever the row went.
  [[nodiscard]] std::size_t line_of(std::size_t row) const;

 private:
  [[nodiscard]] VARIANT& cell(std::size_t row, std::size_t column) const;
  void set(std::size_t row, IndTabGener column, std::wstring_view text);
  void set(std::size_t row, IndTabGener column, bool flag);
  void fill(std::size_t row, const DueLine& line, const Codes& codes);
  [[nodiscard]] std::wstring key(std::size_t row) const;

  VARIANT value_;
  std::unordered_map<std::wstring, std::size_t> lines_;
};

}  // namespace facturation
