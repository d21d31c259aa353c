// The rules of the billing schedule, transcribed step by step: contracts are copied whole, every date goes
// through the platform's text conversions with the user's regional settings. The yardstick of the random
// comparisons: it must never ship, it is slow.
#pragma once

#include "support/literal_fault.h"

#include "automation/platform.h"

#include <VelmoSAV_DLL14.h>

#include <string>

namespace literal {

/// CadFact_SpreadPeriodDateEdition. After a fault the contract is as it was.
short spread_period_date(Type_Contrat& contract, short edited_row, const std::wstring& date, bool start);

/// AjouterCadFactCtt, with the labels of a new instance. After a fault the contract and `index` are as the
/// steps before it left them.
short add_row(Type_Contrat& contract, const std::wstring& invoicing_date, const std::wstring& start,
              const std::wstring& end, short& index);

/// GetLastDatePeriode.
std::wstring last_period_date(const Type_Contrat& contract, bool transferred, const std::wstring& fallback);

/// SetDateByDuree.
std::wstring date_by_duration(std::wstring start, long duration, const std::wstring& unit);

}  // namespace literal
