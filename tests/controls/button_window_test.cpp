// Outil.SetRegionStdBout on a real window: the region that it has afterwards.
#include "controls/scripted_control.h"
#include "support/arguments.h"
#include "support/window.h"

namespace {

using host::FakeObject;
using host::Variant;

constexpr short kTwips = 1;
constexpr short kPixels = 3;

class ButtonWindow : public ::testing::Test {
 protected:
  ButtonWindow() {
    button_->property(L"hWnd", Variant(window_.number()));
    container_->property(L"ScaleMode", Variant(kTwips));
    button_->property(L"Container", host::object_value(container_.get()));
    measure(1500, 375);
  }
  ~ButtonWindow() override { DeleteObject(region_); }

  void measure(double width, double height) {
    button_->property(L"Width", Variant(width));
    button_->property(L"Height", Variant(height));
  }

  /// Cuts the corners and reads the window's region back; its kind, ERROR (0) for a window without region.
  int cut() {
    IDispatch* button = button_.get();
    EXPECT_EQ(S_OK, tools_->SetRegionStdBout(&button));
    return GetWindowRgn(window_.handle(), region_);
  }

  [[nodiscard]] bool contains(int x, int y) const { return PtInRegion(region_, x, y) != FALSE; }

  /// Whether the region is the union of two rectangles: left, top, right, bottom.
  [[nodiscard]] bool is_union(RECT first, RECT second) const {
    const HRGN expected = CreateRectRgnIndirect(&first);
    const HRGN part = CreateRectRgnIndirect(&second);
    CombineRgn(expected, expected, part, RGN_OR);
    const bool same = EqualRgn(expected, region_) != FALSE;
    DeleteObject(part);
    DeleteObject(expected);
    return same;
  }

  const host::ComPtr<_Outil> tools_ = host::create<_Outil>(L"Outil");
  const host::Window window_{L"BUTTON", RECT{40, 40, 140, 65}};
  const host::ComPtr<FakeObject> button_ = FakeObject::make();
  const host::ComPtr<FakeObject> container_ = FakeObject::make();
  const HRGN region_ = CreateRectRgn(0, 0, 0, 0);
};

TEST_F(ButtonWindow, AContainerInTwipsOf15_1500By375_GetsTheRectangles_1_0_99_25_And_0_1_100_24) {
  const SIZE twips = host::screen_twips();
  ASSERT_EQ(15, twips.cx);
  ASSERT_EQ(15, twips.cy);
  EXPECT_EQ(COMPLEXREGION, cut());
  EXPECT_TRUE(is_union({1, 0, 99, 25}, {0, 1, 100, 24}));
}

TEST_F(ButtonWindow, LosesItsFourCornerPixelsAndNoOther) {
  cut();
  for (int y = 0; y < 25; ++y) {
    for (int x = 0; x < 100; ++x) {
      const bool corner = (x == 0 || x == 99) && (y == 0 || y == 24);
      ASSERT_EQ(!corner, contains(x, y)) << x << ", " << y;
    }
  }
  EXPECT_FALSE(contains(100, 12));
  EXPECT_FALSE(contains(50, 25));
}

TEST_F(ButtonWindow, AContainerInPixels_CountsTheSizesAsTheyAre) {
  container_->property(L"ScaleMode", Variant(kPixels));
  measure(100, 25);
  EXPECT_EQ(COMPLEXREGION, cut());
  EXPECT_TRUE(is_union({1, 0, 99, 25}, {0, 1, 100, 24}));
}

TEST_F(ButtonWindow, AnyOtherScaleMode_CountsTheSizesAsTheyAre) {
  for (const long mode : {0L, 2L, 4L, 5L, 6L, 7L, -1L}) {
    container_->property(L"ScaleMode", Variant(mode));
    measure(80, 20);
    cut();
    EXPECT_TRUE(is_union({1, 0, 79, 20}, {0, 1, 80, 19})) << mode;
  }
}

TEST_F(ButtonWindow, WithoutContainer_CountsTheSizesAsTheyAre) {
  button_->property(L"Container", host::object_value(nullptr));
  measure(100, 25);
  cut();
  EXPECT_TRUE(is_union({1, 0, 99, 25}, {0, 1, 100, 24}));
}

TEST_F(ButtonWindow, AContainerThatIsNoObject_CountsTheSizesAsTheyAre) {
  button_->property(L"Container", Variant());
  measure(90, 25);
  cut();
  EXPECT_TRUE(is_union({1, 0, 89, 25}, {0, 1, 90, 24}));
}

TEST_F(ButtonWindow, AScaleModeThatFails_CountsInTwips) {
  refuse_get(container_, L"ScaleMode");
  cut();
  EXPECT_TRUE(is_union({1, 0, 99, 25}, {0, 1, 100, 24}));
}

TEST_F(ButtonWindow, AContainerWithoutScaleMode_CountsInTwips) {
  button_->property(L"Container", host::object_value(FakeObject::make().get()));
  cut();
  EXPECT_TRUE(is_union({1, 0, 99, 25}, {0, 1, 100, 24}));
}

TEST_F(ButtonWindow, AScaleModeThatIsNoNumber_CountsInTwips) {
  container_->property(L"ScaleMode", host::text_value(L"twips"));
  cut();
  EXPECT_TRUE(is_union({1, 0, 99, 25}, {0, 1, 100, 24}));
}

TEST_F(ButtonWindow, SizesThatAreNoWholePixels_RoundHalvesToEven) {
  measure(1507, 382);  // 100.47 by 25.47
  cut();
  EXPECT_TRUE(is_union({1, 0, 99, 25}, {0, 1, 100, 24}));
  measure(1508, 383);  // 100.53 by 25.53
  cut();
  EXPECT_TRUE(is_union({1, 0, 100, 26}, {0, 1, 101, 25}));
  measure(1507.5, 382.5);  // 100.5 by 25.5, and a pixel less 99.5 by 24.5
  cut();
  EXPECT_TRUE(is_union({1, 0, 100, 26}, {0, 1, 100, 24}));
}

TEST_F(ButtonWindow, ASizeAsText_CountsAsItsNumber) {
  button_->property(L"Width", host::text_value(L"1500"));
  cut();
  EXPECT_TRUE(is_union({1, 0, 99, 25}, {0, 1, 100, 24}));
}

TEST_F(ButtonWindow, ASecondCut_ReplacesTheRegion) {
  cut();
  measure(1200, 300);
  cut();
  EXPECT_TRUE(is_union({1, 0, 79, 20}, {0, 1, 80, 19}));
}

WNDPROC original_procedure = nullptr;
int changes_drawn = 0;
int changes_not_drawn = 0;

LRESULT CALLBACK count_changes(HWND window, UINT message, WPARAM first, LPARAM second) {
  if (message == WM_WINDOWPOSCHANGING) {
    const bool drawn = !(reinterpret_cast<const WINDOWPOS*>(second)->flags & SWP_NOREDRAW);
    ++(drawn ? changes_drawn : changes_not_drawn);
  }
  return CallWindowProcW(original_procedure, window, message, first, second);
}

TEST_F(ButtonWindow, IsRedrawnWithItsNewShape) {
  original_procedure = reinterpret_cast<WNDPROC>(
      SetWindowLongPtrW(window_.handle(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&count_changes)));
  SetWindowRgn(window_.handle(), CreateRectRgn(0, 0, 9, 9), FALSE);
  ASSERT_EQ(0, changes_drawn);
  ASSERT_EQ(1, changes_not_drawn);
  cut();
  EXPECT_EQ(1, changes_drawn);
  EXPECT_EQ(1, changes_not_drawn);
}

TEST_F(ButtonWindow, ItsCornersBelongToTheWindowBehind) {
  const host::Window behind(L"STATIC", RECT{30, 30, 160, 90});
  SetWindowPos(behind.handle(), window_.handle(), 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
  EXPECT_EQ(window_.handle(), WindowFromPoint({40, 40}));
  cut();
  EXPECT_NE(window_.handle(), WindowFromPoint({40, 40}));
  EXPECT_EQ(window_.handle(), WindowFromPoint({41, 40}));
  EXPECT_NE(window_.handle(), WindowFromPoint({139, 64}));
}

TEST_F(ButtonWindow, KeepsItsRegionOverManyCuts) {
  for (int i = 0; i < 200; ++i) ASSERT_EQ(COMPLEXREGION, cut()) << i;
  EXPECT_TRUE(is_union({1, 0, 99, 25}, {0, 1, 100, 24}));
}

TEST_F(ButtonWindow, IsCutByALateBoundCall) {
  ASSERT_EQ(S_OK, host::call(tools_.get(), L"SetRegionStdBout",
                             host::arguments(host::object_value(button_.get())), nullptr));
  EXPECT_EQ(COMPLEXREGION, GetWindowRgn(window_.handle(), region_));
  EXPECT_TRUE(is_union({1, 0, 99, 25}, {0, 1, 100, 24}));
}

TEST_F(ButtonWindow, IsCutByALateBoundCallWithAScriptsVariable) {
  Variant button = host::object_value(button_.get());
  ASSERT_EQ(S_OK, host::call(tools_.get(), L"SetRegionStdBout",
                             host::arguments(host::by_reference(button.get())), nullptr));
  EXPECT_EQ(COMPLEXREGION, GetWindowRgn(window_.handle(), region_));
  EXPECT_EQ(button_.get(), button.get().pdispVal);
}

TEST_F(ButtonWindow, NoButtonInALateBoundCall_DoesNothing) {
  EXPECT_EQ(S_OK, host::call(tools_.get(), L"SetRegionStdBout", host::arguments(host::object_value(nullptr)),
                             nullptr));
  EXPECT_EQ(ERROR, GetWindowRgn(window_.handle(), region_));
}

}  // namespace
