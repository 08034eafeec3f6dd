#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "study/study.h"

namespace kalvo {

/// What the rows of a network have in common.
struct NetworkHeader {
  SystemKind kind = SystemKind::kClosed;
  std::string title = "Δίκτυο Δοκιμής";
  float MeanTemp = 70.0F;  ///< °C
  float MeanVel = 1.0F;    ///< m/s
  int pipe_system = 1;
  std::string material = "STEEL";
};

/// The lines of a network that stand in one text, parted by commas.
std::vector<std::string_view> Lines(std::string_view text);

/// Rows of a study that is not calculated, one for each line:
///
///     ANT/1 12.5m 2 elbows 1 valves plant
///     1/2 4m 1 branch 150mm soma 300 l/h 500mm
///     2/1 6m 3up outlet 300 l/h 10mwg
///
/// A line begins with the section's name; behind it stand numbers with their words, in any order,
/// with or without a blank between the two:
///
///     m Length            elbows AnglePOP    bends Elbow90      valves GateValve
///     straight StrSwitch  angled AngSwitch   branch DiaTee      through DieTee
///     counter AntiTee     joins SymboTee     checks CheckValve  mm OtherDrop_mm
///     eqm OtherDrop_m     l/h WaterFlow      up HeightDiff
///
/// "plant" marks the plant section. "soma" or "outlet" makes the row end in an emitter: a number in
/// mm or mwg behind it is `SomaDrop`. The header's `Outlets`, `TOT` and `BurChil` follow the lines.
/// Errors: std::invalid_argument naming the word that is not understood.
std::vector<SectionRow> Network(const std::vector<std::string_view>& lines,
                                const NetworkHeader& header = {});

}  // namespace kalvo
