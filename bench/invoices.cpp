// The XML invoice beside the bare DOM: the same texts loaded and serialised, with nothing added.
#include <msxml2.h>

#include <memory>

#include "invoicing/invoice_fixture.h"
#include "invoicing/grid.h"
#include "works.h"

namespace bench {
namespace {

using host::ComPtr;
using host::Text;

constexpr long kInvoiceRows = 500;
constexpr int kInstalments = 10000;
constexpr int kInvoices = 1000;

/// The DOM that the library takes: the first that is registered.
CLSID dom_class() {
  CLSID found{};
  for (const wchar_t* name :
       {L"MSXML2.DOMDocument.4.0", L"MSXML2.DOMDocument.6.0", L"MSXML2.DOMDocument.3.0"}) {
    if (SUCCEEDED(CLSIDFromProgID(name, &found))) return found;
  }
  must(REGDB_E_CLASSNOTREG, "DOMDocument");
  return found;
}

/// With the library's settings.
ComPtr<IXMLDOMDocument> create_document() {
  static const CLSID id = dom_class();
  ComPtr<IXMLDOMDocument> document;
  must(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IXMLDOMDocument, document.receive_void()),
       "DOMDocument");
  document->put_async(VARIANT_FALSE);
  document->put_validateOnParse(VARIANT_FALSE);
  document->put_resolveExternals(VARIANT_FALSE);
  document->put_preserveWhiteSpace(VARIANT_TRUE);
  return document;
}

void load_and_serialise(const Text& xml) {
  const auto document = create_document();
  VARIANT_BOOL loaded = VARIANT_FALSE;
  must(document->loadXML(xml, &loaded), "loadXML");
  if (!loaded) must(E_FAIL, "loadXML");
  const Text name(L"INVOICE");
  ComPtr<IXMLDOMNode> root;
  must(document->selectSingleNode(name, root.receive()), "selectSingleNode");
  Text written;
  must(root->get_xml(&written), "xml");
}

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

host::Grid due_lines() {
  host::Grid grid(kInstalments);
  for (long row = 0; row < kInstalments; ++row) {
    grid.set(row, IndTabGener_ColCodeCli, host::text_value(L"CLI" + std::to_wstring(row % kInvoices)));
    grid.set(row, IndTabGener_ColTypeDoc, host::text_value(L"G"));
    grid.set(row, IndTabGener_ColSelect, host::bool_value(true));
  }
  return grid;
}

/// The whole road: the grid grouped, then each invoice begun and lengthened.
void make_invoices(InvoiceWork& work, _Generation* generation) {
  host::Grid grid = due_lines();
  must(generation->RegroupementFacture(grid), "RegroupementFacture");
  for (int invoice = 0; invoice < kInvoices; ++invoice) {
    Text xml = work.head();
    short line = 0;
    for (int i = 0; i < kInstalments / kInvoices; ++i) xml = work.add(xml, line);
  }
}

/// What the DOM alone does for these invoices: each text that a call was given or began with.
void load_and_serialise_invoices(const std::vector<Text>& steps) {
  for (int invoice = 0; invoice < kInvoices; ++invoice) {
    for (const Text& step : steps) load_and_serialise(step);
  }
}

void measure_one_row(Bench& bench, InvoiceWork& work) {
  if (!bench.wants("invoice-row")) return;
  const Text xml = work.of_rows(kInvoiceRows);
  bench.compare("invoice-row", add_onto(work, xml), {[&xml] { load_and_serialise(xml); }});
  std::vector<std::unique_ptr<Text>> texts;
  bench.grow("invoice-row", "`AddCttToInvoiceXML`, onto an invoice of N rows", kInvoiceRows / 4,
             [&](long rows) {
               texts.push_back(std::make_unique<Text>(work.of_rows(rows)));
               return add_onto(work, *texts.back());
             });
}

void measure_campaign(Bench& bench, InvoiceWork& work) {
  if (!bench.wants("invoicing")) return;
  const auto generation = host::create<_Generation>(L"Generation");
  std::vector<Text> steps;
  steps.push_back(work.head());
  short line = 0;
  for (Text xml = work.head(); steps.size() <= kInstalments / kInvoices; xml = work.add(xml, line)) {
    steps.push_back(Text(xml.str()));
  }
  bench.compare("invoicing", {[&] { make_invoices(work, generation.get()); }},
                {[&] { load_and_serialise_invoices(steps); }});
}

}  // namespace

void measure_invoices(Bench& bench) {
  InvoiceWork work;
  measure_one_row(bench, work);
  measure_campaign(bench, work);
}

}  // namespace bench
