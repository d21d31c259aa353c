// What ContratDoc asks of the popup-menu object: calls, arguments and their order; what it makes of the
// answer.
#include <algorithm>

#include "menus/menu_fixture.h"
#include "menus/scripted_popup.h"

namespace {

using host::Lines;
using host::ScriptedPopup;
using host::text_value;

class MenuCalls : public host::ContractMenus {
 protected:
  [[nodiscard]] std::wstring execution() const {
    return L"ExecuteFromWindow(I4 " + std::to_wstring(button_.number()) + L")";
  }

  /// The answer when the component returns `key`.
  IndMenuPop answer_to(host::Variant key) {
    const ScriptedPopup popup(std::move(key));
    return open_sites();
  }
};

TEST_F(MenuCalls, Interventions_EntriesInTableOrderWithCaptionAndKeyAsTexts_ThenTheWindow) {
  const ScriptedPopup popup;
  open_interventions();
  EXPECT_EQ((Lines{L"create", L"AddItem(BSTR Liste des interventions, BSTR 0)", L"AddItem(BSTR -)",
                   L"AddItem(BSTR Créer une intervention, BSTR 1)",
                   L"AddItem(BSTR Supprimer l'intervention, BSTR 2)", execution()}),
            popup.calls);
}

TEST_F(MenuCalls, Sites_EntriesInTableOrderWithCaptionAndKeyAsTexts_ThenTheWindow) {
  const ScriptedPopup popup;
  open_sites();
  EXPECT_EQ((Lines{L"create", L"AddItem(BSTR Liste des sites, BSTR 0)", L"AddItem(BSTR -)",
                   L"AddItem(BSTR Ajouter un site, BSTR 11)", L"AddItem(BSTR Remplacer par un site, BSTR 12)",
                   L"AddItem(BSTR Exclure le site, BSTR 2)", execution()}),
            popup.calls);
}

TEST_F(MenuCalls, Interventions_AllFlagsFalse_AnEmptyMenuIsShown_DismissingItReturnsMinus1) {
  const ScriptedPopup popup;
  EXPECT_EQ(-1, open_interventions(false, false, false));
  EXPECT_EQ((Lines{L"create", execution()}), popup.calls);
}

TEST_F(MenuCalls, Sites_AllFlagsFalse_AnEmptyMenuIsShown_DismissingItReturnsMinus1) {
  const ScriptedPopup popup;
  EXPECT_EQ(-1, open_sites(false, false, false, false));
  EXPECT_EQ((Lines{L"create", execution()}), popup.calls);
}

TEST_F(MenuCalls, OnlyTheListVisible_TheListEntryAndATrailingSeparatorAreAdded) {
  const ScriptedPopup popup;
  open_interventions(true, false, false);
  EXPECT_EQ(
      (Lines{L"create", L"AddItem(BSTR Liste des interventions, BSTR 0)", L"AddItem(BSTR -)", execution()}),
      popup.calls);
}

TEST_F(MenuCalls, WithoutTheList_NoSeparatorIsAdded) {
  const ScriptedPopup popup;
  open_sites(false, true, false, true);
  EXPECT_EQ((Lines{L"create", L"AddItem(BSTR Ajouter un site, BSTR 11)",
                   L"AddItem(BSTR Exclure le site, BSTR 2)", execution()}),
            popup.calls);
}

TEST_F(MenuCalls, OfTheButton_OnlyTheWindowIsRead_Once_AfterTheEntries) {
  ScriptedPopup popup;
  std::size_t added_before = 0;
  button_.object()->on_get(L"hWnd", [&](const auto&) {
    added_before = popup.calls.size();
    return host::Variant(button_.number());
  });
  open_interventions();
  EXPECT_EQ(Lines{L"get hWnd"}, button_.object()->log);
  EXPECT_EQ(5u, added_before);
}

TEST_F(MenuCalls, TheWindowIsPassedAsTheButtonGivesIt) {
  const ScriptedPopup popup;
  button_.object()->property(L"hWnd", text_value(L"4711"));
  open_interventions(false, false, false);
  EXPECT_EQ(L"ExecuteFromWindow(BSTR 4711)", popup.calls.back());
}

TEST_F(MenuCalls, EachOpening_CreatesAnObjectAndReleasesIt) {
  const ScriptedPopup popup;
  for (int i = 0; i < 3; ++i) open_sites();
  EXPECT_EQ(3, std::count(popup.calls.begin(), popup.calls.end(), L"create"));
  EXPECT_EQ(1, popup.object()->references());
  EXPECT_EQ(1, button_.object()->references());
}

TEST_F(MenuCalls, TheKeyComesBackAsItsNumber) {
  EXPECT_EQ(0, answer_to(text_value(L"0")));
  EXPECT_EQ(2, answer_to(text_value(L"2")));
  EXPECT_EQ(12, answer_to(text_value(L"12")));
}

TEST_F(MenuCalls, AKeyOfNoEntry_ComesBackAsItsNumber) {
  for (const short key : {short{13}, short{16}, short{9999}, short{-2}, short{-32768}}) {
    const ScriptedPopup popup{host::Variant(long{key})};
    // As a number: the enumeration cannot hold these.
    long number = 7;
    IDispatch* button = button_.object().get();
    EXPECT_EQ(S_OK, contracts_->OpenPopupMenu_CttSite(&button, VARIANT_TRUE, VARIANT_TRUE, VARIANT_TRUE,
                                                      VARIANT_TRUE, reinterpret_cast<IndMenuPop*>(&number)));
    EXPECT_EQ(key, number);
  }
}

TEST_F(MenuCalls, AKeyBetweenBlanks_CountsTrimmed) { EXPECT_EQ(11, answer_to(text_value(L"  11 "))); }

TEST_F(MenuCalls, AnEmptyKey_ReturnsMinus1) {
  EXPECT_EQ(-1, answer_to(text_value(L"")));
  EXPECT_EQ(-1, answer_to(host::Variant()));
}

TEST_F(MenuCalls, AKeyOfBlanksOnly_ReturnsMinus1) { EXPECT_EQ(-1, answer_to(text_value(L"   "))); }

TEST_F(MenuCalls, AKeyAsNumber_CountsAsItsText) { EXPECT_EQ(2, answer_to(host::Variant(2L))); }

}  // namespace
