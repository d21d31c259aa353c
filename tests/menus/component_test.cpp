// The popup-menu component by itself, called by name.
#include "menus/component.h"
#include "menus/menu_user.h"
#include "menus/screen_button.h"
#include "support/arguments.h"

namespace {

using host::arguments;
using host::ComPtr;
using host::MenuUser;
using host::text_value;
using host::Variant;
using Lines = std::vector<std::wstring>;

struct Exception : EXCEPINFO {
  Exception() : EXCEPINFO{} {}
  ~Exception() {
    SysFreeString(bstrSource);
    SysFreeString(bstrDescription);
  }
  Exception(const Exception&) = delete;
  Exception& operator=(const Exception&) = delete;
};

class PopupComponent : public ::testing::Test {
 protected:
  void add(const wchar_t* caption) {
    EXPECT_EQ(S_OK, host::call(popup_.get(), L"AddItem", arguments(text_value(caption)), nullptr));
  }
  void add(const wchar_t* caption, const wchar_t* key) {
    EXPECT_EQ(S_OK,
              host::call(popup_.get(), L"AddItem", arguments(text_value(caption), text_value(key)), nullptr));
  }

  /// The key, which comes as a text.
  std::wstring execute() {
    Variant key;
    EXPECT_EQ(S_OK, host::call(popup_.get(), L"ExecuteFromWindow", arguments(Variant(button_.number())),
                               key.receive()));
    EXPECT_EQ(VT_BSTR, key.get().vt);
    return key.get().vt == VT_BSTR ? host::get(key.get().bstrVal) : L"";
  }
  std::wstring execute_and(MenuUser::Act act) {
    const MenuUser user(button_.handle(), std::move(act));
    return execute();
  }
  Lines lines() {
    MenuUser user(button_.handle(), host::dismiss());
    EXPECT_EQ(L"", execute());
    return user.menu().lines;
  }

  /// Code, source and text of a call that fails with an exception.
  void expect_exception(unsigned number, const std::wstring& text, const wchar_t* name,
                        std::vector<Variant> values) {
    Exception exception;
    EXPECT_EQ(DISP_E_EXCEPTION, host::call(popup_.get(), name, std::move(values), nullptr, &exception));
    EXPECT_EQ(static_cast<HRESULT>(0x800A0000UL + number), exception.scode);
    EXPECT_EQ(L"Lumbra30.ApiPopupMenu", host::get(exception.bstrSource));
    EXPECT_EQ(text, host::get(exception.bstrDescription));
  }

  const ComPtr<IDispatch> popup_ = host::create_popup_menu();
  const host::ScreenButton button_;
};

TEST_F(PopupComponent, ReturnsTheChosenEntrysKeyAsItWasGiven) {
  add(L"Premier", L"un");
  add(L"Deuxième", L" clé n° 2 ");
  add(L"Troisième", L"3");
  EXPECT_EQ(L"un", execute_and(host::choose_entry(1)));
  EXPECT_EQ(L" clé n° 2 ", execute_and(host::choose_entry(2)));
  EXPECT_EQ(L"3", execute_and(host::choose_entry(3)));
}

TEST_F(PopupComponent, Dismissed_ReturnsAnEmptyText) {
  add(L"Premier", L"1");
  EXPECT_EQ(L"", execute_and(host::dismiss()));
}

TEST_F(PopupComponent, EnterWithoutASelection_ChoosesNothing) {
  add(L"Premier", L"1");
  EXPECT_EQ(L"", execute_and(host::keys({VK_RETURN, VK_ESCAPE})));
}

TEST_F(PopupComponent, AnEmptyMenu_IsDismissedAtOnce) {
  MenuUser user(button_.handle(), host::dismiss());
  EXPECT_EQ(L"", execute());
  EXPECT_FALSE(user.saw_a_menu());
}

TEST_F(PopupComponent, CaptionsShowWithTheirAccents) {
  add(L"Éà çûï œ € Ω", L"1");
  EXPECT_EQ(Lines{L"Éà çûï œ € Ω"}, lines());
}

TEST_F(PopupComponent, AHyphenAlone_IsASeparator) {
  add(L"Premier", L"1");
  add(L"-");
  add(L"Second", L"2");
  EXPECT_EQ((Lines{L"Premier", host::kSeparator, L"Second"}), lines());
}

TEST_F(PopupComponent, AHyphenWithAMissingKey_IsASeparator) {
  ASSERT_EQ(S_OK,
            host::call(popup_.get(), L"AddItem", arguments(text_value(L"-"), host::missing()), nullptr));
  EXPECT_EQ(Lines{host::kSeparator}, lines());
}

TEST_F(PopupComponent, ASeparatorCannotBeChosen) {
  add(L"Premier", L"1");
  add(L"-");
  add(L"Second", L"2");
  EXPECT_EQ(L"2", execute_and(host::choose_entry(2)));
}

TEST_F(PopupComponent, AHyphenWithAKey_IsAnEntry) {
  add(L"-", L"tiret");
  EXPECT_EQ(Lines{L"-"}, lines());
  EXPECT_EQ(L"tiret", execute_and(host::choose_entry(1)));
}

TEST_F(PopupComponent, AnEntryWithoutKey_AnswersAnEmptyText) {
  add(L"Sans clé");
  EXPECT_EQ(Lines{L"Sans clé"}, lines());
  EXPECT_EQ(L"", execute_and(host::choose_entry(1)));
}

TEST_F(PopupComponent, AnAmpersand_MarksTheAccessKey) {
  add(L"&Premier", L"1");
  add(L"Se&cond", L"2");
  EXPECT_EQ(L"2", execute_and(host::type(L'c')));
  EXPECT_EQ(L"1", execute_and(host::type(L'P')));
}

TEST_F(PopupComponent, TwoAmpersands_AreNoAccessKey) {
  add(L"Dupont && Dupond", L"1");
  add(L"Mettre &de côté", L"2");
  EXPECT_EQ(L"2", execute_and(host::type(L'd')));
}

TEST_F(PopupComponent, IsDrivenByTheKeyboard) {
  SetForegroundWindow(button_.handle());
  add(L"Premier", L"1");
  add(L"Second", L"2");
  EXPECT_EQ(L"2", execute_and(host::press_keyboard({VK_DOWN, VK_DOWN, VK_RETURN})));
  EXPECT_EQ(L"", execute_and(host::press_keyboard({VK_DOWN, VK_ESCAPE})));
}

TEST_F(PopupComponent, AClickOnAnEntry_ChoosesIt) {
  add(L"Premier", L"1");
  add(L"-");
  add(L"Second", L"2");
  EXPECT_EQ(L"2", execute_and(host::click_line(2)));
  EXPECT_EQ(L"1", execute_and(host::click_line(0)));
}

TEST_F(PopupComponent, AClickBesideTheMenu_DismissesIt) {
  add(L"Premier", L"1");
  EXPECT_EQ(L"", execute_and(host::click_at({1000, 900})));
}

TEST_F(PopupComponent, ShownAgain_KeepsItsEntriesAndTakesMore) {
  add(L"Premier", L"1");
  EXPECT_EQ(Lines{L"Premier"}, lines());
  add(L"Second", L"2");
  EXPECT_EQ((Lines{L"Premier", L"Second"}), lines());
}

TEST_F(PopupComponent, TwoObjects_HaveEntriesOfTheirOwn) {
  const auto other = host::create_popup_menu();
  host::call(other.get(), L"AddItem", arguments(text_value(L"Autre"), text_value(L"9")), nullptr);
  add(L"Premier", L"1");
  EXPECT_EQ(Lines{L"Premier"}, lines());
}

TEST_F(PopupComponent, ValuesOfOtherTypes_CountAsTheirText) {
  ASSERT_EQ(S_OK,
            host::call(popup_.get(), L"AddItem", arguments(Variant(2026L), Variant(short{11})), nullptr));
  EXPECT_EQ(Lines{L"2026"}, lines());
  EXPECT_EQ(L"11", execute_and(host::choose_entry(1)));
}

TEST_F(PopupComponent, ScriptsVariables_AreRead) {
  Variant caption = text_value(L"Premier"), key = text_value(L"1"), window(button_.number()), chosen;
  ASSERT_EQ(S_OK,
            host::call(popup_.get(), L"AddItem",
                       arguments(host::by_reference(caption.get()), host::by_reference(key.get())), nullptr));
  const MenuUser user(button_.handle(), host::choose_entry(1));
  ASSERT_EQ(S_OK, host::call(popup_.get(), L"ExecuteFromWindow", arguments(host::by_reference(window.get())),
                             chosen.receive()));
  EXPECT_EQ(L"1", host::get(chosen.get().bstrVal));
}

TEST_F(PopupComponent, NamesAreFoundWhateverTheirCase) {
  EXPECT_EQ(S_OK,
            host::call(popup_.get(), L"ADDITEM", arguments(text_value(L"a"), text_value(L"1")), nullptr));
  EXPECT_EQ(S_OK,
            host::call(popup_.get(), L"additem", arguments(text_value(L"b"), text_value(L"2")), nullptr));
  EXPECT_EQ((Lines{L"a", L"b"}), lines());
}

TEST_F(PopupComponent, AnUnknownName_IsRefused) {
  EXPECT_EQ(DISP_E_UNKNOWNNAME, host::call(popup_.get(), L"AddItems", {}, nullptr));
}

TEST_F(PopupComponent, AWrongNumberOfArguments_IsRefused) {
  EXPECT_EQ(DISP_E_BADPARAMCOUNT, host::call(popup_.get(), L"AddItem", {}, nullptr));
  EXPECT_EQ(DISP_E_BADPARAMCOUNT,
            host::call(popup_.get(), L"AddItem",
                       arguments(text_value(L"a"), text_value(L"b"), text_value(L"c")), nullptr));
  EXPECT_EQ(DISP_E_BADPARAMCOUNT, host::call(popup_.get(), L"ExecuteFromWindow", {}, nullptr));
}

TEST_F(PopupComponent, AMethodIsNoProperty) {
  Variant value;
  EXPECT_EQ(DISP_E_MEMBERNOTFOUND, host::get_property(popup_.get(), L"ExecuteFromWindow", value.receive()));
  EXPECT_EQ(DISP_E_MEMBERNOTFOUND, host::put_property(popup_.get(), L"AddItem", text_value(L"a")));
}

TEST_F(PopupComponent, ACaptionThatIsNoText_FailsInFrench) {
  expect_exception(13, L"Type incompatible", L"AddItem",
                   arguments(host::object_value(button_.object().get())));
  expect_exception(94, L"Utilisation de Null incorrecte", L"AddItem", arguments(host::null_value()));
}

TEST_F(PopupComponent, AKeyThatIsNoText_FailsInFrench_AndAddsNothing) {
  expect_exception(94, L"Utilisation de Null incorrecte", L"AddItem",
                   arguments(text_value(L"a"), host::null_value()));
  add(L"b", L"2");
  EXPECT_EQ(Lines{L"b"}, lines());
}

TEST_F(PopupComponent, AWindowThatIsNoNumber_FailsInFrench) {
  expect_exception(13, L"Type incompatible", L"ExecuteFromWindow", arguments(text_value(L"fenêtre")));
}

TEST_F(PopupComponent, AFailureThatNobodyAsksAbout_IsStillAFailure) {
  EXPECT_EQ(DISP_E_EXCEPTION,
            host::call(popup_.get(), L"ExecuteFromWindow", arguments(Variant(0L)), nullptr, nullptr));
}

}  // namespace
