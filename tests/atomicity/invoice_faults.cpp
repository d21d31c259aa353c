// Faults of the grouping of invoices, of the comparison of renewal lines and of the XML invoice.
#include "atomicity/fault_case.h"

namespace atomicity {
namespace {

HRESULT group(World& world) { return generations()->RegroupementFacture(&world.grid.get()); }
HRESULT same_invoice(World& world) {
  return generations()->IsRuptRgrpCadFact(&world.grid.get(), 0, world.number, world.truth_result());
}
HRESULT differs(World& world) {
  return renewals()->bDiffLigneTab(world.renewal.get(), world.number, world.truth_result());
}

HRESULT head_of_contract(World& world) {
  return invoices()->SetHeadInvoiceXML_ByCtt(world.contract, Text(L"Facture"), nullptr, Text(L"FA1"),
                                             Text(L"01/02/2025"), world.value.get(), world.text_result());
}

/// An instance that a host has taken the name of an element from.
ComPtr<_InvoiceXMLLib> without_name(HRESULT (STDMETHODCALLTYPE _InvoiceXMLLib::*put)(BSTR)) {
  auto instance = host::create<_InvoiceXMLLib>(L"InvoiceXMLLib");
  EXPECT_EQ(S_OK, (instance.get()->*put)(Text(L"")));
  return instance;
}

/// A document that rows can be added to.
void start_document(World& world) {
  BSTR document = nullptr;
  EXPECT_EQ(S_OK, invoices()->SetHeadInvoiceXML_ByCtt(world.contract, Text(L"Facture"), nullptr, Text(L"FA1"),
                                                      Text(L"01/02/2025"), left_out(), &document));
  world.text = Text(host::get(document));
  SysFreeString(document);
}

HRESULT add_intervention(_InvoiceXMLLib* instance, World& world) {
  return instance->AddIntervToInvoiceXML(world.order, world.text, -1, nullptr, &world.number,
                                         world.text_result());
}
HRESULT add_instalment(_InvoiceXMLLib* instance, World& world) {
  return instance->AddCttToInvoiceXML(world.contract, world.other_number, world.text, -1, &world.number,
                                      world.text_result());
}

}  // namespace

std::vector<FaultCase> invoice_faults() {
  return {
      {L"Generation", L"IsRuptRgrpCadFact", "a row past the grid", 9, same_invoice,
       [](World& world) { world.number = 9; }},
      {L"Generation", L"IsRuptRgrpCadFact", "a Null key", 94, same_invoice,
       [](World& world) { cell(world.grid, 0, IndTabGener_ColCodeVend).vt = VT_NULL; }},
      {L"Generation", L"IsRuptRgrpCadFact", "no grid", 13, same_invoice,
       [](World& world) { world.grid = Variant(1L); }},
      {L"Generation", L"RegroupementFacture", "no row to invoice", 9, group,
       [](World& world) {
         for (long row = 0; row < 3; ++row) cell(world.grid, row, IndTabGener_ColSelect).boolVal = 0;
       }},
      {L"Generation", L"RegroupementFacture", "no grid", 13, group,
       [](World& world) { world.grid = Variant(1L); }},
      {L"Generation", L"RegroupementFacture", "a locked grid", 10, group,
       [](World& world) { SafeArrayLock(world.grid.get().parray); },
       [](World& world) { SafeArrayUnlock(world.grid.get().parray); }},
      {L"Generation",
       L"RegroupementFacture",
       "a Null key in the third row",
       94,
       group,
       [](World& world) { cell(world.grid, 2, IndTabGener_ColCodeVend).vt = VT_NULL; },
       {},
       {"grid"}},
      {L"Generation", L"RegroupementFacture", "a tick that is no Boolean in the first row", 13, group,
       [](World& world) {
         cell(world.grid, 0, IndTabGener_ColSelect) = host::text_value(L"peut-être").detach();
       }},
      {L"Reconduction", L"bDiffLigneTab", "a row past the grid", 9, differs,
       [](World& world) { world.number = 9; }},
      {L"Reconduction", L"bDiffLigneTab", "a Null amount", 94, differs,
       [](World& world) { cell(world.renewal, 0, PC_TMajRec_PC_TMajRec_ColNewHT).vt = VT_NULL; }},
      {L"Reconduction", L"bDiffLigneTab", "no grid", 13, differs,
       [](World& world) { world.renewal = Variant(1L); }},
      {L"InvoiceXMLLib", L"SetHeadInvoiceXML_ByCtt", "Null as representative", 94, head_of_contract,
       [](World& world) { world.value = host::null_value(); }},
      {L"InvoiceXMLLib", L"SetHeadInvoiceXML_ByInt", "an element without name", E_FAIL,
       [](World& world) {
         return without_name(&_InvoiceXMLLib::put_pc_XInv_CODE)
             ->SetHeadInvoiceXML_ByInt(world.order, Text(L"Facture"), world.address, nullptr, Text(L"FA2"),
                                       Text(L"01/02/2025"), world.text_result());
       }},
      {L"InvoiceXMLLib",
       L"AddIntervToInvoiceXML",
       "a line number past 32767",
       6,
       [](World& world) { return add_intervention(invoices(), world); },
       [](World& world) {
         start_document(world);
         world.number = 32766;
       },
       {},
       {"number"}},
      {L"InvoiceXMLLib",
       L"AddIntervToInvoiceXML",
       "articles with another lower bound",
       9,
       [](World& world) { return add_intervention(invoices(), world); },
       [](World& world) {
         start_document(world);
         world.order->TabArticle->rgsabound[0].lLbound = 1;
       },
       {},
       {"number"}},
      {L"InvoiceXMLLib", L"AddIntervToInvoiceXML", "an element without name", E_FAIL,
       [](World& world) {
         return add_intervention(without_name(&_InvoiceXMLLib::put_pc_XInv_ROW).get(), world);
       },
       start_document},
      {L"InvoiceXMLLib", L"AddCttToInvoiceXML", "an instalment past the schedule", 9,
       [](World& world) { return add_instalment(invoices(), world); },
       [](World& world) {
         start_document(world);
         world.other_number = 9;
       }},
      {L"InvoiceXMLLib",
       L"AddCttToInvoiceXML",
       "a line number past 32767",
       6,
       [](World& world) { return add_instalment(invoices(), world); },
       [](World& world) {
         start_document(world);
         world.number = 32766;
       },
       {},
       {"number"}},
  };
}

}  // namespace atomicity
