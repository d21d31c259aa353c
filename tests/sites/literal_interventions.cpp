#include "sites/literal_interventions.h"

#include <oleauto.h>

#include "support/literal_text.h"

namespace literal {
namespace {

constexpr Outcome kSuccess = 0;
constexpr Outcome kSubscript = 9;
constexpr Outcome kType = 13;

/// Thrown by a step, turned into an outcome at the end.
struct Stop {
  Outcome outcome;
};

template <class Steps>
Outcome outcome_of(Steps steps) {
  try {
    steps();
    return kSuccess;
  } catch (const Stop& stop) {
    return stop.outcome;
  }
}

/// Upper bound + 1, -1 when never dimensioned.
short count_of(SAFEARRAY* rows) {
  long last = 0;
  if (!rows || FAILED(SafeArrayGetUBound(rows, 1, &last))) return -1;
  return static_cast<short>(last + 1);
}

template <class T>
const T& row(SAFEARRAY* rows, long index) {
  void* place = nullptr;
  if (!rows || FAILED(SafeArrayPtrOfIndex(rows, &index, &place))) throw Stop{kSubscript};
  return *static_cast<T*>(place);
}
const Type_Intervention& intervention(const Type_Contrat& contract, long index) {
  return row<Type_Intervention>(contract.TabInterv, index);
}

std::wstring text(BSTR field) { return field ? std::wstring(field, SysStringLen(field)) : std::wstring(); }

std::wstring upper(std::wstring value) {
  if (!value.empty()) CharUpperBuffW(value.data(), static_cast<DWORD>(value.size()));
  return value;
}

std::wstring site(const Type_Contrat& contract, long index) {
  return trim(text(intervention(contract, index).CodeSite));
}

short count_filled_rows(const Type_Contrat& contract) {
  const short rows = count_of(contract.TabCadInterv);
  short count = rows;
  for (short i = 0; i < rows; ++i) {
    const auto& scheduled = row<Type_CadencierInterv>(contract.TabCadInterv, i);
    if (trim(text(scheduled.CodeSite)).empty() && trim(text(scheduled.Libelle)).empty()) --count;
  }
  return count;
}

short group_start(const Type_Contrat& contract, short index) {
  const std::wstring code = text(intervention(contract, index).CodeSite);
  while (index != 0) {
    if (text(intervention(contract, index - 1).CodeSite) != code) break;
    --index;
  }
  return index;
}

short find_following(const Type_Contrat& contract, short index) {
  short i = index;
  while (true) {
    if (i == count_of(contract.TabInterv) - 1) break;
    if (site(contract, i) != site(contract, index)) break;
    ++i;
  }
  return group_start(contract, i);
}

short find_previous(const Type_Contrat& contract, short index) {
  for (short i = static_cast<short>(index - 1); i >= 0; --i) {
    if (site(contract, i) != site(contract, index)) return group_start(contract, i);
  }
  return -1;
}

bool same_label(const Type_Contrat& contract, short i, short j) {
  const std::wstring label = trim(text(intervention(contract, j).Libelle));
  return !label.empty() && upper(site(contract, i)) == upper(site(contract, j)) &&
         upper(trim(text(intervention(contract, i).Libelle))) == upper(label);
}

bool committed(const Type_Contrat& contract, bool check_billing, bool check_interventions, short number) {
  if (check_billing) {
    const short rows = count_of(contract.TabCadFact);
    for (short i = 0; i < rows; ++i) {
      const auto& billed = row<Type_CadencierFact>(contract.TabCadFact, i);
      if (!trim(text(billed.codeFact)).empty() || billed.Transfere) return true;
    }
  }
  if (!check_interventions) return false;
  const short rows = count_filled_rows(contract);
  for (short i = 0; i < rows; ++i) {
    const auto& scheduled = row<Type_CadencierInterv>(contract.TabCadInterv, i);
    if (!trim(text(scheduled.CodeBon)).empty() && (number == -1 || number == scheduled.NumInterv))
      return true;
  }
  return false;
}

bool locked(const Type_Contrat& contract, short index) {
  const bool transferred = committed(contract, false, true, index);
  const Type_Intervention& tested = intervention(contract, index);
  const bool consumed = tested.NbConsInt >= 1 || tested.DurConsInt > 0;
  return (tested.TypeCadre && consumed) || (!tested.TypeCadre && transferred);
}

DATE date_of(const std::wstring& value) {
  DATE date = 0;
  std::wstring copy = value;
  if (FAILED(VarDateFromStr(copy.data(), LOCALE_USER_DEFAULT, 0, &date))) throw Stop{kType};
  return date;
}

int days_in_month(int year, int month) {
  SYSTEMTIME next{};
  next.wYear = static_cast<WORD>(month == 12 ? year + 1 : year);
  next.wMonth = static_cast<WORD>(month == 12 ? 1 : month + 1);
  next.wDay = 1;
  DATE date = 0;
  SystemTimeToVariantTime(&next, &date);
  SYSTEMTIME last{};
  VariantTimeToSystemTime(date - 1, &last);
  return last.wDay;
}

DATE add_months(DATE date, int months) {
  SYSTEMTIME parts{};
  VariantTimeToSystemTime(date, &parts);
  const int total = parts.wYear * 12 + parts.wMonth - 1 + months;
  parts.wYear = static_cast<WORD>(total / 12);
  parts.wMonth = static_cast<WORD>(total % 12 + 1);
  const int last = days_in_month(parts.wYear, parts.wMonth);
  if (parts.wDay > last) parts.wDay = static_cast<WORD>(last);
  DATE moved = 0;
  SystemTimeToVariantTime(&parts, &moved);
  return moved;
}

/// The date that lies some units later, as text in the default form.
std::wstring later(const std::wstring& start, short number, const std::wstring& unit) {
  DATE date = date_of(start);
  if (unit == L"A") {
    date = add_months(date, 12 * number);
  } else if (unit == L"M") {
    date = add_months(date, number);
  } else {
    date += unit == L"S" ? 7 * number : number;
  }
  BSTR written = nullptr;
  VarBstrFromDate(date, LOCALE_USER_DEFAULT, 0, &written);
  std::wstring result = text(written);
  SysFreeString(written);
  return result;
}

bool notice_within(const Type_Contrat& contract, bool letter) {
  const std::wstring end = later(text(contract.DateDeb), contract.Duree, text(contract.UnitDuree));
  if (letter && !contract.Preavis.Courrier) return true;
  const Type_PreavisCourrier& settings = letter ? contract.Preavis : contract.PreavisD;
  const std::wstring notice = later(text(contract.DateDeb), settings.Duree, text(settings.Unite));
  return static_cast<long>(date_of(end)) - static_cast<long>(date_of(notice)) >= 0;
}

}  // namespace

Outcome scheduled_count(const Type_Contrat& contract, short& count) {
  return outcome_of([&] { count = count_filled_rows(contract); });
}

Outcome site_number(const Type_Contrat& contract, short index, short& number) {
  return outcome_of([&] {
    short found = 1;
    std::wstring previous = site(contract, 0);
    for (short i = 0; i <= count_of(contract.TabInterv) - 1; ++i) {
      if (site(contract, i) != previous) ++found;
      if (site(contract, i) == site(contract, index)) break;
      previous = site(contract, i);
    }
    number = found;
  });
}

Outcome first_of_group(const Type_Contrat& contract, short group, short& first) {
  return outcome_of([&] {
    short i = 0;
    short found = 0;
    for (int k = 1; k <= group; ++k) {
      found = i;
      const std::wstring code = site(contract, i);
      while (i <= count_of(contract.TabInterv) - 1 && site(contract, i) == code) ++i;
    }
    first = found;
  });
}

Outcome first_of_site(const Type_Contrat& contract, short index, bool following, bool& previous,
                      short& first) {
  return outcome_of([&] {
    if (index < 0) {
      first = 0;
      return;
    }
    if (following && previous) previous = false;
    if (previous && index == 0) {
      first = 0;
    } else if (following) {
      first = find_following(contract, index);
    } else if (previous) {
      first = find_previous(contract, index);
    } else {
      first = group_start(contract, index);
    }
  });
}

Outcome labels_differ(const Type_Contrat& contract, bool& differ, short& later) {
  return outcome_of([&] {
    differ = true;
    for (short i = 0; i <= count_of(contract.TabInterv) - 1; ++i) {
      for (short j = static_cast<short>(i + 1); j <= count_of(contract.TabInterv) - 1; ++j) {
        if (!same_label(contract, i, j)) continue;
        differ = false;
        later = j;
        return;
      }
    }
  });
}

Outcome site_list(const Type_Contrat& contract, std::wstring& list) {
  return outcome_of([&] {
    long last = 0;
    if (!contract.TabInterv || FAILED(SafeArrayGetUBound(contract.TabInterv, 1, &last)))
      throw Stop{kSubscript};
    std::wstring joined;
    for (long i = 0; i <= last; ++i) {
      const std::wstring code = text(intervention(contract, i).CodeSite);
      if (joined.empty()) {
        joined = code;
      } else if (joined.find(code) == std::wstring::npos) {
        joined = joined + L" , " + code;
      }
    }
    list = trim(joined);
  });
}

Outcome is_committed(const Type_Contrat& contract, bool check_billing, bool check_interventions, short number,
                     bool& answer) {
  return outcome_of([&] { answer = committed(contract, check_billing, check_interventions, number); });
}

Outcome is_modifiable(const Type_Contrat& contract, short number, bool& modifiable) {
  return outcome_of([&] {
    bool result = true;
    if (number == -1) {
      for (short i = 0; i <= count_of(contract.TabInterv) - 1; ++i) {
        result = result && !locked(contract, i);
        if (!result) break;
      }
    } else {
      result = !locked(contract, number);
    }
    modifiable = result;
  });
}

Outcome notice_fits(const Type_Contrat& contract, bool letter, bool& fits) {
  return outcome_of([&] { fits = notice_within(contract, letter); });
}

}  // namespace literal
