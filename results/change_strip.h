#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "form/form.h"
#include "results/change_history.h"

namespace kalvo {

/// What the changes of diameters since the results were opened come to, and the commands that take
/// them back, make them again and compare. Both views have one.
class ChangeStrip {
 public:
  /// `may_compare`: whether the rows on show have their results, asking the user where they wait.
  ChangeStrip(Form& form, Desk& desk, std::function<bool()> may_compare);

  /// Reads the rows and says how they are to the first of the session.
  void Refresh();
  /// The same of rows that were read; the first where they could be.
  void Take(const std::vector<SectionRow>& rows,
            const std::optional<std::vector<SectionRow>>& first);

  Command CmdUndo;
  Command CmdRedo;
  Command CmdCompare;
  Label LblChanges;
  Command CmdUndoHere;     ///< next to the line
  Command CmdCompareHere;  ///< next to the line

 private:
  void Make(HistoryStep step);
  void Compare();
  void Show(std::string text, Tone tone = Tone::kPlain);

  Desk& desk_;
  std::function<bool()> may_compare_;
};

}  // namespace kalvo
