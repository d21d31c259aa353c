// Couverture: a line's initial state, the number of lines, the reset of the list, and calls by name.
#include "documents/coverage_list.h"
#include "support/arguments.h"

namespace {

using host::coverage_of;
using host::Record;
using host::Variant;

const std::vector<std::string> kNone;

class Couverture : public ::testing::Test {
 protected:
  short count(Record<Type_Couverture>& coverage) {
    short result = 77;
    EXPECT_EQ(S_OK, coverages_->NbrArticle(coverage, &result));
    return result;
  }

  host::ComPtr<_Couverture> coverages_ = host::create<_Couverture>(L"Couverture");
};

TEST_F(Couverture, InitLigneCouvertureEmptiesEveryField) {
  Record<Type_LigneCouverture> line;
  host::fill_line(*line, L"A1");
  ASSERT_EQ(S_OK, coverages_->InitLigneCouverture(line));
  EXPECT_EQ(kNone, host::differences(Type_LigneCouverture{}, *line));
}

TEST_F(Couverture, InitLigneCouvertureTakesALineThatIsAlreadyEmpty) {
  Record<Type_LigneCouverture> line;
  ASSERT_EQ(S_OK, coverages_->InitLigneCouverture(line));
  EXPECT_EQ(kNone, host::differences(Type_LigneCouverture{}, *line));
}

TEST_F(Couverture, InitLigneCouvertureLeavesTheOtherLinesOfAList) {
  auto coverage = coverage_of({L"A1", L"B2", L"C3"});
  ASSERT_EQ(S_OK, coverages_->InitLigneCouverture(&host::element<Type_LigneCouverture>(coverage->Liste, 1)));
  EXPECT_EQ(kNone, host::differences(*coverage_of({L"A1", nullptr, L"C3"}), *coverage));
}

TEST_F(Couverture, NbrArticleOfARecordJustResetIsMinusOne) {
  auto coverage = coverage_of({L"A1", L"B2"});
  ASSERT_EQ(S_OK, coverages_->RazCouv(coverage));
  EXPECT_EQ(-1, count(coverage));
}

TEST_F(Couverture, NbrArticleOfAListDimensionedZeroToZeroIsOne) {
  auto coverage = coverage_of({nullptr});
  EXPECT_EQ(1, count(coverage));
}

TEST_F(Couverture, NbrArticleIsTheUpperBoundPlusOne) {
  const struct {
    unsigned long length;
    long lower;
    short expected;
  } cases[] = {{0, 0, 0},         {3, 0, 3},      {2, 1, 3},         {2, -5, -3},
               {32767, 0, 32767}, {32768, 0, -1}, {1, 32766, 32767}, {1, 32767, -1}};
  for (const auto& [length, lower, expected] : cases) {
    Record<Type_Couverture> coverage;
    host::dimension<Type_LigneCouverture>(coverage->Liste, length, lower);
    EXPECT_EQ(expected, count(coverage)) << length << " lines from " << lower;
  }
}

TEST_F(Couverture, NbrArticleTrapsItsOwnFault) {
  host::take_error();
  Record<Type_Couverture> coverage;
  EXPECT_EQ(-1, count(coverage));
  EXPECT_EQ(L"", host::take_error().description);
}

TEST_F(Couverture, NbrArticleChangesNothing) {
  auto coverage = coverage_of({L"A1", L"B2"});
  const std::string before = host::bits_of(*coverage);
  count(coverage);
  EXPECT_EQ(before, host::bits_of(*coverage));
}

TEST_F(Couverture, RazCouvErasesTheListAndKeepsTheRest) {
  auto coverage = coverage_of({L"A1", L"B2"});
  ASSERT_EQ(S_OK, coverages_->RazCouv(coverage));
  auto expected = coverage_of({});
  SafeArrayDestroy(std::exchange(expected->Liste, nullptr));
  EXPECT_EQ(kNone, host::differences(*expected, *coverage));
}

TEST_F(Couverture, RazCouvTakesAListThatWasNeverDimensioned) {
  Record<Type_Couverture> coverage;
  host::set(coverage->Condition, L"Hors casse");
  const std::string before = host::bits_of(*coverage);
  ASSERT_EQ(S_OK, coverages_->RazCouv(coverage));
  EXPECT_EQ(before, host::bits_of(*coverage));
}

TEST_F(Couverture, RazCouvErasesAListFromAnyLowerBound) {
  auto coverage = coverage_of({L"A1", L"B2"}, 1);
  ASSERT_EQ(S_OK, coverages_->RazCouv(coverage));
  EXPECT_EQ(nullptr, coverage->Liste);
}

TEST_F(Couverture, RazCouvOfALockedListFailsAndLosesNothing) {
  auto coverage = coverage_of({L"A1", L"B2"});
  SafeArrayLock(coverage->Liste);
  const std::string before = host::bits_of(*coverage);
  EXPECT_TRUE(host::is_fault(coverages_->RazCouv(coverage), 10, L"Couverture"));
  EXPECT_EQ(before, host::bits_of(*coverage));
  SafeArrayUnlock(coverage->Liste);
}

TEST_F(Couverture, RazCouvOfAListOfFixedSizeFailsAndLosesNothing) {
  auto coverage = coverage_of({L"A1", L"B2"});
  coverage->Liste->fFeatures |= FADF_FIXEDSIZE;
  const std::string before = host::bits_of(*coverage);
  EXPECT_TRUE(host::is_fault(coverages_->RazCouv(coverage), 10, L"Couverture"));
  EXPECT_EQ(before, host::bits_of(*coverage));
  coverage->Liste->fFeatures = static_cast<USHORT>(coverage->Liste->fFeatures & ~FADF_FIXEDSIZE);
}

TEST_F(Couverture, RazCouvOfElementsOfAnotherSizeFailsAndLosesNothing) {
  Record<Type_Couverture> coverage;
  coverage->Liste = host::make_array(sizeof(Type_LigneCouverture) + 4, 2);
  const std::string before = host::bits_of(*coverage);
  EXPECT_TRUE(host::is_fault(coverages_->RazCouv(coverage), 13, L"Couverture"));
  EXPECT_EQ(before, host::bits_of(*coverage));
  SafeArrayDestroy(std::exchange(coverage->Liste, nullptr));
}

TEST_F(Couverture, RazCouvErasesAListOfTwoDimensions) {
  Record<Type_Couverture> coverage;
  host::dimension_twice(coverage->Liste, sizeof(Type_LigneCouverture));
  host::fill_line(host::element<Type_LigneCouverture>(coverage->Liste, 1), L"A1");
  ASSERT_EQ(S_OK, coverages_->RazCouv(coverage));
  EXPECT_EQ(nullptr, coverage->Liste);
}

TEST_F(Couverture, RefusesNullPointers) {
  auto coverage = coverage_of({L"A1"});
  short count = 0;
  EXPECT_EQ(E_POINTER, coverages_->InitLigneCouverture(nullptr));
  EXPECT_EQ(E_POINTER, coverages_->NbrArticle(nullptr, &count));
  EXPECT_EQ(E_POINTER, coverages_->NbrArticle(coverage, nullptr));
  EXPECT_EQ(E_POINTER, coverages_->RazCouv(nullptr));
}

class CouvertureByName : public Couverture {
 protected:
  HRESULT run(const wchar_t* name, std::vector<Variant> arguments, EXCEPINFO* exception = nullptr) {
    return host::call(coverages_.get(), name, std::move(arguments), result_.receive(), exception);
  }
  Variant coverage(Record<Type_Couverture>& record) { return host::record_argument(*record, info_.get()); }

  host::ComPtr<IRecordInfo> info_ = host::record_info<Type_Couverture>();
  Variant result_;
};

TEST_F(CouvertureByName, InitLigneCouvertureEmptiesALine) {
  const auto info = host::record_info<Type_LigneCouverture>();
  Record<Type_LigneCouverture> line;
  host::fill_line(*line, L"A1");
  ASSERT_EQ(S_OK, run(L"InitLigneCouverture", host::arguments(host::record_argument(*line, info.get()))));
  EXPECT_EQ(kNone, host::differences(Type_LigneCouverture{}, *line));
}

TEST_F(CouvertureByName, InsererLigCouvertureAddsAtTheEndWithoutAnIndex) {
  auto record = coverage_of({L"A1"});
  ASSERT_EQ(S_OK, run(L"InsererLigCouverture", host::arguments(coverage(record))));
  EXPECT_EQ(kNone, host::differences(*coverage_of({L"A1", nullptr}), *record));
}

TEST_F(CouvertureByName, InsererLigCouvertureTakesAnIndexText) {
  auto record = coverage_of({L"A1"});
  ASSERT_EQ(S_OK, run(L"InsererLigCouverture", host::arguments(coverage(record), host::text_value(L"0"))));
  EXPECT_EQ(kNone, host::differences(*coverage_of({nullptr, L"A1"}), *record));
}

TEST_F(CouvertureByName, InsererLigCouvertureReportsItsFault) {
  auto record = coverage_of({L"A1"});
  EXCEPINFO exception{};
  EXPECT_EQ(DISP_E_EXCEPTION,
            run(L"InsererLigCouverture", host::arguments(coverage(record), Variant(-1L)), &exception));
  EXPECT_EQ(static_cast<SCODE>(0x800A0009), exception.scode);
  EXPECT_EQ(L"VelmoSAV_DLL14.Couverture", host::get(exception.bstrSource));
  EXPECT_EQ(L"Indice hors limites", host::get(exception.bstrDescription));
  SysFreeString(exception.bstrSource);
  SysFreeString(exception.bstrDescription);
  SysFreeString(exception.bstrHelpFile);
}

TEST_F(CouvertureByName, ArtDejaPresentSearchesAllLinesWhenNoneIsGiven) {
  auto record = coverage_of({L"A1", L"B2"});
  ASSERT_EQ(S_OK, run(L"ArtDejaPresent", host::arguments(host::text_value(L"B2"), coverage(record))));
  ASSERT_EQ(VT_BOOL, result_.get().vt);
  EXPECT_EQ(VARIANT_TRUE, result_.get().boolVal);
}

TEST_F(CouvertureByName, ArtDejaPresentSkipsTheLineOfAVariable) {
  auto record = coverage_of({L"A1", L"B2"});
  Variant line(1L);
  ASSERT_EQ(S_OK, run(L"ArtDejaPresent", host::arguments(host::text_value(L"B2"), coverage(record),
                                                         host::by_reference(line.get()))));
  ASSERT_EQ(VT_BOOL, result_.get().vt);
  EXPECT_EQ(VARIANT_FALSE, result_.get().boolVal);
}

TEST_F(CouvertureByName, NbrArticleCounts) {
  auto record = coverage_of({L"A1", L"B2"});
  ASSERT_EQ(S_OK, run(L"NbrArticle", host::arguments(coverage(record))));
  ASSERT_EQ(VT_I2, result_.get().vt);
  EXPECT_EQ(2, result_.get().iVal);
}

TEST_F(CouvertureByName, RazCouvErasesTheList) {
  auto record = coverage_of({L"A1", L"B2"});
  ASSERT_EQ(S_OK, run(L"RazCouv", host::arguments(coverage(record))));
  EXPECT_EQ(nullptr, record->Liste);
}

}  // namespace
