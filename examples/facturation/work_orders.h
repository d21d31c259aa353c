// From an intervention of the files to its work-order record with its amounts.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "input.h"
#include "library.h"
#include "records.h"
#include "totals.h"
#include "vat_table.h"

namespace facturation {

/// What a technician spent on an intervention, "HH:MM".
struct TimeSpent {
  std::string technician;
  std::string time;
};

struct WorkOrderDocument {
  InterventionInput input;
  Bon record;
  AdresseTiers facturation;
  Totals totals;
  std::wstring format_tva;
  bool has_invoiced_articles = false;
  std::vector<TimeSpent> time_spent;
};

std::unique_ptr<WorkOrderDocument> build_work_order(InterventionInput input, Library& library,
                                                    VatTable& table);

/// The article state that marks what the customer pays.
extern const wchar_t* const kSituationFacture;

}  // namespace facturation
