// Work orders and intervention definitions: counts, total time, resets.
#pragma once

#include "automation/platform.h"

#include <VelmoSAV_DLL14.h>

#include <string_view>

namespace velmosav {

/// Resources of an intervention (second dimension of its table); a single resource whose first cell is empty
/// counts as none; -1 without a table, and for a single resource without a cell (0, 0).
short resource_count(const Type_Intervention& intervention) noexcept;

/// Total time of a technician's slots in a unit: "s", "n" minutes, "h", "j" days, "w" weeks, "m" months of 30
/// days, "y" years of 365.25 days, exactly; 0 for another unit. To the minute. Fault 13 for a slot without
/// date and time.
double total_slot_time(std::wstring_view unit, const Type_LigneRessource& technician);

/// Releases the objects of an array and erases it.
void erase_objects(SAFEARRAY*& objects);

/// Empties a work order's lists; with `all`, releases its VAT object too. Other fields stay.
void clear_lists(Type_Bon& work_order, bool all);
/// Empties an intervention's lists.
void clear_lists(Type_Intervention& intervention);

}  // namespace velmosav
