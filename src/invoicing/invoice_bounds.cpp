#include "invoicing/invoice_bounds.h"

#include <array>

namespace velmosav {
namespace {

constexpr std::wstring_view kBlanks = L" \t\r\n";

/// A NUL would end the text for the DOM, which then answers for a part of it; so does half a pair.
bool has_whole_characters(std::wstring_view xml) noexcept {
  for (std::size_t i = 0; i < xml.size(); ++i) {
    const wchar_t unit = xml[i];
    if (unit == 0) return false;
    if ((unit & 0xF800) != 0xD800) continue;
    if (unit >= 0xDC00 || i + 1 == xml.size() || (xml[i + 1] & 0xFC00) != 0xDC00) return false;
    ++i;
  }
  return true;
}

/// Walks from one piece of markup to the next. It agrees with a parser up to the first thing that is not well
/// formed, and no parser goes further.
class Walk {
 public:
  explicit Walk(std::wstring_view xml) noexcept : rest_(xml) {}

  bool keeps_to_bounds() noexcept {
    if (rest_.starts_with(L'\xFEFF')) rest_.remove_prefix(1);
    const std::size_t first = rest_.find_first_not_of(kBlanks);
    if (first == std::wstring_view::npos || rest_[first] != L'<') return false;
    while (go_to(L"<")) {
      if (!passes_markup()) return false;
    }
    return true;
  }

 private:
  /// Goes on to the next `mark`, if there is one.
  bool go_to(std::wstring_view mark) noexcept {
    const std::size_t place = rest_.find(mark);
    if (place == std::wstring_view::npos) return false;
    rest_.remove_prefix(place);
    return true;
  }

  /// Passes a piece that begins with `start` and ends with `end`.
  bool passes(std::wstring_view start, std::wstring_view end) noexcept {
    rest_.remove_prefix(start.size());
    if (!go_to(end)) return false;
    rest_.remove_prefix(end.size());
    return true;
  }

  bool passes_markup() noexcept {
    if (rest_.starts_with(L"</")) return leaves_element();
    if (!counts(1)) return false;
    if (rest_.starts_with(L"<?")) return passes(L"<?", L"?>");
    if (rest_.starts_with(L"<!--")) return passes(L"<!--", L"-->");
    if (rest_.starts_with(L"<![CDATA[")) return passes(L"<![CDATA[", L"]]>");
    return !rest_.starts_with(L"<!") && enters_element();
  }

  bool enters_element() noexcept {
    std::size_t attributes = 0;
    std::size_t i = 1;
    for (;; ++i) {
      i = rest_.find_first_of(L"=\"'>", i);
      if (i == std::wstring_view::npos) return false;
      if (rest_[i] == L'>') break;
      if (rest_[i] == L'=') {
        ++attributes;
      } else {
        i = rest_.find(rest_[i], i + 1);  // to the end of a value
        if (i == std::wstring_view::npos) return false;
      }
    }
    const bool closed = rest_[i - 1] == L'/';
    rest_.remove_prefix(i + 1);
    if (level_ == open_.size() || !counts(attributes)) return false;
    if (attributes_ + attributes > InvoiceBounds::kAttributes) return false;
    if (closed) return true;
    open_[level_++] = attributes;
    attributes_ += attributes;
    return true;
  }

  bool leaves_element() noexcept {
    if (level_ == 0) return false;
    attributes_ -= open_[--level_];
    return passes(L"</", L">");
  }

  bool counts(std::size_t parts) noexcept {
    parts_ += parts;
    return parts_ <= InvoiceBounds::kParts;
  }

  std::wstring_view rest_;
  std::size_t parts_ = 0;
  std::size_t attributes_ = 0;  // of the open elements
  std::size_t level_ = 0;
  std::array<std::size_t, InvoiceBounds::kLevels> open_{};  // attributes of each
};

}  // namespace

bool keeps_to_bounds(std::wstring_view xml) noexcept {
  return xml.size() <= InvoiceBounds::kCharacters && has_whole_characters(xml) && Walk(xml).keeps_to_bounds();
}

}  // namespace velmosav
