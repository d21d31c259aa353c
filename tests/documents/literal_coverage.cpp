#include "documents/literal_coverage.h"

#include <utility>

#include "support/literal_text.h"

namespace literal {
namespace {

constexpr int kSubscript = 9;

Type_LigneCouverture& line(const Type_Couverture& coverage, int index) {
  const SAFEARRAYBOUND& bound = coverage.Liste->rgsabound[0];
  const long place = index - bound.lLbound;
  if (place < 0 || place >= static_cast<long>(bound.cElements)) throw RunTimeFault{kSubscript};
  return host::element<Type_LigneCouverture>(coverage.Liste, static_cast<unsigned long>(place));
}

void copy_line(const Type_LigneCouverture& source, Type_LigneCouverture& target) {
  host::set(target.TypeLigne, host::get(source.TypeLigne));
  host::set(target.Code, host::get(source.Code));
  host::set(target.Lib, host::get(source.Lib));
  host::set(target.Unite, host::get(source.Unite));
  target.Qte = source.Qte;
  target.NbDec = source.NbDec;
  target.Longueur = source.Longueur;
  target.Largeur = source.Largeur;
  target.Hauteur = source.Hauteur;
}

/// Indices 0 to `upper`, with the lines that there are.
void grow(Type_Couverture& coverage, int upper) {
  if (upper < 0 || coverage.Liste->rgsabound[0].lLbound != 0) throw RunTimeFault{kSubscript};
  Type_Couverture grown{};
  host::dimension<Type_LigneCouverture>(grown.Liste, static_cast<unsigned long>(upper) + 1);
  for (int i = 0; i < upper; ++i) copy_line(line(coverage, i), line(grown, i));
  velmosav::destroy_record_array(std::exchange(coverage.Liste, grown.Liste),
                                 velmosav::layout_of<Type_LigneCouverture>());
}

}  // namespace

int count_articles(const Type_Couverture& coverage) {
  if (!coverage.Liste) return -1;
  const SAFEARRAYBOUND& bound = coverage.Liste->rgsabound[0];
  return static_cast<int>(bound.lLbound + static_cast<long>(bound.cElements));
}

void insert_line(host::Record<Type_Couverture>& coverage, std::optional<int> index) {
  const int count = count_articles(*coverage);
  host::Record<Type_Couverture> copy = host::snapshot(*coverage);
  int place = index ? *index : count;
  if (place > count) place = count;
  grow(*copy, count);
  for (int i = count - 1; i >= place; --i) copy_line(line(*coverage, i), line(*copy, i + 1));
  copy_line({}, line(*copy, place));
  std::swap(*coverage, *copy);
}

bool contains_article(const Type_Couverture& coverage, const std::wstring& article,
                      std::optional<int> skipped) {
  if (article.empty()) return false;
  const int excluded = skipped ? *skipped : -1;
  for (int i = 0; i <= count_articles(coverage) - 1; ++i) {
    if (trim(host::get(line(coverage, i).Code)) == trim(article) && i != excluded) return true;
  }
  return false;
}

}  // namespace literal
