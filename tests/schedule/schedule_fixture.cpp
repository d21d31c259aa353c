#include "schedule/schedule_fixture.h"

namespace host {

void set_periods(Type_Contrat& contract, const std::vector<Period>& periods) {
  dimension<Type_CadencierFact>(contract.TabCadFact, static_cast<unsigned long>(periods.size()));
  for (std::size_t i = 0; i < periods.size(); ++i) {
    Type_CadencierFact& line = row(contract, static_cast<unsigned long>(i));
    const std::wstring number = std::to_wstring(i);
    set(line.CodeContrat, L"ROW-" + number);
    line.NumEch = static_cast<short>(50 + i);
    set(line.Libelle, L"libellé " + number);
    set(line.DateDeb, periods[i].start);
    set(line.DateFin, periods[i].end);
    set(line.DateFact, periods[i].end);
    line.MontantHT = 10.5 * static_cast<double>(i + 1);
    line.MontantTTC = 12.25 * static_cast<double>(i + 1);
    line.Transfere = velmosav::to_variant_bool(periods[i].transferred);
    line.NumAuto = static_cast<long>(900 + i);
    set(line.RepartTva.Lignes[i % 100].Compte, L"4457" + number);
  }
}

Record<Type_Contrat> sample_contract(const std::vector<Period>& periods) {
  Record<Type_Contrat> contract;
  set(contract->Code, L"CTT-7");
  set(contract->DateDeb, L"01/01/2025");
  set(contract->DateFin, L"31/12/2025");
  set(contract->Vendeur, L"REP-2");
  set(contract->TypeTypTarif, L"H");
  contract->CodeTva = 4;
  contract->RepartTva.Lignes[4].Pourcent = 62.5;
  contract->RepartTva.Lignes[99].MontantTVA = 7.75;
  set(contract->RepartTva.Lignes[4].Compte, L"445714");
  set(contract->RepartTva.Lignes[99].CompteEnc, L"445799");
  set(contract->RepartTva.FormatTVA, L"fmt");
  set(contract->RepartTva.FormatTVANonMulti, L"fmt non multi");
  dimension<Type_Intervention>(contract->TabInterv, 1);
  set(element<Type_Intervention>(contract->TabInterv, 0).Libelle, L"Visite");
  dimension<Type_CadencierInterv>(contract->TabCadInterv, 1);
  set(element<Type_CadencierInterv>(contract->TabCadInterv, 0).CodeSite, L"S1");
  dimension<Type_Technicien>(contract->Tech, 2);
  if (!periods.empty()) set_periods(*contract, periods);
  return contract;
}

std::vector<Period> four_months() {
  return {{L"01/01/2025", L"31/01/2025"},
          {L"01/02/2025", L"28/02/2025"},
          {L"01/03/2025", L"31/03/2025"},
          {L"01/04/2025", L"30/04/2025"}};
}

long rows_of(const SAFEARRAY* array) { return array ? static_cast<long>(array->rgsabound[0].cElements) : -1; }

std::vector<std::string> periods_of(Type_Contrat& contract) {
  std::vector<std::string> periods;
  for (long i = 0; i < rows_of(contract.TabCadFact); ++i) {
    const Type_CadencierFact& line = row(contract, static_cast<unsigned long>(i));
    periods.push_back(utf8(get(line.DateDeb)) + "-" + utf8(get(line.DateFin)));
  }
  return periods;
}

short ScheduleTest::spread(Type_Contrat& contract, short edited, const wchar_t* date, bool start) {
  short result = 9999;
  EXPECT_EQ(S_OK, contracts_->CadFact_SpreadPeriodDateEdition(&contract, edited, Text(date),
                                                              velmosav::to_variant_bool(start), &result));
  return result;
}

void ScheduleTest::expect_spread_fault(int fault, Type_Contrat& contract, short edited, const wchar_t* date,
                                       bool start) {
  const auto before = snapshot(contract);
  short result = 0;
  EXPECT_TRUE(is_contract_fault(contracts_->CadFact_SpreadPeriodDateEdition(
                                    &contract, edited, Text(date), velmosav::to_variant_bool(start), &result),
                                fault));
  EXPECT_EQ(kNone, differences(*before, contract));
}

void ScheduleTest::expect_spread_nothing(short result, Type_Contrat& contract, short edited,
                                         const wchar_t* date, bool start) {
  const auto before = snapshot(contract);
  EXPECT_EQ(result, spread(contract, edited, date, start));
  EXPECT_EQ(kNone, differences(*before, contract));
}

HRESULT ScheduleTest::add(Type_Contrat& contract, short* index, short& result, const wchar_t* end) {
  return contracts_->AjouterCadFactCtt(&contract, Text(L"15/06/2025"), Text(L"01/06/2025"), Text(end), index,
                                       &result);
}

std::wstring ScheduleTest::end_of(const wchar_t* start, long duration, const wchar_t* unit) {
  Text end;
  EXPECT_EQ(S_OK, contracts_->SetDateByDuree(Text(start), duration, Text(unit), &end));
  return end.str();
}

}  // namespace host
