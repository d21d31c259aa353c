#include "menu.h"

#include "automation/fault.h"

namespace popupmenu {
namespace {

constexpr HRESULT kWrongArgument = velmosav::fault_code(velmosav::Fault::InvalidArgument);

[[noreturn]] void raise_last_error() { velmosav::raise(HRESULT_FROM_WIN32(GetLastError())); }

/// The platform's menu, for the time that it is shown.
class ShownMenu {
 public:
  ShownMenu() : handle_(CreatePopupMenu()) {
    if (!handle_) raise_last_error();
  }
  ~ShownMenu() { DestroyMenu(handle_); }
  ShownMenu(const ShownMenu&) = delete;
  ShownMenu& operator=(const ShownMenu&) = delete;

  void append(UINT kind, std::size_t number, const wchar_t* caption) {
    if (!AppendMenuW(handle_, kind, number, caption)) raise_last_error();
  }

  /// The number of the chosen entry, 0 for none.
  [[nodiscard]] std::size_t track(HWND window, const RECT& window_place) const {
    TPMPARAMS covered{sizeof(TPMPARAMS), window_place};
    const int number =
        TrackPopupMenuEx(handle_, TPM_LEFTALIGN | TPM_TOPALIGN | TPM_VERTICAL | TPM_RETURNCMD | TPM_NONOTIFY,
                         window_place.left, window_place.bottom, window, &covered);
    return number > 0 ? static_cast<std::size_t>(number) : 0;
  }

 private:
  HMENU handle_;
};

}  // namespace

void Menu::add_entry(std::wstring_view caption, std::wstring_view key) {
  entries_.push_back({std::wstring(caption), std::wstring(key), false});
}

void Menu::add_separator() { entries_.push_back({{}, {}, true}); }

std::wstring Menu::choose(HWND window) const {
  RECT place;
  if (!GetWindowRect(window, &place)) throw Refusal{kWrongArgument, L"La fenêtre du menu n'existe pas"};
  if (GetWindowThreadProcessId(window, nullptr) != GetCurrentThreadId()) {
    throw Refusal{kWrongArgument, L"La fenêtre du menu n'appartient pas à l'appelant"};
  }
  if (entries_.empty()) return {};
  ShownMenu menu;
  for (std::size_t i = 0; i < entries_.size(); ++i) {
    const Entry& entry = entries_[i];
    menu.append(entry.separator ? MF_SEPARATOR : MF_STRING, i + 1, entry.caption.c_str());
  }
  const std::size_t number = menu.track(window, place);
  return number ? entries_[number - 1].key : std::wstring();
}

}  // namespace popupmenu
