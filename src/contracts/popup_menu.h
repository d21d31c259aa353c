// The context menus of the contract screen, shown by the companion's popup-menu object.
#pragma once

#include "automation/platform.h"

#include <VelmoSAV_DLL14.h>

#include <span>

namespace velmosav {

/// The companion object, by ProgID.
inline constexpr wchar_t kPopupMenu[] = L"Lumbra30.ApiPopupMenu";

struct MenuEntry {
  bool shown;
  const wchar_t* caption;
  IndMenuPop value;
  bool separator_after = false;
};

/// The number of the entry chosen. The component may answer any other, which the enumeration cannot hold: it
/// is passed on as it is.
struct MenuChoice {
  long number;
};
void store(IndMenuPop* place, MenuChoice choice) noexcept;

/// Shows the entries for a button (an object with an `hWnd`) and waits for the choice; IndMenuPop_None when
/// the menu is dismissed. Faults: 429 without the companion object, 91 without a button, 438 for a button
/// without `hWnd`; for the companion's answer 13 when it is no number, 6 beyond 16 bits, 94 for Null.
MenuChoice choose_from_menu(IDispatch* button, std::span<const MenuEntry> entries);

}  // namespace velmosav
