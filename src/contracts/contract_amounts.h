// Amounts of a contract. A contract or row is priced on one side, before tax (HT) or tax included, by its
// tariff kind: the pivot. Any kind but "H" takes the tax-included side.
#pragma once

#include "automation/platform.h"

#include <VelmoSAV_DLL14.h>

#include "automation/text.h"
#include "automation/variant.h"

namespace velmosav {

double pivot_amount(const Type_Contrat& contract);
double pivot_amount(const Type_CadencierFact& row);

struct ScheduleTotal {
  double ht;
  double ttc;
};
/// Unrounded sums over the billing schedule; 0 without one. Fault 6 beyond the range.
ScheduleTotal schedule_total(const Type_Contrat& contract);
/// The side of a total that a contract is priced on.
double pivot_side(const Type_Contrat& contract, const ScheduleTotal& total);

/// Sets the pivot amount from the schedule (the other side stays), then the gross amounts.
void total_from_schedule(Type_Contrat& contract, short decimals);

/// Sets both gross amounts, tax included first: the net amounts before the contract's discount, rounded.
/// Faults: 11 for a discount of 100, 6 for a number of decimals outside 0 to 255.
void set_gross_amounts(Type_Contrat& contract, short decimals);

/// Total of the transferred rows, each taken as Currency; 0 for a kind other than "H" and "T".
CY transferred_total(const Type_Contrat& contract, std::wstring_view kind);

}  // namespace velmosav
