// InvoiceXMLLib.SetHeadInvoiceXML_ByInt: the header of an invoice made from an intervention.
#include "invoicing/invoice_fixture.h"

namespace {

class SetHeadInvoiceXmlByInt : public host::InvoiceTest {
 protected:
  SetHeadInvoiceXmlByInt() {
    host::fill_address(order_->Adr, L"s", 2);
    host::fill_address(*billing_, L"f", 7);
  }

  host::Record<Type_Bon> order_ = host::sample_work_order();
  host::Record<Type_AdresseTiers> billing_;
};

TEST_F(SetHeadInvoiceXmlByInt, WritesEmptyRepresentativeAndPaymentMethodAndTheInterventionAsOrigin) {
  EXPECT_EQ(
      "INVOICE\n"
      "  CODE = FA-1\n"
      "  DATEFACT = 31/03/2025\n"
      "  CODETIERS = CLI-3\n"
      "  CODEREPR\n"
      "  CODEMODREGL\n"
      "  DESIGNATION = Facture\n"
      "  ORIGINE TYPE=\"INTERVENTION\" = INT-9\n"
      "  ADRCHANTIER INTERLOC=\"s interloc\" ADR=\"s adr\" ADR2=\"s adr2\" CP=\"s cp\" CITY=\"s ville\""
      " PHONE=\"s tel\" FAX=\"s fax\" MOBILE=\"s mobile\" MAIL=\"s mail\" = 2\n"
      "  ADRFACTURATION INTERLOC=\"f interloc\" ADR=\"f adr\" ADR2=\"f adr2\" CP=\"f cp\" CITY=\"f ville\""
      " PHONE=\"f tel\" FAX=\"f fax\" MOBILE=\"f mobile\" MAIL=\"f mail\" = 7\n",
      host::outline(host::parse_xml(order_header(order_, billing_))));
}

TEST_F(SetHeadInvoiceXmlByInt, NeedsNoArticleAndNoTechnician) {
  host::Record<Type_Bon> order;
  host::Record<Type_AdresseTiers> billing;
  const auto invoice = host::parse_xml(order_header(order, billing, {L"", L"", L"", L""}));
  EXPECT_EQ(9u, invoice.children.size());
  EXPECT_EQ(L"0", invoice.child(L"ADRCHANTIER").text);
}

TEST_F(SetHeadInvoiceXmlByInt, ChangesNothingInTheRecords) {
  const auto order = host::snapshot(*order_);
  const auto billing = host::snapshot(*billing_);
  order_header(order_, billing_);
  EXPECT_EQ(std::vector<std::string>{}, host::differences(*order, *order_));
  EXPECT_EQ(std::vector<std::string>{}, host::differences(*billing, *billing_));
}

TEST_F(SetHeadInvoiceXmlByInt, RefusesANullPointer) {
  host::Text result;
  EXPECT_EQ(E_POINTER, invoices_->SetHeadInvoiceXML_ByInt(nullptr, nullptr, billing_, nullptr, nullptr,
                                                          nullptr, &result));
  EXPECT_EQ(E_POINTER,
            invoices_->SetHeadInvoiceXML_ByInt(order_, nullptr, nullptr, nullptr, nullptr, nullptr, &result));
  EXPECT_EQ(E_POINTER, invoices_->SetHeadInvoiceXML_ByInt(order_, nullptr, billing_, nullptr, nullptr,
                                                          nullptr, nullptr));
}

}  // namespace
