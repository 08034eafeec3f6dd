#pragma once

#include <vector>

#include "engine/notes.h"
#include "form/form.h"
#include "form/pictures.h"
#include "results/change_strip.h"
#include "results/diameter_view.h"
#include "results/drop_explainer.h"
#include "results/drop_panel.h"
#include "results/pump_frame.h"
#include "results/results_session.h"

namespace kalvo {

/// Results of all sections in one table, and why the current one has its drop.
class FrmRes_Sheet : public Form, public DiameterView {
 public:
  explicit FrmRes_Sheet(Desk& shared_desk);
  FrmRes_Sheet(const FrmRes_Sheet&) = delete;
  FrmRes_Sheet& operator=(const FrmRes_Sheet&) = delete;
  ~FrmRes_Sheet() override;

  void Load() override;
  void Activate() override;
  bool MayClose() override;
  bool FirstKey(const Key& key) override;
  bool OtherKey(const Key& key) override;

  void ShowReplaced(const SectionRow& row, bool waits) override;
  void ShowAgain() override;
  void GoTo(int number) override;
  void BringToFront() override;

  PumpFrame frame{*this};

  Command CmdDiff;
  Command Cmd_Nodes;
  Command CmdExar;
  Command CmdPrn;
  Command CmdChD;
  Command CmdNewD;
  Toggle ChkCritical{*this, "ChkCritical", "Επισήμανση δυσμ. κλάδου"};
  Command Cmd_Headers;

  Label LblCount{*this, "LblCount"};
  Grid fpSpread1{*this, "fpSpread1"};
  Chain ChainCritical{*this, "ChainCritical"};
  DropPanel panel{*this};
  Label LblNotes{*this, "LblNotes"};
  ChangeStrip changes{*this, desk, [this] { return ResultsHold(desk); }};

  Command Cmd_Back;
  Command SSCommand1;

 private:
  /// Reads the rows and fills frame and table.
  void ShowRows();
  void TakeRows(std::vector<SectionRow> rows);
  void FillTable();
  void MarkCritical();
  void ShowBranch();
  /// The current row of the table is the study's, and is explained.
  void FollowCurrent();
  void ShowOne();

  std::vector<SectionRow> rows_;
  std::vector<int> critical_;
  ResultNotes notes_;
  std::vector<OutletSpare> spares_;
  DropExplainer explainer_;
};

}  // namespace kalvo
