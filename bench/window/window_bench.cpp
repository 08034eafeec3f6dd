// What a user waits for in the windows, measured in process: from a key to the picture.

#include <QElapsedTimer>

#include "bench/window/session.h"
#include "desktop/greek_texts.h"
#include "desktop/theme.h"
#include "study/safety_copies.h"

namespace kalvo {
namespace {

// From the start of main() to an application with its theme; part of every start.
double application_ms = 0;

void StartToMenu(benchmark::State& state) {
  const Home home;
  Session first(home);  // copies the libraries, once for all starts
  QElapsedTimer watch;
  for (auto _ : state) {
    watch.start();
    Session session(home);
    session.StartToMenu();
    Note(state, watch, 0);
  }
  state.counters["application_ms"] = application_ms;
}
BENCHMARK(StartToMenu)->Apply(RepeatTen);

void OpenHotel(benchmark::State& state) {
  const Home home;
  Session session(home);
  session.StartToMenu();
  QElapsedTimer watch;
  for (auto _ : state) {
    watch.start();
    session.Open(std::filesystem::path(KALVO_SAMPLES_DIR) / "hotel.PCK");
    Note(state, watch, 2);  // before the copies of the study and of its fluid
  }
  session.Calculate();
  session.ShowSheet();
  state.counters["resident_MiB"] = ResidentMiB();
}
BENCHMARK(OpenHotel)->Apply(RepeatTen);

void OpenSheetOf999(benchmark::State& state) {
  StudyOf999 open;
  Session& session = open.session;
  session.Calculate();
  QElapsedTimer watch;
  for (auto _ : state) {
    watch.start();
    session.ShowSheet();
    Note(state, watch, 1);  // before the copy of the rows with which the session begins
    session.CloseSheet();
  }
}
BENCHMARK(OpenSheetOf999)->Apply(RepeatTen);

void ListOf3000Studies(benchmark::State& state) {
  const Home home;
  const auto folder = home.places().folder.parent_path() / "studies";
  std::filesystem::create_directories(folder);
  for (int number = 1; number <= 3000; ++number) {
    std::filesystem::copy_file(std::filesystem::path(KALVO_SAMPLES_DIR) / "single.PCK",
                               folder / (std::to_string(number) + ".PCK"));
  }
  Session session(home);
  session.StartToMenu();
  QElapsedTimer watch;
  for (auto _ : state) {
    watch.start();
    session.ShowStudies(folder);
    Note(state, watch, 0);
    session.CloseStudies();
  }
}
BENCHMARK(ListOf3000Studies)->Apply(RepeatTen);

void KeyToPicture(benchmark::State& state) {
  const Home home;
  Session session(home);
  session.StartToMenu();
  session.Press(screen::kMain, Qt::Key_F2);
  bool letter = true;
  for (auto _ : state) {
    session.Press(screen::kMain, letter ? Qt::Key_A : Qt::Key_Backspace,
                  letter ? QStringLiteral("α") : QString());
    session.Draw(screen::kMain);
    letter = !letter;
  }
}
BENCHMARK(KeyToPicture)->Unit(benchmark::kMillisecond)->Iterations(100);

// A row written anew among 999, as a move in the entry of sections does.
void WriteRowOf999(benchmark::State& state) {
  StudyOf999 open;
  Session& session = open.session;
  RowFile<SectionRow> rows = session.desk().bench.workspace.Rows();
  const SectionRow row = *rows.Read(500);
  for (auto _ : state) {
    if (!rows.Write(500, row)) throw std::runtime_error("the row is not written");
  }
}
BENCHMARK(WriteRowOf999)->Unit(benchmark::kMillisecond)->Iterations(100);

// What is forced onto the medium before an older copy of 999 rows is dropped.
void FlushRowsOf999(benchmark::State& state) {
  StudyOf999 open;
  Session& session = open.session;
  Workspace& workspace = session.desk().bench.workspace;
  RowFile<SectionRow> rows = workspace.Rows();
  const SectionRow row = *rows.Read(500);
  QElapsedTimer watch;
  for (auto _ : state) {
    if (!rows.Write(500, row)) throw std::runtime_error("the row is not written");
    watch.start();
    if (!workspace.Flush(work_file::kRows)) throw std::runtime_error("the rows are not flushed");
    Note(state, watch, 0);
  }
}
BENCHMARK(FlushRowsOf999)->Apply(RepeatTen);

void SafetyCopyOf999(benchmark::State& state) {
  StudyOf999 open;
  Session& session = open.session;
  QElapsedTimer watch;
  for (auto _ : state) {
    watch.start();
    const Desk& desk = session.desk();
    const bool kept = KeepSafetyCopyAnyway(desk.bench, desk.safety_folders());
    if (!kept) throw std::runtime_error("no copy was made");
    Note(state, watch, 0);
  }
}
BENCHMARK(SafetyCopyOf999)->Apply(RepeatTen);

int RunAll(int argc, char** argv) {
  QElapsedTimer watch;
  watch.start();
  QApplication app(argc, argv);
  GreekTexts greek;
  QCoreApplication::installTranslator(&greek);
  ApplyTheme(app, ChooseTheme(QApplication::palette(), QStringLiteral("light")));
  application_ms = static_cast<double>(watch.nsecsElapsed()) * 1e-6;
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}

}  // namespace
}  // namespace kalvo

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  return kalvo::RunAll(argc, argv);
}
