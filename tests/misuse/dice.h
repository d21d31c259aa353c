// The random source of one generated call: the same seed and number give the same throws, and starting it
// anew costs nothing.
#pragma once

#include <cstddef>
#include <cstdint>

namespace misuse {

class Dice {
 public:
  Dice(std::uint64_t seed, std::uint64_t number) : state_(mixed(mixed(seed) ^ number)) {}

  std::uint64_t bits() {
    state_ += 0x9E3779B97F4A7C15ULL;
    return mixed(state_);
  }
  /// 0 to count - 1.
  std::size_t below(std::size_t count) { return static_cast<std::size_t>((bits() >> 32) * count >> 32); }
  long between(long lowest, long highest) {
    return lowest + static_cast<long>(below(static_cast<std::size_t>(highest - lowest) + 1));
  }
  bool one_in(std::size_t count) { return below(count) == 0; }
  bool coin() { return (bits() & 1) != 0; }

  template <class List>
  auto& of(List& list) {
    return list[below(std::size(list))];
  }

 private:
  static std::uint64_t mixed(std::uint64_t value) {
    value = (value ^ value >> 30) * 0xBF58476D1CE4E5B9ULL;
    value = (value ^ value >> 27) * 0x94D049BB133111EBULL;
    return value ^ value >> 31;
  }

  std::uint64_t state_;
};

}  // namespace misuse
