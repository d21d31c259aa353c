#include "label.h"

namespace galerie {
namespace {

std::wstring text_of_window(HWND window) {
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
  text.resize(static_cast<std::size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
  return text;
}

}  // namespace

Label::Label(HWND form, const Fonts& fonts, POINT place, int width)
    : window_(CreateWindowExW(0, L"STATIC", L"", WS_CHILD | WS_VISIBLE | SS_NOPREFIX, place.x, place.y, width,
                              0, form, nullptr, GetModuleHandleW(nullptr), nullptr)),
      fonts_(fonts) {
  SendMessageW(window_, WM_SETFONT, reinterpret_cast<WPARAM>(fonts.text.get()), FALSE);
  control_.add(
      L"Width", [this](auto&) { return value(size().cx); },
      [this](const VARIANT& width_value) { resize(number_of(width_value), size().cy); });
  control_.add(
      L"Height", [this](auto&) { return value(size().cy); },
      [this](const VARIANT& height) { resize(size().cx, number_of(height)); });
  control_.add(
      L"Caption", [this](auto&) { return value(text_of_window(window_)); },
      [this](const VARIANT& text) {
        SetWindowTextW(window_, text_of(text).c_str());
        grow();
      });
  control_.add(
      L"WordWrap", [this](auto&) { return value(long{wraps_}); },
      [this](const VARIANT& flag) { wraps_ = number_of(flag) != 0; });
  control_.add(
      L"AutoSize", [this](auto&) { return value(long{grows_}); },
      [this](const VARIANT& flag) {
        grows_ = number_of(flag) != 0;
        grow();
      });
  control_.add(
      L"ForeColor", [this](auto&) { return value(static_cast<long>(colour_)); },
      [this](const VARIANT& colour) {
        colour_ = static_cast<COLORREF>(number_of(colour));
        InvalidateRect(window_, nullptr, TRUE);
      });
  control_.add(L"Font", [this](auto&) { return value(&font_); });
  font_.add(
      L"Bold", [this](auto&) { return value(long{bold_}); },
      [this](const VARIANT& flag) {
        bold_ = number_of(flag) != 0;
        const HFONT font = (bold_ ? fonts_.bold : fonts_.text).get();
        SendMessageW(window_, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
        grow();
      });
}

SIZE Label::size() const {
  RECT place{};
  GetWindowRect(window_, &place);
  return {place.right - place.left, place.bottom - place.top};
}

void Label::resize(long width, long height) {
  SetWindowPos(window_, nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void Label::grow() {
  if (!grows_) return;
  const std::wstring text = text_of_window(window_);
  RECT room{0, 0, size().cx, 0};
  const HDC device = GetDC(window_);
  const HGDIOBJ former = SelectObject(device, (bold_ ? fonts_.bold : fonts_.text).get());
  DrawTextW(device, text.c_str(), -1, &room,
            DT_CALCRECT | DT_NOPREFIX | (wraps_ ? DT_WORDBREAK : DT_SINGLELINE));
  SelectObject(device, former);
  ReleaseDC(window_, device);
  resize(size().cx, text.empty() ? 0 : room.bottom);
}

}  // namespace galerie
