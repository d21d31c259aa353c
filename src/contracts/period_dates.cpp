// Dates of neighbouring periods, and the spreading of an edited date over them.
#include <algorithm>
#include <deque>
#include <iterator>
#include <limits>
#include <optional>
#include <utility>

#include "automation/date_text.h"
#include "contracts/billing_schedule.h"
#include "dates/duration_units.h"
#include "records/array_view.h"

namespace velmosav {
namespace {

std::wstring_view date_format() { return initial<ApiGeneralConstants>.m_FMT_DATE; }

/// The contract's end, which holds the dates of its periods; read at its first use.
class ContractEnd {
 public:
  explicit ContractEnd(const Type_Contrat& contract) : text_(view(contract.DateFin)) {}

  /// The date written, or the contract's end where that is earlier.
  [[nodiscard]] WrittenDate cap(DATE date) {
    WrittenDate written = write_date(date, date_format());
    if (is_blank(text_)) return written;
    if (!read_) date_ = to_date(text_);
    read_ = true;
    return days_between(written.date, date_) < 0 ? WrittenDate{Bstr(text_), date_} : std::move(written);
  }

 private:
  std::wstring_view text_;
  DATE date_ = 0;
  bool read_ = false;
};

/// Texts computed for fields of the schedule, stored all together once nothing can fail any more. A text of
/// the same length is written over the field's own.
class PendingDates {
 public:
  void set(BSTR& field, std::wstring_view text) {
    Change& change = changes_.emplace_back(field);
    if (text.size() == view(field).size() && text.size() <= std::size(change.characters)) {
      change.length = text.size();
      std::copy(text.begin(), text.end(), change.characters);
    } else {
      change.other = Bstr(text);
    }
  }
  void apply() noexcept {
    for (Change& change : changes_) {
      if (change.length != 0) {
        std::copy_n(change.characters, change.length, change.field);
      } else {
        change.other.swap(change.field);
      }
    }
  }

 private:
  struct Change {
    explicit Change(BSTR& changed) : field(changed) {}

    BSTR& field;
    std::size_t length = 0;
    wchar_t characters[10];
    Bstr other;  // of another length
  };
  std::deque<Change> changes_;
};

using Rows = ArrayView<Type_CadencierFact>;

/// Asks for what the walk reads of the rows ahead: each lies on pages of its own, which the processor does
/// not foresee.
void look_ahead(const Rows& rows, long row, long step) {
  constexpr long kRowsAhead = 4;
  const auto exists = [&rows](long index) { return index >= rows.begin() && index < rows.end(); };
  if (const long next = row + kRowsAhead * step; exists(next)) {
    __builtin_prefetch(rows[next].DateDeb);
    __builtin_prefetch(rows[next].DateFin);
  }
  if (const long later = row + 2 * kRowsAhead * step; exists(later)) {
    __builtin_prefetch(&rows[later].DateDeb);
    __builtin_prefetch(&rows[later].Transfere);
  }
}

short spread_forward(const Type_Contrat& contract, short row, std::wstring_view date, PendingDates& dates) {
  const Rows rows(contract.TabCadFact);
  const short count = count_of(contract.TabCadFact);
  ContractEnd contract_end(contract);
  std::optional<DATE> end;  // of the row before
  short result = row;
  for (long i = row + 1L; i < count; ++i) {
    look_ahead(rows, i, 1);
    Type_CadencierFact& next = rows[i];
    if (next.Transfere) return -1;
    if (!end) end = to_date(date);
    WrittenDate start = contract_end.cap(add_to_date(*end, L"d", 1));
    result = static_cast<short>(i);
    const bool over = days_between(start.date, to_date(view(next.DateFin))) < 0;
    if (over) dates.set(next.DateFin, start.text.view());
    dates.set(next.DateDeb, start.text.view());
    if (!over) break;
    end = start.date;
  }
  return result;
}

short spread_backward(const Type_Contrat& contract, short row, std::wstring_view date, PendingDates& dates) {
  if (row == 0) return -1;
  const Rows rows(contract.TabCadFact);
  ContractEnd contract_end(contract);
  std::optional<DATE> start;  // of the row behind
  std::optional<DATE> contract_start;
  short result = row;
  for (long i = row - 1L; i >= 0; --i) {
    look_ahead(rows, i, -1);
    Type_CadencierFact& previous = rows[i];
    if (previous.Transfere) return -1;
    if (!start) start = to_date(date);
    WrittenDate end = contract_end.cap(add_to_date(*start, L"d", -1));
    if (!contract_start) contract_start = to_date(view(contract.DateDeb));
    if (days_between(*contract_start, end.date) < 0) return -1;
    result = static_cast<short>(i);
    const bool not_begun = days_between(to_date(view(previous.DateDeb)), end.date) < 0;
    if (not_begun) dates.set(previous.DateDeb, end.text.view());
    dates.set(previous.DateFin, end.text.view());
    if (!not_begun) break;
    start = end.date;
  }
  return result;
}

Bstr capped_neighbour(const Type_Contrat& contract, std::wstring_view date, int step) {
  if (is_blank(view(contract.DateFin))) return neighbour_date_text(date, step, date_format());
  return ContractEnd(contract).cap(add_to_date(to_date(date), L"d", step)).text;
}

}  // namespace

Bstr period_end_before(std::wstring_view next_start) {
  return neighbour_date_text(next_start, -1, date_format());
}

Bstr period_start_after(std::wstring_view previous_end) {
  return neighbour_date_text(previous_end, 1, date_format());
}

Bstr capped_period_start_after(const Type_Contrat& contract, std::wstring_view previous_end) {
  return capped_neighbour(contract, previous_end, 1);
}

Bstr capped_period_end_before(const Type_Contrat& contract, std::wstring_view next_start) {
  return capped_neighbour(contract, next_start, -1);
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
  const Bstr now = given ? Bstr() : format_date(today(), date_format());
  const std::wstring_view first = given ? start : now.view();
  if (duration == 0 || is_blank(unit)) return Bstr(first);

  const DATE from = given ? *given : to_date(first);
  const std::wstring_view interval = interval_of_unit(unit);
  if (unit != initial<GeneralConstants>.m_c_sUnitDur_Jour.view()) {
    return format_date(add_to_date(add_to_date(from, interval, duration), L"d", -1), date_format());
  }
  if (duration == std::numeric_limits<long>::min()) raise(Fault::Overflow);
  return format_date(add_to_date(from, interval, duration - 1), date_format());
}

}  // namespace velmosav
