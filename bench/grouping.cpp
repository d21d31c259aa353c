// The grouping of generated invoices. A grid is grouped in place: each run is given a fresh one.
#include <memory>

#include "invoicing/grid.h"
#include "invoicing/literal_grouping.h"
#include "works.h"

namespace bench {
namespace {

using host::Grid;
using host::Variant;

constexpr long kRows = 32000;

/// Rows of customers that come back in turn, so that the rows of a group stand far apart.
Grid make_grid(long rows, long groups) {
  Grid grid(static_cast<unsigned long>(rows));
  for (long row = 0; row < rows; ++row) {
    for (unsigned long column = 0; column < Grid::kColumns; ++column) {
      grid.set(row, static_cast<long>(column), host::text_value(L"cellule"));
    }
    grid.set(row, IndTabGener_ColCodeCli, host::text_value(L"CLI" + std::to_wstring(row % groups)));
    grid.set(row, IndTabGener_ColTypeDoc, host::text_value(L"G"));
    grid.set(row, IndTabGener_ColSelect, host::bool_value(true));
  }
  return grid;
}

/// A grid and what is done to a copy of it.
class Grouping {
 public:
  Grouping(long rows, long groups)
      : generation_(host::create<_Generation>(L"Generation")),
        source_(std::make_shared<Grid>(make_grid(rows, groups))) {}

  [[nodiscard]] Operation library() const {
    return {[*this] { must(generation_->RegroupementFacture(*copy_->get()), "RegroupementFacture"); },
            fresh()};
  }
  [[nodiscard]] Operation literal_algorithm() const {
    return {[*this] { must(-literal::group(copy_->get()->array()), "grouping"); }, fresh()};
  }
  [[nodiscard]] Operation plain_copy() const {
    auto copy = std::make_shared<SAFEARRAY*>(nullptr);
    return {[*this, copy] { must(SafeArrayCopy(source_->array(), copy.get()), "SafeArrayCopy"); },
            [copy] {
              if (*copy) SafeArrayDestroy(*copy);
              *copy = nullptr;
            }};
  }

 private:
  [[nodiscard]] std::function<void()> fresh() const {
    return [*this] { *copy_ = std::make_unique<Grid>(*source_); };
  }

  host::ComPtr<_Generation> generation_;
  std::shared_ptr<Grid> source_;
  std::shared_ptr<std::unique_ptr<Grid>> copy_ = std::make_shared<std::unique_ptr<Grid>>();
};

void compare_with_copy(Bench& bench, std::string_view id, long groups) {
  if (!bench.wants(id)) return;
  const Grouping grouping(kRows, groups);
  bench.compare(id, grouping.library(), grouping.plain_copy());
}

}  // namespace

void measure_grouping(Bench& bench) {
  if (bench.wants("group-literal")) {
    const Grouping grouping(kRows, kRows / 4);
    bench.compare("group-literal", grouping.library(), grouping.literal_algorithm());
  }
  compare_with_copy(bench, "group-copy", kRows / 4);
  compare_with_copy(bench, "group-copy-one", 1);
  compare_with_copy(bench, "group-copy-all", kRows);
  bench.grow("group-copy", "`RegroupementFacture`, a group of four rows", kRows / 16,
             [](long rows) { return Grouping(rows, rows / 4).library(); });
  bench.grow("group-copy-one", "`RegroupementFacture`, one group", kRows / 16,
             [](long rows) { return Grouping(rows, 1).library(); });
  bench.grow("group-copy-all", "`RegroupementFacture`, groups of one row", kRows / 16,
             [](long rows) { return Grouping(rows, rows).library(); });
}

}  // namespace bench
