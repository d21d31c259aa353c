// Dates of neighbouring periods, and the spreading of an edited date over them.
#include <limits>
#include <vector>

#include "automation/array.h"
#include "automation/date_text.h"
#include "contracts/billing_schedule.h"
#include "dates/duration_units.h"

namespace velmosav {
namespace {

std::wstring_view date_format() { return initial<ApiGeneralConstants>.m_FMT_DATE; }

bool is_earlier(std::wstring_view date, std::wstring_view other) { return days_between(other, date) < 0; }

Bstr capped(const Type_Contrat& contract, Bstr date) {
  const std::wstring_view end = view(contract.DateFin);
  return !is_blank(end) && is_earlier(end, date.view()) ? Bstr(end) : std::move(date);
}

/// Texts computed for fields of the schedule, stored all together once nothing can fail any more.
class PendingDates {
 public:
  /// Returns a view that stays valid while the change is pending.
  std::wstring_view set(BSTR& field, Bstr text) {
    changes_.push_back({&field, std::move(text)});
    return changes_.back().text.view();
  }

  void apply() noexcept {
    for (Change& change : changes_) change.text.swap(*change.field);
  }

 private:
  struct Change {
    BSTR* field;
    Bstr text;
  };
  std::vector<Change> changes_;
};

short spread_forward(const Type_Contrat& contract, short row, std::wstring_view current,
                     PendingDates& dates) {
  const ArrayView<Type_CadencierFact> rows(contract.TabCadFact);
  const short count = count_of(contract.TabCadFact);
  short result = row;
  for (long i = row + 1L; i < count; ++i) {
    Type_CadencierFact& next = rows[i];
    if (next.Transfere) return -1;
    const std::wstring_view start = dates.set(next.DateDeb, capped_period_start_after(contract, current));
    result = static_cast<short>(i);
    if (!is_earlier(view(next.DateFin), start)) break;
    current = dates.set(next.DateFin, Bstr(start));
  }
  return result;
}

short spread_backward(const Type_Contrat& contract, short row, std::wstring_view current,
                      PendingDates& dates) {
  if (row == 0) return -1;
  const ArrayView<Type_CadencierFact> rows(contract.TabCadFact);
  short result = row;
  for (long i = row - 1L; i >= 0; --i) {
    Type_CadencierFact& previous = rows[i];
    if (previous.Transfere) return -1;
    const std::wstring_view end = dates.set(previous.DateFin, capped_period_end_before(contract, current));
    if (is_earlier(end, view(contract.DateDeb))) return -1;
    result = static_cast<short>(i);
    if (!is_earlier(end, view(previous.DateDeb))) break;
    current = dates.set(previous.DateDeb, Bstr(end));
  }
  return result;
}

}  // namespace

Bstr period_end_before(std::wstring_view next_start) {
  return format_date(add_to_date(to_date(next_start), L"d", -1), date_format());
}

Bstr period_start_after(std::wstring_view previous_end) {
  return format_date(add_to_date(to_date(previous_end), L"d", 1), date_format());
}

Bstr capped_period_start_after(const Type_Contrat& contract, std::wstring_view previous_end) {
  return capped(contract, period_start_after(previous_end));
}

Bstr capped_period_end_before(const Type_Contrat& contract, std::wstring_view next_start) {
  return capped(contract, period_end_before(next_start));
}

short spread_edited_date(Type_Contrat& contract, short row, std::wstring_view date, bool start) {
  PendingDates dates;
  const short result =
      start ? spread_backward(contract, row, date, dates) : spread_forward(contract, row, date, dates);
  if (result >= 0) dates.apply();
  return result;
}

Bstr end_of_duration(std::wstring_view start, long duration, std::wstring_view unit) {
  const auto given = parse_date(start);
  const Bstr first = given ? Bstr(start) : format_date(today(), date_format());
  if (duration == 0 || is_blank(unit)) return Bstr(first.view());

  const DATE from = to_date(first.view());
  const std::wstring_view interval = interval_of_unit(unit);
  if (duration == std::numeric_limits<long>::min()) raise(Fault::Overflow);
  const DATE end = unit == initial<GeneralConstants>.m_c_sUnitDur_Jour.view()
                       ? add_to_date(from, interval, duration - 1LL)
                       : add_to_date(add_to_date(from, interval, duration), L"d", -1);
  return format_date(end, date_format());
}

}  // namespace velmosav
