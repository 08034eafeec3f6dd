#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "engine/winter_values.h"
#include "study/workbench.h"

namespace kalvo {

/// A closed study's second duty: the pipes of summer with the flows and drops of winter.

/// What of a line an answer or a refusal is about.
enum class WinterValue { kLength, kFlow, kDrop };

/// How a winter run ended.
enum class WinterEnd {
  kRefused,      ///< no summer results that stand (message 403), or no rows
  kTemperature,  ///< out of bounds (message 405)
  kBadValue,     ///< a value is 0
  kDeclined,     ///< a flow not below that of summer was not accepted
  kLost,         ///< the network cannot be walked (message 2004)
  kViscosity,    ///< the fluid does not fit the temperature
  kBrokenOff,    ///< by a run-time fault
  kCalculated,   ///< results stand in `WINTCIRC.TMP`
};

struct WinterOutcome {
  WinterEnd end = WinterEnd::kCalculated;
  std::size_t line = 0;  ///< from 0; with kBadValue and kDeclined
  WinterValue value = WinterValue::kFlow;
  std::string critical_branch = {};  ///< with kCalculated, as the study's own text
};

/// Bounds of the winter's mean temperature, °C, both allowed.
constexpr float kLeastWinterTemp = 30.0F;
constexpr float kMostWinterTemp = 100.0F;

/// Whether a flow that is not below that of summer may stand.
using AcceptFlow = std::function<bool(const WinterLine& line, float summer_flow_lh)>;

/// What becomes of winter data that are in no file.
enum class WinterData { kKept, kDropped };

/// Winter duty of the open study, from the opening of its form to the close. Summer's rows that an
/// interrupted duty left in `DATARES.SMR` are put back first. The open study's values are those of
/// summer before, during and afterwards, except while winter's results are looked at.
class WinterDuty {
 public:
  /// Faults: kFile.
  explicit WinterDuty(Workbench& bench);

  /// Checks `lines` (one for each emitter, in the order of `EmitterTable`) and calculates
  /// `WINTCIRC.TMP`, a copy of the rows, on their diameters. `DATARES.SMR` is a copy of the rows,
  /// too. A row's `MeanTemp` is `temperature`, its fluid has Int(`temperature` + 0.45). Without
  /// `accept` no flow may stand that is not below that of summer.
  WinterOutcome Run(float temperature, const std::vector<WinterLine>& lines,
                    const AcceptFlow& accept = {});

  /// `WINTCIRC.TMP` holds the values and no results: those of the last run hold no longer. Faults:
  /// kFile.
  void PutValues(const WinterValues& values);
  /// Whether `WINTCIRC.TMP` differs from what it was at the opening. Faults: kFile.
  [[nodiscard]] bool HasChanged() const;

  /// Whether the results of a run hold.
  [[nodiscard]] bool has_results() const { return results_.has_value(); }
  /// The rows of these results take the place of the study's rows, whose copy in `DATARES.SMR` is
  /// on the medium by then. The study's temperature, totals, critical branch and tables are the
  /// winter's, too. There must be results. Faults: kFile; summer is untouched then.
  void ShowResults();
  [[nodiscard]] bool shows_results() const { return summer_.has_value(); }
  /// Rows and study are those of summer again, byte for byte. Faults: kFile; winter's stay then.
  void HideResults();

  /// Summer's rows are in their place, and there is no copy of them. Faults: kFile.
  void Close();
  /// Data that are kept mark the study changed; without them the winter file is what it was before.
  /// Faults: kFile.
  void Settle(WinterData data);

 private:
  WinterOutcome CheckAndRun(float temperature, const std::vector<WinterLine>& lines,
                            const AcceptFlow& accept);
  WinterOutcome Calculate(float temperature, const std::vector<WinterLine>& lines);

  Workbench& bench_;
  // What stands aside while results are looked at.
  struct Summer {
    std::string rows;
    Study study;
  };

  std::optional<std::string> winter_before_;  // bytes of WINTCIRC.TMP
  std::optional<Study> results_;              // the study that the last run left
  std::optional<Summer> summer_;
};

/// The temperature, °C, at which a winter's fluid is looked up: Int(mean temperature + 0.45).
float WinterFluidTemperature(float mean_temperature);

}  // namespace kalvo
