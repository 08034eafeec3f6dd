#include "engine/diameter_change.h"

#include <cmath>

#include "engine/row_store.h"
#include "engine/trap.h"

namespace kalvo {

namespace {

bool IsRow(const RowTable& rows, int number) { return number >= 1 && number <= rows.count(); }

// False: it has this diameter.
bool Impose(SectionRow& row, const PipeRow& pipe, const SectionRow* first) {
  const std::string_view name = pipe.nominal_diameter.Trimmed();
  if (row.NomiDiam.Trimmed() == name) {
    return false;
  }
  const bool comes_back = first != nullptr && first->NomiDiam.Trimmed() == name;
  row.NomiDiam = FixedText<15>::FromBytes(pipe.nominal_diameter.bytes());
  row.InDiameter = comes_back ? first->InDiameter : -pipe.inner_diameter;
  return true;
}

double HeadIn(const RowTable& rows) { return rows.At(1).DP / 1000.0; }

double ContentOf(const RowTable& rows, const std::vector<PipeRow>& library) {
  double content = 0;
  for (const SectionRow& row : rows.rows()) {
    content += AreaM2(PipeOfDiameter(library, std::fabs(row.InDiameter))) * row.Length;
  }
  return content;
}

std::vector<ChangedSection> ChangedSections(const RowTable& before, const RowTable& after) {
  std::vector<ChangedSection> sections;
  for (int number = 1; number <= after.count() && IsRow(before, number); ++number) {
    const SectionRow& was = before.At(number);
    const SectionRow& is = after.At(number);
    ChangedSection section{number,
                           is.Name.Utf8(),
                           {was.NomiDiam.Utf8(), is.NomiDiam.Utf8()},
                           {was.Velocity, is.Velocity},
                           {was.TotalDrop, is.TotalDrop},
                           {was.AvaiPres, is.AvaiPres}};
    if (section.diameter.Differs() || section.velocity.Differs() || section.drop.Differs() ||
        section.pressure.Differs()) {
      sections.push_back(std::move(section));
    }
  }
  return sections;
}

}  // namespace

int ReplaceDiameters(RowTable& rows, const DiameterChange& change, const RowTable& first) {
  int replaced = 0;
  for (const int number : change.sections) {
    if (!IsRow(rows, number)) continue;
    const SectionRow* before = IsRow(first, number) ? &first.At(number) : nullptr;
    replaced += Impose(rows.At(number), change.pipe, before) ? 1 : 0;
  }
  return replaced;
}

namespace {

int ReplaceAll(RowTable& rows, const std::vector<DiameterChange>& changes, const RowTable& first) {
  int replaced = 0;
  for (const DiameterChange& change : changes) replaced += ReplaceDiameters(rows, change, first);
  return replaced;
}

}  // namespace

Result<int> ReplaceDiameters(Workbench& bench, const DiameterChange& change) {
  const auto first = bench.workspace.Rows(work_file::kFirstRows).ReadAll();
  if (!first) return first.error();
  auto file = bench.workspace.Rows();
  auto rows = file.ReadAll();
  if (!rows) return rows.error();
  RowTable table(*std::move(rows));
  const int replaced = ReplaceDiameters(table, change, RowTable(*first));
  if (replaced == 0) return 0;
  if (Outcome written = file.WriteAll(table.rows()); !written) return written.error();
  bench.study.unsaved_changes = true;
  return replaced;
}

ResultComparison CompareResults(const ComparedRows& before, const ComparedRows& after,
                                const std::vector<PipeRow>& library) {
  ResultComparison comparison;
  comparison.flow = {before.rows.At(1).PAR, after.rows.At(1).PAR};
  comparison.head = {HeadIn(before.rows), HeadIn(after.rows)};
  comparison.critical_branch = {before.critical_branch, after.critical_branch};
  comparison.fluid_content = {ContentOf(before.rows, library), ContentOf(after.rows, library)};
  comparison.sections = ChangedSections(before.rows, after.rows);
  return comparison;
}

ChangeOutcome ChangeDiameters(Workbench& bench, const std::vector<DiameterChange>& changes) {
  ChangeOutcome outcome;
  const std::string branch = bench.study.critical_branch;
  RowTable before;
  RowTable first;
  std::vector<PipeRow> library;
  const auto prepare = [&] {
    before = ReadRows(bench.workspace);
    first = ReadRows(bench.workspace, work_file::kFirstRows);
    library = Require(ReadPipeSystem(bench.workspace, bench.study.pipe_system_number));
    RowTable tried = before;
    outcome.replaced = ReplaceAll(tried, changes, first);
  };
  if (RunTrapped(bench, prepare)) {
    outcome.end = RunEnd::kBrokenOff;
    return outcome;
  }
  if (outcome.replaced == 0) {
    outcome.comparison = CompareResults({before, branch}, {before, branch}, library);
    return outcome;
  }
  outcome.end = RerunChanged(bench, [&](RowTable& rows) { ReplaceAll(rows, changes, first); });
  if (outcome.end != RunEnd::kCalculated) return outcome;
  RunTrapped(bench, [&] {
    const RowTable after = ReadRows(bench.workspace);
    outcome.comparison =
        CompareResults({before, branch}, {after, bench.study.critical_branch}, library);
  });
  return outcome;
}

}  // namespace kalvo
