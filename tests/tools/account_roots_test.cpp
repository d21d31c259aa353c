// Outil.IsRacinesValides, IsCompteValide: lists of account roots and accounts that start with one.
#include "tools/tools_fixture.h"

namespace {

using host::Text;
using host::Variant;

/// The verdict and what the three texts are afterwards.
struct Outcome {
  bool valid;
  std::wstring roots, account_class, excluded;
  friend bool operator==(const Outcome&, const Outcome&) = default;
};

void PrintTo(const Outcome& outcome, std::ostream* stream) {
  *stream << outcome.valid << " \"" << host::utf8(outcome.roots) << "\" \""
          << host::utf8(outcome.account_class) << "\" \"" << host::utf8(outcome.excluded) << '"';
}

class IsRacinesValides : public host::ToolsTest {
 protected:
  Outcome check(const wchar_t* roots, const wchar_t* account_class = L"", const wchar_t* excluded = L"") {
    Text roots_text(roots), class_text(account_class), excluded_text(excluded);
    VARIANT_BOOL result = 77;
    EXPECT_EQ(S_OK, tools_->IsRacinesValides(roots_text.in_out(), class_text.in_out(), excluded_text.in_out(),
                                             &result));
    EXPECT_TRUE(result == VARIANT_TRUE || result == VARIANT_FALSE);
    return {result == VARIANT_TRUE, roots_text.str(), class_text.str(), excluded_text.str()};
  }
  bool valid(const wchar_t* roots) { return check(roots).valid; }
};

TEST_F(IsRacinesValides, TrimsTheRootsAndJoinsThemWithoutBlanks) {
  EXPECT_EQ((Outcome{true, L"401;411", L"", L""}), check(L"401 ; 411"));
  EXPECT_EQ((Outcome{true, L"401", L"", L""}), check(L"  401  "));
}

TEST_F(IsRacinesValides, TakesDigitsAndCapitalsFromTheThirdCharacterOn) {
  const struct {
    const wchar_t* roots;
    bool expected;
  } cases[] = {{L"40A", true},      {L"4", true},        {L"0", true},        {L"9", true},
               {L"41Z9", true},     {L"4A1", false},     {L"A01", false},     {L"Z", false},
               {L"411x", false},    {L"41a", false},     {L"4 1", false},     {L"-41", false},
               {L"4.1", false},     {L"41É", false},     {L"41@", false},     {L"41[", false},
               {L"4/1", false},     {L"4:1", false},     {L"401,411", false}, {L"\t401", false},
               {L"401;4A1", false}, {L"401;411x", false}};
  for (const auto& [roots, expected] : cases) EXPECT_EQ(expected, valid(roots)) << host::utf8(roots);
}

TEST_F(IsRacinesValides, TakesAtMostNineCharacters) {
  EXPECT_TRUE(valid(L"411111111"));
  EXPECT_TRUE(valid(L"  411111111  "));
  EXPECT_FALSE(valid(L"4111111111"));
}

TEST_F(IsRacinesValides, LeavesEveryTextForARootThatIsTooLong) {
  EXPECT_EQ((Outcome{false, L"401 ; 4111111111", L"4", L"5"}), check(L"401 ; 4111111111", L"4", L"5"));
}

TEST_F(IsRacinesValides, IsFalseForTheEmptyListAndForAnEmptyFirstRoot) {
  for (const wchar_t* roots : {L"", L"   ", L";", L";401", L" ;401"}) {
    EXPECT_FALSE(valid(roots)) << host::utf8(roots);
  }
}

TEST_F(IsRacinesValides, KeepsTheVerdictAtAnEmptyRootBehindAValidOne) {
  EXPECT_EQ((Outcome{true, L"401;;411", L"", L""}), check(L"401;;411"));
  EXPECT_EQ((Outcome{true, L"401;", L"", L""}), check(L"401; "));
  EXPECT_EQ((Outcome{true, L"401", L"", L""}), check(L"401;"));
}

TEST_F(IsRacinesValides, LeavesTheListWhenItIsInvalid) {
  EXPECT_EQ((Outcome{false, L"401 ; 4A1", L"", L""}), check(L"401 ; 4A1"));
}

TEST_F(IsRacinesValides, NamesTheRootOutsideTheClass) {
  EXPECT_EQ((Outcome{false, L"401;512", L"512", L""}), check(L"401;512", L"4"));
  EXPECT_EQ((Outcome{false, L"401; 512 ;60", L"512", L"7"}), check(L"401; 512 ;60", L"4", L"7"));
}

TEST_F(IsRacinesValides, LeavesTheClassWhenEveryRootIsInIt) {
  EXPECT_EQ((Outcome{true, L"401;411", L"4", L""}), check(L"401; 411", L"4"));
}

TEST_F(IsRacinesValides, ComparesTheFirstCharacterWithTheWholeClass) {
  EXPECT_EQ((Outcome{false, L"411", L"411", L""}), check(L"411", L"41"));
}

TEST_F(IsRacinesValides, PutsAnEmptyRootOutsideEveryClass) {
  EXPECT_EQ((Outcome{false, L"401;;411", L"", L""}), check(L"401;;411", L"4"));
}

TEST_F(IsRacinesValides, NamesTheExcludedRoot) {
  EXPECT_EQ((Outcome{false, L"401;411", L"", L"401"}), check(L"401;411", L"", L"40"));
  EXPECT_EQ((Outcome{false, L"401;411", L"", L"411"}), check(L"401;411", L"", L"7 ; 411 ;6"));
  EXPECT_EQ((Outcome{false, L"401;40A1", L"", L"40A1"}), check(L"401;40A1", L"", L"40a"));
}

TEST_F(IsRacinesValides, LeavesTheExclusionsThatMatchNoRoot) {
  EXPECT_EQ((Outcome{true, L"401;411", L"4", L"4011;42; 5"}), check(L"401 ;411", L"4", L"4011;42; 5"));
}

TEST_F(IsRacinesValides, ExcludesEveryRootByAnEmptyEntry) {
  EXPECT_EQ((Outcome{false, L"401", L"", L"401"}), check(L"401", L"", L"7;;8"));
}

TEST_F(IsRacinesValides, TestsTheClassBeforeTheExclusions) {
  EXPECT_EQ((Outcome{false, L"512", L"512", L"51"}), check(L"512", L"4", L"51"));
}

TEST_F(IsRacinesValides, EmptiesTheExclusionsWhenARootIsMalformed) {
  EXPECT_EQ((Outcome{false, L"401;4a", L"4", L""}), check(L"401;4a", L"4", L"5"));
  EXPECT_EQ((Outcome{false, L"", L"4", L""}), check(L"", L"4", L"5"));
}

TEST_F(IsRacinesValides, FindsAMalformedRootBeforeItsClass) {
  EXPECT_EQ((Outcome{false, L"5x", L"4", L""}), check(L"5x", L"4", L"5"));
}

TEST_F(IsRacinesValides, TakesNullAddressesForMissingTexts) {
  VARIANT_BOOL result = 77;
  Text roots(L"401 ; 512"), excluded(L"51");
  ASSERT_EQ(S_OK, tools_->IsRacinesValides(roots.in_out(), nullptr, nullptr, &result));
  EXPECT_EQ(VARIANT_TRUE, result);
  EXPECT_EQ(L"401;512", roots.str());
  ASSERT_EQ(S_OK, tools_->IsRacinesValides(roots.in_out(), nullptr, excluded.in_out(), &result));
  EXPECT_EQ(VARIANT_FALSE, result);
  EXPECT_EQ(L"512", excluded.str());
  Text malformed(L"x");
  ASSERT_EQ(S_OK, tools_->IsRacinesValides(malformed.in_out(), nullptr, nullptr, &result));
  EXPECT_EQ(VARIANT_FALSE, result);
}

TEST_F(IsRacinesValides, AnswersALateBoundCallWithoutItsOptionalTexts) {
  Variant roots = host::text_value(L"401 ; 411"), result;
  ASSERT_EQ(S_OK, host::call(tools_.get(), L"IsRacinesValides",
                             host::arguments(host::by_reference(roots.get())), result.receive()));
  ASSERT_EQ(VT_BOOL, result.get().vt);
  EXPECT_EQ(VARIANT_TRUE, result.get().boolVal);
  EXPECT_EQ(L"401;411", host::get(roots.get().bstrVal));
}

TEST_F(IsRacinesValides, AnswersALateBoundCallAndWritesItsTextsBack) {
  Variant roots = host::text_value(L"401;411"), excluded = host::text_value(L"40"), result;
  ASSERT_EQ(S_OK, host::call(tools_.get(), L"IsRacinesValides",
                             host::arguments(host::by_reference(roots.get()), host::missing(),
                                             host::by_reference(excluded.get())),
                             result.receive()));
  EXPECT_EQ(VARIANT_FALSE, result.get().boolVal);
  EXPECT_EQ(L"401", host::get(excluded.get().bstrVal));
}

TEST_F(IsRacinesValides, RefusesNullPointers) {
  Text roots(L"401");
  VARIANT_BOOL result = 0;
  EXPECT_EQ(E_POINTER, tools_->IsRacinesValides(nullptr, nullptr, nullptr, &result));
  EXPECT_EQ(E_POINTER, tools_->IsRacinesValides(roots.in_out(), nullptr, nullptr, nullptr));
}

class IsCompteValide : public host::ToolsTest {
 protected:
  /// The verdict, and the account afterwards.
  std::pair<bool, std::wstring> check(const wchar_t* account, const wchar_t* roots, bool complete = false) {
    Text text(account);
    VARIANT_BOOL result = 77;
    EXPECT_EQ(S_OK, tools_->IsCompteValide(text.in_out(), Text(roots), velmosav::to_variant_bool(complete),
                                           &result));
    return {result == VARIANT_TRUE, text.str()};
  }
};

using Answer = std::pair<bool, std::wstring>;

TEST_F(IsCompteValide, IsTrueForAnAccountThatStartsWithOneOfTheRoots) {
  EXPECT_EQ((Answer{true, L"411000123"}), check(L"411000123", L"401;411"));
  EXPECT_EQ((Answer{true, L"411"}), check(L"411", L" 401 ; 411 "));
}

TEST_F(IsCompteValide, IsFalseForAnyOtherAccount) {
  for (const wchar_t* account : {L"512000", L"41", L"", L" 411", L"1411"}) {
    EXPECT_EQ((Answer{false, account}), check(account, L"401;411")) << host::utf8(account);
  }
}

TEST_F(IsCompteValide, CompletesAWrongAccountFromTheFirstRoot) {
  EXPECT_EQ((Answer{false, L"401000000"}), check(L"512000", L"401;411", true));
  EXPECT_EQ((Answer{false, L"411000000"}), check(L"", L" ;; 411 ;401", true));
}

TEST_F(IsCompteValide, CutsALongFirstRootToNineCharacters) {
  EXPECT_EQ((Answer{false, L"401234567"}), check(L"512", L"401234567890", true));
  EXPECT_EQ((Answer{false, L"401234567"}), check(L"512", L"401234567", true));
}

TEST_F(IsCompteValide, LeavesARightAccount) {
  EXPECT_EQ((Answer{true, L"411000123"}), check(L"411000123", L"401;411", true));
}

TEST_F(IsCompteValide, IsFalseForAnEmptyListAndEmptiesTheAccountOnDemand) {
  for (const wchar_t* roots : {L"", L"   ", L";", L" ; ;"}) {
    EXPECT_EQ((Answer{false, L"411"}), check(L"411", roots)) << host::utf8(roots);
    EXPECT_EQ((Answer{false, L""}), check(L"411", roots, true)) << host::utf8(roots);
  }
}

TEST_F(IsCompteValide, IgnoresCase) {
  EXPECT_TRUE(check(L"41a00", L"41A").first);
  EXPECT_TRUE(check(L"41A00", L"41a").first);
  EXPECT_TRUE(check(L"éa", L"É").first);
}

TEST_F(IsCompteValide, CompletesWithTheRootAsItIsWritten) {
  EXPECT_EQ((Answer{false, L"41a000000"}), check(L"512", L"41a", true));
}

TEST_F(IsCompteValide, AnswersALateBoundCallWithAndWithoutTheFlag) {
  Variant account = host::text_value(L"512"), result;
  ASSERT_EQ(S_OK, host::call(tools_.get(), L"IsCompteValide",
                             host::arguments(host::by_reference(account.get()), host::text_value(L"401")),
                             result.receive()));
  ASSERT_EQ(VT_BOOL, result.get().vt);
  EXPECT_EQ(VARIANT_FALSE, result.get().boolVal);
  EXPECT_EQ(L"512", host::get(account.get().bstrVal));
  ASSERT_EQ(S_OK, host::call(tools_.get(), L"IsCompteValide",
                             host::arguments(host::by_reference(account.get()), host::text_value(L"401"),
                                             host::bool_value(true)),
                             result.receive()));
  EXPECT_EQ(L"401000000", host::get(account.get().bstrVal));
}

TEST_F(IsCompteValide, RefusesNullPointers) {
  Text account(L"411");
  VARIANT_BOOL result = 0;
  EXPECT_EQ(E_POINTER, tools_->IsCompteValide(nullptr, account, VARIANT_FALSE, &result));
  EXPECT_EQ(E_POINTER, tools_->IsCompteValide(account.in_out(), account, VARIANT_FALSE, nullptr));
}

}  // namespace
