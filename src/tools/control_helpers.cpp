#include "tools/control_helpers.h"

#include <string>

#include "automation/attempt.h"
#include "automation/late_bound.h"
#include "automation/number_text.h"
#include "companion/companion.h"
#include "constants/constant_sets.h"
#include "tools/input_formats.h"

namespace velmosav {
namespace {

/// Anything but the number of a numeric field is another type of field.
bool is_numeric_field(const HostObject& control) {
  const Variant type = control.get(L"TypeChamp");
  bool numeric = false;
  attempt([&] { numeric = to_double(type.get()) == initial<ModuleScrollConstants>.m_T_NUM; });
  return numeric;
}

Bstr text_property(const HostObject& object, const wchar_t* name) { return to_text(object.get(name).get()); }

}  // namespace

bool satisfies_control_format(IDispatch* control, VARIANT* value) {
  const HostObject object(control);
  if (!is_numeric_field(object)) return false;
  const double number = is_missing(value) ? companion::parse_number(object.get(L"Valeur").get())
                                          : companion::parse_number(*value);
  if (value) store_variable(*value, Variant(number));
  return satisfies_format(text_property(object, L"Format").view(), number);
}

void fit_label(IDispatch* label, std::wstring_view caption, const VARIANT& width, const VARIANT& colour,
               const VARIANT& bold) {
  const HostObject object(label);
  const long wanted = is_missing(width) ? to_long(object.get(L"Width").get()) : to_long(width);
  // Emptied and flat first: the label then grows to what the wrapped text needs.
  object.put(L"Caption", Variant(Bstr(L"")));
  object.put(L"Height", Variant(0L));
  object.put(L"Width", Variant(wanted));
  object.put(L"WordWrap", Variant(true));
  object.put(L"AutoSize", Variant(true));
  object.put(L"Caption", Variant(Bstr(caption)));
  if (!is_missing(colour)) object.put(L"ForeColor", Variant(to_long(colour)));
  if (!is_missing(bold)) {
    const Variant font = object.get(L"Font");
    HostObject(to_object(font.get())).put(L"Bold", Variant(to_bool(bold)));
  }
}

Variant value_under_mouse(IDispatch* grid, short* row, short* column) {
  Variant value{Bstr(L"")};
  if (!grid) return value;
  const HostObject object(grid);
  POINT cursor{};
  POINT origin{};
  GetCursorPos(&cursor);
  const Variant picture = object.get(L"CtlPicture");
  const long window = to_long(HostObject(to_object(picture.get())).get(L"hWnd").get());
  ClientToScreen(reinterpret_cast<HWND>(static_cast<INT_PTR>(window)), &origin);
  const double x = cursor.x - origin.x;
  const double y = cursor.y - origin.y;
  const short hovered_column = to_short(object.get(L"GetColSurvol", Variant(x), Variant(y)).get());
  const short hovered_row = to_short(object.get(L"GetLigneSurvol", Variant(x), Variant(y)).get());
  if (hovered_row > 0 && hovered_column > 0) {
    value =
        object.get(L"DonneeL", object.get(L"GetIdentifiant", Variant(hovered_column)), Variant(hovered_row));
  }
  if (row) *row = hovered_row;
  if (column) *column = hovered_column;
  return value;
}

void set_up_quantity_column(IDispatch* column, BYTE decimals, std::wstring_view bounds, bool plain_display) {
  const HostObject object(column);
  const Bstr format = concat({L"N;7.", whole_number_text(decimals).view(), L";", bounds, L"B"});
  const Variant current = object.get(L"Format");
  // Null is equal to no format.
  if (!is_null(current.get()) && to_text(current.get()).view() == format.view()) return;
  object.put(L"Param", Variant(Bstr(L"")));
  object.put(L"TypeSaisie", Variant(static_cast<short>(initial<ModuleScrollConstants>.m_T_NUM)));
  object.put(L"Format", Variant(Bstr(format.view())));
  std::wstring display;
  if (!plain_display) {
    // The empty second and third sections leave zero blank.
    display = decimals == 0 ? L"#,0;;#" : L"#,0." + std::wstring(decimals, L'0') + L";;#";
  }
  object.put(L"FormatAff", Variant(Bstr(display)));
}

}  // namespace velmosav
