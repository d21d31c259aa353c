// A document type declaration that is hidden: whatever reads as one is refused, whatever does not stays text.
#include "hostile/hostile_text.h"

namespace {

constexpr wchar_t kDeclared[] = L"<!DOCTYPE INVOICE [<!ENTITY e \"étendue\">]><INVOICE>&e;</INVOICE>";
constexpr wchar_t kExpanded[] = L"étendue";

class HiddenDeclaration : public hostile::HostileText {
 protected:
  HiddenDeclaration() : HostileText("hidden document type declarations") {}

  void is_refused_behind(const std::wstring& start) { is_refused(start + kDeclared, host::utf8(start)); }

  /// The bytes of a text, two to a unit, as a text.
  static std::wstring packed(std::string bytes) {
    if (bytes.size() % 2) bytes += ' ';
    std::wstring units;
    for (std::size_t i = 0; i < bytes.size(); i += 2) {
      units += static_cast<wchar_t>(static_cast<unsigned char>(bytes[i]) |
                                    static_cast<unsigned char>(bytes[i + 1]) << 8);
    }
    return units;
  }
  static std::wstring swapped(std::wstring text) {
    for (wchar_t& unit : text) unit = static_cast<wchar_t>((unit & 0xFF) << 8 | unit >> 8);
    return text;
  }
};

TEST_F(HiddenDeclaration, BehindComments_IsRefused) {
  for (const wchar_t* start :
       {L"<!---->", L"<!--><INVOICE>-->", L"<!---><a-->", L"<!-- ?> -->", L"<!-- <? -->",
        L"<!----><!--<!---->", L"<!-- ' --><!-- \" -->", L"<!-- a --!><INVOICE a='-->"}) {
    is_refused_behind(start);
  }
}

TEST_F(HiddenDeclaration, BehindInstructions_IsRefused) {
  for (const wchar_t* start :
       {L"<?a?>", L"<?a <INVOICE> ?>", L"<?a --?>", L"<?a <!-- ?>", L"<?a \"?>", L"<?a ?><?b '?>",
        L"<?xml version=\"1.0\"?>", L"<?xml version=\"1.0\" encoding=\"a?><INVOICE\"?>",
        L"<?xml version=\"1.0\" standalone='?><INVOICE'?>", L"<?xml version='1.0?><!--'?>"}) {
    is_refused_behind(start);
  }
}

TEST_F(HiddenDeclaration, BehindBlanksOfEveryKind_IsRefused) {
  for (const wchar_t* start :
       {L" ", L"\r\n\t ", L"\xFEFF", L"\xFEFF \n", L" \xFEFF", L"\xFEFF\xFEFF", L"\xA0", L"\x0B", L"\x0C",
        L"\x85", L"\x2003", L"\x200B", L"\x2028", L"\x3000", L"x"}) {
    is_refused_behind(start);
  }
}

TEST_F(HiddenDeclaration, BehindTheRoot_IsRefused) {
  is_refused_behind(L"<INVOICE/>");
  is_refused_behind(L"<INVOICE></INVOICE>");
  is_refused(std::wstring(L"<INVOICE>") + kDeclared + L"</INVOICE>");
  is_refused(L"<INVOICE/><!DOCTYPE INVOICE>");
}

TEST_F(HiddenDeclaration, InAnyCase_IsRefused) {
  for (const wchar_t* word :
       {L"<!doctype", L"<!Doctype", L"<!DOCTYPE\t", L"<! DOCTYPE", L"< !DOCTYPE", L"<!ENTITY",
        L"<!\x0130"
        L"DOCTYPE",
        L"<!DOCTYPE\xA0"}) {
    is_refused(word + std::wstring(L" INVOICE [<!ENTITY e \"étendue\">]><INVOICE>&e;</INVOICE>"),
               host::utf8(word));
  }
}

TEST_F(HiddenDeclaration, BehindASectionOrATag_IsRefused) {
  is_refused_behind(L"<![CDATA[ ]]>");
  is_refused_behind(L"<![CDATA[");
  is_refused_behind(L"</INVOICE>");
  is_refused_behind(L"<>");
  is_refused_behind(L"<INVOICE a='>");
}

TEST_F(HiddenDeclaration, InAnotherEncoding_IsRefused) {
  is_refused(swapped(L"\xFEFF" + std::wstring(kDeclared)));
  is_refused(swapped(kDeclared));
  const std::string bytes = host::utf8(kDeclared);
  is_refused(packed(bytes));
  is_refused(packed("\xEF\xBB\xBF" + bytes));
  is_refused(packed("<?xml version='1.0' encoding='utf-8'?>" + bytes));
  is_refused(L"+ADwAIQ-DOCTYPE INVOICE+AD4-");
  is_refused(L"<?xml version='1.0' encoding='utf-7'?>+ADwAIQ-DOCTYPE INVOICE+AD4-<INVOICE/>");
}

TEST_F(HiddenDeclaration, BehindADeclaredEncoding_IsRefused) {
  for (const wchar_t* name : {L"utf-8", L"utf-16", L"UTF-16LE", L"utf-16be", L"iso-8859-1", L"windows-1252",
                              L"ucs-4", L"utf-7", L"shift_jis", L"nulle-part", L""}) {
    is_refused_behind(L"<?xml version=\"1.0\" encoding=\"" + std::wstring(name) + L"\"?>");
  }
}

TEST_F(HiddenDeclaration, InCommentsTextsAndValues_StaysText) {
  for (const wchar_t* text : {L"<!-- @ --><INVOICE/>", L"<INVOICE><!-- @ --></INVOICE>", L"<?a @?><INVOICE/>",
                              L"<INVOICE><![CDATA[@]]></INVOICE>", L"<INVOICE/><!-- @ -->"}) {
    std::wstring holder = text;
    is_taken(holder.replace(holder.find(L'@'), 1, kDeclared), host::utf8(text));
  }
  is_taken(L"<INVOICE A=\"&lt;!DOCTYPE INVOICE>\">&lt;!DOCTYPE INVOICE></INVOICE>");
}

TEST_F(HiddenDeclaration, AValueWithTheLessThanSign_IsHarmless) {
  stays_harmless(std::wstring(L"<INVOICE A='") + kDeclared + L"'>&e;</INVOICE>", kExpanded);
  stays_harmless(std::wstring(L"<INVOICE A='<!--'>") + kDeclared + L"<!---->&e;</INVOICE>", kExpanded);
}

}  // namespace
