// Outil.GetValScrollSurvol on a scripted grid: its calls, their arguments, and what comes back.
#include "controls/scripted_control.h"
#include "support/arguments.h"

namespace {

using host::ComPtr;
using host::FakeObject;
using host::is_fault;
using host::is_refusal;
using host::Log;
using host::Variant;
using Arguments = FakeObject::Arguments;

constexpr int kCursorX = 321;
constexpr int kCursorY = 123;

class GetValScrollSurvol : public ::testing::Test {
 protected:
  GetValScrollSurvol() {
    SetCursorPos(kCursorX, kCursorY);
    picture_->property(L"hWnd", Variant(0L));  // no window: its origin is the screen's
    grid_->property(L"CtlPicture", host::object_value(picture_.get()));
    hover(2, 3);
    grid_->on_get(L"GetIdentifiant", told([] { return host::text_value(L"QTE"); }));
    answer([] { return host::text_value(L"12,50"); });
  }

  template <class Answer>
  FakeObject::Getter told(Answer answer) {
    return [this, answer](const Arguments& arguments) {
      for (const VARIANT& argument : arguments) grid_->log.back() += L" " + host::shown(argument);
      return answer();
    };
  }
  template <class Answer>
  void answer(Answer value) {
    grid_->on_get(L"DonneeL", told(value));
  }
  void hover(short column, short row) {
    grid_->on_get(L"GetColSurvol", told([column] { return Variant(column); }));
    grid_->on_get(L"GetLigneSurvol", told([row] { return Variant(row); }));
  }
  template <class Value>
  void hover_column(Value value) {
    grid_->on_get(L"GetColSurvol", [value](auto&) { return Variant(value); });
  }

  HRESULT read() {
    IDispatch* grid = grid_.get();
    return tools_->GetValScrollSurvol(&grid, &row_, &column_, value_.receive());
  }

  const ComPtr<_Outil> tools_ = host::create<_Outil>(L"Outil");
  const ComPtr<FakeObject> grid_ = FakeObject::make();
  const ComPtr<FakeObject> picture_ = FakeObject::make();
  short row_ = 77;
  short column_ = 88;
  Variant value_;
};

TEST_F(GetValScrollSurvol, AsksColumnThenRowThenIdentifierThenValue) {
  ASSERT_EQ(S_OK, read());
  const std::wstring place = L"(2) R8 321 R8 123";
  EXPECT_EQ((Log{L"get CtlPicture", L"call GetColSurvol" + place, L"call GetLigneSurvol" + place,
                 L"call GetIdentifiant(1) I2 2", L"call DonneeL(2) BSTR \"QTE\" I2 3"}),
            grid_->log);
  EXPECT_EQ(Log{L"get hWnd"}, picture_->log);
  EXPECT_EQ(L"BSTR \"12,50\"", host::shown(value_.get()));
  EXPECT_EQ(3, row_);
  EXPECT_EQ(2, column_);
}

/// Column and row under the mouse, one of them at least outside the cells.
class GetValScrollSurvolOutside : public GetValScrollSurvol,
                                  public ::testing::WithParamInterface<std::pair<short, short>> {};

TEST_P(GetValScrollSurvolOutside, AnyCell_ReturnsEmptyTextAndStillSetsTheIndexes) {
  const auto [column, row] = GetParam();
  hover(column, row);
  ASSERT_EQ(S_OK, read());
  EXPECT_EQ(L"BSTR \"\"", host::shown(value_.get()));
  EXPECT_EQ(row, row_);
  EXPECT_EQ(column, column_);
  EXPECT_EQ(3U, grid_->log.size());  // neither identifier nor value was asked for
}

INSTANTIATE_TEST_SUITE_P(Places, GetValScrollSurvolOutside,
                         ::testing::Values(std::pair<short, short>{0, 0}, std::pair<short, short>{0, 3},
                                           std::pair<short, short>{2, 0}, std::pair<short, short>{-1, 3},
                                           std::pair<short, short>{2, -1},
                                           std::pair<short, short>{-32768, -32768}));

TEST_F(GetValScrollSurvol, TheFirstCellIsACell) {
  hover(1, 1);
  ASSERT_EQ(S_OK, read());
  EXPECT_EQ(L"BSTR \"12,50\"", host::shown(value_.get()));
}

TEST_F(GetValScrollSurvol, NoGrid_ReturnsEmptyTextAndLeavesTheIndexes) {
  IDispatch* none = nullptr;
  ASSERT_EQ(S_OK, tools_->GetValScrollSurvol(&none, &row_, &column_, value_.receive()));
  EXPECT_EQ(L"BSTR \"\"", host::shown(value_.get()));
  EXPECT_EQ(77, row_);
  EXPECT_EQ(88, column_);
}

TEST_F(GetValScrollSurvol, WithoutIndexes_ReturnsTheValue) {
  IDispatch* grid = grid_.get();
  ASSERT_EQ(S_OK, tools_->GetValScrollSurvol(&grid, nullptr, nullptr, value_.receive()));
  EXPECT_EQ(L"BSTR \"12,50\"", host::shown(value_.get()));
  ASSERT_EQ(S_OK, tools_->GetValScrollSurvol(&grid, nullptr, &column_, value_.receive()));
  EXPECT_EQ(2, column_);
  ASSERT_EQ(S_OK, tools_->GetValScrollSurvol(&grid, &row_, nullptr, value_.receive()));
  EXPECT_EQ(3, row_);
}

TEST_F(GetValScrollSurvol, ReturnsTheValueAsTheGridGivesIt) {
  answer([] { return Variant(12.5); });
  ASSERT_EQ(S_OK, read());
  EXPECT_EQ(L"R8 12.5", host::shown(value_.get()));
  answer([] { return host::null_value(); });
  ASSERT_EQ(S_OK, read());
  EXPECT_EQ(VT_NULL, value_.get().vt);
  answer([] { return Variant(); });
  ASSERT_EQ(S_OK, read());
  EXPECT_EQ(VT_EMPTY, value_.get().vt);
  answer([this] { return host::object_value(picture_.get()); });
  ASSERT_EQ(S_OK, read());
  ASSERT_EQ(VT_DISPATCH, value_.get().vt);
  EXPECT_EQ(picture_.get(), value_.get().pdispVal);
}

TEST_F(GetValScrollSurvol, PassesTheIdentifierOnAsTheGridGivesIt) {
  grid_->on_get(L"GetIdentifiant", told([] { return Variant(7L); }));
  ASSERT_EQ(S_OK, read());
  EXPECT_EQ(L"call DonneeL(2) I4 7 I2 3", grid_->log.back());
}

TEST_F(GetValScrollSurvol, ConvertsTheIndexesTo16BitsHalvesToEven) {
  hover_column(2.5);
  ASSERT_EQ(S_OK, read());
  EXPECT_EQ(2, column_);
  hover_column(4L);
  ASSERT_EQ(S_OK, read());
  EXPECT_EQ(4, column_);
  EXPECT_EQ(L"call GetIdentifiant(1) I2 4", grid_->log.at(grid_->log.size() - 2));
}

TEST_F(GetValScrollSurvol, AnIndexThatIsNo16BitNumber_FailsAndLeavesTheIndexes) {
  hover_column(40000L);
  EXPECT_TRUE(is_fault(read(), 6, L"Outil"));
  grid_->on_get(L"GetColSurvol", [](auto&) { return host::null_value(); });
  EXPECT_TRUE(is_fault(read(), 94, L"Outil"));
  grid_->on_get(L"GetColSurvol", [](auto&) { return host::text_value(L"QTE"); });
  EXPECT_TRUE(is_fault(read(), 13, L"Outil"));
  EXPECT_EQ(77, row_);
  EXPECT_EQ(88, column_);
  EXPECT_EQ(VT_EMPTY, value_.get().vt);
}

/// A member of the grid, and the count of uses up to it.
class GetValScrollSurvolFailure
    : public GetValScrollSurvol,
      public ::testing::WithParamInterface<std::pair<const wchar_t*, std::size_t>> {};

TEST_P(GetValScrollSurvolFailure, AFailingMemberStopsThereAndLeavesTheIndexes) {
  const auto& [name, count] = GetParam();
  refuse_get(grid_, name);
  EXPECT_TRUE(is_refusal(read()));
  EXPECT_EQ(count, grid_->log.size());
  EXPECT_EQ(77, row_);
  EXPECT_EQ(88, column_);
  EXPECT_EQ(VT_EMPTY, value_.get().vt);
}

INSTANTIATE_TEST_SUITE_P(Members, GetValScrollSurvolFailure,
                         ::testing::Values(std::pair<const wchar_t*, std::size_t>{L"CtlPicture", 1},
                                           std::pair<const wchar_t*, std::size_t>{L"GetColSurvol", 2},
                                           std::pair<const wchar_t*, std::size_t>{L"GetLigneSurvol", 3},
                                           std::pair<const wchar_t*, std::size_t>{L"GetIdentifiant", 4},
                                           std::pair<const wchar_t*, std::size_t>{L"DonneeL", 5}),
                         [](const auto& member) { return host::utf8(member.param.first); });

TEST_F(GetValScrollSurvol, AnObjectThatIsNoGridFails) {
  IDispatch* other = picture_.get();
  EXPECT_TRUE(is_fault(tools_->GetValScrollSurvol(&other, &row_, &column_, value_.receive()), 438, L"Outil"));
}

TEST_F(GetValScrollSurvol, AGridWithoutPictureFails) {
  grid_->property(L"CtlPicture", host::object_value(nullptr));
  EXPECT_TRUE(is_fault(read(), 91, L"Outil"));
  grid_->property(L"CtlPicture", host::text_value(L"image"));
  EXPECT_TRUE(is_fault(read(), 424, L"Outil"));
}

TEST_F(GetValScrollSurvol, RefusesNullPointers) {
  IDispatch* grid = grid_.get();
  EXPECT_EQ(E_POINTER, tools_->GetValScrollSurvol(&grid, &row_, &column_, nullptr));
  EXPECT_EQ(E_POINTER, tools_->GetValScrollSurvol(nullptr, &row_, &column_, value_.receive()));
}

TEST_F(GetValScrollSurvol, KeepsNoReference) {
  ASSERT_EQ(S_OK, read());
  EXPECT_EQ(1, grid_->references());
  EXPECT_EQ(2, picture_->references());  // the test's and the grid's
}

TEST_F(GetValScrollSurvol, AnswersALateBoundCall) {
  ASSERT_EQ(S_OK, host::call(tools_.get(), L"GetValScrollSurvol",
                             host::arguments(host::object_value(grid_.get()), host::by_reference(row_),
                                             host::by_reference(column_)),
                             value_.receive()));
  EXPECT_EQ(L"BSTR \"12,50\"", host::shown(value_.get()));
  EXPECT_EQ(3, row_);
  EXPECT_EQ(2, column_);
}

TEST_F(GetValScrollSurvol, AnswersALateBoundCallWithoutIndexes) {
  ASSERT_EQ(S_OK, host::call(tools_.get(), L"GetValScrollSurvol",
                             host::arguments(host::object_value(grid_.get())), value_.receive()));
  EXPECT_EQ(L"BSTR \"12,50\"", host::shown(value_.get()));
}

TEST_F(GetValScrollSurvol, AnswersALateBoundCallWithAScriptsVariables) {
  Variant grid = host::object_value(grid_.get());
  Variant row, column;
  ASSERT_EQ(S_OK, host::call(tools_.get(), L"GetValScrollSurvol",
                             host::arguments(host::by_reference(grid.get()), host::by_reference(row.get()),
                                             host::by_reference(column.get())),
                             value_.receive()));
  EXPECT_EQ(L"BSTR \"12,50\"", host::shown(value_.get()));
  EXPECT_EQ(L"I2 3", host::shown(row.get()));
  EXPECT_EQ(L"I2 2", host::shown(column.get()));
}

}  // namespace
