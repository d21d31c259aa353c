// Outil.SetRegionStdBout: the calls to the platform that make, hand over and give back the regions.
#include <algorithm>

#include "controls/scripted_control.h"
#include "support/window.h"
#include "support/import_table.h"

namespace {

using host::FakeObject;
using host::Log;
using host::ReplacedImport;
using host::Variant;

/// The calls to the platform's regions, passed on and written down; a region is called after its place among
/// those made.
class RegionCalls {
 public:
  RegionCalls() {
    log.clear();
    made.clear();
  }

  static inline Log log;

 private:
  static inline std::vector<HGDIOBJ> made;

  static std::wstring name_of(HGDIOBJ region) {
    const auto place = std::find(made.begin(), made.end(), region);
    return L"region " + (place == made.end() ? L"?" : std::to_wstring(place - made.begin() + 1));
  }

  static HRGN WINAPI create(int left, int top, int right, int bottom) {
    const HRGN region = CreateRectRgn(left, top, right, bottom);
    made.push_back(region);
    log.push_back(name_of(region) + L": " + std::to_wstring(left) + L' ' + std::to_wstring(top) + L' ' +
                  std::to_wstring(right) + L' ' + std::to_wstring(bottom));
    return region;
  }

  static int WINAPI combine(HRGN result, HRGN first, HRGN second, int mode) {
    log.push_back(name_of(result) + L" := " + name_of(first) + (mode == RGN_OR ? L" or " : L" ? ") +
                  name_of(second));
    return CombineRgn(result, first, second, mode);
  }

  static int WINAPI hand_over(HWND window, HRGN region, WINBOOL redraw) {
    log.push_back(name_of(region) + (redraw ? L" handed over, redrawn" : L" handed over"));
    return SetWindowRgn(window, region, redraw);
  }

  static WINBOOL WINAPI give_back(HGDIOBJ region) {
    log.push_back(name_of(region) + L" given back");
    return DeleteObject(region);
  }

  const HMODULE library_ = GetModuleHandleW(L"VelmoSAV_DLL14.dll");
  const ReplacedImport create_{library_, "CreateRectRgn", create};
  const ReplacedImport combine_{library_, "CombineRgn", combine};
  const ReplacedImport hand_over_{library_, "SetWindowRgn", hand_over};
  const ReplacedImport give_back_{library_, "DeleteObject", give_back};
};

/// Cuts a button's corners in pixels; the calls in their order.
Log calls_of_a_cut(long window) {
  const auto tools = host::create<_Outil>(L"Outil");
  const auto button = FakeObject::make();
  button->property(L"Container", host::object_value(nullptr));
  button->property(L"Width", Variant(100.0));
  button->property(L"Height", Variant(25.0));
  button->property(L"hWnd", Variant(window));
  IDispatch* variable = button.get();
  const RegionCalls calls;
  EXPECT_EQ(S_OK, tools->SetRegionStdBout(&variable));
  return RegionCalls::log;
}

const Log kCalls{
    L"region 1: 1 0 99 25", L"region 2: 0 1 100 24",          L"region 1 := region 1 or region 2",
    L"region 2 given back", L"region 1 handed over, redrawn", L"region 1 given back"};

TEST(RegionRelease, SetRegionStdBout_GivesThePartBackAfterTheUnionAndTheShapeAfterTheWindowHasIt) {
  const host::Window window(L"BUTTON", RECT{40, 40, 140, 65});
  EXPECT_EQ(kCalls, calls_of_a_cut(window.number()));
}

TEST(RegionRelease, SetRegionStdBout_WithoutWindow_GivesBothBackToo) { EXPECT_EQ(kCalls, calls_of_a_cut(0)); }

}  // namespace
