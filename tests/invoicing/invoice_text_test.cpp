// The text that the header methods of InvoiceXMLLib take and return: what is kept, refused and escaped.
#include "invoicing/invoice_fixture.h"

namespace {

using Names = std::vector<std::wstring>;

class InvoiceText : public host::InvoiceTest {
 protected:
  /// Header of the sample contract added to `xml`.
  std::wstring added_to(const wchar_t* xml) {
    return contract_header(contract_, {L"Facture", xml, L"FA-1", L""});
  }

  std::wstring designation(const wchar_t* label) {
    return host::parse_xml(contract_header(contract_, {label, L"", L"", L""})).child(L"DESIGNATION").text;
  }

  const Names header_{L"CODE",        L"DATEFACT", L"CODETIERS",   L"CODEREPR",      L"CODEMODREGL",
                      L"DESIGNATION", L"ORIGINE",  L"ADRCHANTIER", L"ADRFACTURATION"};
  host::Record<Type_Contrat> contract_ = host::sample_contract();
};

TEST_F(InvoiceText, IsTheInvoiceElementAloneWithoutBlanksAround) {
  const std::wstring xml = contract_header(contract_);
  EXPECT_TRUE(xml.starts_with(L"<INVOICE>")) << host::utf8(xml);
  EXPECT_TRUE(xml.ends_with(L"</INVOICE>")) << host::utf8(xml);
}

TEST_F(InvoiceText, LeavesOutDeclarationAndCommentsAroundTheLoadedInvoice) {
  const std::wstring xml =
      added_to(L"<?xml version=\"1.0\"?><!-- avant --><?hote a?><INVOICE></INVOICE><!-- après -->");
  EXPECT_TRUE(xml.starts_with(L"<INVOICE>")) << host::utf8(xml);
  EXPECT_TRUE(xml.ends_with(L"</INVOICE>")) << host::utf8(xml);
  EXPECT_EQ(header_, host::parse_xml(xml).child_names());
}

TEST_F(InvoiceText, GrowsALoadedInvoiceInPlace) {
  const auto invoice = host::parse_xml(added_to(L"<INVOICE A=\"1\"><NOTE>n</NOTE></INVOICE>"));
  Names expected{L"NOTE"};
  expected.insert(expected.end(), header_.begin(), header_.end());
  EXPECT_EQ(expected, invoice.child_names());
  EXPECT_EQ(L"1", invoice.attribute(L"A"));
  EXPECT_EQ(L"n", invoice.child(L"NOTE").text);
}

TEST_F(InvoiceText, GetsASecondHeaderWhenItHoldsOneAlready) {
  const std::wstring first = contract_header(contract_);
  Names expected(header_);
  expected.insert(expected.end(), header_.begin(), header_.end());
  EXPECT_EQ(expected, host::parse_xml(added_to(first.c_str())).child_names());
}

TEST_F(InvoiceText, IsEmptyForATextThatIsNotWellFormed) {
  for (const wchar_t* xml : {L"<INVOICE>", L"<INVOICE></FACTURE>", L"facture", L" ", L"<INVOICE/><INVOICE/>",
                             L"<INVOICE A=1/>", L"<INVOICE>&nbsp;</INVOICE>"}) {
    EXPECT_EQ(L"", added_to(xml)) << host::utf8(xml);
  }
}

TEST_F(InvoiceText, IsEmptyForATextWithoutATopLevelInvoice) {
  for (const wchar_t* xml : {L"<FACTURE/>", L"<FACTURE><INVOICE/></FACTURE>", L"<invoice/>"}) {
    EXPECT_EQ(L"", added_to(xml)) << host::utf8(xml);
  }
}

TEST_F(InvoiceText, IsEmptyForATextWithADocumentTypeDeclaration) {
  EXPECT_EQ(L"", added_to(L"<!DOCTYPE INVOICE><INVOICE/>"));
  EXPECT_EQ(L"", added_to(L"<!DOCTYPE INVOICE [<!ENTITY e \"x\">]><INVOICE>&e;</INVOICE>"));
  EXPECT_EQ(L"", added_to(L"<?xml version=\"1.0\"?><!-- a > b --><!DOCTYPE INVOICE><INVOICE/>"));
}

/// The hyphens that open a comment do not close it: the declaration stands behind the whole comment.
TEST_F(InvoiceText, IsEmptyForADocumentTypeDeclarationBehindACommentThatBeginsLikeAnEnd) {
  for (const wchar_t* comment : {L"<!--><a-->", L"<!---><a-->"}) {
    const std::wstring declared = std::wstring(comment) + L"<!DOCTYPE INVOICE [<!ENTITY e \"x\">]>";
    EXPECT_EQ(L"", added_to((declared + L"<INVOICE>&e;</INVOICE>").c_str())) << host::utf8(comment);
  }
}

/// The DOM would answer for what stands before, and the rest would be lost.
TEST_F(InvoiceText, IsEmptyForATextWithANulOrHalfASurrogatePairBehindTheInvoice) {
  for (const wchar_t odd : {L'\0', L'\xD800', L'\xDC00'}) {
    const std::wstring xml = std::wstring(L"<INVOICE/>") + odd;
    EXPECT_EQ(L"", contract_header(contract_, {L"Facture", host::Text(xml), L"FA-1", L""}));
  }
}

/// The DOM compares each attribute with all others: ten thousand would take it seconds.
TEST_F(InvoiceText, IsEmptyForAnElementOfMoreThan256Attributes) {
  const auto invoice_of = [](int attributes) {
    std::wstring xml = L"<INVOICE";
    for (int i = 0; i < attributes; ++i) xml += L" A" + std::to_wstring(i) + L"=\"\"";
    return xml + L"/>";
  };
  EXPECT_NE(L"", added_to(invoice_of(256).c_str()));
  EXPECT_EQ(L"", added_to(invoice_of(257).c_str()));
}

TEST_F(InvoiceText, MayMentionADocumentTypeDeclarationInACommentOrAText) {
  EXPECT_NE(L"", added_to(L"<!-- <!DOCTYPE INVOICE> --><INVOICE/>"));
  EXPECT_NE(L"", added_to(L"<!--><!DOCTYPE INVOICE>--><INVOICE/>"));
  const auto invoice = host::parse_xml(added_to(L"<INVOICE><NOTE><![CDATA[<!DOCTYPE a>]]></NOTE></INVOICE>"));
  EXPECT_EQ(L"<!DOCTYPE a>", invoice.child(L"NOTE").text);
}

TEST_F(InvoiceText, IsRefusedByTheInterventionHeaderToo) {
  auto order = host::sample_work_order();
  host::Record<Type_AdresseTiers> billing;
  EXPECT_EQ(L"", order_header(order, billing, {L"", L"<INVOICE>", L"", L""}));
  EXPECT_EQ(L"", order_header(order, billing, {L"", L"<FACTURE/>", L"", L""}));
}

TEST_F(InvoiceText, LeavesNoErrorInformationWhenItIsRefused) {
  host::take_error();
  added_to(L"<INVOICE>");
  EXPECT_EQ(L"", host::take_error().description);
}

TEST_F(InvoiceText, SeparatesTheLinesOfALabelByALineFeedAlone) {
  EXPECT_EQ(L"Première\nseconde", designation(L"Première\r\nseconde"));
}

TEST_F(InvoiceText, ReplacesEveryLineEndOfALabel) {
  EXPECT_EQ(L"\na\n\nb\n", designation(L"\r\na\r\n\r\nb\r\n"));
}

TEST_F(InvoiceText, KeepsALineFeedThatStandsAloneInALabel) { EXPECT_EQ(L"a\nb", designation(L"a\nb")); }

TEST_F(InvoiceText, KeepsBlanksOfALabel) { EXPECT_EQ(L"  a  b ", designation(L"  a  b ")); }

TEST_F(InvoiceText, ReadsBackMarkupAccentsAndQuotesInElements) {
  const wchar_t* label = L"Été <b> & \"c\" 'd' ]]> 5 € 漢";
  EXPECT_EQ(label, designation(label));
}

TEST_F(InvoiceText, ReadsBackTextsThatLookLikeReferences) {
  EXPECT_EQ(L"a &amp; b &#65; &lt;c&gt;", designation(L"a &amp; b &#65; &lt;c&gt;"));
  host::set(contract_->Adr.Ville, L"a &amp; b");
  EXPECT_EQ(L"a &amp; b",
            host::parse_xml(contract_header(contract_)).child(L"ADRFACTURATION").attribute(L"CITY"));
}

TEST_F(InvoiceText, ReadsBackMarkupAccentsAndQuotesInAttributes) {
  const wchar_t* name = L"Été <b> & \"c\" 'd' > 5 €";
  host::set(contract_->Adr.Interloc, name);
  EXPECT_EQ(name,
            host::parse_xml(contract_header(contract_)).child(L"ADRFACTURATION").attribute(L"INTERLOC"));
}

TEST_F(InvoiceText, KeepsAccentsOfALoadedInvoiceThroughFurtherCalls) {
  const std::wstring first = contract_header(contract_, {L"Été & hiver\nsuite", L"", L"FA-1", L""});
  const std::wstring second = added_to(first.c_str());
  EXPECT_EQ(L"Été & hiver\nsuite", host::parse_xml(second).child(L"DESIGNATION").text);
}

TEST_F(InvoiceText, KeepsNothingOfOneCallForTheNext) {
  const std::wstring first = contract_header(contract_);
  added_to(L"<INVOICE><NOTE/></INVOICE>");
  EXPECT_EQ(first, contract_header(contract_));
}

}  // namespace
