// The rules of a contract's sites and interventions, transcribed step by step: every row against every other,
// texts copied at each use, schedules walked again for each row. The yardstick of the random comparison. They
// must never ship: their time grows with the square of the rows and more.
#pragma once

#include "automation/platform.h"

#include <VelmoSAV_DLL14.h>

#include <string>

namespace literal {

/// Number of the run-time fault, 0 for success. The result is set on success only.
using Outcome = int;

/// NbrCadInterv.
Outcome scheduled_count(const Type_Contrat& contract, short& count);

/// GetNumSite_Dll.
Outcome site_number(const Type_Contrat& contract, short index, short& number);

/// GetIndByNumSite.
Outcome first_of_group(const Type_Contrat& contract, short group, short& first);

/// FirstIntervSite; `previous` changes as the caller's variable does, faults included.
Outcome first_of_site(const Type_Contrat& contract, short index, bool following, bool& previous,
                      short& first);

/// CheckLibInterCtt; `later` is set when the labels do not all differ.
Outcome labels_differ(const Type_Contrat& contract, bool& differ, short& later);

/// ListeSitesCttSQL.
Outcome site_list(const Type_Contrat& contract, std::wstring& list);

/// IsEchCttTransferee. -1 stands for any intervention.
Outcome is_committed(const Type_Contrat& contract, bool check_billing, bool check_interventions, short number,
                     bool& committed);

/// IsInfosIntervModifiable. -1 stands for all interventions.
Outcome is_modifiable(const Type_Contrat& contract, short number, bool& modifiable);

/// CheckPreavisDocCtt.
Outcome notice_fits(const Type_Contrat& contract, bool letter, bool& fits);

}  // namespace literal
