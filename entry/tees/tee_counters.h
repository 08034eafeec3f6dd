#pragma once

#include <string>

#include "entry/tees/tee_cases.h"

namespace kalvo {

/// What the tee window serves: the counters of the section that is being entered. The screen that
/// has them sets `tee_counters` of ScreenState before it shows the window, and clears it when it
/// closes.
class TeeCounters {
 public:
  virtual ~TeeCounters() = default;

  [[nodiscard]] virtual TeeTable Table() const = 0;
  /// "Τμήμα 13 : 6 / 7".
  [[nodiscard]] virtual std::string SectionText() const = 0;
  /// The counters as they show now.
  [[nodiscard]] virtual TeeTexts Counts() const = 0;
  /// Applies the case of the letter to the current section. False: refused, nothing has changed.
  virtual bool Press(char letter) = 0;
  /// Why it was refused.
  [[nodiscard]] virtual std::string Refusal() const {
    return "Δεν προστέθηκε: το πλήθος δεν περνά το 32.767.";
  }
  /// The window has come to the front.
  virtual void Shown() {}
  /// The window closes: the keys go back to the screen that has the counters.
  virtual void BringToFront() = 0;
};

}  // namespace kalvo
