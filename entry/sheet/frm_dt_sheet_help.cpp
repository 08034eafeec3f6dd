#include "entry/sheet/frm_dt_sheet_help.h"

#include "entry/tees/tee_cases.h"

namespace kalvo {
namespace {

std::vector<std::string> KeyLines() {
  const std::string rule(53, '=');
  std::vector<std::string> lines = {
      rule,
      "   ... < Del > ---------------> Διαγραφή περιεχομένου Cell ...",
      "  ... < Ctrl+Del > ---------> Διαγραφή σειράς (Row) ...",
      "  ... < Ctrl+Ins > ---------> Παρεμβολή Σειράς (Row) ...",
      "  ... < Ctrl+S > -----------> Save Spreadsheet ...",
      "  ... < Ctrl+R > -----------> Retrieve Spreadsheet ...",
      "  ... < Ctrl+P > -----------> Print Spreadsheet ...",
      "  ... < Ctrl+L > -----------> Select Text in Cell ...",
      "  ... < Ctrl+D > ----------> DeSelect Text in Cell ..."};
  for (const TeeCase& tee : TeeCases()) {
    lines.push_back(HelpLine(tee));
  }
  for (const char* line :
       {"  ... < F2 > --------------> Διόρθωση περιεχομένου Cell ...",
        "  ... < F7 > --------------> Συμπλήρωση προς τα κάτω ...",
        "  ... < Ctrl+Z >, < Ctrl+Y > -> Αναίρεση, Επανάληψη ...",
        "  ... < Ctrl+C >, < Ctrl+X >, < Ctrl+V > -> Αντιγραφή, Αποκοπή, Επικόλληση ...",
        "  ... < Ctrl+F >, < F3 > ---> Εύρεση, εύρεση επόμενου ...",
        "  ... < F6 > --------------> Έξοδος από τον πίνακα προς τις εντολές ..."}) {
    lines.emplace_back(line);
  }
  lines.push_back(rule);
  return lines;
}

}  // namespace

FrmDtSheet_Help::FrmDtSheet_Help(Desk& shared_desk)
    : Form(shared_desk),
      Cmd_Exit(*this, "Cmd_Exit", "Επιστροφή", [this] { desk.navigator.Close(screen::kSheetHelp); },
               {Plain(KeyCode::kEscape), Plain(KeyCode::kEnter)}) {
  title = "ΒΟΗΘΕΙΑ ΠΛΗΚΤΡΟΛΟΓΗΣΕΩΝ";
  LstKeys.SetLines(KeyLines());
  Focus(LstKeys);
}

}  // namespace kalvo
