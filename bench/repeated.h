#pragma once

#include <benchmark/benchmark.h>

#include <algorithm>
#include <vector>

namespace kalvo {

/// Shows "min" beside the means: on a machine that others use too, some of many runs come through
/// undisturbed, and the least time is the one that is the program's own.
inline benchmark::internal::Benchmark* ShowLeast(benchmark::internal::Benchmark* benchmark) {
  const auto least = [](const std::vector<double>& values) {
    return *std::min_element(values.begin(), values.end());
  };
  return benchmark->ComputeStatistics("min", least)->DisplayAggregatesOnly(true);
}

/// Runs a benchmark forty times, each `iterations` long: short runs, and many.
inline void Repeat(benchmark::internal::Benchmark* benchmark, int iterations) {
  ShowLeast(benchmark->Iterations(iterations)->Repetitions(40));
}

/// For what takes milliseconds.
inline void RepeatMs(benchmark::internal::Benchmark* benchmark) {
  Repeat(benchmark->Unit(benchmark::kMillisecond), 3);
}

/// For what takes nanoseconds.
inline void RepeatNs(benchmark::internal::Benchmark* benchmark) { Repeat(benchmark, 10'000); }

}  // namespace kalvo
