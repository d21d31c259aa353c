// The services that the application's companion library offers, behind one seam: a host's own can be bound
// here.
//
// Decisions that are the companion's to take, as this implementation takes them: halves round away from zero
// on the value's decimal reading; the highest VAT code is 99; the list separator is a comma; a number may be
// written with a point or a comma, and with blanks between its thousands.
#pragma once

#include "automation/text.h"

namespace velmosav::companion {

/// Rounds to a number of decimals (negative: tens, hundreds...), halves away from zero. The value is read
/// with its 15 significant digits, so 2.675 is a half at 2 decimals although its binary form lies below;
/// rounding twice changes nothing. Fault 6 when the value is not finite.
double round_amount(double value, short decimals);

/// Highest VAT code in use; bounds every walk over codes.
short highest_vat_code() noexcept;

/// Text before the first separator; takes it and the separator off `rest`. Without a separator: all of
/// `rest`.
std::wstring_view next_token(std::wstring_view& rest, std::wstring_view separator) noexcept;

/// Number of a text (empty: 0) or of any other value. Fault 13 when the text is no number, 6 when it is too
/// large, 94 for Null.
double parse_number(std::wstring_view text);
double parse_number(const VARIANT& value);

/// Separator of lists of codes; one character.
std::wstring_view list_separator() noexcept;

/// Every occurrence of `searched` replaced, from left to right; an empty `searched` changes nothing.
Bstr replace_text(std::wstring_view text, std::wstring_view searched, std::wstring_view replacement);

}  // namespace velmosav::companion
