// Bon.RazDocInt: a work order without its technicians, equipment, articles and, on demand, its VAT object.
#include "documents/object_array.h"
#include "support/arguments.h"

namespace {

using host::element;
using host::Objects;
using Counts = std::vector<long>;

const std::vector<std::string> kNone;

class RazDocInt : public ::testing::Test {
 protected:
  RazDocInt() {
    fill_plain(*order_);
    fill_plain(*expected_);
    host::dimension<Type_LigneRessource>(order_->TabTech, 2);
    for (unsigned long i = 0; i < 2; ++i) {
      auto& technician = element<Type_LigneRessource>(order_->TabTech, i);
      host::set(technician.Nom, L"Technicien");
      host::dimension<Type_BarTime>(technician.TabPlage, 2);
      host::set(element<Type_BarTime>(technician.TabPlage, 1).Libelle, L"Plage");
    }
    order_->TabAppareil = objects_.array_of({{2, 0}});
    host::dimension<Type_LigneArticle>(order_->TabArticle, 3);
    host::set(element<Type_LigneArticle>(order_->TabArticle, 2).CodeArt, L"A3");
    order_->oTVADoc = host::ComPtr<IDispatch>::copy(vat_.at(0)).detach();
  }

  /// Fields that every reset keeps.
  static void fill_plain(Type_Bon& order) {
    host::set(order.Code, L"INT-9");
    host::set(order.Adr.Ville, L"Lyon");
    host::set(order.Rapport, L"Fait");
    order.NumInterv = 3;
    order.DureeInt = 1.5;
    order.TotalTTC = 120;
    order.IntervSsCadre = VARIANT_TRUE;
    host::dimension<Type_InfosTVA>(order.DetailTva, 1);
    element<Type_InfosTVA>(order.DetailTva, 0).HT.int64 = 40000;
  }

  host::ComPtr<_Bon> orders_ = host::create<_Bon>(L"Bon");
  Objects objects_{2};
  Objects vat_{1};
  host::Record<Type_Bon> order_;
  host::Record<Type_Bon> expected_;
};

TEST_F(RazDocInt, ErasesTheListsAndTheVatObjectAndKeepsTheRest) {
  ASSERT_EQ(S_OK, orders_->RazDocInt(order_, VARIANT_TRUE));
  EXPECT_EQ(kNone, host::differences(*expected_, *order_));
}

TEST_F(RazDocInt, ReleasesEachObjectOnce) {
  ASSERT_EQ(S_OK, orders_->RazDocInt(order_, VARIANT_TRUE));
  EXPECT_EQ((Counts{1, 1}), objects_.references());
  EXPECT_EQ(Counts{1}, vat_.references());
}

TEST_F(RazDocInt, WithBAllFalseKeepsTheVatObject) {
  ASSERT_EQ(S_OK, orders_->RazDocInt(order_, VARIANT_FALSE));
  expected_->oTVADoc = host::ComPtr<IDispatch>::copy(vat_.at(0)).detach();
  EXPECT_EQ(kNone, host::differences(*expected_, *order_));
  EXPECT_EQ(Counts{3}, vat_.references());  // the test's, the two records'
  EXPECT_EQ((Counts{1, 1}), objects_.references());
}

TEST_F(RazDocInt, TakesAnyOtherValueThanZeroForTrue) {
  ASSERT_EQ(S_OK, orders_->RazDocInt(order_, 1));
  EXPECT_EQ(nullptr, order_->oTVADoc);
}

TEST_F(RazDocInt, TakesAWorkOrderWithoutLists) {
  host::Record<Type_Bon> order;
  ASSERT_EQ(S_OK, orders_->RazDocInt(order, VARIANT_TRUE));
  EXPECT_EQ(kNone, host::differences(Type_Bon{}, *order));
}

TEST_F(RazDocInt, TakesTheSameWorkOrderTwice) {
  ASSERT_EQ(S_OK, orders_->RazDocInt(order_, VARIANT_TRUE));
  ASSERT_EQ(S_OK, orders_->RazDocInt(order_, VARIANT_TRUE));
  EXPECT_EQ(kNone, host::differences(*expected_, *order_));
}

TEST_F(RazDocInt, TakesTechniciansWithoutSlots) {
  velmosav::erase<Type_BarTime>(element<Type_LigneRessource>(order_->TabTech, 0).TabPlage);
  ASSERT_EQ(S_OK, orders_->RazDocInt(order_, VARIANT_TRUE));
  EXPECT_EQ(kNone, host::differences(*expected_, *order_));
}

TEST_F(RazDocInt, ReleasesEquipmentOfTwoDimensions) {
  Objects more(4);
  host::free_objects(order_->TabAppareil, 2);
  order_->TabAppareil = more.array_of({{2, 0}, {2, 0}});
  ASSERT_EQ(S_OK, orders_->RazDocInt(order_, VARIANT_TRUE));
  EXPECT_EQ((Counts{1, 1, 1, 1}), more.references());
}

TEST_F(RazDocInt, OfLockedTechniciansFailsAfterTheirSlots) {
  SafeArrayLock(order_->TabTech);
  EXPECT_TRUE(host::is_fault(orders_->RazDocInt(order_, VARIANT_TRUE), 10, L"Bon"));
  SafeArrayUnlock(order_->TabTech);
  ASSERT_NE(nullptr, order_->TabTech);
  EXPECT_EQ(nullptr, element<Type_LigneRessource>(order_->TabTech, 1).TabPlage);
  EXPECT_EQ(L"Technicien", host::get(element<Type_LigneRessource>(order_->TabTech, 1).Nom));
  EXPECT_NE(nullptr, order_->TabArticle);
  EXPECT_EQ((Counts{2, 2}), objects_.references());
}

TEST_F(RazDocInt, OfLockedSlotsFailsAndKeepsThem) {
  SAFEARRAY* slots = element<Type_LigneRessource>(order_->TabTech, 1).TabPlage;
  SafeArrayLock(slots);
  EXPECT_TRUE(host::is_fault(orders_->RazDocInt(order_, VARIANT_TRUE), 10, L"Bon"));
  SafeArrayUnlock(slots);
  ASSERT_EQ(slots, element<Type_LigneRessource>(order_->TabTech, 1).TabPlage);
  EXPECT_EQ(L"Plage", host::get(element<Type_BarTime>(slots, 1).Libelle));
}

TEST_F(RazDocInt, OfLockedEquipmentFailsWithTheObjectsKept) {
  SafeArrayLock(order_->TabAppareil);
  EXPECT_TRUE(host::is_fault(orders_->RazDocInt(order_, VARIANT_TRUE), 10, L"Bon"));
  SafeArrayUnlock(order_->TabAppareil);
  EXPECT_EQ(nullptr, order_->TabTech);
  EXPECT_EQ((Counts{2, 2}), objects_.references());
  EXPECT_NE(nullptr, order_->TabArticle);
}

TEST_F(RazDocInt, OfLockedArticlesFailsWithTheVatObjectKept) {
  SafeArrayLock(order_->TabArticle);
  EXPECT_TRUE(host::is_fault(orders_->RazDocInt(order_, VARIANT_TRUE), 10, L"Bon"));
  SafeArrayUnlock(order_->TabArticle);
  EXPECT_EQ((Counts{1, 1}), objects_.references());
  EXPECT_EQ(L"A3", host::get(element<Type_LigneArticle>(order_->TabArticle, 2).CodeArt));
  EXPECT_EQ(Counts{2}, vat_.references());
}

TEST_F(RazDocInt, OfTechniciansFromAnotherLowerBoundFailsAndLosesNothing) {
  order_->TabTech->rgsabound[0].lLbound = 1;
  const auto before = host::snapshot(*order_);
  EXPECT_TRUE(host::is_fault(orders_->RazDocInt(order_, VARIANT_TRUE), 9, L"Bon"));
  EXPECT_EQ(kNone, host::differences(*before, *order_));
}

TEST_F(RazDocInt, OfTechniciansOfAnotherSizeFailsAndLosesNothing) {
  SAFEARRAY* technicians = std::exchange(order_->TabTech, nullptr);
  const auto before = host::snapshot(*order_);
  SAFEARRAY* foreign = order_->TabTech = host::make_array(sizeof(Type_LigneRessource) + 4, 2);
  EXPECT_TRUE(host::is_fault(orders_->RazDocInt(order_, VARIANT_TRUE), 13, L"Bon"));
  EXPECT_EQ(foreign, order_->TabTech);
  SafeArrayDestroy(std::exchange(order_->TabTech, nullptr));
  EXPECT_EQ(kNone, host::differences(*before, *order_));
  order_->TabTech = technicians;
}

class RazDocIntByName : public RazDocInt {
 protected:
  host::Variant order() { return host::record_argument(*order_, info_.get()); }

  host::ComPtr<IRecordInfo> info_ = host::record_info_of(orders_.get(), velmosav::layout_of<Type_Bon>().id);
};

TEST_F(RazDocIntByName, ReleasesTheVatObjectWhenBAllIsNotGiven) {
  ASSERT_EQ(S_OK, host::call(orders_.get(), L"RazDocInt", host::arguments(order()), nullptr));
  EXPECT_EQ(kNone, host::differences(*expected_, *order_));
  EXPECT_EQ(Counts{1}, vat_.references());
}

TEST_F(RazDocIntByName, KeepsTheVatObjectForFalse) {
  ASSERT_EQ(S_OK, host::call(orders_.get(), L"RazDocInt", host::arguments(order(), host::bool_value(false)),
                             nullptr));
  EXPECT_EQ(vat_.at(0), order_->oTVADoc);
  EXPECT_EQ(nullptr, order_->TabArticle);
}

TEST_F(RazDocInt, RefusesANullRecord) { EXPECT_EQ(E_POINTER, orders_->RazDocInt(nullptr, VARIANT_TRUE)); }

}  // namespace
