// Durations as text: whole-number fields separated by ":", most significant first ("02:30").
// Units: "s", "n" minutes, "h", "j" days, "w" weeks, "m" months of 30 days, "y" years of 365.25 days.
#pragma once

#include "automation/text.h"

namespace velmosav {

/// Text of a number of units (in either case) in the fields whose unit codes the array names, at most six;
/// the rest below the last field is dropped. Beyond 32 bits of seconds the fields are computed in whole
/// minutes, then hours; beyond that the text is empty, as it is for more than six fields. Fault 9 for an
/// array never dimensioned.
Bstr duration_text(double number, std::wstring_view unit, SAFEARRAY* fields);

/// Number of units (exact case; 0 for an unknown one) of a text: hours:minutes:seconds, or with `long_form`
/// years:months:days:hours:minutes:seconds. Each field is rounded to a whole number first. Fault 6 for a
/// field beyond 32 bits; a sum beyond them is computed in minutes, then given in hours.
double duration_number(std::wstring_view text, std::wstring_view unit, bool long_form);

}  // namespace velmosav
