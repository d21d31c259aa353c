// What was refused: one French line per problem, on the error stream.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>

namespace facturation {

class Problems {
 public:
  using Output = std::function<void(const std::string& line)>;

  explicit Problems(Output output) : output_(std::move(output)) {}

  /// `file: message`
  void add(std::string_view file, std::string_view message) {
    ++count_;
    output_(std::string(file) + ": " + std::string(message) + "\n");
  }

  /// `file: subject, champ field : message`
  void add(std::string_view file, std::string_view subject, std::string_view field,
           std::string_view message) {
    add(file, std::string(subject) + (subject.empty() ? "champ " : ", champ ") + std::string(field) + " : " +
                  std::string(message));
  }

  [[nodiscard]] std::size_t count() const { return count_; }

 private:
  Output output_;
  std::size_t count_ = 0;
};

}  // namespace facturation
