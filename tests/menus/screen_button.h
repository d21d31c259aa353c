// A button of the contract screen: a real window, and the automation object that the host passes for it.
#pragma once

#include "support/fake_object.h"
#include "support/window.h"

namespace host {

class ScreenButton : public Window {
 public:
  static constexpr RECT kPlace{200, 150, 360, 180};

  /// A pop-up of its own, shown without taking the focus, or a child of a window.
  explicit ScreenButton(RECT place = kPlace, HWND parent = nullptr);

  [[nodiscard]] const ComPtr<FakeObject>& object() const { return object_; }

 private:
  ComPtr<FakeObject> object_ = FakeObject::make();
};

}  // namespace host
