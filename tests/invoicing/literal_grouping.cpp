#include "invoicing/literal_grouping.h"

#include <VelmoSAV_DLL14.h>

#include <string_view>
#include <vector>

namespace literal {
namespace {

constexpr Outcome kSuccess = 0;
constexpr Outcome kSubscript = 9;
constexpr Outcome kLocked = 10;
constexpr Outcome kType = 13;
constexpr Outcome kNull = 94;
constexpr long kColumns = 14;
constexpr wchar_t kInvoice[] = L"F";

/// Thrown by a step, turned into an outcome at the end.
struct Stop {
  Outcome outcome;
};

VARIANT& cell(SAFEARRAY* grid, long row, long column) {
  long indices[] = {row, column};
  void* place = nullptr;
  if (!grid || FAILED(SafeArrayPtrOfIndex(grid, indices, &place))) throw Stop{kSubscript};
  return *static_cast<VARIANT*>(place);
}

std::wstring_view text_of(const VARIANT& value) { return {value.bstrVal, SysStringLen(value.bstrVal)}; }

double number_of(const VARIANT& value) {
  VARIANT number;
  VariantInit(&number);
  if (FAILED(VariantChangeType(&number, const_cast<VARIANT*>(&value), 0, VT_R8))) throw Stop{kType};
  return number.dblVal;
}

bool equal(const VARIANT& left, const VARIANT& right) {
  if (left.vt == VT_NULL || right.vt == VT_NULL) throw Stop{kNull};
  if (left.vt == VT_EMPTY && right.vt == VT_EMPTY) return true;
  if (left.vt == VT_EMPTY) return equal(right, left);
  const bool left_is_text = left.vt == VT_BSTR;
  if (right.vt == VT_EMPTY) return left_is_text ? text_of(left).empty() : number_of(left) == 0;
  if (left_is_text != (right.vt == VT_BSTR)) return false;
  return left_is_text ? text_of(left) == text_of(right) : number_of(left) == number_of(right);
}

bool rows_match(SAFEARRAY* grid, long row, long other) {
  bool same = true;
  for (const long column : {IndTabGener_ColCodeCli, IndTabGener_ColTypeTarif, IndTabGener_ColCodeVend,
                            IndTabGener_ColFormatTVA}) {
    const bool equal_cells = equal(cell(grid, row, column), cell(grid, other, column));
    same = same && equal_cells;
  }
  return same;
}

bool is_ticked(const VARIANT& value) {
  if (value.vt == VT_NULL || value.vt == VT_EMPTY) return false;
  if (value.vt == VT_BOOL) return value.boolVal != VARIANT_FALSE;
  return number_of(value) != 0;
}

bool is_not_invoice(const VARIANT& type) {
  if (type.vt == VT_NULL) return false;
  if (type.vt == VT_BSTR) return text_of(type) != kInvoice;
  VARIANT text;
  VariantInit(&text);
  if (FAILED(VariantChangeType(&text, const_cast<VARIANT*>(&type), 0, VT_BSTR))) throw Stop{kType};
  const bool differs = text_of(text) != kInvoice;
  VariantClear(&text);
  return differs;
}

bool qualifies(SAFEARRAY* grid, long row) {
  return is_not_invoice(cell(grid, row, IndTabGener_ColTypeDoc)) &&
         is_ticked(cell(grid, row, IndTabGener_ColSelect));
}

/// The work array: rows of copied cells.
class Work {
 public:
  Work() = default;
  Work(const Work&) = delete;
  Work& operator=(const Work&) = delete;
  ~Work() {
    for (VARIANT& value : cells_) VariantClear(&value);
  }

  void append(SAFEARRAY* grid, long row) {
    for (long column = 0; column < kColumns; ++column) {
      cells_.emplace_back();
      VariantInit(&cells_.back());
      VariantCopy(&cells_.back(), &cell(grid, row, column));
    }
  }
  [[nodiscard]] long rows() const { return static_cast<long>(cells_.size()) / kColumns; }
  [[nodiscard]] VARIANT& at(long row, long column) {
    return cells_[static_cast<std::size_t>(row * kColumns + column)];
  }

 private:
  std::vector<VARIANT> cells_;
};

void redimension(SAFEARRAY*& grid, long rows) {
  if (rows == 0) throw Stop{kSubscript};
  SAFEARRAYBOUND bounds[] = {{static_cast<ULONG>(rows), 0}, {static_cast<ULONG>(kColumns), 0}};
  if (grid->cLocks != 0) throw Stop{kLocked};
  SafeArrayDestroy(grid);
  grid = SafeArrayCreate(VT_VARIANT, 2, bounds);
}

void group_rows(SAFEARRAY*& grid) {
  if (!grid || SafeArrayGetDim(grid) != 2) throw Stop{kSubscript};
  Work work;
  long last = 0;
  SafeArrayGetUBound(grid, 1, &last);
  for (long i = 0; i <= last; ++i) {
    if (!qualifies(grid, i)) continue;
    for (long j = i; j <= last; ++j) {
      if (!qualifies(grid, j) || !rows_match(grid, i, j)) continue;
      work.append(grid, j);
      VARIANT& type = cell(grid, j, IndTabGener_ColTypeDoc);
      VariantClear(&type);
      type.vt = VT_BSTR;
      type.bstrVal = SysAllocString(kInvoice);
    }
  }
  redimension(grid, work.rows());
  for (long row = 0; row < work.rows(); ++row) {
    for (long column = 0; column < kColumns; ++column) {
      VariantCopy(&cell(grid, row, column), &work.at(row, column));
    }
  }
}

}  // namespace

Outcome same_invoice(SAFEARRAY* grid, long row, long other, bool& same) {
  try {
    same = rows_match(grid, row, other);
    return kSuccess;
  } catch (const Stop& stop) {
    return stop.outcome;
  }
}

Outcome group(SAFEARRAY*& grid) {
  try {
    group_rows(grid);
    return kSuccess;
  } catch (const Stop& stop) {
    return stop.outcome;
  }
}

}  // namespace literal
