#pragma once

#include "study/section_row.h"

namespace kalvo {

/// A view of results as the changes of diameters see it. While it is open it is `diameter_view` of
/// ScreenState.
class DiameterView {
 public:
  virtual ~DiameterView() = default;

  /// The row on show has this diameter from now on. `waits`: it differs from the first of the
  /// session, and no calculation has followed.
  virtual void ShowReplaced(const SectionRow& row, bool waits) = 0;
  /// Shows the rows anew, as after a calculation.
  virtual void ShowAgain() = 0;
  /// Shows that row.
  virtual void GoTo(int number) = 0;
  /// The form that changes a diameter closes: the keys go back to the view.
  virtual void BringToFront() = 0;

  /// Number of the row on show, 0 when there is none, and the row as it was shown last.
  [[nodiscard]] int number() const { return number_; }
  [[nodiscard]] const SectionRow& row() const { return row_; }
  [[nodiscard]] bool waits() const { return waits_; }
  /// Grows with each display of a row.
  [[nodiscard]] int displays() const { return displays_; }

 protected:
  void NoteDisplay(int number, const SectionRow& row, bool waits = false) {
    number_ = number;
    row_ = row;
    waits_ = waits;
    ++displays_;
  }
  void NoteNothing() { NoteDisplay(0, {}); }

 private:
  int number_ = 0;
  SectionRow row_;
  bool waits_ = false;
  int displays_ = 0;
};

}  // namespace kalvo
