#include <string>
#include <string_view>

#include "automation/fault.h"
#include "automation/number_text.h"
#include "automation/variant.h"
#include "companion/companion.h"

namespace velmosav::companion {
namespace {

bool is_grouping_blank(wchar_t letter) {
  constexpr wchar_t kNoBreakSpace = 0x00A0;
  constexpr wchar_t kNarrowNoBreakSpace = 0x202F;
  return letter == L' ' || letter == kNoBreakSpace || letter == kNarrowNoBreakSpace;
}

/// The text as the standard reader takes it; fault 13 for a character that no number holds.
std::string plain_number(std::wstring_view text) {
  constexpr std::wstring_view kAllowed = L"0123456789+-.eE";
  std::string plain;
  plain.reserve(text.size());
  for (wchar_t letter : text) {
    if (is_grouping_blank(letter)) continue;
    if (letter == L',') letter = L'.';
    if (kAllowed.find(letter) == std::wstring_view::npos) raise(Fault::TypeMismatch);
    plain.push_back(static_cast<char>(letter));
  }
  return plain;
}

}  // namespace

short highest_vat_code() noexcept { return 99; }

std::wstring_view next_token(std::wstring_view& rest, std::wstring_view separator) noexcept {
  const std::size_t place = rest.find(separator);
  const std::wstring_view token = rest.substr(0, place);
  rest = place == std::wstring_view::npos ? std::wstring_view() : rest.substr(place + separator.size());
  return token;
}

double parse_number(std::wstring_view text) {
  const std::string plain = plain_number(text);
  if (plain.empty()) return 0;
  const std::string_view number = std::string_view(plain).substr(plain.front() == '+' ? 1 : 0);
  const auto [value, length] = read_number(number);
  if (length == 0 || length != number.size()) raise(Fault::TypeMismatch);
  return value;
}

double parse_number(const VARIANT& value) {
  const VARIANT& source = dereferenced(value);
  if (source.vt == VT_BSTR) return parse_number(view(source.bstrVal));
  if (source.vt == (VT_BYREF | VT_BSTR) && source.pbstrVal) return parse_number(view(*source.pbstrVal));
  return to_double(source);
}

std::wstring_view list_separator() noexcept { return L","; }

Bstr replace_text(std::wstring_view text, std::wstring_view searched, std::wstring_view replacement) {
  std::size_t place = searched.empty() ? std::wstring_view::npos : text.find(searched);
  if (place == std::wstring_view::npos) return Bstr(text);
  std::wstring result;
  result.reserve(text.size());
  std::size_t start = 0;
  for (; place != std::wstring_view::npos; place = text.find(searched, start)) {
    result.append(text, start, place - start).append(replacement);
    start = place + searched.size();
  }
  return Bstr(result.append(text, start));
}

}  // namespace velmosav::companion
