// The grouping rule, transcribed step by step: every row against every later row, one copied cell after the
// other. The yardstick of the random comparison. It must never ship: its time grows with the square of the
// rows.
#pragma once

#include "automation/platform.h"

#include <oleauto.h>

namespace literal {

/// Number of the run-time fault, 0 for success.
using Outcome = int;

/// Whether two rows go onto the same invoice.
Outcome same_invoice(SAFEARRAY* grid, long row, long other, bool& same);

/// Regroups the grid in place; after a fault the grid is as the steps before it left it.
Outcome group(SAFEARRAY*& grid);

}  // namespace literal
