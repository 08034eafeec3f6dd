// Changes of diameters in the results.

#include "bench/window/session.h"
#include "engine/diameter_change.h"
#include "results/change_history.h"
#include "results/frm_avai_d.h"
#include "results/frm_res_sheet.h"

namespace kalvo {
namespace {

// 999 sections calculated, their results sheet on show and the list of diameters next to it.
struct ResultsOf999 : StudyOf999 {
  ResultsOf999() {
    session.Calculate();
    session.ShowSheet();
    Sheet().Run(Sheet().CmdChD);
    session.Draw(screen::kOneDiameter);
    const Workbench& bench = session.desk().bench;
    library = *ReadPipeSystem(bench.workspace, bench.study.pipe_system_number);
  }

  [[nodiscard]] FrmRes_Sheet& Sheet() {
    return dynamic_cast<FrmRes_Sheet&>(session.FormOf(screen::kResultsSheet));
  }
  [[nodiscard]] FrmAvaiD& List() {
    return dynamic_cast<FrmAvaiD&>(session.FormOf(screen::kOneDiameter));
  }
  /// The half of the sections that gets another pipe each time.
  void ChangeHalf() {
    DiameterChange change;
    for (int number = 1; number <= 999; number += 2) change.sections.push_back(number);
    large = !large;
    change.pipe = library[large ? 4 : 3];
    if (ChangeDiameters(session.desk().bench, {change}).end != RunEnd::kCalculated) {
      throw std::runtime_error("the change is not calculated");
    }
  }

  std::vector<PipeRow> library;
  bool large = false;
};

void ChangeHalfOf999(benchmark::State& state) {
  ResultsOf999 results;
  QElapsedTimer watch;
  for (auto _ : state) {
    watch.start();
    results.ChangeHalf();
    Note(state, watch, 1);  // before the copy of the rows
  }
}
BENCHMARK(ChangeHalfOf999)->Apply(RepeatTen);

void ReplaceOneOf999(benchmark::State& state) {
  ResultsOf999 results;
  Session& session = results.session;
  QElapsedTimer watch;
  for (auto _ : state) {
    const int row = results.List().fpSpread1.current().row;
    results.List().fpSpread1.MoveTo({row == 3 ? 4 : 3, 0});
    session.Repaint();
    watch.start();
    session.Press(screen::kOneDiameter, Qt::Key_Return);
    session.Draw(screen::kResultsSheet);
    Note(state, watch, 1);
  }
  if (!HasStep(session.desk(), HistoryStep::kUndo)) throw std::runtime_error("nothing replaced");
}
BENCHMARK(ReplaceOneOf999)->Apply(RepeatTen);

void ListAfterMoveOf999(benchmark::State& state) {
  ResultsOf999 results;
  Session& session = results.session;
  session.desk().navigator.Show(screen::kResultsSheet);
  QElapsedTimer watch;
  for (auto _ : state) {
    watch.start();
    session.Press(screen::kResultsSheet, Qt::Key_Down);
    session.Draw(screen::kOneDiameter);
    Note(state, watch, 0);
  }
}
BENCHMARK(ListAfterMoveOf999)->Apply(RepeatTen);

// The comparison found out and shown; the window is open already.
void CompareOf999(benchmark::State& state) {
  ResultsOf999 results;
  results.ChangeHalf();
  Session& session = results.session;
  session.desk().navigator.Show(screen::kComparison);
  session.Draw(screen::kComparison);
  Form& comparison = session.FormOf(screen::kComparison);
  QElapsedTimer watch;
  for (auto _ : state) {
    watch.start();
    comparison.Load();
    session.Repaint();
    Note(state, watch, 0);
  }
}
BENCHMARK(CompareOf999)->Apply(RepeatTen);

}  // namespace
}  // namespace kalvo
