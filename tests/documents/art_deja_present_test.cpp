// Couverture.ArtDejaPresent: whether an article stands in the list on another line than the given one.
#include "documents/coverage_list.h"
#include "support/arguments.h"

namespace {

using host::coverage_of;
using host::Record;
using host::Text;
using host::Variant;

class ArtDejaPresent : public ::testing::Test {
 protected:
  HRESULT call(const Text& article, Record<Type_Couverture>& coverage, const Variant& line) {
    return coverages_->ArtDejaPresent(article, coverage, line.get(), &found_);
  }

  bool contains(const Text& article, Record<Type_Couverture>& coverage,
                const Variant& line = host::missing()) {
    found_ = 77;
    EXPECT_EQ(S_OK, call(article, coverage, line));
    EXPECT_TRUE(found_ == VARIANT_TRUE || found_ == VARIANT_FALSE) << found_;
    return found_ == VARIANT_TRUE;
  }

  host::ComPtr<_Couverture> coverages_ = host::create<_Couverture>(L"Couverture");
  VARIANT_BOOL found_ = 77;
};

TEST_F(ArtDejaPresent, ComparesCodesWithoutOuterBlanksAndSkipsTheGivenLine) {
  auto coverage = coverage_of({L"B1", L"B2", L" A1"});
  EXPECT_FALSE(contains(L"A1 ", coverage, Variant(2L)));
  EXPECT_TRUE(contains(L"A1 ", coverage));
}

TEST_F(ArtDejaPresent, FindsEveryLineAndNothingElse) {
  auto coverage = coverage_of({L"A1", L"B2", L"C3"});
  const struct {
    const wchar_t* article;
    bool expected;
  } cases[] = {{L"A1", true},   {L"B2", true},  {L"C3", true},     {L"D4", false}, {L"A", false},
               {L"A11", false}, {L"a1", false}, {L"  C3  ", true}, {L"A 1", false}};
  for (const auto& [article, expected] : cases) {
    EXPECT_EQ(expected, contains(article, coverage)) << host::utf8(article);
  }
}

TEST_F(ArtDejaPresent, ComparesTheCodeNotTheLabel) {
  auto coverage = coverage_of({L"A1"});
  EXPECT_FALSE(contains(L"Libellé A1", coverage));
  EXPECT_FALSE(contains(L"T A1", coverage));
}

TEST_F(ArtDejaPresent, TakesOnlyBlanksOffNotTabs) {
  auto coverage = coverage_of({L"\tA1"});
  EXPECT_FALSE(contains(L"A1", coverage));
}

TEST_F(ArtDejaPresent, IsFalseForAnEmptyArticleEvenBesideALineWithoutCode) {
  auto coverage = coverage_of({L"A1", nullptr});
  EXPECT_FALSE(contains(L"", coverage));
  EXPECT_EQ(S_OK, coverages_->ArtDejaPresent(nullptr, coverage, host::missing().get(), &found_));
  EXPECT_EQ(VARIANT_FALSE, found_);
}

TEST_F(ArtDejaPresent, IsFalseForAnEmptyArticleWhateverTheLine) {
  auto coverage = coverage_of({L"A1"});
  EXPECT_FALSE(contains(L"", coverage, host::null_value()));
  EXPECT_FALSE(contains(L"", coverage, host::text_value(L"x")));
}

TEST_F(ArtDejaPresent, FindsALineWithoutCodeForABlankArticle) {
  auto coverage = coverage_of({L"A1", nullptr});
  EXPECT_TRUE(contains(L"  ", coverage));
  EXPECT_FALSE(contains(L"  ", coverage, Variant(1L)));
}

TEST_F(ArtDejaPresent, FindsASecondLineOfTheSameCodeBesideTheSkippedOne) {
  auto coverage = coverage_of({L"A1", L"B2", L"A1"});
  EXPECT_TRUE(contains(L"A1", coverage, Variant(0L)));
  EXPECT_TRUE(contains(L"A1", coverage, Variant(2L)));
  EXPECT_FALSE(contains(L"B2", coverage, Variant(1L)));
}

TEST_F(ArtDejaPresent, TakesAnyNumberOrNumericTextAsLine) {
  auto coverage = coverage_of({L"A1", L"B2"});
  Variant variable(1L);
  EXPECT_FALSE(contains(L"B2", coverage, Variant(short{1})));
  EXPECT_FALSE(contains(L"B2", coverage, Variant(1.0)));
  EXPECT_FALSE(contains(L"B2", coverage, host::text_value(L"1")));
  EXPECT_FALSE(contains(L"B2", coverage, host::by_reference(variable.get())));
  EXPECT_TRUE(contains(L"B2", coverage, host::text_value(L"0")));
  EXPECT_TRUE(contains(L"B2", coverage, Variant(-1L)));
  EXPECT_TRUE(contains(L"B2", coverage, Variant(40000L)));
}

TEST_F(ArtDejaPresent, SkipsNoLineForANumberBetweenTwoLines) {
  auto coverage = coverage_of({L"A1", L"B2", L"C3"});
  for (const double line : {0.5, 1.5, 0.999999, -0.5}) {
    for (const wchar_t* article : {L"A1", L"B2", L"C3"}) {
      EXPECT_TRUE(contains(article, coverage, Variant(line))) << line;
    }
  }
  EXPECT_TRUE(contains(L"B2", coverage, host::text_value(L"1,5")));
}

TEST_F(ArtDejaPresent, SkipsTheFirstLineForAnEmptyLineNumber) {
  auto coverage = coverage_of({L"A1", L"B2"});
  EXPECT_FALSE(contains(L"A1", coverage, Variant()));
  EXPECT_TRUE(contains(L"B2", coverage, Variant()));
}

TEST_F(ArtDejaPresent, IsFalseForAListThatWasNeverDimensioned) {
  Record<Type_Couverture> coverage;
  EXPECT_FALSE(contains(L"A1", coverage));
}

TEST_F(ArtDejaPresent, IsFalseForAListOfNoElement) {
  auto coverage = coverage_of({});
  EXPECT_FALSE(contains(L"A1", coverage));
}

TEST_F(ArtDejaPresent, IsFalseForAListTooLongToBeCounted) {
  std::vector<const wchar_t*> codes(32768);
  codes[0] = L"A1";
  auto coverage = coverage_of(codes);
  EXPECT_FALSE(contains(L"A1", coverage));
}

TEST_F(ArtDejaPresent, ReachesTheLastLineOfTheLongestList) {
  std::vector<const wchar_t*> codes(32767);
  codes.back() = L"A1";
  auto coverage = coverage_of(codes);
  EXPECT_TRUE(contains(L"A1", coverage));
}

TEST_F(ArtDejaPresent, ReadsALockedList) {
  auto coverage = coverage_of({L"A1"});
  SafeArrayLock(coverage->Liste);
  EXPECT_TRUE(contains(L"A1", coverage));
  SafeArrayUnlock(coverage->Liste);
}

TEST_F(ArtDejaPresent, ChangesNothing) {
  auto coverage = coverage_of({L"A1 ", nullptr, L" B2"});
  const std::string before = host::bits_of(*coverage);
  contains(L"B2", coverage);
  contains(L"Z9", coverage);
  EXPECT_EQ(before, host::bits_of(*coverage));
}

TEST_F(ArtDejaPresent, FailsForALineThatIsNoNumber) {
  auto coverage = coverage_of({L"A1"});
  EXPECT_TRUE(host::is_fault(call(L"A1", coverage, host::text_value(L"x")), 13, L"Couverture"));
  EXPECT_EQ(VARIANT_FALSE, found_);
  EXPECT_TRUE(host::is_fault(call(L"A1", coverage, host::null_value()), 94, L"Couverture"));
}

TEST_F(ArtDejaPresent, FailsForAListFromAnotherLowerBound) {
  auto coverage = coverage_of({L"A1"}, 1);
  EXPECT_TRUE(host::is_fault(call(L"A1", coverage, host::missing()), 9, L"Couverture"));
}

TEST_F(ArtDejaPresent, FailsForAListOfTwoDimensions) {
  Record<Type_Couverture> coverage;
  host::dimension_twice(coverage->Liste, sizeof(Type_LigneCouverture));
  EXPECT_TRUE(host::is_fault(call(L"A1", coverage, host::missing()), 9, L"Couverture"));
}

TEST_F(ArtDejaPresent, FailsForElementsOfAnotherSize) {
  Record<Type_Couverture> coverage;
  coverage->Liste = host::make_array(sizeof(Type_LigneCouverture) - 4, 2);
  EXPECT_TRUE(host::is_fault(call(L"A1", coverage, host::missing()), 13, L"Couverture"));
}

TEST_F(ArtDejaPresent, RefusesANullPointer) {
  auto coverage = coverage_of({L"A1"});
  EXPECT_EQ(E_POINTER, coverages_->ArtDejaPresent(Text(L"A1"), nullptr, host::missing().get(), &found_));
  EXPECT_EQ(E_POINTER, coverages_->ArtDejaPresent(Text(L"A1"), coverage, host::missing().get(), nullptr));
}

}  // namespace
