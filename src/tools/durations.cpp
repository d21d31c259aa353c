#include "tools/durations.h"

#include <cmath>
#include <limits>
#include <optional>
#include <string>

#include "automation/attempt.h"
#include "automation/number_text.h"
#include "automation/variant.h"
#include "records/array_view.h"

namespace velmosav {
namespace {

constexpr long kLongestScale = 3600;

long seconds_of(std::wstring_view unit) {
  if (unit.size() != 1) return 0;
  switch (unit.front()) {
    case L's':
      return 1;
    case L'n':
      return 60;
    case L'h':
      return 3600;
    case L'j':
      return 86400;
    case L'w':
      return 604800;
    case L'm':
      return 2592000;
    case L'y':
      return 31557600;
    default:
      return 0;
  }
}

/// Length of a unit in ticks of `scale` seconds, in either case.
long ticks_of(std::wstring_view unit, long scale) {
  Bstr code(unit);
  CharLowerBuffW(code.get(), static_cast<DWORD>(unit.size()));
  return static_cast<long>(std::nearbyint(static_cast<double>(seconds_of(code.view())) / scale));
}

/// Rounded to a whole number, halves to even; nothing beyond 32 bits.
std::optional<long> whole(double value) {
  const double rounded = std::nearbyint(value);
  if (!(rounded >= std::numeric_limits<long>::min() && rounded <= std::numeric_limits<long>::max())) {
    return std::nullopt;
  }
  return static_cast<long>(rounded);
}

long required_whole(double value) {
  const auto result = whole(value);
  if (!result) raise(Fault::Overflow);
  return *result;
}

/// The unit codes of the fields. A cell that cannot be read keeps the code before it.
class FieldUnits {
 public:
  explicit FieldUnits(SAFEARRAY* cells) : cells_(cells) {}
  [[nodiscard]] long end() const { return cells_.end(); }
  std::wstring_view at(long index) {
    attempt([&] {
      Bstr text = to_text(cells_[index]);
      current_ = trim(text.view());
    });
    return current_;
  }

 private:
  ArrayView<VARIANT> cells_;
  std::wstring current_;
};

void append_field(std::wstring& text, long value) {
  if (value < 10) text.push_back(L'0');
  text.append(whole_number_text(value).view());
}

/// Takes the fields off a duration text one by one.
class FieldReader {
 public:
  explicit FieldReader(std::wstring_view text) : rest_(text) {}
  double next() {
    if (is_blank(rest_)) {
      rest_ = {};
      return 0;
    }
    const std::size_t end = rest_.find(L':');
    const double value = leading_number(rest_.substr(0, end));
    rest_ = end == std::wstring_view::npos ? std::wstring_view() : rest_.substr(end + 1);
    return value;
  }

 private:
  std::wstring_view rest_;
};

bool fits_long(long long value) {
  return value >= std::numeric_limits<long>::min() && value <= std::numeric_limits<long>::max();
}

}  // namespace

Bstr duration_text(double number, std::wstring_view unit, SAFEARRAY* fields) {
  constexpr long kMostFields = 6;
  const auto last = upper_bound(fields);
  if (!last) raise(Fault::SubscriptOutOfRange);
  if (*last >= kMostFields) return {};

  long scale = 1;
  std::optional<long> total = whole(number * static_cast<double>(ticks_of(unit, scale)));
  while (!total && scale < kLongestScale) {
    scale *= 60;
    total = whole(number * static_cast<double>(ticks_of(unit, scale)));
  }
  if (!total) return {};

  FieldUnits units(fields);
  std::wstring text;
  for (long i = 0; i < units.end(); ++i) {
    const long ticks = ticks_of(units.at(i), scale);
    if (!text.empty()) text.push_back(L':');
    if (ticks > *total) {
      text.append(L"00");
      continue;
    }
    const long count = ticks != 0 ? *total / ticks : 0;
    append_field(text, count);
    total = *total - count * ticks;
  }
  return Bstr(text);
}

double duration_number(std::wstring_view text, std::wstring_view unit, bool long_form) {
  FieldReader fields(text);
  long hours = 0;
  if (long_form) {
    constexpr double kHours[] = {8766, 720, 24};
    for (const double factor : kHours) hours = required_whole(hours + fields.next() * factor);
  }
  hours = required_whole(hours + fields.next());
  const long minutes = required_whole(fields.next());
  const long seconds = required_whole(fields.next());

  const double factor = seconds_of(unit);
  if (factor == 0) return 0;
  // The sum overflows where one of its steps in 32 bits would.
  const long long from_hours = hours * 3600LL;
  const long long from_minutes = minutes * 60LL;
  const long long sum = from_hours + from_minutes;
  if (fits_long(from_hours) && fits_long(from_minutes) && fits_long(sum) && fits_long(sum + seconds)) {
    return static_cast<double>(sum + seconds) / factor;
  }
  const long long in_minutes = hours * 60LL;
  if (fits_long(in_minutes) && fits_long(in_minutes + minutes)) {
    return static_cast<double>(in_minutes + minutes) / (factor / 60);
  }
  return hours;
}

}  // namespace velmosav
