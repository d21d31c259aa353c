#include "grid.h"

#include <array>

namespace galerie {
namespace {

constexpr wchar_t kClass[] = L"GalerieGrille";
constexpr int kRowHeight = 26;

struct Column {
  const wchar_t* identifier;
  const wchar_t* title;
  int left;
  int right;
};
constexpr std::array<Column, 3> kColumns{
    {{L"CODE", L"Code", 0, 90}, {L"LIB", L"Désignation", 90, 320}, {L"QTE", L"Quantité", 320, 430}}};
constexpr int kWidth = kColumns.back().right;

/// A number by a display pattern.
std::wstring formatted(double number, const std::wstring& pattern) {
  VARIANT source;
  VariantInit(&source);
  source.vt = VT_R8;
  source.dblVal = number;
  std::wstring copy = pattern;
  BSTR text = nullptr;
  if (FAILED(VarFormat(&source, copy.data(), 0, 0, 0, &text)) || !text) return {};
  std::wstring result = text;
  SysFreeString(text);
  return result;
}

}  // namespace

Grid::Grid(HWND form, const Fonts& fonts, POINT place, std::vector<GridRow> rows)
    : fonts_(fonts), rows_(std::move(rows)) {
  WNDCLASSW kind{};
  kind.lpfnWndProc = &Grid::procedure;
  kind.hInstance = GetModuleHandleW(nullptr);
  kind.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  kind.lpszClassName = kClass;
  RegisterClassW(&kind);
  add_members();
  const int height = static_cast<int>(rows_.size() + 1) * kRowHeight + 1;
  window_ = CreateWindowExW(0, kClass, L"", WS_CHILD | WS_VISIBLE, place.x, place.y, kWidth, height, form,
                            nullptr, kind.hInstance, this);
}

void Grid::add_members() {
  picture_.add(L"hWnd", [this](auto&) { return handle_value(window_); });
  control_.add(L"CtlPicture", [this](auto&) { return value(&picture_); });
  control_.add(L"GetColSurvol", [this](auto& place) { return value(column_at(number_of(*place.at(0)))); });
  control_.add(L"GetLigneSurvol", [this](auto& place) { return value(row_at(number_of(*place.at(1)))); });
  control_.add(L"GetIdentifiant", [](auto& column) {
    return value(kColumns.at(static_cast<std::size_t>(number_of(*column.at(0)) - 1)).identifier);
  });
  control_.add(L"DonneeL", [this](auto& place) {
    return value(std::wstring_view(cell(text_of(*place.at(0)), number_of(*place.at(1)))));
  });

  const auto text_member = [this](const wchar_t* name, std::wstring& text) {
    quantities_.add(
        name, [&text](auto&) { return value(std::wstring_view(text)); },
        [this, &text](const VARIANT& given) {
          text = text_of(given);
          InvalidateRect(window_, nullptr, TRUE);
        });
  };
  text_member(L"Format", format_.format);
  text_member(L"FormatAff", format_.display);
  text_member(L"Param", format_.parameter);
  quantities_.add(
      L"TypeSaisie", [this](auto&) { return value(format_.type); },
      [this](const VARIANT& type) { format_.type = number_of(type); });
}

long Grid::column_at(double x) const {
  for (std::size_t i = 0; i < kColumns.size(); ++i) {
    if (x >= kColumns[i].left && x < kColumns[i].right) return static_cast<long>(i) + 1;
  }
  return 0;
}

long Grid::row_at(double y) const {
  if (y < 0) return 0;
  const long row = static_cast<long>(y) / kRowHeight;
  return row <= static_cast<long>(rows_.size()) ? row : 0;
}

std::wstring Grid::cell(std::wstring_view identifier, long row) const {
  const GridRow& data = rows_.at(static_cast<std::size_t>(row - 1));
  if (identifier == L"CODE") return data.code;
  if (identifier == L"LIB") return data.label;
  return formatted(data.quantity, format_.display);
}

POINT Grid::middle(int row, int column) const {
  const Column& place = kColumns.at(static_cast<std::size_t>(column - 1));
  return {(place.left + place.right) / 2, row * kRowHeight + kRowHeight / 2};
}

void Grid::show_hovered(int row, int column) {
  if (row == hovered_row_ && column == hovered_column_) return;
  hovered_row_ = row;
  hovered_column_ = column;
  InvalidateRect(window_, nullptr, FALSE);
}

void Grid::paint() const {
  PAINTSTRUCT painting;
  const HDC device = BeginPaint(window_, &painting);
  RECT all;
  GetClientRect(window_, &all);
  box(device, all, colours::kCard, colours::kEdge);
  fill(device, {1, 1, kWidth - 1, kRowHeight}, colours::kTint);
  for (std::size_t i = 0; i < kColumns.size(); ++i) {
    const Column& column = kColumns[i];
    const UINT side = i + 1 == kColumns.size() ? DT_RIGHT : DT_LEFT;
    const UINT format = side | DT_VCENTER | DT_SINGLELINE | DT_END_ELLIPSIS;
    draw_text(device, fonts_.bold, colours::kText, {column.left + 10, 1, column.right - 10, kRowHeight},
              column.title, format);
    for (std::size_t row = 1; row <= rows_.size(); ++row) {
      const int top = static_cast<int>(row) * kRowHeight;
      const bool hovered =
          static_cast<int>(row) == hovered_row_ && static_cast<int>(i) + 1 == hovered_column_;
      const RECT place{column.left + 1, top + 1, column.right, top + kRowHeight};
      if (hovered) fill(device, place, RGB(255, 240, 200));
      draw_text(device, fonts_.text, colours::kText,
                {column.left + 10, top + 1, column.right - 10, top + kRowHeight},
                cell(column.identifier, static_cast<long>(row)), format);
    }
    if (i > 0) fill(device, {column.left, 0, column.left + 1, all.bottom}, colours::kEdge);
  }
  for (std::size_t row = 1; row <= rows_.size(); ++row) {
    const int top = static_cast<int>(row) * kRowHeight;
    fill(device, {0, top, kWidth, top + 1}, colours::kEdge);
  }
  EndPaint(window_, &painting);
}

LRESULT CALLBACK Grid::procedure(HWND window, UINT message, WPARAM first, LPARAM second) {
  if (message == WM_NCCREATE) {
    auto* grid = static_cast<Grid*>(reinterpret_cast<CREATESTRUCTW*>(second)->lpCreateParams);
    grid->window_ = window;
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(grid));
  }
  auto* grid = reinterpret_cast<Grid*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (!grid) return DefWindowProcW(window, message, first, second);
  switch (message) {
    case WM_PAINT:
      grid->paint();
      return 0;
    case WM_ERASEBKGND:
      return 1;
    case WM_MOUSEMOVE: {
      TRACKMOUSEEVENT leaving{sizeof leaving, TME_LEAVE, window, 0};
      TrackMouseEvent(&leaving);
      if (grid->on_hover) grid->on_hover();
      return 0;
    }
    case WM_MOUSELEAVE:
      if (grid->on_hover) grid->on_hover();
      return 0;
    default:
      return DefWindowProcW(window, message, first, second);
  }
}

}  // namespace galerie
