#include "study/tables.h"

#include <algorithm>

#include "study/fault.h"

namespace kalvo {

void RefreshSectionTable(Study& study, std::span<const SectionRow> rows) {
  study.SectionCount = ToInt16(static_cast<double>(rows.size()));
  study.SectionTable.clear();
  study.SectionTable.reserve(rows.size());
  for (const SectionRow& row : rows) {
    study.SectionTable.push_back({row.RecordNumber, row.Name, ThroughText(row.WaterFlow)});
  }
}

void KeepCalculatedDiameters(Study& study, std::span<const SectionRow> rows) {
  study.CalculatedDiameters.clear();
  for (const SectionRow& row : rows) {
    study.CalculatedDiameters.push_back(row.NomiDiam);
  }
}

void RefreshEmitterTable(Study& study, std::span<const SectionRow> emitters) {
  study.EmitterCount = ToInt16(static_cast<double>(emitters.size()));
  study.EmitterTable.clear();
  study.EmitterTable.reserve(emitters.size());
  for (const SectionRow& row : emitters) {
    study.EmitterTable.push_back(
        {row.RecordNumber, ThroughText(row.WaterFlow), ThroughText(row.SomaDrop)});
  }
}

std::vector<SectionRow> RowsWithEmitter(std::span<const SectionRow> rows) {
  std::vector<SectionRow> emitters;
  emitters.reserve(static_cast<std::size_t>(std::count_if(
      rows.begin(), rows.end(), [](const SectionRow& row) { return row.HasEmitter(); })));
  std::copy_if(rows.begin(), rows.end(), std::back_inserter(emitters),
               [](const SectionRow& row) { return row.HasEmitter(); });
  return emitters;
}

}  // namespace kalvo
