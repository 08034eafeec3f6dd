#pragma once

#include "form/form.h"
#include "results/quantities.h"

namespace kalvo {

/// The bill of pipes and fittings of the calculated network, and its content of water.
class FrmStatS : public Form {
 public:
  explicit FrmStatS(Desk& shared_desk);

  void Load() override;

  Label LblThema{*this, "LblThema"};
  Label LblPipes{*this, "LblPipes"};
  Label LblMaterial{*this, "LblMaterial"};
  Label LblUsed{*this, "LblUsed"};
  Label LblSizes{*this, "LblSizes"};
  Label LblLength{*this, "LblLength"};    ///< m
  Label LblValves{*this, "LblValves"};    ///< gate valves
  Label LblRecount{*this, "LblRecount"};  ///< why the study's list is not what shows
  Label LblEmpty{*this, "LblEmpty", kNoQuantities};
  Grid fpSpread1{*this, "fpSpread1"};
  Label LblWater{*this, "LblWater"};  ///< what CmdWater has said
  Command CmdWater;
  Command Cmd_Close;

 private:
  [[nodiscard]] Result<Quantities> Read() const;
  void Show(const Quantities& quantities);
  void ShowTotals();
  void ShowWater();

  std::vector<StatRow> lines_;
};

}  // namespace kalvo
