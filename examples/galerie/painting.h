// Colours and fonts of the gallery, and the little drawing that its controls share.
#pragma once

#include <windows.h>

#include <string_view>

namespace galerie {

namespace colours {
constexpr COLORREF kPage = RGB(243, 246, 250);
constexpr COLORREF kCard = RGB(255, 255, 255);
constexpr COLORREF kEdge = RGB(208, 216, 226);
constexpr COLORREF kBanner = RGB(27, 58, 96);
constexpr COLORREF kBannerText = RGB(200, 216, 236);
constexpr COLORREF kText = RGB(34, 42, 53);
constexpr COLORREF kFaint = RGB(106, 118, 134);
constexpr COLORREF kTint = RGB(232, 240, 250);
constexpr COLORREF kAccent = RGB(36, 104, 178);
constexpr COLORREF kAccentDown = RGB(24, 78, 138);
constexpr COLORREF kWarning = RGB(168, 60, 30);
}  // namespace colours

/// A font of the system's best family for screens.
class Font {
 public:
  Font(int pixels, bool bold);
  ~Font() { DeleteObject(handle_); }
  Font(const Font&) = delete;
  Font& operator=(const Font&) = delete;
  [[nodiscard]] HFONT get() const { return handle_; }

 private:
  HFONT handle_;
};

struct Fonts {
  Font text{13, false};
  Font bold{13, true};
  Font small{12, false};
  Font title{21, true};
};

void fill(HDC device, const RECT& place, COLORREF colour);
/// A filled rectangle with a one-pixel edge.
void box(HDC device, const RECT& place, COLORREF colour, COLORREF edge);
/// `format`: the flags of DrawText.
void draw_text(HDC device, const Font& font, COLORREF colour, RECT place, std::wstring_view text,
               UINT format = DT_LEFT | DT_VCENTER | DT_SINGLELINE);

}  // namespace galerie
