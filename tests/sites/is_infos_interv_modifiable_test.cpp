// ContratDoc.IsInfosIntervModifiable: an ordinary intervention is locked by a work order, a framework one by
// what was consumed against it.
#include "sites/contract_fixture.h"

namespace host {
namespace {

Appointment work_order_for(short visit) {
  return {.site = L"A", .label = L"Visite", .visit = visit, .work_order = L"INT-1"};
}

class ContratDocModifiable : public ContratDocInterventions {
 protected:
  bool modifiable(short index) { return value_of(is_modifiable(Variant(index))); }
  bool all_modifiable() { return value_of(is_modifiable()); }
};

TEST_F(ContratDocModifiable, IsInfosIntervModifiable_FrameworkWithNothingConsumed_IsTrueDespiteAWorkOrder) {
  set_visits(*contract_, {{.framework = true}});
  set_schedule(*contract_, {work_order_for(0)});
  EXPECT_TRUE(modifiable(0));
  EXPECT_TRUE(all_modifiable());
}

TEST_F(ContratDocModifiable, IsInfosIntervModifiable_OrdinaryWithWorkOrder_IsFalse) {
  set_visits(*contract_, {{}});
  set_schedule(*contract_, {work_order_for(0)});
  EXPECT_FALSE(modifiable(0));
  EXPECT_FALSE(all_modifiable());
}

TEST_F(ContratDocModifiable, IsInfosIntervModifiable_OrdinaryWithoutWorkOrder_IsTrueWhateverWasConsumed) {
  set_visits(*contract_, {{.consumed = 3, .time_consumed = 2.5}});
  EXPECT_TRUE(modifiable(0));
  EXPECT_TRUE(all_modifiable());
}

struct Consumption {
  short number;
  double time;
  bool modifiable;
};

TEST_F(ContratDocModifiable, IsInfosIntervModifiable_Framework_IsLockedByANumberFrom1OrATimeAbove0) {
  constexpr double kLeast = 5e-324;
  for (const Consumption& row :
       {Consumption{0, 0, true}, Consumption{1, 0, false}, Consumption{32767, 0, false},
        Consumption{0, kLeast, false}, Consumption{0, 1, false}, Consumption{-1, 0, true},
        Consumption{0, -1, true}, Consumption{-1, -1, true}, Consumption{1, -1, false},
        Consumption{-1, 1, false}, Consumption{2, 3, false}}) {
    set_visits(*contract_, {{.framework = true, .consumed = row.number, .time_consumed = row.time}});
    EXPECT_EQ(row.modifiable, modifiable(0)) << row.number << " " << row.time;
  }
}

TEST_F(ContratDocModifiable, IsInfosIntervModifiable_AFrameworkFlagOtherThanMinusOne_IsTrue) {
  set_visits(*contract_, {{}});
  visit(*contract_, 0).TypeCadre = 1;
  set_schedule(*contract_, {work_order_for(0)});
  EXPECT_TRUE(modifiable(0));
}

TEST_F(ContratDocModifiable, IsInfosIntervModifiable_WorkOrderOfAnotherIntervention_DoesNotLock) {
  set_visits(*contract_, {{}, {}, {}});
  set_schedule(*contract_, {work_order_for(1)});
  EXPECT_TRUE(modifiable(0));
  EXPECT_FALSE(modifiable(1));
  EXPECT_TRUE(modifiable(2));
}

TEST_F(ContratDocModifiable, IsInfosIntervModifiable_TheRowsIndexCounts_NotItsNumber) {
  set_visits(*contract_, {{}, {}});
  visit(*contract_, 0).NumInterv = 1;
  visit(*contract_, 1).NumInterv = 0;
  set_schedule(*contract_, {work_order_for(1)});
  EXPECT_TRUE(modifiable(0));
  EXPECT_FALSE(modifiable(1));
}

TEST_F(ContratDocModifiable, IsInfosIntervModifiable_BlankWorkOrder_DoesNotLock) {
  set_visits(*contract_, {{}});
  set_schedule(*contract_, {{.site = L"A"}, {.site = L"A", .work_order = L"   "}});
  EXPECT_TRUE(modifiable(0));
}

TEST_F(ContratDocModifiable, IsInfosIntervModifiable_TheSameSiteAndLabel_DoNotTieAWorkOrderToARow) {
  set_visits(*contract_, {{.site = L"A", .label = L"Visite"}});
  set_schedule(*contract_, {work_order_for(7)});
  EXPECT_TRUE(modifiable(0));
  EXPECT_TRUE(all_modifiable());
}

TEST_F(ContratDocModifiable, IsInfosIntervModifiable_WorkOrderNumberedMinusOne_LocksNoRow) {
  set_visits(*contract_, {{}, {}});
  set_schedule(*contract_, {work_order_for(-1)});
  EXPECT_TRUE(all_modifiable());
}

TEST_F(ContratDocModifiable, IsInfosIntervModifiable_InvoicedBillingRow_DoesNotLock) {
  set_visits(*contract_, {{}});
  dimension<Type_CadencierFact>(contract_->TabCadFact, 1);
  element<Type_CadencierFact>(contract_->TabCadFact, 0).Transfere = VARIANT_TRUE;
  set(element<Type_CadencierFact>(contract_->TabCadFact, 0).codeFact, L"FA-1");
  EXPECT_TRUE(modifiable(0));
  EXPECT_TRUE(all_modifiable());
}

TEST_F(ContratDocModifiable, IsInfosIntervModifiable_AsManyScheduleRowsAsCount_AreSearched) {
  // Rows without site and label shorten the search by one each, wherever they stand.
  set_visits(*contract_, {{}, {}});
  set_schedule(*contract_, {{}, work_order_for(0), work_order_for(1)});
  EXPECT_FALSE(modifiable(0));
  EXPECT_TRUE(modifiable(1));
}

TEST_F(ContratDocModifiable, IsInfosIntervModifiable_WorkOrderInARowWithoutSiteAndLabel_IsSeenIfSearched) {
  set_visits(*contract_, {{}});
  set_schedule(*contract_, {{.visit = 0, .work_order = L"INT-1"}, {.site = L"A", .visit = 5}});
  EXPECT_FALSE(modifiable(0));
  set_schedule(*contract_, {{.visit = 0, .work_order = L"INT-1"}});
  EXPECT_TRUE(modifiable(0));
}

TEST_F(ContratDocModifiable, IsInfosIntervModifiable_OfAll_IsFalseWithOneLockedRowAnywhere) {
  for (const std::size_t locked : {0U, 1U, 2U}) {
    std::vector<Visit> visits(3);
    visits[locked] = {.framework = true, .consumed = 1};
    set_visits(*contract_, visits);
    EXPECT_FALSE(all_modifiable()) << locked;
  }
}

TEST_F(ContratDocModifiable, IsInfosIntervModifiable_OfOne_IgnoresOtherLockedRows) {
  set_visits(*contract_, {{.framework = true, .consumed = 1}, {}, {.framework = true, .consumed = 1}});
  EXPECT_TRUE(modifiable(1));
}

TEST_F(ContratDocModifiable, IsInfosIntervModifiable_MinusOne_MeansAll) {
  set_visits(*contract_, {{}, {.framework = true, .consumed = 1}});
  EXPECT_FALSE(modifiable(-1));
  set_visits(*contract_, {{}, {}});
  EXPECT_TRUE(modifiable(-1));
}

TEST_F(ContratDocModifiable, IsInfosIntervModifiable_OfAllWithoutIntervention_IsTrue) {
  EXPECT_TRUE(all_modifiable());
  EXPECT_TRUE(modifiable(-1));
  set_visits(*contract_, {});
  set_schedule(*contract_, {work_order_for(0)});
  EXPECT_TRUE(all_modifiable());
}

TEST_F(ContratDocModifiable, IsInfosIntervModifiable_IndexOutside_IsFault9) {
  set_visits(*contract_, {{}, {}});
  for (const short index : Numbers{-32768, -2, 2, 32767}) {
    EXPECT_TRUE(faults(is_modifiable(Variant(index)), 9)) << index;
  }
}

TEST_F(ContratDocModifiable, IsInfosIntervModifiable_OfOneWithoutIntervention_IsFault9) {
  EXPECT_TRUE(faults(is_modifiable(Variant(short{0})), 9));
}

TEST_F(ContratDocModifiable, IsInfosIntervModifiable_NumbersOfOtherTypes_AreConverted) {
  set_visits(*contract_, {{}, {}, {.framework = true, .consumed = 1}, {}, {}});
  EXPECT_FALSE(value_of(is_modifiable(Variant(2L))));
  EXPECT_FALSE(value_of(is_modifiable(Variant(2.0))));
  EXPECT_FALSE(value_of(is_modifiable(text_value(L" 2 "))));
  EXPECT_TRUE(value_of(is_modifiable(text_value(L"3"))));
  EXPECT_TRUE(value_of(is_modifiable(Variant())));          // 0
  EXPECT_FALSE(value_of(is_modifiable(bool_value(true))));  // -1: all
  EXPECT_TRUE(value_of(is_modifiable(bool_value(false))));  // 0
}

TEST_F(ContratDocModifiable, IsInfosIntervModifiable_HalvesRoundToTheEvenNumber) {
  set_visits(*contract_, {{}, {}, {.framework = true, .consumed = 1}, {}, {}});
  EXPECT_FALSE(value_of(is_modifiable(Variant(1.5))));
  EXPECT_FALSE(value_of(is_modifiable(Variant(2.5))));
  EXPECT_TRUE(value_of(is_modifiable(Variant(3.5))));
  EXPECT_FALSE(value_of(is_modifiable(text_value(L"1,5"))));
}

TEST_F(ContratDocModifiable, IsInfosIntervModifiable_AVariableByReference_IsRead) {
  set_visits(*contract_, {{}, {.framework = true, .consumed = 1}});
  short number = 1;
  EXPECT_FALSE(value_of(is_modifiable(by_reference(number))));
  Variant variable = text_value(L"0");
  EXPECT_TRUE(value_of(is_modifiable(by_reference(variable.get()))));
}

TEST_F(ContratDocModifiable, IsInfosIntervModifiable_NullIsFault94) {
  set_visits(*contract_, {{}});
  EXPECT_TRUE(faults(is_modifiable(null_value()), 94));
}

TEST_F(ContratDocModifiable, IsInfosIntervModifiable_AnIndexBeyond32Bits_IsFault6) {
  set_visits(*contract_, {{}});
  EXPECT_TRUE(faults(is_modifiable(Variant(3e9)), 6));
}

TEST_F(ContratDocModifiable, IsInfosIntervModifiable_ATextThatIsNoNumber_IsFault13) {
  set_visits(*contract_, {{}});
  EXPECT_TRUE(faults(is_modifiable(text_value(L"toutes")), 13));
  EXPECT_TRUE(faults(is_modifiable(text_value(L"")), 13));
}

}  // namespace
}  // namespace host
