// The interventions of a contract and their schedule.
#pragma once

#include "automation/platform.h"

#include <VelmoSAV_DLL14.h>

#include <optional>

namespace velmosav {

/// Rows of the intervention schedule, without those that have neither site nor label; -1 when there is no
/// schedule.
short scheduled_intervention_count(const Type_Contrat& contract);

/// Brings the first and last dates of an intervention inside the contract (its own start and end): a date
/// that is none, or lies outside, is replaced. True when one was. Fault 9 for an index outside, 13 when a
/// date has to be compared with a start or end of the contract that is none.
bool correct_intervention_dates(const Type_Contrat& contract, short intervention);

/// The later row of the first pair of interventions of one site that share a label, ignoring case and outer
/// blanks; nothing when there is none. Blank labels never clash.
std::optional<long> clashing_label(const Type_Contrat& contract);

/// Whether an intervention's information may still change (-1: of all): a framework intervention until
/// something was consumed against it, any other until a work order was issued for it.
bool is_modifiable(const Type_Contrat& contract, long intervention);

/// Whether the notice (of the letter, or of the contract) fits within the contract's duration.
bool notice_fits(const Type_Contrat& contract, bool letter);

/// Frees the interventions and both schedules; their counts become -1. Fault 10 for a locked array: those
/// before it are freed.
void clear_lists(Type_Contrat& contract);

}  // namespace velmosav
