#include "progress.h"

#include <algorithm>
#include <string>

#include "console.h"

namespace facturation {
namespace {

constexpr std::chrono::milliseconds kFirstDelay{1000};
constexpr std::chrono::milliseconds kRefresh{100};
constexpr std::size_t kBarWidth = 40;

}  // namespace

Progress::Progress(std::size_t total)
    : total_(std::max<std::size_t>(total, 1)),
      enabled_(error_stream_is_console()),
      next_(Clock::now() + kFirstDelay) {}

void Progress::advance(std::size_t steps) {
  done_ = std::min(done_ + steps, total_);
  if (!enabled_ || Clock::now() < next_) return;
  next_ = Clock::now() + kRefresh;
  const std::size_t filled = done_ * kBarWidth / total_;
  std::string line = "Facturation [" + std::string(filled, '#') + std::string(kBarWidth - filled, '.') +
                     "] " + std::to_string(done_ * 100 / total_) + " %";
  drawn_width_ = width(line);
  print_error("\r" + line);
}

void Progress::wipe() {
  if (drawn_width_ == 0) return;
  print_error("\r" + std::string(drawn_width_, ' ') + "\r");
  drawn_width_ = 0;
}

}  // namespace facturation
