// Bon.NbrArtBon: the number of article lines of a work order.
#include "support/arguments.h"
#include "support/records.h"

namespace {

class NbrArtBon : public ::testing::Test {
 protected:
  short count() {
    short result = 77;
    EXPECT_EQ(S_OK, orders_->NbrArtBon(order_, &result));
    return result;
  }

  host::ComPtr<_Bon> orders_ = host::create<_Bon>(L"Bon");
  host::Record<Type_Bon> order_;
};

TEST_F(NbrArtBon, IsMinusOneForArticlesThatWereNeverDimensioned) { EXPECT_EQ(-1, count()); }

TEST_F(NbrArtBon, LeavesNoErrorInformationForArticlesThatWereNeverDimensioned) {
  host::take_error();
  count();
  EXPECT_EQ(L"", host::take_error().description);
}

TEST_F(NbrArtBon, IsTheUpperBoundPlusOne) {
  host::dimension<Type_LigneArticle>(order_->TabArticle, 1);
  EXPECT_EQ(1, count());
  host::dimension<Type_LigneArticle>(order_->TabArticle, 3);
  EXPECT_EQ(3, count());
}

TEST_F(NbrArtBon, IsZeroForAnArrayOfNoElement) {
  host::dimension<Type_LigneArticle>(order_->TabArticle, 0);
  EXPECT_EQ(0, count());
}

TEST_F(NbrArtBon, CountsFromZeroWhateverTheLowerBound) {
  host::dimension<Type_LigneArticle>(order_->TabArticle, 2, 1);
  EXPECT_EQ(3, count());
  host::dimension<Type_LigneArticle>(order_->TabArticle, 2, -5);
  EXPECT_EQ(-3, count());
}

TEST_F(NbrArtBon, CountsASingleEmptyLine) {
  host::dimension<Type_LigneArticle>(order_->TabArticle, 1);
  EXPECT_EQ(L"", host::get(host::element<Type_LigneArticle>(order_->TabArticle, 0).CodeArt));
  EXPECT_EQ(1, count());
}

TEST_F(NbrArtBon, ReachesTheHighestSixteenBitNumber) {
  host::dimension<Type_LigneArticle>(order_->TabArticle, 32767);
  EXPECT_EQ(32767, count());
}

TEST_F(NbrArtBon, IsMinusOneWhenTheCountDoesNotFit) {
  host::dimension<Type_LigneArticle>(order_->TabArticle, 32768);
  EXPECT_EQ(-1, count());
}

TEST_F(NbrArtBon, CountsArticlesNotTechniciansOrVatDetails) {
  host::dimension<Type_LigneArticle>(order_->TabArticle, 2);
  host::dimension<Type_LigneRessource>(order_->TabTech, 4);
  host::dimension<Type_InfosTVA>(order_->DetailTva, 5);
  EXPECT_EQ(2, count());
}

TEST_F(NbrArtBon, ChangesNothingInTheWorkOrder) {
  host::set(order_->Code, L"INT-9");
  host::dimension<Type_LigneArticle>(order_->TabArticle, 2);
  host::set(host::element<Type_LigneArticle>(order_->TabArticle, 1).CodeArt, L"A1");
  const auto before = host::snapshot(*order_);
  count();
  EXPECT_EQ(std::vector<std::string>{}, host::differences(*before, *order_));
}

TEST_F(NbrArtBon, CountsALockedArray) {
  host::dimension<Type_LigneArticle>(order_->TabArticle, 2);
  ASSERT_EQ(S_OK, SafeArrayLock(order_->TabArticle));
  EXPECT_EQ(2, count());
  ASSERT_EQ(S_OK, SafeArrayUnlock(order_->TabArticle));
}

TEST_F(NbrArtBon, AnswersALateBoundCall) {
  host::dimension<Type_LigneArticle>(order_->TabArticle, 3);
  const auto info = host::record_info<Type_Bon>();
  host::Variant result;
  ASSERT_EQ(S_OK, host::call(orders_.get(), L"NbrArtBon",
                             host::arguments(host::record_argument(*order_, info.get())), result.receive()));
  EXPECT_EQ(VT_I2, result.get().vt);
  EXPECT_EQ(3, result.get().iVal);
}

TEST_F(NbrArtBon, RefusesANullPointer) {
  short result = 0;
  EXPECT_EQ(E_POINTER, orders_->NbrArtBon(nullptr, &result));
  EXPECT_EQ(E_POINTER, orders_->NbrArtBon(order_, nullptr));
}

}  // namespace
