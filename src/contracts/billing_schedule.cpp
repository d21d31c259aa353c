#include "contracts/billing_schedule.h"

#include "automation/date_text.h"
#include "automation/number_text.h"
#include "contracts/contract_interventions.h"
#include "records/array_view.h"
#include "records/record.h"
#include "records/record_array.h"

namespace velmosav {
namespace {

bool is_invoiced(const Type_CadencierFact& row) { return !is_blank(view(row.codeFact)) || row.Transfere; }

Bstr instalment_label(const ContratDocConstants& labels, short index) {
  if (index == 0) {
    return concat({L"1", labels.m_PC_EchFact_PrefEnumUn.view(), L" ", labels.m_PC_EchFact_LibDef.view()});
  }
  const Bstr number = whole_number_text(narrow_to_short(index + 1LL));
  return concat(
      {number.view(), labels.m_PC_EchFact_PrefEnum.view(), L" ", labels.m_PC_EchFact_LibDef.view()});
}

/// Fills every field of a row, whatever it held.
void fill_instalment(const Type_Contrat& contract, const ContratDocConstants& labels,
                     const NewInstalment& instalment, short index, Type_CadencierFact& row) {
  assign(row.CodeContrat, view(contract.Code));
  row.NumEch = index;
  assign(row.DateDeb, index == 0 ? view(contract.DateDeb) : instalment.start);
  assign(row.Libelle, instalment_label(labels, index));
  const std::wstring_view contract_end = view(contract.DateFin);
  assign(row.DateFin, days_between(instalment.end, contract_end) < 0 ? contract_end : instalment.end);
  assign(row.DateFact, instalment.invoicing_date);
  assign(row.Vendeur, view(contract.Vendeur));
  assign(row.TypeTypTarif, view(contract.TypeTypTarif));
  row.CodeTva = contract.CodeTva;
  copy(contract.RepartTva, row.RepartTva);
  row.MontantHTPrev = 0;
  row.MontantTTCPrev = 0;
  row.MontantHT = 0;
  row.MontantTTC = 0;
  assign(row.codeFact, std::wstring_view());
  row.Transfere = VARIANT_FALSE;
  row.Force = VARIANT_FALSE;
  row.ForceTVA = VARIANT_FALSE;
  row.NumAuto = -1;
}

/// A flag that is true when missing; the argument becomes the Boolean it was read as.
bool read_flag(VARIANT* argument) {
  const bool value = is_missing(argument) || to_bool(*argument);
  if (argument) store_variable(*argument, Variant(value));
  return value;
}

bool has_invoiced_row(const Type_Contrat& contract) {
  const ArrayView<Type_CadencierFact> rows(contract.TabCadFact);
  for (long i = 0; i < rows.end(); ++i) {
    if (is_invoiced(rows[i])) return true;
  }
  return false;
}

double read_intervention(VARIANT* argument) {
  if (is_missing(argument)) {
    if (argument) store_variable(*argument, Variant(short{-1}));
    return -1;
  }
  const double number = to_double(*argument);
  store_variable(*argument, Variant(number));
  return number;
}

bool has_work_order(const Type_Contrat& contract, double intervention) {
  const ArrayView<Type_CadencierInterv> rows(contract.TabCadInterv);
  const short count = scheduled_intervention_count(contract);
  for (long i = 0; i < count; ++i) {
    const Type_CadencierInterv& row = rows[i];
    if (!is_blank(view(row.CodeBon)) && (intervention == -1 || intervention == row.NumInterv)) return true;
  }
  return false;
}

}  // namespace

short add_instalment(Type_Contrat& contract, const ContratDocConstants& labels,
                     const NewInstalment& instalment, short& index) {
  if (index == -1) index = count_of(contract.TabCadFact);
  if (index < 0) return -1;
  // A host may pass texts of its own schedule, which the steps below free.
  const Bstr invoicing_date(instalment.invoicing_date);
  const Bstr start(instalment.start);
  const Bstr end(instalment.end);
  const NewInstalment kept{invoicing_date.view(), start.view(), end.view()};
  redim_preserve<Type_CadencierFact>(contract.TabCadFact, index);
  fill_instalment(contract, labels, kept, index, ArrayView<Type_CadencierFact>(contract.TabCadFact)[index]);
  return index;
}

std::wstring_view last_period_end(const Type_Contrat& contract, bool transferred_only,
                                  std::wstring_view fallback) {
  const ArrayView<Type_CadencierFact> rows(contract.TabCadFact);
  for (long i = rows.end() - 1; i >= 0; --i) {
    if (!transferred_only || rows[i].Transfere) return view(rows[i].DateFin);
  }
  return is_blank(fallback) ? view(contract.DateDeb) : fallback;
}

short invoiced_row_count(const Type_Contrat& contract) {
  const ArrayView<Type_CadencierFact> rows(contract.TabCadFact);
  long count = 0;
  for (long i = 0; i < rows.end(); ++i) {
    if (is_invoiced(rows[i])) ++count;
  }
  return narrow_to_short(count);
}

bool has_forced_row(const Type_Contrat& contract) {
  const ArrayView<Type_CadencierFact> rows(contract.TabCadFact);
  for (long i = 0; i < rows.end(); ++i) {
    if (rows[i].Force) return true;
  }
  return false;
}

bool is_committed(const Type_Contrat& contract, VARIANT* check_billing, VARIANT* check_interventions,
                  VARIANT* intervention) {
  const bool billing = read_flag(check_billing);
  const bool interventions = read_flag(check_interventions);
  if (billing && has_invoiced_row(contract)) return true;
  if (!interventions) return false;
  return has_work_order(contract, read_intervention(intervention));
}

}  // namespace velmosav
