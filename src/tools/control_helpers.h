// Helpers for the host's labels, buttons, grids and columns: objects called by name. A failing object's error
// reaches the caller; what was set before stays.
#pragma once

#include "automation/variant.h"

namespace velmosav {

/// Whether a value suits the format of an entry control (false unless the control is numeric). `value`: the
/// number to check, replaced by its parsed form; the control's own when missing.
bool satisfies_control_format(IDispatch* control, VARIANT* value);

/// Fits a label's height to a text at a width (the label's own when missing); colour and weight when given.
void fit_label(IDispatch* label, std::wstring_view caption, const VARIANT& width, const VARIANT& colour,
               const VARIANT& bold);

/// Gives a button its shape: a rectangle without its four corner pixels. Nothing for no object.
void cut_button_corners(IDispatch* button);

/// Value of the grid cell under the mouse, empty text outside the cells; its row and column are stored.
Variant value_under_mouse(IDispatch* grid, short* row, short* column);

/// Sets up a numeric quantity column, unless it has that format already.
void set_up_quantity_column(IDispatch* column, BYTE decimals, std::wstring_view bounds, bool plain_display);

}  // namespace velmosav
