#include "contracts/popup_menu.h"

#include <cstring>

#include "automation/late_bound.h"
#include "automation/number_text.h"
#include "automation/text.h"

namespace velmosav {

void store(IndMenuPop* place, MenuChoice choice) noexcept {
  static_assert(sizeof *place == sizeof choice.number);
  std::memcpy(place, &choice.number, sizeof *place);
}

MenuChoice choose_from_menu(IDispatch* button, std::span<const MenuEntry> entries) {
  const ComPtr<IDispatch> menu = create_object(kPopupMenu);
  const HostMember add(menu.get(), L"AddItem");
  for (const MenuEntry& entry : entries) {
    if (!entry.shown) continue;
    const Bstr key = whole_number_text(entry.value);
    (void)add.get(Variant(Bstr(entry.caption)), Variant(Bstr(key.view())));
    if (entry.separator_after) (void)add.get(Variant(Bstr(L"-")));
  }
  Variant window = HostObject(button).get(L"hWnd");
  const Variant answer = HostObject(menu.get()).get(L"ExecuteFromWindow", std::move(window));
  const Bstr key = to_text(answer.get());
  if (is_blank(key.view())) return {IndMenuPop_None};
  return {to_short(answer.get())};
}

}  // namespace velmosav
