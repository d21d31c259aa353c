// A document that turns out wrong only once it is computed: the field at fault and the reason, in French.
#pragma once

#include <stdexcept>
#include <string>
#include <utility>

namespace facturation {

class Refusal : public std::runtime_error {
 public:
  Refusal(std::string field, const std::string& reason)
      : std::runtime_error(reason), field_(std::move(field)) {}
  [[nodiscard]] const std::string& field() const { return field_; }

 private:
  std::string field_;
};

}  // namespace facturation
