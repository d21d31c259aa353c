// Bon.RazDocInt: a work order without its technicians, equipment, articles and, on demand, its VAT object.
#include "documents/coverage_list.h"
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

/// An array of the work order that a host has spoilt: the reset fails and the whole work order stays.
struct RefusedArray {
  const char* name;
  SAFEARRAY*& (*array)(Type_Bon& order);
};

void PrintTo(const RefusedArray& refused, std::ostream* stream) { *stream << refused.name; }

class RazDocIntRefused : public RazDocInt, public ::testing::WithParamInterface<RefusedArray> {
 protected:
  SAFEARRAY*& array() { return GetParam().array(*order_); }

  void expect_refused(int fault) {
    const auto before = host::snapshot(*order_);
    EXPECT_TRUE(host::is_fault(orders_->RazDocInt(order_, VARIANT_TRUE), fault, L"Bon"));
    EXPECT_EQ(kNone, host::differences(*before, *order_));
    EXPECT_EQ((Counts{2, 2}), Counts({objects_.references()[0] - 1, objects_.references()[1] - 1}));
  }
};

TEST_P(RazDocIntRefused, LockedIsFault10AndLosesNothing) {
  SafeArrayLock(array());
  expect_refused(10);
  SafeArrayUnlock(array());
}

TEST_P(RazDocIntRefused, OfFixedSizeIsFault10AndLosesNothing) {
  array()->fFeatures |= FADF_FIXEDSIZE;
  expect_refused(10);
  array()->fFeatures = static_cast<USHORT>(array()->fFeatures & ~FADF_FIXEDSIZE);
}

TEST_P(RazDocIntRefused, OfElementsOfAnotherSizeIsFault13AndLosesNothing) {
  SAFEARRAY* foreign = host::make_array(array()->cbElements + 4, 2);
  SAFEARRAY* own = std::exchange(array(), foreign);
  const std::string before(reinterpret_cast<const char*>(&*order_), sizeof(Type_Bon));
  EXPECT_TRUE(host::is_fault(orders_->RazDocInt(order_, VARIANT_TRUE), 13, L"Bon"));
  EXPECT_EQ(before, std::string(reinterpret_cast<const char*>(&*order_), sizeof(Type_Bon)));
  SafeArrayDestroy(std::exchange(array(), own));
}

const RefusedArray kArrays[] = {
    {"Technicians", [](Type_Bon& order) -> SAFEARRAY*& { return order.TabTech; }},
    {"SlotsOfTheLastTechnician",
     [](Type_Bon& order) -> SAFEARRAY*& { return element<Type_LigneRessource>(order.TabTech, 1).TabPlage; }},
    {"Equipment", [](Type_Bon& order) -> SAFEARRAY*& { return order.TabAppareil; }},
    {"Articles", [](Type_Bon& order) -> SAFEARRAY*& { return order.TabArticle; }},
};

INSTANTIATE_TEST_SUITE_P(Arrays, RazDocIntRefused, ::testing::ValuesIn(kArrays),
                         [](const auto& test) { return test.param.name; });

TEST_F(RazDocInt, OfTechniciansFromAnotherLowerBoundFailsAndLosesNothing) {
  order_->TabTech->rgsabound[0].lLbound = 1;
  const auto before = host::snapshot(*order_);
  EXPECT_TRUE(host::is_fault(orders_->RazDocInt(order_, VARIANT_TRUE), 9, L"Bon"));
  EXPECT_EQ(kNone, host::differences(*before, *order_));
}

TEST_F(RazDocInt, OfTechniciansOfTwoDimensionsFailsAndLosesNothing) {
  SAFEARRAY* technicians = std::exchange(order_->TabTech, nullptr);
  const auto before = host::snapshot(*order_);
  host::dimension_twice(order_->TabTech, sizeof(Type_LigneRessource));
  host::set(element<Type_LigneRessource>(order_->TabTech, 1).Nom, L"Technicien");
  EXPECT_TRUE(host::is_fault(orders_->RazDocInt(order_, VARIANT_TRUE), 9, L"Bon"));
  SAFEARRAY* kept = std::exchange(order_->TabTech, nullptr);
  EXPECT_EQ(kNone, host::differences(*before, *order_));
  EXPECT_EQ(L"Technicien", host::get(element<Type_LigneRessource>(kept, 1).Nom));
  velmosav::destroy_record_array(kept, velmosav::layout_of<Type_LigneRessource>());
  order_->TabTech = technicians;
}

TEST_F(RazDocInt, OfEquipmentFromAnotherLowerBoundFailsAndLosesNothing) {
  order_->TabAppareil->rgsabound[0].lLbound = 1;
  const auto before = host::snapshot(*order_);
  EXPECT_TRUE(host::is_fault(orders_->RazDocInt(order_, VARIANT_TRUE), 9, L"Bon"));
  EXPECT_EQ(kNone, host::differences(*before, *order_));
}

TEST_F(RazDocInt, ErasesArticlesFromAnyLowerBound) {
  order_->TabArticle->rgsabound[0].lLbound = 1;
  ASSERT_EQ(S_OK, orders_->RazDocInt(order_, VARIANT_TRUE));
  EXPECT_EQ(nullptr, order_->TabArticle);
}

TEST_F(RazDocInt, ErasesListsWithRecordInformation) {
  velmosav::erase<Type_LigneArticle>(order_->TabArticle);
  const auto info = host::record_info<Type_LigneArticle>();
  SAFEARRAYBOUND bound{2, 0};
  order_->TabArticle = SafeArrayCreateEx(VT_RECORD, 1, &bound, info.get());
  host::set(element<Type_LigneArticle>(order_->TabArticle, 0).CodeArt, L"A1");
  ASSERT_EQ(S_OK, orders_->RazDocInt(order_, VARIANT_TRUE));
  EXPECT_EQ(kNone, host::differences(*expected_, *order_));
}

class RazDocIntByName : public RazDocInt {
 protected:
  host::Variant order() { return host::record_argument(*order_, info_.get()); }

  host::ComPtr<IRecordInfo> info_ = host::record_info<Type_Bon>();
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
