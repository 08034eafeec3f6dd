#include "form/open_kept_sheet.h"

#include "study/kept_sheet.h"

namespace kalvo {

void OpenKeptSheet(Desk& desk) {
  if (!desk.navigator.IsOpen(screen::kSheet)) {
    desk.screens.edit_mode = desk.bench.workspace.HasBytes(work_file::kRows);
    desk.screens.open_kept_sheet = true;
  }
  ShowInsteadOfMenu(desk.navigator, screen::kSheet);
}

bool AskToOpenKeptSheet(Desk& desk) {
  if (!IsSheetKept(desk.bench.workspace)) return false;
  const Answer answer = desk.bench.Ask(
      {" !!... ΠΡΟΣΟΧΗ ...!! ",
       {"Το φύλλο Τμημάτων έχει στοιχεία που δεν πέρασαν ακόμη στην Μελέτη",
        "Εάν επιλέξετε < ΟΧΙ >, η εντολή θα συνεχίσει χωρίς αυτά", "Θέλετε να ανοίξω το φύλλο ??"},
       box_style::kYesNoCancel});
  if (answer == Answer::kYes) OpenKeptSheet(desk);
  return answer != Answer::kNo;
}

}  // namespace kalvo
