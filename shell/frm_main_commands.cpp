// What the commands of the main menu do.

#include "engine/rerun.h"
#include "form/open_kept_sheet.h"
#include "form/tell.h"
#include "form/wait.h"
#include "results/node_report.h"
#include "results/printing/print_study.h"
#include "shell/frm_main.h"
#include "shell/imposed_diameters.h"
#include "shell/message_table.h"
#include "shell/study_dialogs.h"
#include "study/date_text.h"
#include "study/kept_sheet.h"
#include "study/message_codes.h"
#include "study/recent_files.h"
#include "study/study_title.h"

namespace kalvo {

bool FrmMain::HasRows() const { return bench.workspace.HasBytes(work_file::kRows); }

bool FrmMain::NeedsPipes() {
  if (bench.study.pipe_system_number > 0) return true;
  bench.Show(message::kNoPipeSystem);
  return false;
}

void FrmMain::OpenOrAcceptTitle() {
  if (TxtThema.visible) {
    AcceptTitle();
  } else {
    ShowTitleEntry();
  }
}

void FrmMain::ShowTitleEntry() {
  before_title_ = focus();
  TxtThema.Show(bench.study.study_title);
  TxtThema.visible = true;
  CmdThemaOK.visible = true;
  CmdThemaCancel.visible = true;
  Focus(TxtThema);
}

void FrmMain::EndTitleEntry() {
  const bool was_open = std::exchange(TxtThema.visible, false);
  CmdThemaOK.visible = false;
  CmdThemaCancel.visible = false;
  if (was_open) Focus(before_title_ == nullptr ? Cmd_Thema : *before_title_);
}

void FrmMain::AcceptTitle() {
  const std::string entered = TxtThema.Trimmed();
  if (entered.empty()) {
    Focus(TxtThema);
    return;
  }
  if (entered != bench.study.study_title && !TellIfFailed(bench, StoreTitle(bench, entered))) {
    return;
  }
  EndTitleEntry();
}

bool FrmMain::SettleTitle() {
  if (!TxtThema.visible) return true;
  if (TxtThema.Trimmed().empty()) {
    EndTitleEntry();
  } else {
    AcceptTitle();
  }
  return !TxtThema.visible;
}

void FrmMain::OpenGeneralData() {
  if (!SettleTitle()) return;
  if (bench.workspace.Exists(work_file::kRows) && !HasRows()) {
    bench.workspace.Delete(work_file::kRows);
  }
  if (HasRows() && bench.study.study_title.empty()) {
    bench.Show(message::kNoTitle);
    return;
  }
  desk.navigator.ShowModal(screen::kGeneralData);
}

void FrmMain::OpenSections() {
  if (!SettleTitle()) return;
  const Study& study = bench.study;
  if (study.study_title.empty()) {
    bench.Show(message::kNoTitle);
    return;
  }
  if (!HasRows() && (study.MeanTemp == 0 || study.MeanVel == 0)) {
    bench.Show(message::kNoGeneralData);
    return;
  }
  if (bench.workspace.Exists(work_file::kRows) && !HasRows()) {
    bench.workspace.Delete(work_file::kRows);
  }
  ShowSections();
}

// What a sheet kept is not lost sight of: it opens whatever the option says.
void FrmMain::ShowSections() {
  desk.screens.section_sitting.reset();
  if (desk.options.ChkDataKind || IsSheetKept(bench.workspace)) {
    ShowInsteadOfMenu(desk.navigator, screen::kSheet);
    return;
  }
  if (HasRows()) {
    const auto choice = AskHowToEnter(desk);
    if (!choice) return;
    desk.screens.entry_goes_on = *choice == EntryChoice::kGoOn;
  }
  ShowInsteadOfMenu(desk.navigator, screen::kSections);
}

void FrmMain::OpenEmitterData() {
  if (!SettleTitle() || AskToOpenKeptSheet(desk)) return;
  if (!HasRows()) {
    bench.Show(message::kNoData);
    return;
  }
  ShowInsteadOfMenu(desk.navigator,
                    bench.study.SystemOpen() ? screen::kOutlets : screen::kEmitters);
  desk.screens.edit_mode = true;  // once its list could be read
}

void FrmMain::Calculate(bool choose_method) {
  if (!SettleTitle() || AskToOpenKeptSheet(desk)) return;
  const bool ask = choose_method || bench.study.SystemOpen();
  const auto choose = [&](const CalculationRuns& runs) {
    const ImposedDiameters imposed = AskAboutImposedDiameters(bench);
    if (imposed == ImposedDiameters::kUndecided) return;
    if (imposed == ImposedDiameters::kStay) {
      runs.keeping_pipes();
    } else if (ask) {
      RunByChosenMethod(desk, runs.by_method);
    } else {
      runs.by_method(Method::kFlowOnly);
    }
  };
  const CommandEnd end = [&] {
    const WaitShown wait(desk.navigator);
    return kalvo::Calculate(bench, choose);
  }();
  EndCalculation(end);
}

void FrmMain::EndCalculation(CommandEnd end) {
  switch (end) {
    case CommandEnd::kLost:
    case CommandEnd::kFindings:
      ShowFindings();
      return;
    case CommandEnd::kFeeders:
      ShowFindings();
      bench.Show(message::kNamesToBeChecked);
      return;
    case CommandEnd::kCalculated:
      OpenResults();
      return;
    case CommandEnd::kShowOld:
      ShowResults();  // those that need a new calculation are none to be shown
      return;
    case CommandEnd::kRefused:
    case CommandEnd::kCapacity:
    case CommandEnd::kViscosity:
    case CommandEnd::kBrokenOff:
    case CommandEnd::kCancelled:
      return;
  }
}

void FrmMain::ShowFindings() {
  if (bench.workspace.HasBytes(work_file::kErrors)) {
    desk.navigator.ShowModal(screen::kNameErrors);
  }
}

void FrmMain::OpenResults() {
  desk.screens.ResultsLeft = false;
  desk.screens.results_view = ResultsView::kSheet;
  desk.screens.results_begin = true;
  desk.navigator.Show(screen::kResultsSheet);
  desk.navigator.Hide(screen::kMain);
}

bool FrmMain::RefusesStaleResults() {
  const Study& study = bench.study;
  if (!study.recalculation_needed) return false;
  const bool statistics = bench.workspace.Exists(work_file::kStatistics);
  bench.Show(statistics && !study.came_by_recovery ? message::kDiametersChanged
                                                   : message::kNoDiameters);
  return true;
}

void FrmMain::PrintData() {
  if (!SettleTitle() || AskToOpenKeptSheet(desk)) return;
  if (!HasRows()) {
    bench.Show(message::kNoData);
  } else if (NeedsPipes()) {
    PrintByChosenRoute(desk, ReportKind::kData);
  }
}

void FrmMain::PrintResults() {
  if (!SettleTitle() || AskToOpenKeptSheet(desk)) return;
  if (!HasRows()) {
    bench.Show(message::kNoResults);
  } else if (!RefusesStaleResults() && NeedsPipes()) {
    PrintByChosenRoute(desk, ReportKind::kResults);
  }
}

void FrmMain::ShowResults() {
  if (!SettleTitle() || RefusesStaleResults() || !NeedsPipes()) return;
  if (!HasRows() || !bench.study.results_valid) {
    bench.Show(message::kNoResults);
    return;
  }
  OpenResults();
}

void FrmMain::ShowResultsFromMenu() {
  if (!SettleTitle()) return;
  if (bench.study.recalculation_needed) {
    bench.Show(message::kDiametersChanged);
    return;
  }
  ShowResults();
}

void FrmMain::RerunAfterChange() {
  bench.study.CalcStatus = calc_status::kNothing;
  const RunEnd end = [&] {
    const WaitShown wait(desk.navigator);
    return Rerun(bench);
  }();
  if (end != RunEnd::kCalculated) return;
  if (desk.options.ChkDataKind) {
    OpenResults();
    return;
  }
  desk.screens.ResultsLeft = false;
  desk.screens.results_view = ResultsView::kOne;
  desk.navigator.Show(screen::kPump);
}

void FrmMain::OpenWinter() {
  if (!SettleTitle() || AskToOpenKeptSheet(desk) || !NeedsPipes()) return;
  const Study& study = bench.study;
  if (study.EmitterCount == 0 || !bench.workspace.HasBytes(work_file::kEmitters)) {
    bench.Show(message::kNoEmitterData);
  } else if (study.emitters_unchecked) {
    bench.Show(message::kEmittersUnchecked);
  } else if (!ResultsHold(study)) {
    bench.Show(message::kNoSummerResults);
  } else {
    ShowInsteadOfMenu(desk.navigator, screen::kWinter);
  }
}

void FrmMain::ShowNodes() {
  if (HasRows()) {
    ShowNodeReport(desk, false);
  } else {
    bench.Show(message::kNoData);
  }
}

void FrmMain::ShowCurrentStudy() {
  if (SettleTitle()) desk.navigator.ShowModal(screen::kCurrentStudy);
}

void FrmMain::SaveToFile() {
  if (!SettleTitle() || AskToOpenKeptSheet(desk)) return;
  TellUncheckedEmitters();
  if (NeedsPipes() && SaveStudy(desk)) NoteSaved();
}

void FrmMain::SaveOwn() {
  if (!SettleTitle() || AskToOpenKeptSheet(desk)) return;
  TellUncheckedEmitters();
  if (NeedsPipes() && SaveToOwnFile(desk)) NoteSaved();
}

// A file has the emitters that the rows know: not those of a list that was left unchecked.
void FrmMain::TellUncheckedEmitters() {
  if (bench.study.emitters_unchecked) bench.Show(message::kEmittersUnchecked);
}

void FrmMain::NoteSaved() {
  saved_path_ = bench.study.study_path;
  LblSaved.text = "Αποθηκεύθηκε, ώρα " + ClockText(bench.workspace.Now());
}

void FrmMain::OpenStudy() {
  if (!SettleTitle()) return;
  AskToOpen(desk);
}

void FrmMain::OpenRecent() {
  if (!SettleTitle()) return;
  if (!TidyRecentFiles(bench.workspace)) {
    bench.Ask({std::string(kAttentionTitle),
               {"... ΔΕΝ υπάρχουν πρόσφατα Αρχεία ..."},
               box_style::kInformation});
    return;
  }
  OpenFromDialog(desk, screen::kRecent);
  recent_listed_with_.reset();  // lines may have been taken out
}

void FrmMain::OpenSafetyCopy() {
  if (SettleTitle()) OpenFromDialog(desk, screen::kSafetyCopies);
}

void FrmMain::NewStudy() {
  if (!SettleTitle()) return;
  if (!AskAboutUnsaved(desk)) return;
  if (!ThrowAwayStudy(desk)) return;
  bench.study.unsaved_changes = false;
  ShowTitleEntry();
}

void FrmMain::Leave() {
  if (!SettleTitle()) return;
  if (!AskAboutUnsaved(desk)) return;
  const bool gone = [&] {
    const WaitShown wait(desk.navigator);
    return ThrowAwayStudy(desk);
  }();
  if (!gone) return;
  bench.workspace.Delete(work_file::kFluid);
  bench.study.unsaved_changes = false;
  bench.study.recalculation_needed = false;
  for (const std::string_view results : {screen::kResultsSheet, screen::kResults, screen::kPump}) {
    desk.navigator.Close(results);
  }
  desk.navigator.Close(screen::kMain);
  bench.study.system_kind = SystemKind::kNone;
  desk.navigator.Show(screen::kKind);
}

bool FrmMain::MayClose() {
  Run(Cmd_Exit);
  return false;
}

}  // namespace kalvo
