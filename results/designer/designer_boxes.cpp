#include "results/designer/designer_boxes.h"

#include <utility>

namespace kalvo {

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

}  // namespace kalvo
