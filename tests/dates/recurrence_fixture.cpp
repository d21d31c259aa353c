#include "dates/recurrence_fixture.h"

namespace host {

Record<Type_Periodicite> rule(const RuleFields& fields) {
  Record<Type_Periodicite> record;
  record->VersionType = 1;
  set(record->Periodicite, fields.kind);
  record->TousLes = fields.every;
  record->Chaque = fields.day;
  set(record->Le, fields.ordinal);
  set(record->Jour, fields.weekdays);
  set(record->Mois, fields.months);
  return record;
}

std::wstring Recurrence::names(const wchar_t* keys, const wchar_t* list) const {
  Text chosen(keys);
  Text result(L"not set");
  EXPECT_EQ(S_OK, object_->GetListeFormat(chosen.in_out(), Text(list), nullptr, &result));
  return result.str();
}

std::wstring Recurrence::weekday_names(const wchar_t* keys) const {
  Text list;
  EXPECT_EQ(S_OK, object_->get_c_sWeekDayfmt(&list));
  return names(keys, list.str().c_str());
}

std::wstring Recurrence::checked(const wchar_t* date) const {
  Text result(L"not set");
  EXPECT_EQ(S_OK, object_->CheckDate(Text(date), &result)) << utf8(date);
  return result.str();
}

std::wstring Recurrence::label(const RuleFields& fields) const {
  auto record = rule(fields);
  Text result(L"not set");
  EXPECT_EQ(S_OK, object_->GetLibPeriodicite(record, &result));
  return result.str();
}

std::wstring Recurrence::next(const wchar_t* date, const RuleFields& fields) const {
  return neighbour(date, fields, false);
}

std::wstring Recurrence::previous(const wchar_t* date, const RuleFields& fields) const {
  return neighbour(date, fields, true);
}

std::wstring Recurrence::neighbour(const wchar_t* date, const RuleFields& fields, bool back) const {
  auto record = rule(fields);
  Text origin(date);
  VARIANT_BOOL previous = back ? VARIANT_TRUE : VARIANT_FALSE;
  Text result(L"not set");
  EXPECT_EQ(S_OK, object_->GetPrevNextMonth(origin.in_out(), record, &previous, &result)) << utf8(date);
  return result.str();
}

std::wstring Recurrence::day_in(short month, short year, const RuleFields& fields) const {
  auto record = rule(fields);
  Variant month_variable(month);
  Variant year_variable(year);
  Text result(L"not set");
  EXPECT_EQ(S_OK, object_->GetDateOfDay(record, &month_variable.get(), &year_variable.get(), &result));
  return result.str();
}

std::wstring Recurrence::last_day(short month, short year) const {
  Variant year_variable(year);
  Text result(L"not set");
  EXPECT_EQ(S_OK, object_->LastDayOfMonth(&month, &year_variable.get(), &result)) << month << "/" << year;
  return result.str();
}

SYSTEMTIME local_today() {
  SYSTEMTIME now;
  GetLocalTime(&now);
  return now;
}

std::wstring two_digits(int number) {
  return {static_cast<wchar_t>(L'0' + number / 10 % 10), static_cast<wchar_t>(L'0' + number % 10)};
}

}  // namespace host
