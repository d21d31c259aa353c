// Real windows of a test, and the screen's twips.
#pragma once

#include "support/host.h"

namespace host {

/// A borderless window; destroyed with its owner. A pop-up by default, shown without taking the focus.
class Window {
 public:
  Window(const wchar_t* window_class, RECT place, HWND parent = nullptr);
  ~Window() { DestroyWindow(handle_); }
  Window(const Window&) = delete;
  Window& operator=(const Window&) = delete;

  [[nodiscard]] HWND handle() const { return handle_; }
  /// The handle as a control's hWnd gives it.
  [[nodiscard]] long number() const;
  [[nodiscard]] SIZE size() const;

 private:
  HWND handle_;
};

/// Twips per pixel, across and down.
SIZE screen_twips();

}  // namespace host
