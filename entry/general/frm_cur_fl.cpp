#include "entry/general/frm_cur_fl.h"

#include <optional>

#include "engine/checks.h"
#include "engine/trap.h"
#include "form/tell.h"
#include "study/message_codes.h"
#include "study/tables.h"

namespace kalvo {
namespace {

std::string OrDash(const std::string& text) { return text.empty() ? "—" : text; }

using Check = CheckEnd (*)(Workbench&);

// The checks of the system's kind, in the order in which a calculation runs them.
std::vector<Check> ChecksOf(const Study& study) {
  if (study.SystemClosed()) return {&CheckNodes};
  return {&CheckFeedersByName, &CheckFeederNumbers, &CheckFeederUse};
}

// Runs them up to the first one with findings; nothing when one was broken off.
std::optional<CheckEnd> RunChecks(Workbench& bench) {
  CheckEnd end = CheckEnd::kNothing;
  for (const Check check : ChecksOf(bench.study)) {
    if (RunTrapped(bench, [&] { end = check(bench); })) return std::nullopt;
    if (end == CheckEnd::kFindings) break;
  }
  return end;
}

}  // namespace

FrmCurFL::FrmCurFL(Desk& shared_desk)
    : Form(shared_desk),
      SSCommand1(*this, "SSCommand1", "Επιστροφή",
                 [this] { desk.navigator.Close(screen::kCurrentStudy); },
                 {Plain(KeyCode::kEscape)}),
      Cmd_Names(*this, "Cmd_Names", "Έλεγχος Ονομασιών Τμημάτων", [this] { CheckNames(); }) {
  title = "Στοιχεία Αρχείου υπό Επεξεργασία";
}

void FrmCurFL::Derive() {
  const Study& study = bench.study;
  LblFile.text = "Αρχείο : " + OrDash(study.study_short_name);
  LblFolder.text = "Φάκελος : " + OrDash(study.study_folder.string());
  LblDate.text = "Ημερομηνία : " + OrDash(study.study_date);
  LblTime.text = "Ώρα : " + OrDash(study.study_time);
  LblThema.text = "Θέμα-Τίτλος : " + OrDash(study.study_title);
  LblSystem.text = study.SystemOpen() ? "Σύστημα Σωλήνων : ΑΝΟΙΚΤΟ" : "Σύστημα Σωλήνων : ΚΛΕΙΣΤΟ";
  LblSections.text = "Αριθμός Τμημάτων : " + std::to_string(study.SectionCount);
  LblEmitters.text = (study.SystemOpen() ? "Αριθμός Υποδοχέων : " : "Αριθμός Σωμάτων : ") +
                     std::to_string(study.EmitterCount);
}

void FrmCurFL::CheckNames() {
  const auto rows = bench.workspace.Rows().ReadAll();
  if (!rows) {
    TellError(bench, rows.error());
    return;
  }
  if (rows->empty()) {
    bench.Show(message::kNoData);
    return;
  }
  RefreshSectionTable(bench.study, *rows);
  // The checks add to a list that is there.
  bench.workspace.Delete(work_file::kErrors);
  const std::optional<CheckEnd> end = RunChecks(bench);
  if (!end) return;
  bench.study.NameErrors = end == CheckEnd::kFindings;
  if (bench.study.NameErrors) {
    desk.navigator.ShowModal(screen::kNameErrors);
  } else {
    bench.Show(message::kNamesAreFine);
  }
}

}  // namespace kalvo
