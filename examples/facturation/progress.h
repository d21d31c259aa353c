// A progress bar for long runs: shown after a second, on a console only, and wiped at the end.
#pragma once

#include <chrono>
#include <cstddef>

namespace facturation {

class Progress {
 public:
  explicit Progress(std::size_t total);
  ~Progress() { wipe(); }
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  void advance(std::size_t steps);
  /// Frees the line for another text; the next step draws the bar again.
  void wipe();

 private:
  using Clock = std::chrono::steady_clock;

  std::size_t total_;
  std::size_t done_ = 0;
  std::size_t drawn_width_ = 0;
  bool enabled_;
  Clock::time_point next_;
};

}  // namespace facturation
