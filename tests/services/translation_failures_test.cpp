// ClsDLLTrad when the link cannot be made or fails: members before the failure have their new texts, the
// others keep theirs.
#include <algorithm>

#include "services/translation_fixture.h"

namespace host {
namespace {

/// The member that a call, from 1, fetches.
std::size_t member_of_call(std::size_t number) {
  std::size_t fetched = 0;
  for (std::size_t i = 0; i < kMembers; ++i) {
    if (translated_members()[i].identifier != 0 && ++fetched == number) return i;
  }
  ADD_FAILURE() << "no call " << number;
  return 0;
}

/// `before`, with the members up to one that failed taken from `after`.
Texts mixed(const Texts& before, const Texts& after, std::size_t failed) {
  Texts texts = before;
  std::copy(after.begin(), after.begin() + static_cast<std::ptrdiff_t>(failed), texts.begin());
  return texts;
}

TEST_F(ClsDLLTrad, InitConstTrad_BeforeInitialisation_IsFault91) {
  EXPECT_TRUE(is_fault(translation_->InitConstTrad(), 91, L"ClsDLLTrad"));
}

TEST_F(ClsDLLTrad, InitConstTrad_BeforeInitialisation_SetsNoMember) {
  translation_->InitConstTrad();
  EXPECT_EQ(Texts(kMembers), texts());
  assign_texts(translation_.get(), L"hôte ");
  const Texts before = texts();
  translation_->InitConstTrad();
  EXPECT_EQ(before, texts());
}

TEST_F(ClsDLLTrad, DllInitialisationTrad_UnknownProgram_IsFault429) {
  EXPECT_TRUE(is_fault(initialise(L"HoteInconnu"), 429, L"ClsDLLTrad"));
}

TEST_F(ClsDLLTrad, DllInitialisationTrad_UnknownProgram_SetsNoMember) {
  initialise(L"HoteInconnu");
  EXPECT_EQ(Texts(kMembers), texts());
}

TEST_F(ClsDLLTrad, DllInitialisationTrad_UnknownProgram_LeavesNoLink) {
  initialise(L"HoteInconnu");
  EXPECT_TRUE(is_fault(translation_->InitConstTrad(), 91, L"ClsDLLTrad"));
}

TEST_F(ClsDLLTrad, DllInitialisationTrad_EmptyProgramName_IsFault429) {
  EXPECT_TRUE(is_fault(initialise(L""), 429, L"ClsDLLTrad"));
  BSTR none = nullptr;
  EXPECT_TRUE(is_fault(translation_->DLL_InitialisationTrad(&none), 429, L"ClsDLLTrad"));
}

TEST_F(ClsDLLTrad, DllInitialisationTrad_ProgramNameWithABlank_IsAnotherProgram) {
  EXPECT_TRUE(is_fault(initialise(L"TestHote "), 429, L"ClsDLLTrad"));
}

TEST_F(ClsDLLTrad, DllInitialisationTrad_ClassThatMakesNoLink_IsFault429) {
  host_.makes_none = true;
  EXPECT_TRUE(is_fault(initialise(), 429, L"ClsDLLTrad"));
  EXPECT_EQ(Texts(kMembers), texts());
}

TEST_F(ClsDLLTrad, DllInitialisationTrad_UnknownProgramAfterAKnownOne_KeepsTextsAndLink) {
  ASSERT_EQ(S_OK, initialise());
  EXPECT_TRUE(is_fault(initialise(L"HoteInconnu"), 429, L"ClsDLLTrad"));
  EXPECT_EQ(expected_texts(), texts());
  host_.prefix = L"après ";
  EXPECT_EQ(S_OK, translation_->InitConstTrad());
  EXPECT_EQ(L"après 17", texts().front());
}

TEST_F(ClsDLLTrad, DllInitialisationTrad_NullAddressOfTheName_IsRefused) {
  EXPECT_EQ(E_POINTER, translation_->DLL_InitialisationTrad(nullptr));
  EXPECT_EQ(L"VelmoSAV_DLL14.ClsDLLTrad", take_error().source);
  EXPECT_EQ(Texts(kMembers), texts());
}

TEST_F(ClsDLLTrad, DllInitialisationTrad_LinkWithoutTheMember_IsFault438AndSetsNoMember) {
  host_.is_mute = true;
  EXPECT_TRUE(is_fault(initialise(), 438, L"ClsDLLTrad"));
  EXPECT_EQ(Texts(kMembers), texts());
}

class ClsDLLTradFailingCall : public ClsDLLTrad, public ::testing::WithParamInterface<std::size_t> {
 protected:
  std::size_t failed_ = member_of_call(GetParam());
  long identifier_ = translated_members()[failed_].identifier;
};

TEST_P(ClsDLLTradFailingCall, DllInitialisationTrad_ItsErrorReachesTheCaller) {
  host_.fails_at = GetParam();
  EXPECT_TRUE(fails_like_the_link(initialise(), identifier_));
}

TEST_P(ClsDLLTradFailingCall, DllInitialisationTrad_NoLaterTextIsAskedFor) {
  host_.fails_at = GetParam();
  initialise();
  EXPECT_EQ(GetParam(), host_.requests.size());
}

TEST_P(ClsDLLTradFailingCall, DllInitialisationTrad_MembersBeforeItAreSetTheOthersStayEmpty) {
  host_.fails_at = GetParam();
  initialise();
  EXPECT_EQ(mixed(Texts(kMembers), expected_texts(), failed_), texts());
}

TEST_P(ClsDLLTradFailingCall, DllInitialisationTradAgain_MembersBeforeItAreNewTheOthersKeepTheirs) {
  ASSERT_EQ(S_OK, initialise());
  host_.prefix = L"nouveau ";
  host_.fails_at = kFetches + GetParam();
  EXPECT_TRUE(fails_like_the_link(initialise(), identifier_));
  EXPECT_EQ(mixed(expected_texts(), expected_texts(L"nouveau "), failed_), texts());
}

TEST_P(ClsDLLTradFailingCall, DllInitialisationTradAgain_TheNewLinkReplacesTheOldOneAllTheSame) {
  ASSERT_EQ(S_OK, initialise());
  host_.fails_at = kFetches + GetParam();
  initialise();
  ASSERT_EQ(2U, host_.links.size());
  EXPECT_EQ(1, host_.links[0]->references());
  EXPECT_EQ(2, host_.links[1]->references());
}

INSTANTIATE_TEST_SUITE_P(Calls, ClsDLLTradFailingCall, ::testing::Range(std::size_t{1}, kFetches + 1));

class ClsDLLTradFailingReload : public ClsDLLTradFailingCall {};

TEST_P(ClsDLLTradFailingReload, InitConstTrad_MembersBeforeItAreNewTheOthersKeepTheirs) {
  ASSERT_EQ(S_OK, initialise());
  host_.prefix = L"nouveau ";
  host_.fails_at = kFetches + GetParam();
  EXPECT_TRUE(fails_like_the_link(translation_->InitConstTrad(), identifier_));
  EXPECT_EQ(mixed(expected_texts(), expected_texts(L"nouveau "), failed_), texts());
}

INSTANTIATE_TEST_SUITE_P(Calls, ClsDLLTradFailingReload,
                         ::testing::Range(std::size_t{1}, kReloadedFetches + 1));

TEST_F(ClsDLLTrad, DllInitialisationTrad_AfterAFailingCall_TheLinkServesInitConstTrad) {
  host_.fails_at = 1;
  EXPECT_TRUE(FAILED(initialise()));
  EXPECT_EQ(S_OK, translation_->InitConstTrad());
  Texts expected = expected_texts();
  std::fill(expected.begin() + kReloadedMembers, expected.end(), L"");
  EXPECT_EQ(expected, texts());
}

TEST_F(ClsDLLTrad, DllInitialisationTrad_ANullAnswer_IsFault94AndKeepsTheMembersBefore) {
  host_.answer = [](long identifier) {
    return identifier == 2811 ? null_value() : text_value(std::to_wstring(identifier));
  };
  EXPECT_TRUE(is_fault(initialise(), 94, L"ClsDLLTrad"));
  EXPECT_EQ(mixed(Texts(kMembers), expected_texts(), 2), texts());
}

TEST_F(ClsDLLTrad, InitConstTrad_ANullAnswer_IsFault94AndKeepsTheMembersBefore) {
  ASSERT_EQ(S_OK, initialise());
  host_.answer = [](long identifier) {
    return identifier == 2811 ? null_value() : text_value(L"nouveau " + std::to_wstring(identifier));
  };
  EXPECT_TRUE(is_fault(translation_->InitConstTrad(), 94, L"ClsDLLTrad"));
  EXPECT_EQ(mixed(expected_texts(), expected_texts(L"nouveau "), 2), texts());
}

TEST_F(ClsDLLTrad, InitConstTrad_LinkWithoutTheMember_IsFault438AndSetsNoMember) {
  host_.is_mute = true;
  EXPECT_TRUE(FAILED(initialise()));
  EXPECT_TRUE(is_fault(translation_->InitConstTrad(), 438, L"ClsDLLTrad"));
  EXPECT_EQ(Texts(kMembers), texts());
}

TEST_F(ClsDLLTrad, LateBound_AFailingCall_CarriesTheLinksErrorInTheException) {
  host_.fails_at = 3;
  Variant program = text_value(L"TestHote");
  EXCEPINFO exception{};
  EXPECT_EQ(DISP_E_EXCEPTION, call(translation_.get(), L"DLL_InitialisationTrad",
                                   arguments(by_reference(program.get())), nullptr, &exception));
  const Bstr source = Bstr::attach(exception.bstrSource);
  const Bstr description = Bstr::attach(exception.bstrDescription);
  EXPECT_EQ(TranslationHost::kFailure, exception.scode);
  EXPECT_EQ(L"TestHote", source.view());
  EXPECT_EQ(L"Texte 2811 absent", description.view());
}

}  // namespace
}  // namespace host
