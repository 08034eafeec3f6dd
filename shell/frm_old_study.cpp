#include "shell/frm_old_study.h"

namespace kalvo {

FrmOldStudy::FrmOldStudy(Desk& shared_desk)
    : Form(shared_desk),
      CmdExit(*this, "CmdExit", "Επιστροφή", [this] { desk.navigator.Close(screen::kOldStudy); },
              {Plain(KeyCode::kEscape)}),
      Command2(*this, "Command2", "Όχι", [this] { Answer(false); }, {Alt('X')}),
      Command1(*this, "Command1", "Ναι", [this] { Answer(true); },
               {Plain(KeyCode::kEnter), Alt('N')}) {
  title = "Ημιτελής Παλαιά Μελέτη";
}

void FrmOldStudy::Load() {
  const auto& [rows, study_title, file, moment, sheet] = desk.questions.offered;
  LblTitle.text = study_title.empty() ? "Χωρίς θέμα-τίτλο" : study_title;
  LblFile.text = file.empty() ? "Δεν έχει σωθεί σε αρχείο" : file.string();
  LblMoment.text = moment;
  LblKind.text = bench.study.SystemOpen() ? "ΑΝΟΙΚΤΟ ΣΥΣΤΗΜΑ ΣΩΛΗΝΩΝ" : "ΚΛΕΙΣΤΟ ΣΥΣΤΗΜΑ ΣΩΛΗΝΩΝ";
  const std::string sections = std::to_string(rows) + (rows == 1 ? " τμήμα" : " τμήματα");
  LblRows.text = !sheet ? sections : rows == 0 ? "Φύλλο χωρίς τμήματα" : "Φύλλο με " + sections;
  Focus(Command1);
}

void FrmOldStudy::Answer(bool recover) {
  desk.questions.recover = recover;
  desk.navigator.Close(screen::kOldStudy);
}

}  // namespace kalvo
