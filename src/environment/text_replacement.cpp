#include "environment/text_replacement.h"

#include <string>

namespace velmosav {

void replace_ignoring_case(BSTR& text, std::wstring_view searched, std::wstring_view replacement) {
  if (searched.empty()) return;
  const Bstr upper_searched = upper(searched);
  const Bstr upper_text = upper(view(text));
  std::size_t place = upper_text.view().find(upper_searched.view());
  if (place == std::wstring_view::npos) return;

  const std::wstring_view original = view(text);
  std::wstring result;
  std::size_t start = 0;
  for (; place != std::wstring_view::npos; place = upper_text.view().find(upper_searched.view(), start)) {
    result.append(original, start, place - start).append(replacement);
    start = place + searched.size();
  }
  assign(text, Bstr(result.append(original, start)));
}

}  // namespace velmosav
