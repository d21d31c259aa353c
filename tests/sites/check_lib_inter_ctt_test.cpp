// ContratDoc.CheckLibInterCtt: two interventions of one site may not share a label.
#include "sites/contract_fixture.h"

namespace host {
namespace {

/// A variable that the call has not touched.
constexpr long kUntouched = -77;

class ContratDocLabels : public ContratDocInterventions {
 protected:
  /// The answer for these interventions; "3" for a clash with row 3, "none" for no clash.
  std::string clash(const std::vector<Visit>& visits) {
    set_visits(*contract_, visits);
    Variant later(kUntouched);
    if (value_of(labels_differ(&later.get()))) {
      EXPECT_EQ(VT_I4, later.get().vt);
      EXPECT_EQ(kUntouched, later.get().lVal);
      return "none";
    }
    EXPECT_EQ(VT_I2, later.get().vt);
    return std::to_string(later.get().iVal);
  }
};

TEST_F(ContratDocLabels, CheckLibInterCtt_VisiteWithBlanksAndVisiteInCapitalsOnOneSite_ClashAtTheLaterRow) {
  EXPECT_EQ("1", clash({{.site = L"S1", .label = L"  Visite "}, {.site = L"S1", .label = L"VISITE"}}));
}

TEST_F(ContratDocLabels, CheckLibInterCtt_VisiteWithBlanksAndVisiteInCapitalsOnTwoSites_DoNotClash) {
  EXPECT_EQ("none", clash({{.site = L"S1", .label = L"  Visite "}, {.site = L"S2", .label = L"VISITE"}}));
}

TEST_F(ContratDocLabels, CheckLibInterCtt_SitesAreComparedWithoutCaseAndOuterBlanks) {
  EXPECT_EQ("1", clash({{.site = L" nord ", .label = L"Visite"}, {.site = L"NORD", .label = L"Visite"}}));
}

TEST_F(ContratDocLabels, CheckLibInterCtt_AccentsHaveCapitals) {
  EXPECT_EQ("1", clash({{.site = L"été", .label = L"relevé"}, {.site = L"ÉTÉ", .label = L"RELEVÉ"}}));
}

TEST_F(ContratDocLabels, CheckLibInterCtt_AnAccentSeparates) {
  EXPECT_EQ("none", clash({{.site = L"S", .label = L"releve"}, {.site = L"S", .label = L"relevé"}}));
}

TEST_F(ContratDocLabels, CheckLibInterCtt_InnerBlanksAndTabsSeparate) {
  EXPECT_EQ("none", clash({{.site = L"S", .label = L"a b"},
                           {.site = L"S", .label = L"ab"},
                           {.site = L"S", .label = L"a  b"},
                           {.site = L"S", .label = L"ab\t"}}));
}

TEST_F(ContratDocLabels, CheckLibInterCtt_BlankLabelsNeverClash) {
  EXPECT_EQ("none", clash({{.site = L"S"},
                           {.site = L"S"},
                           {.site = L"S", .label = L"  "},
                           {.site = L"S", .label = L" "},
                           {.site = L"S", .label = L" "}}));
}

TEST_F(ContratDocLabels, CheckLibInterCtt_RowsWithoutSiteClashByTheirLabel) {
  EXPECT_EQ("2", clash({{.label = L"Visite"}, {}, {.site = L"  ", .label = L"visite"}}));
}

TEST_F(ContratDocLabels, CheckLibInterCtt_SiteAndLabelAreNotReadAsOneText) {
  EXPECT_EQ("none", clash({{.site = L"AB", .label = L"C"}, {.site = L"A", .label = L"BC"}}));
  EXPECT_EQ("none", clash({{.site = L"A ", .label = L"B"}, {.site = L"A", .label = L"A B"}}));
}

TEST_F(ContratDocLabels, CheckLibInterCtt_LongSitesAreNotReadAsPartOfTheLabelEither) {
  const std::wstring site(65536, L'A');
  const std::wstring label = site + L"B";
  EXPECT_EQ("none", clash({{.site = site.c_str(), .label = L"B"}, {.label = label.c_str()}}));
}

TEST_F(ContratDocLabels, CheckLibInterCtt_RowsThatAreNotNeighboursClash) {
  EXPECT_EQ("3", clash({{.site = L"S", .label = L"x"},
                        {.site = L"T", .label = L"x"},
                        {.site = L"S", .label = L"y"},
                        {.site = L"S", .label = L"X"}}));
}

TEST_F(ContratDocLabels, CheckLibInterCtt_OfSeveralClashes_TheEarliestFirstRowDecides) {
  EXPECT_EQ("3", clash({{.site = L"S", .label = L"x"},
                        {.site = L"S", .label = L"y"},
                        {.site = L"S", .label = L"y"},
                        {.site = L"S", .label = L"x"}}));
}

TEST_F(ContratDocLabels, CheckLibInterCtt_OfThreeEqualRows_TheSecondIsTheLaterOne) {
  EXPECT_EQ(
      "1",
      clash({{.site = L"S", .label = L"x"}, {.site = L"S", .label = L"x"}, {.site = L"S", .label = L"x"}}));
}

TEST_F(ContratDocLabels, CheckLibInterCtt_FewerThanTwoInterventions_DoNotClash) {
  EXPECT_TRUE(value_of(labels_differ()));
  EXPECT_EQ("none", clash({}));
  EXPECT_EQ("none", clash({{.site = L"S", .label = L"x"}}));
}

class ContratDocClash : public ContratDocInterventions {
 protected:
  void SetUp() override {
    set_visits(*contract_, {{.site = L"S", .label = L"x"}, {.site = L"S"}, {.site = L"S", .label = L"x"}});
  }
};

TEST_F(ContratDocClash, CheckLibInterCtt_WithoutVariable_AnswersFalse) {
  EXPECT_FALSE(value_of(labels_differ(nullptr)));
}

TEST_F(ContratDocClash, CheckLibInterCtt_VariableLeftOut_StaysLeftOut) {
  Variant later = missing();
  EXPECT_FALSE(value_of(labels_differ(&later.get())));
  EXPECT_EQ(VT_ERROR, later.get().vt);
  EXPECT_EQ(DISP_E_PARAMNOTFOUND, later.get().scode);
}

TEST_F(ContratDocClash, CheckLibInterCtt_EmptyVariable_ReceivesASixteenBitNumber) {
  Variant later;
  EXPECT_FALSE(value_of(labels_differ(&later.get())));
  EXPECT_EQ(VT_I2, later.get().vt);
  EXPECT_EQ(2, later.get().iVal);
}

TEST_F(ContratDocClash, CheckLibInterCtt_VariableWithAText_ReceivesTheNumberInstead) {
  Variant later = text_value(L"avant");
  EXPECT_FALSE(value_of(labels_differ(&later.get())));
  EXPECT_EQ(VT_I2, later.get().vt);
  EXPECT_EQ(2, later.get().iVal);
}

TEST_F(ContratDocClash, CheckLibInterCtt_TypedVariable_ReceivesTheNumber) {
  short number = 77;
  Variant later = by_reference(number);
  EXPECT_FALSE(value_of(labels_differ(&later.get())));
  EXPECT_EQ(2, number);
}

}  // namespace
}  // namespace host
