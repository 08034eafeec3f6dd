#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "study/study.h"

namespace kalvo {

/// Sections of a calculated network by what they have in common, to be selected together. All
/// numbers are those of rows, rising.
class SectionPicks {
 public:
  SectionPicks() = default;
  /// `critical_branch` as the study has it.
  SectionPicks(SystemKind kind, std::vector<SectionRow> rows, std::string_view critical_branch);

  /// The nominal diameters that there are, the narrowest first.
  [[nodiscard]] std::vector<std::string> Diameters() const;
  [[nodiscard]] std::vector<int> WithDiameter(std::string_view nominal) const;

  [[nodiscard]] std::vector<int> OnCriticalBranch() const;
  [[nodiscard]] std::vector<int> OffCriticalBranch() const;

  /// The sections that end in an emitter or outlet.
  [[nodiscard]] std::vector<int> Emitters() const;
  /// The way of the emitter or outlet of that section: in a closed network its circuit from the
  /// source and back to it, in an open one the feeders from row 1 on. A way that is lost is as long
  /// as it could be followed.
  [[nodiscard]] std::vector<int> AlongWayOf(int section) const;

  /// Those whose velocity is above or below a value, m/s.
  [[nodiscard]] std::vector<int> FasterThan(double velocity) const;
  [[nodiscard]] std::vector<int> SlowerThan(double velocity) const;

 private:
  template <typename Wanted>
  [[nodiscard]] std::vector<int> Where(const Wanted& wanted) const;

  std::vector<SectionRow> rows_;
  std::vector<bool> critical_;
  Study walked_;  ///< its kind and its table of sections
};

}  // namespace kalvo
