// Outil: SQL literals and lists of codes: building, walking, shrinking.
#include "tools/tools_fixture.h"

namespace {

using host::Text;
using host::Variant;

class CodeLists : public host::ToolsTest {
 protected:
  std::wstring literal(const wchar_t* text) {
    Text result(L"?");
    EXPECT_EQ(S_OK, tools_->SetStringForSQL(Text(text), &result));
    return result.str();
  }
  std::wstring appended(const wchar_t* list, const wchar_t* code) {
    Text text(list);
    EXPECT_EQ(S_OK, tools_->ListeCodes_ConcateneCode(text.in_out(), Text(code)));
    return text.str();
  }
  /// The code taken and the rest, joined by " | ".
  std::wstring taken(const wchar_t* list) {
    Text text(list), code(L"?");
    EXPECT_EQ(S_OK, tools_->ListeCodes_GetNextCode_Token(text.in_out(), &code));
    return code.str() + L" | " + text.str();
  }
  std::wstring without(const wchar_t* list, const wchar_t* code) {
    Text text(list);
    EXPECT_EQ(S_OK, tools_->ListeCodes_ExtractionCode(text.in_out(), Text(code)));
    return text.str();
  }
};

TEST_F(CodeLists, SetStringForSqlWrapsATextWithoutQuote) {
  EXPECT_EQ(LR"("A01")", literal(L"A01"));
  EXPECT_EQ(LR"(" A ")", literal(L" A "));
  EXPECT_EQ(LR"("l'été")", literal(L"l'été"));
}

TEST_F(CodeLists, SetStringForSqlOfTheEmptyTextIsAnEmptyLiteral) {
  EXPECT_EQ(LR"("")", literal(L""));
  Text result;
  ASSERT_EQ(S_OK, tools_->SetStringForSQL(nullptr, &result));
  EXPECT_EQ(LR"("")", result.str());
}

TEST_F(CodeLists, SetStringForSqlOfOneQuoteGivesFour) { EXPECT_EQ(LR"("""")", literal(LR"(")")); }

TEST_F(CodeLists, SetStringForSqlDoublesEveryInnerQuote) {
  EXPECT_EQ(LR"("a""b")", literal(LR"(a"b)"));
  EXPECT_EQ(LR"("""a")", literal(LR"("a)"));
  EXPECT_EQ(LR"("a""")", literal(LR"(a")"));
  EXPECT_EQ(LR"("a""""b")", literal(LR"(a""b)"));
  EXPECT_EQ(LR"("""""")", literal(LR"("")"));
}

TEST_F(CodeLists, ConcateneCodeAddsNoSeparatorToAnEmptyList) {
  EXPECT_EQ(LR"("A01")", appended(L"", L"A01"));
}

TEST_F(CodeLists, ConcateneCodeAddsSeparatorAndBlankToAList) {
  EXPECT_EQ(LR"("A01", "B02")", appended(LR"("A01")", L"B02"));
}

TEST_F(CodeLists, ConcateneCodeTakesABlankListForAList) { EXPECT_EQ(LR"( , "A")", appended(L" ", L"A")); }

TEST_F(CodeLists, ConcateneCodeAddsDuplicatesAndEmptyCodes) {
  EXPECT_EQ(LR"("A", "A")", appended(LR"("A")", L"A"));
  EXPECT_EQ(LR"("A", "")", appended(LR"("A")", L""));
  EXPECT_EQ(LR"("")", appended(L"", L""));
}

TEST_F(CodeLists, ConcateneCodeDoublesQuotes) {
  EXPECT_EQ(LR"("A", "b""c")", appended(LR"("A")", LR"(b"c)"));
}

TEST_F(CodeLists, ThreeConcatenatedCodesCountThree) {
  Text list;
  short count = 0;
  for (const wchar_t* code : {L"A01", L"B02", L"C03"}) {
    ASSERT_EQ(S_OK, tools_->ListeCodes_ConcateneCode(list.in_out(), Text(code)));
  }
  EXPECT_EQ(LR"("A01", "B02", "C03")", list.str());
  ASSERT_EQ(S_OK, tools_->ListeCodes_NbCodes(list, &count));
  EXPECT_EQ(3, count);
}

TEST_F(CodeLists, GetNextCodeTokenTakesTheFirstCodeAndItsSeparator) {
  EXPECT_EQ(LR"(A01 | "B02", "C03")", taken(LR"("A01", "B02", "C03")"));
  EXPECT_EQ(LR"(A01 | )", taken(LR"("A01")"));
  EXPECT_EQ(LR"( | "B02")", taken(LR"("", "B02")"));
}

TEST_F(CodeLists, GetNextCodeTokenLeavesATextThatStartsWithABlank) {
  EXPECT_EQ(LR"( |  "A01", "B02")", taken(LR"( "A01", "B02")"));
}

TEST_F(CodeLists, GetNextCodeTokenLeavesATextThatIsNoList) {
  EXPECT_EQ(L" | A01", taken(L"A01"));
  EXPECT_EQ(L" | , x", taken(L", x"));
  EXPECT_EQ(L" | ", taken(L""));
}

TEST_F(CodeLists, GetNextCodeTokenCutsACodeAtItsFirstInnerQuote) {
  EXPECT_EQ(LR"(a | "b", "C")", taken(LR"("a""b", "C")"));
}

TEST_F(CodeLists, GetNextCodeTokenTakesAnUnfinishedCodeWhole) {
  EXPECT_EQ(L"A01 | ", taken(LR"("A01)"));
  EXPECT_EQ(L" | ", taken(LR"(")"));
}

TEST_F(CodeLists, GetNextCodeTokenTrimsTheRestOnlyBehindASeparator) {
  EXPECT_EQ(LR"(A | "B")", taken(LR"("A",   "B"  )"));
  EXPECT_EQ(LR"(A | "B")", taken(LR"("A","B")"));
  EXPECT_EQ(LR"(A |   , "B")", taken(LR"("A"  , "B")"));
  EXPECT_EQ(LR"(A | ; "B")", taken(LR"("A"; "B")"));
  EXPECT_EQ(LR"(A |    )", taken(LR"("A"   )"));
  EXPECT_EQ(LR"(A | )", taken(LR"("A", )"));
}

TEST_F(CodeLists, ExtractionCodeRemovesACodeWithWhatFollowsIt) {
  EXPECT_EQ(LR"("B02", "C03")", without(LR"("A01", "B02", "C03")", L"A01"));
  EXPECT_EQ(LR"("A01", "C03")", without(LR"("A01", "B02", "C03")", L"B02"));
  EXPECT_EQ(LR"("A01","C03")", without(LR"("A01","B02","C03")", L"B02"));
}

TEST_F(CodeLists, ExtractionCodeOfTheLastCodeLeavesTheSeparatorBeforeIt) {
  EXPECT_EQ(LR"("A01", "B02", )", without(LR"("A01", "B02", "C03")", L"C03"));
}

TEST_F(CodeLists, ExtractionCodeOfTheOnlyCodeLeavesNothing) { EXPECT_EQ(L"", without(LR"("A01")", L"A01")); }

TEST_F(CodeLists, ExtractionCodeLeavesAListWithoutTheCode) {
  EXPECT_EQ(LR"("A01", "B02")", without(LR"("A01", "B02")", L"C03"));
  EXPECT_EQ(LR"("A01", "B02")", without(LR"("A01", "B02")", L"A0"));
  EXPECT_EQ(LR"("A01", "B02")", without(LR"("A01", "B02")", L"01"));
}

TEST_F(CodeLists, ExtractionCodeLeavesTheListForABlankCode) {
  EXPECT_EQ(LR"("", " ", "A")", without(LR"("", " ", "A")", L""));
  EXPECT_EQ(LR"("", " ", "A")", without(LR"("", " ", "A")", L" "));
}

TEST_F(CodeLists, ExtractionCodeLeavesABlankList) {
  EXPECT_EQ(L"", without(L"", L"A"));
  EXPECT_EQ(L"   ", without(L"   ", L"A"));
}

TEST_F(CodeLists, ExtractionCodeComparesCaseSensitively) {
  EXPECT_EQ(LR"("A01", "B02")", without(LR"("A01", "B02")", L"a01"));
}

TEST_F(CodeLists, ExtractionCodeSearchesTheUntrimmedCode) {
  EXPECT_EQ(LR"("A", "B")", without(LR"("A", " A ", "B")", L" A "));
}

TEST_F(CodeLists, ExtractionCodeRemovesTheFirstOccurrenceOnly) {
  EXPECT_EQ(LR"("B", "A", "C")", without(LR"("A", "B", "A", "C")", L"A"));
}

TEST_F(CodeLists, ExtractionCodePrefersAnOccurrenceWithSeparatorAndBlank) {
  EXPECT_EQ(LR"("A","B","C")", without(LR"("A","B","A", "C")", L"A"));
  EXPECT_EQ(LR"("A" "B","C")", without(LR"("A" "B","A","C")", L"A"));
}

TEST_F(CodeLists, ExtractionCodeSearchesTheDoubledQuotes) {
  EXPECT_EQ(LR"("A", "C")", without(LR"("A", "b""c", "C")", LR"(b"c)"));
}

TEST_F(CodeLists, AnswerLateBoundCalls) {
  Variant list, result;
  const auto run = [&](const wchar_t* name, std::vector<Variant> arguments) {
    EXPECT_EQ(S_OK, host::call(tools_.get(), name, std::move(arguments), result.receive()))
        << host::utf8(name);
  };
  run(L"SetStringForSQL", host::arguments(host::text_value(LR"(a"b)")));
  EXPECT_EQ(LR"("a""b")", host::get(result.get().bstrVal));
  run(L"ListeCodes_ConcateneCode", host::arguments(host::by_reference(list.get()), host::text_value(L"A")));
  run(L"ListeCodes_ConcateneCode", host::arguments(host::by_reference(list.get()), host::text_value(L"B")));
  ASSERT_EQ(VT_BSTR, list.get().vt);
  EXPECT_EQ(LR"("A", "B")", host::get(list.get().bstrVal));
  run(L"ListeCodes_NbCodes", host::arguments(host::by_reference(list.get())));
  ASSERT_EQ(VT_I2, result.get().vt);
  EXPECT_EQ(2, result.get().iVal);
  run(L"ListeCodes_GetNextCode_Token", host::arguments(host::by_reference(list.get())));
  EXPECT_EQ(L"A", host::get(result.get().bstrVal));
  EXPECT_EQ(LR"("B")", host::get(list.get().bstrVal));
  run(L"ListeCodes_ExtractionCode", host::arguments(host::by_reference(list.get()), host::text_value(L"B")));
  EXPECT_EQ(L"", host::get(list.get().bstrVal));
}

TEST_F(CodeLists, RefuseNullPointers) {
  Text list, result;
  short count = 0;
  EXPECT_EQ(E_POINTER, tools_->SetStringForSQL(list, nullptr));
  EXPECT_EQ(E_POINTER, tools_->ListeCodes_ConcateneCode(nullptr, list));
  EXPECT_EQ(E_POINTER, tools_->ListeCodes_GetNextCode_Token(nullptr, &result));
  EXPECT_EQ(E_POINTER, tools_->ListeCodes_GetNextCode_Token(list.in_out(), nullptr));
  EXPECT_EQ(E_POINTER, tools_->ListeCodes_NbCodes(list, nullptr));
  EXPECT_EQ(E_POINTER, tools_->ListeCodes_ExtractionCode(nullptr, list));
  EXPECT_EQ(S_OK, tools_->ListeCodes_NbCodes(nullptr, &count));
}

}  // namespace
