// Every method that reads an XML text, given one that nobody should write.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "invoicing/invoice_fixture.h"

namespace hostile {

/// What the program has seen, for the table: per kind of text, how the calls ended.
struct Count {
  std::size_t texts = 0, refused = 0, failed = 0, grown = 0;
};
Count& count_of(const std::string& kind);

enum class End { Refused, Failed, Grown };

class HostileText : public ::testing::Test {
 protected:
  /// `kind` names the table's row.
  explicit HostileText(std::string kind) : kind_(std::move(kind)) {}

  static constexpr std::size_t kMethods = 4;

  /// One method given `text`: the host's records, line number and text must be as before, unless the invoice
  /// grew; a failure must bring its words. A text that grew is an invoice, kept in `grown`.
  End give(std::size_t method, BSTR text, std::wstring* grown = nullptr);
  End give(std::size_t method, const std::wstring& text, std::wstring* grown = nullptr);

  /// Each method answers nothing, and works with a good text afterwards.
  void is_refused(const std::wstring& text, const std::string& what = "");
  /// Each method may answer what it likes, if only `secret` does not stand in it.
  void stays_harmless(const std::wstring& text, const std::wstring& secret);
  /// Each method adds to the text.
  void is_taken(const std::wstring& text, const std::string& what = "");

  void works_afterwards();
  /// Notes a text that is given without the above.
  void count_text() { ++count_of(kind_).texts; }

  host::ComPtr<_InvoiceXMLLib> invoices_ = host::create<_InvoiceXMLLib>(L"InvoiceXMLLib");
  host::Record<Type_Contrat> contract_ = host::sample_contract();
  host::Record<Type_Bon> order_ = host::sample_work_order();
  host::Record<Type_AdresseTiers> billing_;

 private:
  HRESULT call(std::size_t method, BSTR text, short& line, BSTR* result);

  const std::string kind_;
};

std::wstring repeated(const std::wstring& text, std::size_t times);
/// A good invoice of at least so many characters: rows as the library writes them.
std::wstring good_invoice(std::size_t characters);

}  // namespace hostile
