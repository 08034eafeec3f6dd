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
  menus = {{"&Σύστημα Σωλήνων",
            {{"Mnu_Closed", Mnu_Closed.caption, &Mnu_Closed},
             {"Mnu_Open", Mnu_Open.caption, &Mnu_Open},
             {},
             {"Mnu_Exit", Cmd_Exit.caption, &Cmd_Exit}}}};
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
  if (desk.navigator.IsOpen(screen::kMain)) return;
  OfferWaiting();
  const auto& argument = desk.screens.study_argument;
  if (argument.empty()) return;
  if (const SystemKind kind = KindOfName(argument.filename().string()); kind != SystemKind::kNone) {
    Choose(kind);
  }
  Go();
}

// A study given at the start that gave way to the recovery of one of the other kind.
void FrmKind::OfferWaiting() {
  const std::filesystem::path waiting = std::exchange(desk.screens.study_waiting, {});
  if (waiting.empty() || !desk.screens.study_argument.empty()) return;
  const Answer answer =
      bench.Ask({"Ανάκληση Αρχείου",
                 {"Η Μελέτη που δόθηκε στην αρχή δεν έχει ανακληθεί ακόμη :", waiting.string(),
                  "Θέλετε να ανακληθεί τώρα ??"},
                 box_style::kYesNo});
  if (answer == Answer::kYes) desk.screens.study_argument = waiting;
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
  const auto settled = SettleWorkFiles(desk);
  if (!settled) {
    TellError(bench, settled.error());
    return false;
  }
  if (!*settled) return false;
  const FoundLeftOver& found = **settled;
  switch (found.what) {
    case LeftOver::kNothing:
      return true;
    case LeftOver::kOtherKind:
      // The kind was the argument's, not the user's choice: nothing is thrown away unasked.
      if (!desk.screens.study_argument.empty()) break;
      return DiscardLeftOver(desk);
    case LeftOver::kStudy:
    case LeftOver::kSheet:
      break;
  }
  const SystemKind chosen = std::exchange(bench.study.system_kind, found.kind);
  const bool sheet = found.what == LeftOver::kSheet;
  const std::optional<bool> recover = AskToRecover(
      desk,
      {sheet ? found.sheet_sections : found.rows, found.title, found.file, found.moment, sheet});
  if (!recover.value_or(false)) {
    bench.study.system_kind = chosen;
    return recover && DiscardLeftOver(desk);
  }
  // A study given at the start waits when it is of another kind, or while the sheet is open.
  if (found.kind != chosen || sheet) {
    desk.screens.study_waiting = std::exchange(desk.screens.study_argument, {});
  }
  return sheet ? AcceptSheet(desk, found) : AcceptRecovery(desk, found);
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
