#include "engine/open_network.h"

#include <algorithm>

#include "engine/first_row_index.h"
#include "engine/row_store.h"
#include "study/by_number.h"
#include "study/rounding.h"

namespace kalvo {

namespace {

double HighestAlong(const Branch& chain, const RowTable& table) {
  double highest = 0;
  for (const int number : chain) {
    highest = std::max(highest, static_cast<double>(table.At(number).HeightDiff));
  }
  return highest;
}

}  // namespace

CriticalBranch SettleOpenCriticalBranch(Study& study, RowTable& table) {
  CriticalBranch critical = ReadCriticalBranch(study, table);
  const double need = HighestAlong(critical.chain, table) * 1000.0 + critical.drop;
  critical.drop = ToSingle(RoundTo(ToSingle(need + kResidualPressure), 4));
  StoreCritical(study, table, critical);
  const std::vector<int> feeders = LinkFeeders(study.SectionTable);
  for (int number = 1; number <= table.count(); ++number) {
    SettleFedRow(table, feeders, number, critical.drop);
  }
  return critical;
}

void SettleFedRow(RowTable& table, const std::vector<int>& feeders, int number, float drop) {
  SectionRow& row = table.At(number);
  double before = drop;
  double climb = row.HeightDiff * 1000.0;
  if (number > 1) {
    const int feeder = ByNumber(feeders, number);
    const SectionRow& fed_by = table.At(feeder == 0 ? 1 : feeder);
    before = fed_by.AvaiPres;
    climb -= fed_by.HeightDiff * 1000.0;
  }
  row.AvaiPres = ToSingle(RoundTo(before - row.TotalDrop - climb, 2));
  row.DP = drop;
}

void OpenPassFlowOnly(Study& study, RowTable& table) {
  SettleOpenCriticalBranch(study, table);
  study.PumpHead = ToSingle(RoundTo(study.PumpHead, 4));
}

void OpenPassFlowOnly(Workbench& bench) {
  RowStore store(bench.workspace);
  store.SaveAfter([&] { OpenPassFlowOnly(bench.study, store); });
}

}  // namespace kalvo
