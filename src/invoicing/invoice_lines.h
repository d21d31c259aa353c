// The body of the XML invoice: the rows of an intervention or of a contract's instalment.
//
// Rows are numbered by `number`, which holds the next free number after the call (fault 6 beyond 32767). The
// result is the invoice text with the rows appended; empty, with `number` unchanged, when `xml` does not load
// or holds no invoice. `vat_object`: address of the host's VAT object, -1 for none; an object that fails
// leaves rates empty. That object is the host's code and may call back: names and fields are read when they
// are written, and the array being walked is locked.
#pragma once

#include "automation/platform.h"

#include <VelmoSAV_DLL14.h>

#include "automation/text.h"
#include "invoicing/invoice_document.h"

namespace velmosav {

/// `invoiced_situation`: the situation of the articles to invoice, the others being shown as covered; empty
/// when every article is invoiced.
Bstr add_intervention_lines(const InvoiceXMLLibConstants& names, DomFactory& dom,
                            const Type_Bon& intervention, BSTR xml, long vat_object,
                            std::wstring_view invoiced_situation, short& number);

/// Fault 9 when the contract has no billing row `instalment`.
Bstr add_instalment_lines(const InvoiceXMLLibConstants& names, DomFactory& dom, const Type_Contrat& contract,
                          short instalment, BSTR xml, long vat_object, short& number);

}  // namespace velmosav
