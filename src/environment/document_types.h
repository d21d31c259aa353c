// Document types, their provenance names and table names, and the input formats of duration units.
// All comparisons are exact, against the current values of the instance's members.
#pragma once

#include "automation/text.h"
#include "constants/constant_sets.h"

namespace velmosav {

/// Stem of the table that holds documents of a type; empty for a type that has none.
std::wstring_view table_name_of(const GeneralConstants& general, std::wstring_view document_type);
/// Type of the documents of a provenance name; empty for an unknown one.
std::wstring_view document_type_of(const GeneralConstants& general, std::wstring_view provenance);
/// Provenance name of an after-sales document type; empty for any other (a proposal included).
std::wstring_view provenance_of(const GeneralConstants& general, std::wstring_view document_type);

/// Numeric input format of a duration in a unit. `value` is lowered to the unit's cap (about ten years each);
/// an unknown unit becomes the day. Without memory both are as before.
Bstr duration_input_format(const GeneralConstants& general, BSTR& unit, short& value);

}  // namespace velmosav
