// What a call changes of its arguments.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "invoicing/grid.h"
#include "support/records.h"

namespace host {

/// Compares values with what they were when they were added, at its own end.
class Watch {
 public:
  explicit Watch(std::vector<std::string>& changes) : changes_(&changes) {}
  ~Watch() {
    for (const auto& comparison : comparisons_) comparison(*changes_);
  }
  Watch(Watch&& other) = default;
  Watch(const Watch&) = delete;
  Watch& operator=(const Watch&) = delete;

  template <class T>
  void add(Record<T>& record) {
    add(*record);
  }
  /// A record of the host.
  template <class T>
  requires std::is_class_v<T>
  void add(T& record) {
    auto before = std::make_shared<Record<T>>(snapshot(record));
    comparisons_.push_back([before, &record](std::vector<std::string>& changes) {
      for (auto& difference : differences(**before, record)) changes.push_back(std::move(difference));
    });
  }
  void add(Text& text);
  void add(short& number) { add_number(number); }
  void add(double& number) { add_number(number); }
  void add(Variant& value);
  void add(Grid& grid);
  void add(SAFEARRAY*& array) { add_number(array); }

 private:
  template <class T>
  void add_number(T& number) {
    const std::string name = argument_name();
    comparisons_.push_back([before = number, &number, name](std::vector<std::string>& changes) {
      if (before != number) changes.push_back(name + ": another value");
    });
  }
  [[nodiscard]] std::string argument_name() const {
    return "argument " + std::to_string(comparisons_.size() + 1);
  }

  std::vector<std::string>* changes_;
  std::vector<std::function<void(std::vector<std::string>&)>> comparisons_;
};

}  // namespace host
