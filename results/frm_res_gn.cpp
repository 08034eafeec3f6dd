#include "results/frm_res_gn.h"

#include "form/tell.h"
#include "form/wait.h"
#include "results/node_report.h"
#include "results/pump_frame.h"
#include "results/results_session.h"

namespace kalvo {

FrmResGn::FrmResGn(Desk& shared_desk)
    : Form(shared_desk),
      Cmd_Nodes(*this, "Cmd_Nodes", " Έλεγχος Κόμβων Τμημάτων ",
                [this] { ShowNodeReport(desk, false); }),
      SSCommand1(*this, "SSCommand1", "Αναλυτική Παρουσίαση Τμημάτων Σωλήνων",
                 [this] { ShowSections(); }, {Plain(KeyCode::kEnter), Plain(KeyCode::kEscape)}) {
  title = "ΠΑΡΟΥΣΙΑΣΗ ΤΩΝ  ΑΠΟΤΕΛΕΣΜΑΤΩΝ ΓΙΑ ΤΗΝ ΑΝΤΛΙΑ ΤΟΥ ΔΙΚΤΥΟΥ";
  Text6.locked = Text8.locked = true;
  ChkSoundRG.on_toggle = [this] { desk.options.SoundOn = ChkSoundRG.on; };
}

void FrmResGn::Load() {
  desk.navigator.Hide(screen::kMain);
  TxtKind.text = bench.study.SystemOpen() ? "ANOIKΤΟ ΣΥΣΤΗΜΑ ΣΩΛΗΝΩΝ" : "ΚΛΕΙΣΤΟ ΣΥΣΤΗΜΑ ΣΩΛΗΝΩΝ";
  TxtThema.text = Trim(bench.study.study_title);
  Cmd_Nodes.visible = bench.study.SystemClosed();
  Focus(SSCommand1);
  const auto rows = TakeResultRows(bench);
  if (!rows) {
    TellError(bench, rows.error());
    return;
  }
  TakePump(rows->front());
}

void FrmResGn::TakePump(const SectionRow& first) {
  Study& study = bench.study;
  study.TotalFlowM3h = first.PAR;
  study.PumpHead = static_cast<float>(first.DP / 1000.0);
  TxtPipes.text = TakePipeSystem(bench, first);
  if (MethodOf(first) == Method::kFlowOnly) {
    LblWay.text = "Υπολογισμοί με βάση την Μέση Ταχύτητα";
  } else if (MethodOf(first) == Method::kFlowAndPressure) {
    LblWay.text = "Υπολογισμοί με βάση την Μέση Ταχύτητα, αλλά και την Διαθέσιμη Πίεση";
  }
  Text2.text = FormatPattern(first.PAR, pattern::kTwoDecimals, desk.separators);
  Text4.text = FormatPattern(HeadOf(first.DP), pattern::kTwoDecimals, desk.separators);
  Text6.Show(FormatPattern(study.MeanTemp, pattern::kTwoDecimals, desk.separators));
  Text8.Show(desk.screens.WinterPump
                 ? ""
                 : FormatPattern(study.MeanVel, pattern::kTwoDecimals, desk.separators));
}

void FrmResGn::Activate() {
  desk.navigator.HideWait();
  CountAsShown(desk);
}

void FrmResGn::Derive() { ChkSoundRG.on = desk.options.SoundOn; }

void FrmResGn::ShowSections() {
  SSCommand1.tone = Tone::kAlarm;
  SSCommand1.caption = kWaitText;
  if (desk.screens.ResultsLeft) {
    desk.screens.ResultsLeft = false;
    if (MayClose()) desk.navigator.Close(screen::kPump);
    return;
  }
  desk.screens.results_view = ResultsView::kOne;
  desk.navigator.Show(screen::kResults);
  desk.navigator.Hide(screen::kPump);
}

bool FrmResGn::MayClose() {
  if (!desk.navigator.IsOpen(screen::kResults) && !desk.navigator.IsOpen(screen::kResultsSheet)) {
    LeaveByWindow(desk);
  }
  return true;
}

}  // namespace kalvo
