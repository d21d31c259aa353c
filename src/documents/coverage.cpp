#include "documents/coverage.h"

#include <cmath>
#include <cstring>

#include "automation/text.h"
#include "records/array_view.h"
#include "records/record.h"
#include "records/record_array.h"

namespace velmosav {

void clear_line(Type_LigneCouverture& line) { clear(line); }

void clear_lines(Type_Couverture& coverage) { erase<Type_LigneCouverture>(coverage.Liste); }

void insert_line(Type_Couverture& coverage, double index) {
  const short count = count_of(coverage.Liste);
  // Whole numbers round halves to even, as everywhere.
  const double place = std::nearbyint(index < count ? index : count);
  if (count < 0 || !(place >= 0)) raise(Fault::SubscriptOutOfRange);
  redim_preserve<Type_LigneCouverture>(coverage.Liste, count);
  auto* lines = static_cast<Type_LigneCouverture*>(coverage.Liste->pvData);
  const auto first = static_cast<std::size_t>(place);
  std::memmove(lines + first + 1, lines + first, (static_cast<std::size_t>(count) - first) * sizeof *lines);
  lines[first] = {};
}

bool contains_article(const Type_Couverture& coverage, std::wstring_view article, double excluded) {
  const std::wstring_view wanted = trim(article);
  const ArrayView<Type_LigneCouverture> lines(coverage.Liste);
  const short count = count_of(coverage.Liste);
  for (long i = 0; i < count; ++i) {
    if (trim(view(lines[i].Code)) == wanted && i != excluded) return true;
  }
  return false;
}

}  // namespace velmosav
