#include "engine/outlets.h"

#include <algorithm>
#include <set>

#include "engine/row_store.h"
#include "study/tables.h"

namespace kalvo {

namespace {

using Rows = std::vector<SectionRow>;

Rows ReadOutlets(const Workspace& workspace) {
  return Require(workspace.Rows(work_file::kEmitters).ReadAll());
}

bool IsOnlyOneNamed(const FixedText<7>& name, const Rows& rows) {
  return std::count_if(rows.begin(), rows.end(),
                       [&name](const SectionRow& row) { return row.Name == name; }) == 1;
}

// Values of a row that has none: those of the outlet that bore its name, which the rows may not
// know any more after an insertion or deletion. What flowed on to others is no outlet's flow.
void TakeFormerValues(SectionRow& record, const Rows& before, const Rows& rows) {
  record.WaterFlow = 0;
  const auto former =
      std::find_if(before.begin(), before.end(), [&record](const SectionRow& outlet) {
        return outlet.RecordNumber != 0 && outlet.Name == record.Name && outlet.HasEmitter();
      });
  if (former != before.end() && IsOnlyOneNamed(record.Name, rows)) {
    record.WaterFlow = former->WaterFlow;
    record.SomaDrop = former->SomaDrop;
    record.HeightDiff = former->HeightDiff;
  }
}

bool HasValues(const SectionRow& row, const OutletValues& values) {
  return row.WaterFlow == values.flow_lh && row.SomaDrop == values.pressure_m &&
         row.HeightDiff == values.height_m;
}

bool SameValues(const SectionRow& a, const SectionRow& b) {
  return HasValues(a, {b.WaterFlow, b.SomaDrop, b.HeightDiff});
}

bool SameOutlets(const Rows& a, const Rows& b) {
  return std::ranges::equal(a, b, [](const SectionRow& one, const SectionRow& other) {
    return one.RecordNumber == other.RecordNumber && SameValues(one, other);
  });
}

// Both say the same of outlets and of the study; the flow of a section that is no outlet may be a
// sum.
bool RowsAgree(const RowTable& before, const RowTable& after) {
  return std::ranges::equal(
      before.rows(), after.rows(), [](const SectionRow& was, const SectionRow& is) {
        const bool is_outlet = is.HasEmitter() || is.WaterFlow != 0;
        return was.Outlets == is.Outlets && KindOf(was) == KindOf(is) &&
               was.SomaDrop == is.SomaDrop && (!is_outlet || SameValues(was, is));
      });
}

void MarkOutletsChanged(Study& study) {
  study.unsaved_changes = true;
  study.results_valid = false;
}

}  // namespace

double FeederNumber(const FixedText<7>& name) {
  return ParseNumber(FromCodePage(RightNode(name)), ForceDotDecimal({}));
}

std::vector<int> FindOutlets(const Rows& rows) {
  std::set<double> feeding;
  for (std::size_t i = 1; i < rows.size(); ++i) {  // row 1 hangs on nothing
    feeding.insert(FeederNumber(rows[i].Name));
  }
  std::vector<int> outlets;
  for (const SectionRow& row : rows) {
    if (!feeding.contains(row.RecordNumber)) {
      outlets.push_back(row.RecordNumber);
    }
  }
  return outlets;
}

Rows FormerOutlets(const Workspace& workspace) {
  const RowTable rows = ReadRows(workspace);
  const std::vector<int> outlets = FindOutlets(rows.rows());
  Rows former = RowsWithEmitter(rows.rows());
  std::erase_if(former, [&outlets](const SectionRow& row) {
    return std::ranges::find(outlets, row.RecordNumber) != outlets.end();
  });
  return former;
}

Rows ListOutlets(Workbench& bench) {
  const RowTable store = ReadRows(bench.workspace);
  const Rows before = ReadOutlets(bench.workspace);
  Rows records;
  for (const int number : FindOutlets(store.rows())) {
    SectionRow& record = records.emplace_back(store.At(number));
    if (!record.HasEmitter()) {
      TakeFormerValues(record, before, store.rows());
    }
  }
  const bool is_first = !bench.workspace.Exists(work_file::kEmitters);
  if (records.size() == 1 && is_first) {
    bench.study.unsaved_changes = true;
  }
  if (is_first || !SameOutlets(records, before) ||
      !std::ranges::equal(records, before, {}, &SectionRow::Name, &SectionRow::Name)) {
    Require(bench.workspace.Rows(work_file::kEmitters).WriteAll(records));
  }
  bench.study.EmitterCount = ToInt16(static_cast<double>(records.size()));
  return records;
}

void StoreOutlet(Workbench& bench, int index, const OutletValues& values) {
  RowStore outlets(bench.workspace, work_file::kEmitters);
  RowStore rows(bench.workspace);
  SectionRow& outlet = outlets.At(index);
  if (HasValues(outlet, values) && HasValues(rows.At(outlet.RecordNumber), values)) {
    return;
  }
  for (SectionRow* row : {&outlet, &rows.At(outlet.RecordNumber)}) {
    row->WaterFlow = values.flow_lh;
    row->SomaDrop = values.pressure_m;
    row->HeightDiff = values.height_m;
  }
  outlets.Save();
  rows.Save();
}

Rows CopyOutletsToRows(const Workspace& workspace, RowStore& store) {
  const Rows records = ReadOutlets(workspace);
  for (SectionRow& row : store.rows()) {
    row.WaterFlow = 0;
    row.SomaDrop = 0;
  }
  Rows known;
  known.reserve(records.size());
  std::set<int> seen;
  for (const SectionRow& record : records) {
    const int number = record.RecordNumber;
    if (number < 1 || number > store.count() || !seen.insert(number).second) {
      continue;
    }
    SectionRow& row = store.At(number);
    row.WaterFlow = record.WaterFlow;
    row.SomaDrop = record.SomaDrop;
    known.push_back(record);
  }
  return known;
}

void EndOutlets(Workbench& bench, const Rows& opened) {
  Study& study = bench.study;
  RowStore store(bench.workspace);
  const RowTable before = store;
  const Rows outlets = CopyOutletsToRows(bench.workspace, store);
  const std::int16_t count = ToInt16(static_cast<double>(outlets.size()));
  float total = 0;
  for (const SectionRow& outlet : outlets) {
    store.At(outlet.RecordNumber).HeightDiff = outlet.HeightDiff;
    total = ToSingle(static_cast<double>(total) + outlet.WaterFlow);
  }
  for (SectionRow& row : store.rows()) {
    row.TOT = ToInt16(store.count());
    row.Outlets = count;
    SetKind(row, SystemKind::kOpen, kKindOfEmitters);
  }
  if (!SameOutlets(outlets, opened) || !RowsAgree(before, store)) {
    store.Save();
    study.TotalFlowM3h = ToSingle(total / 1000.0);
    RefreshSectionTable(study, store.rows());
    RefreshEmitterTable(study, outlets);
    MarkOutletsChanged(study);  // the feeders have no flow until the next run
  }
  study.NameErrors = false;
  study.emitters_unchecked = !std::all_of(outlets.begin(), outlets.end(), HasOutletValues);
}

void LeaveOutletsUnchecked(Workbench& bench, const Rows& opened) {
  if (!SameOutlets(ReadOutlets(bench.workspace), opened)) {
    MarkOutletsChanged(bench.study);
  }
  bench.study.emitters_unchecked = true;
}

}  // namespace kalvo
