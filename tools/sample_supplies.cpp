#include "tools/sample_supplies.h"

#include "tools/sample_tree.h"

namespace kalvo {

namespace {

// Connections within a room: to the first outlet of a group and on to the next ones.
constexpr Leg kFirst = {.tee = Tee::kBranch, .metres = 1.5F, .elbows = 2, .regulating_valves = 1};
constexpr Leg kNext = {.tee = Tee::kBranch, .metres = 2.4F, .elbows = 3, .regulating_valves = 1};
constexpr Leg kLast = {.tee = Tee::kThrough, .metres = 3.2F, .elbows = 3, .regulating_valves = 1};

// Heights of the outlets above their floor, m.
constexpr float kBasin = 0.9F;
constexpr float kSink = 1.0F;
constexpr float kShower = 2.0F;
constexpr float kCistern = 0.7F;
constexpr float kMachine = 0.8F;

void Bath(SupplyTree& house, int group, float floor_m) {
  house.Draw(group, kFirst, {180, 5, floor_m + kCistern});
  house.Draw(group, kNext, {250, 8, floor_m + kBasin});
  house.Draw(group, kLast, {500, 10, floor_m + kShower});
}

// What an apartment of the building draws at the hour of the peak: an outlet carries its share of
// a draw that never takes place everywhere at once.
void Apartment(SupplyTree& building, int feeder, const Leg& way, float floor_m) {
  const int meter = building.Lay(feeder, way);
  const int kitchen = building.Lay(meter, {.tee = Tee::kBranch, .metres = 5.5F, .elbows = 4});
  building.Draw(kitchen, kFirst, {110, 8, floor_m + kSink});
  building.Draw(kitchen, kLast, {90, 8, floor_m + kMachine});
  const int bath = building.Lay(meter, {.tee = Tee::kThrough, .metres = 8, .elbows = 5});
  building.Draw(bath, kFirst, {60, 5, floor_m + kCistern});
  building.Draw(bath, kNext, {80, 8, floor_m + kBasin});
  building.Draw(bath, kNext, {90, 8, floor_m + kMachine});
  building.Draw(bath, kLast, {190, 10, floor_m + kShower});
}

void Studio(SupplyTree& building, int feeder, float floor_m) {
  const int meter = building.Lay(
      feeder,
      {.tee = Tee::kThrough, .metres = 6, .elbows = 4, .gate_valves = 1, .check_valves = 1});
  building.Draw(meter, kFirst, {110, 8, floor_m + kSink});
  building.Draw(meter, kNext, {60, 5, floor_m + kCistern});
  building.Draw(meter, kNext, {80, 8, floor_m + kBasin});
  building.Draw(meter, kLast, {150, 10, floor_m + kShower});
}

constexpr int kSupplyFloors = 5;
constexpr float kStorey = 3.1F;      // m
constexpr float kFirstFloor = 2.5F;  // m above the pump in the basement

void Storey(SupplyTree& building, int feeder, float floor_m) {
  const Leg left = {
      .tee = Tee::kBranch, .metres = 5, .elbows = 4, .gate_valves = 1, .check_valves = 1};
  Leg right = left;
  right.metres = 7.5F;
  Apartment(building, feeder, left, floor_m);
  Apartment(building, feeder, right, floor_m);
  Studio(building, feeder, floor_m);
}

}  // namespace

SampleStudy House() {
  SupplyTree house({.title = "Ύδρευση διώροφης κατοικίας",
                    .mean_temperature = 15,
                    .design_velocity = 1.2F,
                    .pipe_system = 1,
                    .material = "COPPER"});
  const int main =
      house.FromSource({.metres = 12, .elbows = 5, .gate_valves = 2, .check_valves = 1});
  const int kitchen = house.Lay(main, {.tee = Tee::kBranch, .metres = 3.5F, .elbows = 2});
  house.Draw(kitchen, kFirst, {250, 8, 0.5F + kSink});
  house.Draw(kitchen, kLast, {300, 8, 0.5F + kMachine});
  Bath(house, house.Lay(main, {.tee = Tee::kBranch, .metres = 4.5F, .elbows = 3}), 0.5F);
  Bath(house, house.Lay(main, {.tee = Tee::kThrough, .metres = 8.2F, .elbows = 5}), 3.6F);
  return {"house", house.Rows()};
}

SampleStudy ApartmentBuilding() {
  SupplyTree building({.title = "Ύδρευση πενταόροφης πολυκατοικίας",
                       .mean_temperature = 15,
                       .design_velocity = 1.5F,
                       .pipe_system = 1,
                       .material = "COPPER"});
  int riser = building.FromSource({.metres = 9, .elbows = 6, .gate_valves = 2, .check_valves = 1});
  for (int floor = 1; floor <= kSupplyFloors; ++floor) {
    const float floor_m = kFirstFloor + static_cast<float>(floor - 1) * kStorey;
    if (floor == kSupplyFloors) {
      Storey(building, riser, floor_m);  // the riser ends here
      break;
    }
    Storey(building, building.Lay(riser, {.tee = Tee::kBranch, .metres = 2, .gate_valves = 1}),
           floor_m);
    riser = building.Lay(riser, {.tee = Tee::kThrough, .metres = kStorey});
  }
  return {"apartments", building.Rows()};
}

}  // namespace kalvo
