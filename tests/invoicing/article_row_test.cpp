// The row of an article in the XML invoice: children, their order and their texts.
#include "invoicing/invoice_fixture.h"

namespace {

class ArticleRow : public host::InvoiceTest {
 protected:
  ArticleRow() {
    host::set_articles(*order_, {{L"A1", L"F"}});
    auto& line = article();
    line.Qte = 2.5;
    line.Pr.int64 = 123456;         // 12,3456
    line.PrixUnit.int64 = 1000000;  // 100
    line.Remise = 7.25;
    line.CodeTva = 3;
    host::set(line.Valorisation, L"PMP");
    host::set(line.UniteMes, L"m²");
    line.EquivStock = 0.1;
    line.PVFixe = VARIANT_TRUE;
  }

  Type_LigneArticle& article() { return host::element<Type_LigneArticle>(order_->TabArticle, 0); }

  host::XmlNode invoiced(long vat = -1) {
    short line = 0;
    return host::row_nodes(order_rows(order_, line, L"", L"", vat)).back();
  }
  /// The same article, covered by the contract.
  host::XmlNode covered(long vat = -1) {
    short line = 0;
    return host::row_nodes(order_rows(order_, line, L"autre", L"", vat)).at(3);
  }

  host::Record<Type_Bon> order_ = host::sample_work_order();
};

TEST_F(ArticleRow, HoldsItsChildrenInOrderWhenInvoiced) {
  EXPECT_EQ(
      "ROW RANK=\"3\" LEVEL=\"2\" TYPE=\"A\"\n"
      "  ORIGINE TYPE=\"INTERVENTION\" = INT-9\n"
      "  CODEELEM = A1\n"
      "  DESIGNATION = lib A1\n"
      "  QTY = 2,5\n"
      "  UNITCOST = 12,3456\n"
      "  DISCOUNTRATE = 7,25\n"
      "  UNITPRICE = 100\n"
      "  PVFIXE = Vrai\n"
      "  VALORISAMT = PMP\n"
      "  CODEUNITE = m²\n"
      "  EQUIVSTK = 0,1\n"
      "  COMPTE\n"
      "  CODETVA RATE=\"\" = 3\n",
      host::outline(invoiced()));
}

TEST_F(ArticleRow, HasNoDiscountPriceOrFixedPriceWhenCovered) {
  EXPECT_EQ(
      "ROW RANK=\"3\" LEVEL=\"2\" TYPE=\"A\"\n"
      "  ORIGINE TYPE=\"INTERVENTION\" = INT-9\n"
      "  CODEELEM = A1\n"
      "  DESIGNATION = lib A1\n"
      "  QTY = 2,5\n"
      "  UNITCOST = 12,3456\n"
      "  DISCOUNTRATE = 0\n"
      "  UNITPRICE = 0\n"
      "  VALORISAMT = PMP\n"
      "  CODEUNITE = m²\n"
      "  EQUIVSTK = 0,1\n"
      "  COMPTE\n"
      "  CODETVA RATE=\"\" = 3\n",
      host::outline(covered()));
}

TEST_F(ArticleRow, WritesFauxForAPriceThatIsNotFixed) {
  article().PVFixe = VARIANT_FALSE;
  EXPECT_EQ(L"Faux", invoiced().child(L"PVFIXE").text);
}

TEST_F(ArticleRow, WritesZeroAndEmptyTextsOfAnEmptyLine) {
  host::dimension<Type_LigneArticle>(order_->TabArticle, 1);
  EXPECT_EQ(
      "ROW RANK=\"3\" LEVEL=\"2\" TYPE=\"\"\n"
      "  ORIGINE TYPE=\"INTERVENTION\" = INT-9\n"
      "  CODEELEM\n"
      "  DESIGNATION\n"
      "  QTY = 0\n"
      "  UNITCOST = 0\n"
      "  DISCOUNTRATE = 0\n"
      "  UNITPRICE = 0\n"
      "  PVFIXE = Faux\n"
      "  VALORISAMT\n"
      "  CODEUNITE\n"
      "  EQUIVSTK = 0\n"
      "  COMPTE\n"
      "  CODETVA RATE=\"\" = 0\n",
      host::outline(invoiced()));
}

TEST_F(ArticleRow, WritesNumbersWithoutThousandsSeparatorAndWithTheirSign) {
  article().Qte = -1234567.5;
  article().PrixUnit.int64 = -98765432100;
  const auto row = invoiced();
  EXPECT_EQ(L"-1234567,5", row.child(L"QTY").text);
  EXPECT_EQ(L"-9876543,21", row.child(L"UNITPRICE").text);
}

TEST_F(ArticleRow, WritesDoublesWithFifteenDigits) {
  article().Qte = 1.0 / 3.0;
  EXPECT_EQ(L"0,333333333333333", invoiced().child(L"QTY").text);
}

TEST_F(ArticleRow, WritesTheUnitPriceAndCostNotTheTotals) {
  article().PrixTot.int64 = 5000000;
  article().TotalPR.int64 = 6000000;
  article().MontantValoris.int64 = 7000000;
  const auto row = invoiced();
  EXPECT_EQ(L"100", row.child(L"UNITPRICE").text);
  EXPECT_EQ(L"12,3456", row.child(L"UNITCOST").text);
  EXPECT_EQ(L"PMP", row.child(L"VALORISAMT").text);
}

TEST_F(ArticleRow, CarriesTheRateOfItsVatCode) {
  const auto vat = host::vat_object({{3, 5.5}});
  EXPECT_EQ(L"5,5", invoiced(host::address_of(vat.get())).child(L"CODETVA").attribute(L"RATE"));
  EXPECT_EQ(L"5,5", covered(host::address_of(vat.get())).child(L"CODETVA").attribute(L"RATE"));
}

TEST_F(ArticleRow, WritesANegativeVatCodeAsItIs) {
  article().CodeTva = -1;
  EXPECT_EQ(L"-1", invoiced().child(L"CODETVA").text);
}

}  // namespace
