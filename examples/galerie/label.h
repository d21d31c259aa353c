// A label that grows with its text, like a form's label with AutoSize. Sizes are in pixels.
#pragma once

#include "control.h"
#include "painting.h"

namespace galerie {

class Label {
 public:
  Label(HWND form, const Fonts& fonts, POINT place, int width);

  [[nodiscard]] HWND window() const { return window_; }
  [[nodiscard]] Control& control() { return control_; }
  [[nodiscard]] COLORREF colour() const { return colour_; }
  [[nodiscard]] SIZE size() const;

 private:
  void resize(long width, long height);
  void grow();

  HWND window_;
  const Fonts& fonts_;
  Control control_;
  Control font_;
  COLORREF colour_ = colours::kText;
  bool bold_ = false;
  bool wraps_ = false;
  bool grows_ = false;
};

}  // namespace galerie
