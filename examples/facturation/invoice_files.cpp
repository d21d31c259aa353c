#include "invoice_files.h"

#include <fstream>
#include <stdexcept>
#include <utility>

namespace facturation {
namespace {

/// Invoices that may wait: memory is 32-bit, and a slow disk must not fill it.
constexpr std::size_t kMostWaiting = 32;

}  // namespace

InvoiceFiles::InvoiceFiles(std::filesystem::path folder)
    : folder_(std::move(folder)), thread_([this] { work(); }) {}

InvoiceFiles::~InvoiceFiles() {
  {
    const std::lock_guard lock(mutex_);
    closed_ = true;
  }
  changed_.notify_all();
  thread_.join();
}

void InvoiceFiles::add(const std::string& code, Text xml) {
  std::unique_lock lock(mutex_);
  changed_.wait(lock, [this] { return waiting_.size() < kMostWaiting || failure_; });
  throw_failure();
  waiting_.push({code, std::move(xml)});
  changed_.notify_all();
}

void InvoiceFiles::finish() {
  std::unique_lock lock(mutex_);
  changed_.wait(lock, [this] { return (waiting_.empty() && !busy_) || failure_; });
  throw_failure();
}

void InvoiceFiles::throw_failure() {
  if (failure_) std::rethrow_exception(std::exchange(failure_, nullptr));
}

void InvoiceFiles::work() {
  std::unique_lock lock(mutex_);
  for (;;) {
    changed_.wait(lock, [this] { return !waiting_.empty() || closed_; });
    if (waiting_.empty()) return;
    const Invoice invoice = std::move(waiting_.front());
    waiting_.pop();
    busy_ = true;
    lock.unlock();
    std::exception_ptr failure;
    try {
      write(invoice);
    } catch (...) {
      failure = std::current_exception();
    }
    lock.lock();
    busy_ = false;
    if (!failure_) failure_ = failure;
    changed_.notify_all();
  }
}

void InvoiceFiles::write(const Invoice& invoice) const {
  const std::filesystem::path path = folder_ / (invoice.code + ".xml");
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  file << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n" << to_utf8(invoice.xml.view()) << "\r\n";
  file.close();
  if (!file) throw std::runtime_error("impossible d'écrire " + to_utf8(path.wstring()));
}

}  // namespace facturation
