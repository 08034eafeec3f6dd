#include "results/designer/designer_lock.h"

#include "form/tell.h"
#include "results/designer/designer_boxes.h"
#include "results/designer/designer_name.h"
#include "study/designer_names.h"

namespace kalvo {

bool MayPrintThroughProgram(Desk& desk) {
  const auto list = ReadDesigners(desk.bench.workspace);
  if (!list) {
    TellError(desk.bench, list.error());
    return false;
  }
  desk.screens.AccessPassword = list->password;
  if (list->password.empty()) return true;
  if (!AskForListPassword(desk)) return false;
  const auto name = DesignerName(desk);
  if (!name) {
    TellError(desk.bench, name.error());
    return false;
  }
  if (list->Has(*name)) return true;
  desk.bench.Ask(
      DesignerBox({name->empty() ? "... ΔΕΝ έχει επιλεγεί Όνομα Μελετητή ..."
                                 : "... Το Όνομα < " + *name + " >, ΔΕΝ υπάρχει στη Λίστα ...",
                   "... Το Όνομα αλλάζει με < Επιλογή Ονόματος Μελετητή > ..."}));
  return false;
}

}  // namespace kalvo
