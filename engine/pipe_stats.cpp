#include "engine/pipe_stats.h"

#include <algorithm>
#include <array>

#include "engine/row_store.h"

namespace kalvo {

namespace {

constexpr std::size_t kTotals = 8;

constexpr std::array<float StatRow::*, kTotals> kTotalFields = {
    &StatRow::Length, &StatRow::FluidVolume, &StatRow::Corners, &StatRow::Elbows,
    &StatRow::GlobeV, &StatRow::StraightV,   &StatRow::CornerV, &StatRow::CheckV};

// A section's share in the totals, in the order of kTotalFields.
std::array<double, kTotals> QuantitiesOf(const SectionRow& row, double area_m2) {
  return {static_cast<double>(row.Length),    area_m2 * row.Length,
          static_cast<double>(row.AnglePOP),  static_cast<double>(row.Elbow90),
          static_cast<double>(row.GateValve), static_cast<double>(row.StrSwitch),
          static_cast<double>(row.AngSwitch), static_cast<double>(row.CheckValve)};
}

void Add(StatRow& line, const std::array<double, kTotals>& quantities, double sign) {
  for (std::size_t i = 0; i < kTotals; ++i) {
    float& total = line.*kTotalFields[i];
    total = ToSingle(total + sign * quantities[i]);
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
  Add(*found, QuantitiesOf(row, area_m2), 1.0);
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
  const auto quantities = QuantitiesOf(row, row.Area);
  Add(*old_line, quantities, -1.0);
  Add(*new_line, quantities, 1.0);
}

void WriteStatistics(Workbench& bench) {
  Require(bench.workspace.Rows<StatRow>(work_file::kStatistics).WriteAll(bench.study.PipeStats));
}

}  // namespace kalvo
