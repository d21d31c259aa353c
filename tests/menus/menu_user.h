// The user at an open menu: reads it, then presses keys or clicks.
#pragma once

#include <atomic>
#include <functional>
#include <string>
#include <thread>
#include <vector>

#include "support/host.h"

namespace host {

inline constexpr wchar_t kSeparator[] = L"<separator>";

/// What a menu showed while it was open.
struct ShownMenu {
  HWND window = nullptr;
  HMENU handle = nullptr;
  RECT place{};
  std::vector<std::wstring> lines;  // captions as they are written, kSeparator for a separator
};

/// Waits, on a thread of its own, for a menu of the thread that made it, reads it and acts. A menu that is
/// still open some seconds later is cancelled and the test fails; one that resists ends the program. So no
/// test hangs.
///
///   MenuUser user(button.handle(), keys({VK_DOWN, VK_RETURN}));
///   EXPECT_EQ(IndMenuPop_Liste, open_menu());
///   EXPECT_EQ(expected, user.menu().lines);
class MenuUser {
 public:
  /// What the user does; on the user's thread.
  using Act = std::function<void(HWND owner, const ShownMenu& menu)>;

  MenuUser(HWND owner, Act act);
  ~MenuUser() { leave(); }
  MenuUser(const MenuUser&) = delete;
  MenuUser& operator=(const MenuUser&) = delete;

  /// What was shown, once the menu is closed; nothing when none came.
  const ShownMenu& menu();
  bool saw_a_menu() { return menu().window != nullptr; }

 private:
  void run();
  bool find_menu();
  void cancel();
  void leave();

  const DWORD thread_to_watch_ = GetCurrentThreadId();
  const HWND owner_;
  const Act act_;
  ShownMenu menu_;
  std::atomic<bool> over_{false};
  std::atomic<bool> stuck_{false};
  std::thread thread_;
};

/// Keys posted to the menu's owner, in order.
MenuUser::Act keys(std::vector<WORD> codes);
/// Down to the n-th entry that can be chosen, counted from 1, and Enter.
MenuUser::Act choose_entry(int number);
MenuUser::Act dismiss();
/// A typed character.
MenuUser::Act type(wchar_t character);
/// Keys of the keyboard itself, as the system delivers them.
MenuUser::Act press_keyboard(std::vector<BYTE> codes);
/// The left button of the mouse over a line, counted from 0, separators included.
MenuUser::Act click_line(UINT line);
/// The left button of the mouse at a place of the screen.
MenuUser::Act click_at(POINT place);

}  // namespace host
