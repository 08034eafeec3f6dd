#pragma once

#include <optional>
#include <vector>

#include "engine/notes.h"
#include "engine/sizing.h"
#include "form/form.h"
#include "form/pictures.h"

namespace kalvo {

/// All sections of a calculated study in one table, the critical branch under it, and how the drop
/// of the current row came about beside it.
class FrmRes_Sheet : public Form {
 public:
  explicit FrmRes_Sheet(Desk& shared_desk);

  void Load() override;
  void Derive() override;
  bool MayClose() override;
  bool OtherKey(const Key& key) override;

  Label LblThema{*this, "LblThema"};
  Label LblLiquid{*this, "LblLiquid"};
  Label LblFlow{*this, "LblFlow"};
  Label LblHead{*this, "LblHead"};
  Label LblMeanTemp{*this, "LblMeanTemp"};
  Label LblMeanVel{*this, "LblMeanVel"};
  Label LblPipes{*this, "LblPipes"};
  Label LblCount{*this, "LblCount"};
  Command CmdDiff;
  Command Cmd_Nodes;
  Command Cmd_Headers;
  Toggle ChkCritical{*this, "ChkCritical", "Δυσμενέστερος κλάδος στον πίνακα"};
  Grid fpSpread1{*this, "fpSpread1"};
  Chain BranchOfCritical{*this, "BranchOfCritical"};
  Label LblNotes{*this, "LblNotes"};
  Label LblSection{*this, "LblSection"};
  Steps SectionSteps{*this, "SectionSteps"};
  Shares DropShares{*this, "DropShares"};
  Label LblUnexplained{*this, "LblUnexplained"};
  Command Cmd_Back;

 private:
  void Fill();
  void FillRow(const SectionRow& row);
  void ShowFrame();
  void ShowBranch();
  void MarkBranch();
  void ShowNotes();
  void Explain();
  void Back();
  [[nodiscard]] const SectionRow* CurrentSection() const;

  std::vector<SectionRow> rows_;
  std::vector<int> branch_;  ///< section numbers of the critical branch
  std::optional<PassConditions> conditions_;
  int explained_ = -1;
};

}  // namespace kalvo
