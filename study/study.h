#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "study/fluid_row.h"
#include "study/method.h"
#include "study/numeric_text.h"
#include "study/prompter.h"
#include "study/section_row.h"
#include "study/stat_row.h"
#include "study/system_kind.h"

namespace kalvo {

/// Values of `CalcStatus`, for messages and screens that read it. Routines return what came of
/// them.
namespace calc_status {
constexpr std::int16_t kNothing = 0;
constexpr std::int16_t kBranchLost = 1;
constexpr std::int16_t kRecalculate = -3000;  ///< diameters changed, recalculate
}  // namespace calc_status

/// Values of `entry mode`: the forms, and the sheet that an earlier run left open.
constexpr int kFormEntry = 0;
constexpr int kSheetEntry = 2;

/// A line of `SectionTable`. The flow passes between passes as text (see ThroughText()); it is
/// kept here as the number that this text reads back as, nothing when the text is empty.
struct SectionLine {
  int number = 0;
  FixedText<7> name;
  std::optional<double> flow_lh;

  bool operator==(const SectionLine&) const = default;
};

/// A line of `EmitterTable`; numbers as they read back from at most 7 digits of text.
struct EmitterLine {
  int section = 0;
  double flow_lh = 0;
  double drop = 0;

  bool operator==(const EmitterLine&) const = default;
};

/// Where a walk along the network was lost: the emitter it served and the node it stood at.
struct LostWalk {
  int emitter_section = 0;  ///< 0: not one section, or more than one, ends at the source
  std::string node;         ///< UTF-8, trimmed
};

/// State of the open study, one value of each for the whole program.
struct Study {
  SystemKind system_kind = SystemKind::kNone;
  std::int16_t CalcStatus = 0;
  bool CalcAborted = false;
  bool SingleSection = false;
  Method method = Method::kFlowOnly;  ///< of the last run
  std::int16_t CurrentRow = 0;
  std::int16_t SectionCount = 0;
  std::int16_t failed_row = 0;  ///< row whose hydraulics broke the last run off, 0 = none
  std::int16_t EmitterCount = 0;
  float TotalFlowM3h = 0;
  float PumpHead = 0;  ///< m w.g.
  float MeanTemp = 0;
  float MeanVel = 0;
  float CriticalDrop = 0;  ///< mm w.g.
  float Density = 0;       ///< kg/m³, held from an earlier run; 0 = none held

  std::string study_title;  ///< UTF-8, as are all texts below
  std::int16_t pipe_system_number = 0;
  std::string pipe_material;
  std::int16_t plant_section = 0;
  std::string fluid_name{kWaterName};
  bool fluid_assumed = false;  ///< loaded without a fluid's file: it is the library's first
  std::string critical_branch;

  int entry_mode = kFormEntry;
  bool unsaved_changes = false;
  bool results_valid = false;
  bool recalculation_needed = false;
  bool recovery = false;          ///< the next load is of what stands in the work files
  bool came_by_recovery = false;  ///< until a good run, a reset or another load
  bool NameErrors = false;
  bool emitters_unchecked = false;

  std::filesystem::path study_path;
  std::filesystem::path last_study_path;
  std::filesystem::path origin_path;  ///< file of a study brought back: what a save proposes
  std::string study_base_name;
  std::string study_short_name;
  std::filesystem::path study_folder;
  std::optional<std::uint64_t> saved_digest;  ///< of its files as last loaded or saved
  std::string study_date;
  std::string study_time;

  std::vector<SectionLine> SectionTable;
  std::vector<EmitterLine> EmitterTable;
  std::vector<EmitterLine> WinterEmitterTable;
  std::vector<FixedText<15>> CalculatedDiameters;  ///< `NomiDiam` by row, of the last full run
  std::vector<StatRow> PipeStats;
  std::optional<LostWalk> lost_walk;

  SectionRow row;  ///< the row in hand

  [[nodiscard]] bool SystemClosed() const { return !SystemOpen(); }
  [[nodiscard]] bool SystemOpen() const { return system_kind == SystemKind::kOpen; }
};

/// Stands in `study path` when the file dialog was cancelled.
constexpr const char* kEscapePath = "Escape";

}  // namespace kalvo
