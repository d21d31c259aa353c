#include "menus/menu_user.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>

namespace host {
namespace {

using Clock = std::chrono::steady_clock;
using namespace std::chrono_literals;

constexpr auto kStep = 5ms;
constexpr auto kPatience = 8s;
constexpr wchar_t kMenuClass[] = L"#32768";
constexpr UINT kGetMenu = 0x01E1;  // MN_GETHMENU

BOOL CALLBACK keep_visible_menu(HWND window, LPARAM found) {
  wchar_t name[16];
  GetClassNameW(window, name, 16);
  if (lstrcmpW(name, kMenuClass) != 0 || !IsWindowVisible(window)) return TRUE;
  *reinterpret_cast<HWND*>(found) = window;
  return FALSE;
}

std::wstring line_of(HMENU menu, UINT place) {
  wchar_t caption[256] = L"";
  MENUITEMINFOW info{};
  info.cbSize = sizeof info;
  info.fMask = MIIM_FTYPE | MIIM_STRING;
  info.dwTypeData = caption;
  info.cch = 256;
  if (!GetMenuItemInfoW(menu, place, TRUE, &info)) return L"<unreadable>";
  return info.fType & MFT_SEPARATOR ? kSeparator : caption;
}

void mouse(DWORD event) {
  INPUT input{};
  input.type = INPUT_MOUSE;
  input.mi.dwFlags = event;
  SendInput(1, &input, sizeof input);
}

}  // namespace

MenuUser::MenuUser(HWND owner, Act act) : owner_(owner), act_(std::move(act)), thread_([this] { run(); }) {}

const ShownMenu& MenuUser::menu() {
  leave();
  return menu_;
}

void MenuUser::leave() {
  over_ = true;
  if (!thread_.joinable()) return;
  thread_.join();
  // What the keyboard and the mouse left, as a host's own loop takes it.
  for (MSG message; PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE);) DispatchMessageW(&message);
  EXPECT_FALSE(stuck_.exchange(false)) << "the menu stayed open";
}

void MenuUser::run() {
  const auto limit = Clock::now() + kPatience;
  bool acted = false;
  while (!over_ && Clock::now() < limit) {
    if (!acted && find_menu()) {
      act_(owner_, menu_);
      acted = true;
    }
    std::this_thread::sleep_for(kStep);
  }
  if (!over_) cancel();
}

bool MenuUser::find_menu() {
  HWND window = nullptr;
  EnumThreadWindows(thread_to_watch_, keep_visible_menu, reinterpret_cast<LPARAM>(&window));
  DWORD_PTR handle = 0;
  if (!window || !SendMessageTimeoutW(window, kGetMenu, 0, 0, SMTO_NORMAL, 1000, &handle) || !handle) {
    return false;
  }
  menu_.window = window;
  menu_.handle = reinterpret_cast<HMENU>(handle);
  GetWindowRect(window, &menu_.place);
  const int count = GetMenuItemCount(menu_.handle);
  for (int i = 0; i < count; ++i) menu_.lines.push_back(line_of(menu_.handle, static_cast<UINT>(i)));
  return true;
}

void MenuUser::cancel() {
  const auto limit = Clock::now() + kPatience;
  stuck_ = true;
  SendMessageTimeoutW(owner_, WM_CANCELMODE, 0, 0, SMTO_NORMAL, 2000, nullptr);
  while (!over_ && Clock::now() < limit) std::this_thread::sleep_for(kStep);
  if (over_) return;
  std::fputs("a menu cannot be closed: giving up\n", stderr);
  std::_Exit(3);
}

MenuUser::Act keys(std::vector<WORD> codes) {
  return [codes = std::move(codes)](HWND owner, const ShownMenu&) {
    for (const WORD code : codes) PostMessageW(owner, WM_KEYDOWN, code, 1);
  };
}

MenuUser::Act choose_entry(int number) {
  std::vector<WORD> codes(static_cast<std::size_t>(number), VK_DOWN);
  codes.push_back(VK_RETURN);
  return keys(std::move(codes));
}

MenuUser::Act dismiss() { return keys({VK_ESCAPE}); }

MenuUser::Act type(wchar_t character) {
  return [character](HWND owner, const ShownMenu&) { PostMessageW(owner, WM_CHAR, character, 1); };
}

MenuUser::Act press_keyboard(std::vector<BYTE> codes) {
  return [codes = std::move(codes)](HWND owner, const ShownMenu&) {
    // The system gives the keyboard to the foreground window alone.
    const auto limit = Clock::now() + kPatience / 2;
    while (GetForegroundWindow() != owner && Clock::now() < limit) {
      SetForegroundWindow(owner);
      std::this_thread::sleep_for(kStep);
    }
    for (const BYTE code : codes) {
      keybd_event(code, 0, 0, 0);
      keybd_event(code, 0, KEYEVENTF_KEYUP, 0);
    }
  };
}

MenuUser::Act click_line(UINT line) {
  return [line](HWND owner, const ShownMenu& menu) {
    RECT place{};
    GetMenuItemRect(nullptr, menu.handle, line, &place);
    click_at({(place.left + place.right) / 2, (place.top + place.bottom) / 2})(owner, menu);
  };
}

MenuUser::Act click_at(POINT place) {
  return [place](HWND, const ShownMenu&) {
    SetCursorPos(place.x, place.y);
    mouse(MOUSEEVENTF_LEFTDOWN);
    mouse(MOUSEEVENTF_LEFTUP);
  };
}

}  // namespace host
