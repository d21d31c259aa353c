// The invoices of the lines that fall due: grouping, XML text, files.
#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "grid.h"
#include "invoice_files.h"
#include "preview.h"

namespace facturation {

struct InvoiceSummary {
  std::string code;
  std::string client;
  int lines = 0;
  Totals totals;
};

class InvoiceWriter {
 public:
  /// `preview`: writes each invoice as a page too; may be null.
  InvoiceWriter(Library& library, VatTable& table, Problems& problems, std::filesystem::path folder,
                std::string date, const Preview* preview);

  /// Makes the invoices of the ticked lines and writes their files; `advance` is told how many lines were
  /// done.
  void write(const std::vector<DueLine>& lines, const std::function<void(std::size_t)>& advance);

  [[nodiscard]] const std::vector<InvoiceSummary>& invoices() const { return invoices_; }

 private:
  InvoiceSummary make(const std::string& code, const std::vector<const DueLine*>& documents);
  Text start(const DueLine& first, const std::string& code);

  Library& library_;
  VatTable& table_;
  Problems& problems_;
  std::filesystem::path folder_;
  std::string date_;
  const Preview* preview_;
  InvoiceFiles files_;
  int last_number_ = 0;
  std::vector<InvoiceSummary> invoices_;
};

}  // namespace facturation
