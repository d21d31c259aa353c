// The component's menu and the window that it is opened for: place, refused windows, and what is left
// afterwards.
#include <atomic>
#include <cstdint>

#include "menus/component.h"
#include "menus/menu_user.h"
#include "menus/screen_button.h"
#include "support/arguments.h"

namespace {

using host::arguments;
using host::ComPtr;
using host::MenuUser;
using host::ScreenButton;
using host::text_value;
using host::Variant;

class MenuWindow : public ::testing::Test {
 protected:
  MenuWindow() { add(popup_.get(), L"Premier", L"1"); }

  static void add(IDispatch* popup, const wchar_t* caption, const wchar_t* key) {
    EXPECT_EQ(S_OK, host::call(popup, L"AddItem", arguments(text_value(caption), text_value(key)), nullptr));
  }
  HRESULT execute(long window, Variant& key, EXCEPINFO* exception = nullptr) {
    return host::call(popup_.get(), L"ExecuteFromWindow", arguments(Variant(window)), key.receive(),
                      exception);
  }
  host::ShownMenu shown_over(const ScreenButton& button) {
    MenuUser user(button.handle(), host::dismiss());
    Variant key;
    EXPECT_EQ(S_OK, execute(button.number(), key));
    EXPECT_TRUE(user.saw_a_menu());
    return user.menu();
  }
  void expect_refused(long window, const std::wstring& text) {
    EXCEPINFO exception{};
    Variant key;
    EXPECT_EQ(DISP_E_EXCEPTION, execute(window, key, &exception));
    EXPECT_EQ(static_cast<HRESULT>(0x800A0005UL), exception.scode);
    EXPECT_EQ(text, host::get(exception.bstrDescription));
    SysFreeString(exception.bstrSource);
    SysFreeString(exception.bstrDescription);
  }

  static constexpr wchar_t kNoWindow[] = L"La fenêtre du menu n'existe pas";
  static constexpr wchar_t kOtherThread[] = L"La fenêtre du menu n'appartient pas à l'appelant";
  const ComPtr<IDispatch> popup_ = host::create_popup_menu();
};

TEST_F(MenuWindow, OpensBelowTheWindow_LeftEdgeOnLeftEdge) {
  const host::ShownMenu menu = shown_over(ScreenButton(RECT{320, 240, 440, 270}));
  EXPECT_EQ(320, menu.place.left);
  EXPECT_EQ(270, menu.place.top);
}

TEST_F(MenuWindow, OfAChildWindow_OpensAtItsPlaceOnTheScreen) {
  const ScreenButton screen(RECT{100, 100, 500, 400});
  const ScreenButton button(RECT{30, 40, 150, 65}, screen.handle());
  const host::ShownMenu menu = shown_over(button);
  EXPECT_EQ(130, menu.place.left);
  EXPECT_EQ(165, menu.place.top);
}

TEST_F(MenuWindow, WithoutRoomBelow_StaysOnTheScreen) {
  const int bottom = GetSystemMetrics(SM_CYSCREEN);
  const host::ShownMenu menu = shown_over(ScreenButton(RECT{320, bottom - 30, 440, bottom - 2}));
  EXPECT_EQ(320, menu.place.left);
  EXPECT_LE(menu.place.bottom, bottom);
}

TEST_F(MenuWindow, WithoutRoomAtTheRight_StaysOnTheScreen) {
  const int right = GetSystemMetrics(SM_CXSCREEN);
  const host::ShownMenu menu = shown_over(ScreenButton(RECT{right - 10, 200, right, 230}));
  EXPECT_LE(menu.place.right, right);
  EXPECT_GE(menu.place.top, 230);
}

TEST_F(MenuWindow, Closed_IsNoMenuAnyMore) {
  const ScreenButton button;
  const host::ShownMenu menu = shown_over(button);
  EXPECT_FALSE(IsMenu(menu.handle));
  EXPECT_FALSE(IsWindowVisible(menu.window));
}

TEST_F(MenuWindow, NoWindow_IsRefused) { expect_refused(0, kNoWindow); }

TEST_F(MenuWindow, AHandleThatIsNoWindow_IsRefused) { expect_refused(0x7FFFFFF1, kNoWindow); }

TEST_F(MenuWindow, ADestroyedWindow_IsRefused) {
  long number = 0;
  {
    const ScreenButton button;
    number = button.number();
  }
  expect_refused(number, kNoWindow);
}

TEST_F(MenuWindow, AnEmptyMenuForNoWindow_IsRefusedToo) {
  Variant key;
  EXPECT_EQ(DISP_E_EXCEPTION, host::call(host::create_popup_menu().get(), L"ExecuteFromWindow",
                                         arguments(Variant(0L)), key.receive()));
}

TEST_F(MenuWindow, AWindowOfAnotherThread_IsRefused) {
  expect_refused(static_cast<long>(reinterpret_cast<std::intptr_t>(GetDesktopWindow())), kOtherThread);
}

TEST_F(MenuWindow, TheWindowIsDestroyedMeanwhile_TheMenuIsDismissed) {
  const HWND window = CreateWindowExW(0, L"BUTTON", L"", WS_POPUP | WS_VISIBLE, 200, 150, 100, 30, nullptr,
                                      nullptr, GetModuleHandleW(nullptr), nullptr);
  MenuUser user(window, [](HWND owner, const auto&) { PostMessageW(owner, WM_CLOSE, 0, 0); });
  Variant key;
  EXPECT_EQ(S_OK, execute(static_cast<long>(reinterpret_cast<std::intptr_t>(window)), key));
  EXPECT_TRUE(user.saw_a_menu());
  EXPECT_EQ(L"", host::get(key.get().bstrVal));
}

/// Lets go of an object when the timer of a window fires.
std::atomic<IDispatch*> object_to_release{nullptr};
void CALLBACK release_object(HWND window, UINT, UINT_PTR timer, DWORD) {
  KillTimer(window, timer);
  if (IDispatch* const object = object_to_release.exchange(nullptr)) object->Release();
}

TEST_F(MenuWindow, TheObjectIsReleasedMeanwhile_TheChoiceStillCounts) {
  const ScreenButton button;
  IDispatch* const popup = host::create_popup_menu().detach();
  add(popup, L"Premier", L"1");
  object_to_release = popup;
  SetTimer(button.handle(), 1, 10, release_object);
  const MenuUser user(button.handle(), [](HWND owner, const host::ShownMenu& menu) {
    for (int i = 0; i < 400 && object_to_release; ++i) Sleep(5);
    host::choose_entry(1)(owner, menu);
  });
  Variant key;
  EXPECT_EQ(S_OK,
            host::call(popup, L"ExecuteFromWindow", arguments(Variant(button.number())), key.receive()));
  EXPECT_EQ(L"1", host::get(key.get().bstrVal));
}

std::atomic<int> ticks{0};
void CALLBACK count_tick(HWND, UINT, UINT_PTR, DWORD) { ++ticks; }

TEST_F(MenuWindow, TheHostsWindowsLiveOnWhileTheMenuIsOpen) {
  const ScreenButton button;
  ticks = 0;
  SetTimer(button.handle(), 1, 10, count_tick);
  const MenuUser user(button.handle(), [](HWND owner, const host::ShownMenu& menu) {
    for (int i = 0; i < 400 && ticks < 3; ++i) Sleep(5);
    host::dismiss()(owner, menu);
  });
  Variant key;
  EXPECT_EQ(S_OK, execute(button.number(), key));
  EXPECT_GE(ticks, 3);
}

}  // namespace
