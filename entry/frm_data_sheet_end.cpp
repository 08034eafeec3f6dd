#include <algorithm>
#include <exception>

#include "engine/outlets.h"
#include "entry/frm_data_sheet.h"
#include "form/tell.h"
#include "study/safety_copies.h"

namespace kalvo {

void FrmData_Sheet::EndEntry() {
  if (!IsComplete()) return;
  const DraftRows made = sitting_.Rows();
  if (!made.changed && !made.moved) {
    sitting_.End();
    Leave(screen::kMain);
    return;
  }
  if (!MayEmptyRows(made)) return;
  if (Outcome put = sitting_.PutRows(made); !put) {
    TellError(bench, put.error());
    return;
  }
  ShowNext(made);
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
  if (!made.rows.empty()) return true;
  const Answer answer = bench.Ask(
      {"  ! !   ΠΡΟΣΟΧΗ : ΔΙΑΓΡΑΦΗ   ! ! ",
       {"Το φύλλο είναι κενό : όλα τα Τμήματα της Μελέτης θα διαγραφούν !!", "Είστε Σίγουρος ??"},
       box_style::kDefaultNo});
  return answer == Answer::kYes && KeepSafetyCopyAnyway(bench, desk.safety_folders());
}

bool FrmData_Sheet::OutletsDiffer(const DraftRows& made) const {
  const auto outlets = bench.workspace.Rows(work_file::kEmitters).ReadAll();
  if (!outlets) return true;
  const std::vector<int> leaves = FindOutlets(made.rows);
  return !std::ranges::equal(leaves, *outlets, {}, {}, &SectionRow::RecordNumber);
}

void FrmData_Sheet::ShowNext(const DraftRows& made) {
  const bool open = bench.study.SystemOpen();
  const bool emitters = !desk.screens.edit_mode || made.moved || (open && OutletsDiffer(made));
  if (made.rows.empty() || !emitters) {
    Leave(screen::kMain);
    return;
  }
  Leave(open ? screen::kOutlets : screen::kEmitters);
}

void FrmData_Sheet::Leave(std::string_view next) {
  if (desk.screens.tee_counters == this) desk.screens.tee_counters = nullptr;
  desk.navigator.Close(screen::kTees);
  desk.navigator.Close(screen::kSheet);
  try {
    desk.navigator.Show(next);
  } catch (const std::exception&) {
    desk.navigator.Show(screen::kMain);
    throw;
  }
}

bool FrmData_Sheet::MayClose() {
  if (!begun_ || !fpSpread1.Accept()) return !begun_;
  if (MissingLines(sitting_.draft).empty()) {
    EndEntry();
    return false;
  }
  const Answer answer =
      bench.Ask({" !!... ΠΡΟΣΟΧΗ ...!! ",
                 {"Λείπουν ακόμη τιμές από το φύλλο.",
                  "Να κλείσει, και να φυλαχθεί όπως είναι για την επόμενη φορά ??"},
                 box_style::kDefaultNo});
  if (answer == Answer::kYes && Keep(true)) {
    bench.workspace.Delete(work_file::kFirstRows);
    Leave(screen::kMain);
  }
  return false;
}

}  // namespace kalvo
