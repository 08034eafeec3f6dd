#include "tools/sample_studies.h"

#include <cmath>
#include <span>

#include "tools/sample_network.h"
#include "tools/sample_supplies.h"

namespace kalvo {

namespace {

// A unit on a corridor and the corridor's pipes that lead to it.
struct Stop {
  float metres = 0;  // of corridor from the stop before
  Unit unit;
};

// Fan coils: 200 l/h in a small office, 400 in a large one, 640 and more in a meeting room.
constexpr Stop kNorthCorridor[] = {
    {6.5F, {400, 1400}}, {4.8F, {390, 1350}}, {5.2F, {640, 1900}}, {5.2F, {205, 950}},
    {3.6F, {410, 1450}}, {4.8F, {400, 1400}}, {5.2F, {395, 1380}}, {4.8F, {405, 1420}},
    {3.6F, {195, 920}},  {3.6F, {210, 980}},
};
constexpr Stop kSouthCorridor[] = {
    {7.2F, {410, 1450}}, {4.8F, {205, 950}},  {3.6F, {720, 2200}}, {6.4F, {410, 1450}},
    {4.8F, {410, 1450}}, {4.8F, {405, 1420}}, {5.2F, {410, 1450}}, {4.8F, {400, 1400}},
    {3.6F, {210, 980}},  {3.6F, {205, 950}},
};

// Units along a corridor. Its first pipes turn off at `from` by `first`; the last unit ends it.
void Corridor(TwoPipeNetwork& network, Junction from, Leg first, std::span<const Stop> stops,
              const Leg& connection) {
  Leg pipes = first;
  for (const Stop& stop : stops) {
    pipes.metres = stop.metres;
    from = network.Lay(from, pipes);
    const bool is_last = &stop == &stops.back();
    Leg leg = connection;
    leg.tee = is_last ? Tee::kNone : Tee::kBranch;
    network.Connect(from, leg, stop.unit);
    pipes = {.tee = Tee::kThrough};
  }
}

// A wing of the hotel: along its main six risers, and at each on every floor a room beside the
// riser and one across the corridor.
struct Wing {
  float room_flow_lh = 0;
  float top_room_flow_lh = 0;  // under the roof
  float first_riser_metres = 0;
  float riser_spacing_metres = 0;
};

constexpr int kRisersOfWing = 6;
constexpr int kFloors = 5;
constexpr float kFloorHeight = 3.1F;  // m

constexpr Leg kRoomBeside = {
    .tee = Tee::kBranch, .metres = 2.4F, .elbows = 4, .gate_valves = 1, .regulating_valves = 1};
constexpr Leg kWayAcross = {.tee = Tee::kBranch, .metres = 3.8F, .elbows = 2};
constexpr Leg kRoomAcross = {.metres = 2, .elbows = 2, .gate_valves = 1, .regulating_valves = 1};

void TwoRooms(TwoPipeNetwork& hotel, Junction riser, float flow_lh) {
  hotel.Connect(riser, kRoomBeside, {flow_lh, 520});
  hotel.Connect(hotel.Lay(riser, kWayAcross), kRoomAcross, {flow_lh, 480});
}

// The floors above the one at `foot`.
void Riser(TwoPipeNetwork& hotel, Junction foot, const Wing& wing) {
  Leg pipes = {.tee = Tee::kBranch,
               .metres = kFloorHeight + 1.2F,
               .elbows = 2,
               .gate_valves = 1,
               .regulating_valves = 1};
  Junction at = foot;
  for (int floor = 2; floor <= kFloors; ++floor) {
    at = hotel.Lay(at, pipes);
    TwoRooms(hotel, at, floor == kFloors ? wing.top_room_flow_lh : wing.room_flow_lh);
    pipes = {.tee = Tee::kThrough, .metres = kFloorHeight};
  }
}

// The main of a wing under the ceiling of its first floor. `first` is how it leaves the trunk.
void LayWing(TwoPipeNetwork& hotel, Junction trunk, const Leg& first, const Wing& wing) {
  Leg pipes = first;
  pipes.metres = wing.first_riser_metres;
  for (int riser = 1; riser <= kRisersOfWing; ++riser) {
    trunk = hotel.Lay(trunk, pipes);
    TwoRooms(hotel, trunk, wing.room_flow_lh);
    Riser(hotel, trunk, wing);
    pipes = {.tee = Tee::kThrough, .metres = wing.riser_spacing_metres};
  }
}

constexpr Wing kNorthWing = {233, 235, 12, 7.4F};
constexpr Wing kMiddleWing = {229, 234, 8.5F, 7.4F};
constexpr Wing kSouthWing = {226, 232, 16, 8.2F};

// Convectors: 460 l/h at the large windows, 230 at the small ones.
constexpr Stop kLobby[] = {
    {9, {230, 900}},    {4.2F, {225, 880}}, {4.2F, {230, 900}},  {4.2F, {460, 1500}},
    {3.5F, {230, 900}}, {3.5F, {225, 880}}, {4.2F, {460, 1500}}, {5.1F, {460, 1500}},
    {5.1F, {230, 900}}, {3.5F, {230, 900}},
};
constexpr Stop kRestaurant[] = {
    {11, {230, 900}},   {3.8F, {230, 900}}, {3.8F, {225, 880}},  {4.6F, {455, 1480}},
    {3.8F, {230, 900}}, {3.8F, {230, 900}}, {4.6F, {460, 1500}}, {4.6F, {460, 1500}},
    {4.6F, {225, 880}}, {3.8F, {230, 900}},
};

}  // namespace

SampleStudy SingleCircuit() {
  const NetworkFrame frame = {.title = "Αερόθερμο αποθήκης", .design_velocity = 0.8F};
  const Leg circuit = {
      .metres = 26, .elbows = 8, .gate_valves = 2, .regulating_valves = 1, .check_valves = 1};
  return {"single", LoneSection(frame, circuit, {900, 1500})};
}

SampleStudy FanCoilFloor() {
  TwoPipeNetwork floor({.title = "Κλιματισμός ορόφου γραφείων με fan coil",
                        .mean_temperature = 10,
                        .design_velocity = 0.8F,
                        .plant = Plant::kOnReturn});
  const Junction shaft =
      floor.FromSource({.metres = 18, .elbows = 6, .gate_valves = 2, .check_valves = 1});
  const Leg turn_off = {
      .tee = Tee::kCounter, .elbows = 1, .gate_valves = 1, .regulating_valves = 1};
  const Leg connection = {.metres = 4.4F, .elbows = 4, .gate_valves = 1, .regulating_valves = 1};
  Corridor(floor, shaft, turn_off, kNorthCorridor, connection);
  Corridor(floor, shaft, turn_off, kSouthCorridor, connection);
  return {"fancoil", floor.Rows()};
}

SampleStudy Hotel() {
  TwoPipeNetwork hotel({.title = "Θέρμανση ξενοδοχείου πέντε ορόφων",
                        .mean_temperature = 70,
                        .design_velocity = 1,
                        .plant = Plant::kOnSupply});
  const Leg wing = {.tee = Tee::kBranch, .elbows = 2, .gate_valves = 1, .regulating_valves = 1};
  const Leg convector = {.metres = 3, .elbows = 4, .gate_valves = 1, .regulating_valves = 1};

  const Junction north =
      hotel.FromSource({.metres = 14, .elbows = 6, .gate_valves = 2, .check_valves = 1});
  LayWing(hotel, north, wing, kNorthWing);
  Corridor(hotel, north, wing, kLobby, convector);
  const Junction middle = hotel.Lay(north, {.tee = Tee::kThrough, .metres = 22, .bends = 2});
  LayWing(hotel, middle, wing, kMiddleWing);
  Corridor(hotel, middle, wing, kRestaurant, convector);
  LayWing(hotel, middle, {.tee = Tee::kThrough, .bends = 2}, kSouthWing);
  return {"hotel", hotel.Rows()};
}

WinterLine InWinter(const WinterLine& summer) {
  const auto rounded = [](float value, float step) { return std::round(value / step) * step; };
  return {summer.section, summer.length_m, rounded(summer.flow_lh * 0.6F, 5),
          rounded(summer.drop * 0.4F, 10)};
}

std::vector<SampleStudy> AllSamples() {
  return {SingleCircuit(), FanCoilFloor(), Hotel(), House(), ApartmentBuilding()};
}

}  // namespace kalvo
