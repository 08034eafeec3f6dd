#include "results/frm_res_sheet.h"

#include <algorithm>

#include "engine/lost_walk.h"
#include "engine/winter.h"
#include "form/tell.h"
#include "results/critical_sections.h"
#include "results/diameter_roads.h"
#include "results/node_report.h"
#include "results/printing/print_study.h"
#include "results/result_notes.h"
#include "results/result_table.h"
#include "results/results_session.h"

namespace kalvo {
FrmRes_Sheet::FrmRes_Sheet(Desk& shared_desk)
    : Form(shared_desk),
      CmdDiff(*this, "CmdDiff", "Δυσμεν. Κλαδος",
              [this] {
                if (ResultsHold(desk)) ShowCriticalBranch(bench);
              }),
      Cmd_Nodes(*this, "Cmd_Nodes", " Έλεγχος Κόμβων Τμημάτων ",
                [this] { ShowNodeReport(desk, true); }),
      CmdExar(*this, "CmdExar", "Προμέτρηση",
              [this] {
                if (ResultsHold(desk)) desk.navigator.ShowModal(screen::kQuantities);
              }),
      CmdPrn(*this, "CmdPrn", "Εκτύπωση",
             [this] {
               if (ResultsHold(desk)) PrintBySpreadsheet(desk, ReportKind::kResults);
             },
             {Ctrl('P')}),
      CmdChD(*this, "CmdChD", "Αλλαγή διαμέτρου",
             [this] { ChangeOneDiameter(desk, ChangeRoad::kButton); }),
      CmdNewD(*this, "CmdNewD", "Μαζική αλλαγή",
              [this] { ChangeManyDiameters(desk, ChangeRoad::kButton); }),
      Cmd_Headers(*this, "Cmd_Headers", " Επαναφορά Πλάτους Στηλών ",
                  [this] { fpSpread1.RestoreWidths(); }),
      Cmd_Back(*this, "Cmd_Back", " Επιστροφή στο Βασικό Menu ",
               [this] { GoBack(desk, screen::kResultsSheet, [this] { ShowAgain(); }); },
               {Plain(KeyCode::kEscape)}),
      SSCommand1(
          *this, "SSCommand1", " ΕΜΦΑΝΙΣΗ ΕΝΟΣ ΤΜΗΜΑΤΟΣ ΣΩΛΗΝΟΣ, ΑΝΑ ΦΟΡΜΑ ", [this] { ShowOne(); },
          OtherViewKeys()) {
  ChkCritical.on = true;
  ChkCritical.on_toggle = [this] { MarkCritical(); };
  fpSpread1.row_noun = "Τμήμα";
  fpSpread1.mark_name = "δυσμενέστερος κλάδος";
  fpSpread1.on_move = [this] { FollowCurrent(); };
  ChainCritical.caption = "Δυσμενέστερος κλάδος";
  ChainCritical.on_pick = [this](int stretch) {
    if (stretch >= 0 && stretch < std::ssize(critical_)) {
      GoTo(critical_[static_cast<std::size_t>(stretch)]);
    }
  };
}

FrmRes_Sheet::~FrmRes_Sheet() {
  if (desk.screens.diameter_view == this) desk.screens.diameter_view = nullptr;
}

void FrmRes_Sheet::Load() {
  OpenView(desk);
  desk.screens.diameter_view = this;
  desk.screens.results_view = ResultsView::kSheet;
  desk.navigator.Close(screen::kResults);
  const bool open = bench.study.SystemOpen();
  title = std::string("ΣΥΓΚΕΝΤΡΩΤΙΚΑ ΑΠΟΤΕΛΕΣΜΑΤΑ ΥΠΟΛΟΓΙΣΜΩΝ ΣΩΛΗΝΩΝ - < ") +
          (open ? "ΑΝΟΙΚΤΟ" : "ΚΛΕΙΣΤΟ") + " > ΣΥΣΤΗΜΑ";
  Cmd_Nodes.visible = !open;
  ShowRows();
  Focus(fpSpread1);
}

void FrmRes_Sheet::Activate() { CountAsShown(desk); }

void FrmRes_Sheet::ShowRows() {
  auto rows = TakeResultRows(bench);
  if (!rows) {
    TakeRows({});
    TellError(bench, rows.error());
    return;
  }
  frame.Take(desk, rows->front());
  TakeRows(*std::move(rows));
}

void FrmRes_Sheet::ShowAgain() {
  ShowRows();
  if (!rows_.empty()) frame.TakePump(desk, rows_.front());
}

void FrmRes_Sheet::TakeRows(std::vector<SectionRow> rows) {
  rows_ = std::move(rows);
  const Study& study = bench.study;
  const auto library = ReadPipeSystem(bench.workspace, study.pipe_system_number);
  notes_ = NotesOf(study.system_kind, rows_, library ? *library : std::vector<PipeRow>{});
  spares_ = study.SystemOpen() ? SparesOf(rows_) : std::vector<OutletSpare>{};
  critical_ = CriticalSections(study.critical_branch, rows_.size());
  if (!rows_.empty()) {
    const float temperature = rows_.front().MeanTemp;
    explainer_ = DropExplainer(
        bench, desk.screens.WinterPump ? WinterFluidTemperature(temperature) : temperature);
  }
  LblCount.text = std::to_string(rows_.size());
  std::vector<std::string> lines = NoteLines(notes_);
  if (const auto lost = FindLostWalk(study)) {
    lines.insert(lines.begin(), LostWalkNote(study, *lost));
  }
  LblNotes.text = JoinLines(lines);
  LblNotes.visible = !LblNotes.text.empty();
  FillTable();
  FollowCurrent();
}

void FrmRes_Sheet::FillTable() {
  const auto count = static_cast<int>(rows_.size());
  if (fpSpread1.row_count() != count || fpSpread1.column_count() == 0) {
    fpSpread1.Reset(ResultColumns(), count);
  }
  const auto first = bench.workspace.Rows(work_file::kFirstRows).ReadAll();
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    const SectionRow* before = first && i < first->size() ? &(*first)[i] : nullptr;
    FillResultRow(fpSpread1, static_cast<int>(i), rows_[i], before,
                  NoteLinesOf(notes_, rows_[i].RecordNumber), desk.separators);
  }
  MarkCritical();
  changes.Take(rows_, first ? std::optional(*first) : std::nullopt);
}

void FrmRes_Sheet::MarkCritical() {
  for (int row = 0; row < fpSpread1.row_count(); ++row) {
    fpSpread1.Mark(row, false);
  }
  if (!ChkCritical.on) return;
  for (const int section : critical_) {
    fpSpread1.Mark(section - 1, true);
  }
}

void FrmRes_Sheet::ShowBranch() {
  ChainCritical.nodes = NodesAlong(bench.study.system_kind, rows_, critical_);
  ChainCritical.visible = !critical_.empty();
  if (!rows_.empty()) {
    ChainCritical.total =
        FormatPattern(rows_.front().DP, pattern::kOneDecimal, desk.separators) + " mm w.g.";
  }
  const auto current = std::ranges::find(critical_, bench.study.CurrentRow);
  ChainCritical.current =
      current == critical_.end() ? -1 : static_cast<int>(current - critical_.begin());
}

void FrmRes_Sheet::FollowCurrent() {
  if (rows_.empty()) {
    panel.Clear();
    ShowBranch();
    NoteNothing();
    return;
  }
  const auto at = static_cast<std::size_t>(fpSpread1.current().row);
  bench.study.CurrentRow = static_cast<std::int16_t>(at + 1);
  const SectionRow& row = rows_[at];
  const auto spare = std::ranges::find(spares_, row.RecordNumber, &OutletSpare::section);
  panel.Show(row, explainer_.Explain(row),
             spare == spares_.end() ? std::nullopt : std::optional(spare->spare), desk.separators);
  ShowBranch();
  NoteDisplay(bench.study.CurrentRow, row);
}

void FrmRes_Sheet::ShowReplaced(const SectionRow& row, bool waits) {
  ShowReplacedDiameter(fpSpread1, number() - 1, row, waits);
  NoteDisplay(number(), row, waits);
  changes.Refresh();
}

void FrmRes_Sheet::GoTo(int number) {
  fpSpread1.SetCurrent({number - 1, fpSpread1.current().column});
  FollowCurrent();
}

void FrmRes_Sheet::BringToFront() {
  Focus(fpSpread1);
  desk.navigator.Show(screen::kResultsSheet);
}

bool FrmRes_Sheet::FirstKey(const Key& key) { return LeadsToOneDiameter(desk, key); }

bool FrmRes_Sheet::OtherKey(const Key& key) { return key == Plain(KeyCode::kF1); }

void FrmRes_Sheet::ShowOne() {
  if (!MaySwitchViews(desk)) return;
  desk.screens.results_view = ResultsView::kOneFromSheet;
  desk.navigator.Show(screen::kResults);
}

bool FrmRes_Sheet::MayClose() {
  Run(Cmd_Back);
  return false;
}

}  // namespace kalvo
