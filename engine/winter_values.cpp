#include "engine/winter_values.h"

#include <algorithm>
#include <map>

#include "engine/branches.h"
#include "engine/kept_results.h"
#include "engine/row_store.h"

namespace kalvo {

namespace {

// What the passes of a winter fill in; the pipes are those of summer.
void EmptyResults(SectionRow& row) {
  for (float SectionRow::*const result : kRunResults) {
    row.*result = 0;
  }
}

bool IsEmitter(const std::vector<WinterLine>& lines, int section) {
  return std::any_of(lines.begin(), lines.end(),
                     [section](const WinterLine& line) { return line.section == section; });
}

// Rows as they were entered: no flow has been summed into them.
bool HoldOwnFlows(const std::vector<SectionRow>& rows, const std::vector<WinterLine>& lines) {
  bool others = false;
  for (const SectionRow& row : rows) {
    if (IsEmitter(lines, row.RecordNumber)) {
      continue;
    }
    if (row.WaterFlow != 0.0F) {
      return false;
    }
    others = true;
  }
  return others;
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
  if (winter.count() == 0 || winter.count() != summer.count()) {
    return std::nullopt;
  }
  WinterValues values{winter.At(1).MeanTemp, SummerValues(bench)};
  const bool own = HoldOwnFlows(winter.rows(), values.lines);
  const std::map<int, int> circuits = own ? std::map<int, int>() : CircuitsThrough(bench.study);
  for (WinterLine& line : values.lines) {
    const SectionRow& row = winter.At(line.section);
    line.flow_lh = line.drop = 0;
    if (row.Name.Trimmed() != summer.At(line.section).Name.Trimmed()) {
      continue;
    }
    line.length_m = row.Length;
    line.drop = row.SomaDrop;
    const auto through = circuits.find(line.section);
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
