#include "tools/sample_network.h"

#include <algorithm>

#include "study/fault.h"

namespace kalvo {

namespace {

constexpr int kReturnNodes = 500;

std::string SupplyNode(Junction at) { return std::to_string(at.number); }
std::string ReturnNode(Junction at) { return std::to_string(at.number + kReturnNodes); }

void AddSplittingTee(SectionRow& row, Tee tee) {
  row.DieTee = ToInt16(row.DieTee + (tee == Tee::kThrough ? 1 : 0));
  row.DiaTee = ToInt16(row.DiaTee + (tee == Tee::kBranch ? 1 : 0));
  row.AntiTee = ToInt16(row.AntiTee + (tee == Tee::kCounter ? 1 : 0));
}

void AddJoiningTee(SectionRow& row, Tee tee) {
  row.DieTee = ToInt16(row.DieTee + (tee == Tee::kThrough ? 1 : 0));
  row.SymboTee = ToInt16(row.SymboTee + (tee == Tee::kBranch ? 1 : 0));
  row.AntiTee = ToInt16(row.AntiTee + (tee == Tee::kCounter ? 1 : 0));
}

SectionRow UnitSection(std::string_view from, std::string_view to, const Leg& leg,
                       const Unit& unit) {
  SectionRow row = PipeOf(from, to, leg);
  AddSplittingTee(row, leg.tee);
  AddJoiningTee(row, leg.tee);
  row.StrSwitch = ToInt16(leg.regulating_valves);
  row.CheckValve = ToInt16(leg.check_valves);
  row.WaterFlow = unit.flow_lh;
  row.SomaDrop = unit.drop_mm;
  return row;
}

}  // namespace

SectionRow PipeOf(std::string_view left, std::string_view right, const Leg& leg) {
  SectionRow row;
  row.Name = MakeName(left, right);
  row.Length = leg.metres;
  row.AnglePOP = leg.elbows;
  row.Elbow90 = leg.bends;
  row.GateValve = ToInt16(leg.gate_valves);
  return row;
}

void FrameRows(std::vector<SectionRow>& rows, const NetworkFrame& frame) {
  const auto count = ToInt16(static_cast<double>(rows.size()));
  const auto emitters = std::count_if(rows.begin(), rows.end(),
                                      [](const SectionRow& row) { return row.HasEmitter(); });
  const std::int16_t plant = frame.plant == Plant::kNone
                                 ? std::int16_t{0}
                                 : (frame.plant == Plant::kOnSupply ? std::int16_t{1} : count);
  std::int16_t number = 0;
  for (SectionRow& row : rows) {
    row.RecordNumber = row.SectionNo = ++number;
    row.Thema = FixedText<78>::FromUtf8(frame.title);
    row.Material = FixedText<78>::FromUtf8(frame.material);
    row.MeanTemp = frame.mean_temperature;
    row.MeanVel = frame.design_velocity;
    row.FileNumber = ToInt16(frame.pipe_system);
    SetKind(row, frame.kind);
    row.TOT = count;
    row.Outlets = ToInt16(static_cast<double>(emitters));
    row.BurChil = plant;
    MarkPlant(row, plant);
  }
}

Junction TwoPipeNetwork::LayPair(std::string_view supply_from, std::string_view return_to,
                                 const Leg& leg) {
  const Junction end{static_cast<int>(knots_.size()) + 1};
  Knot& knot = knots_.emplace_back();
  knot.supply = PipeOf(supply_from, SupplyNode(end), leg);
  AddSplittingTee(knot.supply, leg.tee);
  knot.supply.CheckValve = ToInt16(leg.check_valves);
  knot.back = PipeOf(ReturnNode(end), return_to, leg);
  AddJoiningTee(knot.back, leg.tee);
  knot.back.StrSwitch = ToInt16(leg.regulating_valves);
  return end;
}

Junction TwoPipeNetwork::FromSource(const Leg& leg) { return LayPair(kSource, kSource, leg); }

Junction TwoPipeNetwork::Lay(Junction from, const Leg& leg) {
  const Junction end = LayPair(SupplyNode(from), ReturnNode(from), leg);
  At(from).behind.push_back(end);
  return end;
}

void TwoPipeNetwork::Connect(Junction at, const Leg& leg, const Unit& unit) {
  At(at).unit = UnitSection(SupplyNode(at), ReturnNode(at), leg, unit);
}

void TwoPipeNetwork::AppendRows(const Knot& knot, std::vector<SectionRow>& rows) const {
  rows.push_back(knot.supply);
  if (knot.unit) {
    rows.push_back(*knot.unit);
  }
  for (const Junction next : knot.behind) {
    AppendRows(knots_[static_cast<std::size_t>(next.number - 1)], rows);
  }
  rows.push_back(knot.back);
}

std::vector<SectionRow> TwoPipeNetwork::Rows() const {
  std::vector<SectionRow> rows;
  AppendRows(knots_.front(), rows);
  FrameRows(rows, frame_);
  return rows;
}

std::vector<SectionRow> LoneSection(const NetworkFrame& frame, const Leg& leg, const Unit& unit) {
  std::vector<SectionRow> rows = {UnitSection(kSource, kSource, leg, unit)};
  FrameRows(rows, frame);
  return rows;
}

}  // namespace kalvo
