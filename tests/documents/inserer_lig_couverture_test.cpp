// Couverture.InsererLigCouverture: an empty line before a position of the list.
#include "documents/coverage_list.h"
#include "support/arguments.h"

namespace {

using host::coverage_of;
using host::Record;
using host::Variant;

class InsererLigCouverture : public ::testing::Test {
 protected:
  HRESULT insert(Record<Type_Couverture>& coverage, const Variant& index) {
    return coverages_->InsererLigCouverture(coverage, index.get());
  }

  host::ComPtr<_Couverture> coverages_ = host::create<_Couverture>(L"Couverture");
};

std::vector<std::string> differences_from(const std::vector<const wchar_t*>& codes,
                                          const Record<Type_Couverture>& coverage) {
  return host::differences(*coverage_of(codes), *coverage);
}

const std::vector<std::string> kNone;

TEST_F(InsererLigCouverture, WithoutAnIndexAddsAnEmptyLineAtTheEnd) {
  auto coverage = coverage_of({L"A1", L"B2", L"C3"});
  ASSERT_EQ(S_OK, insert(coverage, host::missing()));
  EXPECT_EQ(kNone, differences_from({L"A1", L"B2", L"C3", nullptr}, coverage));
}

TEST_F(InsererLigCouverture, AtIndexZeroMovesAllLinesDownByOne) {
  auto coverage = coverage_of({L"A1", L"B2", L"C3"});
  ASSERT_EQ(S_OK, insert(coverage, Variant(0L)));
  EXPECT_EQ(kNone, differences_from({nullptr, L"A1", L"B2", L"C3"}, coverage));
}

TEST_F(InsererLigCouverture, InTheMiddleMovesOnlyTheLinesFromTheIndexOn) {
  auto coverage = coverage_of({L"A1", L"B2", L"C3", L"D4"});
  ASSERT_EQ(S_OK, insert(coverage, Variant(2L)));
  EXPECT_EQ(kNone, differences_from({L"A1", L"B2", nullptr, L"C3", L"D4"}, coverage));
}

TEST_F(InsererLigCouverture, AtTheCountAddsAtTheEnd) {
  auto coverage = coverage_of({L"A1", L"B2", L"C3"});
  ASSERT_EQ(S_OK, insert(coverage, Variant(3L)));
  EXPECT_EQ(kNone, differences_from({L"A1", L"B2", L"C3", nullptr}, coverage));
}

TEST_F(InsererLigCouverture, AtIndex10OfThreeLinesAddsAtTheEnd) {
  auto coverage = coverage_of({L"A1", L"B2", L"C3"});
  ASSERT_EQ(S_OK, insert(coverage, Variant(10L)));
  EXPECT_EQ(kNone, differences_from({L"A1", L"B2", L"C3", nullptr}, coverage));
}

TEST_F(InsererLigCouverture, IntoAListOfNoElementMakesTheFirstLine) {
  auto coverage = coverage_of({});
  ASSERT_EQ(S_OK, insert(coverage, host::missing()));
  EXPECT_EQ(kNone, differences_from({nullptr}, coverage));
}

TEST_F(InsererLigCouverture, TakesAnyNumberOrNumericTextAsIndex) {
  struct Case {
    Variant index;
    int place;
  };
  std::vector<Case> cases;
  cases.push_back({Variant(short{1}), 1});
  cases.push_back({Variant(1.0), 1});
  cases.push_back({host::text_value(L"1"), 1});
  cases.push_back({host::text_value(L"10"), 3});
  cases.push_back({Variant(), 0});  // empty is a 0, not a missing argument
  cases.push_back({host::bool_value(false), 0});
  cases.push_back({Variant(0.5), 0});  // halves to even
  cases.push_back({Variant(1.5), 2});
  cases.push_back({Variant(2.5), 2});
  cases.push_back({Variant(-0.25), 0});
  cases.push_back({Variant(1e300), 3});
  cases.push_back({Variant(2147483647L), 3});
  for (std::size_t i = 0; i < cases.size(); ++i) {
    std::vector<const wchar_t*> expected{L"A1", L"B2", L"C3"};
    expected.insert(expected.begin() + cases[i].place, nullptr);
    auto coverage = coverage_of({L"A1", L"B2", L"C3"});
    ASSERT_EQ(S_OK, insert(coverage, cases[i].index)) << "case " << i;
    EXPECT_EQ(kNone, differences_from(expected, coverage)) << "case " << i;
  }
}

TEST_F(InsererLigCouverture, TakesTheIndexFromAVariable) {
  Variant variable(1L);
  auto coverage = coverage_of({L"A1", L"B2"});
  ASSERT_EQ(S_OK, insert(coverage, host::by_reference(variable.get())));
  EXPECT_EQ(kNone, differences_from({L"A1", nullptr, L"B2"}, coverage));
}

TEST_F(InsererLigCouverture, MovesLinesInsteadOfCopyingTheirTexts) {
  auto coverage = coverage_of({L"A1", L"B2", L"C3"});
  std::vector<BSTR> before;
  for (unsigned i = 0; i < 3; ++i) {
    const auto& line = host::element<Type_LigneCouverture>(coverage->Liste, i);
    before.insert(before.end(), {line.TypeLigne, line.Code, line.Lib, line.Unite});
  }
  ASSERT_EQ(S_OK, insert(coverage, Variant(1L)));
  std::vector<BSTR> after;
  for (const unsigned i : {0u, 2u, 3u}) {
    const auto& line = host::element<Type_LigneCouverture>(coverage->Liste, i);
    after.insert(after.end(), {line.TypeLigne, line.Code, line.Lib, line.Unite});
  }
  EXPECT_EQ(before, after);
}

TEST_F(InsererLigCouverture, KeepsTheTextsOfTheCoverageWhereTheyAre) {
  auto coverage = coverage_of({L"A1"});
  const BSTR text = coverage->Couverture;
  const BSTR condition = coverage->Condition;
  ASSERT_EQ(S_OK, insert(coverage, Variant(0L)));
  EXPECT_EQ(text, coverage->Couverture);
  EXPECT_EQ(condition, coverage->Condition);
}

TEST_F(InsererLigCouverture, KeepsTheRecordInformationOfTheList) {
  auto coverage = coverage_of({});
  SafeArrayDestroy(coverage->Liste);
  const auto info = host::record_info<Type_LigneCouverture>();
  SAFEARRAYBOUND bound{2, 0};
  coverage->Liste = SafeArrayCreateEx(VT_RECORD, 1, &bound, info.get());
  host::fill_line(host::element<Type_LigneCouverture>(coverage->Liste, 0), L"A1");
  host::fill_line(host::element<Type_LigneCouverture>(coverage->Liste, 1), L"B2");
  ASSERT_EQ(S_OK, insert(coverage, Variant(1L)));
  EXPECT_EQ(kNone, differences_from({L"A1", nullptr, L"B2"}, coverage));
  host::ComPtr<IRecordInfo> kept;
  EXPECT_EQ(S_OK, SafeArrayGetRecordInfo(coverage->Liste, kept.receive()));
}

TEST_F(InsererLigCouverture, FailsForAListThatWasNeverDimensioned) {
  for (const bool given : {false, true}) {
    Record<Type_Couverture> coverage;
    host::set(coverage->Couverture, L"Tout");
    const std::string before = host::bits_of(*coverage);
    EXPECT_TRUE(host::is_fault(insert(coverage, given ? Variant(0L) : host::missing()), 9, L"Couverture"));
    EXPECT_EQ(before, host::bits_of(*coverage));
  }
}

struct RefusedIndex {
  const char* name;
  Variant (*index)();
  int fault;
};

void PrintTo(const RefusedIndex& refused, std::ostream* stream) { *stream << refused.name; }

class InsererLigCouvertureIndex : public InsererLigCouverture,
                                  public ::testing::WithParamInterface<RefusedIndex> {};

TEST_P(InsererLigCouvertureIndex, FailsAndLeavesTheRecordBitForBit) {
  auto coverage = coverage_of({L"A1", L"B2", L"C3"});
  const std::string before = host::bits_of(*coverage);
  EXPECT_TRUE(host::is_fault(insert(coverage, GetParam().index()), GetParam().fault, L"Couverture"));
  EXPECT_EQ(before, host::bits_of(*coverage));
}

const RefusedIndex kRefusedIndexes[] = {
    {"MinusOne", [] { return Variant(-1L); }, 9},
    {"MinusTheLimit", [] { return Variant(-1e300); }, 9},
    {"TrueWhichIsMinusOne", [] { return host::bool_value(true); }, 9},
    {"NegativeText", [] { return host::text_value(L"-2"); }, 9},
    {"Null", [] { return host::null_value(); }, 94},
    {"TextWithoutNumber", [] { return host::text_value(L"fin"); }, 13},
    {"EmptyText", [] { return host::text_value(L""); }, 13},
};

INSTANTIATE_TEST_SUITE_P(Refused, InsererLigCouvertureIndex, ::testing::ValuesIn(kRefusedIndexes),
                         [](const auto& test) { return test.param.name; });

struct RefusedList {
  const char* name;
  void (*prepare)(SAFEARRAY*& list);
  void (*restore)(SAFEARRAY*& list);
  int fault;
};

void PrintTo(const RefusedList& refused, std::ostream* stream) { *stream << refused.name; }

class InsererLigCouvertureList : public InsererLigCouverture,
                                 public ::testing::WithParamInterface<RefusedList> {};

TEST_P(InsererLigCouvertureList, FailsAndLeavesTheRecordBitForBit) {
  auto coverage = coverage_of({L"A1", L"B2"});
  GetParam().prepare(coverage->Liste);
  for (const bool given : {false, true}) {
    const std::string before = host::bits_of(*coverage);
    EXPECT_TRUE(host::is_fault(insert(coverage, given ? Variant(0L) : host::missing()), GetParam().fault,
                               L"Couverture"));
    EXPECT_EQ(before, host::bits_of(*coverage));
  }
  GetParam().restore(coverage->Liste);
}

void destroy_plain(SAFEARRAY*& list) { SafeArrayDestroy(std::exchange(list, nullptr)); }
void keep(SAFEARRAY*&) {}

const RefusedList kRefusedLists[] = {
    {"LowerBound1", [](SAFEARRAY*& list) { list->rgsabound[0].lLbound = 1; }, keep, 9},
    {"TwoDimensions",
     [](SAFEARRAY*& list) {
       velmosav::destroy_record_array(list, velmosav::layout_of<Type_LigneCouverture>());
       host::dimension_twice(list, sizeof(Type_LigneCouverture));
     },
     destroy_plain, 9},
    {"Locked", [](SAFEARRAY*& list) { SafeArrayLock(list); }, [](SAFEARRAY*& list) { SafeArrayUnlock(list); },
     10},
    {"FixedSize", [](SAFEARRAY*& list) { list->fFeatures |= FADF_FIXEDSIZE; },
     [](SAFEARRAY*& list) { list->fFeatures &= static_cast<USHORT>(~FADF_FIXEDSIZE); }, 10},
    {"Vector",
     [](SAFEARRAY*& list) {
       const auto info = host::record_info<Type_LigneCouverture>();
       velmosav::destroy_record_array(list, velmosav::layout_of<Type_LigneCouverture>());
       list = SafeArrayCreateVectorEx(VT_RECORD, 0, 2, info.get());
       ASSERT_NE(nullptr, list);
     },
     keep, 10},
    {"ElementsOfAnotherSize",
     [](SAFEARRAY*& list) {
       velmosav::destroy_record_array(list, velmosav::layout_of<Type_LigneCouverture>());
       list = host::make_array(sizeof(Type_LigneCouverture) + 4, 3);
     },
     destroy_plain, 13},
};

INSTANTIATE_TEST_SUITE_P(Refused, InsererLigCouvertureList, ::testing::ValuesIn(kRefusedLists),
                         [](const auto& test) { return test.param.name; });

TEST_F(InsererLigCouverture, MakesTheLongestListThatCanBeCounted) {
  auto coverage = coverage_of(std::vector<const wchar_t*>(32766));
  ASSERT_EQ(S_OK, insert(coverage, host::missing()));
  short count = 0;
  ASSERT_EQ(S_OK, coverages_->NbrArticle(coverage, &count));
  EXPECT_EQ(32767, count);
}

TEST_F(InsererLigCouverture, FailsForAListTooLongToBeCounted) {
  auto coverage = coverage_of(std::vector<const wchar_t*>(32768));
  const std::string before = host::bits_of(*coverage);
  EXPECT_TRUE(host::is_fault(insert(coverage, host::missing()), 9, L"Couverture"));
  EXPECT_TRUE(before == host::bits_of(*coverage));
}

TEST_F(InsererLigCouverture, RefusesANullRecord) {
  EXPECT_EQ(E_POINTER, coverages_->InsererLigCouverture(nullptr, Variant(0L).get()));
}

}  // namespace
