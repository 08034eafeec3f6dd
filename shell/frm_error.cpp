#include "shell/frm_error.h"

#include "form/tell.h"
#include "study/text_lines.h"

namespace kalvo {

FrmError::FrmError(Desk& shared_desk)
    : Form(shared_desk),
      CmdExit(*this, "CmdExit", "Επιστροφή", [this] { desk.navigator.Close(screen::kNameErrors); },
              {Plain(KeyCode::kEscape), Plain(KeyCode::kEnter)}) {
  title = "ΣΦΑΛΜΑΤΑ ΚΑΤΑΧΩΡΗΣΕΩΝ ΤΜΗΜΑΤΩΝ";
  TxtSystem.locked = true;
}

void FrmError::Load() {
  TxtSystem.Show(bench.study.SystemOpen() ? "< ΑΝΟΙΚΤΟ > ΣΥΣΤΗΜΑ ΣΩΛΗΝΩΝ"
                                          : "< ΚΛΕΙΣΤΟ > ΣΥΣΤΗΜΑ ΣΩΛΗΝΩΝ");
  const auto bytes = bench.workspace.Read(work_file::kErrors);
  if (!bytes) {
    TellError(bench, bytes.error());
    return;
  }
  LstError.SetLines(SplitLines(*bytes));
  Focus(LstError);
}

}  // namespace kalvo
