#include "hostile/hostile_text.h"

namespace hostile {

HRESULT HostileText::call(std::size_t method, BSTR text, short& line, BSTR* result) {
  switch (method) {
    case 0:
      return invoices_->SetHeadInvoiceXML_ByCtt(contract_, nullptr, text, nullptr, nullptr,
                                                host::missing().get(), result);
    case 1:
      return invoices_->SetHeadInvoiceXML_ByInt(order_, nullptr, billing_, text, nullptr, nullptr, result);
    case 2:
      return invoices_->AddCttToInvoiceXML(contract_, 0, text, -1, &line, result);
    default:
      return invoices_->AddIntervToInvoiceXML(order_, text, -1, nullptr, &line, result);
  }
}

End HostileText::give(std::size_t method, BSTR text, std::wstring* grown) {
  const auto contract = host::snapshot(*contract_);
  const auto order = host::snapshot(*order_);
  const auto billing = host::snapshot(*billing_);
  const std::string bytes(reinterpret_cast<const char*>(text), SysStringByteLen(text));
  short line = 7;
  host::Text result(L"?");
  host::take_error();
  const HRESULT code = call(method, text, line, &result);

  EXPECT_EQ(std::vector<std::string>{}, host::differences(*contract, *contract_));
  EXPECT_EQ(std::vector<std::string>{}, host::differences(*order, *order_));
  EXPECT_EQ(std::vector<std::string>{}, host::differences(*billing, *billing_));
  EXPECT_TRUE(bytes == std::string(reinterpret_cast<const char*>(text), SysStringByteLen(text)));
  const std::wstring answer = result.str();
  const End end = FAILED(code) ? End::Failed : answer.empty() ? End::Refused : End::Grown;
  if (end == End::Failed) {
    EXPECT_EQ(L"", answer);
    EXPECT_NE(L"", host::take_error().description) << std::hex << code;
  } else {
    EXPECT_EQ(S_OK, code);
  }
  if (end == End::Grown) {
    EXPECT_TRUE(answer.starts_with(L"<INVOICE") && answer.ends_with(L"</INVOICE>"));
    EXPECT_TRUE(method < 2 || line > 7);
    if (grown) *grown = answer;
  } else {
    EXPECT_EQ(7, line);
  }
  Count& count = count_of(kind_);
  ++(end == End::Failed ? count.failed : end == End::Refused ? count.refused : count.grown);
  return end;
}

End HostileText::give(std::size_t method, const std::wstring& text, std::wstring* grown) {
  return give(method, host::Text(text), grown);
}

void HostileText::is_refused(const std::wstring& text, const std::string& what) {
  ++count_of(kind_).texts;
  for (std::size_t method = 0; method < kMethods; ++method) {
    EXPECT_EQ(End::Refused, give(method, text)) << method << ' ' << what;
  }
  works_afterwards();
}

void HostileText::stays_harmless(const std::wstring& text, const std::wstring& secret) {
  ++count_of(kind_).texts;
  for (std::size_t method = 0; method < kMethods; ++method) {
    std::wstring grown;
    give(method, text, &grown);
    EXPECT_EQ(std::wstring::npos, grown.find(secret)) << method << ' ' << host::utf8(text);
  }
  works_afterwards();
}

void HostileText::is_taken(const std::wstring& text, const std::string& what) {
  ++count_of(kind_).texts;
  for (std::size_t method = 0; method < kMethods; ++method) {
    EXPECT_EQ(End::Grown, give(method, text)) << method << ' ' << what;
  }
}

void HostileText::works_afterwards() {
  short line = 1;
  host::Text result;
  EXPECT_EQ(S_OK, invoices_->AddCttToInvoiceXML(contract_, 0, host::Text(L"<INVOICE/>"), -1, &line, &result));
  EXPECT_EQ(4, line);
  EXPECT_EQ(3u, host::rows_of(result.str()).size());
}

std::wstring repeated(const std::wstring& text, std::size_t times) {
  std::wstring result;
  result.reserve(text.size() * times);
  for (std::size_t i = 0; i < times; ++i) result += text;
  return result;
}

std::wstring good_invoice(std::size_t characters) {
  const std::wstring row =
      L"<ROW RANK=\"1\" LEVEL=\"2\" TYPE=\"A\"><ORIGINE TYPE=\"INTERVENTION\">INT-9</ORIGINE><CODEELEM>F1"
      L"</CODEELEM><DESIGNATION>Filtre à cartouche</DESIGNATION><QTY>1</QTY><UNITCOST>12,5</UNITCOST>"
      L"<COMPTE/><CODETVA RATE=\"20\">1</CODETVA></ROW>";
  return L"<INVOICE>" + repeated(row, characters / row.size() + 1) + L"</INVOICE>";
}

}  // namespace hostile
