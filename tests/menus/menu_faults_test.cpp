// How the opening of a contract's menu fails.
#include "menus/menu_fixture.h"
#include "menus/scripted_popup.h"

namespace {

using host::FakeObject;
using host::is_fault;
using host::ScriptedPopup;
using host::text_value;

constexpr HRESULT kRefusal = static_cast<HRESULT>(0x80040321UL);

class MenuFaults : public host::ContractMenus {
 protected:
  /// What a failed call leaves in the place for the answer.
  static constexpr auto kNothing = static_cast<IndMenuPop>(0);

  /// Both menus fail with the fault, and answer nothing.
  void expect_fault(int number, IDispatch* button) {
    IndMenuPop choice = kUntouched;
    EXPECT_TRUE(is_fault(try_interventions(button, choice), number, L"ContratDoc"));
    EXPECT_EQ(kNothing, choice);
    choice = kUntouched;
    EXPECT_TRUE(is_fault(try_sites(button, choice), number, L"ContratDoc"));
    EXPECT_EQ(kNothing, choice);
  }

  /// Both menus fail with kRefusal and the text that came with it, and answer nothing.
  void expect_refusal() {
    IndMenuPop choice = kUntouched;
    EXPECT_EQ(kRefusal, try_interventions(button_.object().get(), choice));
    EXPECT_EQ(L"Refusé", host::take_error().description);
    EXPECT_EQ(kNothing, choice);
    choice = kUntouched;
    EXPECT_EQ(kRefusal, try_sites(button_.object().get(), choice));
    EXPECT_EQ(L"Refusé", host::take_error().description);
    EXPECT_EQ(kNothing, choice);
  }

  static host::Variant refuse(const FakeObject::Arguments&) {
    throw FakeObject::Error{kRefusal, L"Essai", L"Refusé"};
  }
};

TEST_F(MenuFaults, TheComponentIsNotRegistered_IsFault429) {
  const host::WithoutComponent without;
  expect_fault(429, button_.object().get());
}

TEST_F(MenuFaults, TheComponentIsNotRegistered_TheButtonIsNotRead) {
  const host::WithoutComponent without;
  expect_fault(429, button_.object().get());
  EXPECT_TRUE(button_.object()->log.empty());
}

TEST_F(MenuFaults, TheComponentIsRegisteredAgain_TheMenuOpensAgain) {
  { const host::WithoutComponent without; }
  EXPECT_EQ(-1, open_interventions(false, false, false));
}

TEST_F(MenuFaults, TheComponentRefusesToBeCreated_IsFault429) {
  ScriptedPopup popup;
  popup.creation = kRefusal;
  expect_fault(429, button_.object().get());
}

TEST_F(MenuFaults, AButtonWithoutHWnd_IsFault438) { expect_fault(438, FakeObject::make().get()); }

TEST_F(MenuFaults, AButtonWhoseHWndCannotBeRead_IsFault438) {
  const auto button = FakeObject::make();
  button->on_put(L"hWnd", [](const VARIANT&) {});
  expect_fault(438, button.get());
}

TEST_F(MenuFaults, NoButton_IsFault91) { expect_fault(91, nullptr); }

TEST_F(MenuFaults, NoAddressOfAButton_IsARefusedPointer) {
  IndMenuPop choice = IndMenuPop_None;
  EXPECT_EQ(E_POINTER,
            contracts_->OpenPopupMenu_CttInterv(nullptr, flag(true), flag(true), flag(true), &choice));
  EXPECT_EQ(E_POINTER, contracts_->OpenPopupMenu_CttSite(nullptr, flag(true), flag(true), flag(true),
                                                         flag(true), &choice));
}

TEST_F(MenuFaults, NoPlaceForTheAnswer_IsARefusedPointer_AndNothingIsShown) {
  const ScriptedPopup popup;
  IDispatch* button = button_.object().get();
  EXPECT_EQ(E_POINTER,
            contracts_->OpenPopupMenu_CttInterv(&button, flag(true), flag(true), flag(true), nullptr));
  EXPECT_TRUE(popup.calls.empty());
}

TEST_F(MenuFaults, AKeyThatIsNoNumber_IsFault13) {
  const ScriptedPopup popup(text_value(L"Liste"));
  expect_fault(13, button_.object().get());
}

TEST_F(MenuFaults, AKeyBeyond16Bits_IsFault6) {
  const ScriptedPopup popup(text_value(L"32768"));
  expect_fault(6, button_.object().get());
}

TEST_F(MenuFaults, AKeyThatIsNull_IsFault94) {
  const ScriptedPopup popup(host::null_value());
  expect_fault(94, button_.object().get());
}

TEST_F(MenuFaults, AfterAFault_ThePopupObjectIsReleased) {
  const ScriptedPopup popup(text_value(L"Liste"));
  expect_fault(13, button_.object().get());
  expect_fault(91, nullptr);
  EXPECT_EQ(1, popup.object()->references());
  EXPECT_EQ(1, button_.object()->references());
}

TEST_F(MenuFaults, AHWndThatFails_PassesTheButtonsOwnErrorOn) {
  button_.object()->on_get(L"hWnd", refuse);
  expect_refusal();
}

TEST_F(MenuFaults, AnEntryThatIsRefused_PassesTheComponentsOwnErrorOn_AndNothingIsShown) {
  const ScriptedPopup popup;
  popup.object()->on_get(L"AddItem", refuse);
  expect_refusal();
  EXPECT_EQ((std::vector<std::wstring>{L"create", L"create"}), popup.calls);
}

TEST_F(MenuFaults, AShowingThatFails_PassesTheComponentsOwnErrorOn) {
  const ScriptedPopup popup;
  popup.object()->on_get(L"ExecuteFromWindow", refuse);
  expect_refusal();
}

TEST_F(MenuFaults, AButtonOfADestroyedWindow_PassesTheComponentsErrorOn) {
  DestroyWindow(button_.handle());
  IndMenuPop choice = IndMenuPop_None;
  const auto wrong_argument = static_cast<HRESULT>(0x800A0005UL);
  EXPECT_EQ(wrong_argument, try_interventions(button_.object().get(), choice));
  const host::ErrorReport report = host::take_error();
  EXPECT_EQ(L"Lumbra30.ApiPopupMenu", report.source);
  EXPECT_EQ(L"La fenêtre du menu n'existe pas", report.description);
}

}  // namespace
