#pragma once

#include "form/form.h"
#include "results/printing/printers_part.h"
#include "results/quantities.h"
#include "results/reports/report_writer.h"

namespace kalvo {

/// The bill of pipes and fittings of the calculated network, and its content of water.
class FrmStatS : public Form {
 public:
  explicit FrmStatS(Desk& shared_desk);

  void Load() override;
  void Derive() override;

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
  Toggle Chk_XL{*this, "Chk_XL", "Εκτύπωση, μέσω του < Microsoft Excel >"};
  PrintersPart printers{*this};
  Command CmdPdf;
  Command CmdSave;
  Command Cmd_Close;
  Command CmdPreview;
  Command CmdOK;

 private:
  /// While winter's results are looked at the network is that of summer, which the list belongs to.
  [[nodiscard]] std::string_view RowsOfList() const;
  [[nodiscard]] Result<Quantities> Read() const;
  void Show(const Quantities& quantities);
  void ShowTotals();
  void ShowWater();
  [[nodiscard]] ReportOrder Order(ReportMode mode) const;
  void Print();
  void Preview();
  void Save(ReportMode mode);

  std::vector<StatRow> lines_;
};

}  // namespace kalvo
