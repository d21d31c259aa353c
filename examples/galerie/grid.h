// A small grid: a heading and rows; its last column holds quantities that its column object formats.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "control.h"
#include "painting.h"

namespace galerie {

struct GridRow {
  std::wstring code;
  std::wstring label;
  double quantity;
};

/// What the library sets on a column.
struct ColumnFormat {
  std::wstring format;
  std::wstring display;
  std::wstring parameter;
  long type = 0;
};

class Grid {
 public:
  Grid(HWND form, const Fonts& fonts, POINT place, std::vector<GridRow> rows);

  [[nodiscard]] Control& control() { return control_; }
  [[nodiscard]] Control& quantities() { return quantities_; }
  [[nodiscard]] const ColumnFormat& format() const { return format_; }
  [[nodiscard]] HWND window() const { return window_; }
  /// Middle of a cell, in the grid's window; row and column from 1.
  [[nodiscard]] POINT middle(int row, int column) const;

  /// Called while the mouse moves over the grid, and when it leaves.
  std::function<void()> on_hover;
  void show_hovered(int row, int column);

 private:
  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM first, LPARAM second);
  void paint() const;
  void add_members();
  [[nodiscard]] long column_at(double x) const;
  [[nodiscard]] long row_at(double y) const;
  [[nodiscard]] std::wstring cell(std::wstring_view identifier, long row) const;

  HWND window_ = nullptr;
  const Fonts& fonts_;
  std::vector<GridRow> rows_;
  ColumnFormat format_;
  Control control_;
  Control picture_;
  Control quantities_;
  int hovered_row_ = 0;
  int hovered_column_ = 0;
};

}  // namespace galerie
