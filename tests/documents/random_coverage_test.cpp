// Random coverages: insertions and searches by the library against the literal steps, record by record.
#include "documents/coverage_list.h"
#include "documents/literal_coverage.h"
#include "support/chance.h"

namespace {

using host::Chance;
using host::Record;
using host::Variant;

const std::vector<std::wstring> kCodes = {L"A1", L" A1", L"A1 ", L"B2", L"b2", L"", L" ", L"C 3"};

Record<Type_Couverture> random_coverage(Chance& chance) {
  Record<Type_Couverture> coverage;
  host::set(coverage->Couverture, chance.of(kCodes));
  host::set(coverage->Condition, chance.of(kCodes));
  coverage->Exclure = velmosav::to_variant_bool(chance.one_in(2));
  if (chance.one_in(10)) return coverage;
  const auto count = static_cast<unsigned long>(chance.number(0, 6));
  host::dimension<Type_LigneCouverture>(coverage->Liste, count, chance.one_in(15) ? chance.number(-8, 2) : 0);
  for (unsigned long i = 0; i < count; ++i) {
    host::fill_line(host::element<Type_LigneCouverture>(coverage->Liste, i), chance.of(kCodes));
  }
  return coverage;
}

Variant as_argument(Chance& chance, std::optional<int> index) {
  if (!index) return host::missing();
  if (chance.one_in(4)) return host::text_value(std::to_wstring(*index));
  if (chance.one_in(3)) return Variant(static_cast<double>(*index));
  return Variant(static_cast<long>(*index));
}

void compare_one(Chance& chance, _Couverture* object) {
  Record<Type_Couverture> expected = random_coverage(chance);
  Record<Type_Couverture> actual = host::snapshot(*expected);
  for (int i = chance.number(1, 8); i > 0; --i) {
    std::optional<int> index;
    if (!chance.one_in(4)) index = chance.number(chance.one_in(8) ? -3 : 0, 10);
    SCOPED_TRACE("index " + (index ? std::to_string(*index) : "missing"));

    const HRESULT inserted = literal::outcome_of([&] { literal::insert_line(expected, index); });
    ASSERT_EQ(inserted, object->InsererLigCouverture(actual, as_argument(chance, index).get()));
    ASSERT_EQ(std::vector<std::string>(), host::differences(*expected, *actual));

    const std::wstring article = chance.of(kCodes);
    bool contained = false;
    VARIANT_BOOL found = 77;
    const HRESULT searched =
        literal::outcome_of([&] { contained = literal::contains_article(*expected, article, index); });
    ASSERT_EQ(searched,
              object->ArtDejaPresent(host::Text(article), actual, as_argument(chance, index).get(), &found));
    ASSERT_EQ(velmosav::to_variant_bool(contained), found) << host::utf8(article);
    short count = 77;
    ASSERT_EQ(S_OK, object->NbrArticle(actual, &count));
    ASSERT_EQ(literal::count_articles(*expected), count);
  }
}

TEST(RandomCoverage, AgreesWithTheLiteralSteps) {
  Chance chance;
  const auto object = host::create<_Couverture>(L"Couverture");
  for (int i = 0; i < 4000 && !HasFatalFailure(); ++i) compare_one(chance, object.get());
  EXPECT_FALSE(HasFatalFailure()) << "seed " << chance.seed();
}

}  // namespace
