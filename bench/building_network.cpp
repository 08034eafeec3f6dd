#include "bench/building_network.h"

#include <string>
#include <utility>

#include "study/system_kind.h"

namespace kalvo {

namespace {

constexpr int kLeastPlantRows = 9;
constexpr int kFloors = 3;
constexpr int kFloorUnits = 7;  // one at the riser, the others along the corridor
constexpr int kShaftUnits = kFloors * kFloorUnits;
constexpr int kReturnNodes = 500;  // the return node beside supply node n is n + 500

// Lengths and fittings of one pipe of a pair.
struct Leg {
  float metres = 0;
  float elbows = 0;
  float bends = 0;
  std::int16_t gate_valves = 0;
  std::int16_t regulating_valves = 0;  // return pipe only
  std::int16_t branches = 0;
  std::int16_t throughs = 0;
};

constexpr Leg kPlantRoom = {.metres = 2.5F, .elbows = 1, .gate_valves = 1};
constexpr Leg kShaft = {
    .metres = 9.5F, .elbows = 2, .gate_valves = 1, .regulating_valves = 1, .branches = 1};
constexpr Leg kRiser = {.metres = 3.1F, .throughs = 1};
constexpr Leg kCorridorStart = {.metres = 4.2F, .elbows = 1, .gate_valves = 1, .branches = 1};
constexpr Leg kCorridor = {.metres = 3.6F, .bends = 1, .throughs = 1};
constexpr Leg kUnit = {
    .metres = 2.4F, .elbows = 4, .gate_valves = 1, .regulating_valves = 1, .branches = 2};

SectionRow PipeOf(const std::string& from, const std::string& to, const Leg& leg) {
  SectionRow row;
  row.Name = MakeName(from, to);
  row.Length = leg.metres;
  row.AnglePOP = leg.elbows;
  row.Elbow90 = leg.bends;
  row.GateValve = leg.gate_valves;
  row.DieTee = leg.throughs;
  return row;
}

class Builder {
 public:
  explicit Builder(int sections)
      : units_((sections - kLeastPlantRows) / 3), plant_rows_(sections - 3 * units_) {}

  std::vector<SectionRow> Rows() {
    LayPlantSupply();
    for (int unit = 0; unit < units_; ++unit) {
      rows_.push_back(SupplyPipe(unit));
    }
    for (int unit = 0; unit < units_; ++unit) {
      rows_.push_back(UnitPipe(unit));
    }
    for (int unit = units_ - 1; unit >= 0; --unit) {
      rows_.push_back(ReturnPipe(unit));
    }
    LayPlantReturn();
    Frame();
    return std::move(rows_);
  }

 private:
  [[nodiscard]] int SupplyPlantRows() const { return (plant_rows_ + 1) / 2; }

  // The unit whose junction the pair of `unit` starts at, -1 for the header.
  static int Parent(int unit) {
    const int in_shaft = unit % kShaftUnits;
    if (in_shaft == 0) {
      return -1;
    }
    return in_shaft % kFloorUnits == 0 ? unit - kFloorUnits : unit - 1;
  }

  static Leg LegOf(int unit) {
    const int in_shaft = unit % kShaftUnits;
    if (in_shaft == 0) {
      Leg leg = kShaft;
      leg.metres += 6.0F * static_cast<float>(unit / kShaftUnits % 6);
      return leg;
    }
    if (in_shaft % kFloorUnits == 0) {
      return kRiser;
    }
    Leg leg = in_shaft % kFloorUnits == 1 ? kCorridorStart : kCorridor;
    leg.metres += 0.4F * static_cast<float>(unit % 5);
    return leg;
  }

  [[nodiscard]] std::string SupplyNode(int unit) const {
    return unit < 0 ? "P" + std::to_string(SupplyPlantRows()) : std::to_string(unit + 1);
  }
  static std::string ReturnNode(int unit) {
    return unit < 0 ? "R1" : std::to_string(unit + 1 + kReturnNodes);
  }

  [[nodiscard]] SectionRow SupplyPipe(int unit) const {
    const Leg leg = LegOf(unit);
    SectionRow row = PipeOf(SupplyNode(Parent(unit)), SupplyNode(unit), leg);
    row.DiaTee = leg.branches;
    return row;
  }

  static SectionRow ReturnPipe(int unit) {
    const Leg leg = LegOf(unit);
    SectionRow row = PipeOf(ReturnNode(unit), ReturnNode(Parent(unit)), leg);
    row.SymboTee = leg.branches;
    row.StrSwitch = leg.regulating_valves;
    return row;
  }

  // 90 to 210 l/h at 300 to 600 mm w.g.
  [[nodiscard]] SectionRow UnitPipe(int unit) const {
    SectionRow row = PipeOf(SupplyNode(unit), ReturnNode(unit), kUnit);
    row.DiaTee = kUnit.branches;
    row.StrSwitch = kUnit.regulating_valves;
    row.WaterFlow = static_cast<float>(90 + 30 * (unit * 7 % 5));
    row.SomaDrop = static_cast<float>(300 + 50 * (unit * 3 % 7));
    return row;
  }

  void LayPlantSupply() {
    std::string from(kSource);
    for (int node = 1; node <= SupplyPlantRows(); ++node) {
      const std::string to = "P" + std::to_string(node);
      rows_.push_back(PipeOf(from, to, kPlantRoom));
      from = to;
    }
    rows_.front().CheckValve = 1;
  }

  void LayPlantReturn() {
    const int count = plant_rows_ - SupplyPlantRows();
    for (int node = 1; node <= count; ++node) {
      const std::string to = node == count ? std::string(kSource) : "R" + std::to_string(node + 1);
      rows_.push_back(PipeOf("R" + std::to_string(node), to, kPlantRoom));
    }
  }

  // Numbers the rows and writes on each what they have in common.
  void Frame() {
    std::int16_t number = 0;
    for (SectionRow& row : rows_) {
      row.RecordNumber = row.SectionNo = ++number;
      row.Client = FixedText<51>::FromUtf8("Τεχνικό Γραφείο");
      row.Thema = FixedText<78>::FromUtf8("Θέρμανση Κτιρίου");
      row.Material = FixedText<78>::FromUtf8("STEEL");
      row.MeanTemp = 70;
      row.MeanVel = 1;
      row.FileNumber = 11;
      SetKind(row, SystemKind::kClosed, kKindOfEmitters);
      row.TOT = static_cast<std::int16_t>(rows_.size());
      row.Outlets = static_cast<std::int16_t>(units_);
      row.BurChil = 1;
    }
    rows_.front().Auxi = PlantMark(1);
  }

  int units_;
  int plant_rows_;
  std::vector<SectionRow> rows_;
};

}  // namespace

std::vector<SectionRow> BuildingStudy(int sections) { return Builder(sections).Rows(); }

}  // namespace kalvo
