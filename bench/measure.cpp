#include "measure.h"

#include <windows.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>

namespace bench {
namespace {

/// A batch is long beside the clock's step, and short beside the processor's turns.
constexpr double kBatch = 2e6;
/// A round's time is the shortest of so many batches: the others were disturbed. Long runs have but one.
constexpr int kBatches = 8;
constexpr double kLongRun = 2e7;

double now() {
  LARGE_INTEGER ticks;
  LARGE_INTEGER frequency;
  QueryPerformanceCounter(&ticks);
  QueryPerformanceFrequency(&frequency);
  return static_cast<double>(ticks.QuadPart) * 1e9 / static_cast<double>(frequency.QuadPart);
}

double time_of(const Operation& operation, long runs) {
  if (!operation.prepare) {
    const double start = now();
    for (long i = 0; i < runs; ++i) operation.run();
    return now() - start;
  }
  double total = 0;
  for (long i = 0; i < runs; ++i) {
    operation.prepare();
    const double start = now();
    operation.run();
    total += now() - start;
  }
  return total;
}

/// How often an operation is run in a batch, and how many batches a round has of it.
struct Plan {
  long runs;
  int batches;
};

/// Warms caches and lazily made tables up as well.
Plan plan_for(const Operation& operation) {
  for (long runs = 1;; runs *= 4) {
    const double taken = time_of(operation, runs);
    if (runs == 1 && taken > kLongRun) return {1, 1};
    if (taken >= kBatch) return {runs, kBatches};
    if (taken >= kBatch / 50) {
      return {std::max(1L, static_cast<long>(static_cast<double>(runs) * kBatch / taken)), kBatches};
    }
  }
}

/// Keeps the shorter time of a run.
void time_into(double& shortest, const Operation& operation, long runs) {
  shortest = std::min(shortest, time_of(operation, runs) / static_cast<double>(runs));
}

/// The sample of one round.
struct Sampler {
  explicit Sampler(const Operation& measured) : operation(measured), plan(plan_for(operation)) {}

  const Operation& operation;
  Plan plan;
};

/// One round: batches of all of them in turn.
std::vector<double> sample(const std::vector<Sampler>& samplers) {
  std::vector<double> times(samplers.size(), std::numeric_limits<double>::max());
  for (int batch = 0; batch < kBatches; ++batch) {
    for (std::size_t i = 0; i < samplers.size(); ++i) {
      if (batch < samplers[i].plan.batches) time_into(times[i], samplers[i].operation, samplers[i].plan.runs);
    }
  }
  return times;
}

double median_of(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  const std::size_t middle = values.size() / 2;
  return values.size() % 2 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}

double bounded_value(Bound bound, double library, double peer) {
  if (bound == Bound::AtLeast) return peer / library;
  return bound == Bound::AtMost ? library / peer : library - peer;
}

}  // namespace

bool Comparison::holds() const {
  return floor->bound == Bound::AtLeast ? median >= floor->limit : median <= floor->limit;
}

double Growth::excess() const {
  const double size_growth =
      16 * std::log(16.0 * static_cast<double>(size)) / std::log(static_cast<double>(size));
  return times[2] / times[0] / size_growth;
}

bool Growth::holds() const { return excess() <= kGrowthTolerance; }

void Bench::compare(std::string_view id, const Operation& library, const Operation& peer) {
  const Floor& floor = floor_of(id);
  const std::vector<Sampler> samplers{Sampler(library), Sampler(peer)};
  std::vector<double> library_times;
  std::vector<double> peer_times;
  std::vector<double> values;
  for (int round = 0; round < rounds_; ++round) {
    const std::vector<double> times = sample(samplers);
    library_times.push_back(times[0]);
    peer_times.push_back(times[1]);
    values.push_back(bounded_value(floor.bound, times[0], times[1]));
  }
  const auto [lowest, highest] = std::minmax_element(values.begin(), values.end());
  comparisons_.push_back(
      {&floor, median_of(library_times), median_of(peer_times), median_of(values), *lowest, *highest});
  std::fprintf(stderr, "bench: %s\n", std::string(id).c_str());
}

void Bench::grow(std::string_view id, const std::string& work, long size,
                 const std::function<Operation(long size)>& make) {
  if (!wants(id)) return;
  const Operation operations[] = {make(size), make(4 * size), make(16 * size)};
  const std::vector<Sampler> samplers{Sampler(operations[0]), Sampler(operations[1]), Sampler(operations[2])};
  std::vector<double> times[3];
  for (int round = 0; round < rounds_; ++round) {
    const std::vector<double> sampled = sample(samplers);
    for (std::size_t i = 0; i < 3; ++i) times[i].push_back(sampled[i]);
  }
  growths_.push_back({work, size, {median_of(times[0]), median_of(times[1]), median_of(times[2])}});
  std::fprintf(stderr, "bench: growth of %s\n", std::string(id).c_str());
}

void must(long code, const char* what) {
  if (code >= 0) return;
  std::fprintf(stderr, "bench: %s failed: 0x%08lX\n", what, static_cast<unsigned long>(code));
  std::exit(2);
}

}  // namespace bench
