// Lists of codes as one text for an SQL condition: "A01", "B02" - each code a quoted literal, joined by the
// list separator and a blank. Every operation reads its text once.
#pragma once

#include "automation/text.h"

namespace velmosav {

/// A text as a double-quoted SQL literal, inner quotes doubled.
Bstr sql_literal(std::wstring_view text);

/// Adds a code at the end of a list.
void append_code(BSTR& list, std::wstring_view code);

/// Takes the first code off a list and returns it (cut at its first inner quote); empty, with the list
/// untouched, when it does not start with a quote.
std::wstring_view take_code(std::wstring_view& list);

/// Number of codes; fault 6 beyond 32767 and for a text that is no list.
short code_count(std::wstring_view list);

/// Removes the first occurrence of a code, with the separator and blank behind it; exact comparison.
void remove_code(BSTR& list, std::wstring_view code);

}  // namespace velmosav
