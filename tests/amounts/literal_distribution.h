// The amount operations and the VAT distribution, transcribed step by step, with a rounding of their own that
// works on decimal text. The yardstick of the random comparisons: it must never ship, it is slow and knows
// only the texts that those tests write.
#pragma once

#include "support/literal_fault.h"

#include "automation/platform.h"

#include <VelmoSAV_DLL14.h>

#include <map>
#include <string>

namespace literal {

/// Halves away from zero on the 15 significant digits of the value; of more digits, to the nearest. A zero
/// has no sign.
double round_amount(double value, int decimals);

double amount_ht_by_ttc(double rate, double ttc, int decimals);
double amount_ttc_by_ht(double rate, double ht, int decimals);
double amount_discounted(double amount, double discount_rate, int decimals);
double amount_tva(double rate, double amount, const std::wstring& kind, int decimals);

/// An entry of the host's table; a member that is not `readable` fails when it is read.
struct VatEntry {
  double rate = 0;
  std::wstring account;
  std::wstring collection_account;
  bool rate_readable = true;
  bool accounts_readable = true;
};

struct VatTable {
  std::map<int, VatEntry> entries;  // a code that is absent fails
  std::wstring format;
  std::wstring format_not_multiple;
};

constexpr int kHighestCode = 99;
constexpr int kMultipleCode = 99;

/// `result` must be empty; after a fault `code` is as it was and `result` is of no use.
void read_distribution(std::wstring text, const VatTable& table, double pivot, const std::wstring& kind,
                       int decimals, short& code, Type_RepartTVA& result);

/// After a fault the record is as the steps before it left it.
double spread_amount(Type_RepartTVA& record, double pivot, const std::wstring& kind, int decimals);

/// With a comma as decimal separator.
std::wstring write_distribution(const Type_RepartTVA& record, short& code);

}  // namespace literal
