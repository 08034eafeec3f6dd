#include "engine/open_network.h"

#include <algorithm>

#include "engine/first_row_index.h"
#include "study/rounding.h"

namespace kalvo {

namespace {

double HighestAlong(const Branch& chain, const RowStore& store) {
  double highest = 0;
  for (const int number : chain) {
    highest = std::max(highest, static_cast<double>(store.At(number).HeightDiff));
  }
  return highest;
}

}  // namespace

CriticalBranch FindOpenCriticalBranch(Study& study, RowStore& store) {
  CriticalBranch critical = ReadCriticalBranch(study, store);
  const double need = HighestAlong(critical.chain, store) * 1000.0 + critical.drop;
  critical.drop = ToSingle(RoundTo(ToSingle(need + kResidualPressure), 4));
  AnnounceCritical(study, store, critical);
  const std::vector<int> feeders = LinkFeeders(study.SectionTable);
  for (int number = 1; number <= store.count(); ++number) {
    SettleFedRow(store, feeders, number, critical.drop);
  }
  return critical;
}

void SettleFedRow(RowStore& store, const std::vector<int>& feeders, int number, float drop) {
  SectionRow& row = store.At(number);
  double before = drop;
  double climb = row.HeightDiff * 1000.0;
  if (number > 1) {
    const int feeder = feeders.at(static_cast<std::size_t>(number - 1));
    const SectionRow& fed_by = store.At(feeder == 0 ? 1 : feeder);
    before = fed_by.AvaiPres;
    climb -= fed_by.HeightDiff * 1000.0;
  }
  row.AvaiPres = ToSingle(RoundTo(before - row.TotalDrop - climb, 2));
  row.DP = drop;
}

void OpenPassFlowOnly(Workbench& bench) {
  RowStore store(bench.workspace);
  store.SaveAfter([&] { FindOpenCriticalBranch(bench.study, store); });
  bench.study.PumpHead = ToSingle(RoundTo(bench.study.PumpHead, 4));
}

}  // namespace kalvo
