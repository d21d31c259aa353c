// The table of the invoices made.
#pragma once

#include <string>
#include <vector>

#include "campaign.h"
#include "invoices.h"

namespace facturation {

/// An amount in the French form: "1 234,50", with no-break blanks.
std::string amount_text(double amount);

/// One aligned line per invoice (the first ones only in a long run) and the totals of all.
std::string table_text(const std::vector<InvoiceSummary>& invoices);

/// The contracts with their billing rules, and the time spent on interventions; empty without any.
std::string contracts_text(const std::vector<ContractLine>& contracts);
std::string times_text(const std::vector<TimeLine>& times);

}  // namespace facturation
