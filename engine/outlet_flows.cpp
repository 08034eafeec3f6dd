#include "engine/outlet_flows.h"

#include <optional>
#include <unordered_map>
#include <utility>

#include "engine/first_row_index.h"
#include "engine/lost_walk.h"
#include "engine/outlets.h"
#include "study/by_number.h"
#include "study/tables.h"

namespace kalvo {

namespace {

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
  // For every row the next one of the same own name, 0 without one.
  static std::vector<int> Namesakes(const std::vector<SectionLine>& table) {
    std::vector<int> next(table.size());
    std::unordered_map<std::uint32_t, int> last;
    last.reserve(table.size());
    for (int row = static_cast<int>(table.size()); row > 0; --row) {
      ByNumber(next, row) = std::exchange(last[NodeKey(LeftNode(ByNumber(table, row).name))], row);
    }
    return next;
  }

  // What has come to row 1 stays there.
  [[nodiscard]] int FeederOf(int row) const { return row == 1 ? 1 : ByNumber(feeders_, row); }

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
      const std::size_t same = ByNumber(arrival_of_, feeder);
      if (same < feeders.size() && feeders[same].row == feeder) {
        feeders[same].flow_lh = ThroughText(feeders[same].flow_lh + arrival.flow_lh);
      } else {
        ByNumber(arrival_of_, feeder) = feeders.size();
        feeders.push_back({feeder, arrival.flow_lh});
      }
    }
    return feeders;
  }

  void AddFlows(const std::vector<Arrival>& level) {
    for (const Arrival& arrival : level) {
      for (int row = arrival.row; row != 0; row = ByNumber(namesakes_, row)) {
        SectionLine& line = ByNumber(table_, row);
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

}  // namespace

bool SumOutletFlows(Workbench& bench) {
  Study& study = bench.study;
  study.lost_walk.reset();
  RowStore store(bench.workspace);
  const std::vector<SectionRow> outlets = CopyOutletsToRows(bench.workspace, store);
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
    study.lost_walk = FindLostWalk(study);
    return false;
  }
  for (const SectionLine& line : study.SectionTable) {
    store.rows()[static_cast<std::size_t>(&line - study.SectionTable.data())].WaterFlow =
        ToSingle(line.flow_lh.value_or(0.0));
  }
  store.Save();
  return true;
}

}  // namespace kalvo
