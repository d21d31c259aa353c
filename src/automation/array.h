// Arrays that belong to the host: their bounds and what they say of themselves.
//
// Counts follow one rule: upper bound + 1, and -1 for an array that was never dimensioned.
#pragma once

#include "automation/platform.h"

#include <optional>

namespace velmosav {

/// Upper bound of a dimension (1 = first); nothing when never dimensioned or when there is no such dimension.
/// A bound beyond 32 bits is held to them: such an array has no element 0, so that a walk from there faults.
std::optional<long> upper_bound(const SAFEARRAY* array, unsigned dimension = 1) noexcept;

/// Upper bound + 1; -1 when there is none, or when it does not fit 16 bits.
short count_of(const SAFEARRAY* array, unsigned dimension = 1) noexcept;

/// False when an array says itself that its elements are not of the type. One that says nothing is believed.
bool may_hold(const SAFEARRAY* array, VARTYPE type) noexcept;

/// Fault 10 when the array is locked or of fixed size, so that it can be neither erased nor re-dimensioned.
void require_resizable(const SAFEARRAY* array);

}  // namespace velmosav
