#pragma once

#include <string>
#include <variant>
#include <vector>

#include "form/grid.h"
#include "study/sheet_file.h"

namespace kalvo {

/// One cell, with its text on both sides of the change.
struct CellChange {
  int row = 0;
  int column = 0;
  std::string before;
  std::string after;
};

/// Rows that came in before row `at`, or went from there.
struct RowsChange {
  int at = 0;
  bool inserted = false;
  std::vector<SheetRow> rows;
};

/// Section numbers from `from` on, in the names of an open network, grew by `by`. No cell names one
/// that the change would make ambiguous, so that it can be taken back without a list of cells.
struct NumberShift {
  int from = 0;
  int by = 0;
};

/// All rows became others.
struct WholeChange {
  std::vector<SheetRow> before;
  std::vector<SheetRow> after;
};

/// The plant is in another section.
struct PlantChange {
  int before = 0;
  int after = 0;
};

using DraftChange = std::variant<CellChange, RowsChange, NumberShift, WholeChange, PlantChange>;

/// What one action of the user did to the draft.
struct DraftStep {
  std::string name;  ///< as a menu shows it: "Διαγραφή σειράς"
  std::vector<DraftChange> changes;
  GridPlace place;  ///< the current cell as the action began
};

/// Steps that can be undone and, once undone, done again: as many as there were.
class DraftHistory {
 public:
  void Clear() { steps_.clear(), done_ = 0; }
  /// A step was done: what had been undone is gone.
  void Add(DraftStep step) {
    steps_.resize(done_);
    steps_.push_back(std::move(step));
    ++done_;
  }

  /// Steps that can be undone.
  [[nodiscard]] std::size_t depth() const { return done_; }
  [[nodiscard]] bool CanUndo() const { return done_ > 0; }
  [[nodiscard]] bool CanRedo() const { return done_ < steps_.size(); }
  /// The step that would be undone, or done again; there must be one.
  [[nodiscard]] const DraftStep& ToUndo() const { return steps_[done_ - 1]; }
  [[nodiscard]] const DraftStep& ToRedo() const { return steps_[done_]; }
  void Undone() { --done_; }
  void Redone() { ++done_; }

 private:
  std::vector<DraftStep> steps_;
  std::size_t done_ = 0;
};

}  // namespace kalvo
