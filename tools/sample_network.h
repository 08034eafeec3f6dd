#pragma once

#include <optional>
#include <string>
#include <vector>

#include "study/study.h"

namespace kalvo {

/// How a pair of pipes leaves the tees it starts at: from the end of the pipe before, straight
/// through, as the branch, or against a stream that goes the opposite way.
enum class Tee { kNone, kThrough, kBranch, kCounter };

/// A pair of pipes, or what joins a unit to its junction: one pipe's length and fittings. A unit's
/// are those of its two pipes together.
struct Leg {
  Tee tee = Tee::kNone;
  float metres = 0;
  float elbows = 0;  ///< AnglePOP
  float bends = 0;   ///< Elbow90
  int gate_valves = 0;
  int regulating_valves = 0;  ///< StrSwitch, one pipe only: the return of a pair
  int check_valves = 0;       ///< one pipe only: the supply of a pair
};

/// What gives off the heat or takes it up.
struct Unit {
  float flow_lh = 0;
  float drop_mm = 0;  ///< mm w.g.
};

/// Which of the two pipes at the source holds the boiler or chiller.
enum class Plant { kNone, kOnSupply, kOnReturn };

/// What a network has in common.
struct NetworkFrame {
  SystemKind kind = SystemKind::kClosed;
  std::string title;            ///< UTF-8
  float mean_temperature = 70;  ///< °C
  float design_velocity = 1;    ///< m/s
  int pipe_system = 11;
  std::string material = "STEEL";
  Plant plant = Plant::kNone;
};

/// A place where supply and return branch side by side.
struct Junction {
  int number = 0;
};

/// A closed two-pipe network in the making: every pair of pipes gives a supply section out and a
/// return section back. Supply nodes are numbered from 1 in the order of laying; the return node
/// beside node n is n + 500. Sections stand in the order of a walk along the pipes: the supply to a
/// junction, its unit, all that lies behind it, and the return.
class TwoPipeNetwork {
 public:
  explicit TwoPipeNetwork(NetworkFrame frame) : frame_(std::move(frame)) {}

  /// The pair from the source to the first junction; the one pair that begins there.
  Junction FromSource(const Leg& leg);
  /// A pair from a junction to a new one.
  Junction Lay(Junction from, const Leg& leg);
  /// A unit between supply and return of a junction, at most one at each.
  void Connect(Junction at, const Leg& leg, const Unit& unit);

  /// All sections, not calculated.
  [[nodiscard]] std::vector<SectionRow> Rows() const;

 private:
  // The pipes that end at a junction and what hangs on it.
  struct Knot {
    SectionRow supply;
    SectionRow back;
    std::optional<SectionRow> unit;
    std::vector<Junction> behind;
  };

  Junction LayPair(std::string_view supply_from, std::string_view return_to, const Leg& leg);
  Knot& At(Junction at) { return knots_[static_cast<std::size_t>(at.number - 1)]; }
  void AppendRows(const Knot& knot, std::vector<SectionRow>& rows) const;

  NetworkFrame frame_;
  std::vector<Knot> knots_;
};

/// Numbers the rows and writes on each what they have in common.
void FrameRows(std::vector<SectionRow>& rows, const NetworkFrame& frame);

/// The lengths of a leg and the fittings that stand in any pipe.
SectionRow PipeOf(std::string_view left, std::string_view right, const Leg& leg);

/// A study of one section from the source back to it.
std::vector<SectionRow> LoneSection(const NetworkFrame& frame, const Leg& leg, const Unit& unit);

}  // namespace kalvo
