// InvoiceXMLLib.AddCttToInvoiceXML: the rows of a contract's billing line.
#include "invoicing/invoice_fixture.h"

namespace {

using Rows = std::vector<std::string>;

class AddCttToInvoiceXml : public host::InvoiceTest {
 protected:
  Rows rows(short index = 0) {
    short line = 0;
    return host::rows_of(contract_rows(contract_, line, index));
  }
  Type_CadencierFact& billing_line() { return host::element<Type_CadencierFact>(contract_->TabCadFact, 0); }

  ::testing::AssertionResult fails(short index, int fault, short& line) {
    host::Text result(L"?");
    const HRESULT code = invoices_->AddCttToInvoiceXML(contract_, index, nullptr, -1, &line, &result);
    if (!result.str().empty()) return ::testing::AssertionFailure() << "a result: " << result;
    return host::is_fault(code, fault, L"InvoiceXMLLib");
  }

  host::Record<Type_Contrat> contract_ = host::sample_contract();
};

TEST_F(AddCttToInvoiceXml, WritesContractValidityAndPeriodForALineWithoutLabelOrShare) {
  EXPECT_EQ((Rows{"0 1 TRANCHE: Contrat n°CTT-7, facturation prévue au 01/02/25",
                  "1 1 T: Période de validité du 01/01/25 au 31/12/25",
                  "2 1 T: Facturation de la période du 01/01/25 au 31/03/25"}),
            rows());
}

TEST_F(AddCttToInvoiceXml, WritesAnInvoiceLabelBeforeTheValidity) {
  host::set(contract_->LibelleFact, L" Maintenance 2025 ");
  const Rows written = rows();
  ASSERT_EQ(4u, written.size());
  EXPECT_EQ("1 1 T:  Maintenance 2025 ", written[1]);
  EXPECT_EQ("2 1 T: Période de validité du 01/01/25 au 31/12/25", written[2]);
}

TEST_F(AddCttToInvoiceXml, LeavesOutABlankInvoiceLabel) {
  host::set(contract_->LibelleFact, L"   ");
  EXPECT_EQ(3u, rows().size());
}

TEST_F(AddCttToInvoiceXml, TakesTheInvoiceLabelNotTheLabelOfTheContractOrLine) {
  host::set(contract_->Libelle, L"contrat");
  host::set(billing_line().Libelle, L"échéance");
  EXPECT_EQ(3u, rows().size());
}

TEST_F(AddCttToInvoiceXml, NamesTheBillingLineAsOriginOfEveryRow) {
  host::set(contract_->LibelleFact, L"Maintenance");
  host::set_share(*contract_, 0, 1, 100, 50);
  short line = 0;
  const auto written = host::row_nodes(contract_rows(contract_, line));
  ASSERT_EQ(5u, written.size());
  for (const auto& row : written) {
    EXPECT_EQ(L"ORIGINE", row.children[0].name);
    EXPECT_EQ("ORIGINE TYPE=\"CONTRAT\" = 41\n", host::outline(row.child(L"ORIGINE")));
  }
}

TEST_F(AddCttToInvoiceXml, NamesABillingLineNumberedZeroOrBelow) {
  short line = 0;
  billing_line().NumAuto = 0;
  EXPECT_EQ(L"0", host::row_nodes(contract_rows(contract_, line))[0].child(L"ORIGINE").text);
  billing_line().NumAuto = -2147483647L - 1;
  EXPECT_EQ(L"-2147483648", host::row_nodes(contract_rows(contract_, line))[0].child(L"ORIGINE").text);
}

TEST_F(AddCttToInvoiceXml, WritesTheChosenBillingLine) {
  host::dimension<Type_CadencierFact>(contract_->TabCadFact, 3);
  auto& second = host::element<Type_CadencierFact>(contract_->TabCadFact, 1);
  host::set(second.DateFact, L"01/05/2025");
  host::set(second.DateDeb, L"01/04/2025");
  host::set(second.DateFin, L"30/06/2025");
  second.NumAuto = 42;
  short line = 0;
  const auto written = host::row_nodes(contract_rows(contract_, line, 1));
  EXPECT_EQ(L"Contrat n°CTT-7, facturation prévue au 01/05/25", written[0].child(L"DESIGNATION").text);
  EXPECT_EQ(L"Facturation de la période du 01/04/25 au 30/06/25", written[2].child(L"DESIGNATION").text);
  EXPECT_EQ(L"42", written[0].child(L"ORIGINE").text);
}

TEST_F(AddCttToInvoiceXml, WritesTextsThatAreNoDatesAsTheyAre) {
  host::set(billing_line().DateFact, L"à convenir");
  host::set(contract_->DateFin, L"");
  const Rows written = rows();
  EXPECT_EQ("0 1 TRANCHE: Contrat n°CTT-7, facturation prévue au à convenir", written.at(0));
  EXPECT_EQ("1 1 T: Période de validité du 01/01/25 au ", written.at(1));
}

TEST_F(AddCttToInvoiceXml, NumbersFromTheGivenLineAndLeavesTheNextFreeOne) {
  host::set_share(*contract_, 0, 1, 100, 50);
  short line = 10;
  const auto written = host::rows_of(contract_rows(contract_, line));
  ASSERT_EQ(4u, written.size());
  EXPECT_TRUE(written[0].starts_with("10 1 TRANCHE"));
  EXPECT_TRUE(written[3].starts_with("13 1 F"));
  EXPECT_EQ(14, line);
}

TEST_F(AddCttToInvoiceXml, AppendsItsRowsAfterHeaderAndEarlierRows) {
  short line = 0;
  const std::wstring header = contract_header(contract_);
  const std::wstring first = contract_rows(contract_, line, 0, header);
  auto order = host::sample_work_order();
  const auto invoice = host::parse_xml(order_rows(order, line, L"", first));
  EXPECT_EQ(9u + 3u + 2u, invoice.children.size());
  EXPECT_EQ(L"CODE", invoice.children[0].name);
  EXPECT_EQ(L"3", invoice.children[12].attribute(L"RANK"));
  EXPECT_EQ(5, line);
}

TEST_F(AddCttToInvoiceXml, ReturnsNothingAndKeepsTheLineForATextThatCannotBeUsed) {
  for (const wchar_t* xml : {L"<INVOICE>", L"<FACTURE/>", L"<!DOCTYPE INVOICE><INVOICE/>", L"facture"}) {
    short line = 12;
    EXPECT_EQ(L"", contract_rows(contract_, line, 0, xml)) << host::utf8(xml);
    EXPECT_EQ(12, line) << host::utf8(xml);
  }
}

TEST_F(AddCttToInvoiceXml, ChangesNothingInTheContract) {
  host::set_share(*contract_, 0, 1, 100, 50);
  const auto before = host::snapshot(*contract_);
  short line = 0;
  contract_rows(contract_, line);
  EXPECT_EQ(std::vector<std::string>{}, host::differences(*before, *contract_));
}

TEST_F(AddCttToInvoiceXml, RaisesSubscriptForALineOutsideTheSchedule) {
  short line = 8;
  EXPECT_TRUE(fails(1, 9, line));
  EXPECT_TRUE(fails(-1, 9, line));
  EXPECT_EQ(8, line);
}

TEST_F(AddCttToInvoiceXml, RaisesSubscriptForAScheduleThatWasNeverDimensioned) {
  host::Record<Type_Contrat> contract;
  short line = 0;
  host::Text result;
  EXPECT_TRUE(host::is_fault(invoices_->AddCttToInvoiceXML(contract, 0, nullptr, -1, &line, &result), 9,
                             L"InvoiceXMLLib"));
}

TEST_F(AddCttToInvoiceXml, CountsTheLinesOfAScheduleFromItsLowerBound) {
  host::dimension<Type_CadencierFact>(contract_->TabCadFact, 2, 1);
  host::element<Type_CadencierFact>(contract_->TabCadFact, 1).NumAuto = 77;
  short line = 0;
  EXPECT_EQ(L"77", host::row_nodes(contract_rows(contract_, line, 2))[0].child(L"ORIGINE").text);
  EXPECT_TRUE(fails(0, 9, line));
}

TEST_F(AddCttToInvoiceXml, CountsUpToTheHighestLine) {
  short line = 32764;
  EXPECT_EQ(3u, host::rows_of(contract_rows(contract_, line)).size());
  EXPECT_EQ(32767, line);
}

TEST_F(AddCttToInvoiceXml, RaisesOverflowBeyondTheHighestLine) {
  short line = 32765;
  EXPECT_TRUE(fails(0, 6, line));
  EXPECT_EQ(32767, line);
}

TEST_F(AddCttToInvoiceXml, RaisesOverflowAtTheFirstRowFromTheHighestLine) {
  short line = 32767;
  EXPECT_TRUE(fails(0, 6, line));
  EXPECT_EQ(32767, line);
}

TEST_F(AddCttToInvoiceXml, RaisesOverflowWhenAVatShareTakesTheLastNumber) {
  host::set_share(*contract_, 0, 1, 100, 50);
  short line = 32764;
  EXPECT_TRUE(fails(0, 6, line));
  EXPECT_EQ(32767, line);
}

TEST_F(AddCttToInvoiceXml, RefusesANullPointer) {
  short line = 0;
  host::Text result;
  EXPECT_EQ(E_POINTER, invoices_->AddCttToInvoiceXML(nullptr, 0, nullptr, -1, &line, &result));
  EXPECT_EQ(E_POINTER, invoices_->AddCttToInvoiceXML(contract_, 0, nullptr, -1, &line, nullptr));
}

}  // namespace
