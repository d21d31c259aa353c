#include "amounts/vat_distribution.h"

#include <array>
#include <string>

#include "amounts/amount_arithmetic.h"
#include "automation/fault.h"
#include "automation/number_text.h"
#include "automation/variant.h"
#include "companion/companion.h"
#include "constants/constant_sets.h"

namespace velmosav {
namespace {

constexpr std::wstring_view kMark = L"@";

/// Highest code as the walks take it: an unsigned 8-bit value.
int highest_code() {
  const short code = companion::highest_vat_code();
  if (code < 0 || code > 255) raise(Fault::Overflow);
  return code;
}

int code_of(std::wstring_view token) {
  const short code = to_short(Variant(Bstr(token)).get());
  if (code < 0 || code > 255) raise(Fault::Overflow);
  return code;
}

/// Reads the pairs; the last one takes whatever makes the percentages total 100.
short read_shares(std::wstring_view text, short multiple_code, Type_RepartTVA& distribution) {
  double sum = 0;
  short code = -1;
  while (!text.empty()) {
    const int current = code_of(companion::next_token(text, kMark));
    Type_LigneRepartTVA& line = line_of(distribution, current);
    line.Pourcent = companion::parse_number(companion::next_token(text, kMark));
    if (text.empty() && sum + line.Pourcent != 100) line.Pourcent = 100 - sum;
    if (line.Pourcent != 0) code = code == -1 ? static_cast<short>(current) : multiple_code;
    sum = sum + line.Pourcent;
  }
  return code;
}

}  // namespace

Bstr write_distribution(const Type_RepartTVA& distribution, short multiple_code, short& code) {
  code = -1;
  std::wstring text;
  const int last = highest_code();
  for (int current = 0; current <= last; ++current) {
    const double percentage = line_of(distribution, current).Pourcent;
    if (!(percentage > 0)) continue;
    text.append(whole_number_text(current).view()).append(kMark);
    text.append(number_text(percentage).view()).append(kMark);
    code = code == -1 ? static_cast<short>(current) : multiple_code;
  }
  return Bstr(text);
}

Bstr single_code_distribution(std::wstring_view code) { return concat({code, L"@100.00@"}); }

void read_distribution(std::wstring_view text, IDispatch* table, const DistributionInput& input, short& code,
                       Type_RepartTVA& distribution) {
  const Bstr whole = is_blank(text) ? single_code_distribution(whole_number_text(code).view()) : Bstr();
  const short found = read_shares(is_blank(text) ? whole.view() : text, input.multiple_code, distribution);
  fill_from_vat_table(table, static_cast<short>(highest_code()), distribution);
  spread_amount(distribution, input.pivot, input.kind, input.decimals);
  code = found;
}

double spread_amount(Type_RepartTVA& distribution, double pivot, std::wstring_view kind, short decimals) {
  const int last = highest_code();
  double sum = 0;
  int last_used = 0;
  for (int code = 0; code <= last; ++code) {
    Type_LigneRepartTVA& line = line_of(distribution, code);
    line.MontantBase = companion::round_amount(finite(pivot * line.Pourcent / 100), decimals);
    sum = sum + line.MontantBase;
    if (line.Pourcent != 0) last_used = code;
  }
  if (sum != pivot) {
    Type_LigneRepartTVA& line = line_of(distribution, last_used);
    line.MontantBase = finite(line.MontantBase + (pivot - sum));
  }

  const bool before_tax = kind == initial<ArticleConstants>.m_PC_TARIF_HT.view();
  const short digits = checked_decimals(decimals);
  double total = 0;
  for (int code = 0; code <= last; ++code) {
    Type_LigneRepartTVA& line = line_of(distribution, code);
    if (before_tax) {
      const double ttc = amount_ttc_from_ht(line.TauxTva, line.MontantBase, digits);
      line.MontantTVA = ttc - line.MontantBase;
      total = total + ttc;
    } else {
      const double ht = amount_ht_from_ttc(line.TauxTva, line.MontantBase, digits);
      line.MontantTVA = line.MontantBase - ht;
      total = total + ht;
    }
  }
  return finite(total);
}

}  // namespace velmosav
