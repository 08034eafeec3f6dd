#include "cli/findings.h"

#include "cli/text_table.h"
#include "engine/checks.h"

namespace kalvo {

namespace {

std::string LostText(const LostWalk& lost) {
  if (lost.emitter_section == 0) {
    return "Πρέπει ένα - και μόνον ένα - Τμήμα να καταλήγει στον Κόμβο ANT";
  }
  if (lost.node.empty()) {
    return "Δεν υπάρχει το Τμήμα " + std::to_string(lost.emitter_section) + " του Σώματος";
  }
  return "Ο Κλάδος του Σώματος στο Τμήμα " + std::to_string(lost.emitter_section) +
         " χάνεται στον Κόμβο " + Printable(lost.node);
}

}  // namespace

std::string FindingsText(Session& session) {
  const auto list = session.workspace().Read(work_file::kErrors);
  std::string text = list ? *list : "";
  if (session.study().lost_walk) {
    text += LostText(*session.study().lost_walk) + "\n";
    if (!list) {
      text += GreekSourceFindings(session.study().SectionTable);
    }
  }
  return text;
}

}  // namespace kalvo
