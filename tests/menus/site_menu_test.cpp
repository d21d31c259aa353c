// ContratDoc.OpenPopupMenu_CttSite on the screen, through the component.
#include "menus/menu_fixture.h"
#include "support/arguments.h"

namespace {

using host::Lines;
using host::MenuUser;

class SiteMenu : public host::ContractMenus {
 protected:
  IndMenuPop choose(int number, bool list = true, bool add = true, bool replace = true, bool exclude = true) {
    MenuUser user(button_.handle(), host::choose_entry(number));
    return open_sites(list, add, replace, exclude);
  }
  Lines lines(bool list, bool add, bool replace, bool exclude) {
    MenuUser user(button_.handle(), host::dismiss());
    EXPECT_EQ(IndMenuPop_None, open_sites(list, add, replace, exclude));
    return user.menu().lines;
  }
};

const Lines kAllLines{L"Liste des sites", host::kSeparator, L"Ajouter un site", L"Remplacer par un site",
                      L"Exclure le site"};

TEST_F(SiteMenu, ShowsListSeparatorAddReplaceAndExclude) {
  EXPECT_EQ(kAllLines, lines(true, true, true, true));
}

TEST_F(SiteMenu, ChoosingTheList_Returns0) { EXPECT_EQ(0, choose(1)); }
TEST_F(SiteMenu, ChoosingAdd_Returns11) { EXPECT_EQ(11, choose(2)); }
TEST_F(SiteMenu, ChoosingReplace_Returns12) { EXPECT_EQ(12, choose(3)); }
TEST_F(SiteMenu, ChoosingExclureLeSite_Returns2) { EXPECT_EQ(2, choose(4)); }

TEST_F(SiteMenu, TheAnswersAreThoseOfTheEnumeration_ExcludingIsDeleting) {
  EXPECT_EQ(IndMenuPop_Liste, choose(1));
  EXPECT_EQ(IndMenuPop_AjoutSite, choose(2));
  EXPECT_EQ(IndMenuPop_RemplSite, choose(3));
  EXPECT_EQ(IndMenuPop_Supprimer, choose(4));
}

TEST_F(SiteMenu, AHiddenEntry_DoesNotShiftTheAnswers) {
  EXPECT_EQ(IndMenuPop_AjoutSite, choose(1, false, true, true, true));
  EXPECT_EQ(IndMenuPop_RemplSite, choose(2, true, false, true, true));
  EXPECT_EQ(IndMenuPop_Supprimer, choose(3, true, true, false, true));
  EXPECT_EQ(IndMenuPop_Supprimer, choose(1, false, false, false, true));
}

TEST_F(SiteMenu, Escape_ReturnsMinus1) {
  MenuUser user(button_.handle(), host::dismiss());
  EXPECT_EQ(-1, open_sites());
  EXPECT_TRUE(user.saw_a_menu());
}

TEST_F(SiteMenu, EachFlagHidesItsEntry_TheSeparatorGoesWithTheList) {
  for (int flags = 1; flags < 16; ++flags) {
    const bool list = flags & 1, add = flags & 2, replace = flags & 4, exclude = flags & 8;
    Lines expected;
    if (list) expected.insert(expected.end(), {kAllLines[0], kAllLines[1]});
    if (add) expected.push_back(kAllLines[2]);
    if (replace) expected.push_back(kAllLines[3]);
    if (exclude) expected.push_back(kAllLines[4]);
    EXPECT_EQ(expected, lines(list, add, replace, exclude)) << flags;
  }
}

TEST_F(SiteMenu, OnlyTheListVisible_ShowsTheListEntryAndATrailingSeparator) {
  EXPECT_EQ((Lines{L"Liste des sites", host::kSeparator}), lines(true, false, false, false));
  EXPECT_EQ(IndMenuPop_Liste, choose(1, true, false, false, false));
}

TEST_F(SiteMenu, AllFlagsFalse_TheEmptyMenuReturnsMinus1) {
  MenuUser user(button_.handle(), host::dismiss());
  EXPECT_EQ(-1, open_sites(false, false, false, false));
  EXPECT_FALSE(user.saw_a_menu());
}

TEST_F(SiteMenu, FlagsThatAreLeftOut_AreTrue) {
  MenuUser user(button_.handle(), host::choose_entry(4));
  host::Variant choice;
  EXPECT_EQ(S_OK, host::call(contracts_.get(), L"OpenPopupMenu_CttSite",
                             host::arguments(host::object_value(button_.object().get())), choice.receive()));
  EXPECT_EQ(kAllLines, user.menu().lines);
  EXPECT_EQ(2, velmosav::to_long(choice.get()));
}

}  // namespace
