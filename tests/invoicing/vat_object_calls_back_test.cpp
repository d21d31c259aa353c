// A VAT object of the host that changes the host's variables while an invoice's rows are written: each is
// read when it is written, and none after it was freed.
#include "invoicing/invoice_fixture.h"

namespace {

using host::row_nodes;
using host::Text;

class VatObjectThatCallsBack : public host::InvoiceTest {
 protected:
  /// Answers 20 % for every code, after what it does.
  void when_asked(std::function<void()> action) {
    vat_->on_get(L"GetTauxTva", [action = std::move(action)](const auto&) {
      action();
      return host::Variant(20.0);
    });
  }
  long vat() const { return host::address_of(vat_.get()); }
  void write_section(const wchar_t* name) { ASSERT_EQ(S_OK, invoices_->put_PC_TypLig_Tranche(Text(name))); }

  host::ComPtr<host::FakeObject> vat_ = host::FakeObject::make();
  short line_ = 0;
};

TEST_F(VatObjectThatCallsBack, RenamesTheSectionHeadingsThatFollow) {
  for (const wchar_t* former : {L"TRANCHE", L"TITRE"}) {
    auto order = host::sample_work_order();
    host::set_articles(*order, {{L"A1", L"C"}, {L"A2", L"F"}});
    write_section(former);
    when_asked([&] { write_section(L"SECTION"); });
    const auto rows = row_nodes(order_rows(order, line_, L"F", L"", vat()));
    ASSERT_EQ(7u, rows.size());
    EXPECT_EQ(former, rows[0].attribute(L"TYPE"));
    EXPECT_EQ(former, rows[2].attribute(L"TYPE"));  // covered
    EXPECT_EQ(L"Consommations / Opérations facturées", rows[5].child(L"DESIGNATION").text);
    EXPECT_EQ(L"SECTION", rows[5].attribute(L"TYPE"));
  }
}

TEST_F(VatObjectThatCallsBack, MayChangeTheCodeOfTheIntervention) {
  auto order = host::sample_work_order();
  host::set_articles(*order, {{L"A1"}, {L"A2"}});
  when_asked([&] { host::set(order->Code, L"autre"); });
  for (const auto& row : row_nodes(order_rows(order, line_, L"", L"", vat()))) {
    EXPECT_EQ(L"INT-9", row.child(L"ORIGINE").text);
  }
}

TEST_F(VatObjectThatCallsBack, MayChangeTheAccountOfTheContract) {
  auto contract = host::sample_contract();
  host::set_share(*contract, 0, 1, 50, 10);
  host::set_share(*contract, 0, 2, 50, 10);
  when_asked([&] { host::set(contract->Compte, L"706200"); });
  const auto rows = row_nodes(contract_rows(contract, line_, 0, L"", vat()));
  ASSERT_EQ(5u, rows.size());
  EXPECT_EQ(L"706200", rows[3].child(L"COMPTE").text);
  EXPECT_EQ(L"706200", rows[4].child(L"COMPTE").text);
}

TEST_F(VatObjectThatCallsBack, CanNeitherEraseNorResizeTheArticlesUntilTheEnd) {
  auto order = host::sample_work_order();
  host::set_articles(*order, {{L"A1"}, {L"A2"}});
  const auto orders = host::create<_Bon>(L"Bon");
  HRESULT erased = S_OK;
  when_asked([&] {
    erased = orders->RazDocInt(order, VARIANT_FALSE);
    SAFEARRAYBOUND smaller{1, 0};
    EXPECT_EQ(DISP_E_ARRAYISLOCKED, SafeArrayRedim(order->TabArticle, &smaller));
  });
  EXPECT_EQ(5u, row_nodes(order_rows(order, line_, L"", L"", vat())).size());
  EXPECT_EQ(2, vat_->log.size());
  EXPECT_TRUE(host::is_fault(erased, 10, L"Bon"));
  EXPECT_EQ(S_OK, orders->RazDocInt(order, VARIANT_FALSE));
  EXPECT_EQ(nullptr, order->TabArticle);
}

TEST_F(VatObjectThatCallsBack, CanNotEraseTheScheduleUntilTheEnd) {
  auto contract = host::sample_contract();
  host::set_share(*contract, 0, 1, 100, 10);
  const auto contracts = host::create<_ContratDoc>(L"ContratDoc");
  HRESULT erased = S_OK;
  when_asked([&] { erased = contracts->RazDocCtt(contract); });
  EXPECT_EQ(4u, row_nodes(contract_rows(contract, line_, 0, L"", vat())).size());
  EXPECT_TRUE(FAILED(erased));
  EXPECT_EQ(S_OK, contracts->RazDocCtt(contract));
  EXPECT_EQ(nullptr, contract->TabCadFact);
}

TEST_F(VatObjectThatCallsBack, LeavesNoLockBehindAFault) {
  auto order = host::sample_work_order();
  host::set_articles(*order, {{L"A1"}, {L"A2"}});
  short line = 32766;
  Text result;
  EXPECT_TRUE(host::is_fault(invoices_->AddIntervToInvoiceXML(order, nullptr, -1, nullptr, &line, &result), 6,
                             L"InvoiceXMLLib"));
  EXPECT_EQ(0u, order->TabArticle->cLocks);
}

}  // namespace
