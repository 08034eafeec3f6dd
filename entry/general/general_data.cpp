#include "entry/general/general_data.h"

#include "study/fault.h"
#include "study/tables.h"

namespace kalvo {
namespace {

GeneralData DataOf(const Study& study) {
  return {study.MeanTemp, study.MeanVel, study.plant_section};
}

std::string IntroLine(const Study& study, const GeneralData& data) {
  return NumberText(study.TotalFlowM3h) + "," + NumberText(data.MeanTemp) + "," +
         NumberText(data.MeanVel) + "," + NumberText(data.plant_section) + "," +
         NumberText(study.pipe_system_number) + "\n";
}

bool DiffersFromNote(const Workbench& bench, const GeneralData& data) {
  const auto noted = bench.workspace.Read(work_file::kGeneralData);
  return !noted || *noted != IntroLine(bench.study, data);
}

Outcome RewriteRows(const Workbench& bench, const GeneralData& data) {
  RowFile<SectionRow> file = bench.workspace.Rows();
  auto rows = file.ReadAll();
  if (!rows) return rows.error();
  for (SectionRow& row : *rows) {
    row.MeanTemp = data.MeanTemp;
    row.PAR = bench.study.TotalFlowM3h;
    row.MeanVel = data.MeanVel;
    row.FileNumber = bench.study.pipe_system_number;
    row.BurChil = data.plant_section;
    MarkPlant(row, data.plant_section);
  }
  return file.WriteAll(*rows);
}

}  // namespace

Outcome NoteGeneralData(Workbench& bench) {
  bench.workspace.Delete(work_file::kGeneralData);
  const Study& study = bench.study;
  const bool complete = study.TotalFlowM3h != 0 && study.MeanTemp != 0 && study.MeanVel != 0;
  if (!complete && study.plant_section == 0) return Done{};
  return bench.workspace.Write(work_file::kGeneralData, IntroLine(study, DataOf(study)));
}

Outcome StoreGeneralData(Workbench& bench, const GeneralData& data, bool has_rows) {
  Study& study = bench.study;
  if (has_rows && DiffersFromNote(bench, data)) {
    if (Outcome written = RewriteRows(bench, data); !written) return written;
    study.unsaved_changes = true;
    study.results_valid = false;
  }
  study.MeanTemp = data.MeanTemp;
  study.MeanVel = data.MeanVel;
  study.plant_section = data.plant_section;
  return Done{};
}

Result<float> EmittersFlow(const Workspace& workspace) {
  const auto rows = workspace.Rows().ReadAll();
  if (!rows) return rows.error();
  double flow = 0;
  for (const SectionRow& row : RowsWithEmitter(*rows)) {
    flow += row.WaterFlow;
  }
  return ToSingle(flow / 1000);
}

}  // namespace kalvo
