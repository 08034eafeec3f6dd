#include "engine/pipe_stats.h"

#include <algorithm>

#include "engine/fittings.h"
#include "engine/row_store.h"

namespace kalvo {

namespace {

void AddTo(float& total, double amount) { total = ToSingle(total + amount); }

// Adds a section's share to the totals, or with sign -1 takes it off.
void AddQuantities(StatRow& line, const SectionRow& row, double area_m2, double sign) {
  AddTo(line.Length, sign * row.Length);
  AddTo(line.FluidVolume, sign * (area_m2 * row.Length));
  for (const Fitting& fitting : kFittings) {
    if (fitting.total != nullptr) {
      AddTo(line.*fitting.total, sign * NumberOf(row, fitting.count));
    }
  }
}

StatRow LineOf(const PipeRow& pipe) {
  StatRow line;
  line.RecordNumber = pipe.pipe_id;
  line.NomiDiameter = FixedText<12>::FromBytes(pipe.nominal_diameter.Trimmed());
  line.InDiameter = pipe.inner_diameter;
  line.PipeMaterial = FixedText<78>::FromBytes(pipe.material.Trimmed());
  return line;
}

StatRow* LineOfName(Study& study, std::string_view name) {
  const auto found =
      std::find_if(study.PipeStats.begin(), study.PipeStats.end(),
                   [name](const StatRow& line) { return line.NomiDiameter.Trimmed() == name; });
  return found == study.PipeStats.end() ? nullptr : &*found;
}

}  // namespace

void StartPipeStats(Study& study, const std::vector<PipeRow>& library) {
  study.PipeStats.clear();
  std::transform(library.begin(), library.end(), std::back_inserter(study.PipeStats), LineOf);
}

void AddToPipeStats(Study& study, const PipeRow& pipe, const SectionRow& row, double area_m2) {
  const auto found =
      std::find_if(study.PipeStats.begin(), study.PipeStats.end(),
                   [&pipe](const StatRow& line) { return line.RecordNumber == pipe.pipe_id; });
  if (found == study.PipeStats.end()) {
    return;
  }
  found->NomiDiameter = FixedText<12>::FromBytes(pipe.nominal_diameter.Trimmed());
  found->InDiameter = pipe.inner_diameter;
  AddQuantities(*found, row, area_m2, 1.0);
}

void MoveInPipeStats(Study& study, std::string_view old_name, const SectionRow& row) {
  const std::string_view old_trimmed = Trim(old_name);
  const std::string_view new_name = row.NomiDiam.Trimmed();
  if (old_trimmed.empty() || old_trimmed == new_name) {
    return;
  }
  StatRow* old_line = LineOfName(study, old_trimmed);
  StatRow* new_line = LineOfName(study, new_name);
  if (old_line == nullptr || new_line == nullptr || new_line->InDiameter >= old_line->InDiameter) {
    return;
  }
  AddQuantities(*old_line, row, row.Area, -1.0);
  AddQuantities(*new_line, row, row.Area, 1.0);
}

void WriteStatistics(Workbench& bench) {
  Require(bench.workspace.Rows<StatRow>(work_file::kStatistics).WriteAll(bench.study.PipeStats));
}

}  // namespace kalvo
