#include "painting.h"

namespace galerie {
namespace {

int CALLBACK note_font(const LOGFONTW*, const TEXTMETRICW*, DWORD, LPARAM found) {
  *reinterpret_cast<bool*>(found) = true;
  return 0;
}

bool is_installed(const wchar_t* family) {
  LOGFONTW wanted{};
  wanted.lfCharSet = DEFAULT_CHARSET;
  lstrcpynW(wanted.lfFaceName, family, LF_FACESIZE);
  bool found = false;
  const HDC screen = GetDC(nullptr);
  EnumFontFamiliesExW(screen, &wanted, note_font, reinterpret_cast<LPARAM>(&found), 0);
  ReleaseDC(nullptr, screen);
  return found;
}

const wchar_t* screen_family() {
  static const wchar_t* const family = [] {
    for (const wchar_t* candidate : {L"Segoe UI", L"DejaVu Sans", L"Tahoma"}) {
      if (is_installed(candidate)) return candidate;
    }
    return L"Arial";
  }();
  return family;
}

}  // namespace

Font::Font(int pixels, bool bold)
    : handle_(CreateFontW(-pixels, 0, 0, 0, bold ? FW_BOLD : FW_NORMAL, FALSE, FALSE, FALSE, DEFAULT_CHARSET,
                          OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, ANTIALIASED_QUALITY, DEFAULT_PITCH,
                          screen_family())) {}

void fill(HDC device, const RECT& place, COLORREF colour) {
  const HBRUSH brush = CreateSolidBrush(colour);
  FillRect(device, &place, brush);
  DeleteObject(brush);
}

void box(HDC device, const RECT& place, COLORREF colour, COLORREF edge) {
  fill(device, place, edge);
  fill(device, {place.left + 1, place.top + 1, place.right - 1, place.bottom - 1}, colour);
}

void draw_text(HDC device, const Font& font, COLORREF colour, RECT place, std::wstring_view text,
               UINT format) {
  const HGDIOBJ former = SelectObject(device, font.get());
  SetBkMode(device, TRANSPARENT);
  SetTextColor(device, colour);
  DrawTextW(device, text.data(), static_cast<int>(text.size()), &place, format | DT_NOPREFIX);
  SelectObject(device, former);
}

}  // namespace galerie
