#include "results/designer/designer_lock.h"

#include "form/tell.h"
#include "results/designer/designer_boxes.h"
#include "results/designer/designer_name.h"
#include "study/designer_names.h"

namespace kalvo {
namespace {

// A name out of the list can be changed on the spot.
bool ChoosesAnother(Desk& desk, const std::string& name) {
  const Answer answer = desk.bench.Ask(
      DesignerQuestion("  ! !   ΠΡΟΣΟΧΗ   ! ! ",
                       {name.empty() ? "... ΔΕΝ έχει επιλεγεί Όνομα Μελετητή ..."
                                     : "... Το Όνομα < " + name + " >, ΔΕΝ υπάρχει στη Λίστα ...",
                        "... Θέλετε να επιλέξετε άλλο Όνομα ?? ..."},
                       box_style::kYesNo));
  if (answer != Answer::kYes) return false;
  ChooseDesigner(desk, true);
  const auto list = ReadDesigners(desk.bench.workspace);
  const auto chosen = DesignerName(desk);
  return list && chosen && list->Has(*chosen);
}

}  // namespace

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
  return list->Has(*name) || ChoosesAnother(desk, *name);
}

}  // namespace kalvo
