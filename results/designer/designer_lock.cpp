#include "results/designer/designer_lock.h"

#include <optional>

#include "form/tell.h"
#include "results/designer/designer_boxes.h"
#include "results/designer/designer_name.h"
#include "study/designer_names.h"

namespace kalvo {
namespace {

// The designer's name, whatever it is. Nothing: it cannot be read, and a box said so.
std::optional<std::string> NameOnPaper(Desk& desk) {
  const auto name = DesignerName(desk);
  if (name) return *name;
  TellError(desk.bench, name.error());
  return std::nullopt;
}

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

bool Unlocks(Desk& desk) {
  const auto list = ReadDesigners(desk.bench.workspace);
  if (!list) {
    TellError(desk.bench, list.error());
    return false;
  }
  desk.screens.AccessPassword = list->password;
  if (list->password.empty()) return true;
  if (!AskForListPassword(desk)) return false;
  const auto name = NameOnPaper(desk);
  return name && (list->Has(*name) || ChoosesAnother(desk, *name));
}

// So can one that is too long, which may have been chosen for another print.
bool HasShortName(Desk& desk) {
  const auto name = NameOnPaper(desk);
  if (!name || FitsProgramPrint(*name)) return name.has_value();
  desk.bench.Ask(TooLongForProgramPrint());
  ChooseDesigner(desk, true);
  const auto chosen = NameOnPaper(desk);
  return chosen && FitsProgramPrint(*chosen);
}

}  // namespace

bool MayPrintThroughProgram(Desk& desk) { return Unlocks(desk) && HasShortName(desk); }

}  // namespace kalvo
