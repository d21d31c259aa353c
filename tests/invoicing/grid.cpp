#include "invoicing/grid.h"

#include <cstdio>

namespace host {
namespace {

std::string bounds_of(const SAFEARRAY& array, unsigned dimension) {
  const SAFEARRAYBOUND& bound = array.rgsabound[array.cDims - dimension];
  const long upper = bound.lLbound + static_cast<long>(bound.cElements) - 1;
  return std::to_string(bound.lLbound) + ".." + std::to_string(upper);
}

}  // namespace

Grid::Grid(unsigned long rows, unsigned long columns, long first_row, long first_column) {
  SAFEARRAYBOUND bounds[] = {{rows, first_row}, {columns, first_column}};
  VariantInit(&value_);
  value_.vt = VT_ARRAY | VT_VARIANT;
  value_.parray = SafeArrayCreate(VT_VARIANT, 2, bounds);
  EXPECT_NE(nullptr, value_.parray);
}

Grid::Grid(const std::vector<Item>& items) : Grid(static_cast<unsigned long>(items.size())) {
  for (std::size_t i = 0; i < items.size(); ++i) {
    const Item& item = items[i];
    const long row = static_cast<long>(i);
    for (const long column :
         {IndTabGener_ColDate, IndTabGener_ColLib, IndTabGener_ColCodeCtt, IndTabGener_ColNomSite,
          IndTabGener_ColCodeDoc, IndTabGener_ColTraitOk, IndTabGener_ColRappTrait}) {
      set(row, column, text_value(item.name + std::wstring(L".") + std::to_wstring(column)));
    }
    set(row, IndTabGener_ColNom, text_value(item.name));
    set(row, IndTabGener_ColSelect, bool_value(item.ticked));
    set(row, IndTabGener_ColTypeDoc, text_value(item.type));
    set(row, IndTabGener_ColTypeTarif, text_value(item.price_list));
    set(row, IndTabGener_ColCodeVend, text_value(item.representative));
    set(row, IndTabGener_ColCodeCli, text_value(item.customer));
    set(row, IndTabGener_ColFormatTVA, text_value(item.vat_format));
  }
}

Grid::Grid(const Grid& other) {
  VariantInit(&value_);
  EXPECT_EQ(S_OK, VariantCopy(&value_, const_cast<VARIANT*>(&other.value_)));
}

Grid::~Grid() { VariantClear(&value_); }

VARIANT& Grid::cell(long row, long column) const {
  static VARIANT nowhere;
  long indices[] = {row, column};
  void* place = nullptr;
  EXPECT_EQ(S_OK, SafeArrayPtrOfIndex(value_.parray, indices, &place))
      << "row " << row << ", column " << column;
  return place ? *static_cast<VARIANT*>(place) : nowhere;
}

void Grid::set(long row, long column, Variant value) {
  VARIANT& place = cell(row, column);
  VariantClear(&place);
  place = value.detach();
}

long Grid::rows() const { return static_cast<long>(value_.parray->rgsabound[1].cElements); }

std::vector<std::wstring> Grid::names() const {
  std::vector<std::wstring> result;
  for (long row = 0; row < rows(); ++row) {
    const VARIANT& name = cell(row, IndTabGener_ColNom);
    result.push_back(name.vt == VT_BSTR ? get(name.bstrVal) : L"?");
  }
  return result;
}

std::vector<std::string> Grid::content() const {
  const SAFEARRAY& array = *value_.parray;
  std::vector<std::string> result{bounds_of(array, 1) + " x " + bounds_of(array, 2)};
  const SAFEARRAYBOUND& rows = array.rgsabound[1];
  const SAFEARRAYBOUND& columns = array.rgsabound[0];
  for (unsigned long i = 0; i < rows.cElements; ++i) {
    std::string line;
    for (unsigned long j = 0; j < columns.cElements; ++j) {
      line +=
          describe(cell(rows.lLbound + static_cast<long>(i), columns.lLbound + static_cast<long>(j))) + " | ";
    }
    result.push_back(std::move(line));
  }
  return result;
}

std::string describe(const VARIANT& value) {
  char text[64];
  switch (value.vt) {
    case VT_EMPTY:
      return "Empty";
    case VT_NULL:
      return "Null";
    case VT_BSTR:
      return "\"" + utf8(get(value.bstrVal)) + "\"";
    case VT_BOOL:
      return value.boolVal ? "True" : "False";
    case VT_UI1:
      return "Byte " + std::to_string(value.bVal);
    case VT_I2:
      return "Integer " + std::to_string(value.iVal);
    case VT_I4:
      return "Long " + std::to_string(value.lVal);
    case VT_R4:
    case VT_R8:
    case VT_DATE:
      std::snprintf(text, sizeof text, "%u:%.17g", value.vt, value.vt == VT_R4 ? value.fltVal : value.dblVal);
      return text;
    case VT_CY:
      return "Currency " + std::to_string(value.cyVal.int64);
    case VT_DECIMAL:
      return "Decimal " + std::to_string(value.decVal.Lo64) + "e-" + std::to_string(value.decVal.scale);
    default:
      std::snprintf(text, sizeof text, "%u:%p", value.vt, value.byref);
      return text;
  }
}

}  // namespace host
