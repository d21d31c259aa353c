#include "menus/screen_button.h"

namespace host {

ScreenButton::ScreenButton(RECT place, HWND parent) : Window(L"BUTTON", place, parent) {
  object_->property(L"hWnd", Variant(number()));
}

}  // namespace host
