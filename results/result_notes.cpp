#include "results/result_notes.h"

#include <algorithm>

#include "engine/lost_walk.h"

namespace kalvo {
namespace {

struct NoteKind {
  std::vector<int> ResultNotes::*sections;
  const char* of_many;
  const char* of_one;
};

constexpr NoteKind kNoteKinds[] = {
    {&ResultNotes::above_design_velocity, "Τμήματα με ταχύτητα πάνω από την ταχύτητα σχεδιασμού",
     "Ταχύτητα πάνω από την ταχύτητα σχεδιασμού"},
    {&ResultNotes::on_largest_pipe, "Τμήματα με τη μεγαλύτερη διάμετρο του συστήματος",
     "Η μεγαλύτερη διάμετρος του συστήματος"},
    {&ResultNotes::negative_drop,
     "Τμήματα με αρνητική πτώση, από τη μείωση της διαμέτρου τους στον 2ο τρόπο",
     "Αρνητική πτώση, από τη μείωση της διαμέτρου του στον 2ο τρόπο"},
    {&ResultNotes::outlets_in_need, "Υποδοχείς που χρειάζονται περισσότερο από όσο δίνει η αντλία",
     "Ο Υποδοχέας χρειάζεται περισσότερο από όσο δίνει η αντλία"},
    {&ResultNotes::before_feeder,
     "Τμήματα πριν από τον τροφοδότη τους, με Διαθέσιμη πίεση που δεν ισχύει",
     "Πριν από τον τροφοδότη του, με Διαθέσιμη πίεση που δεν ισχύει"},
};

}  // namespace

std::vector<std::string> NoteLines(const ResultNotes& notes) {
  std::vector<std::string> lines;
  for (const NoteKind& kind : kNoteKinds) {
    if (const std::vector<int>& sections = notes.*kind.sections; !sections.empty()) {
      lines.push_back(kind.of_many + (" : " + NumberRanges(sections)));
    }
  }
  return lines;
}

std::vector<std::string> NoteLinesOf(const ResultNotes& notes, int section) {
  std::vector<std::string> lines;
  for (const NoteKind& kind : kNoteKinds) {
    if (std::ranges::count(notes.*kind.sections, section) != 0) {
      lines.emplace_back(kind.of_one);
    }
  }
  return lines;
}

std::string LostWalkNote(const Study& study, const LostWalk& lost) {
  return "Τα αποτελέσματα ΔΕΝ ισχύουν : " + LostWalkText(study, lost);
}

std::string JoinLines(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) {
    text += (text.empty() ? "" : "\n") + line;
  }
  return text;
}

}  // namespace kalvo
