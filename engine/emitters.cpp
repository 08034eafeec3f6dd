#include "engine/emitters.h"

#include <algorithm>
#include <map>

#include "engine/checks.h"
#include "engine/flow_report.h"
#include "engine/row_store.h"
#include "study/tables.h"

namespace kalvo {

namespace {

using Rows = std::vector<SectionRow>;

// Emitters of the rows over the old emitter file: what the file held beyond them stays, but for
// records of sections that are no more.
Rows MergeEmitters(const Rows& rows, const Rows& old_file) {
  Rows emitters = RowsWithEmitter(rows);
  for (std::size_t i = emitters.size(); i < old_file.size(); ++i) {
    const int number = old_file[i].RecordNumber;
    if (number >= 1 && number <= static_cast<int>(rows.size())) {
      emitters.push_back(old_file[i]);
    }
  }
  return emitters;
}

// Copies each emitter's values into its section where the names agree; gives the total flow, l/h.
float CopyIntoSections(const Rows& emitters, RowTable& store) {
  float total = 0;
  for (const SectionRow& emitter : emitters) {
    SectionRow& row = store.At(emitter.RecordNumber);
    if (row.Name != emitter.Name) {
      continue;
    }
    total = ToSingle(static_cast<double>(total) + emitter.WaterFlow);
    row.WaterFlow = emitter.WaterFlow;
    row.SomaDrop = emitter.SomaDrop;
  }
  return total;
}

// Every section gets what the emitter table says of it, nothing where it says nothing.
void CopyFromTable(const std::vector<EmitterLine>& table, RowTable& store) {
  std::map<int, const EmitterLine*> by_section;
  for (const EmitterLine& line : table) {
    by_section.emplace(line.section, &line);
  }
  for (SectionRow& row : store.rows()) {
    const auto found = by_section.find(row.RecordNumber);
    const bool has = found != by_section.end();
    row.WaterFlow = has ? ToSingle(found->second->flow_lh) : 0.0F;
    row.SomaDrop = has ? ToSingle(found->second->drop) : 0.0F;
  }
}

void SumFlows(Workbench& bench) {
  if (!WriteSectionFlows(bench)) {
    ShowLostWalk(bench);
  }
}

void CopyFlows(const std::vector<SectionLine>& table, RowTable& store) {
  for (std::size_t i = 0; i < table.size(); ++i) {
    SectionRow& row = store.rows()[i];
    if (row.RecordNumber == table[i].number && row.Name.Trimmed() == Trim(table[i].name.bytes())) {
      row.WaterFlow = ToSingle(table[i].flow_lh.value_or(0.0));
    }
  }
}

void WriteGeneralValues(const Study& study, RowTable& store) {
  const auto material = FixedText<78>::FromUtf8(study.pipe_material);
  for (SectionRow& row : store.rows()) {
    row.Material = material;
    row.MeanTemp = study.MeanTemp;
    row.MeanVel = study.MeanVel;
    row.TOT = study.SectionCount;
    row.PAR = study.TotalFlowM3h;
    row.Outlets = study.EmitterCount;
    SetKind(row, SystemKind::kClosed, kKindOfEmitters);
  }
}

void CheckRebuilt(Workbench& bench) {
  bench.workspace.Delete(work_file::kErrors);
  if (CheckNodes(bench) == CheckEnd::kFindings) {
    bench.study.NameErrors = true;
  }
}

}  // namespace

void RebuildEmitterData(Workbench& bench, const SummedFlows* known) {
  Study& study = bench.study;
  RowStore store(bench.workspace);
  RowFile<SectionRow> file = bench.workspace.Rows(work_file::kEmitters);
  const Rows old_file = Require(file.ReadAll());
  const Rows emitters = MergeEmitters(store.rows(), old_file);
  Require(file.WriteAll(emitters));
  bench.workspace.Delete(work_file::kEmittersInWork);
  const bool had_tail = old_file.size() > RowsWithEmitter(store.rows()).size();
  if (had_tail || study.EmitterCount != static_cast<int>(emitters.size())) {
    study.unsaved_changes = true;
  }
  RefreshEmitterTable(study, emitters);
  study.TotalFlowM3h = ToSingle(CopyIntoSections(emitters, store) / 1000.0);
  CopyFromTable(study.EmitterTable, store);
  RefreshSectionTable(study, store.rows());
  study.SingleSection = store.count() == 1;
  const bool same = known != nullptr && study.SectionTable == known->before &&
                    study.EmitterTable == known->emitters;
  if (same) {
    study.SectionTable = known->after;
  } else if (!study.SingleSection) {
    SumFlows(bench);
  }
  CopyFlows(study.SectionTable, store);
  WriteGeneralValues(study, store);
  store.Save();
  if (!same && !study.SingleSection) {
    CheckRebuilt(bench);
  }
  study.emitters_unchecked = false;
}

}  // namespace kalvo
