#pragma once

#include <optional>
#include <vector>

#include "form/form.h"
#include "study/fluid_row.h"

namespace kalvo {

/// Choice of the study's fluid, and upkeep of the fluid library. The choice reaches the study with
/// `CmdOK` only; what is saved or deleted reaches the library at once. A fluid of the study that
/// the library lacks is at the end of the list, to be looked at, kept, or added to the library.
class FrmLiquid : public Form {
 public:
  explicit FrmLiquid(Desk& shared_desk);

  void Load() override;
  bool MayClose() override;

  List LstLiquid{*this, "LstLiquid"};
  Label LblNote{*this, "LblNote"};
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
  bool Reload(std::string_view select);
  /// Without a library nothing is chosen and nothing can be typed.
  void ShowNothing();
  void SelectOther();
  void ShowSelected();
  void SetFields(bool open);
  void LeaveNewMode();
  void ToggleNewMode();
  void Save();
  void Delete();
  void Accept();
  void TakeIntoStudy(const FluidRow& chosen);
  /// Writes what is in the fields into the library. False: it could not be, and a box said so.
  bool Store();
  /// What was typed is in no file yet.
  [[nodiscard]] bool HasEdits() const;
  /// Asks what becomes of such values. False: the user stays with them.
  bool SettleEdits();
  /// True when a value of the fluid is missing; a box has said so.
  bool Incomplete();
  /// True when the new fluid has the name of another one; a box has said so.
  bool NameInUse();
  /// The fluid listed there is the study's own, and the library lacks it.
  [[nodiscard]] bool IsOnlyInStudy(int position) const { return position >= library_fluids_; }
  /// True when the row selected can be changed: one of several, and not water.
  [[nodiscard]] bool CanChangeSelected() const;
  [[nodiscard]] FluidRow FluidFromFields() const;
  /// The fluid of the study, nothing when it has none.
  std::optional<FluidRow> OldFluid();
  /// The library's fluid of that name.
  [[nodiscard]] const FluidRow* Named(std::string_view name) const;
  void Tell(std::vector<std::string> lines);
  bool Confirm(std::vector<std::string> lines);

  std::vector<FluidRow> fluids_;  ///< as listed
  int library_fluids_ = 0;        ///< how many of them, from the first on, are the library's
  int shown_ = -1;                ///< the one whose values the fields show
  bool new_mode_ = false;
};

}  // namespace kalvo
