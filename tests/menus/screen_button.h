// A button of the contract screen: a real window, and the automation object that the host passes for it.
#pragma once

#include "support/fake_object.h"

namespace host {

class ScreenButton {
 public:
  static constexpr RECT kPlace{200, 150, 360, 180};

  /// A pop-up of its own, shown without taking the focus, or a child of a window.
  explicit ScreenButton(RECT place = kPlace, HWND parent = nullptr);
  ~ScreenButton() { DestroyWindow(handle_); }
  ScreenButton(const ScreenButton&) = delete;
  ScreenButton& operator=(const ScreenButton&) = delete;

  [[nodiscard]] HWND handle() const { return handle_; }
  /// The handle as a control's hWnd gives it.
  [[nodiscard]] long number() const;
  [[nodiscard]] const ComPtr<FakeObject>& object() const { return object_; }

 private:
  HWND handle_;
  ComPtr<FakeObject> object_ = FakeObject::make();
};

}  // namespace host
