#include "tools/code_lists.h"

#include <emmintrin.h>

#include <algorithm>
#include <bit>

#include "automation/fault.h"
#include "automation/variant.h"
#include "companion/companion.h"

namespace velmosav {
namespace {

constexpr wchar_t kQuote = L'"';
constexpr std::wstring_view kQuoteText = L"\"";

/// Place of a quoted code in a list from a place on; npos when it does not occur. Sixteen places are looked
/// at together, by the two characters before the closing quote: the codes of a list differ most at their
/// ends.
std::size_t find_literal(std::wstring_view list, std::wstring_view literal, std::size_t start) noexcept {
  constexpr std::size_t kLanes = sizeof(__m128i) / sizeof(wchar_t);
  const std::size_t size = literal.size();
  if (size < 4) return list.find(literal, start);
  const __m128i last = _mm_set1_epi16(static_cast<short>(literal[size - 2]));
  const __m128i last_but_one = _mm_set1_epi16(static_cast<short>(literal[size - 3]));
  const auto eight_match = [&](const wchar_t* end) {
    const auto at = [](const wchar_t* text) {
      return _mm_loadu_si128(reinterpret_cast<const __m128i*>(text));
    };
    return _mm_and_si128(_mm_cmpeq_epi16(at(end - 2), last), _mm_cmpeq_epi16(at(end - 3), last_but_one));
  };
  for (; start + size + 2 * kLanes <= list.size(); start += 2 * kLanes) {
    const wchar_t* const end = list.data() + start + size;
    const __m128i matching = _mm_packs_epi16(eight_match(end), eight_match(end + kLanes));
    for (auto places = static_cast<unsigned>(_mm_movemask_epi8(matching)); places != 0;
         places &= places - 1) {
      const std::size_t place = start + static_cast<std::size_t>(std::countr_zero(places));
      if (list.compare(place, size, literal) == 0) return place;
    }
  }
  return list.find(literal, start);
}

/// What is taken out of a list with a code; no length when the code is not there.
struct Occurrence {
  std::size_t place = 0;
  std::size_t length = 0;
};

/// The first occurrence with separator and blank behind it; without one the first with a separator, and
/// without that the first of all.
Occurrence find_code(std::wstring_view list, std::wstring_view literal) noexcept {
  const std::wstring_view separator = companion::list_separator();
  Occurrence alone;
  Occurrence with_separator;
  for (std::size_t place = find_literal(list, literal, 0); place != std::wstring_view::npos;
       place = find_literal(list, literal, place + 1)) {
    const std::wstring_view behind = list.substr(place + literal.size());
    if (behind.substr(0, separator.size()) == separator) {
      const std::size_t length = literal.size() + separator.size();
      if (behind.substr(separator.size(), 1) == L" ") return {place, length + 1};
      if (with_separator.length == 0) with_separator = {place, length};
    } else if (alone.length == 0) {
      alone = {place, literal.size()};
    }
  }
  if (with_separator.length != 0) return with_separator;
  return alone;
}

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
  const std::wstring_view current = view(list);
  if (is_blank(current) || is_blank(code)) return;
  const Bstr literal = sql_literal(code);
  if (const Occurrence found = find_code(current, literal.view()); found.length != 0) {
    erase(list, found.place, found.length);
  }
}

}  // namespace velmosav
