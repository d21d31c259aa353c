#include "invoicing/invoice_header.h"

#include "automation/number_text.h"
#include "companion/companion.h"
#include "invoicing/invoice_document.h"
#include "records/array_view.h"

namespace velmosav {
namespace {

void add_address(const InvoiceDocument& invoice, std::wstring_view name, const HeaderAddress& address) {
  const InvoiceXMLLibConstants& names = invoice.names();
  const XmlElement element = invoice.make_element(name, whole_number_text(address.number).view());
  invoice.add_attribute(element, names.m_pc_XInv_INTERLOC, view(address.contact));
  invoice.add_attribute(element, names.m_pc_XInv_ADR, view(address.address));
  invoice.add_attribute(element, names.m_pc_XInv_ADR2, view(address.address_more));
  invoice.add_attribute(element, names.m_pc_XInv_CP, view(address.postal_code));
  invoice.add_attribute(element, names.m_pc_XInv_CITY, view(address.town));
  invoice.add_attribute(element, names.m_pc_XInv_PHONE, view(address.phone));
  invoice.add_attribute(element, names.m_pc_XInv_FAX, view(address.fax));
  invoice.add_attribute(element, names.m_pc_XInv_MOBILE, view(address.mobile));
  invoice.add_attribute(element, names.m_pc_XInv_MAIL, view(address.mail));
  invoice.append(invoice.root(), element);
}

}  // namespace

HeaderAddress header_address(const Type_AdresseTiers& address) {
  return {address.iNum,  address.Interloc, address.Adr, address.AdrSuite, address.CP,
          address.Ville, address.Tel,      address.Fax, address.Mobile,   address.EMail};
}

HeaderAddress site_address(const Type_Contrat& contract) {
  const Type_Intervention& first = ArrayView<Type_Intervention>(contract.TabInterv)[0];
  if (view(first.Libelle).empty()) return header_address(contract.Adr);
  return {0,           first.Interloc, first.Adr, first.AdrSuite, first.CP,
          first.Ville, first.Tel,      first.Fax, first.Mobile,   first.EMail};
}

Bstr add_invoice_header(const InvoiceXMLLibConstants& names, DomFactory& dom, const InvoiceHeader& header,
                        BSTR xml) {
  const InvoiceDocument invoice(names, dom, xml);
  if (!invoice.has_root()) return {};
  const XmlElement& root = invoice.root();
  invoice.add_element(root, names.m_pc_XInv_CODE, header.code);
  invoice.add_element(root, names.m_pc_XInv_DATEFACT, header.date);
  invoice.add_element(root, names.m_pc_XInv_CODETIERS, header.customer);
  invoice.add_element(root, names.m_pc_XInv_CODEREPR, header.representative);
  invoice.add_element(root, names.m_pc_XInv_CODEMODREGL, header.payment_method);
  invoice.add_element(root, names.m_pc_XInv_DESIGNATION,
                      companion::replace_text(header.label, L"\r\n", L"\n").view());
  invoice.add_origin(root, header.origin_code, header.origin_type);
  add_address(invoice, names.m_pc_XInv_ADRCHANTIER, header.site);
  add_address(invoice, names.m_pc_XInv_ADRFACTURATION, header.billing);
  return invoice.text();
}

}  // namespace velmosav
