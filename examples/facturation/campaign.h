// A run over all the documents, in batches of customers: a schedule is large, and memory is 32-bit.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "invoices.h"
#include "progress.h"

namespace facturation {

/// A contract as the summary shows it.
struct ContractLine {
  std::string code;
  std::string rule;  // empty for a single instalment
  short instalments;
};

/// Time that a technician spent on an intervention.
struct TimeLine {
  std::string intervention;
  TimeSpent spent;
};

class Campaign {
 public:
  Campaign(const Input& input, Library& library, VatTable& table, Problems& problems, Progress& progress,
           InvoiceWriter& writer, DATE day);

  void run(int copies);

  /// The contracts built, with their rules, and the time spent on interventions; of the first copy only.
  [[nodiscard]] const std::vector<ContractLine>& contract_lines() const { return contract_lines_; }
  [[nodiscard]] const std::vector<TimeLine>& time_lines() const { return time_lines_; }

  [[nodiscard]] std::size_t built() const { return built_; }
  [[nodiscard]] std::size_t unticked() const { return unticked_; }

 private:
  struct Customer {
    std::vector<const ContratInput*> contrats;
    std::vector<const InterventionInput*> interventions;
  };

  void add(const Customer& customer, int copy);
  void note(const ContractDocument& contract);
  void note(const WorkOrderDocument& order);
  void flush();
  std::vector<DueLine> due_lines();

  Library& library_;
  VatTable& table_;
  Problems& problems_;
  Progress& progress_;
  InvoiceWriter& writer_;
  DATE day_;
  std::vector<Customer> customers_;
  std::vector<std::unique_ptr<ContractDocument>> contracts_;
  std::vector<std::unique_ptr<WorkOrderDocument>> orders_;
  std::vector<ContractLine> contract_lines_;
  std::vector<TimeLine> time_lines_;
  long next_key_ = 1;
  std::size_t built_ = 0;
  std::size_t unticked_ = 0;
};

}  // namespace facturation
