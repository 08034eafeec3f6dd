#include "engine/trap.h"

#include "study/calculation_boxes.h"

namespace kalvo {

std::optional<FaultNote> ReportCalcError(Workbench& bench, const Fault& fault) {
  const FaultNote note = bench.NoteFault(fault);
  Box box = CalcErrorBox(note.number);
  const bool resumable = fault.code() == FaultCode::kResumable;
  if (!resumable) {
    box.lines.push_back(KnownLine(note));
  }
  const Answer answer = bench.Ask(box);
  if (resumable && answer == Answer::kYes) {
    return std::nullopt;
  }
  bench.study.failed_row = ToInt16(note.row);
  return note;
}

}  // namespace kalvo
