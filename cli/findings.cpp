#include "cli/findings.h"

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
         " χάνεται στον Κόμβο " + lost.node;
}

}  // namespace

void PrintFindings(std::ostream& stream, Session& session) {
  if (const auto text = session.workspace().Read(work_file::kErrors)) {
    stream << *text;
  }
  if (session.study().lost_walk) {
    stream << LostText(*session.study().lost_walk) << '\n';
    if (!session.workspace().Exists(work_file::kErrors)) {
      stream << GreekSourceFindings(session.study().SectionTable);
    }
  }
}

}  // namespace kalvo
