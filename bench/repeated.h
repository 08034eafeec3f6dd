#pragma once

#include <benchmark/benchmark.h>

#include <algorithm>
#include <vector>

namespace kalvo {

/// Runs a benchmark forty times, each `iterations` long, and shows "min" beside the means. Short
/// runs, and many: on a machine that others use too, some of them then come through undisturbed,
/// and the least time is the one that is the program's own.
inline void Repeat(benchmark::internal::Benchmark* benchmark, int iterations) {
  const auto least = [](const std::vector<double>& values) {
    return *std::min_element(values.begin(), values.end());
  };
  benchmark->Iterations(iterations)
      ->Repetitions(40)
      ->ComputeStatistics("min", least)
      ->DisplayAggregatesOnly(true);
}

/// For what takes milliseconds.
inline void RepeatMs(benchmark::internal::Benchmark* benchmark) {
  Repeat(benchmark->Unit(benchmark::kMillisecond), 3);
}

/// For what takes nanoseconds.
inline void RepeatNs(benchmark::internal::Benchmark* benchmark) { Repeat(benchmark, 10'000); }

}  // namespace kalvo
