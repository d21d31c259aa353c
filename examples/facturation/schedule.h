// From a contract of the files to its record with a complete billing schedule.
#pragma once

#include <memory>

#include "input.h"
#include "library.h"
#include "records.h"
#include "refusal.h"
#include "totals.h"
#include "vat_table.h"

namespace facturation {

struct ContractDocument {
  ContratInput input;
  Contrat record;
};

/// Throws Refusal for a contract that the library cannot hold. `next_key` numbers the instalments.
std::unique_ptr<ContractDocument> build_contract(ContratInput input, Library& library, VatTable& table,
                                                 long& next_key);

/// Amounts of an instalment, from its VAT distribution.
Totals totals_of(const Type_CadencierFact& row, Tarif tarif);

}  // namespace facturation
