// ContratDoc.OpenPopupMenu_CttInterv on the screen, through the component.
#include "menus/menu_fixture.h"
#include "support/arguments.h"

namespace {

using host::Lines;
using host::MenuUser;

class InterventionMenu : public host::ContractMenus {
 protected:
  IndMenuPop choose(int number, bool list = true, bool create = true, bool remove = true) {
    MenuUser user(button_.handle(), host::choose_entry(number));
    return open_interventions(list, create, remove);
  }
  Lines lines(bool list, bool create, bool remove) {
    MenuUser user(button_.handle(), host::dismiss());
    EXPECT_EQ(IndMenuPop_None, open_interventions(list, create, remove));
    return user.menu().lines;
  }
};

const Lines kAllLines{L"Liste des interventions", host::kSeparator, L"Créer une intervention",
                      L"Supprimer l'intervention"};

TEST_F(InterventionMenu, ShowsListSeparatorCreateAndDelete_WithTheirAccents) {
  EXPECT_EQ(kAllLines, lines(true, true, true));
}

TEST_F(InterventionMenu, ChoosingTheList_Returns0) { EXPECT_EQ(0, choose(1)); }
TEST_F(InterventionMenu, ChoosingCreate_Returns1) { EXPECT_EQ(1, choose(2)); }
TEST_F(InterventionMenu, ChoosingDelete_Returns2) { EXPECT_EQ(2, choose(3)); }

TEST_F(InterventionMenu, TheAnswersAreThoseOfTheEnumeration) {
  EXPECT_EQ(IndMenuPop_Liste, choose(1));
  EXPECT_EQ(IndMenuPop_Creer, choose(2));
  EXPECT_EQ(IndMenuPop_Supprimer, choose(3));
}

TEST_F(InterventionMenu, AHiddenEntry_DoesNotShiftTheAnswers) {
  EXPECT_EQ(IndMenuPop_Creer, choose(1, false, true, true));
  EXPECT_EQ(IndMenuPop_Supprimer, choose(2, false, true, true));
  EXPECT_EQ(IndMenuPop_Supprimer, choose(2, true, false, true));
  EXPECT_EQ(IndMenuPop_Supprimer, choose(1, false, false, true));
}

TEST_F(InterventionMenu, Escape_ReturnsMinus1) {
  MenuUser user(button_.handle(), host::dismiss());
  EXPECT_EQ(-1, open_interventions());
  EXPECT_TRUE(user.saw_a_menu());
}

TEST_F(InterventionMenu, EscapeOnASelectedEntry_ReturnsMinus1) {
  MenuUser user(button_.handle(), host::keys({VK_DOWN, VK_DOWN, VK_ESCAPE}));
  EXPECT_EQ(-1, open_interventions());
}

TEST_F(InterventionMenu, EachFlagHidesItsEntry_TheSeparatorGoesWithTheList) {
  for (int flags = 1; flags < 8; ++flags) {
    const bool list = flags & 1, create = flags & 2, remove = flags & 4;
    Lines expected;
    if (list) expected.insert(expected.end(), {kAllLines[0], kAllLines[1]});
    if (create) expected.push_back(kAllLines[2]);
    if (remove) expected.push_back(kAllLines[3]);
    EXPECT_EQ(expected, lines(list, create, remove)) << flags;
  }
}

TEST_F(InterventionMenu, OnlyTheListVisible_ShowsTheListEntryAndATrailingSeparator) {
  EXPECT_EQ((Lines{L"Liste des interventions", host::kSeparator}), lines(true, false, false));
  EXPECT_EQ(IndMenuPop_Liste, choose(1, true, false, false));
}

TEST_F(InterventionMenu, AllFlagsFalse_TheEmptyMenuReturnsMinus1) {
  MenuUser user(button_.handle(), host::dismiss());
  EXPECT_EQ(-1, open_interventions(false, false, false));
  EXPECT_FALSE(user.saw_a_menu());
}

TEST_F(InterventionMenu, FlagsThatAreLeftOut_AreTrue) {
  MenuUser user(button_.handle(), host::choose_entry(3));
  host::Variant choice;
  EXPECT_EQ(S_OK, host::call(contracts_.get(), L"OpenPopupMenu_CttInterv",
                             host::arguments(host::object_value(button_.object().get())), choice.receive()));
  EXPECT_EQ(kAllLines, user.menu().lines);
  EXPECT_EQ(2, velmosav::to_long(choice.get()));
}

TEST_F(InterventionMenu, ALateBoundCallWithAScriptsVariable_HidesAndAnswersAlike) {
  MenuUser user(button_.handle(), host::choose_entry(1));
  host::Variant button = host::object_value(button_.object().get()), choice;
  EXPECT_EQ(S_OK, host::call(contracts_.get(), L"openpopupmenu_cttinterv",
                             host::arguments(host::by_reference(button.get()), host::bool_value(false),
                                             host::missing(), host::bool_value(false)),
                             choice.receive()));
  EXPECT_EQ(Lines{L"Créer une intervention"}, user.menu().lines);
  EXPECT_EQ(1, velmosav::to_long(choice.get()));
  EXPECT_EQ(button_.object().get(), button.get().pdispVal);
}

TEST_F(InterventionMenu, OpenedAgainAndAgain_ShowsTheSameMenu) {
  for (int i = 0; i < 30; ++i) {
    MenuUser user(button_.handle(), host::choose_entry(1 + i % 3));
    ASSERT_EQ(i % 3, open_interventions()) << i;
    ASSERT_EQ(kAllLines, user.menu().lines) << i;
  }
}

}  // namespace
