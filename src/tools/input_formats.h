// Numeric input formats ("N;3.0;>0;<520;B") and lists of account roots ("401;411").
#pragma once

#include "automation/text.h"

namespace velmosav {

/// Whether a value lies within the bounds that a format sets: digits ("7.2"), upper ("<520") and lower (">0")
/// bounds, all inclusive and only ever tighter, rounded to the format's decimals. Other items are ignored.
/// Faults: 6 for a digit count beyond 16 bits and for digits or a bound beyond a Double, 5 for a negative
/// digit count.
bool satisfies_format(std::wstring_view format, double value);

/// Checks a list of roots: digits, and capital letters from the third character on, at most 9 characters. A
/// valid list is rewritten without blanks. `account_class`: first character that each root must have,
/// replaced by the root that has another. `excluded`: roots that none may start with, replaced by the root
/// that does, and emptied when a root has other characters; a root that is too long leaves it. Both may be
/// null.
bool validate_roots(BSTR& roots, BSTR* account_class, BSTR* excluded);

/// Whether an account starts with one of the roots, in either case. When it does not and `complete` is set,
/// it becomes the first root, filled up with zeros to 9 characters (empty without a root).
bool has_root(BSTR& account, std::wstring_view roots, bool complete);

}  // namespace velmosav
