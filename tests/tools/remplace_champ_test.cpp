// Outil.RemplaceChamp: every occurrence of a text in a field replaced.
#include "tools/tools_fixture.h"

namespace {

using host::Text;

class RemplaceChamp : public host::ToolsTest {
 protected:
  std::wstring replaced(const wchar_t* field, const wchar_t* searched, const wchar_t* replacement) {
    Text result(L"?");
    EXPECT_EQ(S_OK, tools_->RemplaceChamp(Text(field), Text(searched), Text(replacement), &result));
    return result.str();
  }
};

TEST_F(RemplaceChamp, ReplacesEveryOccurrence) {
  const struct {
    const wchar_t *field, *searched, *replacement, *expected;
  } cases[] = {{L"a;b;c", L";", L", ", L"a, b, c"},
               {L"a;b;c", L";", L"", L"abc"},
               {L"aaa", L"a", L"bb", L"bbbbbb"},
               {L"abc", L"x", L"y", L"abc"},
               {L"", L"a", L"b", L""},
               {L"abc", L"abc", L"", L""},
               {L"Aa", L"a", L"x", L"Ax"},
               {L"a\r\nb", L"\r\n", L" ", L"a b"}};
  for (const auto& [field, searched, replacement, expected] : cases) {
    EXPECT_EQ(expected, replaced(field, searched, replacement)) << host::utf8(field);
  }
}

TEST_F(RemplaceChamp, GoesFromLeftToRightAndNotOverWhatItWrote) {
  EXPECT_EQ(L"ba", replaced(L"aaa", L"aa", L"b"));
  EXPECT_EQ(L"aaaa", replaced(L"aa", L"a", L"aa"));
}

TEST_F(RemplaceChamp, LeavesAFieldForAnEmptySearch) { EXPECT_EQ(L"abc", replaced(L"abc", L"", L"x")); }

TEST_F(RemplaceChamp, LeavesItsArguments) {
  Text field(L"a;b"), searched(L";"), replacement(L"-"), result;
  ASSERT_EQ(S_OK, tools_->RemplaceChamp(field, searched, replacement, &result));
  EXPECT_EQ(L"a-b", result.str());
  EXPECT_EQ(L"a;b", field.str());
  EXPECT_EQ(L";", searched.str());
  EXPECT_EQ(L"-", replacement.str());
}

TEST_F(RemplaceChamp, AnswersALateBoundCall) {
  host::Variant result;
  ASSERT_EQ(S_OK, host::call(tools_.get(), L"RemplaceChamp",
                             host::arguments(host::text_value(L"a;b"), host::text_value(L";"),
                                             host::text_value(L"-")),
                             result.receive()));
  ASSERT_EQ(VT_BSTR, result.get().vt);
  EXPECT_EQ(L"a-b", host::get(result.get().bstrVal));
}

TEST_F(RemplaceChamp, RefusesANullPointer) {
  EXPECT_EQ(E_POINTER, tools_->RemplaceChamp(Text(L"a"), Text(L"a"), Text(L"b"), nullptr));
}

}  // namespace
