#include "results/designer/designer_boxes.h"

#include <utility>

#include "study/codepage.h"

namespace kalvo {
namespace {

/// Characters of a name in a print that the program makes by itself.
constexpr std::size_t kRoomInProgramPrint = 50;

}  // namespace

Box DesignerBox(std::vector<std::string> lines) {
  return {"  ! !   ΠΡΟΣΟΧΗ   ! ! ", std::move(lines), box_style::kExclamation, kAlarmBeeps};
}

Box DesignerQuestion(std::string title, std::vector<std::string> lines, int style) {
  return {std::move(title), std::move(lines), style, kAlarmBeeps};
}

bool HasPassword(Workbench& bench, const Field& field, const std::string& password) {
  const std::string typed = field.Trimmed();
  if (typed == password) return true;
  bench.Ask(DesignerBox(
      {typed.empty() ? "!! ΔΕΝ έχετε δώσει το Password !!" : "!! Το Password ΔΕΝ ισχύει !!"}));
  return false;
}

bool FitsProgramPrint(std::string_view name) {
  return CountCharacters(name) <= kRoomInProgramPrint;
}

Box TooLongForProgramPrint() {
  return DesignerBox(
      {"     ... Για < Εκτύπωση μέσω του Προγράμματος (και όχι μέσω του Microsot Excel) > ...   "
       "  ",
       "... το όνομα του Μελετητή ΔΕΝ πρέπει να περιλαμβάνει περισσότερους από 50 χαρακτήρες "
       "..."});
}

}  // namespace kalvo
