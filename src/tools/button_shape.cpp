// The shape of a standard button, as a region of its window.
#include <cmath>
#include <limits>
#include <span>
#include <utility>

#include "automation/attempt.h"
#include "automation/late_bound.h"
#include "tools/control_helpers.h"

namespace velmosav {
namespace {

long to_pixel(double value) {
  const double rounded = std::nearbyint(value);
  if (!(std::fabs(rounded) <= std::numeric_limits<long>::max())) raise(Fault::Overflow);
  return static_cast<long>(rounded);
}

/// Twips per pixel of the screen.
std::pair<short, short> screen_twips() {
  constexpr int kTwipsPerInch = 1440;
  const HDC screen = GetDC(nullptr);
  const int x = GetDeviceCaps(screen, LOGPIXELSX);
  const int y = GetDeviceCaps(screen, LOGPIXELSY);
  ReleaseDC(nullptr, screen);
  if (x <= 0 || y <= 0) raise(Fault::DeviceError);
  return {static_cast<short>(kTwipsPerInch / x), static_cast<short>(kTwipsPerInch / y)};
}

/// Units of the button's container per pixel: the screen's twips unless its scale mode is another.
std::pair<short, short> units_per_pixel(const HostObject& button) {
  constexpr long kTwips = 1;
  const Variant container = button.get(L"Container");
  if (container.get().vt != VT_DISPATCH || !container.get().pdispVal) return {short{1}, short{1}};
  long mode = kTwips;
  attempt([&] { mode = to_long(HostObject(container.get().pdispVal).get(L"ScaleMode").get()); });
  return mode == kTwips ? screen_twips() : std::pair{short{1}, short{1}};
}

/// Unites rectangles (left, top, right, bottom, one after the other) and gives the region to a window.
void set_window_shape(HWND window, int combination, BOOL redraw, std::span<const double> rectangles) {
  HRGN shape = nullptr;
  for (std::size_t i = 0; i + 3 < rectangles.size(); i += 4) {
    const HRGN part = CreateRectRgn(to_pixel(rectangles[i]), to_pixel(rectangles[i + 1]),
                                    to_pixel(rectangles[i + 2]), to_pixel(rectangles[i + 3]));
    if (!shape) {
      shape = part;
      continue;
    }
    CombineRgn(shape, shape, part, combination);
    DeleteObject(part);
  }
  SetWindowRgn(window, shape, redraw);
  // The window has taken the region over; hosts rely on this release as it is.
  DeleteObject(shape);
}

}  // namespace

void cut_button_corners(IDispatch* button) {
  if (!button) return;
  const HostObject object(button);
  const auto [x, y] = units_per_pixel(object);
  const double width = to_double(object.get(L"Width").get()) / x;
  const double height = to_double(object.get(L"Height").get()) / y;
  const double rectangles[] = {1, 0, width - 1, height, 0, 1, width, height - 1};
  const long window = to_long(object.get(L"hWnd").get());
  set_window_shape(reinterpret_cast<HWND>(static_cast<INT_PTR>(window)), RGN_OR, TRUE, rectangles);
}

}  // namespace velmosav
