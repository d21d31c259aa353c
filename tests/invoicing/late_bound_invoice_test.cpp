// The methods of InvoiceXMLLib called by name: optional arguments left out, the line passed by reference.
#include "invoicing/invoice_fixture.h"
#include "support/arguments.h"

namespace {

using host::Variant;

class LateBoundInvoice : public host::InvoiceTest {
 protected:
  /// A record argument; its description lives as long as the test.
  template <class T>
  Variant record(host::Record<T>& value) {
    descriptions_.push_back(host::record_info<T>());
    return host::record_argument(*value, descriptions_.back().get());
  }

  std::wstring call(const wchar_t* name, std::vector<Variant> arguments) {
    Variant result;
    EXPECT_EQ(S_OK, host::call(invoices_.get(), name, std::move(arguments), result.receive()))
        << host::utf8(name);
    EXPECT_EQ(VT_BSTR, result.get().vt);
    return result.get().vt == VT_BSTR ? host::get(result.get().bstrVal) : std::wstring();
  }

  std::vector<host::ComPtr<IRecordInfo>> descriptions_;
  host::Record<Type_Contrat> contract_ = host::sample_contract();
  host::Record<Type_Bon> order_ = host::sample_work_order();
};

TEST_F(LateBoundInvoice, SetHeadInvoiceXmlByCttTakesEveryOptionalArgumentAsMissing) {
  const std::wstring expected = contract_header(contract_, {L"Facture", L"", L"", L""});
  ASSERT_NE(L"", expected);
  EXPECT_EQ(expected, call(L"SetHeadInvoiceXML_ByCtt",
                           host::arguments(record(contract_), host::text_value(L"Facture"))));
}

TEST_F(LateBoundInvoice, SetHeadInvoiceXmlByCttTakesEveryArgument) {
  const std::wstring expected = contract_header(contract_, {L"Facture", L"<INVOICE/>", L"FA-2", L"le 3"},
                                                host::text_value(L"REP-9").get());
  ASSERT_NE(L"", expected);
  EXPECT_EQ(expected, call(L"SetHeadInvoiceXML_ByCtt",
                           host::arguments(record(contract_), host::text_value(L"Facture"),
                                           host::text_value(L"<INVOICE/>"), host::text_value(L"FA-2"),
                                           host::text_value(L"le 3"), host::text_value(L" REP-9 "))));
}

TEST_F(LateBoundInvoice, SetHeadInvoiceXmlByIntAnswersAsTheEarlyBoundCall) {
  host::Record<Type_AdresseTiers> billing;
  host::fill_address(*billing, L"f", 7);
  const std::wstring expected = order_header(order_, billing, {L"Facture", L"", L"FA-2", L""});
  ASSERT_NE(L"", expected);
  EXPECT_EQ(expected, call(L"SetHeadInvoiceXML_ByInt",
                           host::arguments(record(order_), host::text_value(L"Facture"), record(billing),
                                           host::missing(), host::text_value(L"FA-2"))));
}

TEST_F(LateBoundInvoice, AddIntervToInvoiceXmlStartsAtLineZeroWithoutVatObjectOrComparedValue) {
  host::set_articles(*order_, {{L"A1", L"C"}});
  short line = 0;
  const std::wstring expected = order_rows(order_, line);
  ASSERT_NE(L"", expected);
  EXPECT_EQ(expected, call(L"AddIntervToInvoiceXML", host::arguments(record(order_))));
}

TEST_F(LateBoundInvoice, AddIntervToInvoiceXmlWritesTheNextLineBack) {
  const auto vat = host::vat_object({{0, 20}});
  host::set_articles(*order_, {{L"A1", L"F"}, {L"A2", L"C"}});
  short early = 7;
  const std::wstring expected = order_rows(order_, early, L"F", L"<INVOICE/>", host::address_of(vat.get()));
  ASSERT_NE(L"", expected);
  short line = 7;
  EXPECT_EQ(expected, call(L"AddIntervToInvoiceXML",
                           host::arguments(record(order_), host::text_value(L"<INVOICE/>"),
                                           Variant(host::address_of(vat.get())), host::text_value(L"F"),
                                           host::by_reference(line))));
  EXPECT_EQ(15, line);
  EXPECT_EQ(1, vat->references());
}

TEST_F(LateBoundInvoice, AddIntervToInvoiceXmlWritesTheNextLineBackToAScriptsVariable) {
  Variant line(short{7});
  const std::wstring xml =
      call(L"AddIntervToInvoiceXML", host::arguments(record(order_), host::missing(), host::missing(),
                                                     host::missing(), host::by_reference(line.get())));
  EXPECT_EQ("7 1 TRANCHE: Intervention du 15/03/25", host::rows_of(xml).at(0));
  EXPECT_EQ(9, velmosav::to_long(line.get()));
}

TEST_F(LateBoundInvoice, AddCttToInvoiceXmlStartsAtLineZeroWithoutVatObject) {
  host::set_share(*contract_, 0, 1, 100, 50);
  short line = 0;
  const std::wstring expected = contract_rows(contract_, line);
  ASSERT_NE(L"", expected);
  EXPECT_EQ(expected, call(L"AddCttToInvoiceXML", host::arguments(record(contract_), Variant(short{0}))));
}

TEST_F(LateBoundInvoice, AddCttToInvoiceXmlWritesTheNextLineBack) {
  const auto vat = host::vat_object({{1, 5.5}});
  host::set_share(*contract_, 0, 1, 100, 50);
  short line = 3;
  const std::wstring xml = call(
      L"AddCttToInvoiceXML", host::arguments(record(contract_), Variant(short{0}), host::text_value(L""),
                                             Variant(host::address_of(vat.get())), host::by_reference(line)));
  EXPECT_EQ("6 1 F: Quote-part montant soumis à TVA 5,50%", host::rows_of(xml).at(3));
  EXPECT_EQ(7, line);
}

}  // namespace
