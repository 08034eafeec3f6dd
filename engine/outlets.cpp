#include "engine/outlets.h"

#include <algorithm>
#include <set>
#include <unordered_map>
#include <utility>

#include "engine/first_row_index.h"
#include "engine/row_store.h"
#include "study/tables.h"

namespace kalvo {

namespace {

using Rows = std::vector<SectionRow>;

Rows ReadOutlets(const Workspace& workspace) {
  return Require(workspace.Rows(work_file::kEmitters).ReadAll());
}

// Gives every row the flow and pressure of its record, none without one. Returns the records that
// belong to a row; what the file holds of rows that are no more is passed over.
Rows CopyToRows(const Rows& records, RowStore& store) {
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

// A section that a level of the summing stands at, and the flow that has come to it.
struct Arrival {
  int row = 0;  // 0: no section bears the name
  double flow_lh = 0;
};

class OutletSummer {
 public:
  explicit OutletSummer(std::vector<SectionLine>& table)
      : table_(table),
        feeders_(LinkFeeders(table)),
        namesakes_(Namesakes(table)),
        arrival_of_(table.size() + 1) {}

  // False when flows go round in a circle of feeders.
  bool Sum(std::vector<Arrival> level) {
    for (std::size_t round = 0; round <= table_.size(); ++round) {
      level = FeedersOf(level);
      AddFlows(level);
      if (level.size() <= 1) {
        return true;
      }
    }
    return false;
  }

 private:
  static std::size_t At(int row) { return static_cast<std::size_t>(row - 1); }

  // For every row the next one of the same own name, 0 without one.
  static std::vector<int> Namesakes(const std::vector<SectionLine>& table) {
    std::vector<int> next(table.size());
    std::unordered_map<std::uint32_t, int> last;
    last.reserve(table.size());
    for (int row = static_cast<int>(table.size()); row > 0; --row) {
      next[At(row)] = std::exchange(last[NodeKey(LeftNode(table[At(row)].name))], row);
    }
    return next;
  }

  // What has come to row 1 stays there.
  [[nodiscard]] int FeederOf(int row) const { return row == 1 ? 1 : feeders_[At(row)]; }

  [[nodiscard]] std::vector<Arrival> FeedersOf(const std::vector<Arrival>& level) {
    std::vector<Arrival> feeders;
    feeders.reserve(level.size());
    for (const Arrival& arrival : level) {
      if (arrival.row == 0) {
        continue;  // at a feeder that is not there, one level after it was named
      }
      const int feeder = FeederOf(arrival.row);
      if (feeder == 0) {
        feeders.push_back({});
        continue;
      }
      const std::size_t same = arrival_of_[At(feeder)];
      if (same < feeders.size() && feeders[same].row == feeder) {
        feeders[same].flow_lh = ThroughText(feeders[same].flow_lh + arrival.flow_lh);
      } else {
        arrival_of_[At(feeder)] = feeders.size();
        feeders.push_back({feeder, arrival.flow_lh});
      }
    }
    return feeders;
  }

  void AddFlows(const std::vector<Arrival>& level) {
    for (const Arrival& arrival : level) {
      for (int row = arrival.row; row != 0; row = namesakes_[At(row)]) {
        SectionLine& line = table_[At(row)];
        // What has reached row 1 comes by again on every level.
        const double before = row == 1 ? 0.0 : line.flow_lh.value_or(0.0);
        line.flow_lh = ThroughText(before + arrival.flow_lh);
      }
    }
  }

  std::vector<SectionLine>& table_;
  std::vector<int> feeders_;
  std::vector<int> namesakes_;
  std::vector<std::size_t> arrival_of_;  // by row, its place in the level that is being made
};

// The outlet whose way up never ends, and a section on it.
std::optional<LostWalk> FindCircle(const Study& study, const Rows& outlets) {
  const std::vector<int> feeders = LinkFeeders(study.SectionTable);
  for (const SectionRow& outlet : outlets) {
    int row = outlet.RecordNumber;
    for (std::size_t step = 0; step <= feeders.size() && row != 0; ++step) {
      row = feeders[static_cast<std::size_t>(row - 1)];
    }
    if (row != 0) {
      const auto& name = study.SectionTable[static_cast<std::size_t>(row - 1)].name;
      return LostWalk{outlet.RecordNumber, FromCodePage(Trim(LeftNode(name)))};
    }
  }
  return std::nullopt;
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
        return outlet.Name == record.Name && outlet.HasEmitter();
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

Rows ListOutlets(Workbench& bench) {
  const RowStore store(bench.workspace);
  const Rows before = ReadOutlets(bench.workspace);
  Rows records;
  for (const int number : FindOutlets(store.rows())) {
    SectionRow& record = records.emplace_back(store.At(number));
    if (!record.HasEmitter()) {
      TakeFormerValues(record, before, store.rows());
    }
  }
  if (records.size() == 1 && !bench.workspace.Exists(work_file::kEmitters)) {
    bench.study.unsaved_changes = true;
  }
  Require(bench.workspace.Rows(work_file::kEmitters).WriteAll(records));
  bench.study.EmitterCount = ToInt16(static_cast<double>(records.size()));
  return records;
}

void StoreOutlet(Workbench& bench, int index, const OutletValues& values) {
  RowStore outlets(bench.workspace, work_file::kEmitters);
  RowStore rows(bench.workspace);
  SectionRow& outlet = outlets.At(index);
  if (!HasValues(rows.At(outlet.RecordNumber), values)) {
    bench.study.unsaved_changes = true;
    bench.study.results_valid = false;
  }
  for (SectionRow* row : {&outlet, &rows.At(outlet.RecordNumber)}) {
    row->WaterFlow = values.flow_lh;
    row->SomaDrop = values.pressure_m;
    row->HeightDiff = values.height_m;
  }
  outlets.Save();
  rows.Save();
}

void EndOutlets(Workbench& bench) {
  Study& study = bench.study;
  RowStore store(bench.workspace);
  const Rows outlets = CopyToRows(ReadOutlets(bench.workspace), store);
  const std::int16_t count = ToInt16(static_cast<double>(outlets.size()));
  float total = 0;
  for (const SectionRow& outlet : outlets) {
    total = ToSingle(static_cast<double>(total) + outlet.WaterFlow);
  }
  study.TotalFlowM3h = ToSingle(total / 1000.0);
  for (SectionRow& row : store.rows()) {
    study.unsaved_changes = study.unsaved_changes || row.Outlets != count;
    row.TOT = ToInt16(store.count());
    row.Outlets = count;
    row.ANOIK = 1;
    row.KLEIS = 0;
  }
  store.Save();
  RefreshSectionTable(study, store.rows());
  RefreshEmitterTable(study, outlets);
  study.results_valid = false;  // the feeders have no flow until the next run
  study.NameErrors = false;
  study.emitters_unchecked = false;
}

void SumOutletFlows(Workbench& bench) {
  Study& study = bench.study;
  study.lost_walk.reset();
  RowStore store(bench.workspace);
  const Rows outlets = CopyToRows(ReadOutlets(bench.workspace), store);
  RefreshSectionTable(study, store.rows());
  RefreshEmitterTable(study, outlets);
  std::vector<Arrival> level;
  for (int number = 1; number <= store.count(); ++number) {
    const SectionRow& row = store.At(number);
    if (row.HasEmitter()) {
      level.push_back({number, ThroughText(row.WaterFlow)});
    }
  }
  if (!OutletSummer(study.SectionTable).Sum(std::move(level))) {
    study.lost_walk = FindCircle(study, outlets);
    study.CalcStatus = calc_status::kBranchLost;
    return;
  }
  for (const SectionLine& line : study.SectionTable) {
    store.rows()[static_cast<std::size_t>(&line - study.SectionTable.data())].WaterFlow =
        ToSingle(line.flow_lh.value_or(0.0));
  }
  store.Save();
}

}  // namespace kalvo
