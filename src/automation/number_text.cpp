#include "automation/number_text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>
#include <string>
#include <string_view>

#include "automation/fault.h"
#include "automation/variant.h"

namespace velmosav {
namespace {

/// Whole numbers below this are written and read without the platform's help.
constexpr double kFastWholes = 1e9;
constexpr std::size_t kFastDigits = 9;

/// A number of digits alone, or followed by what cannot belong to a number; nothing for any other.
std::optional<double> short_whole_number(std::wstring_view text) {
  long value = 0;
  std::size_t length = 0;
  for (; length < text.size() && text[length] >= L'0' && text[length] <= L'9'; ++length) {
    if (length == kFastDigits) return std::nullopt;
    value = value * 10 + (text[length] - L'0');
  }
  if (length == 0) return std::nullopt;
  if (length < text.size() && std::wstring_view(L".eE+-").find(text[length]) != std::wstring_view::npos) {
    return std::nullopt;
  }
  return value;
}

/// The user's, at this moment.
std::wstring decimal_separator() {
  wchar_t separator[8] = L"";
  GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, separator, 8);
  return separator;
}

/// 0 when the separator is not one character.
wchar_t decimal_mark() {
  const std::wstring separator = decimal_separator();
  return separator.size() == 1 ? separator.front() : L'\0';
}

/// Wine leaves the point in a number that it writes with an exponent.
void localize_exponent_form(Bstr& text) {
  if (text.view().find(L'E') == std::wstring_view::npos) return;
  const std::size_t point = text.view().find(L'.');
  const wchar_t mark = decimal_mark();
  if (point != std::wstring_view::npos && mark != 0) text.get()[point] = mark;
}

/// Digits with a point as a text with the user's mark.
Bstr localized(std::string_view digits, wchar_t mark) {
  Bstr text = Bstr::of_length(digits.size());
  std::transform(digits.begin(), digits.end(), text.get(),
                 [mark](char c) { return c == '.' ? mark : static_cast<wchar_t>(c); });
  return text;
}

/// Without exponent, and of no more digits than the platform writes.
bool is_plain(std::string_view text) {
  if (text.find('e') != std::string_view::npos) return false;
  const std::size_t first = text.find_first_of("123456789");
  const auto digits = std::count_if(text.begin() + static_cast<std::ptrdiff_t>(first), text.end(),
                                    [](char c) { return c >= '0' && c <= '9'; });
  return digits <= 15;
}

/// Whether a number that no Double holds is too large; it is too small otherwise.
bool is_too_large(std::string_view number) {
  const std::size_t end = std::min(number.find_first_of("eE"), number.size());
  const std::string_view mantissa = number.substr(0, end);
  const auto point = static_cast<long long>(std::min(mantissa.find('.'), mantissa.size()));
  long long magnitude = point - static_cast<long long>(mantissa.find_first_of("123456789"));
  if (end < number.size()) {
    std::string_view digits = number.substr(end + 1);
    if (digits.front() == '+') digits.remove_prefix(1);
    long exponent = 0;
    if (std::from_chars(digits.data(), digits.data() + digits.size(), exponent).ec != std::errc()) {
      return digits.front() != '-';
    }
    magnitude += exponent;
  }
  return magnitude > 0;
}

std::string_view view_of(const char* start, const std::to_chars_result& end) {
  return {start, static_cast<std::size_t>(end.ptr - start)};
}

/// With so many decimals; beyond 15 digits there are zeros.
std::string fixed_digits(double value, int decimals) {
  char text[80];
  if (std::fabs(value) < kFastWholes) {
    return std::string(
        view_of(text, std::to_chars(text, text + sizeof text, value, std::chars_format::fixed, decimals)));
  }
  // d.dddddddddddddde+xx
  const std::string_view written =
      view_of(text, std::to_chars(text, text + sizeof text, value, std::chars_format::scientific, 14));
  const std::size_t mark = written.find('e');
  std::size_t exponent = 0;
  std::from_chars(written.data() + mark + 2, written.data() + written.size(), exponent);
  std::string digits(written.substr(0, mark));
  const std::size_t sign = value < 0 ? 1 : 0;
  digits.erase(sign + 1, 1);
  digits.resize(sign + exponent + 1 + static_cast<std::size_t>(decimals), '0');
  if (decimals > 0) digits.insert(sign + exponent + 1, 1, '.');
  return digits;
}

}  // namespace

Bstr number_text(double value) {
  if (value == std::trunc(value) && std::fabs(value) < kFastWholes && !std::signbit(value)) {
    return whole_number_text(static_cast<long>(value));
  }
  // The platform makes a description of a language for each number that it writes. A number that 15 digits
  // tell exactly needs no rounding, in which platforms differ.
  if (const wchar_t mark = decimal_mark(); std::isfinite(value) && value != 0 && mark != 0) {
    char digits[40];
    const std::string_view text = view_of(digits, std::to_chars(digits, digits + sizeof digits, value));
    if (is_plain(text)) return localized(text, mark);
  }
  Bstr text;
  check_conversion(VarBstrFromR8(value, LOCALE_USER_DEFAULT, 0, text.receive()));
  localize_exponent_form(text);
  return text;
}

Bstr fixed_number_text(double value, int decimals) {
  // Not by the platform, which loses memory for large numbers (Wine 8).
  const std::string digits = fixed_digits(value == 0 ? 0 : value, decimals);
  const std::size_t point = std::min(digits.find('.'), digits.size());
  const auto end_of_whole = digits.begin() + static_cast<std::ptrdiff_t>(point);
  std::wstring text(digits.begin(), end_of_whole);
  if (point < digits.size()) text.append(decimal_separator()).append(end_of_whole + 1, digits.end());
  return Bstr(text);
}

Bstr whole_number_text(long value) {
  char digits[16];
  const auto end = std::to_chars(digits, digits + sizeof digits, value).ptr;
  Bstr text = Bstr::of_length(static_cast<std::size_t>(end - digits));
  std::copy(digits, end, text.get());
  return text;
}

NumberRead read_number(std::string_view text) {
  double value = 0;
  const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  const auto length = static_cast<std::size_t>(stop - text.data());
  if (error == std::errc::result_out_of_range) {
    if (is_too_large(text.substr(0, length))) raise(Fault::Overflow);
    return {0, length};
  }
  return {value, error == std::errc() ? length : 0};
}

double leading_number(std::wstring_view text) {
  if (const auto number = short_whole_number(text)) return *number;
  const std::size_t start = text.find_first_not_of(L' ');
  if (start == std::wstring_view::npos) return 0;
  text.remove_prefix(start);
  const bool negative = text.front() == L'-';
  if (negative || text.front() == L'+') text.remove_prefix(1);
  // The part that can be a number, in the reader's characters.
  const std::size_t length = std::min(text.find_first_not_of(L"0123456789.eE+-"), text.size());
  const std::string plain(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(length));
  if (plain.empty() || plain.front() == '-' || plain.front() == '+') return 0;
  const double value = read_number(plain).value;
  return negative ? -value : value;
}

}  // namespace velmosav
