// Amounts before tax (HT), tax included (TTC), VAT and discounts. Rates are percentages; every result is
// rounded to `decimals` by the companion's rounding. The order of the operations decides the last bit before
// rounding.
//
// Faults: 11 for a division by zero (rate -100, discount 100), 6 for a result or input that is not finite.
#pragma once

#include <string_view>

namespace velmosav {

double amount_ht_from_ttc(double rate, double ttc, short decimals);
double amount_ttc_from_ht(double rate, double ht, short decimals);

/// The gross amount from which a discount of `discount_rate` percent leaves `amount`: 100 at 20 % gives 125.
double amount_before_discount(double amount, double discount_rate, short decimals);

/// VAT of an amount: its difference from its counterpart on the other base, rounded once more.
/// `kind`: "H" or "T" in either case; any other kind gives 0.
double vat_of_amount(double rate, double amount, std::wstring_view kind, short decimals);

/// A number of decimals as the amount operations take it: fault 6 outside 0 to 255.
short checked_decimals(short decimals);

}  // namespace velmosav
