// What the tests of the XML invoice share: sample documents, and the calls with their optional arguments
// filled in.
#pragma once

#include <string>

#include "invoicing/xml_tree.h"
#include "support/fake_object.h"
#include "support/records.h"

namespace host {

/// Fields of an address that the invoice shows, each with a text of its own made of `mark`.
void fill_address(Type_AdresseTiers& address, const std::wstring& mark, short number);

/// Contract "CTT-7" of customer "CLI-3": own address "c", one intervention without label, one billing line
/// (number 41, invoiced on 01/02/2025 for January to March 2025) without VAT share.
Record<Type_Contrat> sample_contract();

/// Dimensions the first intervention's address fields with `mark` and labels it.
void label_first_intervention(Type_Contrat& contract, const wchar_t* label, const std::wstring& mark);

/// VAT share of a billing line.
void set_share(Type_Contrat& contract, unsigned long line, int code, double percent, double base);

/// Work order "INT-9" of customer "CLI-3" begun on 15/03/2025, labelled "Entretien", without site, address or
/// article; its list of articles is dimensioned to none.
Record<Type_Bon> sample_work_order();

/// An article line.
struct Line {
  const wchar_t* code;
  const wchar_t* situation = L"";
  const wchar_t* type = L"A";
};
/// Gives a work order these lines; each is labelled "lib " + code.
void set_articles(Type_Bon& order, const std::vector<Line>& lines);

/// A VAT object that answers rates by code; -1 for a code that it does not know.
ComPtr<FakeObject> vat_object(std::map<long, double> rates);
/// An object as it travels in `lPtrTva`.
long address_of(IDispatch* object);

/// The plain arguments of a header.
struct InvoiceHeader {
  Text label = L"Facture";
  Text xml;
  Text code = L"FA-1";
  Text date = L"31/03/2025";
};

class InvoiceTest : public ::testing::Test {
 protected:
  // Each returns the XML text; the test fails when the call does.
  std::wstring contract_header(Record<Type_Contrat>& contract, const InvoiceHeader& header,
                               const VARIANT& seller);
  std::wstring contract_header(Record<Type_Contrat>& contract, const InvoiceHeader& header = {});
  std::wstring order_header(Record<Type_Bon>& order, Record<Type_AdresseTiers>& billing,
                            const InvoiceHeader& header = {});
  std::wstring order_rows(Record<Type_Bon>& order, short& line, const wchar_t* covered_by = L"",
                          const std::wstring& xml = L"", long vat = -1);
  std::wstring contract_rows(Record<Type_Contrat>& contract, short& line, short index = 0,
                             const std::wstring& xml = L"", long vat = -1);

  ComPtr<_InvoiceXMLLib> invoices_ = create<_InvoiceXMLLib>(L"InvoiceXMLLib");
};

}  // namespace host
