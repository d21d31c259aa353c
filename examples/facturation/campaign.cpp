#include "campaign.h"

#include <algorithm>
#include <unordered_map>

#include "dates.h"

namespace facturation {
namespace {

constexpr std::size_t kContractsPerBatch = 200;

}  // namespace

Campaign::Campaign(const Input& input, Library& library, VatTable& table, Problems& problems,
                   Progress& progress, InvoiceWriter& writer, DATE day)
    : library_(library), table_(table), problems_(problems), progress_(progress), writer_(writer), day_(day) {
  std::unordered_map<std::string, std::size_t> places;
  const auto customer = [&](const std::string& code) -> Customer& {
    const auto [found, is_new] = places.emplace(code, customers_.size());
    if (is_new) customers_.emplace_back();
    return customers_[found->second];
  };
  for (const ContratInput& contrat : input.contrats) customer(contrat.client).contrats.push_back(&contrat);
  for (const InterventionInput& order : input.interventions)
    customer(order.client).interventions.push_back(&order);
}

void Campaign::run(int copies) {
  for (int copy = 0; copy < copies; ++copy) {
    for (const Customer& customer : customers_) {
      add(customer, copy);
      if (contracts_.size() >= kContractsPerBatch) flush();
    }
  }
  flush();
}

void Campaign::add(const Customer& customer, int copy) {
  for (const ContratInput* source : customer.contrats) {
    ContratInput input = repeated(*source, copy);
    const std::string subject = "contrat " + input.code;
    try {
      contracts_.push_back(build_contract(std::move(input), library_, table_, next_key_));
      if (copy == 0) note(*contracts_.back());
      ++built_;
    } catch (const Refusal& refusal) {
      problems_.add(kContratsFile, subject, refusal.field(), refusal.what());
    } catch (const ComFailure& failure) {
      problems_.add(kContratsFile, subject + " : " + failure.what());
    }
    progress_.advance(1);
  }
  for (const InterventionInput* source : customer.interventions) {
    InterventionInput input = repeated(*source, copy);
    const std::string subject = "intervention " + input.code;
    try {
      orders_.push_back(build_work_order(std::move(input), library_, table_));
      if (copy == 0) note(*orders_.back());
      ++built_;
    } catch (const ComFailure& failure) {
      problems_.add(kInterventionsFile, subject + " : " + failure.what());
    }
    progress_.advance(1);
  }
}

void Campaign::note(const ContractDocument& contract) {
  const std::wstring_view rule =
      contract.record.Periodicite.Libelle ? contract.record.Periodicite.Libelle : L"";
  contract_lines_.push_back({contract.input.code, to_utf8(rule), contract.record.NbEch});
}

void Campaign::note(const WorkOrderDocument& order) {
  for (const TimeSpent& spent : order.time_spent) time_lines_.push_back({order.input.code, spent});
}

std::vector<DueLine> Campaign::due_lines() {
  std::vector<DueLine> lines;
  for (const auto& contract : contracts_) {
    short place = 0;
    for (const Type_CadencierFact& row : elements<Type_CadencierFact>(contract->record.TabCadFact)) {
      const short instalment = place++;
      const std::optional<DATE> due = platform_day(row.DateFact);
      if (row.Transfere || !due || *due > day_) continue;
      lines.push_back({contract.get(), instalment, nullptr, *due, !contract->input.suspendu});
    }
  }
  for (const auto& order : orders_) {
    const std::optional<DATE> done = parse_day(order->input.date);
    if (done && *done <= day_)
      lines.push_back({nullptr, 0, order.get(), *done, order->has_invoiced_articles});
  }
  std::stable_sort(lines.begin(), lines.end(),
                   [](const DueLine& a, const DueLine& b) { return a.date < b.date; });
  return lines;
}

void Campaign::flush() {
  const std::size_t documents = contracts_.size() + orders_.size();
  const std::vector<DueLine> lines = due_lines();
  std::size_t ticked = 0;
  for (const DueLine& line : lines) ticked += line.ticked;
  unticked_ += lines.size() - ticked;

  // Invoicing counts for as many steps as building did, whatever the number of lines due.
  std::size_t lines_done = 0;
  std::size_t steps_done = 0;
  writer_.write(lines, [&](std::size_t count) {
    lines_done += count;
    const std::size_t steps = documents * lines_done / ticked;
    progress_.advance(steps - steps_done);
    steps_done = steps;
  });
  progress_.advance(documents - steps_done);
  contracts_.clear();
  orders_.clear();
}

}  // namespace facturation
