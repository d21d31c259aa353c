#include "support/window.h"

#include <cstdint>

namespace host {

Window::Window(const wchar_t* window_class, RECT place, HWND parent)
    : handle_(CreateWindowExW(0, window_class, L"", parent ? WS_CHILD : WS_POPUP, place.left, place.top,
                              place.right - place.left, place.bottom - place.top, parent, nullptr,
                              GetModuleHandleW(nullptr), nullptr)) {
  EXPECT_NE(nullptr, handle_) << "no window: is there a display?";
  // An active window waits for a window manager, which a test's display lacks.
  SetWindowPos(handle_, nullptr, 0, 0, 0, 0,
               SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_SHOWWINDOW);
}

long Window::number() const { return static_cast<long>(reinterpret_cast<std::intptr_t>(handle_)); }

SIZE Window::size() const {
  RECT place{};
  GetWindowRect(handle_, &place);
  return {place.right - place.left, place.bottom - place.top};
}

SIZE screen_twips() {
  const HDC screen = GetDC(nullptr);
  const SIZE twips{1440 / GetDeviceCaps(screen, LOGPIXELSX), 1440 / GetDeviceCaps(screen, LOGPIXELSY)};
  ReleaseDC(nullptr, screen);
  return twips;
}

}  // namespace host
