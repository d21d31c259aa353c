#include "contracts/contract_fixture.h"

#include <algorithm>
#include <cwchar>

namespace host {
namespace {

template <class T>
void dimension_filled(SAFEARRAY*& field, unsigned long count) {
  dimension<T>(field, count);
  for (unsigned long i = 0; i < count; ++i) fill(element<T>(field, i));
}

template <class Call>
std::wstring text_of(Call&& method) {
  Text result(L"not set");
  EXPECT_EQ(S_OK, method(&result));
  return result.str();
}

void replace_schedule(Type_Contrat& contract, SAFEARRAY* schedule) {
  velmosav::destroy_record_array(contract.TabCadFact, velmosav::layout_of<Type_CadencierFact>());
  contract.TabCadFact = schedule;
}

}  // namespace

Record<Type_Contrat> contract(std::wstring_view start, std::wstring_view end,
                              std::initializer_list<Period> periods) {
  Record<Type_Contrat> result;
  fill(*result);
  set(result->DateDeb, start);
  set(result->DateFin, end);
  dimension_filled<Type_Garantie>(result->TabGarant, 1);
  dimension_filled<Type_Intervention>(result->TabInterv, 2);
  dimension_filled<Type_CadencierInterv>(result->TabCadInterv, 1);
  set(element<Type_CadencierInterv>(result->TabCadInterv, 0).CodeBon, L"");
  dimension_filled<Type_ElemPR>(result->TabElemPR, 1);
  dimension_filled<Type_Technicien>(result->Tech, 2);
  if (periods.size() == 0) return result;

  dimension_filled<Type_CadencierFact>(result->TabCadFact, static_cast<unsigned long>(periods.size()));
  unsigned long index = 0;
  for (const Period& period : periods) {
    Type_CadencierFact& line = row(result, index);
    line.NumEch = static_cast<short>(index++);
    set_period(line, period.start, period.end);
    set(line.codeFact, L"");
    line.Transfere = velmosav::to_variant_bool(period.transferred);
    line.Force = VARIANT_FALSE;
  }
  return result;
}

Record<Type_Contrat> priced_contract(const wchar_t* kind) {
  auto record = contract(L"01/01/2025", L"31/12/2025",
                         {{L"01/01/2025", L"30/06/2025"}, {L"01/07/2025", L"31/12/2025"}});
  set(record->TypeTypTarif, kind);
  record->MontantHT = 90;
  record->MontantTTC = 108;
  row(record, 0).MontantHT = 100.10;
  row(record, 0).MontantTTC = 120.12;
  row(record, 1).MontantHT = 200.20;
  row(record, 1).MontantTTC = 240.24;
  return record;
}

Type_CadencierFact& row(Record<Type_Contrat>& contract, unsigned long index) {
  return element<Type_CadencierFact>(contract->TabCadFact, index);
}

void set_period(Type_CadencierFact& row, std::wstring_view start, std::wstring_view end) {
  set(row.DateDeb, start);
  set(row.DateFin, end);
}

void resize_schedule(Type_Contrat& contract, unsigned long count) {
  SAFEARRAY* schedule = make_array(sizeof(Type_CadencierFact), count);
  const unsigned long old = contract.TabCadFact ? contract.TabCadFact->rgsabound[0].cElements : 0;
  for (unsigned long i = 0; i < std::min(old, count); ++i) {
    element<Type_CadencierFact>(schedule, i) = element<Type_CadencierFact>(contract.TabCadFact, i);
    element<Type_CadencierFact>(contract.TabCadFact, i) = {};
  }
  replace_schedule(contract, schedule);
}

void dimension_from_one(Type_Contrat& contract, unsigned long count) {
  dimension<Type_CadencierFact>(contract.TabCadFact, count, 1);
  for (unsigned long i = 0; i < count; ++i) fill(element<Type_CadencierFact>(contract.TabCadFact, i));
}

void dimension_two_dimensions(Type_Contrat& contract) {
  SAFEARRAY* schedule = nullptr;
  ASSERT_EQ(S_OK, SafeArrayAllocDescriptor(2, &schedule));
  schedule->cbElements = sizeof(Type_CadencierFact);
  schedule->rgsabound[0] = {2, 0};  // the second dimension stands first
  schedule->rgsabound[1] = {3, 0};
  ASSERT_EQ(S_OK, SafeArrayAllocData(schedule));
  replace_schedule(contract, schedule);
}

void dimension_other_elements(Type_Contrat& contract) {
  replace_schedule(contract, make_array(sizeof(Type_CadencierFact) - 4, 2));
}

void expect_same(const Type_Contrat& expected, const Type_Contrat& actual) {
  EXPECT_EQ(std::vector<std::string>(), differences(expected, actual)) << "fields: expected / actual";
}

std::wstring Contracts::end_before(std::wstring_view start) const {
  return text_of(
      [&](BSTR* result) { return object_->CadFactPeriod_GetEndFromNextStart(Text(start), result); });
}

std::wstring Contracts::start_after(std::wstring_view end) const {
  return text_of(
      [&](BSTR* result) { return object_->CadFactPeriod_GetStartFromPreviousEnd(Text(end), result); });
}

std::wstring Contracts::start_after(Record<Type_Contrat>& contract, std::wstring_view end) const {
  return text_of(
      [&](BSTR* result) { return object_->Ctt_SetCadFactStartPeriod(contract, Text(end), result); });
}

std::wstring Contracts::end_before(Record<Type_Contrat>& contract, std::wstring_view start) const {
  return text_of(
      [&](BSTR* result) { return object_->Ctt_SetCadFactEndPeriod(contract, Text(start), result); });
}

short Contracts::spread_end(Record<Type_Contrat>& contract, short row, std::wstring_view date) const {
  short result = -99;
  EXPECT_EQ(S_OK,
            object_->CadFact_SpreadPeriodDateEdition(contract, row, Text(date), VARIANT_FALSE, &result));
  return result;
}

short Contracts::spread_start(Record<Type_Contrat>& contract, short row, std::wstring_view date) const {
  short result = -99;
  EXPECT_EQ(S_OK, object_->CadFact_SpreadPeriodDateEdition(contract, row, Text(date), VARIANT_TRUE, &result));
  return result;
}

short Contracts::add(Record<Type_Contrat>& contract, std::wstring_view invoicing, std::wstring_view start,
                     std::wstring_view end, short* index) const {
  short result = -99;
  EXPECT_EQ(S_OK,
            object_->AjouterCadFactCtt(contract, Text(invoicing), Text(start), Text(end), index, &result));
  return result;
}

std::wstring Contracts::last_end(Record<Type_Contrat>& contract, bool transferred,
                                 std::wstring_view fallback) const {
  return text_of([&](BSTR* result) {
    return object_->GetLastDatePeriode(contract, velmosav::to_variant_bool(transferred), Text(fallback),
                                       result);
  });
}

std::wstring Contracts::end_of(std::wstring_view start, long duration, std::wstring_view unit) const {
  return text_of(
      [&](BSTR* result) { return object_->SetDateByDuree(Text(start), duration, Text(unit), result); });
}

bool Contracts::is_committed(Record<Type_Contrat>& contract, VARIANT* billing, VARIANT* interventions,
                             VARIANT* number) const {
  VARIANT_BOOL result = 99;
  EXPECT_EQ(S_OK, object_->IsEchCttTransferee(contract, billing, interventions, number, &result));
  EXPECT_TRUE(result == VARIANT_TRUE || result == VARIANT_FALSE) << result;
  return result != VARIANT_FALSE;
}

short Contracts::answer(Question question, Record<Type_Contrat>& contract) const {
  short result = -99;
  EXPECT_EQ(S_OK, (object_.get()->*question)(contract, &result));
  return result;
}

int last_two_digit_year() {
  int year = 2000;
  DATE date = 0;
  SYSTEMTIME parts{};
  do {
    ++year;
    Text text(short_date(1, 1, year));
    EXPECT_EQ(S_OK, VarDateFromStr(text, LOCALE_USER_DEFAULT, 0, &date));
    EXPECT_TRUE(VariantTimeToSystemTime(date, &parts));
  } while (parts.wYear == year);
  return year - 1;
}

std::wstring short_date(int day, int month, int year) {
  wchar_t text[16];
  std::swprintf(text, std::size(text), L"%02d/%02d/%02d", day, month, year % 100);
  return text;
}

std::wstring long_date(int day, int month, int year) {
  wchar_t text[16];
  std::swprintf(text, std::size(text), L"%02d/%02d/%04d", day, month, year);
  return text;
}

}  // namespace host
