// A flat button, drawn by its form. Its sizes are in twips, as its container says.
#pragma once

#include "control.h"
#include "painting.h"

namespace galerie {

class Button {
 public:
  Button(HWND form, int identifier, RECT place, std::wstring_view caption);

  [[nodiscard]] HWND window() const { return window_; }
  [[nodiscard]] Control& control() { return control_; }
  [[nodiscard]] SIZE size() const;
  /// Answers WM_DRAWITEM.
  static void draw(const DRAWITEMSTRUCT& item, const Fonts& fonts);

 private:
  HWND window_;
  Control control_;
  Control container_;
};

/// Draws the pixels of a window's upper left corner, magnified: those outside its region stay empty.
void draw_magnified_corner(HDC device, const Button& button, RECT place, int pixels);

}  // namespace galerie
