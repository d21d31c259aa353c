// Random input whose seed is printed; VELMOSAV_TEST_SEED in the environment repeats a run.
#pragma once

#include <cstdlib>
#include <iostream>
#include <random>
#include <string>
#include <vector>

namespace host {

/// A seed from the environment variable VELMOSAV_TEST_SEED, else a new one; printed.
inline unsigned chosen_seed() {
  const char* wanted = std::getenv("VELMOSAV_TEST_SEED");
  const unsigned seed =
      wanted ? static_cast<unsigned>(std::strtoul(wanted, nullptr, 10)) : std::random_device{}();
  std::cout << "VELMOSAV_TEST_SEED=" << seed << std::endl;
  return seed;
}

class Chance {
 public:
  Chance() : seed_(chosen_seed()), engine_(seed_) {}

  [[nodiscard]] unsigned seed() const { return seed_; }
  int number(int lowest, int highest) { return std::uniform_int_distribution<int>(lowest, highest)(engine_); }
  bool one_in(int count) { return number(1, count) == 1; }
  double real(double lowest, double highest) {
    return std::uniform_real_distribution<double>(lowest, highest)(engine_);
  }
  template <class T>
  const T& of(const std::vector<T>& values) {
    return values[static_cast<std::size_t>(number(0, static_cast<int>(values.size()) - 1))];
  }
  /// Up to `longest` of the pieces, one after the other.
  std::wstring text(const std::vector<std::wstring>& pieces, int longest) {
    std::wstring result;
    for (int i = number(0, longest); i > 0; --i) result += of(pieces);
    return result;
  }

 private:
  unsigned seed_;
  std::mt19937 engine_;
};

}  // namespace host
