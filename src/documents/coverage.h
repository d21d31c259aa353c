// Coverage lists: the covered (or excluded) articles of a contract, guarantee or intervention.
#pragma once

#include "automation/platform.h"

#include <VelmoSAV_DLL14.h>

#include <string_view>

namespace velmosav {

/// Every field of a line empty or 0.
void clear_line(Type_LigneCouverture& line);

/// The list becomes "never dimensioned"; faults as require_erasable.
void clear_lines(Type_Couverture& coverage);

/// Inserts an empty line before `index` (beyond the end: at the end); the lines behind it move. Fault 9 for a
/// negative index, a list that was never dimensioned, starts at another index than 0 or has two dimensions;
/// 10 for one that is locked, of fixed size or a vector; 13 for elements of another kind. The record is
/// unchanged then.
void insert_line(Type_Couverture& coverage, double index);

/// Whether an article stands in the list on another line than `excluded`; codes without outer blanks,
/// exactly. Fault 9 for a list that starts above index 0 or has two dimensions, 13 for elements of another
/// kind.
bool contains_article(const Type_Couverture& coverage, std::wstring_view article, double excluded);

}  // namespace velmosav
