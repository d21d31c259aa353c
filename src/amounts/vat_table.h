// The host's VAT table, an object read by name.
#pragma once

#include "automation/platform.h"

#include <VelmoSAV_DLL14.h>

namespace velmosav {

/// Fills rates and accounts of the codes from 1 on, and the two format texts. What the table does not know or
/// fails to answer keeps its value.
void fill_from_vat_table(IDispatch* table, short highest_code, Type_RepartTVA& distribution);

}  // namespace velmosav
