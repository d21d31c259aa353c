// ContratDoc.NbrInterv and ContratDoc.NbrCadInterv.
#include "sites/contract_fixture.h"
#include "support/filled_record.h"

namespace host {
namespace {

TEST_F(ContratDocInterventions, NbrInterv_NeverDimensioned_IsMinusOne) { EXPECT_EQ(-1, value_of(count())); }

TEST_F(ContratDocInterventions, NbrInterv_NeverDimensioned_LeavesNoErrorInformation) {
  take_error();
  count();
  EXPECT_EQ(L"", take_error().description);
}

TEST_F(ContratDocInterventions, NbrInterv_IsTheUpperBoundPlusOne) {
  for (const short size : Numbers{0, 1, 3, 4000}) {
    dimension<Type_Intervention>(contract_->TabInterv, static_cast<unsigned long>(size));
    EXPECT_EQ(size, value_of(count()));
  }
}

TEST_F(ContratDocInterventions, NbrInterv_FromAnotherLowerBound_IsStillTheUpperBoundPlusOne) {
  dimension<Type_Intervention>(contract_->TabInterv, 2, 1);
  EXPECT_EQ(3, value_of(count()));
}

TEST_F(ContratDocInterventions, NbrInterv_CountsRowsWithoutSiteAndLabel) {
  set_visits(*contract_, {{}, {.site = L"A", .label = L"Visite"}, {}});
  EXPECT_EQ(3, value_of(count()));
}

TEST_F(ContratDocInterventions, NbrInterv_CountsNeitherTheScheduleNorTheBilling) {
  dimension<Type_CadencierInterv>(contract_->TabCadInterv, 4);
  dimension<Type_CadencierFact>(contract_->TabCadFact, 5);
  EXPECT_EQ(-1, value_of(count()));
}

TEST_F(ContratDocInterventions, NbrCadInterv_NeverDimensioned_IsMinusOne) {
  EXPECT_EQ(-1, value_of(scheduled_count()));
}

TEST_F(ContratDocInterventions, NbrCadInterv_NeverDimensioned_LeavesNoErrorInformation) {
  take_error();
  scheduled_count();
  EXPECT_EQ(L"", take_error().description);
}

TEST_F(ContratDocInterventions, NbrCadInterv_OfThreeRowsOfWhichOneHasNeitherSiteNorLabel_IsTwo) {
  set_schedule(*contract_, {{.site = L"A", .label = L"Visite"}, {}, {.site = L"B", .label = L"Visite"}});
  EXPECT_EQ(2, value_of(scheduled_count()));
}

TEST_F(ContratDocInterventions, NbrCadInterv_EmptyDimensionedSchedule_IsZero) {
  set_schedule(*contract_, {});
  EXPECT_EQ(0, value_of(scheduled_count()));
}

TEST_F(ContratDocInterventions, NbrCadInterv_CountsNeitherTheInterventionsNorTheBilling) {
  dimension<Type_Intervention>(contract_->TabInterv, 4);
  dimension<Type_CadencierFact>(contract_->TabCadFact, 5);
  EXPECT_EQ(-1, value_of(scheduled_count()));
}

struct Row {
  const char* description;
  Appointment row;
  short counted;
};

class ContratDocScheduleRow : public ContratDocInterventions, public ::testing::WithParamInterface<Row> {};

TEST_P(ContratDocScheduleRow, NbrCadInterv_CountsItUnlessSiteAndLabelAreBlank) {
  for (const std::size_t place : {0U, 1U, 2U}) {
    std::vector<Appointment> rows(3, Appointment{.site = L"A", .label = L"Visite"});
    rows[place] = GetParam().row;
    set_schedule(*contract_, rows);
    EXPECT_EQ(2 + GetParam().counted, value_of(scheduled_count())) << "row " << place;
  }
}

INSTANTIATE_TEST_SUITE_P(
    Rows, ContratDocScheduleRow,
    ::testing::Values(Row{"Nothing", {}, 0}, Row{"BlanksOnly", {.site = L"  ", .label = L" "}, 0},
                      Row{"SiteOnly", {.site = L"A"}, 1}, Row{"LabelOnly", {.label = L"Visite"}, 1},
                      Row{"TabAsLabel", {.label = L"\t"}, 1},
                      Row{"NumberAndWorkOrderOnly", {.visit = 3, .work_order = L"INT-1"}, 0}),
    [](const auto& row) { return row.param.description; });

TEST_F(ContratDocInterventions, NbrCadInterv_BlankRowsOnBothSides_AreLeftOut) {
  set_schedule(*contract_, {{.site = L" "}, {.site = L"A", .label = L"Visite"}, {}, {}});
  EXPECT_EQ(1, value_of(scheduled_count()));
}

TEST_F(ContratDocInterventions, NbrCadInterv_OfAContractWithEveryFieldFilled_IsTheSame) {
  fill(*contract_);
  set_visits(*contract_, {{.site = L"A", .label = L"Visite"}});
  set_schedule(*contract_, {{.site = L"A", .label = L"Visite"}, {.site = L"B"}, {}});
  dimension<Type_CadencierFact>(contract_->TabCadFact, 5);
  EXPECT_EQ(2, value_of(scheduled_count()));
}

TEST_F(ContratDocInterventions, NbrCadInterv_OnlyBlankRows_IsZero) {
  set_schedule(*contract_, {{}, {.site = L" "}, {.label = L" "}});
  EXPECT_EQ(0, value_of(scheduled_count()));
}

TEST_F(ContratDocInterventions, NbrCadInterv_TooManyRowsToBeCounted_IsMinusOneHoweverManyAreBlank) {
  for (const unsigned long rows : {32768UL, 40000UL}) {
    dimension<Type_CadencierInterv>(contract_->TabCadInterv, rows);
    EXPECT_EQ(-1, value_of(scheduled_count())) << rows;
    set(element<Type_CadencierInterv>(contract_->TabCadInterv, 7).CodeSite, L"A");
    EXPECT_EQ(-1, value_of(scheduled_count())) << rows;
  }
}

}  // namespace
}  // namespace host
