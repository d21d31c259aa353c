#include "tools/input_formats.h"

#include <cmath>
#include <string>

#include "automation/fault.h"
#include "automation/number_text.h"
#include "automation/variant.h"
#include "companion/companion.h"

namespace velmosav {
namespace {

constexpr double kWidest = 1e14;

short digit_count(std::wstring_view text) {
  const double value = std::nearbyint(leading_number(text));
  if (!(std::fabs(value) <= 1e9)) raise(Fault::Overflow);
  const short count = narrow_to_short(static_cast<long long>(value));
  if (count < 0) raise(Fault::InvalidArgument);
  return count;
}

/// The largest number of so many digits: 999.99.
double largest_number(short whole_digits, short decimals) {
  std::string text(static_cast<std::size_t>(whole_digits), '9');
  text.append(1, '.').append(static_cast<std::size_t>(decimals), '9');
  return read_number(text).value;
}

struct Bounds {
  double least = -kWidest;
  double most = kWidest;
  short decimals = 0;

  void narrow_least(double value) { least = value > least ? value : least; }
  void narrow_most(double value) { most = value < most ? value : most; }
};

void apply_item(std::wstring_view item, Bounds& bounds) {
  if (item.empty()) return;
  if (item.front() == L'<') return bounds.narrow_most(leading_number(item.substr(1)));
  if (item.front() == L'>') return bounds.narrow_least(leading_number(item.substr(1)));
  const std::size_t point = item.find(L'.');
  if (point == std::wstring_view::npos) return;
  const short whole_digits = digit_count(item.substr(0, point));
  bounds.decimals = digit_count(item.substr(point + 1));
  const double largest = largest_number(whole_digits, bounds.decimals);
  bounds.narrow_least(-largest);
  bounds.narrow_most(largest);
}

bool is_digit(wchar_t letter) { return letter >= L'0' && letter <= L'9'; }
bool is_capital(wchar_t letter) { return letter >= L'A' && letter <= L'Z'; }

/// A root's characters; an empty root says nothing and leaves the verdict on the one before.
bool well_formed(std::wstring_view root, bool verdict) {
  for (std::size_t i = 0; i < root.size(); ++i) {
    if (!is_digit(root[i]) && !(is_capital(root[i]) && i >= 2)) return false;
    verdict = true;
  }
  return verdict;
}

bool starts_with_ignoring_case(std::wstring_view text, std::wstring_view start) {
  return upper(text.substr(0, start.size())).view() == upper(start).view();
}

bool is_excluded(std::wstring_view root, std::wstring_view excluded) {
  while (!excluded.empty()) {
    if (starts_with_ignoring_case(root, trim(companion::next_token(excluded, L";")))) return true;
  }
  return false;
}

std::wstring_view view_of(BSTR* text) { return text ? view(*text) : std::wstring_view(); }

}  // namespace

bool satisfies_format(std::wstring_view format, double value) {
  Bounds bounds;
  while (!format.empty()) apply_item(companion::next_token(format, L";"), bounds);
  const double least = companion::round_amount(bounds.least, bounds.decimals);
  const double most = companion::round_amount(bounds.most, bounds.decimals);
  return least <= value && value <= most;
}

bool validate_roots(BSTR& roots, BSTR* account_class, BSTR* excluded) {
  constexpr std::size_t kLongest = 9;
  std::wstring rebuilt;
  bool valid = false;
  std::wstring_view rest = view(roots);
  do {
    const std::wstring_view root = trim(companion::next_token(rest, L";"));
    if (root.size() > kLongest) return false;
    valid = well_formed(root, valid);
    if (!valid) {
      if (!view_of(excluded).empty()) assign(*excluded, std::wstring_view());
      return false;
    }
    if (!rebuilt.empty()) rebuilt.push_back(L';');
    rebuilt.append(root);
    const std::wstring_view wanted = view_of(account_class);
    if (!wanted.empty() && upper(root.substr(0, 1)).view() != upper(wanted).view()) {
      assign(*account_class, root);
      return false;
    }
    if (is_excluded(root, view_of(excluded))) {
      assign(*excluded, root);
      return false;
    }
  } while (!rest.empty());
  assign(roots, rebuilt);
  return true;
}

bool has_root(BSTR& account, std::wstring_view roots, bool complete) {
  constexpr std::size_t kAccountLength = 9;
  std::wstring first;
  while (!is_blank(roots)) {
    const std::wstring_view root = trim(companion::next_token(roots, L";"));
    if (root.empty()) continue;
    if (first.empty())
      first = (std::wstring(root) + std::wstring(kAccountLength, L'0')).substr(0, kAccountLength);
    if (starts_with_ignoring_case(view(account), root)) return true;
  }
  if (complete) assign(account, first);
  return false;
}

}  // namespace velmosav
