#pragma once

#include <optional>
#include <string>
#include <vector>

#include "engine/winter.h"
#include "entry/kept_entry.h"

namespace kalvo {

/// One sitting of winter's entry: from the values that the study has, or those that were kept, to a
/// winter file. What is typed keeps itself in `WINTCIRC.@@@` as long as `WINTCIRC.TMP` does not
/// tell it.
class WinterSitting {
 public:
  /// Faults: kFile.
  explicit WinterSitting(Workbench& bench);

  /// The emitters in summer, and the names of their sections.
  [[nodiscard]] const std::vector<WinterLine>& summer() const { return summer_; }
  [[nodiscard]] const std::vector<std::string>& names() const { return names_; }
  [[nodiscard]] const WinterValues& values() const { return values_; }
  /// The sitting began with values of an earlier one, as far as these knew its emitters.
  [[nodiscard]] bool has_earlier_values() const { return has_earlier_values_; }

  /// Takes a value. Where it is another one, results there were hold no longer. Faults: kFile; it
  /// is taken all the same.
  void Set(std::size_t line, WinterValue what, float number);
  void SetTemperature(float temperature);

  /// The run on these values, which are kept before. One that is refused leaves the results that
  /// hold. Faults: kFile; there are no results then.
  WinterOutcome Run(const AcceptFlow& accept);
  /// Row 1 of the last run; nothing while no results hold.
  [[nodiscard]] const std::optional<SectionRow>& pump() const { return pump_; }
  /// A run's results were there, and a change has made them void.
  [[nodiscard]] bool is_void() const { return void_; }

  [[nodiscard]] WinterDuty& duty() { return duty_; }
  [[nodiscard]] const WinterDuty& duty() const { return duty_; }

  /// Keeps the values, with what is not yet taken of them, unless they are kept already; with
  /// `flush` onto the medium.
  Outcome Keep(const WinterValues& typed, bool flush);
  [[nodiscard]] bool WantsKeeping(const WinterValues& typed) const { return kept_ != typed; }
  [[nodiscard]] bool WantsFlush() const { return file_.WantsFlush(); }

  /// Whether values or results are others than at the beginning. Faults: kFile.
  [[nodiscard]] bool HasChanged() const { return values_ != first_ || duty_.HasChanged(); }
  /// The end: the winter file holds what was entered and calculated, or is as it was. Faults:
  /// kFile; the sitting goes on then.
  void End(WinterData data);

 private:
  void Change(float& value, float number);
  void TakeResults();
  void PutValues();
  void Drop();
  Result<bool> Write(const WinterValues& typed);

  Workbench& bench_;
  WinterDuty duty_;
  std::vector<SectionRow> rows_;  ///< of summer
  std::vector<WinterLine> summer_;
  std::vector<std::string> names_;
  WinterValues values_;
  WinterValues first_;
  std::optional<WinterValues> told_;  ///< by the winter file; nothing: by none
  std::optional<WinterValues> kept_;  ///< in either file
  std::optional<SectionRow> pump_;
  bool void_ = false;
  bool has_earlier_values_ = false;
  KeptEntry file_;
};

/// The value of a line.
float& ValueOf(WinterLine& line, WinterValue what);
float ValueOf(const WinterLine& line, WinterValue what);

}  // namespace kalvo
