// InvoiceXMLLib.AddIntervToInvoiceXML: the rows before the articles, and the whole call.
#include "invoicing/invoice_fixture.h"

namespace {

using Rows = std::vector<std::string>;

class AddIntervToInvoiceXml : public host::InvoiceTest {
 protected:
  Rows rows() {
    short line = 0;
    return host::rows_of(order_rows(order_, line));
  }
  void address(const wchar_t* street, const wchar_t* second, const wchar_t* code, const wchar_t* town) {
    host::set(order_->Adr.Adr, street);
    host::set(order_->Adr.AdrSuite, second);
    host::set(order_->Adr.CP, code);
    host::set(order_->Adr.Ville, town);
  }

  host::Record<Type_Bon> order_ = host::sample_work_order();
};

TEST_F(AddIntervToInvoiceXml, WritesDateAndLabelOnlyForAnInterventionWithoutSiteAndAddress) {
  EXPECT_EQ((Rows{"0 1 TRANCHE: Intervention du 15/03/25", "1 1 T: Entretien"}), rows());
}

TEST_F(AddIntervToInvoiceXml, WritesAnEmptyDesignationForAnEmptyLabel) {
  host::set(order_->Libelle, L"");
  EXPECT_EQ((Rows{"0 1 TRANCHE: Intervention du 15/03/25", "1 1 T: "}), rows());
}

TEST_F(AddIntervToInvoiceXml, WritesTextRowsAsAttributesOriginAndDesignationInThatOrder) {
  short line = 0;
  EXPECT_EQ(
      "INVOICE\n"
      "  ROW RANK=\"0\" LEVEL=\"1\" TYPE=\"TRANCHE\"\n"
      "    ORIGINE TYPE=\"INTERVENTION\" = INT-9\n"
      "    DESIGNATION = Intervention du 15/03/25\n"
      "  ROW RANK=\"1\" LEVEL=\"1\" TYPE=\"T\"\n"
      "    ORIGINE TYPE=\"INTERVENTION\" = INT-9\n"
      "    DESIGNATION = Entretien\n",
      host::outline(host::parse_xml(order_rows(order_, line))));
}

TEST_F(AddIntervToInvoiceXml, WritesNoOriginForAnInterventionWithoutCode) {
  host::set(order_->Code, L"");
  host::set_articles(*order_, {{L"A1", L"C"}, {L"A2", L"F"}});
  short line = 0;
  for (const auto& row : host::row_nodes(order_rows(order_, line, L"F"))) {
    EXPECT_EQ(0u, row.children_named(L"ORIGINE").size()) << host::outline(row);
  }
}

TEST_F(AddIntervToInvoiceXml, WritesTheSiteBetweenDateAndLabel) {
  host::set(order_->Adr.NomSite, L"Usine nord");
  EXPECT_EQ((Rows{"0 1 TRANCHE: Intervention du 15/03/25", "1 1 T: Site d'intervention : Usine nord",
                  "2 1 T: Entretien"}),
            rows());
}

TEST_F(AddIntervToInvoiceXml, LeavesOutABlankSite) {
  host::set(order_->Adr.NomSite, L"   ");
  EXPECT_EQ(2u, rows().size());
}

TEST_F(AddIntervToInvoiceXml, WritesASiteWithItsBlanks) {
  host::set(order_->Adr.NomSite, L" Usine ");
  EXPECT_EQ("1 1 T: Site d'intervention :  Usine ", rows().at(1));
}

TEST_F(AddIntervToInvoiceXml, JoinsStreetPostcodeAndTownWithoutADoubledSeparatorForAnEmptySecondLine) {
  address(L"1 rue Basse", L"", L"69001", L"Lyon");
  EXPECT_EQ("1 1 T: 1 rue Basse - 69001 - Lyon", rows().at(1));
  EXPECT_EQ(3u, rows().size());
}

TEST_F(AddIntervToInvoiceXml, JoinsAllFourPartsOfAnAddress) {
  address(L"1 rue Basse", L"Bât. B", L"69001", L"Lyon");
  EXPECT_EQ("1 1 T: 1 rue Basse - Bât. B - 69001 - Lyon", rows().at(1));
}

TEST_F(AddIntervToInvoiceXml, WritesASinglePartOfAnAddressWithoutSeparator) {
  address(L"", L"", L"", L"Lyon");
  EXPECT_EQ("1 1 T: Lyon", rows().at(1));
}

TEST_F(AddIntervToInvoiceXml, SkipsBlankPartsAndKeepsTheBlanksOfOthers) {
  address(L" 1 rue Basse ", L"  ", L" 69001", L"");
  EXPECT_EQ("1 1 T:  1 rue Basse  -  69001", rows().at(1));
}

TEST_F(AddIntervToInvoiceXml, WritesSiteThenAddressThenLabel) {
  host::set(order_->Adr.NomSite, L"Usine");
  address(L"1 rue Basse", L"", L"", L"");
  EXPECT_EQ((Rows{"0 1 TRANCHE: Intervention du 15/03/25", "1 1 T: Site d'intervention : Usine",
                  "2 1 T: 1 rue Basse", "3 1 T: Entretien"}),
            rows());
}

TEST_F(AddIntervToInvoiceXml, WritesATextThatIsNoDateAsItIs) {
  host::set(order_->DateDeb, L"date à fixer");
  EXPECT_EQ("0 1 TRANCHE: Intervention du date à fixer", rows().at(0));
}

TEST_F(AddIntervToInvoiceXml, WritesNoDateForAnEmptyOne) {
  host::set(order_->DateDeb, L"");
  EXPECT_EQ("0 1 TRANCHE: Intervention du ", rows().at(0));
}

TEST_F(AddIntervToInvoiceXml, ShortensTheYearToTwoDigits) {
  host::set(order_->DateDeb, L"01/12/1999");
  EXPECT_EQ("0 1 TRANCHE: Intervention du 01/12/99", rows().at(0));
}

TEST_F(AddIntervToInvoiceXml, NumbersFromTheGivenLineAndLeavesTheNextFreeOne) {
  short line = 40;
  const auto written = host::rows_of(order_rows(order_, line));
  EXPECT_EQ((Rows{"40 1 TRANCHE: Intervention du 15/03/25", "41 1 T: Entretien"}), written);
  EXPECT_EQ(42, line);
}

TEST_F(AddIntervToInvoiceXml, NumbersFromANegativeLine) {
  short line = -1;
  const auto written = host::rows_of(order_rows(order_, line));
  EXPECT_EQ("-1 1 TRANCHE: Intervention du 15/03/25", written.at(0));
  EXPECT_EQ("0 1 T: Entretien", written.at(1));
  EXPECT_EQ(1, line);
}

TEST_F(AddIntervToInvoiceXml, AppendsRowsAfterWhatTheInvoiceHolds) {
  host::Record<Type_AdresseTiers> billing;
  const std::wstring header = order_header(order_, billing);
  short line = 0;
  const auto invoice = host::parse_xml(order_rows(order_, line, L"", header));
  ASSERT_EQ(11u, invoice.children.size());
  EXPECT_EQ(L"ADRFACTURATION", invoice.children[8].name);
  EXPECT_EQ(L"ROW", invoice.children[9].name);
  EXPECT_EQ(L"ROW", invoice.children[10].name);
}

TEST_F(AddIntervToInvoiceXml, ReturnsTheInvoiceElementAlone) {
  short line = 0;
  const std::wstring xml = order_rows(order_, line, L"", L"<?xml version=\"1.0\"?><INVOICE></INVOICE>");
  EXPECT_TRUE(xml.starts_with(L"<INVOICE>")) << host::utf8(xml);
  EXPECT_TRUE(xml.ends_with(L"</INVOICE>")) << host::utf8(xml);
}

TEST_F(AddIntervToInvoiceXml, ReturnsNothingAndKeepsTheLineForATextThatCannotBeUsed) {
  for (const wchar_t* xml : {L"<INVOICE>", L"<FACTURE/>", L"<!DOCTYPE INVOICE><INVOICE/>", L"facture"}) {
    short line = 12;
    EXPECT_EQ(L"", order_rows(order_, line, L"", xml)) << host::utf8(xml);
    EXPECT_EQ(12, line) << host::utf8(xml);
  }
}

TEST_F(AddIntervToInvoiceXml, ChangesNothingInTheIntervention) {
  host::set_articles(*order_, {{L"A1", L"C"}, {L"A2", L"F"}, {L"T1", L"", L"T"}});
  const auto before = host::snapshot(*order_);
  short line = 0;
  order_rows(order_, line, L"F");
  EXPECT_EQ(std::vector<std::string>{}, host::differences(*before, *order_));
}

TEST_F(AddIntervToInvoiceXml, CountsUpToTheHighestLine) {
  short line = 32765;
  EXPECT_EQ((Rows{"32765 1 TRANCHE: Intervention du 15/03/25", "32766 1 T: Entretien"}),
            host::rows_of(order_rows(order_, line)));
  EXPECT_EQ(32767, line);
}

TEST_F(AddIntervToInvoiceXml, RaisesOverflowBeyondTheHighestLine) {
  short line = 32766;
  host::Text result;
  EXPECT_TRUE(host::is_fault(invoices_->AddIntervToInvoiceXML(order_, nullptr, -1, nullptr, &line, &result),
                             6, L"InvoiceXMLLib"));
  EXPECT_EQ(L"", result.str());
  EXPECT_EQ(32767, line);
}

TEST_F(AddIntervToInvoiceXml, RaisesSubscriptWhenArticlesDoNotBeginAtZero) {
  host::dimension<Type_LigneArticle>(order_->TabArticle, 2, 1);
  short line = 5;
  host::Text result;
  EXPECT_TRUE(host::is_fault(invoices_->AddIntervToInvoiceXML(order_, nullptr, -1, nullptr, &line, &result),
                             9, L"InvoiceXMLLib"));
  EXPECT_EQ(L"", result.str());
  EXPECT_EQ(7, line);
}

TEST_F(AddIntervToInvoiceXml, WritesNoArticleRowForAListNeverDimensioned) {
  velmosav::erase<Type_LigneArticle>(order_->TabArticle);
  short line = 0;
  EXPECT_EQ(2u, host::row_nodes(order_rows(order_, line)).size());
  EXPECT_EQ(2, line);
  line = 0;
  const auto rows = host::row_nodes(order_rows(order_, line, L"F"));
  ASSERT_EQ(3u, rows.size());
  EXPECT_EQ(L" ", rows[2].child(L"DESIGNATION").text);
  EXPECT_EQ(3, line);
}

TEST_F(AddIntervToInvoiceXml, NumbersFromZeroWithoutANumberToMoveOn) {
  host::Text result;
  ASSERT_EQ(S_OK, invoices_->AddIntervToInvoiceXML(order_, nullptr, -1, nullptr, nullptr, &result));
  EXPECT_EQ(L"0", host::row_nodes(result.str()).at(0).attribute(L"RANK"));
}

TEST_F(AddIntervToInvoiceXml, RefusesANullPointer) {
  short line = 0;
  host::Text result;
  EXPECT_EQ(E_POINTER, invoices_->AddIntervToInvoiceXML(nullptr, nullptr, -1, nullptr, &line, &result));
  EXPECT_EQ(E_POINTER, invoices_->AddIntervToInvoiceXML(order_, nullptr, -1, nullptr, &line, nullptr));
}

}  // namespace
