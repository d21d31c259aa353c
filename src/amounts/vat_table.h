// The host's VAT table, an object read by name.
#pragma once

#include "automation/platform.h"

#include <VelmoSAV_DLL14.h>

#include <iterator>

#include "automation/fault.h"

namespace velmosav {

/// The slot of a code; fault 9 for a code that has none.
template <class Distribution>
auto& line_of(Distribution& distribution, int code) {
  if (code < 0 || code >= static_cast<int>(std::size(distribution.Lignes))) raise(Fault::SubscriptOutOfRange);
  return distribution.Lignes[code];
}

/// Fills rates and accounts of the codes from 1 on, and the two format texts. What the table does not know or
/// fails to answer keeps its value.
void fill_from_vat_table(IDispatch* table, short highest_code, Type_RepartTVA& distribution);

}  // namespace velmosav
