// The XML invoice beside the bare DOM: the same texts loaded and serialised, with nothing added.
#include <memory>

#include "dom.h"
#include "invoicing/invoice_fixture.h"
#include "works.h"

namespace bench {
namespace {

using host::ComPtr;
using host::Text;

constexpr long kInvoiceRows = 500;

/// A contract of one instalment, shared out over two VAT codes.
host::Record<Type_Contrat> contract() {
  auto record = host::sample_contract();
  host::label_first_intervention(*record, L"Entretien annuel", L"i");
  host::set_share(*record, 0, 1, 60, 600);
  host::set_share(*record, 0, 2, 40, 400);
  host::set(host::element<Type_CadencierFact>(record->TabCadFact, 0).Libelle,
            L"1\u00E8re \u00E9ch\u00E9ance");
  return record;
}

class InvoiceWork {
 public:
  InvoiceWork() : library_(host::create<_InvoiceXMLLib>(L"InvoiceXMLLib")) {}

  [[nodiscard]] Text head() {
    Text xml;
    must(library_->SetHeadInvoiceXML_ByCtt(contract_, Text(L"Facture"), Text(), Text(L"FA-1"),
                                           Text(L"31/03/2025"), host::missing().get(), &xml),
         "SetHeadInvoiceXML_ByCtt");
    return xml;
  }
  [[nodiscard]] Text add(const Text& xml, short& line) {
    Text longer;
    must(library_->AddCttToInvoiceXML(contract_, 0, xml, -1, &line, &longer), "AddCttToInvoiceXML");
    return longer;
  }
  /// An invoice with at least so many rows.
  [[nodiscard]] Text of_rows(long rows) {
    Text xml = head();
    for (short line = 0; line < rows;) xml = add(xml, line);
    return xml;
  }

 private:
  ComPtr<_InvoiceXMLLib> library_;
  host::Record<Type_Contrat> contract_ = contract();
};

/// The same two instalments' worth of rows, onto an invoice of any length.
Operation add_onto(InvoiceWork& work, const Text& xml) {
  return {[&work, &xml] {
    short line = 1;
    const Text longer = work.add(xml, line);
  }};
}

}  // namespace

void measure_invoices(Bench& bench) {
  if (!bench.wants("invoice-row")) return;
  InvoiceWork work;
  BareDom dom;
  const Text xml = work.of_rows(kInvoiceRows);
  bench.compare("invoice-row", add_onto(work, xml),
                {[&] { const Text written = dom.load(xml).serialise(); }});
  std::vector<std::unique_ptr<Text>> texts;
  bench.grow("invoice-row", "`AddCttToInvoiceXML`, onto an invoice of N rows", kInvoiceRows / 4,
             [&](long rows) {
               texts.push_back(std::make_unique<Text>(work.of_rows(rows)));
               return add_onto(work, *texts.back());
             });
}

}  // namespace bench
