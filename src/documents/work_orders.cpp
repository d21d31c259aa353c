#include "documents/work_orders.h"

#include <cmath>
#include <utility>

#include "automation/date_text.h"
#include "automation/text.h"
#include "constants/constant_sets.h"
#include "documents/coverage.h"
#include "records/array_view.h"
#include "records/record_array.h"

namespace velmosav {
namespace {

/// The cell (0, 0) of a two-dimensional table of texts; fault-free: null when there is none.
const BSTR* first_cell(const SAFEARRAY* table) noexcept {
  if (table->cDims != 2 || !may_hold(table, PlainElement::Text)) return nullptr;
  const SAFEARRAYBOUND& rows = table->rgsabound[1];
  const SAFEARRAYBOUND& columns = table->rgsabound[0];
  const long long row = -static_cast<long long>(rows.lLbound);
  const long long column = -static_cast<long long>(columns.lLbound);
  if (row < 0 || column < 0 || row >= rows.cElements || column >= columns.cElements) return nullptr;
  return static_cast<const BSTR*>(table->pvData) + static_cast<std::size_t>(column) * rows.cElements +
         static_cast<std::size_t>(row);
}

double seconds_in(std::wstring_view unit) {
  struct Unit {
    std::wstring_view code;
    double seconds;
  };
  constexpr Unit kUnits[] = {{L"s", 1},      {L"n", 60},      {L"h", 3600},    {L"j", 86400},
                             {L"w", 604800}, {L"m", 2592000}, {L"y", 31557600}};
  for (const Unit& known : kUnits) {
    if (unit == known.code) return known.seconds;
  }
  return 0;
}

/// A slot's end as seconds on one scale; the text is read to the minute.
double moment(BSTR date, BSTR time) {
  const Bstr text = concat({view(date), L" ", view(time)});
  const Bstr formatted = format_date_text(text.view(), initial<PlanningConstants>.m_PC_FormatTACHE);
  const DATE value = to_date(formatted.view());
  const double whole = std::trunc(value);
  return std::nearbyint((whole + std::fabs(value - whole)) * 86400);
}

/// Each element from 0 on is there: fault 9 for an array that starts later.
void require_element_zero(const SAFEARRAY* array) {
  const auto upper = upper_bound(array);
  if (upper && *upper >= 0 && array->rgsabound[array->cDims - 1].lLbound > 0) {
    raise(Fault::SubscriptOutOfRange);
  }
}

/// What erase_objects would raise.
void require_erasable_objects(SAFEARRAY* objects) {
  require_erasable<IDispatch*>(objects);
  require_element_zero(objects);
}

}  // namespace

short resource_count(const Type_Intervention& intervention) noexcept {
  const short count = count_of(intervention.TabRes, 2);
  if (count != 1) return count;
  const BSTR* cell = first_cell(intervention.TabRes);
  if (!cell) return -1;
  return view(*cell).empty() ? short{0} : count;
}

double total_slot_time(std::wstring_view unit, const Type_LigneRessource& technician) {
  const double seconds = seconds_in(unit);
  if (seconds == 0) return 0;
  const ArrayView<Type_BarTime> slots(technician.TabPlage);
  double total = 0;
  for (long i = 0; i < slots.end(); ++i) {
    const double start = moment(slots[i].DateDeb, slots[i].HeureDebut);
    total = total + (moment(slots[i].DateFin, slots[i].HeureFin) - start) / seconds;
  }
  return total;
}

void erase_objects(SAFEARRAY*& objects) {
  require_erasable_objects(objects);
  erase_plain_array(objects, PlainElement::Object);
}

void clear_lists(Type_Bon& work_order, bool all) {
  // Everything that may fail comes first: a work order is reset as a whole or not at all.
  const ArrayView<Type_LigneRessource> technicians(work_order.TabTech);
  for (long i = 0; i < technicians.end(); ++i) require_erasable<Type_BarTime>(technicians[i].TabPlage);
  require_erasable<Type_LigneRessource>(work_order.TabTech);
  require_erasable_objects(work_order.TabAppareil);
  require_erasable<Type_LigneArticle>(work_order.TabArticle);

  for (long i = 0; i < technicians.end(); ++i) erase<Type_BarTime>(technicians[i].TabPlage);
  erase<Type_LigneRessource>(work_order.TabTech);
  erase_objects(work_order.TabAppareil);
  erase<Type_LigneArticle>(work_order.TabArticle);
  if (!all) return;
  if (IDispatch* object = std::exchange(work_order.oTVADoc, nullptr)) object->Release();
}

void clear_lists(Type_Intervention& intervention) {
  require_erasable_objects(intervention.TabAppareil);
  require_erasable<Type_LigneCouverture>(intervention.Couverture.Liste);
  require_erasable<BSTR>(intervention.TabRes);

  erase_objects(intervention.TabAppareil);
  clear_lines(intervention.Couverture);
  erase_plain_array(intervention.TabRes, PlainElement::Text);
}

}  // namespace velmosav
