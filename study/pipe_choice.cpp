#include "study/pipe_choice.h"

#include "study/fault.h"

namespace kalvo {

namespace {

// The pipe system's number into every row of the study, if there are any.
Outcome WriteFileNumber(Workspace& workspace, std::int16_t number) {
  RowFile<SectionRow> file = workspace.Rows();
  auto rows = file.ReadAll();
  if (!rows) {
    return rows.error();
  }
  for (SectionRow& row : rows.value()) {
    row.FileNumber = number;
  }
  return rows->empty() ? Outcome(Done{}) : file.WriteAll(*rows);
}

}  // namespace

Outcome SetPipeMaterial(Workbench& bench) {
  const auto pipes = ReadPipeSystem(bench.workspace, bench.study.pipe_system_number);
  if (!pipes) {
    return pipes.error();
  }
  bench.study.pipe_material = pipes->front().material.Utf8();
  return Done{};
}

Outcome SelectPipeSystem(Workbench& bench, int position) {
  Study& study = bench.study;
  const std::int16_t number = ToInt16(position + 1);
  const auto pipes = ReadPipeSystem(bench.workspace, number);
  if (!pipes) {
    return pipes.error();
  }
  if (number != study.pipe_system_number) {
    if (Outcome written = WriteFileNumber(bench.workspace, number); !written) {
      return written;
    }
    study.unsaved_changes = true;
    study.results_valid = false;
  }
  study.pipe_system_number = number;
  study.pipe_material = pipes->front().material.Utf8();
  return Done{};
}

}  // namespace kalvo
