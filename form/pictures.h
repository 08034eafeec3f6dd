#pragma once

#include <functional>
#include <string>
#include <vector>

#include "form/command.h"
#include "form/control.h"
#include "form/page_view.h"
#include "form/picture_lines.h"

namespace kalvo {

/// A part that is painted from its content, which is data for a painter.
template <typename Content>
class Picture : public Control, public Content {
 public:
  using Control::Control;

  [[nodiscard]] const Content& content() const { return *this; }

  /// The user clicked a place of the picture, such as a stretch of a chain; counted from 0. Without
  /// it clicks do nothing.
  std::function<void(int)> on_pick;
};

/// How far a step of the study has come. kStale: done once, but no longer valid.
enum class RoadMark { kDone, kNext, kLater, kStale };

/// One step of the study: the command that does it (none: the step is told only), its caption, a
/// line on how it stands.
struct RoadStation {
  Command* command = nullptr;
  std::string caption;
  std::string state;
  RoadMark mark = RoadMark::kLater;
  bool operator==(const RoadStation&) const = default;
};

/// The steps of a study from left to right.
struct RoadContent {
  std::vector<RoadStation> stations;
  bool operator==(const RoadContent&) const = default;
};
using Road = Picture<RoadContent>;

/// How a value came about, step under step; the last is the result.
struct StepsContent {
  std::vector<StepLine> lines;
  bool operator==(const StepsContent&) const = default;
};
using Steps = Picture<StepsContent>;

/// The parts of a whole side by side, at most four.
struct SharesContent {
  std::string caption;
  std::vector<Share> parts;
  bool operator==(const SharesContent&) const = default;
};
using Shares = Picture<SharesContent>;

/// Nodes one after the other in the direction of flow; stretch i is between nodes i and i + 1. A
/// stretch is a place that can be picked.
struct ChainContent {
  std::string caption;
  std::string total;  ///< of the whole chain, with its unit
  std::vector<std::string> nodes;
  int current = -1;           ///< the stretch on which one is; -1: on none
  std::vector<int> strong{};  ///< stretches that stand out
  bool operator==(const ChainContent&) const = default;
};
using Chain = Picture<ChainContent>;

/// A value before and after a change, as bars one above the other.
struct BarPairContent {
  double before = 0;
  double after = 0;
  std::string told;  ///< the same in words
  bool operator==(const BarPairContent&) const = default;
};
using BarPair = Picture<BarPairContent>;

/// What of a medium is used, and what comes to it: parts of its capacity.
struct RoomContent {
  double used = 0;
  double comes = 0;
  bool too_much = false;  ///< what comes has no room
  std::string told;       ///< the same in words
  bool operator==(const RoomContent&) const = default;
};
using Room = Picture<RoomContent>;

/// One section between its nodes with a line of text under it.
struct PipeContent {
  std::string from;
  std::string to;
  std::string from_note = "αρχή";
  std::string to_note = "τέλος";
  std::string caption;
  bool operator==(const PipeContent&) const = default;
};
using PipeDrawing = Picture<PipeContent>;

/// A section as it is typed: its nodes (or its own and its feeder's number), what comes before and
/// after it, its length, and a line for each kind of fitting that it has.
struct FittingLine {
  std::string icon;
  std::string count;
  std::string caption;
  bool operator==(const FittingLine&) const = default;
};
struct SectionSketchContent {
  std::string from;
  std::string to;
  std::string from_note;
  std::string to_note;
  std::string before;
  std::string after;
  std::string length;
  std::vector<FittingLine> fittings;
  bool operator==(const SectionSketchContent&) const = default;
};
using SectionSketch = Picture<SectionSketchContent>;

/// The legs of a junction as they are drawn; the stem of a tee points down.
enum class JunctionLeg { kLeft, kRight, kDown, kUp };

/// A leg with its flow: in, towards the junction, or out.
struct JunctionFlow {
  JunctionLeg leg = JunctionLeg::kLeft;
  bool in = false;
  bool operator==(const JunctionFlow&) const = default;
};

/// A tee or, with a leg that points up, a cross.
struct JunctionContent {
  std::string caption;
  std::string told;  ///< the flows in words
  std::vector<JunctionFlow> legs;
  bool operator==(const JunctionContent&) const = default;
};
using Junction = Picture<JunctionContent>;
/// One outlet as a column: its height above the pump, on it the pressure that it needs. In m.
struct OutletColumn {
  std::string section;
  float height = 0;
  float pressure = 0;
  std::string total;  ///< of both, ready to be shown
  bool operator==(const OutletColumn&) const = default;
};

/// Heights and pressures of the outlets side by side.
struct OutletChartContent {
  std::vector<OutletColumn> columns;
  int current = -1;  ///< the column of the outlet in hand; -1: none
  char decimal = '.';
  bool operator==(const OutletChartContent&) const = default;
};
using OutletChart = Picture<OutletChartContent>;

/// Flows of one emitter, l/h.
struct WinterColumn {
  float summer = 0;
  float winter = 0;
  bool operator==(const WinterColumn&) const = default;
};

/// The emitters' flows in winter side by side, each in the outline of its summer.
struct WinterChartContent {
  std::vector<WinterColumn> columns;
  std::string told;  ///< the same in words
  bool operator==(const WinterChartContent&) const = default;
};
using WinterChart = Picture<WinterChartContent>;
using PageTiles = Picture<PageTilesContent>;

}  // namespace kalvo
