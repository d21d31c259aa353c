// Replacement of a text in a text, ignoring letter case.
#pragma once

#include "automation/text.h"

namespace velmosav {

/// Replaces every occurrence of `searched`, ignoring case; what the replacement brings in is not searched
/// again, and the rest keeps its case. An empty `searched` changes nothing.
void replace_ignoring_case(BSTR& text, std::wstring_view searched, std::wstring_view replacement);

}  // namespace velmosav
