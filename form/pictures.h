#pragma once

#include <array>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "form/command.h"
#include "form/control.h"

namespace kalvo {

/// How far a step of the study has come.
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
class Road : public Control {
 public:
  using Control::Control;
  std::vector<RoadStation> stations;

  using ContentType = std::vector<RoadStation>;
  [[nodiscard]] ContentType Content() const { return stations; }
};

/// One step of an explanation; texts are ready to be shown.
struct StepLine {
  std::string symbol;
  std::string what;
  std::string formula;
  std::string value;
  std::string unit;
  bool operator==(const StepLine&) const = default;
};

/// How a value came about, step under step; the last is the result.
class Steps : public Control {
 public:
  using Control::Control;
  std::vector<StepLine> lines;

  using ContentType = std::vector<StepLine>;
  [[nodiscard]] ContentType Content() const { return lines; }
};

/// One part of a whole.
struct Share {
  std::string what;
  std::string value;
  double fraction = 0;  ///< of the whole, 0 to 1
  bool operator==(const Share&) const = default;
};

/// The parts of a whole side by side, at most four.
class Shares : public Control {
 public:
  using Control::Control;
  std::string caption;
  std::vector<Share> parts;

  using ContentType = std::pair<std::string, std::vector<Share>>;
  [[nodiscard]] ContentType Content() const { return {caption, parts}; }
};

/// Nodes one after the other, and the stretch between two of them on which one stands (from 0,
/// -1: on none).
class Chain : public Control {
 public:
  using Control::Control;
  std::string caption;
  std::string total;  ///< of the whole chain, with its unit
  std::vector<std::string> nodes;
  int current = -1;

  using ContentType = std::tuple<std::string, std::string, std::vector<std::string>, int>;
  [[nodiscard]] ContentType Content() const { return {caption, total, nodes, current}; }
};

/// One section between its nodes with a line of text under it.
class PipeDrawing : public Control {
 public:
  using Control::Control;
  std::string from;
  std::string to;
  std::string from_note = "αρχή";
  std::string to_note = "τέλος";
  std::string caption;

  using ContentType = std::array<std::string, 5>;
  [[nodiscard]] ContentType Content() const { return {from, to, from_note, to_note, caption}; }
};

}  // namespace kalvo
