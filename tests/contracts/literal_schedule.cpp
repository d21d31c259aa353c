#include "contracts/literal_schedule.h"

#include "support/records.h"

namespace literal {
namespace {

constexpr int kInvalidArgument = 5;
constexpr int kSubscript = 9;
constexpr int kTypeMismatch = 13;
constexpr wchar_t kDateFormat[] = L"dd/mm/yy";

std::wstring field(BSTR text) { return {text, text + SysStringLen(text)}; }
void put(BSTR& place, const std::wstring& text) { host::set(place, text); }

std::wstring trim(const std::wstring& text) {
  const std::size_t first = text.find_first_not_of(L' ');
  if (first == std::wstring::npos) return L"";
  return text.substr(first, text.find_last_not_of(L' ') - first + 1);
}

bool is_date(std::wstring text, DATE& date) {
  return SUCCEEDED(VarDateFromStr(text.data(), LOCALE_USER_DEFAULT, 0, &date));
}

DATE to_date(const std::wstring& text) {
  DATE date = 0;
  if (!is_date(text, date)) throw RunTimeFault{kTypeMismatch};
  return date;
}

std::wstring format(DATE date) {
  VARIANT value;
  value.vt = VT_DATE;
  value.date = date;
  std::wstring pattern = kDateFormat;
  BSTR text = nullptr;
  if (FAILED(VarFormat(&value, pattern.data(), 0, 0, 0, &text))) throw RunTimeFault{kTypeMismatch};
  const std::wstring result = field(text);
  SysFreeString(text);
  return result;
}

/// The time of day is of no matter here and is dropped.
long long whole_days(DATE date) { return static_cast<long long>(date); }

SYSTEMTIME parts_of(DATE date) {
  SYSTEMTIME parts{};
  if (!VariantTimeToSystemTime(date, &parts)) throw RunTimeFault{kInvalidArgument};
  return parts;
}

/// The day after the year 9999, and the first of the year 100.
DATE end_of_calendar() { return 2958466; }
DATE first_of_calendar() { return -657434; }

DATE in_calendar(double days) {
  if (days < first_of_calendar() || days >= end_of_calendar()) throw RunTimeFault{kInvalidArgument};
  return days;
}

int days_in_month(int year, int month) {
  if (month == 2) return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0 ? 29 : 28;
  return month == 4 || month == 6 || month == 9 || month == 11 ? 30 : 31;
}

DATE date_add(const std::wstring& interval, long long count, DATE date) {
  const auto day = static_cast<double>(whole_days(date));
  if (interval == L"d") return in_calendar(day + static_cast<double>(count));
  if (interval == L"ww") return in_calendar(day + 7 * static_cast<double>(count));
  SYSTEMTIME parts = parts_of(day);
  const long long months = parts.wYear * 12LL + parts.wMonth - 1 + (interval == L"m" ? count : 12 * count);
  if (months < 100 * 12 || months >= 10000 * 12) throw RunTimeFault{kInvalidArgument};
  parts.wYear = static_cast<WORD>(months / 12);
  parts.wMonth = static_cast<WORD>(months % 12 + 1);
  const int last = days_in_month(parts.wYear, parts.wMonth);
  if (parts.wDay > last) parts.wDay = static_cast<WORD>(last);
  DATE moved = 0;
  if (!SystemTimeToVariantTime(&parts, &moved)) throw RunTimeFault{kInvalidArgument};
  return moved;
}

long long date_diff(const std::wstring& from, const std::wstring& to) {
  const long long first = whole_days(to_date(from));
  return whole_days(to_date(to)) - first;
}

int upper_bound(const SAFEARRAY* array) {
  return static_cast<int>(array->rgsabound[0].cElements) + array->rgsabound[0].lLbound - 1;
}

int row_count(const Type_Contrat& contract) {
  if (contract.TabCadFact == nullptr) return -1;
  return upper_bound(contract.TabCadFact) + 1;
}

Type_CadencierFact& row(const Type_Contrat& contract, int index) {
  const SAFEARRAY* array = contract.TabCadFact;
  if (array == nullptr || index < array->rgsabound[0].lLbound || index > upper_bound(array)) {
    throw RunTimeFault{kSubscript};
  }
  return static_cast<Type_CadencierFact*>(array->pvData)[index - array->rgsabound[0].lLbound];
}

std::wstring end_from_next_start(const std::wstring& start) {
  return format(date_add(L"d", -1, to_date(start)));
}

std::wstring start_from_previous_end(const std::wstring& end) {
  return format(date_add(L"d", 1, to_date(end)));
}

std::wstring start_period(const Type_Contrat& contract, const std::wstring& end) {
  std::wstring start = start_from_previous_end(end);
  if (!trim(field(contract.DateFin)).empty()) {
    if (date_diff(start, field(contract.DateFin)) < 0) start = field(contract.DateFin);
  }
  return start;
}

std::wstring end_period(const Type_Contrat& contract, const std::wstring& start) {
  std::wstring end = end_from_next_start(start);
  if (!trim(field(contract.DateFin)).empty()) {
    if (date_diff(end, field(contract.DateFin)) < 0) end = field(contract.DateFin);
  }
  return end;
}

/// Steps of the spreading, on the copy.
short spread(Type_Contrat& copy, short edited_row, const std::wstring& date, bool start) {
  int result = edited_row;
  std::wstring current = date;
  if (!start) {
    for (int i = edited_row + 1; i <= row_count(copy) - 1; ++i) {
      if (row(copy, i).Transfere) return -1;
      put(row(copy, i).DateDeb, start_period(copy, current));
      result = i;
      if (date_diff(field(row(copy, i).DateDeb), field(row(copy, i).DateFin)) >= 0) break;
      put(row(copy, i).DateFin, field(row(copy, i).DateDeb));
      current = field(row(copy, i).DateFin);
    }
  } else {
    if (edited_row == 0) return -1;
    for (int i = edited_row - 1; i >= 0; --i) {
      if (row(copy, i).Transfere) return -1;
      put(row(copy, i).DateFin, end_period(copy, current));
      if (date_diff(field(copy.DateDeb), field(row(copy, i).DateFin)) < 0) return -1;
      result = i;
      if (date_diff(field(row(copy, i).DateDeb), field(row(copy, i).DateFin)) >= 0) break;
      put(row(copy, i).DateDeb, field(row(copy, i).DateFin));
      current = field(row(copy, i).DateDeb);
    }
  }
  return static_cast<short>(result);
}

void redim_preserve(Type_Contrat& contract, int upper) {
  SAFEARRAY* array = contract.TabCadFact;
  if (array != nullptr && array->rgsabound[0].lLbound != 0) throw RunTimeFault{kSubscript};
  SAFEARRAY* made = host::make_array(sizeof(Type_CadencierFact), static_cast<unsigned long>(upper) + 1);
  for (int i = 0; i <= upper && i <= row_count(contract) - 1; ++i) {
    host::element<Type_CadencierFact>(made, static_cast<unsigned long>(i)) = row(contract, i);
    row(contract, i) = Type_CadencierFact{};
  }
  velmosav::destroy_record_array(array, velmosav::layout_of<Type_CadencierFact>());
  contract.TabCadFact = made;
}

}  // namespace

short spread_period_date(Type_Contrat& contract, short edited_row, const std::wstring& date, bool start) {
  auto copy = host::snapshot(contract);
  const short result = spread(*copy, edited_row, date, start);
  if (result >= 0) std::swap(*copy, contract);
  return result;
}

short add_row(Type_Contrat& contract, const std::wstring& invoicing_date, const std::wstring& start,
              const std::wstring& end, short& index) {
  if (index == -1) index = static_cast<short>(row_count(contract));
  if (index < 0) return -1;
  redim_preserve(contract, index);

  Type_CadencierFact& line = row(contract, index);
  put(line.CodeContrat, field(contract.Code));
  line.NumEch = index;
  if (index != 0) {
    put(line.DateDeb, start);
    put(line.Libelle, std::to_wstring(index + 1) + L"ème");
  } else {
    put(line.DateDeb, field(contract.DateDeb));
    put(line.Libelle, L"1ère");
  }
  put(line.Libelle, field(line.Libelle) + L" échéance de facturation");
  if (date_diff(end, field(contract.DateFin)) < 0) {
    put(line.DateFin, field(contract.DateFin));
  } else {
    put(line.DateFin, end);
  }
  put(line.DateFact, invoicing_date);
  put(line.Vendeur, field(contract.Vendeur));
  put(line.TypeTypTarif, field(contract.TypeTypTarif));
  line.CodeTva = contract.CodeTva;
  velmosav::clear(line.RepartTva);
  host::deep_copy(velmosav::layout_of<Type_RepartTVA>(), &contract.RepartTva, &line.RepartTva);
  line.MontantHTPrev = 0;
  line.MontantTTCPrev = 0;
  line.MontantHT = 0;
  line.MontantTTC = 0;
  put(line.codeFact, L"");
  line.Transfere = VARIANT_FALSE;
  line.Force = VARIANT_FALSE;
  line.ForceTVA = VARIANT_FALSE;
  line.NumAuto = -1;
  return index;
}

std::wstring last_period_date(const Type_Contrat& contract, bool transferred, const std::wstring& fallback) {
  std::wstring result = fallback;
  if (trim(fallback).empty()) result = field(contract.DateDeb);
  for (int i = row_count(contract) - 1; i >= 0; --i) {
    if (!transferred || row(contract, i).Transfere) {
      result = field(row(contract, i).DateFin);
      break;
    }
  }
  return result;
}

std::wstring date_by_duration(std::wstring start, long duration, const std::wstring& unit) {
  DATE date = 0;
  if (!is_date(start, date)) {
    SYSTEMTIME now;
    GetLocalTime(&now);
    SystemTimeToVariantTime(&now, &date);
    start = format(date);
  }
  if (duration == 0 || trim(unit).empty()) return start;
  std::wstring interval = L"d";
  if (unit == L"S") interval = L"ww";
  if (unit == L"M") interval = L"m";
  if (unit == L"A") interval = L"yyyy";
  if (unit == L"J") return format(date_add(interval, static_cast<long long>(duration) - 1, to_date(start)));
  return format(date_add(L"d", -1, date_add(interval, duration, to_date(start))));
}

}  // namespace literal
