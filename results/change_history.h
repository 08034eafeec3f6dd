#pragma once

#include <functional>
#include <vector>

#include "engine/results_snapshot.h"
#include "form/desk.h"

namespace kalvo {

/// What can be taken back, and made again, of the changes of diameters since the results were
/// opened: one step a command, as many as there were.
class ChangeHistory {
 public:
  /// A command changed diameters; what had been taken back is gone.
  void Add(ResultsSnapshot before) {
    undone_.clear();
    done_.push_back(std::move(before));
  }

  [[nodiscard]] bool CanUndo() const { return !done_.empty(); }
  [[nodiscard]] bool CanRedo() const { return !undone_.empty(); }
  /// How it was before the last change, or with the change taken back last; there must be one.
  [[nodiscard]] const ResultsSnapshot& ToUndo() const { return done_.back(); }
  [[nodiscard]] const ResultsSnapshot& ToRedo() const { return undone_.back(); }
  /// That stands again; `now` is how it was until then.
  void Undone(ResultsSnapshot now);
  void Redone(ResultsSnapshot now);

  /// The rows stand again as they were before some step: that one and later ones are gone.
  void CutBackTo(const RowTable& rows);

 private:
  std::vector<ResultsSnapshot> done_;
  std::vector<ResultsSnapshot> undone_;
};

/// Makes a change of diameters, which can be taken back then. It is not made when the rows cannot
/// be read, which the user was told.
void MakeChange(Desk& desk, const std::function<void()>& change);

enum class HistoryStep { kUndo, kRedo };

/// Why a step cannot be made.
inline constexpr const char* kNothingToUndo = "Δεν υπάρχει αλλαγή διαμέτρου για αναίρεση.";
inline constexpr const char* kNothingToRedo = "Δεν υπάρχει αναίρεση, για να γίνει ξανά.";

/// Whether there is such a step.
bool HasStep(const Desk& desk, HistoryStep step);

/// Takes the last change back, or makes the one again that was taken back last. Rows that wait for
/// their calculation then are not calculated. False: there is no such step, or it could not be
/// made, which the user was told.
bool TakeStep(Desk& desk, HistoryStep step);

/// The same in the results: what waits is calculated, but for the section's own view where the
/// calculation is asked for, and the view shows the rows anew.
bool StepInResults(Desk& desk, HistoryStep step);

}  // namespace kalvo
