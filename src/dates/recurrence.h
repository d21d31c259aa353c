// Recurrence rules: their French label, the next or previous month they select, the date of their day in a
// month.
#pragma once

#include "automation/platform.h"

#include <VelmoSAV_DLL14.h>

#include "automation/text.h"
#include "automation/variant.h"
#include "constants/constant_sets.h"

namespace velmosav {

/// Names of the items of a list text ("&Lundi;&Mardi;#F") that the keys select, in the order of the keys,
/// separated by ", ". `remove_mark`: without the "&" before the key letter.
Bstr selected_names(std::wstring_view keys, std::wstring_view list, bool remove_mark);

/// French label of a rule; empty for an unknown kind. `constants`: the instance's kind letters and weekday
/// list.
Bstr rule_label(const PeriodiciteConstants& constants, const Type_Periodicite& rule);

/// Date of a monthly rule one step on or back: "dd/mm/yy" when the rule counts months, "dd/mm/yyyy" (or what
/// corrected_date makes of it) when it lists them. Unchanged for another kind or a rule without months.
/// Fault 13 for a text that is no date, 5 when the date leaves the years 100 to 9999.
Bstr neighbour_month_date(const PeriodiciteConstants& constants, std::wstring_view date,
                          const Type_Periodicite& rule, bool previous);

/// Date of the rule's ordinal weekday in a month: "dd/mm/yy" when it is the first day of the month (the last
/// for the last weekday), the system's short form otherwise. `month` and `year` become the current ones when
/// missing, and the year of the last weekday the number it was read as. Faults: 13 for a month and year that
/// make no date, 94 for Null, 5 when the rule names no single weekday; for the last weekday also 6 for a
/// month beyond 16 bits and 5 for December 9999.
Bstr date_of_rule_day(const Type_Periodicite& rule, VARIANT* month, VARIANT* year);

}  // namespace velmosav
