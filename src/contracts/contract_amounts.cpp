#include "contracts/contract_amounts.h"

#include "amounts/amount_arithmetic.h"
#include "constants/constant_sets.h"
#include "records/array_view.h"

namespace velmosav {
namespace {

const ArticleConstants& tariffs() { return initial<ArticleConstants>; }

bool is_before_tax(BSTR kind) { return view(kind) == tariffs().m_PC_TARIF_HT.view(); }

}  // namespace

double pivot_amount(const Type_Contrat& contract) {
  return is_before_tax(contract.TypeTypTarif) ? contract.MontantHT : contract.MontantTTC;
}

double pivot_amount(const Type_CadencierFact& row) {
  return is_before_tax(row.TypeTypTarif) ? row.MontantHT : row.MontantTTC;
}

ScheduleTotal schedule_total(const Type_Contrat& contract) {
  const ArrayView<Type_CadencierFact> rows(contract.TabCadFact);
  ScheduleTotal total{0, 0};
  for (long i = 0; i < rows.end(); ++i) {
    total.ht = finite(total.ht + rows[i].MontantHT);
    total.ttc = finite(total.ttc + rows[i].MontantTTC);
  }
  return total;
}

double pivot_side(const Type_Contrat& contract, const ScheduleTotal& total) {
  return is_before_tax(contract.TypeTypTarif) ? total.ht : total.ttc;
}

void total_from_schedule(Type_Contrat& contract, short decimals) {
  const ScheduleTotal total = schedule_total(contract);
  if (is_before_tax(contract.TypeTypTarif)) {
    contract.MontantHT = total.ht;
  } else {
    contract.MontantTTC = total.ttc;
  }
  set_gross_amounts(contract, decimals);
}

void set_gross_amounts(Type_Contrat& contract, short decimals) {
  const short digits = checked_decimals(decimals);
  contract.MontantTTCBrut = amount_before_discount(contract.MontantTTC, contract.Remise, digits);
  contract.MontantHTBrut = amount_before_discount(contract.MontantHT, contract.Remise, digits);
}

CY transferred_total(const Type_Contrat& contract, std::wstring_view kind) {
  CY total{};
  const bool ht = kind == tariffs().m_PC_TARIF_HT.view();
  const bool known = ht || kind == tariffs().m_PC_TARIF_TTC.view();
  const ArrayView<Type_CadencierFact> rows(contract.TabCadFact);
  for (long i = 0; i < rows.end(); ++i) {
    const Type_CadencierFact& row = rows[i];
    if (!row.Transfere || !known) continue;
    CY amount;
    check_conversion(VarCyFromR8(ht ? row.MontantHT : row.MontantTTC, &amount));
    check_conversion(VarCyAdd(total, amount, &total));
  }
  return total;
}

}  // namespace velmosav
