#pragma once

#include <vector>

#include "engine/row_store.h"

namespace kalvo {

/// What the user gives of one emitter of a closed network.
struct EmitterValues {
  int section = 0;  ///< number of its section
  float flow_lh = 0;
  float drop = 0;  ///< mm w.g. at that flow
  bool operator==(const EmitterValues&) const = default;
};

/// The emitters of a closed network from the beginning of their entry to its end. Each change is at
/// once in `SOMATA.@@@` and `SOMATA.TMP`; the rows follow at the end. What a fault breaks off
/// leaves the list as it was. Emitters are counted from 1 in the order of entry.
class EmitterEntry {
 public:
  /// Lists the records of `SOMATA.TMP`, each under the name that its row has now; without that file
  /// the emitters that the rows have. Faults: kFile when they cannot be read.
  explicit EmitterEntry(Workbench& bench);

  [[nodiscard]] const std::vector<SectionRow>& emitters() const { return emitters_; }
  [[nodiscard]] int count() const { return static_cast<int>(emitters_.size()); }
  [[nodiscard]] EmitterValues At(int emitter) const;
  [[nodiscard]] int row_count() const { return rows_.count(); }
  /// The name that row `number` has, without blanks at its ends, UTF-8; empty for no row.
  [[nodiscard]] std::string NameOf(int number) const;

  /// An emitter other than `except` has that section.
  [[nodiscard]] bool HasSection(int number, int except = 0) const;
  /// False: its section was deleted, or an earlier emitter has it.
  [[nodiscard]] bool HasOwnSection(int emitter) const;
  /// The first emitter that needs another section, 0 for none.
  [[nodiscard]] int FirstWithoutSection() const;

  /// Stores an emitter in the place of another, or one past the last. Values that it has already
  /// are not written. Faults: kFile, 63 for a section that no row is.
  void Store(int emitter, const EmitterValues& values);
  /// Stores several past the last, all or none. Faults: as Store().
  void Append(const std::vector<EmitterValues>& several);
  /// Takes an emitter out of the list. Faults: kFile.
  void Remove(int emitter);

  /// Ends the entry: rows take flow and drop of their emitters, rows without one none; `TOT`,
  /// `Outlets` and the system's kind go on every row; total flow, tables and `SingleSection`
  /// follow. A list other than the one it began with, or than the rows know, marks the study
  /// changed and its results void; otherwise nothing is written. The emitters count as checked.
  /// Every emitter must have its own section. The rows are written once and last, so after a kill
  /// they are those from before or those from after. Faults: kFile; rows and study are then as
  /// they were.
  void End();
  /// Breaks the entry off: the list stays in the files, the rows do not know it, and the emitters
  /// count as unchecked. A list other than the one it began with marks the study as End() does.
  void LeaveUnchecked();

 private:
  void Keep(std::vector<SectionRow> emitters);
  [[nodiscard]] SectionRow RecordOf(const EmitterValues& values) const;
  [[nodiscard]] bool IsListAsOpened() const;
  [[nodiscard]] bool RowsKnowList(const RowTable& rows) const;
  void CopyIntoRows(RowTable& rows) const;

  Workbench& bench_;
  RowTable rows_;  ///< as the entry began
  std::vector<SectionRow> emitters_;
  std::vector<SectionRow> opened_;
};

}  // namespace kalvo
