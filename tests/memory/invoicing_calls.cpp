// Calls of Generation and InvoiceXMLLib.
#include "invoicing/invoice_fixture.h"
#include "memory/catalogue.h"
#include "memory/documents.h"

namespace host {
namespace {

using Invoices = CallsOf<_InvoiceXMLLib>;

Grid sample_grid() {
  return Grid(std::vector<Item>{{L"a"}, {L"b", L"C2"}, {L"c"}, {L"d", L"C2", L"T", L"V", L"X", false}});
}

/// A row whose key is Empty: compared pair by pair.
Grid grid_with_an_empty_key() {
  Grid grid = sample_grid();
  grid.set(1, IndTabGener_ColCodeVend, Variant());
  return grid;
}

void add_grid_calls(Calls& calls) {
  CallsOf<_Generation>(calls, L"Generation")
      .succeeds("IsRuptRgrpCadFact",
                [](Scene& scene, _Generation& object) {
                  Grid grid = sample_grid();
                  const auto watch = scene.watch(grid);
                  VARIANT_BOOL result = 0;
                  return object.IsRuptRgrpCadFact(grid, 0, 2, &result);
                })
      .fails("IsRuptRgrpCadFact", Fault::SubscriptOutOfRange,
             [](Scene& scene, IDispatch& object) {
               Grid grid = sample_grid();
               const auto watch = scene.watch(grid);
               return call_by_name(object, L"IsRuptRgrpCadFact",
                                   arguments(by_reference(*grid.argument()), Variant(0L), Variant(9L)));
             })
      .succeeds("RegroupementFacture",
                [](Scene& scene, _Generation& object) {
                  Grid grid = sample_grid();
                  const auto watch = scene.watch(grid);
                  return object.RegroupementFacture(grid);
                })
      .succeeds("RegroupementFacture",
                [](Scene& scene, _Generation& object) {
                  Grid grid = grid_with_an_empty_key();
                  const auto watch = scene.watch(grid);
                  return object.RegroupementFacture(grid);
                })
      .changing_step_by_step()
      .fails("RegroupementFacture", Fault::InvalidUseOfNull,
             [](Scene& scene, _Generation& object) {
               Grid grid = sample_grid();
               grid.set(2, IndTabGener_ColCodeCli, null_value());
               const auto watch = scene.watch(grid);
               return object.RegroupementFacture(grid);
             })
      .changing_step_by_step();
}

void add_header_calls(Invoices& invoices) {
  invoices
      .succeeds("SetHeadInvoiceXML_ByCtt",
                [](Scene& scene, _InvoiceXMLLib& object) {
                  auto contract = sample_contract();
                  const Text long_label(L"Facture\r\nde contrat, " + std::wstring(80, L'e'));
                  const auto watch = scene.watch(contract);
                  Text result;
                  return object.SetHeadInvoiceXML_ByCtt(contract, long_label, Text(), Text(L"FA-1"),
                                                        Text(L"31/03/2025"), text_value(L" REP ").get(),
                                                        &result);
                })
      .fails("SetHeadInvoiceXML_ByCtt", Fault::SubscriptOutOfRange,
             [](Scene& scene, _InvoiceXMLLib& object) {
               auto contract = sample_contract();
               velmosav::erase<Type_Intervention>(contract->TabInterv);
               const auto watch = scene.watch(contract);
               Text result;
               return object.SetHeadInvoiceXML_ByCtt(contract, Text(L"Facture"), Text(), Text(L"FA-1"),
                                                     Text(L"31/03/2025"), missing().get(), &result);
             })
      .succeeds("SetHeadInvoiceXML_ByInt",
                [](Scene& scene, _InvoiceXMLLib& object) {
                  auto order = full_work_order();
                  Record<Type_AdresseTiers> billing;
                  fill_address(*billing, L"f", 3);
                  const auto watch = scene.watch(order, billing);
                  Text result;
                  return object.SetHeadInvoiceXML_ByInt(order, Text(L"Facture"), billing,
                                                        Text(L"<?xml version=\"1.0\"?><INVOICE/>"),
                                                        Text(L"FA-1"), Text(L"31/03/2025"), &result);
                })
      .fails("SetHeadInvoiceXML_ByInt", E_POINTER,
             [](Scene& scene, _InvoiceXMLLib& object) {
               auto order = full_work_order();
               const auto watch = scene.watch(order);
               Text result;
               return object.SetHeadInvoiceXML_ByInt(order, Text(L"Facture"), nullptr, Text(), Text(L"FA-1"),
                                                     Text(L"31/03/2025"), &result);
             })
      .succeeds("InitConstXML", [](Scene&, _InvoiceXMLLib& object) {
        const HRESULT code = object.put_pc_XInv_INV(Text(L"FACTURE"));
        if (FAILED(code)) return code;
        return object.InitConstXML();
      });
}

void add_line_calls(Invoices& invoices) {
  invoices
      .succeeds("AddIntervToInvoiceXML",
                [](Scene& scene, _InvoiceXMLLib& object) {
                  auto order = full_work_order();
                  const auto rates = vat_object({{0, 20.0}});
                  short line = 4;
                  const auto watch = scene.watch(order, line);
                  Text result;
                  return object.AddIntervToInvoiceXML(order, Text(), address_of(rates.get()), Text(L"F"),
                                                      &line, &result);
                })
      .changing_step_by_step()
      .fails("AddIntervToInvoiceXML", Fault::Overflow,
             [](Scene& scene, _InvoiceXMLLib& object) {
               auto order = full_work_order();
               short line = 32767;
               const auto watch = scene.watch(order, line);
               Text result;
               return object.AddIntervToInvoiceXML(order, Text(), -1, Text(), &line, &result);
             })
      .succeeds("AddCttToInvoiceXML",
                [](Scene& scene, _InvoiceXMLLib& object) {
                  auto contract = billed_contract();
                  const auto rates = vat_object({{1, 20.0}});
                  short line = 1;
                  const auto watch = scene.watch(contract, line);
                  Text result;
                  return object.AddCttToInvoiceXML(contract, 2, Text(L"<INVOICE><ROW/></INVOICE>"),
                                                   address_of(rates.get()), &line, &result);
                })
      .changing_step_by_step()
      .succeeds("AddCttToInvoiceXML",
                [](Scene& scene, _InvoiceXMLLib& object) {
                  auto contract = billed_contract();
                  const auto rates = vat_object({{1, 1.25e25}});
                  short line = 1;
                  const auto watch = scene.watch(contract, line);
                  Text result;
                  return object.AddCttToInvoiceXML(contract, 2, Text(), address_of(rates.get()), &line,
                                                   &result);
                })
      .changing_step_by_step()
      .fails("AddCttToInvoiceXML", Fault::SubscriptOutOfRange, [](Scene& scene, _InvoiceXMLLib& object) {
        auto contract = billed_contract();
        short line = 1;
        const auto watch = scene.watch(contract, line);
        Text result;
        return object.AddCttToInvoiceXML(contract, 99, Text(), -1, &line, &result);
      });
}

}  // namespace

void add_invoicing_calls(Calls& calls) {
  add_grid_calls(calls);
  Invoices invoices(calls, L"InvoiceXMLLib");
  add_header_calls(invoices);
  add_line_calls(invoices);
}

}  // namespace host
