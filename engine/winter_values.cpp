#include "engine/winter_values.h"

#include <algorithm>
#include <map>

#include "engine/branches.h"
#include "engine/kept_results.h"
#include "engine/row_store.h"
#include "study/tables.h"

namespace kalvo {

namespace {

// What the passes of a winter fill in; the pipes are those of summer.
void EmptyResults(SectionRow& row) {
  for (float SectionRow::*const result : kRunResults) {
    row.*result = 0;
  }
}

using Rows = std::vector<SectionRow>;

bool HaveSameName(const SectionRow& a, const SectionRow& b) {
  return a.Name.Trimmed() == b.Name.Trimmed();
}

bool HaveSameNames(const Rows& a, const Rows& b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), HaveSameName);
}

// The only row of that name; null for none and for several.
const SectionRow* OnlyRowNamedAs(const SectionRow& section, const Rows& rows) {
  const SectionRow* found = nullptr;
  for (const SectionRow& row : rows) {
    if (!HaveSameName(row, section)) {
      continue;
    }
    if (found != nullptr) {
      return nullptr;
    }
    found = &row;
  }
  return found;
}

// The winter row of a section of summer: that of its number where the names agree, else the only
// one of its name, since rows may have come or gone in between. Null: there is none.
const SectionRow* WinterRowOf(const SectionRow& section, const Rows& summer, const Rows& winter) {
  const auto place = static_cast<std::size_t>(section.RecordNumber) - 1;
  if (place < winter.size() && HaveSameName(winter[place], section)) {
    return &winter[place];
  }
  return OnlyRowNamedAs(section, summer) == nullptr ? nullptr : OnlyRowNamedAs(section, winter);
}

// Rows as they were entered: no flow has been summed into them. Where every row has an emitter only
// the results tell; a run leaves no mean velocity, even where its results were emptied later.
bool HoldOwnFlows(const Rows& rows, const std::vector<const SectionRow*>& emitters) {
  bool others = false;
  for (const SectionRow& row : rows) {
    if (row.HasEmitter() || std::find(emitters.begin(), emitters.end(), &row) != emitters.end()) {
      continue;
    }
    if (row.WaterFlow != 0.0F) {
      return false;
    }
    others = true;
  }
  const SectionRow& first = rows.front();
  return others || (first.PAR == 0.0F && first.DP == 0.0F && first.MeanVel != 0.0F);
}

// How many circuits run through each section.
std::map<int, int> CircuitsThrough(const Study& study) {
  std::map<int, int> circuits;
  for (const Branch& branch : BuildBranchStrings(study)) {
    for (const int section : branch) {
      ++circuits[section];
    }
  }
  return circuits;
}

// The same in the network of the winter rows.
std::map<int, int> CircuitsThrough(Study study, const Rows& winter) {
  RefreshSectionTable(study, winter);
  RefreshEmitterTable(study, RowsWithEmitter(winter));
  return CircuitsThrough(study);
}

}  // namespace

std::vector<WinterLine> SummerValues(const Workbench& bench) {
  const RowTable store = ReadRows(bench.workspace);
  // A row's own flow is that of all emitters whose circuit runs through it.
  const RowTable emitters = ReadRows(bench.workspace, work_file::kEmitters);
  std::vector<WinterLine> lines;
  for (const SectionRow& emitter : emitters.rows()) {
    const SectionRow& row = store.At(emitter.RecordNumber);
    lines.push_back({emitter.RecordNumber, row.Length, emitter.WaterFlow, emitter.SomaDrop});
  }
  return lines;
}

std::optional<WinterValues> WinterValuesIn(const Workbench& bench, std::string_view work_name) {
  const RowTable winter = ReadRows(bench.workspace, work_name);
  const RowTable summer = ReadRows(bench.workspace);
  if (winter.count() == 0) {
    return std::nullopt;
  }
  WinterValues values{winter.At(1).MeanTemp, SummerValues(bench)};
  std::vector<const SectionRow*> rows;
  for (const WinterLine& line : values.lines) {
    rows.push_back(WinterRowOf(summer.At(line.section), summer.rows(), winter.rows()));
  }
  std::map<int, int> circuits;
  if (!HoldOwnFlows(winter.rows(), rows)) {
    circuits = HaveSameNames(winter.rows(), summer.rows())
                   ? CircuitsThrough(bench.study)
                   : CircuitsThrough(bench.study, winter.rows());
  }
  for (std::size_t i = 0; i < rows.size(); ++i) {
    WinterLine& line = values.lines[i];
    line.flow_lh = line.drop = 0;
    if (rows[i] == nullptr) {
      continue;
    }
    const SectionRow& row = *rows[i];
    line.length_m = row.Length;
    line.drop = row.SomaDrop;
    const auto through = circuits.find(row.RecordNumber);
    if (through == circuits.end() || through->second <= 1) {
      line.flow_lh = row.WaterFlow;
    }
  }
  return values;
}

std::vector<SectionRow> RowsOfWinterValues(std::vector<SectionRow> rows,
                                           const WinterValues& values) {
  for (SectionRow& row : rows) {
    EmptyResults(row);
    row.WaterFlow = 0;
    row.MeanTemp = values.temperature;
  }
  for (const WinterLine& line : values.lines) {
    SectionRow& row = ByNumber(rows, line.section);
    row.Length = line.length_m;
    row.WaterFlow = line.flow_lh;
    row.SomaDrop = line.drop;
  }
  return rows;
}

Outcome EmptyWinterResults(Workspace& workspace) {
  if (!workspace.HasBytes(work_file::kWinter)) {
    return Done{};
  }
  auto rows = workspace.Rows(work_file::kWinter).ReadAll();
  if (!rows) {
    return rows.error();
  }
  for (SectionRow& row : *rows) {
    EmptyResults(row);
  }
  std::string bytes = EncodeRows<SectionRow>(*rows);
  const auto before = workspace.Read(work_file::kWinter);
  return before && *before == bytes ? Outcome(Done{})
                                    : workspace.Write(work_file::kWinter, std::move(bytes));
}

}  // namespace kalvo
