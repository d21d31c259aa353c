// ClsDLLTrad: the members take their texts from the host's translation link.
#include <algorithm>

#include "services/translation_fixture.h"

namespace host {
namespace {

TEST_F(ClsDLLTrad, BeforeInitialisation_EveryMemberIsEmpty) { EXPECT_EQ(Texts(kMembers), texts()); }

TEST_F(ClsDLLTrad, DllInitialisationTrad_GSituatDde_Reads1097) {
  EXPECT_EQ(S_OK, initialise());
  Text text;
  EXPECT_EQ(S_OK, translation_->get_G_Situat_Dde(&text));
  EXPECT_EQ(L"1097", text.str());
}

TEST_F(ClsDLLTrad, DllInitialisationTrad_GFmtMotifResil_ReadsIndetermine) {
  EXPECT_EQ(S_OK, initialise());
  Text text;
  EXPECT_EQ(S_OK, translation_->get_G_FmtMotifResil(&text));
  EXPECT_EQ(L"&Indéterminé", text.str());
}

class ClsDLLTradMember : public ClsDLLTrad, public ::testing::WithParamInterface<TranslatedMember> {};

TEST_P(ClsDLLTradMember, DllInitialisationTrad_SetsItToTheTextOfItsIdentifier) {
  host_.prefix = L"été ";
  ASSERT_EQ(S_OK, initialise());
  const long identifier = GetParam().identifier;
  const std::wstring expected = identifier == 0 ? L"&Indéterminé" : L"été " + std::to_wstring(identifier);
  Text early;
  EXPECT_EQ(S_OK, (translation_.get()->*GetParam().get)(&early));
  EXPECT_EQ(utf8(expected), utf8(early.str()));
  const std::string name = GetParam().name;
  Variant late;
  EXPECT_EQ(S_OK,
            get_property(translation_.get(), std::wstring(name.begin(), name.end()).c_str(), late.receive()));
  ASSERT_EQ(VT_BSTR, late.get().vt);
  EXPECT_EQ(utf8(expected), utf8(velmosav::view(late.get().bstrVal)));
}

INSTANTIATE_TEST_SUITE_P(Members, ClsDLLTradMember, ::testing::ValuesIn(translated_members()),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(ClsDLLTrad, DllInitialisationTrad_AsksForTheIdentifiersInTheMembersOrder) {
  ASSERT_EQ(S_OK, initialise());
  std::vector<long> expected;
  for (const TranslatedMember& member : translated_members()) {
    if (member.identifier != 0) expected.push_back(member.identifier);
  }
  ASSERT_EQ(kFetches, expected.size());
  EXPECT_EQ(expected, identifiers());
}

TEST_F(ClsDLLTrad, DllInitialisationTrad_PassesIdentifiersUpTo32767AsSixteenBitNumbers) {
  ASSERT_EQ(S_OK, initialise());
  std::size_t sixteen_bits = 0;
  for (const Request& request : host_.requests) {
    EXPECT_EQ(request.identifier <= 32767 ? VT_I2 : VT_I4, request.type) << request.identifier;
    if (request.type == VT_I2) ++sixteen_bits;
  }
  EXPECT_EQ(27U, sixteen_bits);
}

TEST_F(ClsDLLTrad, DllInitialisationTrad_UsesOneLinkForAllCalls) {
  ASSERT_EQ(S_OK, initialise());
  ASSERT_EQ(1U, host_.links.size());
  EXPECT_EQ(std::vector<std::wstring>(kFetches, L"call GetTraduction_EXE(1)"), host_.links[0]->log);
}

TEST_F(ClsDLLTrad, DllInitialisationTrad_TakesTheLinkOfTheProgramThatIsNamed) {
  TranslationHost other(L"AutreHote");
  other.prefix = L"autre ";
  EXPECT_EQ(S_OK, initialise(L"AutreHote"));
  EXPECT_EQ(expected_texts(L"autre "), texts());
  EXPECT_TRUE(host_.requests.empty());
}

TEST_F(ClsDLLTrad, DllInitialisationTrad_ReplacesWhatTheHostHadAssigned) {
  assign_texts(translation_.get(), L"hôte ");
  ASSERT_EQ(S_OK, initialise());
  EXPECT_EQ(expected_texts(), texts());
}

TEST_F(ClsDLLTrad, DllInitialisationTrad_CalledTwice_ReplacesTheLink) {
  ASSERT_EQ(S_OK, initialise());
  ASSERT_EQ(1U, host_.links.size());
  EXPECT_EQ(2, host_.links[0]->references());
  ASSERT_EQ(S_OK, initialise());
  ASSERT_EQ(2U, host_.links.size());
  EXPECT_EQ(1, host_.links[0]->references());
  EXPECT_EQ(2, host_.links[1]->references());
}

TEST_F(ClsDLLTrad, DllInitialisationTrad_CalledTwice_ReloadsEveryMember) {
  ASSERT_EQ(S_OK, initialise());
  host_.prefix = L"nouveau ";
  ASSERT_EQ(S_OK, initialise());
  EXPECT_EQ(expected_texts(L"nouveau "), texts());
}

TEST_F(ClsDLLTrad, Release_LetsTheLinkGo) {
  ASSERT_EQ(S_OK, initialise());
  translation_ = nullptr;
  EXPECT_EQ(1, host_.links.at(0)->references());
}

TEST_F(ClsDLLTrad, TwoInstances_HaveLinksAndTextsOfTheirOwn) {
  const auto other = create<_ClsDLLTrad>(L"ClsDLLTrad");
  ASSERT_EQ(S_OK, initialise());
  EXPECT_EQ(Texts(kMembers), texts_of(other.get()));
  EXPECT_TRUE(is_fault(other->InitConstTrad(), 91, L"ClsDLLTrad"));
}

TEST_F(ClsDLLTrad, InitConstTrad_CalledAgain_RefreshesAllButTheLastFourMembers) {
  host_.prefix = L"avant ";
  ASSERT_EQ(S_OK, initialise());
  host_.prefix = L"après ";
  ASSERT_EQ(S_OK, translation_->InitConstTrad());
  Texts expected = expected_texts(L"après ");
  const Texts before = expected_texts(L"avant ");
  std::copy(before.begin() + kReloadedMembers, before.end(), expected.begin() + kReloadedMembers);
  EXPECT_EQ(expected, texts());
}

TEST_F(ClsDLLTrad, InitConstTrad_CalledAgain_AsksTheSameLinkInTheSameOrder) {
  ASSERT_EQ(S_OK, initialise());
  auto expected = identifiers();
  expected.resize(kReloadedFetches);
  host_.requests.clear();
  ASSERT_EQ(S_OK, translation_->InitConstTrad());
  EXPECT_EQ(expected, identifiers());
  EXPECT_EQ(1U, host_.links.size());
}

TEST_F(ClsDLLTrad, InitConstTrad_ReplacesWhatTheHostHadAssignedButTheLastFourMembers) {
  ASSERT_EQ(S_OK, initialise());
  assign_texts(translation_.get(), L"hôte ");
  ASSERT_EQ(S_OK, translation_->InitConstTrad());
  Texts expected = expected_texts();
  for (std::size_t i = kReloadedMembers; i < kMembers; ++i) expected[i] = L"hôte " + std::to_wstring(i);
  EXPECT_EQ(expected, texts());
}

TEST_F(ClsDLLTrad, DllInitialisationTrad_AnAnswerThatIsANumber_BecomesText) {
  host_.answer = [](long identifier) { return Variant(identifier); };
  ASSERT_EQ(S_OK, initialise());
  EXPECT_EQ(expected_texts(), texts());
}

TEST_F(ClsDLLTrad, DllInitialisationTrad_AnEmptyAnswer_IsAnEmptyText) {
  host_.answer = [](long) { return Variant(); };
  assign_texts(translation_.get(), L"hôte ");
  ASSERT_EQ(S_OK, initialise());
  Texts expected(kMembers);
  expected[24] = L"&Indéterminé";
  EXPECT_EQ(expected, texts());
}

TEST_F(ClsDLLTrad, LateBound_DllInitialisationTradTakesAScriptVariable) {
  Variant program = text_value(L"TestHote");
  EXPECT_EQ(S_OK, call(translation_.get(), L"DLL_InitialisationTrad", arguments(by_reference(program.get())),
                       nullptr));
  EXPECT_EQ(expected_texts(), texts());
  EXPECT_EQ(L"TestHote", velmosav::view(program.get().bstrVal));
}

TEST_F(ClsDLLTrad, LateBound_DllInitialisationTradTakesATypedVariable) {
  Text program(L"TestHote");
  EXPECT_EQ(S_OK,
            call(translation_.get(), L"DLL_InitialisationTrad", arguments(by_reference(program)), nullptr));
  EXPECT_EQ(expected_texts(), texts());
}

TEST_F(ClsDLLTrad, LateBound_InitConstTradRefreshes) {
  ASSERT_EQ(S_OK, initialise());
  host_.prefix = L"après ";
  EXPECT_EQ(S_OK, call(translation_.get(), L"InitConstTrad", {}, nullptr));
  EXPECT_EQ(L"après 17", texts().front());
  EXPECT_EQ(L"112219", texts().back());
}

}  // namespace
}  // namespace host
