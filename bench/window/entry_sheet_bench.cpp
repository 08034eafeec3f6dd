// The sheet of sections in entry, on the screen and on paper.

#include "bench/window/session.h"
#include "desktop/qt_printer.h"
#include "entry/sections/sheet_columns.h"
#include "entry/sheet/sheet_pages.h"

namespace kalvo {
namespace {

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

}  // namespace
}  // namespace kalvo
