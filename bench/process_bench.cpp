// `kalvo calc` as a process of its own, from its start to its end.

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <limits>
#include <stdexcept>
#include <string>
#include <vector>

#include "bench/bench_program.h"
#include "bench/repeated.h"

namespace kalvo {
namespace {

struct ProcessCost {
  double wall_seconds = 0;
  double cpu_seconds = 0;
  double max_rss_mib = 0;
};

double Seconds(const timeval& time) {
  return static_cast<double>(time.tv_sec) + 1e-6 * static_cast<double>(time.tv_usec);
}

// The output of a process goes to /dev/null.
class NoOutput {
 public:
  NoOutput() {
    posix_spawn_file_actions_init(&actions_);
    posix_spawn_file_actions_addopen(&actions_, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
  }
  NoOutput(const NoOutput&) = delete;
  NoOutput& operator=(const NoOutput&) = delete;
  ~NoOutput() { posix_spawn_file_actions_destroy(&actions_); }

  [[nodiscard]] const posix_spawn_file_actions_t* actions() const { return &actions_; }

 private:
  posix_spawn_file_actions_t actions_{};
};

// Runs the program; its end by anything but exit code 0 is an error.
ProcessCost RunProcess(std::vector<std::string> words) {
  std::vector<char*> arguments;
  for (std::string& word : words) {
    arguments.push_back(word.data());
  }
  arguments.push_back(nullptr);
  const NoOutput output;
  const auto start = std::chrono::steady_clock::now();
  pid_t pid = 0;
  if (posix_spawn(&pid, arguments[0], output.actions(), nullptr, arguments.data(), environ) != 0) {
    throw std::runtime_error("cannot be started: " + words.front());
  }
  int status = 0;
  rusage usage{};
  if (wait4(pid, &status, 0, &usage) != pid || status != 0) {
    throw std::runtime_error("ended by an error: " + words.front());
  }
  const std::chrono::duration<double> wall = std::chrono::steady_clock::now() - start;
  return {wall.count(), Seconds(usage.ru_utime) + Seconds(usage.ru_stime),
          static_cast<double>(usage.ru_maxrss) / 1024.0};
}

// Time is the wall's. The least processor time and the most memory are counters; the memory is
// never less than this program's own, which a process starts from.
void Process(benchmark::State& state) {
  const StudyFiles study(SystemKind::kClosed, 999);
  const std::vector<std::string> words = {KALVO_BINARY,     "calc", study.path().string(),
                                          "--format",       "csv",  "--library",
                                          KALVO_LIBRARY_DIR};
  double cpu_seconds = std::numeric_limits<double>::infinity();
  double max_rss_mib = 0;
  for ([[maybe_unused]] auto step : state) {
    const ProcessCost cost = RunProcess(words);
    state.SetIterationTime(cost.wall_seconds);
    cpu_seconds = std::min(cpu_seconds, cost.cpu_seconds);
    max_rss_mib = std::max(max_rss_mib, cost.max_rss_mib);
  }
  state.counters["cpu_ms"] = 1000.0 * cpu_seconds;
  state.counters["max_rss_MiB"] = max_rss_mib;
}
BENCHMARK(Process)->UseManualTime()->Apply(RepeatMs);

}  // namespace
}  // namespace kalvo
