// For a picture of a menu: presses a button of a running program and moves to a line of the menu that it
// opens.
//
//   open_menu.exe TITLE BUTTON LINE    the window's title, the start of the button's text, the line from 1
#include <windows.h>

#include <cstdlib>
#include <string_view>

namespace {

constexpr DWORD kPause = 700;

struct Search {
  std::wstring_view start;
  HWND found;
};

BOOL CALLBACK compare(HWND window, LPARAM parameter) {
  auto& search = *reinterpret_cast<Search*>(parameter);
  wchar_t text[64];
  const int length = GetWindowTextW(window, text, 64);
  if (!std::wstring_view(text, static_cast<std::size_t>(length)).starts_with(search.start)) return TRUE;
  search.found = window;
  return FALSE;
}

}  // namespace

int wmain(int count, wchar_t** words) {
  if (count != 4) return 2;
  const HWND window = FindWindowW(nullptr, words[1]);
  Search search{words[2], nullptr};
  if (window) EnumChildWindows(window, compare, reinterpret_cast<LPARAM>(&search));
  if (!search.found) return 1;
  PostMessageW(search.found, BM_CLICK, 0, 0);
  Sleep(kPause);
  for (long line = std::wcstol(words[3], nullptr, 10); line > 0; --line) {
    PostMessageW(search.found, WM_KEYDOWN, VK_DOWN, 1);
  }
  return 0;
}
