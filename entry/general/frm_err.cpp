#include "entry/general/frm_err.h"

#include "form/tell.h"
#include "study/text_lines.h"

namespace kalvo {

FrmERR::FrmERR(Desk& shared_desk)
    : Form(shared_desk),
      Cmd_Exit(*this, "Cmd_Exit", "Επιστροφή",
               [this] { desk.navigator.Close(screen::kMissingValues); },
               {Plain(KeyCode::kEscape), Plain(KeyCode::kEnter)}),
      Cmd_Print(*this, "Cmd_Print", "Εκτύπωση", [this] { Print(); }, {Ctrl('P')}) {
  title = "ΕΛΛΙΠΕΙΣ ΚΑΤΑΧΩΡΗΣΕΙΣ";
}

void FrmERR::Load() {
  const auto bytes = bench.workspace.Read(work_file::kErrors);
  if (!bytes) {
    TellError(bench, bytes.error());
    return;
  }
  LstERR.SetLines(SplitLines(*bytes));
  copied_ = TellIfFailed(bench, KeepCopy());
  bench.workspace.Delete(work_file::kErrors);
  Focus(LstERR);
}

void FrmERR::Print() {
  if (copied_) {
    TellIfFailed(bench, desk.viewer.Open(CopyPath()));
  } else {
    TellError(bench, {CopyPath(), "Το αρχείο δεν γράφτηκε"});
  }
}

Outcome FrmERR::KeepCopy() {
  std::string text;
  for (const std::string& line : LstERR.lines()) {
    text += line + "\n";
  }
  Disk& disk = bench.workspace.outer_disk();
  if (Outcome made = disk.MakeFolder(desk.state_folder); !made) return made;
  return ReplaceFile(disk, CopyPath(), std::move(text));
}

}  // namespace kalvo
