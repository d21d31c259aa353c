#include "amounts/literal_distribution.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "automation/text.h"

namespace literal {
namespace {

constexpr int kOverflow = 6;
constexpr int kSubscript = 9;
constexpr int kDivisionByZero = 11;
constexpr int kTypeMismatch = 13;

double checked(double value) {
  if (!std::isfinite(value)) throw RunTimeFault{kOverflow};
  return value;
}

double quotient(double numerator, double denominator) {
  if (denominator == 0 && numerator != 0 && std::isfinite(numerator)) throw RunTimeFault{kDivisionByZero};
  return checked(numerator / denominator);
}

Type_LigneRepartTVA& line(Type_RepartTVA& record, int code) {
  if (code > 99) throw RunTimeFault{kSubscript};
  return record.Lignes[code];
}

/// Text before the first "@"; takes both off the text.
std::wstring next_token(std::wstring& text) {
  const std::size_t place = text.find(L'@');
  std::wstring token = text.substr(0, place);
  text = place == std::wstring::npos ? L"" : text.substr(place + 1);
  return token;
}

/// A whole number of the random texts: a sign, digits, nothing else.
int code_number(const std::wstring& token) {
  wchar_t* end = nullptr;
  const long number = std::wcstol(token.c_str(), &end, 10);
  if (token.empty() || *end != L'\0') throw RunTimeFault{kTypeMismatch};
  if (number < -32768 || number > 32767) throw RunTimeFault{kOverflow};
  if (number < 0 || number > 255) throw RunTimeFault{kOverflow};
  return static_cast<int>(number);
}

/// A number of the random texts: a point or a comma, blanks anywhere.
double parse_number(const std::wstring& token) {
  std::string plain;
  for (const wchar_t letter : token) {
    if (letter == L' ' || letter == L'\u00A0' || letter == L'\u202F') continue;
    plain.push_back(letter == L',' ? '.' : static_cast<char>(letter));
  }
  char* end = nullptr;
  const double number = std::strtod(plain.c_str(), &end);
  if (*end != '\0') throw RunTimeFault{kTypeMismatch};
  return number;
}

}  // namespace

double round_amount(double value, int decimals) {
  checked(value);
  char text[64];
  std::snprintf(text, sizeof text, "%.14e", std::fabs(value));
  std::string digits = text[0] + std::string(text + 2, 14);  // "d.dddddddddddddde+xx"
  const int point = std::atoi(text + 17) + 1;                // digits before the decimal point
  const int kept = point + decimals;

  double result = 0;
  if (kept >= 15) {
    std::snprintf(text, sizeof text, "%.*e", kept < 17 ? kept - 1 : 16, std::fabs(value));
    result = std::strtod(text, nullptr);
  } else if (kept >= 0) {
    const bool up = digits[static_cast<std::size_t>(kept)] >= '5';
    digits = "0" + digits.substr(0, static_cast<std::size_t>(kept));
    if (up) {
      std::size_t place = digits.size() - 1;
      while (digits[place] == '9') digits[place--] = '0';
      ++digits[place];
    }
    result = std::strtod((digits + "e" + std::to_string(-decimals)).c_str(), nullptr);
  }
  if (result == 0) return 0;
  return value < 0 ? -result : result;
}

double amount_ht_by_ttc(double rate, double ttc, int decimals) {
  double f = checked(rate / 100);
  f = f + 1;
  const double x = quotient(ttc, f);
  return round_amount(x, decimals);
}

double amount_ttc_by_ht(double rate, double ht, int decimals) {
  const double f = checked(rate / 100);
  const double x = checked((f + 1) * ht);
  return round_amount(x, decimals);
}

double amount_discounted(double amount, double discount_rate, int decimals) {
  double f = checked(discount_rate / 100);
  f = 1 - f;
  const double x = quotient(amount, f);
  return round_amount(x, decimals);
}

double amount_tva(double rate, double amount, const std::wstring& kind, int decimals) {
  if (kind == L"H" || kind == L"h") {
    const double ttc = amount_ttc_by_ht(rate, amount, decimals);
    return round_amount(ttc - amount, decimals);
  }
  if (kind == L"T" || kind == L"t") {
    const double ht = amount_ht_by_ttc(rate, amount, decimals);
    return round_amount(amount - ht, decimals);
  }
  return 0;
}

void read_distribution(std::wstring text, const VatTable& table, double pivot, const std::wstring& kind,
                       int decimals, short& code, Type_RepartTVA& result) {
  if (text.find_first_not_of(L' ') == std::wstring::npos) text = std::to_wstring(code) + L"@100.00@";

  double sum = 0;
  std::wstring memo = L"-1";
  while (!text.empty()) {
    const int current = code_number(next_token(text));
    line(result, current).Pourcent = parse_number(next_token(text));
    if (text.empty() && sum + line(result, current).Pourcent != 100)
      line(result, current).Pourcent = 100 - sum;
    if (line(result, current).Pourcent != 0) {
      memo = memo == L"-1" ? std::to_wstring(current) : std::to_wstring(kMultipleCode);
    }
    sum = sum + line(result, current).Pourcent;
  }

  for (int current = 1; current <= kHighestCode; ++current) {
    const auto entry = table.entries.find(current);
    if (entry == table.entries.end()) continue;
    if (entry->second.rate_readable) result.Lignes[current].TauxTva = entry->second.rate;
    if (!entry->second.accounts_readable) continue;
    velmosav::assign(result.Lignes[current].Compte, entry->second.account);
    velmosav::assign(result.Lignes[current].CompteEnc, entry->second.collection_account);
  }
  velmosav::assign(result.FormatTVA, table.format);
  velmosav::assign(result.FormatTVANonMulti, table.format_not_multiple);

  spread_amount(result, pivot, kind, decimals);
  code = static_cast<short>(std::stoi(memo));
}

double spread_amount(Type_RepartTVA& record, double pivot, const std::wstring& kind, int decimals) {
  double sum = 0;
  int last = 0;
  for (int code = 0; code <= kHighestCode; ++code) {
    Type_LigneRepartTVA& current = line(record, code);
    current.MontantBase = round_amount(checked(pivot * current.Pourcent / 100), decimals);
    sum = sum + current.MontantBase;
    if (current.Pourcent != 0) last = code;
  }
  if (sum != pivot)
    record.Lignes[last].MontantBase = checked(record.Lignes[last].MontantBase + (pivot - sum));

  double total = 0;
  for (int code = 0; code <= kHighestCode; ++code) {
    if (decimals < 0 || decimals > 255) throw RunTimeFault{kOverflow};
    Type_LigneRepartTVA& current = line(record, code);
    double other = 0;
    if (kind == L"H") {
      other = amount_ttc_by_ht(current.TauxTva, current.MontantBase, decimals);
      current.MontantTVA = other - current.MontantBase;
    } else {
      other = amount_ht_by_ttc(current.TauxTva, current.MontantBase, decimals);
      current.MontantTVA = current.MontantBase - other;
    }
    total = total + other;
  }
  return total;
}

std::wstring write_distribution(const Type_RepartTVA& record, short& code) {
  code = -1;
  std::wstring text;
  for (int current = 0; current <= kHighestCode; ++current) {
    const double percentage = record.Lignes[current].Pourcent;
    if (!(percentage > 0)) continue;
    wchar_t number[40];
    std::swprintf(number, std::size(number), L"%.15G", percentage);
    for (wchar_t& letter : number) {
      if (letter == L'.') letter = L',';
    }
    text += std::to_wstring(current) + L"@" + number + L"@";
    code = code == -1 ? static_cast<short>(current) : static_cast<short>(kMultipleCode);
  }
  return text;
}

}  // namespace literal
