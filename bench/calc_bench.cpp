// The calculation of a large study inside one process.

#include <algorithm>
#include <array>
#include <cmath>
#include <ctime>
#include <limits>
#include <string>

#include "bench/bench_program.h"
#include "bench/repeated.h"

namespace kalvo {
namespace {

constexpr int kSections = 999;

double ProcessSeconds() {
  timespec now{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) + 1e-9 * static_cast<double>(now.tv_nsec);
}

void LoadAndCalculate(const PipeList& pipes, const StudyFiles& study, Method method) {
  BenchProgram program(pipes);
  program.Load(study.path());
  program.Calculate(method);
}

// From the study's files to calculated rows, flow report included.
void Calc(benchmark::State& state, SystemKind kind, Method method) {
  const StudyFiles study(kind, kSections);
  const PipeList pipes = DeliveredPipes();
  for ([[maybe_unused]] auto step : state) {
    LoadAndCalculate(pipes, study, method);
  }
}
BENCHMARK_CAPTURE(Calc, method1, SystemKind::kClosed, Method::kFlowOnly)->Apply(RepeatMs);
BENCHMARK_CAPTURE(Calc, method2, SystemKind::kClosed, Method::kFlowAndPressure)->Apply(RepeatMs);
BENCHMARK_CAPTURE(Calc, open1, SystemKind::kOpen, Method::kFlowOnly)->Apply(RepeatMs);
BENCHMARK_CAPTURE(Calc, open2, SystemKind::kOpen, Method::kFlowAndPressure)->Apply(RepeatMs);

void Load(benchmark::State& state) {
  const StudyFiles study(SystemKind::kClosed, kSections);
  const PipeList pipes = DeliveredPipes();
  for ([[maybe_unused]] auto step : state) {
    BenchProgram program(pipes);
    program.Load(study.path());
  }
}
BENCHMARK(Load)->Apply(RepeatMs);

// The engine's part of it: from rows whose flows are known to calculated rows.
void Engine(benchmark::State& state, Method method) {
  const StudyFiles study(SystemKind::kClosed, kSections);
  const PipeList pipes = DeliveredPipes();
  BenchProgram program(pipes);
  program.Load(study.path());
  program.Calculate(method);
  for ([[maybe_unused]] auto step : state) {
    program.Run(method);
  }
}
BENCHMARK_CAPTURE(Engine, method1, Method::kFlowOnly)->Apply(RepeatMs);
BENCHMARK_CAPTURE(Engine, method2, Method::kFlowAndPressure)->Apply(RepeatMs);

// The winter duty of a study calculated for summer.
void Winter(benchmark::State& state) {
  const StudyFiles study(SystemKind::kClosed, kSections);
  const PipeList pipes = DeliveredPipes();
  BenchProgram program(pipes);
  program.Load(study.path());
  program.Calculate(Method::kFlowOnly);
  for ([[maybe_unused]] auto step : state) {
    program.RunWinter();
  }
}
BENCHMARK(Winter)->Apply(RepeatMs);

struct Size {
  int sections = 0;
  double seconds = std::numeric_limits<double>::infinity();  // the least so far
};

// Slope of log(seconds) over log(sections), by least squares.
double Exponent(const std::array<Size, 3>& sizes) {
  double x = 0;
  double y = 0;
  double xx = 0;
  double xy = 0;
  for (const Size& size : sizes) {
    const double log_sections = std::log(static_cast<double>(size.sections));
    const double log_seconds = std::log(size.seconds);
    x += log_sections;
    y += log_seconds;
    xx += log_sections * log_sections;
    xy += log_sections * log_seconds;
  }
  const auto count = static_cast<double>(sizes.size());
  return (count * xy - x * y) / (count * xx - x * x);
}

// How the time grows with the network while its circuits stay as long as they are. The least time
// of each size counts.
void Growth(benchmark::State& state, SystemKind kind) {
  std::array<Size, 3> sizes = {Size{100}, Size{300}, Size{kSections}};
  const std::array<StudyFiles, 3> studies = {StudyFiles(kind, 100), StudyFiles(kind, 300),
                                             StudyFiles(kind, kSections)};
  const PipeList pipes = DeliveredPipes();
  for ([[maybe_unused]] auto step : state) {
    for (std::size_t i = 0; i < sizes.size(); ++i) {
      const double start = ProcessSeconds();
      LoadAndCalculate(pipes, studies[i], Method::kFlowOnly);
      sizes[i].seconds = std::min(sizes[i].seconds, ProcessSeconds() - start);
    }
  }
  state.counters["exponent"] = Exponent(sizes);
  for (const Size& size : sizes) {
    state.counters["ms_" + std::to_string(size.sections)] = 1000.0 * size.seconds;
  }
}
BENCHMARK_CAPTURE(Growth, closed, SystemKind::kClosed)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(80);
BENCHMARK_CAPTURE(Growth, open, SystemKind::kOpen)->Unit(benchmark::kMillisecond)->Iterations(80);

}  // namespace
}  // namespace kalvo
