// The distribution of an amount over VAT codes, as text ("1@40@3@60@": code, percentage) and as a record with
// one slot per code.
#pragma once

#include "amounts/vat_table.h"
#include "automation/text.h"
#include "records/record.h"

namespace velmosav {

/// Text of the record's positive shares; `code` becomes -1 (none), the one code, or `multiple_code`.
Bstr write_distribution(const Type_RepartTVA& distribution, short multiple_code, short& code);

/// Text of a distribution under one code.
Bstr single_code_distribution(std::wstring_view code);

/// What a distribution is computed from beside its text.
struct DistributionInput {
  double pivot;            // amount to spread, on the base that `kind` names
  std::wstring_view kind;  // tariff kind of the pivot: "H" before tax, else tax included
  short decimals;          // of the amounts
  short multiple_code;     // stands for several codes
};

/// Reads a text (blank: everything under `code`) into an empty record, fills rates and accounts from the
/// host's table, and spreads the pivot. `code` is set last: -1, the one code, or the multiple code. Faults:
/// 13 or 6 for a code or percentage that is no number, 9 for a code of 100 or more, and those of spreading.
void read_distribution(std::wstring_view text, IDispatch* table, const DistributionInput& input, short& code,
                       Type_RepartTVA& distribution);

/// Spreads the pivot over the slots by their percentages, the rounding difference going to the highest code
/// in use, and computes each slot's VAT. Returns the pivot converted to the other base. Faults: 6 for an
/// amount out of range or that is not finite, 11 for a rate of -100 where the pivot includes the tax.
double spread_amount(Type_RepartTVA& distribution, double pivot, std::wstring_view kind, short decimals);

}  // namespace velmosav
