#include "button.h"

#include <cstdint>

namespace galerie {
namespace {

constexpr long kTwipsMode = 1;

long twips_per_pixel(int capability) {
  const HDC screen = GetDC(nullptr);
  const long twips = 1440 / GetDeviceCaps(screen, capability);
  ReleaseDC(nullptr, screen);
  return twips;
}

}  // namespace

Button::Button(HWND form, int identifier, RECT place, std::wstring_view caption)
    : window_(CreateWindowExW(0, L"BUTTON", std::wstring(caption).c_str(),
                              WS_CHILD | WS_VISIBLE | WS_TABSTOP | BS_OWNERDRAW, place.left, place.top,
                              place.right - place.left, place.bottom - place.top, form,
                              reinterpret_cast<HMENU>(static_cast<std::intptr_t>(identifier)),
                              GetModuleHandleW(nullptr), nullptr)) {
  container_.add(L"ScaleMode", [](auto&) { return value(kTwipsMode); });
  control_.add(L"Container", [this](auto&) { return value(&container_); });
  control_.add(L"Width", [this](auto&) { return value(size().cx * twips_per_pixel(LOGPIXELSX)); });
  control_.add(L"Height", [this](auto&) { return value(size().cy * twips_per_pixel(LOGPIXELSY)); });
  control_.add(L"hWnd", [this](auto&) { return handle_value(window_); });
}

SIZE Button::size() const {
  RECT place{};
  GetWindowRect(window_, &place);
  return {place.right - place.left, place.bottom - place.top};
}

void Button::draw(const DRAWITEMSTRUCT& item, const Fonts& fonts) {
  wchar_t caption[64];
  const int length = GetWindowTextW(item.hwndItem, caption, static_cast<int>(std::size(caption)));
  const int saved = SaveDC(item.hDC);
  // The standard button draws with its parent's clipping: its own shape is set here.
  const HRGN shape = CreateRectRgn(0, 0, 0, 0);
  if (GetWindowRgn(item.hwndItem, shape) != ERROR) ExtSelectClipRgn(item.hDC, shape, RGN_AND);
  fill(item.hDC, item.rcItem, item.itemState & ODS_SELECTED ? colours::kAccentDown : colours::kAccent);
  draw_text(item.hDC, fonts.bold, RGB(255, 255, 255), item.rcItem,
            {caption, static_cast<std::size_t>(length)}, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
  RestoreDC(item.hDC, saved);
  DeleteObject(shape);
}

void draw_magnified_corner(HDC device, const Button& button, RECT place, int pixels) {
  const HRGN shape = CreateRectRgn(0, 0, 0, 0);
  const bool shaped = GetWindowRgn(button.window(), shape) != ERROR;
  fill(device, place, colours::kEdge);
  const int side = (place.right - place.left - 1) / pixels;
  for (int y = 0; y < pixels; ++y) {
    for (int x = 0; x < pixels; ++x) {
      const bool inside = !shaped || PtInRegion(shape, x, y);
      const POINT corner{place.left + 1 + x * side, place.top + 1 + y * side};
      fill(device, {corner.x, corner.y, corner.x + side - 1, corner.y + side - 1},
           inside ? colours::kAccent : colours::kCard);
    }
  }
  DeleteObject(shape);
}

}  // namespace galerie
