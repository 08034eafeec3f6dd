#include "study/kept_sheet.h"

#include "study/sheet_intro.h"

namespace kalvo {

Outcome KeepSheet(Workspace& workspace, const Study& study, std::string_view file_name,
                  std::string bytes) {
  std::string intro = EncodeSheetIntro(IntroOf(study));
  const auto before = workspace.Read(work_file::kSheetIntro);
  if (!before || *before != intro) {
    Outcome written = workspace.Write(work_file::kSheetIntro, std::move(intro));
    if (!written) return written;
  }
  return workspace.Write(file_name, std::move(bytes));
}

bool HasKeptSheet(const Workspace& workspace) { return workspace.Exists(work_file::kSheetInWork); }

void DropKeptSheet(Workspace& workspace) {
  if (!HasKeptSheet(workspace)) return;
  workspace.Delete(work_file::kSheetInWork);
  if (!workspace.Exists(work_file::kSheet)) workspace.Delete(work_file::kSheetIntro);
}

}  // namespace kalvo
