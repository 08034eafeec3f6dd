#include "shell/imposed_diameters.h"

#include <algorithm>

#include "engine/sizing.h"
#include "form/tell.h"
#include "shell/message_table.h"
#include "shell/study_progress.h"
#include "study/pipe_list.h"

namespace kalvo {
namespace {

struct ImposedRows {
  int all = 0;
  int may_stay = 0;  // the pipe system has their diameter
};

bool IsImposed(const SectionRow& row) {
  return row.InDiameter < 0 && !row.NomiDiam.Trimmed().empty();
}

Result<ImposedRows> FindImposed(const Workbench& bench) {
  const auto rows = bench.workspace.Rows().ReadAll();
  if (!rows) return rows.error();
  ImposedRows found;
  found.all = static_cast<int>(std::ranges::count_if(*rows, IsImposed));
  if (found.all == 0) return found;
  const auto pipes = ReadPipeSystem(bench.workspace, bench.study.pipe_system_number);
  if (!pipes) return pipes.error();
  const auto stays = [&](const SectionRow& row) {
    return IsImposed(row) && KeepsDiameter(*pipes, row);
  };
  found.may_stay = static_cast<int>(std::ranges::count_if(*rows, stays));
  return found;
}

std::string Chosen(int count) {
  return count == 1 ? "1 διάμετρο που επιλέξατε εσείς"
                    : std::to_string(count) + " διαμέτρους που επιλέξατε εσείς";
}

Box WhetherTheyStay(const ImposedRows& imposed) {
  Box box{std::string(kAttentionTitle),
          {"!! Η Μελέτη έχει " + Chosen(imposed.may_stay) + " !!"},
          box_style::kYesNoCancel};
  if (imposed.may_stay < imposed.all) {
    box.lines.emplace_back("(όσες ακόμη είναι άλλου Συστήματος Σωλήνων, δεν μένουν)");
  }
  box.lines.insert(box.lines.end(),
                   {"< ΝΑΙ > : τα Τμήματα μένουν με τις διαμέτρους που έχουν",
                    "< ΟΧΙ > : όλες οι διάμετροι βρίσκονται από την αρχή", "Θέλετε να μείνουν ??"});
  return box;
}

Box WhetherToGoWithout(const ImposedRows& imposed) {
  return {std::string(kAttentionTitle),
          {"!! Η Μελέτη έχει " + Chosen(imposed.all) + " !!",
           "Δεν υπάρχουν στο Σύστημα Σωλήνων που ισχύει τώρα, και χάνονται.",
           "Θέλετε να βρεθούν όλες οι διάμετροι από την αρχή ??"},
          box_style::kStopDefaultNo};
}

}  // namespace

ImposedDiameters AskAboutImposedDiameters(Workbench& bench) {
  const auto imposed = FindImposed(bench);
  if (!imposed) {
    TellError(bench, imposed.error());
    return ImposedDiameters::kUndecided;
  }
  if (imposed->all == 0) return ImposedDiameters::kNone;
  const bool may_stay = imposed->may_stay > 0;
  const Answer answer =
      bench.Ask(may_stay ? WhetherTheyStay(*imposed) : WhetherToGoWithout(*imposed));
  if (answer == Answer::kYes) return may_stay ? ImposedDiameters::kStay : ImposedDiameters::kGo;
  return may_stay && answer == Answer::kNo ? ImposedDiameters::kGo : ImposedDiameters::kUndecided;
}

bool MaySaveWithoutImposed(Workbench& bench) {
  if (ResultsHold(bench.study)) return true;
  const auto rows = bench.workspace.Rows().ReadAll();
  if (!rows) return true;  // the save says why they cannot be read
  const auto imposed = static_cast<int>(std::ranges::count_if(*rows, IsImposed));
  if (imposed == 0) return true;
  return bench.Ask({std::string(kAttentionTitle),
                    {"!! Η Μελέτη θέλει νέους Υπολογισμούς, και αποθηκεύεται χωρίς διαμέτρους !!",
                     "Μέσα σ' αυτές, " + Chosen(imposed) + ".",
                     "Με τους Υπολογισμούς πρώτα, μένουν στο Αρχείο.",
                     "Θέλετε να αποθηκευθεί χωρίς αυτές ??"},
                    box_style::kStopDefaultNo}) == Answer::kYes;
}

}  // namespace kalvo
