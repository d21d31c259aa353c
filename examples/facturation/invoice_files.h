// The invoice files, written beside the making of the next invoices.
#pragma once

#include <condition_variable>
#include <exception>
#include <filesystem>
#include <mutex>
#include <queue>
#include <string>
#include <thread>

#include "com_support.h"

namespace facturation {

class InvoiceFiles {
 public:
  explicit InvoiceFiles(std::filesystem::path folder);
  /// Writes what was given before it ends; a failure that nobody asked for is lost.
  ~InvoiceFiles();
  InvoiceFiles(const InvoiceFiles&) = delete;
  InvoiceFiles& operator=(const InvoiceFiles&) = delete;

  /// Takes an invoice over. Throws the failure of an earlier one.
  void add(const std::string& code, Text xml);
  /// Returns when every file is written; throws the first failure.
  void finish();

 private:
  struct Invoice {
    std::string code;
    Text xml;
  };

  void work();
  void write(const Invoice& invoice) const;
  void throw_failure();

  std::filesystem::path folder_;
  std::mutex mutex_;
  std::condition_variable changed_;
  std::queue<Invoice> waiting_;
  bool busy_ = false;
  bool closed_ = false;
  std::exception_ptr failure_;
  std::thread thread_;
};

}  // namespace facturation
