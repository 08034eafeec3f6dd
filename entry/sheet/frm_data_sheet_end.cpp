#include <algorithm>
#include <exception>

#include "entry/sections/section_entry_forms.h"
#include "entry/sheet/frm_data_sheet.h"
#include "form/tell.h"
#include "study/kept_sheet.h"
#include "study/safety_copies.h"

namespace kalvo {

FrmData_Sheet::End FrmData_Sheet::EndEntry() {
  KeepNow();
  if (!IsComplete()) return End::kStays;
  const DraftRows made = sitting_.Rows();
  if (made.changed && !MayEmptyRows(made)) return End::kStays;
  if (!TellIfFailed(bench, sitting_.PutRows(made))) return End::kFailed;
  const std::string_view next = made.changed ? ScreenAfterEntry(desk, made) : screen::kMain;
  if (!TellIfFailed(bench, sitting_.End())) return End::kFailed;
  Leave(next);
  return End::kLeft;
}

bool FrmData_Sheet::IsComplete() {
  bench.workspace.Delete(work_file::kErrors);
  const std::vector<std::string> missing = MissingLines(sitting_.draft);
  if (missing.empty()) return true;
  std::string text;
  for (const std::string& line : missing) {
    text += line + "\n";
  }
  if (TellIfFailed(bench, bench.workspace.Write(work_file::kErrors, text))) {
    desk.navigator.ShowModal(screen::kMissingValues);
  }
  Focus(fpSpread1);
  return false;
}

// A sheet without sections takes those of the study away.
bool FrmData_Sheet::MayEmptyRows(const DraftRows& made) {
  if (!made.rows.empty() || sitting_.rows().empty()) return true;
  const Answer answer = bench.Ask(
      {"  ! !   ΠΡΟΣΟΧΗ : ΔΙΑΓΡΑΦΗ   ! ! ",
       {"Το φύλλο είναι κενό : όλα τα Τμήματα της Μελέτης θα διαγραφούν !!", "Είστε Σίγουρος ??"},
       box_style::kDefaultNo});
  return answer == Answer::kYes && KeepSafetyCopyAnyway(bench, desk.safety_folders());
}

void FrmData_Sheet::SwitchToForm() {
  if (!fpSpread1.Accept()) return;
  KeepNow();
  if (!IsComplete()) return;
  const DraftRows made = sitting_.Rows();
  if (!MayEmptyRows(made) || !TellIfFailed(bench, sitting_.PutRows(made))) return;
  DropKeptSheet(bench.workspace);
  bench.study.CurrentRow = static_cast<std::int16_t>(Current().row + 1);
  desk.screens.edit_mode = true;
  sitting_.from_sheet = true;
  Leave(screen::kSections);
}

void FrmData_Sheet::Leave(std::string_view next) {
  if (desk.screens.tee_counters == this) desk.screens.tee_counters = nullptr;
  if (next != screen::kSections) desk.screens.section_sitting.reset();
  desk.navigator.Close(screen::kTees);
  desk.navigator.Close(screen::kSheet);
  try {
    desk.navigator.Show(next);
  } catch (const std::exception&) {
    desk.screens.section_sitting.reset();
    desk.navigator.Show(screen::kMain);
    throw;
  }
}

bool FrmData_Sheet::MayClose() {
  if (!begun_ || !fpSpread1.Accept()) return !begun_;
  Focus(fpSpread1);
  if (!MissingLines(sitting_.draft).empty()) {
    LeaveKept("Λείπουν ακόμη τιμές από το φύλλο.");
  } else if (EndEntry() == End::kFailed) {
    LeaveKept("Το φύλλο ΔΕΝ πέρασε στην Μελέτη.");
  }
  return false;
}

// The rows stay as they are; the sheet goes on when it is opened again.
void FrmData_Sheet::LeaveKept(const std::string& why) {
  const Answer answer =
      bench.Ask({" !!... ΠΡΟΣΟΧΗ ...!! ",
                 {why, "Να κλείσει, και να φυλαχθεί όπως είναι για την επόμενη φορά ??"},
                 box_style::kDefaultNo});
  if (answer != Answer::kYes || !KeepNow()) return;
  bench.workspace.Delete(work_file::kFirstRows);
  Leave(screen::kMain);
}

}  // namespace kalvo
