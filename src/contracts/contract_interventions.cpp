#include "contracts/contract_interventions.h"

#include "automation/text.h"
#include "automation/variant.h"
#include "records/array_view.h"
#include "records/record_array.h"

namespace velmosav {

short scheduled_intervention_count(const Type_Contrat& contract) {
  short count = count_of(contract.TabCadInterv);
  if (count == -1) return count;  // never dimensioned, or too many rows to be counted
  const ArrayView<Type_CadencierInterv> rows(contract.TabCadInterv);
  for (long i = 0; i < rows.end(); ++i) {
    if (is_blank(view(rows[i].CodeSite)) && is_blank(view(rows[i].Libelle))) --count;
  }
  return count;
}

void clear_lists(Type_Contrat& contract) {
  erase<Type_Intervention>(contract.TabInterv);
  erase<Type_CadencierInterv>(contract.TabCadInterv);
  erase<Type_CadencierFact>(contract.TabCadFact);
}

}  // namespace velmosav
