// A run over all the documents, in batches of customers: a schedule is large, and memory is 32-bit.
#pragma once

#include <memory>
#include <vector>

#include "invoices.h"
#include "progress.h"

namespace facturation {

class Campaign {
 public:
  Campaign(const Input& input, Library& library, VatTable& table, Problems& problems, Progress& progress,
           InvoiceWriter& writer, DATE day);

  void run(int copies);

  [[nodiscard]] std::size_t built() const { return built_; }
  [[nodiscard]] std::size_t unticked() const { return unticked_; }

 private:
  struct Customer {
    std::vector<const ContratInput*> contrats;
    std::vector<const InterventionInput*> interventions;
  };

  void add(const Customer& customer, int copy);
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
  long next_key_ = 1;
  std::size_t built_ = 0;
  std::size_t unticked_ = 0;
};

}  // namespace facturation
