#include "services/renewal_grid.h"

namespace host {

RenewalGrid::RenewalGrid(unsigned long rows, unsigned long columns, long first_row, long first_column) {
  SAFEARRAYBOUND bounds[] = {{rows, first_row}, {columns, first_column}};
  array_ = SafeArrayCreate(VT_VARIANT, 2, bounds);
  for (unsigned long row = 0; row < rows; ++row) {
    for (unsigned long column = 0; column < columns; ++column) {
      set(first_row + static_cast<long>(row), first_column + static_cast<long>(column),
          text_value(std::to_wstring(row) + L"." + std::to_wstring(column)));
    }
  }
}

RenewalGrid::~RenewalGrid() { SafeArrayDestroy(array_); }

VARIANT& RenewalGrid::cell(long row, long column) const {
  static VARIANT outside;
  long indices[] = {row, column};
  void* place = nullptr;
  EXPECT_EQ(S_OK, SafeArrayPtrOfIndex(array_, indices, &place)) << row << ", " << column;
  return place ? *static_cast<VARIANT*>(place) : outside;
}

void RenewalGrid::set(long row, long column, Variant value) const {
  VARIANT& place = cell(row, column);
  VariantClear(&place);
  place = value.detach();
}

void RenewalGrid::set_equal(long row, double amount) const {
  for (const long column : {6, 7, 8, 9, 20, 21}) set(row, column, Variant(amount));
}

VARIANT RenewalGrid::argument() const {
  VARIANT value;
  value.vt = VT_ARRAY | VT_VARIANT;
  value.parray = array_;
  return value;
}

std::vector<std::string> RenewalGrid::content() const {
  std::vector<std::string> cells;
  long rows[2], columns[2];
  SafeArrayGetLBound(array_, 1, &rows[0]);
  SafeArrayGetUBound(array_, 1, &rows[1]);
  SafeArrayGetLBound(array_, 2, &columns[0]);
  SafeArrayGetUBound(array_, 2, &columns[1]);
  for (long row = rows[0]; row <= rows[1]; ++row) {
    for (long column = columns[0]; column <= columns[1]; ++column) {
      const VARIANT& value = cell(row, column);
      Variant text;
      VariantChangeType(text.receive(), const_cast<VARIANT*>(&value), 0, VT_BSTR);
      cells.push_back(std::to_string(value.vt) + ":" + utf8(velmosav::view(text.get().bstrVal)));
    }
  }
  return cells;
}

Variant number_of_type(VARTYPE type, double value) {
  VARIANT source;
  source.vt = VT_R8;
  source.dblVal = value;
  Variant number;
  EXPECT_EQ(S_OK, VariantChangeType(number.receive(), &source, 0, type)) << type;
  return number;
}

}  // namespace host
