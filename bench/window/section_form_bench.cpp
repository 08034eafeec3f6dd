// The section form, and the switch between it and the sheet.

#include "bench/window/session.h"
#include "entry/sections/sheet_columns.h"

namespace kalvo {
namespace {

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

}  // namespace
}  // namespace kalvo
