// The winter form.

#include "bench/window/session.h"

namespace kalvo {
namespace {

void OpenWinterOf330(benchmark::State& state) {
  StudyOf999 open;
  Session& session = open.session;
  session.Calculate();
  session.desk().bench.study.results_valid = true;
  QElapsedTimer watch;
  for (auto _ : state) {
    watch.start();
    session.ShowWinter();
    Note(state, watch, 0);
    session.CloseWinter();
  }
}
BENCHMARK(OpenWinterOf330)->Apply(RepeatTen);

void RunWinterOf330(benchmark::State& state) {
  StudyOf999 open;
  Session& session = open.session;
  session.Calculate();
  session.desk().bench.study.results_valid = true;
  session.ShowWinter();
  session.FillWinter();
  QElapsedTimer watch;
  for (auto _ : state) {
    bool shown = false;
    watch.start();
    session.RunWinter([&] {
      if (!shown) Note(state, watch, 2);  // before the copies of the rows
      shown = true;
    });
    if (!shown) throw std::runtime_error("no winter");
  }
}
BENCHMARK(RunWinterOf330)->Apply(RepeatTen);

}  // namespace
}  // namespace kalvo
