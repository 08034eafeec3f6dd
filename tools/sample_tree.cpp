#include "tools/sample_tree.h"

#include "study/fault.h"
#include "study/rounding.h"

namespace kalvo {

SupplyTree::SupplyTree(NetworkFrame frame) : frame_(std::move(frame)) {
  frame_.kind = SystemKind::kOpen;
}

SectionRow& SupplyTree::Append(std::string_view feeder, const Leg& leg) {
  SectionRow row = PipeOf(std::to_string(rows_.size() + 1), feeder, leg);
  row.DieTee = leg.tee == Tee::kThrough ? std::int16_t{1} : std::int16_t{0};
  row.DiaTee = leg.tee == Tee::kBranch ? std::int16_t{1} : std::int16_t{0};
  row.AngSwitch = ToInt16(leg.regulating_valves);
  row.CheckValve = ToInt16(leg.check_valves);
  return rows_.emplace_back(row);
}

int SupplyTree::FromSource(const Leg& leg) {
  Append(kSource, leg);
  return 1;
}

int SupplyTree::Lay(int feeder, const Leg& leg) {
  Append(std::to_string(feeder), leg);
  return static_cast<int>(rows_.size());
}

void SupplyTree::Draw(int feeder, const Leg& leg, const OutletValues& outlet) {
  SectionRow& row = Append(std::to_string(feeder), leg);
  row.WaterFlow = outlet.flow_lh;
  row.SomaDrop = outlet.pressure_m;
  row.HeightDiff = ToSingle(RoundTo(outlet.height_m, 2));
}

std::vector<SectionRow> SupplyTree::Rows() const {
  std::vector<SectionRow> rows = rows_;
  FrameRows(rows, frame_);
  return rows;
}

}  // namespace kalvo
