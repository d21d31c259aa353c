#include "tools/code_lists.h"

#include <algorithm>

#include "automation/fault.h"
#include "automation/variant.h"
#include "companion/companion.h"

namespace velmosav {
namespace {

constexpr wchar_t kQuote = L'"';
constexpr std::wstring_view kQuoteText = L"\"";

}  // namespace

Bstr sql_literal(std::wstring_view text) {
  const auto quotes = static_cast<std::size_t>(std::count(text.begin(), text.end(), kQuote));
  Bstr result = Bstr::of_length(text.size() + quotes + 2);
  wchar_t* end = result.get();
  *end++ = kQuote;
  for (const wchar_t letter : text) {
    if (letter == kQuote) *end++ = kQuote;
    *end++ = letter;
  }
  *end = kQuote;
  return result;
}

void append_code(BSTR& list, std::wstring_view code) {
  const Bstr literal = sql_literal(code);
  const std::wstring_view current = view(list);
  if (current.empty()) {
    assign(list, literal.view());
  } else {
    assign(list, concat({current, companion::list_separator(), L" ", literal.view()}));
  }
}

std::wstring_view take_code(std::wstring_view& list) {
  if (list.empty() || list.front() != kQuote) return {};
  companion::next_token(list, kQuoteText);
  const std::wstring_view code = companion::next_token(list, kQuoteText);
  if (!is_blank(list) && list.substr(0, 1) == companion::list_separator()) list = trim(list.substr(1));
  return code;
}

short code_count(std::wstring_view list) {
  long long count = 0;
  while (!list.empty()) {
    // Without an opening quote no code is ever taken: the count would run over.
    if (list.front() != kQuote) raise(Fault::Overflow);
    take_code(list);
    narrow_to_short(++count);
  }
  return static_cast<short>(count);
}

void remove_code(BSTR& list, std::wstring_view code) {
  if (is_blank(view(list)) || is_blank(code)) return;
  const Bstr literal = sql_literal(code);
  const Bstr with_separator = concat({literal.view(), companion::list_separator()});
  const Bstr with_blank = concat({with_separator.view(), L" "});
  const std::wstring_view current = view(list);
  for (const Bstr* candidate : {&with_blank, &with_separator, &literal}) {
    const std::size_t place = current.find(candidate->view());
    if (place == std::wstring_view::npos) continue;
    assign(list, concat({current.substr(0, place), current.substr(place + candidate->view().size())}));
    return;
  }
}

}  // namespace velmosav
