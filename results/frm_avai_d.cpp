#include "results/frm_avai_d.h"

#include <algorithm>

#include "form/tell.h"
#include "form/wait.h"
#include "results/diameter_roads.h"
#include "results/library_pipes.h"
#include "results/results_session.h"
#include "study/numeric_text.h"

namespace kalvo {
namespace {

enum PipeColumn { kNominal, kInner, kNow };

constexpr int kLeastRows = 27;
constexpr int kWidth = 11;
constexpr int kNowWidth = 5;
constexpr const char* kNowText = "τώρα";
constexpr const char* kAtOnce = "Η αντικατάσταση υπολογίζει αμέσως το δίκτυο.";
constexpr const char* kWaits = "Η αντικατάσταση αναμένει υπολογισμό.";

std::vector<GridColumn> PipeColumns() {
  return {CentredColumn("ΟΝΟΜΑΣΤΙΚΗ", kWidth), CentredColumn("ΕΣΩΤΕΡΙΚΗ\n[mm]", kWidth),
          CentredColumn("", kNowWidth)};
}

std::string NowLine(const DiameterView& view, Separators separators) {
  const std::string now = "Τώρα " + view.row().NomiDiam.Utf8();
  if (view.waits()) return now + ", αναμένει υπολογισμό.";
  return now + ", ταχύτητα " +
         FormatPattern(view.row().Velocity, pattern::kOneDecimal, separators) + " m/sec.";
}

}  // namespace

FrmAvaiD::FrmAvaiD(Desk& shared_desk)
    : Form(shared_desk),
      Cmd_Close(*this, "Cmd_Close", "Κλείσιμο", [this] { Close(); }, {Plain(KeyCode::kEscape)}),
      CmdReplace(*this, "CmdReplace", "Αντικατάσταση", [this] { Replace(); },
                 {Plain(KeyCode::kEnter)}),
      CmdUndo(*this, "CmdUndo", "Αναίρεση", [this] { Take(HistoryStep::kUndo); }, {Ctrl('Z')}),
      CmdRedo(*this, "CmdRedo", "Ξανά", [this] { Take(HistoryStep::kRedo); }, {Ctrl('Y')}) {
  title = " Διαθέσιμες Διάμετροι ";
  Cmd_Close.sounds_itself = true;  // as it does wherever else it is closed from
  fpSpread1.row_noun = "Διάμετρος";
  fpSpread1.sortable = false;
  // Letters and digits look for a name.
  fpSpread1.on_move = [this] { fpSpread1.SetCurrent({fpSpread1.current().row, kNominal}); };
  fpSpread1.on_activate = [this] { Run(CmdReplace); };
  menus = {{"&Ενέργειες",
            {{"mnuActs_Change", CmdReplace.caption, &CmdReplace},
             {"mnuActs_Undo", CmdUndo.caption, &CmdUndo},
             {"mnuActs_Redo", CmdRedo.caption, &CmdRedo},
             {},
             {"mnuActs_Close", Cmd_Close.caption, &Cmd_Close}}}};
}

void FrmAvaiD::Load() {
  fpSpread1.Reset(PipeColumns(), kLeastRows);
  Focus(fpSpread1);
  auto pipes = ReadPipeSystem(bench.workspace, bench.study.pipe_system_number);
  if (!pipes) {
    TellError(bench, pipes.error());
    return;
  }
  if (desk.screens.diameter_view == nullptr) return;
  TakeLibrary(*std::move(pipes));
  Follow(*desk.screens.diameter_view);
  desk.screens.ChangeFormOpen = true;
}

void FrmAvaiD::Activate() {
  if (!desk.screens.ChangeFormOpen) desk.navigator.Close(screen::kOneDiameter);
}

bool FrmAvaiD::MayClose() {
  Run(Cmd_Close);
  return false;
}

bool FrmAvaiD::FirstKey(const Key& key) {
  const bool to_end = key == Plain(KeyCode::kEnd);
  if (to_end || key == Plain(KeyCode::kHome)) {
    fpSpread1.SetCurrent({to_end ? static_cast<int>(pipes_.size()) - 1 : 0, kNominal});
    return true;
  }
  if (key != Plain(KeyCode::kF6) || desk.screens.diameter_view == nullptr) return false;
  desk.screens.diameter_view->BringToFront();
  return true;
}

void FrmAvaiD::Derive() {
  const DiameterView* view = desk.screens.diameter_view;
  if (view != nullptr && view->displays() != followed_) Follow(*view);
}

void FrmAvaiD::TakeLibrary(std::vector<PipeRow> pipes) {
  pipes_ = std::move(pipes);
  const auto count = static_cast<int>(pipes_.size());
  const int rows = std::max(kLeastRows, count);
  fpSpread1.Reset(PipeColumns(), rows, rows - count);
  ShowPipes(fpSpread1, pipes_, desk.separators);
}

void FrmAvaiD::Follow(const DiameterView& view) {
  followed_ = view.displays();
  LblHint.tone = Tone::kPlain;
  LblHint.text = bench.workspace.HasBytes(work_file::kPreviousRows) ? kAtOnce : kWaits;
  LblSection.text = view.number() == 0 ? "—" : "Τμήμα " + std::to_string(view.number());
  LblSectionName.text = view.row().Name.Utf8();
  LblNow.text = view.number() == 0 ? "" : NowLine(view, desk.separators);
  const auto bears = [&view](const PipeRow& pipe) { return BearsDiameter(pipe, view.row()); };
  const auto found = std::ranges::find_if(pipes_, bears);
  const auto now = static_cast<int>(found - pipes_.begin());
  for (int row = 0; row < fpSpread1.row_count(); ++row) {
    const bool is_now = row == now && found != pipes_.end();
    fpSpread1.Set(row, kNow, {is_now ? kNowText : "", Tone::kQuiet});
  }
  if (found == pipes_.end()) {
    fpSpread1.ClearCurrent();
  } else {
    fpSpread1.SetCurrent({now, kNominal});
  }
}

void FrmAvaiD::Refuse(std::string_view why) {
  LblHint.text = why;
  LblHint.tone = Tone::kAlarm;
  desk.sound.Beep();
}

std::optional<PipeRow> FrmAvaiD::ChosenPipe() {
  const int row = fpSpread1.current().row;
  PipeChoice choice = ChoosePipe(bench, pipes_, row);
  if (choice.pipe) fpSpread1.SetCurrent({row, kNominal});
  if (choice.changed_library) {
    TakeLibrary(*std::move(choice.changed_library));
    Follow(*desk.screens.diameter_view);
  }
  if (!choice.refusal.empty()) Refuse(choice.refusal);
  return choice.pipe;
}

void FrmAvaiD::Replace() {
  DiameterView* view = desk.screens.diameter_view;
  if (view == nullptr || view->number() == 0) return;
  const auto pipe = ChosenPipe();
  if (!pipe || BearsDiameter(*pipe, view->row())) return;
  const DiameterChange change{{view->number()}, *pipe};
  MakeChange(desk, [&] {
    if (bench.workspace.HasBytes(work_file::kPreviousRows)) {
      Calculate(change, *view);
    } else {
      Store(change, *view);
    }
  });
}

void FrmAvaiD::Take(HistoryStep step) {
  if (HasStep(desk, step)) {
    StepInResults(desk, step);
  } else {
    Refuse(step == HistoryStep::kUndo ? kNothingToUndo : kNothingToRedo);
  }
}

void FrmAvaiD::Store(const DiameterChange& change, DiameterView& view) {
  const auto replaced = ReplaceDiameters(bench, change);
  if (!replaced) {
    TellError(bench, replaced.error());
  } else if (*replaced == 0) {
    view.ShowAgain();  // it is not what the work file says
  } else {
    ShowReplaced(view, view.number());
  }
}

void FrmAvaiD::Calculate(const DiameterChange& change, DiameterView& view) {
  const int number = view.number();
  const RunEnd end = [&] {
    const WaitShown wait(desk.navigator);
    return ChangeDiameters(bench, {change}).end;
  }();
  CloseOtherView(desk);
  view.ShowAgain();
  if (end == RunEnd::kCalculated || view.number() != number) return;
  if (BearsDiameter(change.pipe, view.row())) ShowReplaced(view, number);
}

void FrmAvaiD::ShowReplaced(DiameterView& view, int number) {
  const auto row = bench.workspace.Rows().Read(number);
  if (!row) {
    TellError(bench, row.error());
    return;
  }
  const auto first = bench.workspace.Rows(work_file::kFirstRows).Read(number);
  view.ShowReplaced(*row, !first || first->NomiDiam.Trimmed() != row->NomiDiam.Trimmed());
}

void FrmAvaiD::Close() {
  CloseOneDiameter(desk);
  if (desk.screens.diameter_view != nullptr) desk.screens.diameter_view->BringToFront();
}

}  // namespace kalvo
