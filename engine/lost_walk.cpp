#include "engine/lost_walk.h"

#include "engine/first_row_index.h"
#include "engine/flow_report.h"
#include "study/by_number.h"

namespace kalvo {

namespace {

std::optional<LostWalk> LostInCircuits(const Study& study) {
  Study walked;
  walked.SectionTable = study.SectionTable;
  walked.WinterEmitterTable = study.EmitterTable;
  SumWinterFlows(walked);
  return walked.lost_walk;
}

// More steps than rows cannot be: the feeders then form a circle.
std::optional<LostWalk> LostAmongFeeders(const Study& study) {
  const std::vector<int> feeders = LinkFeeders(study.SectionTable);
  for (const EmitterLine& outlet : study.EmitterTable) {
    int row = outlet.section;
    if (row < 1 || row > static_cast<int>(feeders.size())) {
      return LostWalk{outlet.section, {}};
    }
    for (std::size_t step = 0; row != 1; ++step) {
      const int feeder = ByNumber(feeders, row);
      if (feeder == 0 || step == feeders.size()) {
        const auto& name = ByNumber(study.SectionTable, row).name;
        return LostWalk{outlet.section, FromCodePage(Trim(RightNode(name)))};
      }
      row = feeder;
    }
  }
  return std::nullopt;
}

bool IsSectionName(const Study& study, std::string_view node) {
  return IndexByLeftNode(study.SectionTable).First(NodeKey(ToCodePage(node))) != 0;
}

}  // namespace

std::optional<LostWalk> FindLostWalk(const Study& study) {
  return study.SystemOpen() ? LostAmongFeeders(study) : LostInCircuits(study);
}

std::string LostWalkText(const Study& study, const LostWalk& lost) {
  if (lost.emitter_section == 0) {
    return "Πρέπει ένα - και μόνον ένα - Τμήμα να καταλήγει στον Κόμβο ANT";
  }
  const bool open = study.SystemOpen();
  const std::string section = std::to_string(lost.emitter_section);
  if (lost.node.empty() && !open) {
    return "Δεν υπάρχει το Τμήμα " + section + " του Σώματος";
  }
  const std::string branch =
      std::string("Ο Κλάδος του ") + (open ? "Υποδοχέα" : "Σώματος") + " στο Τμήμα " + section;
  if (!open) {
    return branch + " χάνεται στον Κόμβο " + lost.node;
  }
  return IsSectionName(study, lost.node)
             ? branch + " επιστρέφει στο Τμήμα " + lost.node + " : οι τροφοδότες κάνουν κύκλο !!"
             : branch + " χάνεται : δεν υπάρχει ο τροφοδότης " + lost.node + " !!";
}

}  // namespace kalvo
