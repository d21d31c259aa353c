// Grouping the ticked rows of the grid. Rows are moved, never copied.
//
// Keys that are texts or plain numbers are grouped by hashing, in one pass. Other keys (Empty equals both ""
// and 0, Null faults) are compared pair by pair, in the order of the rows.
#include <bit>
#include <vector>

#include "automation/array.h"
#include "automation/attempt.h"
#include "automation/variant.h"
#include "automation/variant_compare.h"
#include "invoicing/invoice_grid.h"

namespace velmosav {
namespace {

/// Ticked and of another type than the invoice; Null counts as false in either test.
bool qualifies(const VariantGrid& grid, long row, std::wstring_view invoice_type) {
  const VARIANT& type = grid.cell(row, IndTabGener_ColTypeDoc);
  const VARIANT& ticked = grid.cell(row, IndTabGener_ColSelect);
  if (is_null(type) || is_null(ticked)) return false;
  const bool is_invoice =
      type.vt == VT_BSTR ? view(type.bstrVal) == invoice_type : to_text(type).view() == invoice_type;
  const bool is_ticked = ticked.vt == VT_BOOL ? ticked.boolVal != VARIANT_FALSE : to_bool(ticked);
  return !is_invoice && is_ticked;
}

bool has_plain_keys(const VariantGrid& grid, long row) {
  for (const long column : kInvoiceKeys) {
    if (key_kind(grid.cell(row, column)) == KeyKind::Other) return false;
  }
  return true;
}

std::size_t row_hash(const VariantGrid& grid, long row) {
  std::size_t hash = 0;
  for (const long column : kInvoiceKeys) hash = hash * 16777619U ^ key_hash(grid.cell(row, column));
  return hash ^ (hash >> 15);
}

/// The rows to keep when all of them can be hashed; false when a row needs the comparison pair by pair.
bool find_plain_rows(const VariantGrid& grid, std::wstring_view invoice_type, std::vector<long>& rows) {
  bool plain = true;
  const bool evaluated = attempt([&] {
    for (long i = 0; i <= grid.last_row() && plain; ++i) {
      if (!qualifies(grid, i, invoice_type)) continue;
      rows.push_back(i);
      plain = has_plain_keys(grid, i);
    }
  });
  return evaluated && plain;
}

/// Each row's group, numbered in the order of their first rows.
class Groups {
 public:
  Groups(const VariantGrid& grid, std::size_t row_count)
      : grid_(grid), buckets_(std::bit_ceil(2 * row_count + 1), kFree) {}

  std::size_t group_of(long row) {
    const std::size_t mask = buckets_.size() - 1;
    for (std::size_t place = row_hash(grid_, row) & mask;; place = (place + 1) & mask) {
      std::size_t& group = buckets_[place];
      if (group == kFree) {
        group = first_rows_.size();
        first_rows_.push_back(row);
        return group;
      }
      if (same_invoice(grid_, first_rows_[group], row)) return group;
    }
  }

  [[nodiscard]] std::size_t count() const { return first_rows_.size(); }

 private:
  static constexpr std::size_t kFree = static_cast<std::size_t>(-1);

  const VariantGrid& grid_;
  std::vector<std::size_t> buckets_;
  std::vector<long> first_rows_;
};

/// The rows group by group; inside a group in their order of entry.
std::vector<long> order_by_group(const VariantGrid& grid, const std::vector<long>& rows) {
  Groups groups(grid, rows.size());
  std::vector<std::size_t> group_of(rows.size());
  for (std::size_t i = 0; i < rows.size(); ++i) group_of[i] = groups.group_of(rows[i]);

  std::vector<std::size_t> next(groups.count() + 1);
  for (const std::size_t group : group_of) ++next[group + 1];
  for (std::size_t group = 1; group < next.size(); ++group) next[group] += next[group - 1];
  std::vector<long> order(rows.size());
  for (std::size_t i = 0; i < rows.size(); ++i) order[next[group_of[i]]++] = rows[i];
  return order;
}

/// Pair by pair. A row that was taken is marked with the invoice type so that it is not taken again; a fault
/// leaves the marks set so far, the end of the walk puts the former types back.
std::vector<long> order_pairwise(const VariantGrid& grid, std::wstring_view invoice_type) {
  std::vector<long> order;
  std::vector<Variant> former_types;
  const long last = grid.last_row();
  for (long i = 0; i <= last; ++i) {
    if (!qualifies(grid, i, invoice_type)) continue;
    for (long j = i; j <= last; ++j) {
      if (!qualifies(grid, j, invoice_type) || !same_invoice(grid, i, j)) continue;
      for (long column = 0; column < kGridColumns; ++column) (void)grid.cell(j, column);
      order.push_back(j);
      former_types.emplace_back(Bstr(invoice_type));
      std::swap(former_types.back().get(), grid.cell(j, IndTabGener_ColTypeDoc));
    }
  }
  for (std::size_t k = 0; k < order.size(); ++k) {
    std::swap(former_types[k].get(), grid.cell(order[k], IndTabGener_ColTypeDoc));
  }
  return order;
}

/// Replaces the grid by one of the given rows and 14 columns.
void keep_rows(const VariantGrid& grid, const std::vector<long>& order) {
  SAFEARRAYBOUND bounds[] = {{static_cast<ULONG>(order.size()), 0}, {kGridColumns, 0}};
  SAFEARRAY* kept = SafeArrayCreate(VT_VARIANT, 2, bounds);
  if (!kept) raise(E_OUTOFMEMORY);
  auto* target = static_cast<VARIANT*>(kept->pvData);
  for (long column = 0; column < kGridColumns; ++column) {
    for (const long row : order) std::swap(*target++, grid.cell(row, column));
  }
  SafeArrayDestroy(std::exchange(grid.array(), kept));
}

}  // namespace

void group_by_invoice(const VariantGrid& grid, std::wstring_view invoice_type) {
  std::vector<long> rows;
  const bool plain = find_plain_rows(grid, invoice_type, rows);
  if (!plain) require_resizable(grid.array());
  const std::vector<long> order = plain ? order_by_group(grid, rows) : order_pairwise(grid, invoice_type);
  if (order.empty()) raise(Fault::SubscriptOutOfRange);
  require_resizable(grid.array());
  // Every cell to move exists before the first one moves.
  (void)grid.cell(order.front(), 0);
  (void)grid.cell(order.front(), kGridColumns - 1);
  keep_rows(grid, order);
}

}  // namespace velmosav
