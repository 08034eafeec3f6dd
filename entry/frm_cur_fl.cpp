#include "entry/frm_cur_fl.h"

#include <utility>

#include "engine/checks.h"
#include "engine/trap.h"
#include "form/tell.h"
#include "study/tables.h"

namespace kalvo {
namespace {

constexpr int kNoRows = 139;
constexpr int kNamesAreFine = 23;

std::string OrDash(const std::string& text) { return text.empty() ? "—" : text; }

using Check = void (*)(Workbench&);

// The checks of the system's kind, in the order in which a calculation runs them.
std::vector<Check> ChecksOf(const Study& study) {
  if (study.SystemClosed()) return {&CheckNodes};
  return {&CheckFeedersByName, &CheckFeederNumbers, &CheckFeederUse};
}

// What the first check with findings leaves in the status; nothing when none has any.
std::int16_t RunChecks(Workbench& bench) {
  bench.study.CalcStatus = calc_status::kNothing;
  for (const Check check : ChecksOf(bench.study)) {
    RunTrapped(bench, [&] { check(bench); });
    if (bench.study.CalcStatus != calc_status::kNothing) break;
  }
  return std::exchange(bench.study.CalcStatus, calc_status::kNothing);
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
    bench.Show(kNoRows);
    return;
  }
  RefreshSectionTable(bench.study, *rows);
  // The checks add to a list that is there.
  bench.workspace.Delete(work_file::kErrors);
  const std::int16_t status = RunChecks(bench);
  if (status == calc_status::kBrokenOff) return;
  bench.study.NameErrors = status != calc_status::kNothing;
  if (bench.study.NameErrors) {
    desk.navigator.ShowModal(screen::kNameErrors);
  } else {
    bench.Show(kNamesAreFine);
  }
}

}  // namespace kalvo
