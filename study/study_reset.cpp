#include "study/study_reset.h"

#include "study/fluid_library.h"

namespace kalvo {

void ResetStudy(Workbench& bench) {
  bench.workspace.DeleteWorkFiles();
  Study fresh;
  fresh.system_kind = bench.study.system_kind;
  fresh.pipe_system_number = bench.study.pipe_system_number;
  fresh.pipe_material = bench.study.pipe_material;
  fresh.entry_mode = bench.study.entry_mode;
  fresh.unsaved_changes = bench.study.unsaved_changes;
  fresh.CalcStatus = bench.study.CalcStatus;
  bench.study = fresh;
  // Without room for the fluid's one record the calculation will ask for the fluid.
  static_cast<void>(WriteStudyFluid(bench, WaterRow(bench.workspace)));
}

}  // namespace kalvo
