// A context menu: its entries, and its showing over a window.
#pragma once

#include "automation/platform.h"

#include <string>
#include <string_view>
#include <vector>

namespace popupmenu {

/// A call that the component refuses, with the French text that the caller sees.
struct Refusal {
  HRESULT code;
  const wchar_t* text;
};

class Menu {
 public:
  /// Captions follow the platform's convention for menus: "&" marks the access key, "&&" is an ampersand.
  void add_entry(std::wstring_view caption, std::wstring_view key);
  void add_separator();

  /// Shows the menu below a window of the calling thread, left edge on left edge, and waits. Where the screen
  /// ends, it goes above the window as far as the platform can avoid covering it. The chosen entry's key;
  /// empty when the menu is dismissed, at once when it has no entry. Refuses a handle that is no window of
  /// this thread.
  [[nodiscard]] std::wstring choose(HWND window) const;

 private:
  struct Entry {
    std::wstring caption;
    std::wstring key;
    bool separator;
  };
  std::vector<Entry> entries_;
};

}  // namespace popupmenu
