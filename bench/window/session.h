#pragma once

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
#include "desktop/program.h"
#include "engine/calculation_command.h"
#include "entry/section_form/frm_data.h"
#include "entry/sheet/frm_data_sheet.h"
#include "entry/winter/frm_winter.h"
#include "shell/study_dialogs.h"
#include "study/study_extensions.h"

namespace kalvo {

inline constexpr double kMillisecondsOfPause = 100;

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
  [[nodiscard]] Form& FormOf(std::string_view screen) { return *program_.windows().FormOf(screen); }
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

inline double ResidentMiB() {
  std::ifstream statm("/proc/self/statm");
  long total = 0;
  long resident = 0;
  statm >> total >> resident;
  return static_cast<double>(resident * sysconf(_SC_PAGESIZE)) / (1024.0 * 1024.0);
}

// The time of the clock, and what is left of it without the pauses that copying files takes.
inline void Note(benchmark::State& state, const QElapsedTimer& watch, int pauses) {
  const double ms = static_cast<double>(watch.nsecsElapsed()) * 1e-6;
  state.SetIterationTime(ms * 1e-3);
  state.counters["without_pauses_ms"] = ms - pauses * kMillisecondsOfPause;
}

inline void RepeatTen(benchmark::internal::Benchmark* benchmark) {
  ShowLeast(
      benchmark->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(1)->Repetitions(10));
}

// The time of one run of many in a window; the counter is the least of them, as where nobody else
// uses the machine.
inline void NoteLeast(benchmark::State& state, qint64 nanoseconds) {
  const double ms = static_cast<double>(nanoseconds) * 1e-6;
  state.SetIterationTime(ms * 1e-3);
  double& least = state.counters["least_ms"].value;
  least = least == 0 ? ms : std::min(least, ms);
}

// For what goes on in one window.
inline void RepeatFifty(benchmark::internal::Benchmark* benchmark) {
  benchmark->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(50);
}

}  // namespace kalvo
