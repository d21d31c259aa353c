// Outil.GetValScrollSurvol with a real window under the real mouse.
#include "controls/scripted_control.h"
#include "support/arguments.h"
#include "support/window.h"

namespace {

using host::ComPtr;
using host::FakeObject;
using host::Variant;

constexpr int kColumnWidth = 80;
constexpr int kRowHeight = 20;
constexpr int kColumns = 3;
constexpr int kRows = 4;
constexpr RECT kPlace{200, 150, 200 + kColumns* kColumnWidth, 150 + (kRows + 1) * kRowHeight};

/// A grid of 3 columns and 4 rows under a heading (row 0); the values are "colonne/ligne".
class GridWindow : public ::testing::Test {
 protected:
  GridWindow() {
    show_in(window_);
    grid_->on_get(L"GetColSurvol", [](const FakeObject::Arguments& place) {
      const double x = place.at(0).dblVal;
      return Variant(static_cast<short>(x < 0 || x >= kColumns * kColumnWidth ? 0 : 1 + x / kColumnWidth));
    });
    grid_->on_get(L"GetLigneSurvol", [](const FakeObject::Arguments& place) {
      const double y = place.at(1).dblVal;
      return Variant(static_cast<short>(y < 0 || y >= (kRows + 1) * kRowHeight ? -1 : y / kRowHeight));
    });
    grid_->on_get(L"GetIdentifiant", [](const FakeObject::Arguments& column) {
      return host::text_value(L"C" + std::to_wstring(column.at(0).iVal));
    });
    grid_->on_get(L"DonneeL", [](const FakeObject::Arguments& cell) {
      return host::text_value(host::get(cell.at(0).bstrVal) + L"/" + std::to_wstring(cell.at(1).iVal));
    });
  }

  void show_in(const host::Window& window) {
    const auto picture = FakeObject::make();
    picture->property(L"hWnd", Variant(window.number()));
    grid_->property(L"CtlPicture", host::object_value(picture.get()));
  }

  /// The value under the mouse at a point of the screen.
  std::wstring value_at(int x, int y) {
    SetCursorPos(x, y);
    IDispatch* grid = grid_.get();
    Variant value;
    EXPECT_EQ(S_OK, tools_->GetValScrollSurvol(&grid, &row_, &column_, value.receive()));
    return host::get(value.get().bstrVal);
  }

  const ComPtr<_Outil> tools_ = host::create<_Outil>(L"Outil");
  const host::Window window_{L"STATIC", kPlace};
  const ComPtr<FakeObject> grid_ = FakeObject::make();
  short row_ = 0;
  short column_ = 0;
};

TEST_F(GridWindow, GivesTheValueOfEachCellUnderTheMouse) {
  for (short row = 1; row <= kRows; ++row) {
    for (short column = 1; column <= kColumns; ++column) {
      const auto value =
          value_at(kPlace.left + column * kColumnWidth - 40, kPlace.top + row * kRowHeight + 10);
      EXPECT_EQ(L"C" + std::to_wstring(column) + L"/" + std::to_wstring(row), value);
      EXPECT_EQ(row, row_);
      EXPECT_EQ(column, column_);
    }
  }
}

TEST_F(GridWindow, TellsNeighbouringCellsApartToThePixel) {
  EXPECT_EQ(L"C1/1", value_at(kPlace.left + kColumnWidth - 1, kPlace.top + 2 * kRowHeight - 1));
  EXPECT_EQ(L"C2/1", value_at(kPlace.left + kColumnWidth, kPlace.top + 2 * kRowHeight - 1));
  EXPECT_EQ(L"C1/2", value_at(kPlace.left + kColumnWidth - 1, kPlace.top + 2 * kRowHeight));
  EXPECT_EQ(L"C3/4", value_at(kPlace.right - 1, kPlace.bottom - 1));
}

TEST_F(GridWindow, TheMouseOutsideAnyCell_GivesEmptyTextAndStillSetsTheIndexes) {
  EXPECT_EQ(L"", value_at(kPlace.left + 10, kPlace.top + 5));  // the heading
  EXPECT_EQ(0, row_);
  EXPECT_EQ(1, column_);
  EXPECT_EQ(L"", value_at(kPlace.right, kPlace.top + 25));
  EXPECT_EQ(1, row_);
  EXPECT_EQ(0, column_);
  EXPECT_EQ(L"", value_at(kPlace.left - 1, kPlace.top - 1));  // negative on both sides
  EXPECT_EQ(-1, row_);
  EXPECT_EQ(0, column_);
}

TEST_F(GridWindow, FollowsAWindowThatMoves) {
  EXPECT_EQ(L"C1/1", value_at(kPlace.left + 10, kPlace.top + 30));
  SetWindowPos(window_.handle(), nullptr, kPlace.left - kColumnWidth, kPlace.top - kRowHeight, 0, 0,
               SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
  EXPECT_EQ(L"C2/2", value_at(kPlace.left + 10, kPlace.top + 30));
}

TEST_F(GridWindow, CountsFromThePictureInsideAForm) {
  const host::Window inside(L"STATIC", RECT{30, 40, 270, 140}, window_.handle());
  show_in(inside);
  EXPECT_EQ(L"C1/1", value_at(kPlace.left + 30, kPlace.top + 40 + kRowHeight));
  EXPECT_EQ(L"", value_at(kPlace.left + 29, kPlace.top + 40 + kRowHeight));
}

TEST_F(GridWindow, AnswersALateBoundCall) {
  SetCursorPos(kPlace.left + 100, kPlace.top + 70);
  Variant value;
  ASSERT_EQ(S_OK, host::call(tools_.get(), L"GetValScrollSurvol",
                             host::arguments(host::object_value(grid_.get()), host::by_reference(row_),
                                             host::by_reference(column_)),
                             value.receive()));
  EXPECT_EQ(L"BSTR \"C2/3\"", host::shown(value.get()));
  EXPECT_EQ(3, row_);
  EXPECT_EQ(2, column_);
}

TEST_F(GridWindow, TravelsAsTheNumberOfItsAddress_AndTheHostsReferenceStaysValid) {
  const long address = static_cast<long>(reinterpret_cast<INT_PTR>(grid_.get()));
  {
    ComPtr<IDispatch> grid;
    ASSERT_EQ(S_OK, tools_->ObjFromPtr(address, grid.receive()));
    EXPECT_EQ(grid_.get(), grid.get());
    SetCursorPos(kPlace.left + 10, kPlace.top + 30);
    IDispatch* control = grid.get();
    Variant value;
    ASSERT_EQ(S_OK, tools_->GetValScrollSurvol(&control, &row_, &column_, value.receive()));
    EXPECT_EQ(L"BSTR \"C1/1\"", host::shown(value.get()));
  }
  EXPECT_EQ(1, grid_->references());
  EXPECT_EQ(L"C1/1", value_at(kPlace.left + 10, kPlace.top + 30));
}

}  // namespace
