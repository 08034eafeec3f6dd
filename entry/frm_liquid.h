#pragma once

#include <optional>
#include <vector>

#include "form/form.h"
#include "study/fluid_row.h"

namespace kalvo {

/// Choice of the study's fluid, and upkeep of the fluid library. The choice reaches the study with
/// `CmdOK` only; what is saved or deleted reaches the library at once.
class FrmLiquid : public Form {
 public:
  explicit FrmLiquid(Desk& shared_desk);

  void Load() override;

  List LstLiquid{*this, "LstLiquid"};
  Label LblWater{*this, "LblWater",
                 "Του νερού η πυκνότητα και το ιξώδες υπολογίζονται από τη θερμοκρασία της "
                 "μελέτης."};
  Field TxtNewLiquid{*this, "TxtNewLiquid"};
  Field TxtMeanT{*this, "TxtMeanT", KeyFamily::kSignedWhole};
  Field TxtDensity{*this, "TxtDensity", KeyFamily::kUnsignedDecimal};
  Field Txtnee{*this, "Txtnee", KeyFamily::kUnsignedDecimal};
  Command CmdNewLiquid;
  Command CmdSave;
  Command CmdDelete;
  Command CmdCancel;
  Command CmdOK;

 private:
  void Reload(std::string_view select);
  void ShowSelected();
  void SetFields(bool open);
  void LeaveNewMode();
  void ToggleNewMode();
  void Save();
  void Delete();
  void Accept();
  /// True when a value of the new fluid is missing; a box has said so.
  bool Incomplete();
  /// True when the row selected can be changed: one of several, and not water.
  [[nodiscard]] bool CanChangeSelected() const;
  [[nodiscard]] FluidRow FluidFromFields() const;
  /// The fluid of the study, nothing when it has none.
  std::optional<FluidRow> OldFluid();
  [[nodiscard]] const FluidRow* Named(std::string_view name) const;
  bool Confirm(std::vector<std::string> lines);

  std::vector<FluidRow> fluids_;
  bool new_mode_ = false;
};

}  // namespace kalvo
