// What a user waits for in the windows, measured in process: from a key to the picture.

#include <unistd.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QTimer>
#include <algorithm>
#include <fstream>
#include <functional>
#include <stdexcept>

#include "bench/bench_program.h"
#include "bench/repeated.h"
#include "desktop/greek_texts.h"
#include "desktop/program.h"
#include "desktop/qt_printer.h"
#include "desktop/theme.h"
#include "engine/calculation_command.h"
#include "entry/frm_data.h"
#include "entry/frm_data_sheet.h"
#include "entry/frm_winter.h"
#include "entry/section_sitting.h"
#include "entry/sheet_columns.h"
#include "entry/sheet_pages.h"
#include "shell/study_dialogs.h"
#include "study/safety_copies.h"
#include "study/study_extensions.h"

namespace kalvo {
namespace {

// From the start of main() to an application with its theme; part of every start.
double application_ms = 0;

constexpr double kMillisecondsOfPause = 100;

/// A program folder that goes with the object.
class Home {
 public:
  [[nodiscard]] const ProgramPlaces& places() const { return places_; }

 private:
  TemporaryFolder folder_;
  ProgramPlaces places_{folder_.path() / "program", folder_.path() / "state", {}, {}};
};

/// Counts how often a window paints what has changed in it.
class PaintingCounter : public QObject {
 public:
  using QObject::QObject;
  int count = 0;

 private:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::UpdateRequest) ++count;
    return QObject::eventFilter(watched, event);
  }
};

/// The program with its windows in `home`.
class Session {
 public:
  explicit Session(const Home& home) : program_(home.places(), Separators{',', '.'}) {
    if (!program_.Prepare(std::filesystem::path(KALVO_LIBRARY_DIR).parent_path())) {
      throw std::runtime_error("the program folder cannot be made ready");
    }
  }

  void StartToMenu() {
    program_.Start();
    Press(screen::kTitle, Qt::Key_Return);
    Press(screen::kKind, Qt::Key_Return);
    Draw(screen::kMain);
  }

  void Open(const std::filesystem::path& study) {
    program_.desk().bench.study.system_kind = KindOfName(study.string());
    if (!OpenChosen(program_.desk(), study, RecentList::kAdd)) {
      throw std::runtime_error("the study does not open");
    }
    Draw(screen::kMain);
  }

  void Calculate() {
    if (kalvo::Calculate(program_.desk().bench, Method::kFlowOnly) != CommandEnd::kCalculated) {
      throw std::runtime_error("the study is not calculated");
    }
  }

  void ShowSheet() {
    program_.desk().screens.results_begin = true;
    program_.windows().Show(screen::kResultsSheet);
    Draw(screen::kResultsSheet);
  }
  void CloseSheet() { program_.windows().Close(screen::kResultsSheet); }

  void ShowEntry() {
    program_.windows().Show(screen::kSheet);
    Draw(screen::kSheet);
  }
  void CloseEntry() { program_.windows().Close(screen::kSheet); }
  /// The sheet of sections in entry, which must be shown.
  [[nodiscard]] FrmData_Sheet& Entry() {
    return dynamic_cast<FrmData_Sheet&>(*program_.windows().FormOf(screen::kSheet));
  }

  void GoInEntry(GridPlace place) {
    Entry().fpSpread1.GoTo(place);
    program_.windows().PaintAll();
    Draw(screen::kSheet);
  }

  void ShowForm() {
    desk().screens.section_sitting.reset();
    program_.windows().Show(screen::kSections);
    Draw(screen::kSections);
  }
  [[nodiscard]] FrmData& SectionForm() {
    return dynamic_cast<FrmData&>(*program_.windows().FormOf(screen::kSections));
  }
  void Repaint() {
    program_.windows().PaintAll();
    QCoreApplication::processEvents();
  }
  [[nodiscard]] std::string RowsOnDisk() { return *desk().bench.workspace.Read(work_file::kRows); }

  /// Paintings of the sheet of sections in entry, from the first call on.
  int PaintingsOfEntry() {
    Window(screen::kSheet).installEventFilter(&paintings_);
    return paintings_.count;
  }

  void ShowWinter() {
    program_.windows().Show(screen::kWinter);
    Draw(screen::kWinter);
  }
  void CloseWinter() { program_.windows().Close(screen::kWinter); }

  /// Three fifths of the emitters' flows and drops into the winter form, which must be shown.
  void FillWinter() {
    auto& form = dynamic_cast<FrmWinter&>(*program_.windows().FormOf(screen::kWinter));
    std::string text;
    for (const WinterLine& line : SummerValues(program_.desk().bench)) {
      text += FormatNumber(line.flow_lh * 0.6F, program_.desk().separators) + "\t" +
              FormatNumber(line.drop * 0.6F, program_.desk().separators) + "\n";
    }
    program_.desk().clipboard.SetText(text);
    form.Run(form.CmdPasteFromClpbrd);
  }
  /// Runs it, to the box of its pump, which is closed then.
  void RunWinter(const std::function<void()>& at_the_box) {
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, [&] {
      QWidget* box = QApplication::activeModalWidget();
      if (box == nullptr) return;
      box->repaint();
      at_the_box();
      box->close();
    });
    look.start(0);
    Press(screen::kWinter, Qt::Key_Return, {}, Qt::ControlModifier);
  }

  void ShowStudies(const std::filesystem::path& folder) {
    program_.desk().data_folder = folder;
    program_.windows().Show(screen::kStudies);
    Draw(screen::kStudies);
  }
  void CloseStudies() { program_.windows().Close(screen::kStudies); }

  [[nodiscard]] Desk& desk() { return program_.desk(); }

  /// Sends a key where the user's keys would go, and draws what it changed.
  void Press(std::string_view screen, int key, const QString& text = {},
             Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QWidget& window = Window(screen);
    QWidget* focus = window.focusWidget() == nullptr ? &window : window.focusWidget();
    QKeyEvent press(QEvent::KeyPress, key, modifiers, text);
    QCoreApplication::sendEvent(focus, &press);
    QCoreApplication::processEvents();
  }

  void Draw(std::string_view screen) {
    QCoreApplication::processEvents();
    Window(screen).repaint();
  }

 private:
  QWidget& Window(std::string_view screen) {
    QWidget* window = program_.windows().WindowOf(screen);
    if (window == nullptr) throw std::runtime_error("no window " + std::string(screen));
    return *window;
  }

  PaintingCounter paintings_;
  Program program_;
};

/// A program with a study of 999 sections open.
struct StudyOf999 {
  explicit StudyOf999(SystemKind kind = SystemKind::kClosed, int sections = 999)
      : study(kind, sections) {
    session.StartToMenu();
    session.Open(study.path());
  }
  const StudyFiles study;
  const Home home;
  Session session{home};
};

double ResidentMiB() {
  std::ifstream statm("/proc/self/statm");
  long total = 0;
  long resident = 0;
  statm >> total >> resident;
  return static_cast<double>(resident * sysconf(_SC_PAGESIZE)) / (1024.0 * 1024.0);
}

// The time of the clock, and what is left of it without the pauses that copying files takes.
void Note(benchmark::State& state, const QElapsedTimer& watch, int pauses) {
  const double ms = static_cast<double>(watch.nsecsElapsed()) * 1e-6;
  state.SetIterationTime(ms * 1e-3);
  state.counters["without_pauses_ms"] = ms - pauses * kMillisecondsOfPause;
}

void RepeatTen(benchmark::internal::Benchmark* benchmark) {
  benchmark->Unit(benchmark::kMillisecond)
      ->UseManualTime()
      ->Iterations(1)
      ->Repetitions(10)
      ->DisplayAggregatesOnly(true);
}

// The time of one run of many in a window; the counter is the least of them, as where nobody else
// uses the machine.
void NoteLeast(benchmark::State& state, qint64 nanoseconds) {
  const double ms = static_cast<double>(nanoseconds) * 1e-6;
  state.SetIterationTime(ms * 1e-3);
  double& least = state.counters["least_ms"].value;
  least = least == 0 ? ms : std::min(least, ms);
}

// For what goes on in one window.
void RepeatFifty(benchmark::internal::Benchmark* benchmark) {
  benchmark->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(50);
}

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

void OpenEntryOf999(benchmark::State& state) {
  StudyOf999 open;
  Session& session = open.session;
  QElapsedTimer watch;
  for (auto _ : state) {
    watch.start();
    session.ShowEntry();
    Note(state, watch, 0);
    session.CloseEntry();
  }
}
BENCHMARK(OpenEntryOf999)->Apply(RepeatTen);

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

// A key, to what it changed painted anew; it must change the draft, or must not.
void PressInEntry(Session& session, int key, const QString& text, Qt::KeyboardModifiers modifiers,
                  bool changes) {
  const SectionDraft& draft = session.Entry().draft();
  const int before = draft.revision();
  const int paintings = session.PaintingsOfEntry();
  session.Press(screen::kSheet, key, text, modifiers);
  if (session.PaintingsOfEntry() == paintings) {
    throw std::runtime_error("the key painted nothing");
  }
  if ((draft.revision() != before) != changes) throw std::runtime_error("the key was not taken");
}

// A digit typed into a length in the middle of the sheet, and the Enter with which the cell takes
// it; the slower of both counts.
void KeyInEntryOf999(benchmark::State& state, SystemKind kind) {
  StudyOf999 open(kind);
  Session& session = open.session;
  session.ShowEntry();
  QElapsedTimer watch;
  int row = 500;
  for (auto _ : state) {
    session.GoInEntry({row++, sheet_column::kLength});
    watch.start();
    PressInEntry(session, Qt::Key_9, QStringLiteral("9"), Qt::NoModifier, false);
    const qint64 digit = watch.nsecsElapsed();
    watch.start();
    PressInEntry(session, Qt::Key_Return, {}, Qt::NoModifier, true);
    const qint64 enter = watch.nsecsElapsed();
    NoteLeast(state, std::max(digit, enter));
  }
}
BENCHMARK_CAPTURE(KeyInEntryOf999, closed, SystemKind::kClosed)->Apply(RepeatFifty);
BENCHMARK_CAPTURE(KeyInEntryOf999, open, SystemKind::kOpen)->Apply(RepeatFifty);

enum class RowEnd { kInserted, kTakenBack };

// A row in the middle of the sheet; to take it back deletes it, without the question.
void RowInEntryOf999(benchmark::State& state, SystemKind kind, RowEnd timed) {
  StudyOf999 open(kind, 998);
  Session& session = open.session;
  session.ShowEntry();
  session.GoInEntry({500, sheet_column::kLength});
  QElapsedTimer watch;
  for (auto _ : state) {
    watch.start();
    PressInEntry(session, Qt::Key_Insert, {}, Qt::ControlModifier, true);
    if (timed == RowEnd::kInserted) NoteLeast(state, watch.nsecsElapsed());
    watch.start();
    PressInEntry(session, Qt::Key_Z, {}, Qt::ControlModifier, true);
    if (timed == RowEnd::kTakenBack) NoteLeast(state, watch.nsecsElapsed());
  }
}
BENCHMARK_CAPTURE(RowInEntryOf999, insert_closed, SystemKind::kClosed, RowEnd::kInserted)
    ->Apply(RepeatFifty);
BENCHMARK_CAPTURE(RowInEntryOf999, insert_open, SystemKind::kOpen, RowEnd::kInserted)
    ->Apply(RepeatFifty);
BENCHMARK_CAPTURE(RowInEntryOf999, remove_closed, SystemKind::kClosed, RowEnd::kTakenBack)
    ->Apply(RepeatFifty);
BENCHMARK_CAPTURE(RowInEntryOf999, remove_open, SystemKind::kOpen, RowEnd::kTakenBack)
    ->Apply(RepeatFifty);

/// The section form on row 500 of 999; it works on the rows themselves.
struct FormOf999 : StudyOf999 {
  explicit FormOf999(SystemKind kind, int sections = 999) : StudyOf999(kind, sections) {
    session.ShowForm();
    GoTo(500);
  }
  [[nodiscard]] FrmData& form() { return session.SectionForm(); }
  void GoTo(int row) {
    while (session.desk().bench.study.CurrentRow != row) {
      const bool back = session.desk().bench.study.CurrentRow > row;
      session.Press(screen::kSections, back ? Qt::Key_PageUp : Qt::Key_PageDown);
    }
    form().Focus(form().Txt2);
    session.Repaint();
  }
  void Press(int key, const QString& text = {}, Qt::KeyboardModifiers with = Qt::NoModifier) {
    session.Press(screen::kSections, key, text, with);
  }
  void Run(Command& command) {
    form().Run(command);
    session.Repaint();
  }
  [[nodiscard]] int rows() { return session.desk().bench.study.SectionCount; }
};

// A digit in the length, and the key of a tee; the slower of both counts.
void KeyInFormOf999(benchmark::State& state, SystemKind kind) {
  FormOf999 open(kind);
  QElapsedTimer watch;
  for (auto _ : state) {
    open.form().Focus(open.form().Txt2);
    open.session.Repaint();
    watch.start();
    open.Press(Qt::Key_9, QStringLiteral("9"));
    const qint64 digit = watch.nsecsElapsed();
    watch.start();
    open.Press(Qt::Key_C, QStringLiteral("C"), Qt::ShiftModifier);
    const qint64 tee = watch.nsecsElapsed();
    NoteLeast(state, std::max(digit, tee));
  }
}
BENCHMARK_CAPTURE(KeyInFormOf999, closed, SystemKind::kClosed)->Apply(RepeatFifty);
BENCHMARK_CAPTURE(KeyInFormOf999, open, SystemKind::kOpen)->Apply(RepeatFifty);

// From a changed row to the next.
void NextInFormOf999(benchmark::State& state, SystemKind kind) {
  FormOf999 open(kind);
  QElapsedTimer watch;
  for (auto _ : state) {
    open.Press(Qt::Key_8, QStringLiteral("8"));
    const std::string before = open.session.RowsOnDisk();
    watch.start();
    open.Press(Qt::Key_PageDown);
    NoteLeast(state, watch.nsecsElapsed());
    if (open.session.RowsOnDisk() == before) throw std::runtime_error("the row is not stored");
  }
}
BENCHMARK_CAPTURE(NextInFormOf999, closed, SystemKind::kClosed)->Apply(RepeatFifty);
BENCHMARK_CAPTURE(NextInFormOf999, open, SystemKind::kOpen)->Apply(RepeatFifty);

enum class FormDeed { kInsert, kUndo, kCancel };

// What copies files pauses, which does not count.
void RowInFormOf999(benchmark::State& state, FormDeed timed) {
  FormOf999 open(SystemKind::kClosed, 998);
  const auto time = [&](FormDeed deed, int pauses, const std::function<void()>& what, int rows) {
    QElapsedTimer watch;
    watch.start();
    what();
    if (deed == timed) Note(state, watch, pauses);
    if (open.rows() != rows) throw std::runtime_error("the rows are not as many");
  };
  const auto insert = [&] { open.Run(open.form().Cmd_Ins); };
  const auto undo = [&] { open.Press(Qt::Key_Z, {}, Qt::ControlModifier); };
  for (auto _ : state) {
    time(FormDeed::kInsert, 2, insert, 999);
    time(FormDeed::kCancel, 1, insert, 998);
    insert();
    time(FormDeed::kUndo, 0, undo, 998);
  }
}
BENCHMARK_CAPTURE(RowInFormOf999, insert, FormDeed::kInsert)->Apply(RepeatTen);
BENCHMARK_CAPTURE(RowInFormOf999, undo, FormDeed::kUndo)->Apply(RepeatTen);
BENCHMARK_CAPTURE(RowInFormOf999, cancel, FormDeed::kCancel)->Apply(RepeatTen);

// From the sheet to the form and back.
void SwitchOf999(benchmark::State& state) {
  StudyOf999 open;
  Session& session = open.session;
  session.ShowEntry();
  session.GoInEntry({500, sheet_column::kLength});
  QElapsedTimer watch;
  for (auto _ : state) {
    watch.start();
    session.Press(screen::kSheet, Qt::Key_F12, {}, Qt::ShiftModifier);
    session.Draw(screen::kSections);
    session.Press(screen::kSections, Qt::Key_F12, {}, Qt::ShiftModifier);
    session.Draw(screen::kSheet);
    Note(state, watch, 0);
  }
}
BENCHMARK(SwitchOf999)->Apply(RepeatTen);

// The sheet of sections in entry as a PDF, from its cells to the bytes of the file.
void PdfOf999(benchmark::State& state) {
  StudyOf999 open;
  Session& session = open.session;
  session.ShowEntry();
  QtPrinter printer;
  QElapsedTimer watch;
  for (auto _ : state) {
    watch.start();
    const PrintedTable table =
        SheetPages(session.Entry().fpSpread1, 999, session.desk().separators);
    const auto pdf = printer.MakePdf(table, "Printing");
    if (!pdf || !*pdf) throw std::runtime_error("no PDF was made");
    Note(state, watch, 0);
    state.counters["pages"] = static_cast<double>(table.pages.size());
    state.counters["KiB"] = static_cast<double>((*pdf)->size()) / 1024;
  }
}
BENCHMARK(PdfOf999)->Apply(RepeatTen);

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
