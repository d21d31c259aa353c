#include "amounts/amount_arithmetic.h"

#include "automation/fault.h"
#include "companion/companion.h"
#include "constants/constant_sets.h"

namespace velmosav {

using companion::round_amount;

double amount_ht_from_ttc(double rate, double ttc, short decimals) {
  double factor = finite(rate / 100);
  factor = factor + 1;
  return round_amount(divide(ttc, factor), decimals);
}

double amount_ttc_from_ht(double rate, double ht, short decimals) {
  const double factor = finite(rate / 100);
  return round_amount(finite((factor + 1) * ht), decimals);
}

double amount_before_discount(double amount, double discount_rate, short decimals) {
  double factor = finite(discount_rate / 100);
  factor = 1 - factor;
  return round_amount(divide(amount, factor), decimals);
}

double vat_of_amount(double rate, double amount, std::wstring_view kind, short decimals) {
  const ArticleConstants& article = initial<ArticleConstants>;
  const Bstr upper_kind = upper(kind);
  if (upper_kind.view() == article.m_PC_TARIF_HT.view()) {
    const double ttc = amount_ttc_from_ht(rate, amount, decimals);
    return round_amount(ttc - amount, decimals);
  }
  if (upper_kind.view() == article.m_PC_TARIF_TTC.view()) {
    const double ht = amount_ht_from_ttc(rate, amount, decimals);
    return round_amount(amount - ht, decimals);
  }
  return 0;
}

short checked_decimals(short decimals) {
  if (decimals < 0 || decimals > 255) raise(Fault::Overflow);
  return decimals;
}

}  // namespace velmosav
