#include "shell/frm_kind.h"

#include <utility>

#include "form/tell.h"
#include "shell/recovery.h"
#include "study/study_extensions.h"

namespace kalvo {

FrmKind::FrmKind(Desk& shared_desk)
    : Form(shared_desk),
      Cmd_Exit(*this, "Cmd_Exit", "Έξοδος από το Πρόγραμμα",
               [this] { desk.navigator.EndProgram(); }, {Plain(KeyCode::kEscape)}),
      Cmd_Go(*this, "Cmd_Go", "Συνέχεια", [this] { Go(); }, {Plain(KeyCode::kEnter)}),
      Mnu_Closed(*this, "Mnu_Closed", "< Κλειστό > Σύστημα Σωλήνων",
                 [this] { Choose(SystemKind::kClosed); }, {Alt('K')}),
      Mnu_Open(*this, "Mnu_Open", "< Ανοικτό > Σύστημα Σωλήνων",
               [this] { Choose(SystemKind::kOpen); }, {Alt('A')}) {
  title = "Πρόγραμμα < Kalvoflume > - ΕΠΙΛΟΓΗ ΣΥΣΤΗΜΑΤΟΣ ΣΩΛΗΝΩΝ";
  SSOption1.on_toggle = [this] { Choose(SystemKind::kClosed); };
  SSOption2.on_toggle = [this] { Choose(SystemKind::kOpen); };
  SSOption1.on_double_click = [this] {
    Choose(SystemKind::kClosed);
    Run(Cmd_Go);
  };
  SSOption2.on_double_click = [this] {
    Choose(SystemKind::kOpen);
    Run(Cmd_Go);
  };
}

void FrmKind::Load() {
  const auto& argument = desk.screens.study_argument;
  if (!argument.empty()) {
    bench.study.system_kind = KindOfName(argument.filename().string());
  }
  ShowChoice();
}

void FrmKind::Activate() {
  LblWait.visible = false;
  ShowChoice();
  Focus(SSOption1.on ? SSOption1 : SSOption2);
  if (!desk.screens.study_argument.empty() && !desk.navigator.IsOpen(screen::kMain)) Go();
}

// Without a choice closed is preselected; the kind itself stays unset.
void FrmKind::ShowChoice() {
  SSOption2.on = bench.study.SystemOpen();
  SSOption1.on = !SSOption2.on;
}

void FrmKind::Choose(SystemKind kind) {
  bench.study.system_kind = kind;
  ShowChoice();
  Focus(SSOption1.on ? SSOption1 : SSOption2);
}

bool FrmKind::SettleLeftOvers() {
  const auto found = FindLeftOver(bench, desk.data_folder);
  if (!found) {
    TellError(bench, found.error());
    return false;
  }
  switch (found->what) {
    case LeftOver::kNothing:
      return true;
    case LeftOver::kOtherKind:
      // The kind was the argument's, not the user's choice: nothing is thrown away unasked.
      if (!desk.screens.study_argument.empty()) break;
      return TellIfFailed(bench, DiscardLeftOver(bench, desk.data_folder));
    case LeftOver::kStudy:
    case LeftOver::kSheet:
      break;
  }
  const SystemKind chosen = std::exchange(bench.study.system_kind, found->kind);
  desk.screens.offered_rows = found->rows;
  desk.screens.recover.reset();
  desk.navigator.ShowModal(screen::kOldStudy);
  if (!desk.screens.recover.value_or(false)) {
    bench.study.system_kind = chosen;
    return desk.screens.recover && TellIfFailed(bench, DiscardLeftOver(bench, desk.data_folder));
  }
  if (found->kind != chosen) desk.screens.study_argument.clear();  // of the other kind
  return TellIfFailed(bench, found->what == LeftOver::kSheet
                                 ? AcceptSheet(bench, desk.data_folder)
                                 : AcceptRecovery(bench, *found, desk.data_folder));
}

void FrmKind::Go() {
  if (bench.study.system_kind == SystemKind::kNone) {
    bench.study.system_kind = SSOption2.on ? SystemKind::kOpen : SystemKind::kClosed;
  }
  LblWait.visible = true;
  if (!SettleLeftOvers()) {
    LblWait.visible = false;
    return;
  }
  desk.navigator.Show(screen::kMain);
}

bool FrmKind::MayClose() {
  desk.navigator.EndProgram();
  return false;
}

}  // namespace kalvo
