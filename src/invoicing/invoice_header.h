// The header of the XML invoice: codes, dates, label, source document and the two addresses.
#pragma once

#include "automation/platform.h"

#include <VelmoSAV_DLL14.h>

#include "automation/text.h"
#include "invoicing/invoice_document.h"

namespace velmosav {

/// An address as the header writes it: its number and the nine fields that become attributes. Borrowed.
struct HeaderAddress {
  short number;
  BSTR contact, address, address_more, postal_code, town, phone, fax, mobile, mail;
};
HeaderAddress header_address(const Type_AdresseTiers& address);
/// Site address of a contract: its first intervention's when that has a label, else the contract's own.
/// Fault 9 when the contract has no first intervention.
HeaderAddress site_address(const Type_Contrat& contract);

struct InvoiceHeader {
  std::wstring_view code, date, customer, representative, payment_method;
  std::wstring_view label;  // its line ends (CR LF) are written as LF
  std::wstring_view origin_type, origin_code;
  HeaderAddress site, billing;
};

/// The invoice text with the header's elements appended; empty when `xml` does not load or holds no invoice.
Bstr add_invoice_header(const InvoiceXMLLibConstants& names, DomFactory& dom, const InvoiceHeader& header,
                        BSTR xml);

}  // namespace velmosav
