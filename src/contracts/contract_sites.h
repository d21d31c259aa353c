// The sites of a contract: its interventions stand site by site, each run of one site being a group, numbered
// from 1. Where nothing else is said site codes are compared without outer blanks, and an index outside the
// interventions is fault 9.
#pragma once

#include "automation/platform.h"

#include <VelmoSAV_DLL14.h>

#include "automation/text.h"

namespace velmosav {

/// Number of the first group whose site is that of an intervention.
short site_group_of(const Type_Contrat& contract, short intervention);

/// Index of the first intervention of a group; 0 for a number below 1.
short first_of_site_group(const Type_Contrat& contract, short group);

/// First intervention of an intervention's group, or of the following group (the group itself at the last
/// one), or of the preceding one (-1 when there is none, 0 at the first intervention). When both are asked
/// for, `previous` becomes false. 0 for a negative index. The way back to a group's first intervention
/// compares codes as they are written.
short first_of_site(const Type_Contrat& contract, short intervention, bool following, VARIANT_BOOL& previous);

/// Site codes joined by " , ", as the host's SQL condition takes them: unquoted, and without a code that
/// occurs anywhere in the text so far, compared as it is written. Fault 9 when the contract has no
/// interventions.
Bstr site_list(const Type_Contrat& contract);

}  // namespace velmosav
