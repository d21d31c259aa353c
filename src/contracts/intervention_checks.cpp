// Checks of a contract's interventions: dates, labels, what may still be changed, notice periods.
#include <string>
#include <unordered_map>
#include <unordered_set>

#include "automation/date_text.h"
#include "automation/text.h"
#include "contracts/contract_interventions.h"
#include "dates/calendar.h"
#include "dates/duration_units.h"
#include "records/array_view.h"

namespace velmosav {
namespace {

bool is_inside(const Type_Contrat& contract, BSTR text) {
  const auto date = parse_date(view(text));
  return date && days_between(to_date(view(contract.DateDeb)), *date) >= 0 &&
         days_between(*date, to_date(view(contract.DateFin))) >= 0;
}

bool correct(const Type_Contrat& contract, BSTR& date, BSTR bound) {
  if (is_inside(contract, date)) return false;
  assign(date, view(bound));
  return true;
}

/// Site and label of an intervention as they are compared: without outer blanks, in upper case.
std::wstring label_key(const Type_Intervention& intervention) {
  const Bstr site = upper(trim(view(intervention.CodeSite)));
  const Bstr label = upper(trim(view(intervention.Libelle)));
  // The length of the site, in two characters, keeps the two apart.
  const std::size_t length = site.view().size();
  std::wstring key{static_cast<wchar_t>(length & 0xFFFF), static_cast<wchar_t>(length >> 16)};
  return key.append(site.view()).append(label.view());
}

/// The intervention numbers that a work order was issued for.
std::unordered_set<long> committed_interventions(const Type_Contrat& contract) {
  const ArrayView<Type_CadencierInterv> rows(contract.TabCadInterv);
  const short count = scheduled_intervention_count(contract);
  std::unordered_set<long> numbers;
  for (long i = 0; i < count; ++i) {
    if (!is_blank(view(rows[i].CodeBon))) numbers.insert(rows[i].NumInterv);
  }
  return numbers;
}

bool is_locked(const Type_Intervention& intervention, bool committed) {
  const bool consumed = intervention.NbConsInt >= 1 || intervention.DurConsInt > 0;
  return intervention.TypeCadre ? consumed : committed;
}

/// The contract's start plus a duration, through its text as the algorithm has it.
DATE start_plus(const Type_Contrat& contract, short duration, BSTR unit) {
  const DATE date = add_to_date(to_date(view(contract.DateDeb)), interval_of_unit(view(unit)), duration);
  return to_date(short_date_text(date).view());
}

}  // namespace

bool correct_intervention_dates(const Type_Contrat& contract, short intervention) {
  Type_Intervention& row = ArrayView<Type_Intervention>(contract.TabInterv)[intervention];
  const bool first = correct(contract, row.DatePrem, contract.DateDeb);
  const bool last = correct(contract, row.DateFin, contract.DateFin);
  return first || last;
}

std::optional<long> clashing_label(const Type_Contrat& contract) {
  struct Seen {
    long first;
    long second;  // -1 while the label stands once
  };
  const ArrayView<Type_Intervention> interventions(contract.TabInterv);
  std::unordered_map<std::wstring, Seen> labels;
  Seen earliest{interventions.end(), -1};
  for (long i = 0; i < interventions.end(); ++i) {
    if (is_blank(view(interventions[i].Libelle))) continue;
    const auto [place, added] = labels.try_emplace(label_key(interventions[i]), Seen{i, -1});
    Seen& seen = place->second;
    if (added || seen.second != -1) continue;
    seen.second = i;
    if (seen.first < earliest.first) earliest = seen;
  }
  return earliest.second == -1 ? std::nullopt : std::optional(earliest.second);
}

bool is_modifiable(const Type_Contrat& contract, long intervention) {
  const ArrayView<Type_Intervention> interventions(contract.TabInterv);
  if (intervention == -1 && interventions.end() <= 0) return true;
  const auto committed = committed_interventions(contract);
  if (intervention != -1) return !is_locked(interventions[intervention], committed.contains(intervention));
  for (long i = 0; i < interventions.end(); ++i) {
    if (is_locked(interventions[i], committed.contains(i))) return false;
  }
  return true;
}

bool notice_fits(const Type_Contrat& contract, bool letter) {
  const DATE end = start_plus(contract, contract.Duree, contract.UnitDuree);
  if (letter && !contract.Preavis.Courrier) return true;
  const Type_PreavisCourrier& notice = letter ? contract.Preavis : contract.PreavisD;
  return days_between(start_plus(contract, notice.Duree, notice.Unite), end) >= 0;
}

}  // namespace velmosav
