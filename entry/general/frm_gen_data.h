#pragma once

#include <optional>

#include "form/form.h"
#include "study/fluid_row.h"

namespace kalvo {

/// What holds for the whole network: pipe system, temperature, velocity and plant section. With
/// `edit_mode` the study has rows, which take what was changed. Nothing is stored but by
/// `Cmd_Back`; the pipe system follows its choice at once and is put back when the form is left.
class FrmGenData : public Form {
 public:
  explicit FrmGenData(Desk& shared_desk);

  void Load() override;
  bool MayClose() override;
  bool OtherKey(const Key& key) override;
  void Derive() override;

  Choice CboPipes{*this, "CboPipes"};
  Label LblMaterial{*this, "LblMaterial"};
  Field Text2{*this, "Text2"};  ///< total flow, shown only
  Field Text4{*this, "Text4", KeyFamily::kSignedDecimal};
  Field Text6{*this, "Text6", KeyFamily::kUnsignedDecimal};
  Toggle ChkChiller{*this, "ChkChiller",
                    "Υπάρχει στο Δίκτυο Τμήμα με Λέβητα ή Chiller --> α/α Τμήματος :"};
  Field Text8{*this, "Text8", KeyFamily::kUnsignedDecimal};
  Field Text10{*this, "Text10"};  ///< number of sections, shown only
  Label Text11{*this, "Text11"};
  Label Text12{*this, "Text12"};
  Label Text13{*this, "Text13"};
  Label Text14{*this, "Text14"};
  Command Cmd_Cancel;
  Command Cmd_Back;

 private:
  void SetUpFields();
  void ShowFluid();
  void ShowFluidLines(const std::string& name, const std::string& temperature,
                      const std::string& density, const std::string& viscosity);
  void ShowFigures();
  void ShowTotalFlow();
  void ShowPlant();
  void OpenPlant(bool open);
  void SelectPipes();
  void EnterInto(Control& part);
  bool TemperatureFits();
  bool VelocityFits();
  /// Says what is missing or wrong and returns to its field; true when all is there.
  bool Complete();
  /// Says so by its message; false.
  bool Missing(int message, Field& field);
  [[nodiscard]] std::int16_t PlantSection() const;
  void Accept();
  void PutPipesBack();
  void Close();

  std::int16_t pipes_at_opening_ = 0;
  std::string material_at_opening_;
  bool edit_mode_ = false;  ///< the study has rows
};

}  // namespace kalvo
