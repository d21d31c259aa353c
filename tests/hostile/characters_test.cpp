// Characters and encodings that no XML text has.
#include "hostile/hostile_text.h"

namespace {

class OddCharacters : public hostile::HostileText {
 protected:
  OddCharacters() : HostileText("odd characters and encodings") {}
};

TEST_F(OddCharacters, Nul_IsRefusedWhereverItStands) {
  const std::wstring good = L"<INVOICE A=\"1\"><N>x</N></INVOICE>";
  for (std::size_t place = 0; place <= good.size(); ++place) {
    std::wstring text = good;
    is_refused(text.insert(place, 1, L'\0'), std::to_string(place));
  }
}

TEST_F(OddCharacters, NulAndMoreBehindAnInvoice_IsRefused) {
  is_refused(std::wstring(L"<INVOICE/>") + L'\0' + L"<INVOICE/>");
  is_refused(std::wstring(1000, L'\0'));
}

TEST_F(OddCharacters, HalfASurrogatePair_IsRefusedWhereverItStands) {
  const std::wstring good = L"<INVOICE A=\"1\"><N>x</N></INVOICE>";
  for (const wchar_t half : {L'\xD800', L'\xDBFF', L'\xDC00', L'\xDFFF'}) {
    for (std::size_t place = 0; place <= good.size(); ++place) {
      std::wstring text = good;
      is_refused(text.insert(place, 1, half), std::to_string(place));
    }
  }
}

TEST_F(OddCharacters, SurrogatesInTheWrongOrder_AreRefused) {
  is_refused(L"<INVOICE>\xDE00\xD83D</INVOICE>");
  is_refused(L"<INVOICE>\xD83D\xD83D\xDE00</INVOICE>");
}

TEST_F(OddCharacters, ASurrogatePair_IsTaken) { is_taken(L"<INVOICE>\xD83D\xDE00</INVOICE>"); }

TEST_F(OddCharacters, ControlsAndNonCharacters_AreRefused) {
  for (const wchar_t odd : {L'\x01', L'\x08', L'\x0B', L'\x0C', L'\x1F', L'\xFFFE', L'\xFFFF'}) {
    is_refused(std::wstring(L"<INVOICE>") + odd + L"</INVOICE>", std::to_string(odd));
  }
}

TEST_F(OddCharacters, ReferencesToNoCharacter_AreRefused) {
  for (const wchar_t* reference : {L"&#0;", L"&#x0;", L"&#xD800;", L"&#xFFFF;", L"&#x110000;",
                                   L"&#99999999999;", L"&#-1;", L"&#;", L"&#x;", L"&;", L"&"}) {
    is_refused(std::wstring(L"<INVOICE>") + reference + L"</INVOICE>", host::utf8(reference));
  }
}

TEST_F(OddCharacters, AMarkOfByteOrder_IsTakenOnceAndAtTheStartOnly) {
  is_taken(L"\xFEFF<INVOICE/>");
  is_refused(L"\xFEFF\xFEFF<INVOICE/>");
  is_refused(L" \xFEFF<INVOICE/>");
  is_refused(L"\xFFFE<INVOICE/>");
  is_refused(L"<INVOICE/>\xFEFF");
}

TEST_F(OddCharacters, AnEncodingThatIsNotThatOfTheText_ChangesNoCharacter) {
  for (const wchar_t* name : {L"utf-8", L"utf-16", L"utf-16be", L"iso-8859-1", L"windows-1252"}) {
    const std::wstring text =
        L"<?xml version=\"1.0\" encoding=\"" + std::wstring(name) + L"\"?><INVOICE><N>é€</N></INVOICE>";
    std::wstring grown;
    EXPECT_EQ(hostile::End::Grown, give(0, text, &grown)) << host::utf8(name);
    EXPECT_EQ(L"é€", host::parse_xml(grown).child(L"N").text) << host::utf8(name);
    is_taken(text);
  }
}

TEST_F(OddCharacters, AnEncodingThatNobodyKnows_IsHarmless) {
  for (const wchar_t* name : {L"utf-7", L"ebcdic-cp-us", L"ucs-4", L"nulle-part", L"", L"é"}) {
    stays_harmless(L"<?xml version=\"1.0\" encoding=\"" + std::wstring(name) + L"\"?><INVOICE/>", L"\xFFFD");
  }
}

/// A text whose last unit is half there.
TEST_F(OddCharacters, AnOddNumberOfBytes_IsHarmless) {
  const std::wstring good = L"<INVOICE><N>x</N></INVOICE>";
  for (UINT bytes = 3; bytes <= good.size() * 2 + 1; bytes += 2) {
    BSTR text = SysAllocStringByteLen(reinterpret_cast<const char*>(good.c_str()), bytes);
    count_text();
    for (std::size_t method = 0; method < kMethods; ++method) {
      EXPECT_EQ(bytes > good.size() * 2 ? hostile::End::Grown : hostile::End::Refused, give(method, text))
          << bytes;
    }
    SysFreeString(text);
  }
}

}  // namespace
