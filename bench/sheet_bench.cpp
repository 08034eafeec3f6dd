// The entry of sections without its window: a sheet of 999 rows, and what it costs to undo.

#include <malloc.h>

#include <random>
#include <stdexcept>
#include <string>

#include "bench/bench_program.h"
#include "bench/building_network.h"
#include "bench/repeated.h"
#include "bench/supply_network.h"
#include "entry/sections/draft_rows.h"
#include "entry/sections/sheet_columns.h"
#include "entry/sections/sheet_paste.h"
#include "study/kept_sheet.h"
#include "study/real_disk.h"
#include "study/sheet_file.h"
#include "study/work_files.h"

namespace kalvo {
namespace {

constexpr int kSheetRows = kMostSections;
constexpr Separators kGreek{',', '.'};
constexpr GridBlock kWholeSheet{0, 0, kSheetRows - 1, kSheetColumns - 1};

std::vector<SectionRow> RowsOf(SystemKind kind) {
  return kind == SystemKind::kOpen ? SupplyStudy(kSheetRows) : BuildingStudy(kSheetRows);
}

SectionDraft DraftOf(const std::vector<SectionRow>& rows, SystemKind kind) {
  SectionDraft draft;
  draft.Begin(ImageOfRows(rows, kind, kGreek));
  return draft;
}

void SheetAndBack(benchmark::State& state) {
  const std::vector<SectionRow> rows = RowsOf(SystemKind::kClosed);
  Study study;
  study.system_kind = SystemKind::kClosed;
  const DraftBase base = BaseOf(study, rows);
  for ([[maybe_unused]] auto step : state) {
    const SectionDraft draft = DraftOf(rows, SystemKind::kClosed);
    if (RowsOfDraft(draft, base, study, kGreek).rows.size() != rows.size()) {
      throw std::runtime_error("rows are lost");
    }
  }
}
BENCHMARK(SheetAndBack)->Apply(RepeatMs);

void Paste(SectionDraft& draft, std::string_view text, const GridBlock& target) {
  const PastePlan plan = PlanPaste(CellsOf(text), target, kMostSections, kGreek, false);
  const SectionDraft::Action action(draft, "Επικόλληση", {target.top, target.left});
  for (const CellText& cell : plan.cells) {
    draft.Set(cell.row, cell.column, cell.text);
  }
}

/// A sheet, and the text of one to paste over it that says something else in every cell.
struct SheetAndText {
  SheetAndText() {
    SheetImage image = ImageOfRows(RowsOf(SystemKind::kClosed), SystemKind::kClosed, kGreek);
    draft.Begin(image);
    text = BlockText(draft, {kWholeSheet});
    for (SheetRow& row : image.rows) {
      row.texts.fill("4321");
    }
    draft.Begin(std::move(image));
  }
  void PasteAll() {
    Paste(draft, text, kWholeSheet);
    if (draft.history().ToUndo().changes.size() != kSheetRows * (kSheetColumns - 1)) {
      throw std::runtime_error("a cell was passed over");
    }
  }
  void Undo() {
    if (!draft.Undo()) throw std::runtime_error("nothing was pasted");
  }
  SectionDraft draft;
  std::string text;
};

void SheetPaste(benchmark::State& state) {
  SheetAndText sheet;
  for ([[maybe_unused]] auto step : state) {
    sheet.PasteAll();
    state.PauseTiming();
    sheet.Undo();
    state.ResumeTiming();
  }
}
BENCHMARK(SheetPaste)->Apply(RepeatMs);

void SheetUndoOfPaste(benchmark::State& state) {
  SheetAndText sheet;
  for ([[maybe_unused]] auto step : state) {
    state.PauseTiming();
    sheet.PasteAll();
    state.ResumeTiming();
    sheet.Undo();
  }
}
BENCHMARK(SheetUndoOfPaste)->Apply(RepeatMs);

// The sheet as it keeps itself while it is typed into, on the machine's disk.
void SheetKept(benchmark::State& state) {
  const TemporaryFolder folder;
  RealDisk disk;
  NoWait clock;
  Workspace workspace(disk, folder.path(), disk, folder.path(), clock);
  Study study;
  study.system_kind = SystemKind::kClosed;
  const SectionDraft draft = DraftOf(RowsOf(study.system_kind), study.system_kind);
  for ([[maybe_unused]] auto step : state) {
    std::string bytes = EncodeSheet(draft.Image(), kGreek.decimal);
    if (!KeepSheet(workspace, study, work_file::kSheetInWork, std::move(bytes))) {
      throw std::runtime_error("the sheet is not kept");
    }
  }
}
BENCHMARK(SheetKept)->Apply(RepeatMs);

/// A user who types, inserts, deletes and pastes for days.
class Clerk {
 public:
  explicit Clerk(SectionDraft& draft) : draft_(draft) {}

  void Act() {
    const int row = Below(draft_.Count());
    switch (Below(10)) {
      case 0:
        if (draft_.Count() == kSheetRows) return Delete(row);
        return Insert(row);
      case 1:
        return Delete(row);
      case 2:
        return Paste(draft_, "12,5\t1\t2\t0\n7,25\t3\t0\t1\n" + std::to_string(Below(99)) + "\t1",
                     {row, sheet_column::kLength, row, sheet_column::kLength});
      default:
        return Type(row);
    }
  }

 private:
  int Below(int n) { return static_cast<int>(random_() % static_cast<unsigned>(n)); }

  void Insert(int row) {
    const SectionDraft::Action action(draft_, "Παρεμβολή σειράς", {row, 0});
    draft_.InsertRows(row, 1);
  }
  void Delete(int row) {
    const SectionDraft::Action action(draft_, "Διαγραφή σειράς", {row, 0});
    draft_.RemoveRows(row, 1);
  }
  void Type(int row) {
    const int column = sheet_column::kLength + Below(kSheetColumns - sheet_column::kLength);
    const SectionDraft::Action action(draft_, "Καταχώρηση", {row, column});
    draft_.Set(row, column, std::to_string(1 + Below(200)));
  }

  SectionDraft& draft_;
  std::mt19937 random_{20'000};
};

int UndoAll(SectionDraft& draft) {
  int steps = 0;
  while (draft.Undo()) ++steps;
  return steps;
}

double HeapMiB() {
  const struct mallinfo2 heap = mallinfo2();
  return static_cast<double>(heap.uordblks + heap.hblkhd) / (1024.0 * 1024.0);
}

// Memory of the steps that can be undone; the time is that of doing and undoing them all.
void SheetHistory(benchmark::State& state) {
  constexpr int kSteps = 20'000;
  const auto kind = SystemKind::kOpen;
  for ([[maybe_unused]] auto step : state) {
    SectionDraft draft = DraftOf(RowsOf(kind), kind);
    Clerk clerk(draft);
    const double before = HeapMiB();
    // A cell typed as it was is no step.
    for (int made = 0; made < kSteps;) {
      const int revision = draft.revision();
      clerk.Act();
      made += draft.revision() != revision ? 1 : 0;
    }
    state.counters["MiB"] = HeapMiB() - before;
    if (UndoAll(draft) != kSteps) throw std::runtime_error("steps are lost");
  }
}
BENCHMARK(SheetHistory)->Unit(benchmark::kMillisecond)->Iterations(1);

}  // namespace
}  // namespace kalvo
