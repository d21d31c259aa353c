// The interventions of a contract and their schedule.
#pragma once

#include "automation/platform.h"

#include <VelmoSAV_DLL14.h>

namespace velmosav {

/// Rows of the intervention schedule, without those that have neither site nor label; -1 when there is no
/// schedule.
short scheduled_intervention_count(const Type_Contrat& contract);

/// Frees the interventions and both schedules; their counts become -1. Fault 10 for a locked array: those
/// before it are freed.
void clear_lists(Type_Contrat& contract);

}  // namespace velmosav
