// InvoiceXMLLib.SetHeadInvoiceXML_ByCtt: the header of an invoice made from a contract.
#include "invoicing/invoice_fixture.h"

namespace {

using host::Variant;

class SetHeadInvoiceXmlByCtt : public host::InvoiceTest {
 protected:
  std::wstring representative(const VARIANT& seller) {
    return host::parse_xml(contract_header(contract_, {}, seller)).child(L"CODEREPR").text;
  }

  host::Record<Type_Contrat> contract_ = host::sample_contract();
};

TEST_F(SetHeadInvoiceXmlByCtt, WritesSevenElementsAndTwoAddressesInOrderForAnEmptyText) {
  EXPECT_EQ(
      "INVOICE\n"
      "  CODE = FA-1\n"
      "  DATEFACT = 31/03/2025\n"
      "  CODETIERS = CLI-3\n"
      "  CODEREPR = REP-1\n"
      "  CODEMODREGL = CHQ\n"
      "  DESIGNATION = Facture\n"
      "  ORIGINE TYPE=\"CONTRAT\" = CTT-7\n"
      "  ADRCHANTIER INTERLOC=\"c interloc\" ADR=\"c adr\" ADR2=\"c adr2\" CP=\"c cp\" CITY=\"c ville\""
      " PHONE=\"c tel\" FAX=\"c fax\" MOBILE=\"c mobile\" MAIL=\"c mail\" = 4\n"
      "  ADRFACTURATION INTERLOC=\"c interloc\" ADR=\"c adr\" ADR2=\"c adr2\" CP=\"c cp\" CITY=\"c ville\""
      " PHONE=\"c tel\" FAX=\"c fax\" MOBILE=\"c mobile\" MAIL=\"c mail\" = 4\n",
      host::outline(host::parse_xml(contract_header(contract_))));
}

TEST_F(SetHeadInvoiceXmlByCtt, WritesElementsWithoutTextForAnEmptyContract) {
  host::Record<Type_Contrat> contract;
  host::dimension<Type_Intervention>(contract->TabInterv, 1);
  EXPECT_EQ(
      "INVOICE\n"
      "  CODE\n"
      "  DATEFACT\n"
      "  CODETIERS\n"
      "  CODEREPR\n"
      "  CODEMODREGL\n"
      "  DESIGNATION\n"
      "  ORIGINE TYPE=\"CONTRAT\"\n"
      "  ADRCHANTIER INTERLOC=\"\" ADR=\"\" ADR2=\"\" CP=\"\" CITY=\"\" PHONE=\"\" FAX=\"\" MOBILE=\"\" "
      "MAIL=\"\" = 0\n"
      "  ADRFACTURATION INTERLOC=\"\" ADR=\"\" ADR2=\"\" CP=\"\" CITY=\"\" PHONE=\"\" FAX=\"\" MOBILE=\"\" "
      "MAIL=\"\""
      " = 0\n",
      host::outline(host::parse_xml(contract_header(contract, {L"", L"", L"", L""}))));
}

TEST_F(SetHeadInvoiceXmlByCtt, TakesTheSiteFromALabelledFirstIntervention) {
  host::label_first_intervention(*contract_, L"Visite", L"s");
  const auto invoice = host::parse_xml(contract_header(contract_));
  EXPECT_EQ(
      "ADRCHANTIER INTERLOC=\"s interloc\" ADR=\"s adr\" ADR2=\"s adr2\" CP=\"s cp\" CITY=\"s ville\""
      " PHONE=\"s tel\" FAX=\"s fax\" MOBILE=\"s mobile\" MAIL=\"s mail\" = 0\n",
      host::outline(invoice.child(L"ADRCHANTIER")));
  EXPECT_EQ(L"4", invoice.child(L"ADRFACTURATION").text);
  EXPECT_EQ(L"c adr", invoice.child(L"ADRFACTURATION").attribute(L"ADR"));
}

TEST_F(SetHeadInvoiceXmlByCtt, TakesTheContractAddressTwiceForAnUnlabelledFirstIntervention) {
  host::label_first_intervention(*contract_, L"", L"s");
  const auto invoice = host::parse_xml(contract_header(contract_));
  EXPECT_EQ(invoice.child(L"ADRFACTURATION").attributes, invoice.child(L"ADRCHANTIER").attributes);
  EXPECT_EQ(L"4", invoice.child(L"ADRCHANTIER").text);
  EXPECT_EQ(L"4", invoice.child(L"ADRFACTURATION").text);
}

TEST_F(SetHeadInvoiceXmlByCtt, TakesTheSiteFromAFirstInterventionLabelledWithABlank) {
  host::label_first_intervention(*contract_, L" ", L"s");
  EXPECT_EQ(L"s adr", host::parse_xml(contract_header(contract_)).child(L"ADRCHANTIER").attribute(L"ADR"));
}

TEST_F(SetHeadInvoiceXmlByCtt, LooksAtTheFirstInterventionOnly) {
  host::dimension<Type_Intervention>(contract_->TabInterv, 2);
  auto& second = host::element<Type_Intervention>(contract_->TabInterv, 1);
  host::set(second.Libelle, L"Visite");
  host::set(second.Adr, L"ailleurs");
  EXPECT_EQ(L"c adr", host::parse_xml(contract_header(contract_)).child(L"ADRCHANTIER").attribute(L"ADR"));
}

TEST_F(SetHeadInvoiceXmlByCtt, WritesTheNumberOfTheAddressAsADecimalInteger) {
  contract_->Adr.iNum = -32768;
  EXPECT_EQ(L"-32768", host::parse_xml(contract_header(contract_)).child(L"ADRCHANTIER").text);
}

TEST_F(SetHeadInvoiceXmlByCtt, WritesAnEmptyAttributeForAnEmptyFax) {
  host::set(contract_->Adr.Fax, L"");
  const auto invoice = host::parse_xml(contract_header(contract_));
  const auto& attributes = invoice.child(L"ADRFACTURATION").attributes;
  ASSERT_EQ(9u, attributes.size());
  EXPECT_EQ(std::pair(std::wstring(L"FAX"), std::wstring()), attributes[6]);
}

TEST_F(SetHeadInvoiceXmlByCtt, TakesTheSellerOfTheContractWhenTheArgumentIsMissing) {
  EXPECT_EQ(L"REP-1", representative(host::missing().get()));
}

TEST_F(SetHeadInvoiceXmlByCtt, TrimsAGivenSeller) {
  EXPECT_EQ(L"REP 2", representative(host::text_value(L"  REP 2 ").get()));
}

TEST_F(SetHeadInvoiceXmlByCtt, TakesAGivenEmptySellerRatherThanTheContracts) {
  EXPECT_EQ(L"", representative(host::text_value(L"").get()));
  EXPECT_EQ(L"", representative(host::text_value(L"   ").get()));
  EXPECT_EQ(L"", representative(Variant().get()));
}

TEST_F(SetHeadInvoiceXmlByCtt, TakesASellerGivenByReferenceOrAsANumber) {
  host::Text code(L" REP-3");
  VARIANT reference{};
  reference.vt = VT_BYREF | VT_BSTR;
  reference.pbstrVal = code.in_out();
  EXPECT_EQ(L"REP-3", representative(reference));
  EXPECT_EQ(L"12", representative(Variant(12L).get()));
}

TEST_F(SetHeadInvoiceXmlByCtt, DoesNotTrimTheSellerOfTheContract) {
  host::set(contract_->Vendeur, L" REP-1 ");
  EXPECT_EQ(L" REP-1 ", representative(host::missing().get()));
}

TEST_F(SetHeadInvoiceXmlByCtt, RaisesInvalidUseOfNullForANullSeller) {
  host::Text result;
  EXPECT_TRUE(host::is_fault(invoices_->SetHeadInvoiceXML_ByCtt(contract_, nullptr, nullptr, nullptr, nullptr,
                                                                host::null_value().get(), &result),
                             94, L"InvoiceXMLLib"));
  EXPECT_EQ(L"", result.str());
}

TEST_F(SetHeadInvoiceXmlByCtt, WritesTheDateAsItIsGiven) {
  const auto invoice = host::parse_xml(contract_header(contract_, {L"", L"", L"", L"le 5 mai"}));
  EXPECT_EQ(L"le 5 mai", invoice.child(L"DATEFACT").text);
}

TEST_F(SetHeadInvoiceXmlByCtt, RaisesSubscriptForAContractWhoseInterventionsWereNeverDimensioned) {
  host::Record<Type_Contrat> contract;
  host::Text result;
  EXPECT_TRUE(host::is_fault(invoices_->SetHeadInvoiceXML_ByCtt(contract, nullptr, nullptr, nullptr, nullptr,
                                                                host::missing().get(), &result),
                             9, L"InvoiceXMLLib"));
  EXPECT_EQ(L"", result.str());
}

TEST_F(SetHeadInvoiceXmlByCtt, RaisesSubscriptWhenIndexZeroLiesOutsideTheInterventions) {
  host::Text result;
  host::dimension<Type_Intervention>(contract_->TabInterv, 2, 1);
  EXPECT_TRUE(host::is_fault(invoices_->SetHeadInvoiceXML_ByCtt(contract_, nullptr, nullptr, nullptr, nullptr,
                                                                host::missing().get(), &result),
                             9, L"InvoiceXMLLib"));
  host::dimension<Type_Intervention>(contract_->TabInterv, 0);
  EXPECT_TRUE(host::is_fault(invoices_->SetHeadInvoiceXML_ByCtt(contract_, nullptr, nullptr, nullptr, nullptr,
                                                                host::missing().get(), &result),
                             9, L"InvoiceXMLLib"));
}

TEST_F(SetHeadInvoiceXmlByCtt, LooksForTheFirstInterventionBeforeItReadsTheText) {
  host::Record<Type_Contrat> contract;
  host::Text result;
  EXPECT_TRUE(
      host::is_fault(invoices_->SetHeadInvoiceXML_ByCtt(contract, nullptr, host::Text(L"<INVOICE>"), nullptr,
                                                        nullptr, host::missing().get(), &result),
                     9, L"InvoiceXMLLib"));
}

TEST_F(SetHeadInvoiceXmlByCtt, ChangesNothingInTheContract) {
  host::label_first_intervention(*contract_, L"Visite", L"s");
  const auto before = host::snapshot(*contract_);
  contract_header(contract_, {L"Deux\r\nlignes", L"", L"FA-1", L""}, host::text_value(L" REP-2 ").get());
  EXPECT_EQ(std::vector<std::string>{}, host::differences(*before, *contract_));
}

TEST_F(SetHeadInvoiceXmlByCtt, RefusesANullPointer) {
  host::Text result;
  EXPECT_EQ(E_POINTER, invoices_->SetHeadInvoiceXML_ByCtt(nullptr, nullptr, nullptr, nullptr, nullptr,
                                                          host::missing().get(), &result));
  EXPECT_EQ(E_POINTER, invoices_->SetHeadInvoiceXML_ByCtt(contract_, nullptr, nullptr, nullptr, nullptr,
                                                          host::missing().get(), nullptr));
}

}  // namespace
