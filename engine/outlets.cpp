#include "engine/outlets.h"

#include <set>
#include <unordered_map>

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

// The sections that a level of the summing stands at, and the flow that has come to each.
struct Arrival {
  std::uint32_t name = 0;
  double flow_lh = 0;
};

class OutletSummer {
 public:
  explicit OutletSummer(std::vector<SectionLine>& table)
      : table_(table), by_left_(IndexByLeftNode(table)) {}

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
  [[nodiscard]] std::vector<Arrival> FeedersOf(const std::vector<Arrival>& level) const {
    std::vector<Arrival> feeders;
    std::unordered_map<std::uint32_t, std::size_t> at;
    for (const Arrival& arrival : level) {
      const int row = by_left_.First(arrival.name);
      if (row == 0) {
        continue;
      }
      const std::string_view right = RightNode(table_[static_cast<std::size_t>(row - 1)].name);
      const std::uint32_t name = NodeKey(right == kSource ? LeftNode(table_.front().name) : right);
      const auto [same, is_new] = at.emplace(name, feeders.size());
      if (is_new) {
        feeders.push_back({name, arrival.flow_lh});
      } else {
        double& flow = feeders[same->second].flow_lh;
        flow = ThroughText(flow + arrival.flow_lh);
      }
    }
    return feeders;
  }

  void AddFlows(const std::vector<Arrival>& level) {
    for (const Arrival& arrival : level) {
      for (const auto& [key, row] : by_left_.All(arrival.name)) {
        SectionLine& line = table_[static_cast<std::size_t>(row - 1)];
        // What has reached row 1 comes by again on every level.
        const double before = row == 1 ? 0.0 : line.flow_lh.value_or(0.0);
        line.flow_lh = ThroughText(before + arrival.flow_lh);
      }
    }
  }

  std::vector<SectionLine>& table_;
  FirstRowIndex by_left_;
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

}  // namespace

double FeederNumber(const FixedText<7>& name) {
  return ParseNumber(FromCodePage(RightNode(name)), ForceDotDecimal({}));
}

std::vector<int> FindOutlets(const Rows& rows) {
  std::set<double> feeding;
  for (const SectionRow& row : rows) {
    feeding.insert(FeederNumber(row.Name));
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
  Rows records;
  for (const int number : FindOutlets(store.rows())) {
    SectionRow& record = records.emplace_back(store.At(number));
    if (!record.HasEmitter()) {
      record.WaterFlow = 0;  // what flowed on to others
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
  for (const SectionRow& row : store.rows()) {
    if (row.HasEmitter()) {
      level.push_back({NodeKey(LeftNode(row.Name)), ThroughText(row.WaterFlow)});
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
