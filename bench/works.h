// The measurements, by subject. Each skips what the bench does not want.
#pragma once

#include "measure.h"

namespace bench {

void measure_binding(Bench& bench);
void measure_dates(Bench& bench);
void measure_grouping(Bench& bench);
void measure_contracts(Bench& bench);
void measure_amounts(Bench& bench);
void measure_code_lists(Bench& bench);
void measure_invoices(Bench& bench);
void measure_demo_host(Bench& bench);

}  // namespace bench
