// The element and attribute names of InvoiceXMLLib: read at each use from the instance's own members.
#include "invoicing/invoice_fixture.h"

namespace {

struct Name {
  const wchar_t* member;
  const wchar_t* value;
};

constexpr Name kNames[] = {
    {L"PC_TypLig_Tranche", L"TRANCHE"},
    {L"pc_XInv_INV", L"INVOICE"},
    {L"pc_XInv_ORIGINE", L"ORIGINE"},
    {L"pc_XInv_CODE", L"CODE"},
    {L"pc_XInv_DATEFACT", L"DATEFACT"},
    {L"pc_XInv_CODETIERS", L"CODETIERS"},
    {L"pc_XInv_CODEREPR", L"CODEREPR"},
    {L"pc_XInv_CODEMODREGL", L"CODEMODREGL"},
    {L"pc_XInv_ADRCHANTIER", L"ADRCHANTIER"},
    {L"pc_XInv_ADRFACTURATION", L"ADRFACTURATION"},
    {L"pc_XInv_INTERLOC", L"INTERLOC"},
    {L"pc_XInv_ADR", L"ADR"},
    {L"pc_XInv_ADR2", L"ADR2"},
    {L"pc_XInv_CP", L"CP"},
    {L"pc_XInv_CITY", L"CITY"},
    {L"pc_XInv_PHONE", L"PHONE"},
    {L"pc_XInv_FAX", L"FAX"},
    {L"pc_XInv_MOBILE", L"MOBILE"},
    {L"pc_XInv_MAIL", L"MAIL"},
    {L"pc_XInv_ROW", L"ROW"},
    {L"pc_XInv_RANK", L"RANK"},
    {L"pc_XInv_LEVEL", L"LEVEL"},
    {L"pc_XInv_CODEELEM", L"CODEELEM"},
    {L"pc_XInv_TYPE", L"TYPE"},
    {L"pc_XInv_PRICE", L"UNITPRICE"},
    {L"pc_XInv_PVFIXE", L"PVFIXE"},
    {L"pc_XInv_QTY", L"QTY"},
    {L"pc_XInv_DISCOUNTRATE", L"DISCOUNTRATE"},
    {L"pc_XInv_COST", L"UNITCOST"},
    {L"pc_XInv_DESIGNATION", L"DESIGNATION"},
    {L"pc_XInv_VALORISAMT", L"VALORISAMT"},
    {L"pc_XInv_CODEUNIT", L"CODEUNITE"},
    {L"pc_XInv_EQUIVSTK", L"EQUIVSTK"},
    {L"pc_XInv_CPT", L"COMPTE"},
    {L"pc_XInv_CODETVA", L"CODETVA"},
    {L"pc_XInv_RATETVA", L"RATE"},
};

class ElementNames : public host::InvoiceTest {
 protected:
  std::wstring read(const wchar_t* member) {
    host::Variant value;
    EXPECT_EQ(S_OK, host::get_property(invoices_.get(), member, value.receive())) << host::utf8(member);
    return value.get().vt == VT_BSTR ? host::get(value.get().bstrVal) : L"?";
  }
  void write(const wchar_t* member, const wchar_t* value) {
    EXPECT_EQ(S_OK, host::put_property(invoices_.get(), member, host::text_value(value)))
        << host::utf8(member);
  }
  /// Gives each member its own value with an x before.
  void rename_all() {
    for (const Name& name : kNames) write(name.member, (std::wstring(L"x") + name.value).c_str());
  }
  /// Takes the x off every name of a tree again; the test fails where there is none.
  static host::XmlNode without_prefix(host::XmlNode node) {
    EXPECT_EQ(L'x', node.name[0]) << host::utf8(node.name);
    node.name.erase(0, 1);
    for (auto& [name, value] : node.attributes) {
      EXPECT_EQ(L'x', name[0]) << host::utf8(name);
      name.erase(0, 1);
    }
    for (auto& child : node.children) child = without_prefix(std::move(child));
    return node;
  }
};

TEST_F(ElementNames, HaveTheirValuesOnCreation) {
  for (const Name& name : kNames) EXPECT_EQ(name.value, read(name.member)) << host::utf8(name.member);
}

TEST_F(ElementNames, AreRestoredByInitConstXml) {
  rename_all();
  ASSERT_EQ(L"xINVOICE", read(L"pc_XInv_INV"));
  ASSERT_EQ(S_OK, invoices_->InitConstXML());
  for (const Name& name : kNames) EXPECT_EQ(name.value, read(name.member)) << host::utf8(name.member);
}

TEST_F(ElementNames, AreRestoredByALateBoundInitConstXml) {
  write(L"pc_XInv_INV", L"FACTURE");
  ASSERT_EQ(S_OK, host::call(invoices_.get(), L"InitConstXML", {}, nullptr));
  EXPECT_EQ(L"INVOICE", read(L"pc_XInv_INV"));
}

TEST_F(ElementNames, RenameAnElementInTheNextHeaderOfThatInstanceOnly) {
  auto contract = host::sample_contract();
  ASSERT_EQ(S_OK, invoices_->put_pc_XInv_CODE(host::Text(L"NUMERO")));
  EXPECT_EQ(L"NUMERO", host::parse_xml(contract_header(contract)).child_names()[0]);

  invoices_ = host::create<_InvoiceXMLLib>(L"InvoiceXMLLib");
  EXPECT_EQ(L"CODE", host::parse_xml(contract_header(contract)).child_names()[0]);
}

TEST_F(ElementNames, RenameEveryElementAndAttributeOfAHeader) {
  auto contract = host::sample_contract();
  const auto plain = host::parse_xml(contract_header(contract));
  rename_all();
  const auto renamed = host::parse_xml(contract_header(contract));
  EXPECT_EQ(host::outline(plain), host::outline(without_prefix(renamed)));
}

TEST_F(ElementNames, RenameEveryElementAndAttributeOfRows) {
  auto contract = host::sample_contract();
  host::set_share(*contract, 0, 1, 100, 50);
  auto order = host::sample_work_order();
  host::set_articles(*order, {{L"A1", L"F"}, {L"A2", L"C"}});
  const auto build = [&] {
    short line = 0;
    const std::wstring first = contract_rows(contract, line);
    return host::parse_xml(order_rows(order, line, L"F", first));
  };
  const auto plain = build();
  rename_all();
  write(L"PC_TypLig_Tranche", L"TRANCHE");
  EXPECT_EQ(host::outline(plain), host::outline(without_prefix(build())));
}

TEST_F(ElementNames, GiveTheSectionTypeOfRows) {
  write(L"PC_TypLig_Tranche", L"TITRE");
  auto contract = host::sample_contract();
  short line = 0;
  EXPECT_EQ(L"TITRE", host::row_nodes(contract_rows(contract, line))[0].attribute(L"TYPE"));
}

TEST_F(ElementNames, FindTheRootOfALoadedText) {
  auto contract = host::sample_contract();
  write(L"pc_XInv_INV", L"FACTURE");
  EXPECT_EQ(9u, host::parse_xml(contract_header(contract, {L"", L"<FACTURE/>", L"", L""})).children.size());
  EXPECT_EQ(L"", contract_header(contract, {L"", L"<INVOICE/>", L"", L""}));
}

TEST_F(ElementNames, FailTheCallWhenTheDomRefusesOne) {
  auto contract = host::sample_contract();
  write(L"pc_XInv_DATEFACT", L"");
  host::Text result;
  const HRESULT code = invoices_->SetHeadInvoiceXML_ByCtt(contract, host::Text(), host::Text(), host::Text(),
                                                          host::Text(), host::missing().get(), &result);
  EXPECT_TRUE(FAILED(code)) << std::hex << code;
  EXPECT_EQ(L"", result.str());
  EXPECT_NE(L"", host::take_error().description);
}

/// Each name of an attribute that a row is written with.
class AttributeNames : public ElementNames, public ::testing::WithParamInterface<const wchar_t*> {};

TEST_P(AttributeNames, FailTheCallWhenEmptyAsAnElementsDoes) {
  auto contract = host::sample_contract();
  host::set_share(*contract, 0, 1, 100, 50);
  write(GetParam(), L"");
  short line = 0;
  host::Text result;
  const HRESULT code = invoices_->AddCttToInvoiceXML(contract, 0, nullptr, -1, &line, &result);
  EXPECT_TRUE(FAILED(code)) << std::hex << code;
  EXPECT_EQ(L"", result.str());
  EXPECT_NE(L"", host::take_error().description);
}

INSTANTIATE_TEST_SUITE_P(OfRows, AttributeNames,
                         ::testing::Values(L"pc_XInv_RANK", L"pc_XInv_LEVEL", L"pc_XInv_TYPE",
                                           L"pc_XInv_RATETVA"),
                         [](const auto& row) { return host::utf8(row.param); });

TEST_F(ElementNames, AreNotTouchedByConstantsOfTheHostsOwnInstances) {
  const auto dates = host::create_dispatch(L"ApiGeneral");
  const auto line_types = host::create_dispatch(L"AchatVente");
  ASSERT_EQ(S_OK, host::put_property(dates.get(), L"FMT_DATE", host::text_value(L"yyyy")));
  ASSERT_EQ(S_OK, host::put_property(line_types.get(), L"PC_TypLig_Texte", host::text_value(L"?")));
  ASSERT_EQ(S_OK, host::put_property(line_types.get(), L"PC_TypLig_NRef", host::text_value(L"?")));
  auto contract = host::sample_contract();
  host::set_share(*contract, 0, 1, 100, 50);
  invoices_ = host::create<_InvoiceXMLLib>(L"InvoiceXMLLib");
  short line = 0;
  const auto rows = host::rows_of(contract_rows(contract, line));
  EXPECT_EQ("2 1 T: Facturation de la période du 01/01/25 au 31/03/25", rows.at(2));
  EXPECT_EQ("3 1 F: Quote-part montant soumis à TVA n°1", rows.at(3));
}

TEST_F(ElementNames, AreReadFromTheInstanceEvenAfterOthersWereCreated) {
  write(L"pc_XInv_MAIL", L"COURRIEL");
  const auto other = host::create<_InvoiceXMLLib>(L"InvoiceXMLLib");
  auto contract = host::sample_contract();
  const auto invoice = host::parse_xml(contract_header(contract));
  EXPECT_EQ(L"COURRIEL", invoice.child(L"ADRCHANTIER").attributes.back().first);
  EXPECT_EQ(L"COURRIEL", invoice.child(L"ADRFACTURATION").attributes.back().first);
}

}  // namespace
