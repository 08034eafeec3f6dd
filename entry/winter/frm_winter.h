#pragma once

#include <optional>
#include <string>

#include "entry/winter/winter_sitting.h"
#include "form/form.h"
#include "form/pictures.h"

namespace kalvo {

/// Winter flows and drops of a closed network's emitters, and the pump that they need on the pipes
/// of summer. What is typed keeps itself; the close asks what becomes of it.
class FrmWinter : public Form {
 public:
  explicit FrmWinter(Desk& shared_desk);

  void Load() override;
  void Activate() override;
  void Derive() override;
  bool MayClose() override;
  bool FirstKey(const Key& key) override;
  bool Idle(double quiet_seconds) override;
  void LostFocus() override { Keep(true); }

  Label LblThema{*this, "LblThema"};
  Label LblSystem{*this, "LblSystem", "ΚΛΕΙΣΤΟ ΣΥΣΤΗΜΑ ΣΩΛΗΝΩΝ"};
  Label LblCount{*this, "LblCount"};
  Field TxtMeanT{*this, "TxtMeanT", KeyFamily::kUnsignedDecimal};
  Label LblGrid{*this, "LblGrid"};
  EditableGrid fpSpread1{*this, "fpSpread1"};
  Label LblStatus{*this, "LblStatus"};

  Label LblFlowSummer{*this, "LblFlowSummer"};
  Label LblFlowWinter{*this, "LblFlowWinter"};
  Label LblHeadSummer{*this, "LblHeadSummer"};
  Label LblHeadWinter{*this, "LblHeadWinter"};
  Label LblTempSummer{*this, "LblTempSummer"};
  Label LblTempWinter{*this, "LblTempWinter"};
  WinterChart Chart{*this, "Chart"};
  Label LblRatio{*this, "LblRatio"};
  Label LblLeft{*this, "LblLeft"};
  Label LblRight{*this, "LblRight"};
  Label LblTop{*this, "LblTop"};
  Label LblBottom{*this, "LblBottom"};

  Label LblPump{*this, "LblPump"};  ///< of results that hold
  Label LblVoid{*this, "LblVoid", "... ΔΕΝ ισχύουν - πλέον - τα Αποτελέσματα για τον Χειμώνα ..."};
  Command Cmd_Close;
  Command Cmd_Res;
  Command Cmd_WCirc;

  Command CmdAbove;  ///< by keys only, as those below
  Command CmdCopyToClpbrd;
  Command CmdPasteFromClpbrd;
  Command Cmd_DelCell;

 private:
  bool Begin();
  /// Runs what may meet a file that says no, which is told. False: it did.
  template <typename Action>
  bool Try(Action&& action);
  /// Rows and study are those of summer. False: they could not be put back, which was told.
  bool SummerIsBack();

  void ShowRow(int row);
  void Refuse(GridPlace place);
  void TakeTemperature();
  void TellBeginning();
  bool AcceptCell(GridPlace place, const std::string& text);
  /// Takes a value and shows its row.
  void Put(GridPlace place, float number);
  void Tell(std::string what, Tone tone = Tone::kPlain);

  void CopyAbove();
  void CopyCells();
  void PasteCells();
  void DeleteCells();

  void Calculate();
  void TellRun(const WinterOutcome& outcome);
  void ShowResults();
  void Close();
  void Leave();

  void DerivePump();
  void DeriveChart();
  void DeriveSelection();

  /// The values with what the open editor holds.
  [[nodiscard]] WinterValues Typed() const;
  bool Keep(bool flush);

  std::optional<WinterSitting> sitting_;
  std::optional<GridPlace> refused_;
  KeepingTimes keeping_;
  int told_selection_ = 0;  ///< of the grid when LblStatus was set
};

}  // namespace kalvo
