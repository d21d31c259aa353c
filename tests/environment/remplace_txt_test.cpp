// ApiGeneral.RemplaceTxt: replacement of a text in a text, in place, ignoring letter case.
#include "support/arguments.h"

namespace {

using namespace host;

std::wstring replaced(const wchar_t* text, const wchar_t* searched, const wchar_t* replacement) {
  Text argument(text);
  EXPECT_EQ(
      S_OK,
      create<_ApiGeneral>(L"ApiGeneral")->RemplaceTxt(argument.in_out(), Text(searched), Text(replacement)));
  return argument.str();
}

struct Replacement {
  const wchar_t* text;
  const wchar_t* searched;
  const wchar_t* replacement;
  const wchar_t* expected;
};

void expect_replacements(std::initializer_list<Replacement> cases) {
  for (const Replacement& test : cases) {
    EXPECT_EQ(Text(test.expected), replaced(test.text, test.searched, test.replacement))
        << utf8(test.text) << ": " << utf8(test.searched) << " by " << utf8(test.replacement);
  }
}

TEST(ApiGeneral, RemplaceTxt_ReplacesAWordInThreeLetterCases) {
  expect_replacements({{L"contrat, Contrat, CONTRAT", L"contrat", L"x", L"x, x, x"}});
}

TEST(ApiGeneral, RemplaceTxt_CaseOfTheSearchTextDoesNotMatter) {
  expect_replacements(
      {{L"un Mot un mot", L"MOT", L"x", L"un x un x"}, {L"un Mot un mot", L"mOt", L"x", L"un x un x"}});
}

/// A text that says to be longer than any can be; its letters are never looked at.
class EndlessText {
 public:
  operator BSTR() const { return const_cast<BSTR>(text_.letters); }

 private:
  struct {
    UINT bytes = 0x80000000;
    wchar_t letters[2] = {L'x', 0};
  } text_;
};

TEST(ApiGeneral, RemplaceTxt_ResultLongerThanATextCanBeIsOutOfMemoryAndTheTextStays) {
  Text text(L"a-a");
  EXPECT_EQ(E_OUTOFMEMORY,
            create<_ApiGeneral>(L"ApiGeneral")->RemplaceTxt(text.in_out(), Text(L"a"), EndlessText()));
  EXPECT_EQ(L"a-a", text.str());
  EXPECT_EQ(L"VelmoSAV_DLL14.ApiGeneral", take_error().source);
}

TEST(ApiGeneral, RemplaceTxt_AccentedLettersHaveACaseToo) {
  expect_replacements({{L"été ÉTÉ Été", L"été", L"hiver", L"hiver hiver hiver"},
                       {L"ÇA ça", L"Ça", L"x", L"x x"},
                       {L"ete", L"été", L"x", L"ete"}});
}

TEST(ApiGeneral, RemplaceTxt_ReplacementThatHoldsTheSearchTextIsNotSearchedAgain) {
  expect_replacements({{L"a", L"a", L"aa", L"aa"}, {L"A-a", L"a", L"bab", L"bab-bab"}});
}

TEST(ApiGeneral, RemplaceTxt_UntouchedPartsAndTheReplacementKeepTheirCase) {
  expect_replacements({{L"Le Code du Client", L"code", L"nuMÉro", L"Le nuMÉro du Client"}});
}

TEST(ApiGeneral, RemplaceTxt_OccurrencesDoNotOverlap) {
  expect_replacements(
      {{L"aaa", L"aa", L"b", L"ba"}, {L"aaaa", L"aa", L"b", L"bb"}, {L"ababa", L"aba", L"x", L"xba"}});
}

TEST(ApiGeneral, RemplaceTxt_OccurrenceThatTheJoinMakesIsNotReplaced) {
  expect_replacements(
      {{L"aabb", L"ab", L"", L"ab"}, {L"xaby", L"ab", L"a", L"xay"}, {L"aab", L"ab", L"b", L"ab"}});
}

TEST(ApiGeneral, RemplaceTxt_EmptyReplacementTakesTheTextOut) {
  expect_replacements({{L"aXbxc", L"x", L"", L"abc"}, {L"xxx", L"X", L"", L""}});
}

TEST(ApiGeneral, RemplaceTxt_FirstAndLastPlaceCount) {
  expect_replacements({{L"{N} de {N}", L"{n}", L"12", L"12 de 12"}, {L"fin", L"fin", L"suite", L"suite"}});
}

TEST(ApiGeneral, RemplaceTxt_WithoutOccurrenceTheTextStays) {
  expect_replacements(
      {{L"Contrat", L"bon", L"x", L"Contrat"}, {L"ab", L"abc", L"x", L"ab"}, {L"", L"a", L"x", L""}});
}

TEST(ApiGeneral, RemplaceTxt_EmptySearchTextLeavesTheTextUnchanged) {
  expect_replacements(
      {{L"Contrat", L"", L"", L"Contrat"}, {L"Contrat", L"", L"x", L"Contrat"}, {L"", L"", L"x", L""}});
}

TEST(ApiGeneral, RemplaceTxt_NullTextsAreEmptyOnes) {
  const auto general = create<_ApiGeneral>(L"ApiGeneral");
  BSTR none = nullptr;
  EXPECT_EQ(S_OK, general->RemplaceTxt(&none, Text(L"a"), Text(L"b")));
  EXPECT_EQ(0u, SysStringLen(none));
  SysFreeString(none);

  Text text(L"a-A");
  EXPECT_EQ(S_OK, general->RemplaceTxt(text.in_out(), nullptr, Text(L"b")));
  EXPECT_EQ(L"a-A", text.str());
  EXPECT_EQ(S_OK, general->RemplaceTxt(text.in_out(), Text(L"a"), nullptr));
  EXPECT_EQ(L"-", text.str());
}

TEST(ApiGeneral, RemplaceTxt_NullCharactersAreCharacters) {
  const auto general = create<_ApiGeneral>(L"ApiGeneral");
  Text text(std::wstring_view(L"a\0b\0A", 5));
  EXPECT_EQ(S_OK, general->RemplaceTxt(text.in_out(), Text(L"a"), Text(L"xy")));
  EXPECT_EQ(text, std::wstring_view(L"xy\0b\0xy", 7));
}

TEST(ApiGeneral, RemplaceTxt_LongTextIsReplacedThroughout) {
  std::wstring text, expected;
  for (int i = 0; i < 20000; ++i) {
    text += i % 2 ? L"Ab;" : L"aB;";
    expected += L"<ab>;";
  }
  EXPECT_EQ(expected, replaced(text.c_str(), L"ab", L"<ab>"));
}

TEST(ApiGeneral, RemplaceTxt_NullTextAddressIsEPointer) {
  EXPECT_EQ(E_POINTER, create<_ApiGeneral>(L"ApiGeneral")->RemplaceTxt(nullptr, Text(L"a"), Text(L"b")));
}

TEST(ApiGeneral, RemplaceTxt_LateBoundChangesTheCallersText) {
  Text text(L"Mot mot");
  ASSERT_EQ(S_OK, call(create_dispatch(L"ApiGeneral").get(), L"RemplaceTxt",
                       arguments(by_reference(text), text_value(L"MOT"), text_value(L"x")), nullptr));
  EXPECT_EQ(L"x x", text.str());
}

TEST(ApiGeneral, RemplaceTxt_LateBoundChangesAScriptsVariable) {
  Variant text = text_value(L"Mot mot");
  ASSERT_EQ(S_OK, call(create_dispatch(L"ApiGeneral").get(), L"RemplaceTxt",
                       arguments(by_reference(text.get()), text_value(L"MOT"), text_value(L"x")), nullptr));
  EXPECT_EQ(L"x x", velmosav::view(text.get().bstrVal));
}

}  // namespace
