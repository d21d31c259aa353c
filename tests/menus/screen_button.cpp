#include "menus/screen_button.h"

#include <cstdint>

namespace host {

ScreenButton::ScreenButton(RECT place, HWND parent)
    : handle_(CreateWindowExW(0, L"BUTTON", L"Menu", parent ? WS_CHILD : WS_POPUP, place.left, place.top,
                              place.right - place.left, place.bottom - place.top, parent, nullptr,
                              GetModuleHandleW(nullptr), nullptr)) {
  EXPECT_NE(nullptr, handle_) << "no window: is there a display?";
  // An active window waits for a window manager, which a test's display lacks.
  SetWindowPos(handle_, nullptr, 0, 0, 0, 0,
               SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_SHOWWINDOW);
  object_->property(L"hWnd", Variant(number()));
}

long ScreenButton::number() const { return static_cast<long>(reinterpret_cast<std::intptr_t>(handle_)); }

}  // namespace host
