#include "engine/notes.h"

namespace kalvo {

ResultNotes NotesOf(const std::vector<SectionRow>& rows, const std::vector<PipeRow>& library) {
  ResultNotes notes;
  for (const SectionRow& row : rows) {
    if (row.Velocity > row.MeanVel) {
      notes.above_design_velocity.push_back(row.RecordNumber);
    }
    if (!library.empty() && row.NomiDiam.Trimmed() == library.back().nominal_diameter.Trimmed()) {
      notes.on_largest_pipe.push_back(row.RecordNumber);
    }
    if (row.INILAMDA == 2.0F && row.TotalDrop < 0.0F) {
      notes.negative_drop.push_back(row.RecordNumber);
    }
  }
  return notes;
}

}  // namespace kalvo
