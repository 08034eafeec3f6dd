#include "results/frm_res.h"

#include <algorithm>
#include <cmath>

#include "engine/rerun.h"
#include "form/tell.h"
#include "results/critical_sections.h"
#include "results/diameter_prompt.h"
#include "results/diameter_roads.h"
#include "results/node_report.h"
#include "results/printing/print_study.h"
#include "results/result_notes.h"
#include "results/results_session.h"
#include "study/by_number.h"

namespace kalvo {
namespace {

constexpr std::size_t kRuleWidth = 52;

}  // namespace

FrmRes::FrmRes(Desk& shared_desk)
    : Form(shared_desk),
      CmdPump(*this, "CmdPump", "Αντλία", [this] { ShowPump(); }),
      CmdDiff(*this, "CmdDiff", "Δυσμεν. Κλαδος", [this] { ShowWorstBranch(); }),
      CmdExar(*this, "CmdExar", "Προμέτρηση", [this] { ShowBill(); }),
      CmdPrn(*this, "CmdPrn", "Εκτύπωση", [this] { Print(false); }, {Ctrl('P')}),
      Cmd_Nodes(*this, "Cmd_Nodes", " Έλεγχος Κόμβων Τμημάτων ",
                [this] { ShowNodeReport(desk, true); }),
      CmdChD(*this, "CmdChD", "Αλλαγή διαμέτρου",
             [this] { ChangeOneDiameter(desk, ChangeRoad::kButton); }),
      CmdNewD(*this, "CmdNewD", "Μαζική αλλαγή",
              [this] { ChangeManyDiameters(desk, ChangeRoad::kButton); }),
      CmdHelp(*this, "CmdHelp", "Βοήθεια πλήκτρων", [this] { ShowHelp(); }, {Plain(KeyCode::kF1)}),
      CmdFirst(*this, "CmdFirst", "Πρώτο Τμήμα", [this] { GoToRow(1); }, {Ctrl(KeyCode::kHome)}),
      CmdPrev(*this, "CmdPrev", "Προηγούμενο", [this] { GoToRow(bench.study.CurrentRow - 1); },
              {Plain(KeyCode::kPageUp)}),
      CmdNext(*this, "CmdNext", "Επόμενο", [this] { GoToRow(bench.study.CurrentRow + 1); },
              {Plain(KeyCode::kPageDown)}),
      CmdLast(*this, "CmdLast", "Τελευταίο", [this] { GoToRow(bench.study.SectionCount); },
              {Ctrl(KeyCode::kEnd)}),
      CmdGoTo(*this, "CmdGoTo", "Μετάβαση", [this] { ChooseRow(); }, {Plain(KeyCode::kF5)}),
      CmdBack(*this, "CmdBack", "Επιστροφή",
              [this] { GoBack(desk, screen::kResults, [this] { ShowRow(); }); },
              {Plain(KeyCode::kEscape)}),
      SSCommand1(
          *this, "SSCommand1", " ΕΜΦΑΝΙΣΗ ΤΩΝ ΣΩΛΗΝΩΝ, ΣΕ ΜΟΡΦΗ SpreadSheet ",
          [this] { ShowSheet(); }, OtherViewKeys()),
      CmdSound(*this, "CmdSound", "On-Off Ήχων", [this] { ChkSoundR.Set(!ChkSoundR.on); }),
      CmdChangeOne(*this, "CmdChangeOne", CmdChD.caption,
                   [this] { ChangeOneDiameter(desk, ChangeRoad::kMenu); }),
      CmdChangeMany(*this, "CmdChangeMany", CmdNewD.caption,
                    [this] { ChangeManyDiameters(desk, ChangeRoad::kMenu); }),
      CmdPrintResults(*this, "CmdPrintResults", "Εκτύπωση Αποτελεσμάτων", [this] { Print(true); }) {
  for (Field* field : {&TxtName, &TxtLength, &TxtNomiDiam, &TxtWaterFlow, &TxtVelocity,
                       &TxtTotalDrop, &TxtAvaiPres}) {
    field->locked = true;
  }
  LblCritical.tone = Tone::kCritical;
  ChkSoundR.on_toggle = [this] { desk.options.SoundOn = ChkSoundR.on; };
  BuildMenus();
}

FrmRes::~FrmRes() {
  if (desk.screens.diameter_view == this) desk.screens.diameter_view = nullptr;
}

void FrmRes::BuildMenus() {
  constexpr const char* kGoToCaption = "Πήγαινε (GoTo) στο Τμήμα με α/α ...";
  menus = {{"&Αποτελέσματα",
            {{"mnuResPres_First", CmdFirst.caption, &CmdFirst},
             {"mnuResPres_Prev", CmdPrev.caption, &CmdPrev},
             {"mnuResPres_Next", CmdNext.caption, &CmdNext},
             {"mnuResPres_Last", CmdLast.caption, &CmdLast},
             {"mnuResPres_GoTo", kGoToCaption, &CmdGoTo},
             {},
             {"mnuResPres_Pump", CmdPump.caption, &CmdPump},
             {"mnuResPresd_Dif", CmdDiff.caption, &CmdDiff},
             {"mnuResPres_Prom", CmdExar.caption, &CmdExar},
             {},
             {"mnuResPres_Sound", CmdSound.caption, &CmdSound},
             {},
             {"mnuResPres_Back", CmdBack.caption, &CmdBack}}},
           {"Αλλαγή &διαμέτρων",
            {{"mnuChangeDiam_One", CmdChangeOne.caption, &CmdChangeOne},
             {"mnuChangeDiam_Mass", CmdChangeMany.caption, &CmdChangeMany},
             {},
             {"mnuChangeDiam_Undo", changes.CmdUndo.caption, &changes.CmdUndo},
             {"mnuChangeDiam_Redo", changes.CmdRedo.caption, &changes.CmdRedo},
             {"mnuChangeDiam_Compare", changes.CmdCompare.caption, &changes.CmdCompare}}},
           {"&Εκτυπώσεις", {{"mnuPrinting_Res", CmdPrintResults.caption, &CmdPrintResults}}}};
  popup.entries = {{"mnuPUForm_First", CmdFirst.caption, &CmdFirst},
                   {"mnuPUForm_Prev", CmdPrev.caption, &CmdPrev},
                   {"mnuPUForm_Next", CmdNext.caption, &CmdNext},
                   {"mnuPUForm_Last", CmdLast.caption, &CmdLast},
                   {"mnuPUForm_GoTo", kGoToCaption, &CmdGoTo},
                   {},
                   {"mnuPUForm_Pump", CmdPump.caption, &CmdPump},
                   {"mnuPUForm_Diff", CmdDiff.caption, &CmdDiff},
                   {"mnuPUForm_Prom", CmdExar.caption, &CmdExar},
                   {},
                   {"mnuPUForm_ChCur", CmdChangeOne.caption, &CmdChangeOne},
                   {"mnuPUForm_ChMass", CmdChangeMany.caption, &CmdChangeMany},
                   {},
                   {"mnuPUForm_PrintR", CmdPrintResults.caption, &CmdPrintResults}};
}

void FrmRes::Load() {
  OpenView(desk);
  desk.navigator.Close(screen::kResultsSheet);
  desk.screens.diameter_view = this;
  const bool open = bench.study.SystemOpen();
  title = std::string("ΑΠΟΤΕΛΕΣΜΑΤΑ ΥΠΟΛΟΓΙΣΜΩΝ ΣΩΛΗΝΩΝ - < ") + (open ? "ΑΝΟΙΚΤΟ" : "ΚΛΕΙΣΤΟ") +
          " > ΣΥΣΤΗΜΑ ΣΩΛΗΝΩΝ";
  Cmd_Nodes.visible = !open;
  ClearRow();
  Focus(CmdNext);
  const auto rows = TakeResultRows(bench);
  if (!rows) {
    TellError(bench, rows.error());
    return;
  }
  frame.Take(desk, rows->front());
  ShowRow();
}

void FrmRes::Activate() { CountAsShown(desk); }

void FrmRes::Derive() {
  ChkSoundR.on = desk.options.SoundOn;
  Pipe.visible = !changes.LblChanges.visible;  // there is room for one of them
}

void FrmRes::ShowRow() {
  const auto rows = TakeResultRows(bench);
  if (!rows) {
    ClearRow();
    TellError(bench, rows.error());
    return;
  }
  const auto count = static_cast<int>(rows->size());
  const int number = std::clamp<int>(bench.study.CurrentRow, 1, count);
  bench.study.CurrentRow = static_cast<std::int16_t>(number);
  LblNumber.text = std::to_string(number);
  LblCount.text = std::to_string(count);
  const SectionRow& row = ByNumber(*rows, number);
  const auto first = bench.workspace.Rows(work_file::kFirstRows).ReadAll();
  ShowValues(row);
  ShowWas(row, first && number <= std::ssize(*first) ? &ByNumber(*first, number) : nullptr);
  ShowNotes(*rows, row);
  changes.Take(*rows, first ? std::optional(*first) : std::nullopt);
  // The list of diameters says so, although the row is shown as any other.
  const std::vector<bool> waiting = WaitingRows(bench.workspace, *rows);
  NoteDisplay(number, row, waiting[static_cast<std::size_t>(number) - 1]);
}

void FrmRes::ShowValues(const SectionRow& row) {
  const auto text = [this](float value) {
    return FormatPattern(value, pattern::kOneDecimal, desk.separators);
  };
  TxtName.Show(row.Name.Utf8());
  TxtLength.Show(text(row.Length));
  TxtNomiDiam.Show(row.NomiDiam.Utf8());
  TxtNomiDiam.tone = row.InDiameter < 0 ? Tone::kImposed : Tone::kCalculated;
  TxtWaterFlow.Show(text(row.WaterFlow));
  TxtVelocity.Show(text(row.Velocity));
  TxtTotalDrop.Show(text(row.TotalDrop));
  TxtAvaiPres.Show(text(std::fabs(row.AvaiPres)));
  const bool open = bench.study.SystemOpen();
  const std::string left = FromCodePage(Trim(LeftNode(row.Name)));
  const std::string right = FromCodePage(Trim(RightNode(row.Name)));
  Pipe.from = open ? right : left;
  Pipe.to = open ? left : right;
  ShowPipe();
}

void FrmRes::ShowPipe() {
  Pipe.caption =
      TxtLength.text + " m  ·  " + TxtNomiDiam.text + "  ·  " + TxtWaterFlow.text + " Lit/h";
}

void FrmRes::ShowReplaced(const SectionRow& row, bool waits) {
  TxtNomiDiam.Show(row.NomiDiam.Utf8());
  TxtNomiDiam.tone = waits ? Tone::kWaiting : Tone::kCalculated;
  LblWas.visible = waits;
  LblWas.text = "✎ αναμένει υπολογισμό";
  ShowPipe();
  NoteDisplay(number(), row, waits);
  changes.Refresh();
}

void FrmRes::BringToFront() {
  Focus(CmdNext);
  desk.navigator.Show(screen::kResults);
}

bool FrmRes::FirstKey(const Key& key) { return LeadsToOneDiameter(desk, key); }

void FrmRes::ShowWas(const SectionRow& row, const SectionRow* first) {
  LblWas.visible = row.InDiameter < 0;
  if (!LblWas.visible) return;
  LblWas.text = "✎ αλλαγμένη";
  if (first != nullptr && first->NomiDiam.Trimmed() != row.NomiDiam.Trimmed()) {
    LblWas.text += ", ήταν " + first->NomiDiam.Utf8();
  }
}

void FrmRes::ShowNotes(const std::vector<SectionRow>& rows, const SectionRow& row) {
  const auto critical = CriticalSections(bench.study.critical_branch, rows.size());
  LblCritical.visible = std::ranges::count(critical, bench.study.CurrentRow) != 0;
  const auto library = ReadPipeSystem(bench.workspace, bench.study.pipe_system_number);
  const ResultNotes notes =
      NotesOf(bench.study.system_kind, rows, library ? *library : std::vector<PipeRow>{});
  LblNotes.text = JoinLines(NoteLinesOf(notes, row.RecordNumber));
  LblNotes.visible = !LblNotes.text.empty();
}

void FrmRes::ClearRow() {
  for (Field* field : {&TxtName, &TxtLength, &TxtNomiDiam, &TxtWaterFlow, &TxtVelocity,
                       &TxtTotalDrop, &TxtAvaiPres}) {
    field->Show("");
  }
  TxtNomiDiam.tone = Tone::kCalculated;
  LblNumber.text.clear();
  LblCount.text.clear();
  Pipe.from = Pipe.to = Pipe.caption = "";
  LblCritical.visible = LblWas.visible = LblNotes.visible = false;
  NoteNothing();
}

void FrmRes::GoToRow(int number) {
  Study& study = bench.study;
  if (number < 1 || number > study.SectionCount || number == study.CurrentRow) return;
  study.CurrentRow = static_cast<std::int16_t>(number);
  ShowRow();
}

void FrmRes::ChooseRow() {
  ChooseResultRow(desk);
  ShowRow();
}

bool FrmRes::MayRun(bool goes_on_unchanged) {
  if (desk.screens.WinterPump) return true;  // a copy that an earlier session left is summer's
  const auto rows = TakeResultRows(bench);
  if (!rows) {
    TellError(bench, rows.error());
    return false;
  }
  const WaitingChange change = FindWaitingChange(bench, *rows);
  if (change != WaitingChange::kChanged) {
    return (change == WaitingChange::kNone || goes_on_unchanged) && ResultsHold(desk);
  }
  const PromptEnd end = AskAboutChange(desk, *rows);
  if (end == PromptEnd::kBroughtBack || end == PromptEnd::kFailed) ShowRow();
  return false;
}

bool FrmRes::MayCompare() {
  const auto waits = ChangeWaits(bench.workspace);
  return waits && *waits ? MayRun(true) : ResultsHold(desk);
}

void FrmRes::ShowWorstBranch() {
  if (MayRun(true)) ShowCriticalBranch(bench);
}

void FrmRes::ShowPump() {
  if (!MayRun(false)) return;
  desk.screens.ResultsLeft = true;
  desk.navigator.Close(screen::kPump);  // one that is open tells of the rows before
  desk.navigator.Show(screen::kPump);
}

void FrmRes::ShowBill() {
  if (MayRun(false)) desk.navigator.ShowModal(screen::kQuantities);
}

void FrmRes::Print(bool by_chosen_route) {
  if (!MayRun(false)) return;
  by_chosen_route ? PrintByChosenRoute(desk, ReportKind::kResults)
                  : PrintBySpreadsheet(desk, ReportKind::kResults);
}

void FrmRes::ShowHelp() {
  const std::string rule(kRuleWidth, '=');
  bench.Ask({" ... ΒΟΗΘΕΙΑ ΠΛΗΚΤΡΟΛΟΓΗΣΕΩΝ ...",
             {rule, "  ... < Ctrl+Home > ---> Πρώτη Καταχώρηση ...",
              "  ... < PgUp > ----------> Προηγούμενη Καταχώρηση ...",
              "  ... < PgDn > ----------> Επόμενη Καταχώρηση ...",
              "  ... < Ctrl+End > ------> Τελευταία Καταχώρηση ...",
              "  ... < F5 > ---------------> Πήγαινε (GoTo) στο Τμήμα με α/α ...",
              "  ... < Shift+F12 > ----> Αποτελέσματα σε μορφή Spreadsheet ...", rule},
             box_style::kInformation,
             kAlarmBeeps});
}

void FrmRes::ShowSheet() {
  if (!MaySwitchViews(desk)) return;
  const auto ran = RerunWaitingChange(desk);
  if (!ran) return;
  if (*ran && bench.study.recalculation_needed) {
    ShowRow();  // its diameters have no results that another view could show
    return;
  }
  desk.screens.results_view = ResultsView::kSheet;
  desk.navigator.Show(screen::kResultsSheet);
}

bool FrmRes::MayClose() {
  if (desk.screens.results_view == ResultsView::kSheet) return true;
  desk.screens.ResultsLeft = !desk.screens.WinterPump;
  LeaveByWindow(desk);
  return true;
}

}  // namespace kalvo
