#pragma once

#include <optional>
#include <vector>

#include "engine/diameter_change.h"
#include "form/form.h"
#include "form/pictures.h"
#include "results/change_history.h"

namespace kalvo {

/// Results as they were opened next to those of the diameters now.
class FrmCompare : public Form {
 public:
  explicit FrmCompare(Desk& shared_desk);

  void Load() override;

  Label LblThema{*this, "LblThema"};
  Label LblHeadBefore{*this, "LblHeadBefore"};
  Label LblHeadAfter{*this, "LblHeadAfter"};
  Label LblHeadChange{*this, "LblHeadChange"};
  BarPair BarsHead{*this, "BarsHead"};
  Label LblFlowBefore{*this, "LblFlowBefore"};
  Label LblFlowAfter{*this, "LblFlowAfter"};
  Label LblFlowChange{*this, "LblFlowChange"};
  Label LblFluidName{*this, "LblFluidName", "Υγρό στο δίκτυο"};  ///< a closed network's
  Label LblFluidBefore{*this, "LblFluidBefore"};
  Label LblFluidArrow{*this, "LblFluidArrow", "→"};
  Label LblFluidAfter{*this, "LblFluidAfter"};
  Label LblFluidUnit{*this, "LblFluidUnit", "Lit"};
  Label LblFluidChange{*this, "LblFluidChange"};
  Label LblBranch{*this, "LblBranch"};
  Label LblBranchSame{*this, "LblBranchSame"};
  Label LblBranchDrop{*this, "LblBranchDrop"};
  Chain ChainBefore{*this, "ChainBefore"};
  Chain ChainAfter{*this, "ChainAfter"};
  Label LblSections{*this, "LblSections"};
  Label LblDiameters{*this, "LblDiameters"};
  Toggle ChkOnlyDiameters{*this, "ChkOnlyDiameters", "Μόνο όσα άλλαξαν διάμετρο"};
  Grid fpSpread1{*this, "fpSpread1"};
  Label LblSame{*this, "LblSame"};  ///< in place of the table

  Command CmdClose;
  Command CmdCopy;
  Command CmdUndo;
  Command CmdRedo;

 private:
  void Show();
  void ShowPump();
  void ShowBranch();
  void ShowSections();
  void FillRow(int at, const ChangedSection& section);
  /// The section goes on show in the results.
  void GoToSection();
  /// The rows in the order shown, with both values of each pair.
  void Copy();
  void Take(HistoryStep step);

  std::vector<SectionRow> rows_;
  std::optional<ResultComparison> comparison_;
  std::vector<const ChangedSection*> shown_;  ///< by row of the table
};

}  // namespace kalvo
