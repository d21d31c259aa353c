#include "tools/literal_durations.h"

#include <cmath>
#include <cstdlib>

#include "support/literal_text.h"

namespace literal {
namespace {

constexpr double kLargest = 2147483647.0;
constexpr double kSmallest = -2147483648.0;

double seconds_of(const std::wstring& unit) {
  const std::pair<const wchar_t*, double> known[] = {
      {L"s", 1},      {L"n", 60},           {L"h", 3600},          {L"j", 86400},
      {L"w", 604800}, {L"m", 30 * 86400.0}, {L"y", 365.25 * 86400}};
  for (const auto& [code, seconds] : known) {
    if (unit == code) return seconds;
  }
  return 0;
}

std::wstring lower(std::wstring text) {
  for (wchar_t& letter : text) {
    if (letter >= L'A' && letter <= L'Z') letter = static_cast<wchar_t>(letter + (L'a' - L'A'));
  }
  return text;
}

double halves_to_even(double value) {
  const double below = std::floor(value);
  const double part = value - below;
  if (part < 0.5) return below;
  if (part > 0.5) return below + 1;
  return std::fmod(below, 2) == 0 ? below : below + 1;
}

bool fits(double value) { return value >= kSmallest && value <= kLargest; }

/// A sum or product in 32 bits.
double in_32_bits(double value) {
  if (!fits(value)) throw RunTimeFault{6};
  return value;
}

double to_32_bits(double value) { return in_32_bits(halves_to_even(value)); }

/// The number at the front of a text: blanks, a sign, digits with a point.
double value_of(const std::wstring& text) {
  std::string plain;
  for (const wchar_t letter : text) plain.push_back(letter < 128 ? static_cast<char>(letter) : '?');
  return std::strtod(plain.c_str(), nullptr);
}

class FieldReader {
 public:
  explicit FieldReader(const std::wstring& text) : rest_(text + L":") {}
  double next() {
    if (trim(rest_).empty()) rest_ = L"00:";
    return value_of(next_token(rest_, L":"));
  }

 private:
  std::wstring rest_;
};

}  // namespace

std::wstring double_to_duree(double number, std::wstring unit, const std::vector<Cell>& cells) {
  if (cells.size() > 6) return L"";
  double scale = 1;
  const auto factor = [&](const std::wstring& code) {
    return halves_to_even(seconds_of(lower(code)) / scale);
  };
  double total = halves_to_even(number * factor(unit));
  while (!fits(total)) {
    if (scale == 3600) return L"";
    scale *= 60;
    total = halves_to_even(number * factor(unit));
  }
  std::wstring result;
  std::wstring code;
  for (const Cell& cell : cells) {
    if (cell) code = trim(*cell);
    const double f = factor(code);
    const double q = f != 0 ? std::floor(total / f) : 0;
    if (!trim(result).empty()) result += L":";
    if (f <= total) {
      if (q < 10) result += L"0";
      result += std::to_wstring(static_cast<long long>(q));
      total -= q * f;
    } else {
      result += L"00";
    }
  }
  return result;
}

double duree_to_double(const std::wstring& text, const std::wstring& unit, bool long_form) {
  FieldReader fields(text);
  double hours = 0;
  const auto add = [&](double multiplier) { hours = to_32_bits(hours + fields.next() * multiplier); };
  if (long_form) {
    add(8766);
    add(720);
    add(24);
  }
  add(1);
  const double minutes = to_32_bits(fields.next());
  const double seconds = to_32_bits(fields.next());
  const double factor = seconds_of(unit);
  if (factor == 0) return 0;
  try {
    return in_32_bits(in_32_bits(in_32_bits(hours * 3600) + in_32_bits(minutes * 60)) + seconds) / factor;
  } catch (const RunTimeFault&) {
  }
  try {
    return in_32_bits(in_32_bits(hours * 60) + minutes) / (factor / 60);
  } catch (const RunTimeFault&) {
  }
  return hours;
}

}  // namespace literal
