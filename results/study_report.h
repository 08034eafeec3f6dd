#pragma once

#include <optional>
#include <string>
#include <vector>

#include "engine/notes.h"
#include "study/stat_row.h"
#include "study/workbench.h"

namespace kalvo {

/// What is told of a calculated study, gathered once for every format.
struct StudyReport {
  std::string file;
  std::string title;
  std::string fluid;
  std::string pipe_system;
  SystemKind kind = SystemKind::kClosed;
  bool winter =
      false;  ///< of the winter duty: no design velocity, method and quantities of its own
  std::optional<Method> method;
  bool fixed_diameters = false;  ///< of a run on the diameters that the sections had
  bool fluid_assumed = false;    ///< no file tells the fluid: it is taken as the library's first
  float mean_temperature = 0;    ///< °C
  float design_velocity = 0;     ///< m/s
  float total_flow_m3h = 0;
  float pump_head_m = 0;       ///< m w.g.
  float critical_drop = 0;     ///< mm w.g.
  std::vector<int> critical;   ///< section numbers in order
  std::string critical_nodes;  ///< "ANT - 1 - 2 - ANT", of an open system "ANT - 1 - 9"
  std::vector<SectionRow> rows;
  std::vector<StatRow> pipes;          ///< sizes in use and not; none where nothing is counted
  std::string recount;                 ///< why they are not the study's list, empty when they are
  std::optional<double> water_litres;  ///< of a closed system
  std::vector<OutletSpare> outlets;    ///< of an open system
  std::optional<LostWalk> lost_walk;   ///< the network cannot be walked: the results do not hold
  ResultNotes notes;

  [[nodiscard]] bool IsCritical(int section) const;
};

/// What a method does, behind its number.
std::string MethodText(std::optional<Method> method);

/// The report of the open study, which is calculated; `file` is its name as the user gave it.
StudyReport MakeReport(const Workbench& bench, const std::string& file);

/// The report of the winter duty in its work file, `critical_branch` being its own.
StudyReport MakeWinterReport(const Workbench& bench, const std::string& file,
                             const std::string& critical_branch);

/// Units of pressure beside mm w.g.
enum class PressureUnits { kWaterGauge, kPascal };

}  // namespace kalvo
