// Equality of two cells of a grid by the run-time's rules: texts exactly, numbers by value (whatever their
// types), Empty equal to "" and to 0, a number and a text never equal.
#pragma once

#include <cstdint>

#include "automation/variant.h"

namespace velmosav {

/// Fault 94 when a cell is Null, 13 when it holds no value that can be compared (an array, an error).
bool equal_values(const VARIANT& left, const VARIANT& right);

/// How a cell can be told apart from others without comparing it with each.
enum class KeyKind {
  Text,    // equal exactly to the same text
  Number,  // equal exactly to the same double
  Other,   // comparison is no equivalence (Empty), needs more than a double, or faults
};
KeyKind key_kind(const VARIANT& value) noexcept;

/// Equal for equal values of kind Text or Number.
std::size_t key_hash(const VARIANT& value) noexcept;

}  // namespace velmosav
