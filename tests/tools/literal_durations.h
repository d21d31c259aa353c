// Durations, transcribed step by step with a number reader of their own. The yardstick of the random
// comparisons: it must never ship, it knows only the texts that those tests write.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "tools/literal_code_lists.h"

namespace literal {

/// A field's cell: its text, or nothing when it cannot be read as one.
using Cell = std::optional<std::wstring>;

/// Empty as well when the total fits no scale.
std::wstring double_to_duree(double number, std::wstring unit, const std::vector<Cell>& cells);

double duree_to_double(const std::wstring& text, const std::wstring& unit, bool long_form);

}  // namespace literal
