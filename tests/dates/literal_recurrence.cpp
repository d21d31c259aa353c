#include "dates/literal_recurrence.h"

#include <algorithm>
#include <cmath>
#include <cwchar>
#include <cwctype>

namespace literal {
namespace {

using velmosav::Variant;

/// Thrown by a step that fails.
struct Fault {
  int number;
};

void check(HRESULT code) {
  if (code == DISP_E_OVERFLOW) throw Fault{6};
  if (FAILED(code)) throw Fault{13};
}

std::wstring field(BSTR text) { return {text, text + SysStringLen(text)}; }

std::wstring take(BSTR text) {
  std::wstring result = field(text);
  SysFreeString(text);
  return result;
}

bool is_date(std::wstring text, DATE& date) {
  return SUCCEEDED(VarDateFromStr(text.data(), LOCALE_USER_DEFAULT, 0, &date));
}

DATE to_date(const std::wstring& text) {
  DATE date = 0;
  if (!is_date(text, date)) throw Fault{13};
  return date;
}

std::wstring format(DATE date, std::wstring pattern) {
  VARIANT value;
  value.vt = VT_DATE;
  value.date = date;
  BSTR text = nullptr;
  check(VarFormat(&value, pattern.data(), 0, 0, 0, &text));
  return take(text);
}

/// A text that is no date stays as it is.
std::wstring format(const std::wstring& text, const wchar_t* pattern) {
  DATE date = 0;
  return is_date(text, date) ? format(date, pattern) : text;
}

/// A date as text without a pattern.
std::wstring short_form(DATE date) {
  BSTR text = nullptr;
  check(VarBstrFromDate(date, LOCALE_USER_DEFAULT, 0, &text));
  return take(text);
}

/// A plain value as text.
std::wstring text_of(const Variant& value) {
  VARIANT text;
  VariantInit(&text);
  check(VariantChangeTypeEx(&text, const_cast<VARIANT*>(&value.get()), LOCALE_USER_DEFAULT, 0, VT_BSTR));
  return take(text.bstrVal);
}

double number_of(const Variant& value) {
  VARIANT number;
  VariantInit(&number);
  check(VariantChangeTypeEx(&number, const_cast<VARIANT*>(&value.get()), LOCALE_USER_DEFAULT, 0, VT_R8));
  return number.dblVal;
}

SYSTEMTIME parts_of(DATE date) {
  SYSTEMTIME parts{};
  if (!VariantTimeToSystemTime(date, &parts)) throw Fault{5};
  return parts;
}

/// Whether the calendar has the day: a day too many moves into the next month, or is refused.
bool exists(const SYSTEMTIME& parts) {
  DATE date = 0;
  SYSTEMTIME again;
  return SystemTimeToVariantTime(const_cast<SYSTEMTIME*>(&parts), &date) &&
         VariantTimeToSystemTime(date, &again) && again.wDay == parts.wDay;
}

/// The same day `count` months on, or the last one that its month has.
DATE add_months(DATE date, int count) {
  SYSTEMTIME parts = parts_of(date);
  const int months = parts.wYear * 12 + parts.wMonth - 1 + count;
  parts.wYear = static_cast<WORD>(months / 12);
  parts.wMonth = static_cast<WORD>(months % 12 + 1);
  while (!exists(parts)) {
    if (--parts.wDay < 28) throw Fault{5};
  }
  DATE moved = 0;
  if (!SystemTimeToVariantTime(&parts, &moved)) throw Fault{5};
  return moved;
}

/// Number at the front of a text.
double leading_number(const std::wstring& text) {
  const std::size_t start = std::min(text.find_first_not_of(L' '), text.size());
  std::size_t end = start;
  if (end < text.size() && (text[end] == L'-' || text[end] == L'+')) ++end;
  while (end < text.size() && std::wstring_view(L"0123456789.").find(text[end]) != std::wstring_view::npos)
    ++end;
  return std::wcstod(text.substr(start, end - start).c_str(), nullptr);
}

std::wstring day_key(DATE date) {
  static constexpr const wchar_t* kKeys[] = {L"D", L"L", L"M", L"E", L"J", L"V", L"S"};
  return kKeys[parts_of(date).wDayOfWeek];
}

const wchar_t* month_key(int month) {
  static constexpr const wchar_t* kKeys[] = {L"J", L"F", L"M", L"A", L"I", L"U",
                                             L"L", L"O", L"S", L"C", L"N", L"D"};
  return kKeys[month - 1];
}

std::wstring upper(std::wstring text) {
  for (wchar_t& letter : text) letter = static_cast<wchar_t>(std::towupper(letter));
  return text;
}

std::wstring checked(const std::wstring& date) {
  const std::size_t first = date.find(L'/');
  if (first == std::wstring::npos) return date;
  const std::size_t second = date.find(L'/', first + 1);
  if (second == std::wstring::npos) return date;
  const double day = leading_number(date.substr(0, first));
  const double month = leading_number(date.substr(first + 1, second - first - 1));
  if (month == 2 && day > 28) {
    const std::size_t place = date.find(L"/02/");
    const std::size_t start = place == std::wstring::npos ? 3 : place + 4;
    const Variant year(leading_number(date.substr(std::min(start, date.size()))));
    const bool leap = std::lrint(year.get().dblVal) % 4 == 0;  // rounded, halves to even
    return format((leap ? L"29/02/" : L"28/02/") + text_of(year), L"dd/mm/yy");
  }
  if ((month == 4 || month == 6 || month == 9 || month == 11) && day == 31) return L"30" + date.substr(first);
  return date;
}

bool is_missing(const Variant& value) {
  return value.get().vt == VT_ERROR && value.get().scode == DISP_E_PARAMNOTFOUND;
}

std::wstring last_day(short month, Variant& year) {
  if (is_missing(year)) {
    SYSTEMTIME now;
    GetLocalTime(&now);
    year = Variant(static_cast<short>(now.wYear));
  } else {
    year = Variant(number_of(year));
  }
  std::wstring date = L"01/" + std::to_wstring(month) + L"/" + text_of(year);
  date = format(add_months(to_date(date), 1), L"dd/mm/yy");
  return format(to_date(date) - 1, L"dd/mm/yy");
}

std::wstring neighbour(const std::wstring& date, const Type_Periodicite& rule, bool previous) {
  if (field(rule.Periodicite) != L"M") return date;
  const int step = previous ? -1 : 1;
  if (rule.TousLes != 0) return format(add_months(to_date(date), step * rule.TousLes), L"dd/mm/yy");
  const SYSTEMTIME origin = parts_of(to_date(date));
  const std::wstring months = field(rule.Mois);
  const auto is_selected = [&](int month) { return months.find(month_key(month)) != std::wstring::npos; };
  const int month = origin.wMonth;
  int found = 0;
  if (previous) {
    for (int i = month - 1; i >= 1 && found == 0; --i) found = is_selected(i) ? i : 0;
    for (int i = 12; i >= month && found == 0; --i) found = is_selected(i) ? i : 0;
  } else {
    for (int i = month + 1; i <= 12 && found == 0; ++i) found = is_selected(i) ? i : 0;
    for (int i = 1; i <= month && found == 0; ++i) found = is_selected(i) ? i : 0;
  }
  if (found == 0) return date;
  const int year = found * step > month * step ? origin.wYear : origin.wYear + step;
  const std::wstring moved = std::to_wstring(origin.wDay) + L"/" + (found < 10 ? L"0" : L"") +
                             std::to_wstring(found) + L"/" + std::to_wstring(year);
  return checked(format(moved, L"dd/mm/yyyy"));
}

std::wstring day_of_rule(const Type_Periodicite& rule, Variant& month, Variant& year) {
  SYSTEMTIME now;
  GetLocalTime(&now);
  if (is_missing(month)) month = Variant(static_cast<short>(now.wMonth));
  if (is_missing(year)) year = Variant(static_cast<short>(now.wYear));
  std::wstring date = format(L"01/" + text_of(month) + L"/" + text_of(year), L"dd/mm/yy");
  int step = 1;
  const std::wstring ordinal = upper(field(rule.Le));
  if (ordinal == L"D") date = short_form(to_date(date) + 7);
  if (ordinal == L"T") date = short_form(to_date(date) + 14);
  if (ordinal == L"Q") date = short_form(to_date(date) + 21);
  if (ordinal == L"R") {
    date = last_day(static_cast<short>(number_of(month)), year);
    step = -1;
  }
  for (int walked = 0; day_key(to_date(date)) != upper(field(rule.Jour)); ++walked) {
    if (walked == 7) throw Fault{5};
    date = short_form(to_date(date) + step);
  }
  return date;
}

template <class Method>
Outcome outcome_of(Method&& method) {
  try {
    return {0, method()};
  } catch (const Fault& fault) {
    return {fault.number, {}};
  }
}

}  // namespace

Outcome check_date(const std::wstring& date) {
  return outcome_of([&] { return checked(date); });
}

Outcome last_day_of_month(short month, Variant& year) {
  return outcome_of([&] { return last_day(month, year); });
}

Outcome prev_next_month(const std::wstring& date, const Type_Periodicite& rule, bool previous) {
  return outcome_of([&] { return neighbour(date, rule, previous); });
}

Outcome date_of_day(const Type_Periodicite& rule, Variant& month, Variant& year) {
  return outcome_of([&] { return day_of_rule(rule, month, year); });
}

}  // namespace literal
