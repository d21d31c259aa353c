// Contracts at the published limits.
#include <memory>

#include "contracts/literal_schedule.h"
#include "sites/literal_interventions.h"
#include "support/records.h"
#include "works.h"

namespace bench {
namespace {

using host::element;
using host::Record;

constexpr long kInterventions = 4000;
constexpr long kBillingRows = 2000;
constexpr DATE kFirstDay = 45658;  // 01/01/2025

enum class Year { TwoDigits, FourDigits };

/// With two digits of the year, as the library writes dates, or with four.
std::wstring day_text(long day, Year digits = Year::TwoDigits) {
  SYSTEMTIME parts{};
  VariantTimeToSystemTime(kFirstDay + static_cast<double>(day), &parts);
  wchar_t text[16];
  if (digits == Year::TwoDigits) {
    swprintf(text, 16, L"%02d/%02d/%02d", parts.wDay, parts.wMonth, parts.wYear % 100);
  } else {
    swprintf(text, 16, L"%02d/%02d/%04d", parts.wDay, parts.wMonth, parts.wYear);
  }
  return text;
}

/// Interventions of 40 sites, each with its own label, framework rows among them, and as many scheduled ones.
void add_interventions(Type_Contrat& contract, long count) {
  host::dimension<Type_Intervention>(contract.TabInterv, static_cast<unsigned long>(count));
  host::dimension<Type_CadencierInterv>(contract.TabCadInterv, static_cast<unsigned long>(count));
  for (long i = 0; i < count; ++i) {
    const std::wstring site = L"SITE" + std::to_wstring(i * 40 / count);
    const std::wstring label = L"Visite " + std::to_wstring(i);
    auto& intervention = element<Type_Intervention>(contract.TabInterv, static_cast<unsigned long>(i));
    host::set(intervention.CodeSite, site);
    host::set(intervention.Libelle, label);
    auto& scheduled = element<Type_CadencierInterv>(contract.TabCadInterv, static_cast<unsigned long>(i));
    host::set(scheduled.CodeSite, site);
    host::set(scheduled.Libelle, label);
    scheduled.NumInterv = static_cast<short>(i);
  }
}

/// Billing periods of two days each, one after the other.
void set_period(Type_CadencierFact& row, long index, Year digits) {
  host::set(row.DateDeb, day_text(2 * index, digits));
  host::set(row.DateFin, day_text(2 * index + 1, digits));
}

void add_billing(Type_Contrat& contract, long count, Year digits) {
  host::set(contract.DateDeb, day_text(0, Year::FourDigits));
  host::set(contract.DateFin, day_text(8 * count, Year::FourDigits));
  host::dimension<Type_CadencierFact>(contract.TabCadFact, static_cast<unsigned long>(count));
  for (long i = 0; i < count; ++i) {
    set_period(element<Type_CadencierFact>(contract.TabCadFact, static_cast<unsigned long>(i)), i, digits);
  }
}

class ContractWork {
 public:
  ContractWork(long interventions, long billing, Year digits = Year::TwoDigits)
      : contracts_(host::create<_ContratDoc>(L"ContratDoc")), digits_(digits) {
    add_interventions(**contract_, interventions);
    add_billing(**contract_, billing, digits);
    moved_end_ = day_text(2 * billing);
  }

  [[nodiscard]] Operation labels() const {
    return {[*this] {
      VARIANT_BOOL differ = VARIANT_FALSE;
      must(contracts_->CheckLibInterCtt(*contract_, nullptr, &differ), "CheckLibInterCtt");
      if (!differ) must(E_FAIL, "CheckLibInterCtt");
    }};
  }
  [[nodiscard]] Operation literal_labels() const {
    return {[*this] {
      bool differ = false;
      short later = 0;
      must(-literal::labels_differ(**contract_, differ, later), "labels");
    }};
  }

  [[nodiscard]] Operation modifiable() const {
    return {[*this] {
      VARIANT all = host::missing().detach();
      VARIANT_BOOL answer = VARIANT_FALSE;
      must(contracts_->IsInfosIntervModifiable(*contract_, all, &answer), "IsInfosIntervModifiable");
      if (!answer) must(E_FAIL, "IsInfosIntervModifiable");
    }};
  }
  [[nodiscard]] Operation literal_modifiable() const {
    return {[*this] {
      bool answer = false;
      must(-literal::is_modifiable(**contract_, -1, answer), "modifiable");
    }};
  }

  /// The end of the first row moves by a day, and the next row absorbs it.
  [[nodiscard]] Operation spread_to_next() const { return {spread(day_text(2))}; }
  [[nodiscard]] Operation literal_spread_to_next() const { return {literal_spread(day_text(2))}; }
  /// It moves behind the last row: every row shrinks to a day.
  [[nodiscard]] Operation spread_to_all() const { return {spread(moved_end_), restored()}; }
  [[nodiscard]] Operation literal_spread_to_all() const { return {literal_spread(moved_end_), restored()}; }

 private:
  [[nodiscard]] std::function<void()> spread(const std::wstring& end) const {
    return [*this, date = std::make_shared<host::Text>(end)] {
      short last = 0;
      must(contracts_->CadFact_SpreadPeriodDateEdition(*contract_, 0, *date, VARIANT_FALSE, &last),
           "CadFact_SpreadPeriodDateEdition");
      if (last <= 0) must(E_FAIL, "CadFact_SpreadPeriodDateEdition");
    };
  }
  [[nodiscard]] std::function<void()> literal_spread(const std::wstring& end) const {
    return [*this, end] { literal::spread_period_date(**contract_, 0, end, false); };
  }
  [[nodiscard]] std::function<void()> restored() const {
    return [*this] {
      const auto rows = (*contract_)->TabCadFact->rgsabound[0].cElements;
      for (unsigned long i = 0; i < rows; ++i) {
        set_period(element<Type_CadencierFact>((*contract_)->TabCadFact, i), static_cast<long>(i), digits_);
      }
    };
  }

  host::ComPtr<_ContratDoc> contracts_;
  std::shared_ptr<Record<Type_Contrat>> contract_ = std::make_shared<Record<Type_Contrat>>();
  std::wstring moved_end_;
  Year digits_;
};

}  // namespace

void measure_contracts(Bench& bench) {
  const ContractWork work(kInterventions, kBillingRows);
  if (bench.wants("labels")) bench.compare("labels", work.labels(), work.literal_labels());
  if (bench.wants("modifiable")) bench.compare("modifiable", work.modifiable(), work.literal_modifiable());
  if (bench.wants("spread-dates")) {
    bench.compare("spread-dates", work.spread_to_next(), work.literal_spread_to_next());
  }
  if (bench.wants("spread-all")) {
    bench.compare("spread-all", work.spread_to_all(), work.literal_spread_to_all());
  }
  if (bench.wants("spread-all-rewritten")) {
    const ContractWork other(kInterventions, kBillingRows, Year::FourDigits);
    bench.compare("spread-all-rewritten", other.spread_to_all(), other.literal_spread_to_all());
  }
  bench.grow("labels", "`CheckLibInterCtt`", kInterventions / 16,
             [](long size) { return ContractWork(size, 1).labels(); });
  bench.grow("modifiable", "`IsInfosIntervModifiable` of all", kInterventions / 16,
             [](long size) { return ContractWork(size, 1).modifiable(); });
  bench.grow("spread-all", "`CadFact_SpreadPeriodDateEdition`, all rows move", kBillingRows / 16,
             [](long size) { return ContractWork(1, size).spread_to_all(); });
}

}  // namespace bench
