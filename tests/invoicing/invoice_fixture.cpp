#include "invoicing/invoice_fixture.h"

#include <cstdint>

namespace host {

void fill_address(Type_AdresseTiers& address, const std::wstring& mark, short number) {
  address.iNum = number;
  set(address.NomSite, mark + L" site");
  set(address.Interloc, mark + L" interloc");
  set(address.Adr, mark + L" adr");
  set(address.AdrSuite, mark + L" adr2");
  set(address.CP, mark + L" cp");
  set(address.Ville, mark + L" ville");
  set(address.Tel, mark + L" tel");
  set(address.Fax, mark + L" fax");
  set(address.Mobile, mark + L" mobile");
  set(address.EMail, mark + L" mail");
}

Record<Type_Contrat> sample_contract() {
  Record<Type_Contrat> contract;
  set(contract->Code, L"CTT-7");
  set(contract->CodeClient, L"CLI-3");
  set(contract->Vendeur, L"REP-1");
  set(contract->ModReg, L"CHQ");
  set(contract->Compte, L"706100");
  set(contract->DateDeb, L"01/01/2025");
  set(contract->DateFin, L"31/12/2025");
  fill_address(contract->Adr, L"c", 4);
  dimension<Type_Intervention>(contract->TabInterv, 1);
  dimension<Type_CadencierFact>(contract->TabCadFact, 1);
  auto& line = element<Type_CadencierFact>(contract->TabCadFact, 0);
  line.NumAuto = 41;
  set(line.DateFact, L"01/02/2025");
  set(line.DateDeb, L"01/01/2025");
  set(line.DateFin, L"31/03/2025");
  return contract;
}

void label_first_intervention(Type_Contrat& contract, const wchar_t* label, const std::wstring& mark) {
  auto& intervention = element<Type_Intervention>(contract.TabInterv, 0);
  set(intervention.Libelle, label);
  set(intervention.Interloc, mark + L" interloc");
  set(intervention.Adr, mark + L" adr");
  set(intervention.AdrSuite, mark + L" adr2");
  set(intervention.CP, mark + L" cp");
  set(intervention.Ville, mark + L" ville");
  set(intervention.Tel, mark + L" tel");
  set(intervention.Fax, mark + L" fax");
  set(intervention.Mobile, mark + L" mobile");
  set(intervention.EMail, mark + L" mail");
}

void set_share(Type_Contrat& contract, unsigned long line, int code, double percent, double base) {
  Type_LigneRepartTVA& share = element<Type_CadencierFact>(contract.TabCadFact, line).RepartTva.Lignes[code];
  share.Pourcent = percent;
  share.MontantBase = base;
}

Record<Type_Bon> sample_work_order() {
  Record<Type_Bon> order;
  set(order->Code, L"INT-9");
  set(order->CodeClient, L"CLI-3");
  set(order->DateDeb, L"15/03/2025");
  set(order->Libelle, L"Entretien");
  dimension<Type_LigneArticle>(order->TabArticle, 0);
  return order;
}

void set_articles(Type_Bon& order, const std::vector<Line>& lines) {
  dimension<Type_LigneArticle>(order.TabArticle, static_cast<unsigned long>(lines.size()));
  for (std::size_t i = 0; i < lines.size(); ++i) {
    auto& article = element<Type_LigneArticle>(order.TabArticle, static_cast<unsigned long>(i));
    set(article.TypeLigne, lines[i].type);
    set(article.CodeArt, lines[i].code);
    set(article.Libelle, std::wstring(L"lib ") + lines[i].code);
    set(article.Situation, lines[i].situation);
  }
}

ComPtr<FakeObject> vat_object(std::map<long, double> rates) {
  auto object = FakeObject::make();
  object->on_get(L"GetTauxTva", [rates = std::move(rates)](const FakeObject::Arguments& arguments) {
    if (arguments.size() != 1) throw FakeObject::Error{E_INVALIDARG, L"Hôte", L"un code"};
    const auto found = rates.find(velmosav::to_long(arguments[0]));
    return Variant(found == rates.end() ? -1.0 : found->second);
  });
  return object;
}

long address_of(IDispatch* object) { return static_cast<long>(reinterpret_cast<std::intptr_t>(object)); }

std::wstring InvoiceTest::contract_header(Record<Type_Contrat>& contract, const InvoiceHeader& header,
                                          const VARIANT& seller) {
  Text result;
  EXPECT_EQ(S_OK, invoices_->SetHeadInvoiceXML_ByCtt(contract, header.label, header.xml, header.code,
                                                     header.date, seller, &result));
  return result.str();
}

std::wstring InvoiceTest::contract_header(Record<Type_Contrat>& contract, const InvoiceHeader& header) {
  return contract_header(contract, header, missing().get());
}

std::wstring InvoiceTest::order_header(Record<Type_Bon>& order, Record<Type_AdresseTiers>& billing,
                                       const InvoiceHeader& header) {
  Text result;
  EXPECT_EQ(S_OK, invoices_->SetHeadInvoiceXML_ByInt(order, header.label, billing, header.xml, header.code,
                                                     header.date, &result));
  return result.str();
}

std::wstring InvoiceTest::order_rows(Record<Type_Bon>& order, short& line, const wchar_t* covered_by,
                                     const std::wstring& xml, long vat) {
  Text result;
  EXPECT_EQ(S_OK, invoices_->AddIntervToInvoiceXML(order, Text(xml), vat, Text(covered_by), &line, &result));
  return result.str();
}

std::wstring InvoiceTest::contract_rows(Record<Type_Contrat>& contract, short& line, short index,
                                        const std::wstring& xml, long vat) {
  Text result;
  EXPECT_EQ(S_OK, invoices_->AddCttToInvoiceXML(contract, index, Text(xml), vat, &line, &result));
  return result.str();
}

}  // namespace host
