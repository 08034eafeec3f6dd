#include "study/kept_sheet.h"

#include <utility>

#include "study/sheet_intro.h"

namespace kalvo {

namespace {

Outcome KeepIntro(Workspace& workspace, const Study& study) {
  std::string intro = EncodeIntro(IntroOf(study));
  const auto kept = workspace.Read(work_file::kSheetIntro);
  if (kept && *kept == intro) return Done{};
  return workspace.Write(work_file::kSheetIntro, std::move(intro));
}

}  // namespace

Outcome KeepSheet(Workspace& workspace, const Study& study, std::string_view file_name,
                  std::string bytes) {
  // What goes with the sheet comes first: it is there when the sheet appears.
  Outcome intro = KeepIntro(workspace, study);
  Outcome sheet = workspace.Write(file_name, std::move(bytes));
  return intro ? sheet : intro;
}

Outcome FlushSheet(Workspace& workspace, std::string_view file_name) {
  Outcome flushed = workspace.Flush(work_file::kSheetIntro);
  return flushed ? workspace.Flush(file_name) : flushed;
}

void DropKeptSheet(Workspace& workspace) {
  workspace.Delete(work_file::kSheetInWork);
  if (IsSheetKept(workspace) || workspace.Exists(work_file::kSheet)) return;
  workspace.Delete(work_file::kSheetIntro);
}

}  // namespace kalvo
