#include "results/printing/frm_xl_or_not.h"

#include "results/designer/designer_lock.h"

namespace kalvo {

FrmXLorNOT::FrmXLorNOT(Desk& shared_desk)
    : Form(shared_desk),
      CmdCancel(*this, "CmdCancel", "Ακύρωση και Επιστροφή",
                [this] { desk.navigator.Close(screen::kPrintRoute); }, {Plain(KeyCode::kEscape)}),
      Cmd_Client(*this, "Cmd_Client", " Επιλογή Ονόματος Μελετητή ",
                 [this] { ChooseDesigner(desk, OptCRW.on); }),
      CmdOK(*this, "CmdOK", "Αποδοχή", [this] { Accept(); }, {Plain(KeyCode::kEnter)}) {
  title = "Επιλογή Εκτύπωσης";
  OptXL.on_toggle = [this] { Choose(true); };
  OptCRW.on_toggle = [this] { Choose(false); };
}

void FrmXLorNOT::Load() {
  desk.screens.RouteProgram = desk.screens.RouteExcel = false;
  Choose(true);
}

void FrmXLorNOT::Choose(bool spreadsheet) {
  OptXL.on = spreadsheet;
  OptCRW.on = !spreadsheet;
  Focus(spreadsheet ? OptXL : OptCRW);
}

void FrmXLorNOT::Accept() {
  if (OptCRW.on && !MayPrintThroughProgram(desk)) return;
  desk.screens.RouteExcel = OptXL.on;
  desk.screens.RouteProgram = OptCRW.on;
  desk.navigator.Close(screen::kPrintRoute);
}

}  // namespace kalvo
