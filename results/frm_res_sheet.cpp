#include "results/frm_res_sheet.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "engine/explain.h"
#include "engine/trap.h"
#include "form/tell.h"
#include "results/drop_panel.h"
#include "results/node_report.h"
#include "results/pump_frame.h"
#include "results/results_session.h"
#include "study/codepage.h"
#include "study/fault.h"

namespace kalvo {
namespace {

constexpr double kPascalPerMillimetre = 9.80665;

std::vector<GridColumn> Columns() {
  return {{"ΟΝΟΜΑ-\nΣΙΑ\nΤΜΗΜΑ-\nΤΟΣ", 8, false, true},
          {"ΜΗΚΟΣ\nΤΜΗΜΑ-\nΤΟΣ\n[m]", 7, true, true},
          {"ΟΝΟΜΑΣΤΙΚΗ\nΔΙΑΜΕΤΡΟΣ", 12, true, true, true},
          {"ΠΑΡΟΧΗ\n[Lit/h]", 10},
          {"ΤΑΧΥΤΗ-\nΤΑ\n[m/sec]", 8},
          {"ΠΤΩΣΗ\nΠΙΕΣΗΣ\nmm w.g.]", 9},
          {"ΔΙΑΘΕΣΙΜΗ\nΠΙΕΣΗ\n[mm w.g.]", 10}};
}

// Section numbers of a branch's text: cells of three characters and a "-".
std::vector<int> NumbersOf(std::string_view branch) {
  std::vector<int> numbers;
  while (!branch.empty()) {
    const std::size_t end = std::min(branch.find('-'), branch.size());
    const std::string_view cell = Trim(branch.substr(0, end));
    int number = 0;
    if (std::from_chars(cell.data(), cell.data() + cell.size(), number).ec == std::errc()) {
      numbers.push_back(number);
    }
    branch.remove_prefix(std::min(end + 1, branch.size()));
  }
  return numbers;
}

std::string FirstNode(const SectionRow& row) {
  return std::string(Trim(FromCodePage(row.Name.bytes().substr(0, 3))));
}

std::string LastNode(const SectionRow& row) {
  return std::string(Trim(FromCodePage(row.Name.bytes().substr(4, 3))));
}

}  // namespace

FrmRes_Sheet::FrmRes_Sheet(Desk& shared_desk)
    : Form(shared_desk),
      CmdDiff(*this, "CmdDiff", "Δυσμεν. Κλαδος", [this] { ShowCriticalBranch(desk); },
              {Ctrl('D')}),
      Cmd_Nodes(*this, "Cmd_Nodes", " Έλεγχος Κόμβων Τμημάτων ",
                [this] { ShowNodeReport(desk, true); }, {Ctrl('K')}),
      Cmd_Headers(*this, "Cmd_Headers", " Επαναφορά Πλάτους Στηλών ",
                  [this] { fpSpread1.RestoreWidths(); }, {Ctrl('W')}),
      Cmd_Back(*this, "Cmd_Back", " Επιστροφή στο Βασικό Menu ", [this] { Back(); },
               {Plain(KeyCode::kEscape)}) {
  ChkCritical.on = true;
  ChkCritical.on_toggle = [this] { MarkBranch(); };
  fpSpread1.on_move = [this] { Explain(); };
}

void FrmRes_Sheet::Load() {
  title = bench.study.SystemOpen()
              ? "ΣΥΓΚΕΝΤΡΩΤΙΚΑ ΑΠΟΤΕΛΕΣΜΑΤΑ ΥΠΟΛΟΓΙΣΜΩΝ ΣΩΛΗΝΩΝ - < ΑΝΟΙΚΤΟ > ΣΥΣΤΗΜΑ"
              : "ΣΥΓΚΕΝΤΡΩΤΙΚΑ ΑΠΟΤΕΛΕΣΜΑΤΑ ΥΠΟΛΟΓΙΣΜΩΝ ΣΩΛΗΝΩΝ - < ΚΛΕΙΣΤΟ > ΣΥΣΤΗΜΑ";
  desk.screens.results_view = ResultsView::kSheet;
  if (!TellIfFailed(bench, BeginResults(desk))) return;
  Fill();
  Focus(fpSpread1);
}

void FrmRes_Sheet::Fill() {
  auto rows = bench.workspace.Rows().ReadAll();
  if (!rows) {
    TellError(bench, rows.error());
    return;
  }
  rows_ = std::move(*rows);
  ShowFrame();
  fpSpread1.Reset(Columns(), static_cast<int>(rows_.size()));
  for (const SectionRow& row : rows_) {
    FillRow(row);
  }
  conditions_.reset();
  RunTrapped(bench, [this] { conditions_ = LoadPassConditions(bench); });
  bench.study.CalcStatus = calc_status::kNothing;
  ShowBranch();
  ShowNotes();
  explained_ = -1;
  Explain();
}

void FrmRes_Sheet::ShowFrame() {
  const auto frame = ReadPumpFrame(desk);
  if (!frame) {
    TellError(bench, frame.error());
    return;
  }
  LblThema.text = frame->title;
  LblLiquid.text = frame->liquid;
  LblFlow.text = frame->flow;
  LblHead.text = frame->head;
  LblMeanTemp.text = frame->temperature;
  LblMeanVel.text = frame->velocity;
  LblPipes.text = frame->pipes;
  LblCount.text = std::to_string(rows_.size());
}

void FrmRes_Sheet::FillRow(const SectionRow& row) {
  const Separators separators = desk.separators;
  const int at = row.RecordNumber - 1;
  int column = 0;
  const auto text = [&](std::string shown, Tone tone = Tone::kPlain) {
    fpSpread1.Set(at, column++, {std::move(shown), tone});
  };
  const auto number = [&](float value, std::string tip = {}) {
    fpSpread1.Set(
        at, column++,
        {FormatPattern(value, "#,##0.0", separators), Tone::kPlain, value, std::move(tip)});
  };
  const auto in_kpa = [&](float drop) {
    return FormatPattern(drop * kPascalPerMillimetre / 1000, "#,##0.00", separators) + " kPa";
  };
  const float available = std::fabs(row.AvaiPres);
  text(FromCodePage(row.Name.Trimmed()));
  number(row.Length);
  text(row.NomiDiam.Utf8(), row.InDiameter < 0 ? Tone::kImposed : Tone::kCalculated);
  number(row.WaterFlow);
  number(row.Velocity);
  number(row.TotalDrop,
         in_kpa(row.TotalDrop) + ", R = " +
             FormatPattern(row.FrictionRate * kPascalPerMillimetre, "#,##0.0", separators) +
             " Pa/m");
  number(available, in_kpa(available));
}

void FrmRes_Sheet::ShowBranch() {
  branch_ = NumbersOf(bench.study.critical_branch);
  std::erase_if(branch_, [this](int number) {
    return number < 1 || number > static_cast<int>(rows_.size());
  });
  BranchOfCritical.caption = "Δυσμενέστερος κλάδος";
  BranchOfCritical.nodes.clear();
  const bool open = bench.study.SystemOpen();
  for (const int number : branch_) {
    const SectionRow& row = rows_[static_cast<std::size_t>(number) - 1];
    if (BranchOfCritical.nodes.empty()) {
      BranchOfCritical.nodes.push_back(open ? "ANT" : FirstNode(row));
    }
    BranchOfCritical.nodes.push_back(open ? FirstNode(row) : LastNode(row));
  }
  BranchOfCritical.total =
      rows_.empty() ? std::string()
                    : FormatPattern(rows_.front().DP, "#,##0.0", desk.separators) + " mm w.g.";
  MarkBranch();
}

void FrmRes_Sheet::MarkBranch() {
  for (int row = 0; row < fpSpread1.row_count(); ++row) {
    fpSpread1.Mark(row, ChkCritical.on && std::ranges::count(branch_, row + 1) != 0);
  }
}

void FrmRes_Sheet::ShowNotes() {
  LblNotes.text.clear();
  if (!conditions_) return;
  const ResultNotes notes = NotesOf(bench.study.system_kind, rows_, conditions_->library);
  const auto tell = [this](std::string_view what, const std::vector<int>& sections) {
    if (sections.empty()) return;
    LblNotes.text +=
        (LblNotes.text.empty() ? "" : "\n") + std::string(what) + " : " + NumberRanges(sections);
  };
  tell("Τμήματα πάνω από την Μέση Ταχύτητα", notes.above_design_velocity);
  tell("Τμήματα με τη μεγαλύτερη διάμετρο του συστήματος", notes.on_largest_pipe);
  tell("Τμήματα με αρνητική πτώση (μείωση διαμέτρου)", notes.negative_drop);
  tell("Υποδοχείς που χρειάζονται περισσότερα από όσα δίνει η αντλία", notes.outlets_in_need);
  tell("Τμήματα πριν από τον τροφοδότη τους", notes.before_feeder);
}

const SectionRow* FrmRes_Sheet::CurrentSection() const {
  const auto row = static_cast<std::size_t>(fpSpread1.current().row);
  return row < rows_.size() ? &rows_[row] : nullptr;
}

void FrmRes_Sheet::Explain() {
  const SectionRow* row = CurrentSection();
  if (row == nullptr || explained_ == row->RecordNumber) return;
  explained_ = row->RecordNumber;
  bench.study.CurrentRow = row->RecordNumber;
  LblSection.text =
      "Τμήμα " + std::to_string(row->RecordNumber) + "   " + FromCodePage(row->Name.Trimmed());
  const auto place = std::ranges::find(branch_, explained_);
  BranchOfCritical.current =
      place == branch_.end() ? -1 : static_cast<int>(place - branch_.begin());
  SectionSteps.lines.clear();
  DropShares.parts.clear();
  LblUnexplained.text.clear();
  if (!conditions_) {
    LblUnexplained.text = "Δεν βρέθηκε το υγρό ή το σύστημα σωλήνων της μελέτης.";
    return;
  }
  try {
    const DropExplanation explanation = ExplainRow(bench.study.system_kind, *row, *conditions_);
    SectionSteps.lines = PanelSteps(explanation, desk.separators);
    DropShares.caption = "Από τι αποτελείται, σε mm w.g.";
    DropShares.parts = PanelShares(explanation, desk.separators);
    if (!explanation.Agrees()) LblUnexplained.text = "Η πτώση της γραμμής είναι άλλη.";
  } catch (const Fault&) {
    LblUnexplained.text = "Το τμήμα δεν έχει υπολογιστεί.";
  }
}

void FrmRes_Sheet::Derive() {
  Cmd_Nodes.visible = bench.study.SystemClosed();
  LblNotes.visible = !LblNotes.text.empty();
  LblUnexplained.visible = !LblUnexplained.text.empty();
}

void FrmRes_Sheet::Back() {
  LeaveResults(desk, [this] { Fill(); });
  desk.navigator.Close(screen::kResultsSheet);
}

bool FrmRes_Sheet::MayClose() {
  Back();
  return false;
}

bool FrmRes_Sheet::OtherKey(const Key& key) { return key == Plain(KeyCode::kF1); }

}  // namespace kalvo
