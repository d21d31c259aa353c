// A good invoice that was cut: no end but the whole one is taken.
#include "hostile/hostile_text.h"

namespace {

using hostile::End;

class CutText : public hostile::HostileText {
 protected:
  CutText() : HostileText("good invoices cut at every unit") {}

  /// Each beginning of `text` goes to one method in turn; from `whole` units on it is an invoice.
  void is_refused_up_to(const std::wstring& text, std::size_t whole) {
    for (std::size_t length = 1; length <= text.size(); ++length) {
      count_text();
      const End expected = length < whole ? End::Refused : End::Grown;
      ASSERT_EQ(expected, give(length % kMethods, text.substr(0, length))) << length;
    }
    works_afterwards();
  }
};

TEST_F(CutText, AnInvoiceOfEveryMethod_IsRefusedUpToItsLastCharacter) {
  std::wstring text = L"<INVOICE/>";
  for (std::size_t method = 0; method < kMethods; ++method) ASSERT_EQ(End::Grown, give(method, text, &text));
  ASSERT_LT(1500u, text.size());
  is_refused_up_to(text, text.size());
}

TEST_F(CutText, MarkupOfEveryKind_IsRefusedUpToTheEndOfTheRoot) {
  const std::wstring root =
      L"\xFEFF<?xml version=\"1.0\" encoding=\"utf-16\"?>\r\n<!-- é < > & ' \" -->\n<?hôte a=\"<b>\"?>"
      L"<INVOICE A=\"&lt;&#233;&#x20AC; >\" B='\"'><![CDATA[<a>]] > & \xD83D\xDE00]]><n:ROW "
      L"xmlns:n=\"urn:n\" "
      L"n:RANK = '1' ><DESIGNATION/>texte &amp; suite</n:ROW ><!----><?x?></INVOICE >";
  is_refused_up_to(root + L"\r\n\t ", root.size());
}

TEST_F(CutText, WithoutItsBeginning_IsRefused) {
  std::wstring text;
  ASSERT_EQ(End::Grown, give(2, std::wstring(L"<INVOICE/>"), &text));
  for (std::size_t from = 1; from < text.size(); ++from) {
    count_text();
    // What begins with an element of its own is another document, whose root is no invoice or which has two.
    ASSERT_EQ(End::Refused, give(from % kMethods, text.substr(from))) << from;
  }
  works_afterwards();
}

TEST_F(CutText, WithoutOneCharacter_IsHarmless) {
  std::wstring text;
  ASSERT_EQ(End::Grown, give(2, std::wstring(L"<INVOICE/>"), &text));
  for (std::size_t place = 0; place < text.size(); ++place) {
    count_text();
    std::wstring shorter = text;
    give(place % kMethods, shorter.erase(place, 1));
  }
  works_afterwards();
}

}  // namespace
