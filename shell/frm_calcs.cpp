#include "shell/frm_calcs.h"

#include "form/wait.h"

namespace kalvo {

FrmCalcs::FrmCalcs(Desk& shared_desk)
    : Form(shared_desk),
      CmdCancel(*this, "CmdCancel", "Επιστροφή", [this] { desk.navigator.Close(screen::kMethod); },
                {Plain(KeyCode::kEscape)}),
      SSCommand1(*this, "SSCommand1", "Υπολογισμοί", [this] { Calculate(); },
                 {Plain(KeyCode::kEnter)}) {
  SSOption1.on_toggle = [this] { Choose(true); };
  SSOption2.on_toggle = [this] { Choose(false); };
}

void FrmCalcs::Load() {
  title = bench.study.SystemOpen() ? "... < ΑΝΟΙΚΤΟ > ΣΥΣΤΗΜΑ ΣΩΛΗΝΩΝ ..."
                                   : "... < ΚΛΕΙΣΤΟ > ΣΥΣΤΗΜΑ ΣΩΛΗΝΩΝ ...";
  Choose(true);
  Focus(SSOption1);
}

void FrmCalcs::Choose(bool first) {
  SSOption1.on = first;
  SSOption2.on = !first;
}

void FrmCalcs::Calculate() {
  {
    const WaitShown wait(desk.navigator, " ... Παρακαλώ, Περιμένετε ...");
    desk.questions.run(SSOption1.on ? Method::kFlowOnly : Method::kFlowAndPressure);
  }
  desk.navigator.Close(screen::kMethod);
}

}  // namespace kalvo
