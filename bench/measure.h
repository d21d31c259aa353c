// Measuring the library beside its peer, round by round, so that what disturbs the machine disturbs both.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "floors.h"

namespace bench {

/// Something to measure. Only `run` is timed; `prepare`, when there is one, goes before every run.
struct Operation {
  std::function<void()> run;
  std::function<void()> prepare = {};
};

/// A comparison with its floor: nanoseconds a run, and over the rounds the median and the extremes of what
/// the floor bounds (a ratio, or a difference in nanoseconds).
struct Comparison {
  const Floor* floor;
  double library;
  double peer;
  double median;
  double lowest;
  double highest;

  [[nodiscard]] bool holds() const;
};

/// The library's time at 1, 4 and 16 times a size, in nanoseconds.
struct Growth {
  std::string work;
  long size;
  double times[3];

  /// Time over N log N at 16 times the size, against that at the size itself: 1 is N log N.
  [[nodiscard]] double excess() const;
  [[nodiscard]] bool holds() const;
};

/// Larger tables leave the processor's caches: a growth up to this above N log N holds. That of N squared is
/// 12 above it.
inline constexpr double kGrowthTolerance = 2;

class Bench {
 public:
  /// `only`: the part of the measurements whose identifier contains it; empty for all.
  Bench(int rounds, std::string only) : rounds_(rounds), only_(std::move(only)) {}

  [[nodiscard]] bool wants(std::string_view id) const { return id.find(only_) != std::string_view::npos; }
  void compare(std::string_view id, const Operation& library, const Operation& peer);
  /// `make` gives the operation at a size.
  void grow(std::string_view id, const std::string& work, long size,
            const std::function<Operation(long size)>& make);

  [[nodiscard]] const std::vector<Comparison>& comparisons() const { return comparisons_; }
  [[nodiscard]] const std::vector<Growth>& growths() const { return growths_; }
  [[nodiscard]] int rounds() const { return rounds_; }

 private:
  int rounds_;
  std::string only_;
  std::vector<Comparison> comparisons_;
  std::vector<Growth> growths_;
};

/// Ends the program when a call of the library or the platform fails: nothing is measured then.
void must(long code, const char* what);

}  // namespace bench
