// InvoiceXMLLib.AddIntervToInvoiceXML: covered and invoiced articles, and the numbers that their rows take.
#include "invoicing/invoice_fixture.h"

namespace {

using Rows = std::vector<std::string>;

class ConsumptionRows : public host::InvoiceTest {
 protected:
  static constexpr const char* kCoveredHeading = "2 TRANCHE: Consommations / Opérations prises en charge";
  static constexpr const char* kInvoicedHeading = "2 TRANCHE: Consommations / Opérations facturées";

  /// All rows, numbered from 0; `next_` is the next free number.
  Rows rows(const std::vector<host::Line>& articles, const wchar_t* covered_by) {
    host::set_articles(*order_, articles);
    next_ = 0;
    return host::rows_of(order_rows(order_, next_, covered_by));
  }
  /// The rows after date and label.
  Rows consumption(const std::vector<host::Line>& articles, const wchar_t* covered_by) {
    Rows all = rows(articles, covered_by);
    return Rows(all.begin() + 2, all.end());
  }
  static std::string numbered(int rank, const char* rest) { return std::to_string(rank) + " " + rest; }

  short next_ = 0;
  host::Record<Type_Bon> order_ = host::sample_work_order();
};

TEST_F(ConsumptionRows, OfThreeInvoicedArticlesTakeRanksThreeToFiveAndLeaveSix) {
  EXPECT_EQ((Rows{"0 1 TRANCHE: Intervention du 15/03/25", "1 1 T: Entretien", numbered(2, kInvoicedHeading),
                  "3 2 A: lib A1", "4 2 A: lib A2", "5 2 A: lib A3"}),
            rows({{L"A1"}, {L"A2"}, {L"A3"}}, L""));
  EXPECT_EQ(6, next_);
}

TEST_F(ConsumptionRows, OfACoveredArticleBetweenInvoicedOnesLeaveAGapInTheRanks) {
  EXPECT_EQ((Rows{numbered(2, kCoveredHeading), "3 2 A: lib A2", "4 1 T:  ", numbered(5, kInvoicedHeading),
                  "6 2 A: lib A1", "8 2 A: lib A3"}),
            consumption({{L"A1", L"F"}, {L"A2", L"C"}, {L"A3", L"F"}}, L"F"));
  EXPECT_EQ(9, next_);
}

TEST_F(ConsumptionRows, InvoiceEveryArticleWithoutCoveredSectionOrBlankRowWhenNoValueIsCompared) {
  EXPECT_EQ((Rows{numbered(2, kInvoicedHeading), "3 2 A: lib A1", "4 2 A: lib A2"}),
            consumption({{L"A1", L"C"}, {L"A2", L"F"}}, L""));
}

TEST_F(ConsumptionRows, KeepTheBlankRowWhenNoArticleIsCovered) {
  EXPECT_EQ((Rows{"2 1 T:  ", numbered(3, kInvoicedHeading), "4 2 A: lib A1", "5 2 A: lib A2"}),
            consumption({{L"A1", L"F"}, {L"A2", L"F"}}, L"F"));
  EXPECT_EQ(6, next_);
}

TEST_F(ConsumptionRows, KeepTheInvoicedHeadingWithoutArticleWhenAllAreCovered) {
  EXPECT_EQ((Rows{numbered(2, kCoveredHeading), "3 2 A: lib A1", "4 2 A: lib A2",
                  "5 1 T:  ", numbered(6, kInvoicedHeading)}),
            consumption({{L"A1", L"C"}, {L"A2", L"C"}}, L"F"));
  EXPECT_EQ(9, next_);
}

TEST_F(ConsumptionRows, WriteTheBlankRowForAnInterventionWithoutArticle) {
  EXPECT_EQ(Rows{"2 1 T:  "}, consumption({}, L"F"));
  EXPECT_EQ(3, next_);
}

TEST_F(ConsumptionRows, WriteNothingForAnInterventionWithoutArticleWhenNoValueIsCompared) {
  EXPECT_EQ(Rows{}, consumption({}, L""));
  EXPECT_EQ(2, next_);
}

TEST_F(ConsumptionRows, ListTextLinesInTheInvoicedSectionOnly) {
  EXPECT_EQ((Rows{numbered(2, kCoveredHeading), "3 2 A: lib A1", "4 1 T:  ", numbered(5, kInvoicedHeading),
                  "7 2 T: lib T1", "8 2 A: lib A2"}),
            consumption({{L"A1", L"C"}, {L"T1", L"C", L"T"}, {L"A2", L"F"}}, L"F"));
  EXPECT_EQ(9, next_);
}

TEST_F(ConsumptionRows, WriteTextLinesBeforeTheHeadingWhenTheyComeFirst) {
  EXPECT_EQ((Rows{"2 2 T: lib T1", numbered(3, kInvoicedHeading), "4 2 A: lib A1", "5 2 T: lib T2"}),
            consumption({{L"T1", L"", L"T"}, {L"A1"}, {L"T2", L"", L"T"}}, L""));
  EXPECT_EQ(6, next_);
}

TEST_F(ConsumptionRows, HaveNoHeadingForTextLinesAlone) {
  EXPECT_EQ((Rows{"2 2 T: lib T1", "3 2 T: lib T2"}),
            consumption({{L"T1", L"", L"T"}, {L"T2", L"", L"T"}}, L""));
  EXPECT_EQ(4, next_);
}

TEST_F(ConsumptionRows, WriteEachHeadingOnce) {
  const Rows written = consumption({{L"A1", L"C"}, {L"A2", L"F"}, {L"A3", L"C"}, {L"A4", L"F"}}, L"F");
  EXPECT_EQ((Rows{numbered(2, kCoveredHeading), "3 2 A: lib A1", "4 2 A: lib A3",
                  "5 1 T:  ", numbered(6, kInvoicedHeading), "8 2 A: lib A2", "10 2 A: lib A4"}),
            written);
  EXPECT_EQ(11, next_);
}

TEST_F(ConsumptionRows, LeaveAGapAtTheEndForATrailingCoveredArticle) {
  EXPECT_EQ((Rows{numbered(2, kCoveredHeading), "3 2 A: lib A2", "4 1 T:  ", numbered(5, kInvoicedHeading),
                  "6 2 A: lib A1"}),
            consumption({{L"A1", L"F"}, {L"A2", L"C"}}, L"F"));
  EXPECT_EQ(8, next_);
}

TEST_F(ConsumptionRows, CompareSituationsExactly) {
  EXPECT_EQ((Rows{numbered(2, kCoveredHeading), "3 2 A: lib A1", "4 1 T:  ", numbered(5, kInvoicedHeading)}),
            consumption({{L"A1", L"f"}}, L"F"));
}

TEST_F(ConsumptionRows, TakeAnArticleWithoutSituationForCovered) {
  EXPECT_EQ((Rows{numbered(2, kCoveredHeading), "3 2 A: lib A1", "4 1 T:  ", numbered(5, kInvoicedHeading)}),
            consumption({{L"A1", L""}}, L"F"));
}

TEST_F(ConsumptionRows, BothCoverAndInvoiceArticlesForABlankComparedValue) {
  EXPECT_EQ((Rows{numbered(2, kCoveredHeading), "3 2 A: lib A1", "4 1 T:  ", numbered(5, kInvoicedHeading),
                  "6 2 A: lib A1"}),
            consumption({{L"A1", L"F"}}, L" "));
}

TEST_F(ConsumptionRows, TakeALowerCaseLineTypeForAnArticle) {
  EXPECT_EQ((Rows{numbered(2, kInvoicedHeading), "3 2 t: lib A1"}), consumption({{L"A1", L"", L"t"}}, L""));
}

TEST_F(ConsumptionRows, GiveAnArticleItsOwnLineType) {
  EXPECT_EQ((Rows{numbered(2, kInvoicedHeading), "3 2 M: lib A1", "4 2 : lib A2"}),
            consumption({{L"A1", L"", L"M"}, {L"A2", L"", L""}}, L""));
}

TEST_F(ConsumptionRows, NameTheInterventionAsTheirOrigin) {
  host::set_articles(*order_, {{L"A1", L"C"}, {L"A2", L"F"}, {L"T1", L"", L"T"}});
  short line = 0;
  const auto rows = host::row_nodes(order_rows(order_, line, L"F"));
  ASSERT_EQ(8u, rows.size());
  for (const auto& row : rows) {
    EXPECT_EQ(L"ORIGINE", row.children[0].name);
    EXPECT_EQ(L"INT-9", row.children[0].text);
    EXPECT_EQ(L"INTERVENTION", row.children[0].attribute(L"TYPE"));
  }
}

TEST_F(ConsumptionRows, KeepTheBlankOfTheBlankRowThroughTheNextCall) {
  short line = 0;
  const std::wstring first = order_rows(order_, line, L"F");
  ASSERT_EQ("2 1 T:  ", host::rows_of(first).at(2));
  const Rows both = host::rows_of(order_rows(order_, line, L"", first));
  ASSERT_EQ(5u, both.size());
  EXPECT_EQ("2 1 T:  ", both[2]);
}

TEST_F(ConsumptionRows, CountOnAcrossCalls) {
  host::set_articles(*order_, {{L"A1"}});
  short line = 0;
  const std::wstring first = order_rows(order_, line);
  const Rows both = host::rows_of(order_rows(order_, line, L"", first));
  ASSERT_EQ(8u, both.size());
  EXPECT_EQ("3 2 A: lib A1", both[3]);
  EXPECT_EQ("4 1 TRANCHE: Intervention du 15/03/25", both[4]);
  EXPECT_EQ("7 2 A: lib A1", both[7]);
  EXPECT_EQ(8, line);
}

TEST_F(ConsumptionRows, RaiseOverflowWhenASkippedArticleTakesTheLastNumber) {
  host::set_articles(*order_, {{L"A1", L"F"}, {L"A2", L"C"}});
  short line = 32767 - 7;  // the rows themselves end at 32766; the gap after them does not fit
  host::Text result;
  EXPECT_TRUE(
      host::is_fault(invoices_->AddIntervToInvoiceXML(order_, nullptr, -1, host::Text(L"F"), &line, &result),
                     6, L"InvoiceXMLLib"));
  EXPECT_EQ(32767, line);
}

}  // namespace
