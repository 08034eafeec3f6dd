#pragma once

#include <array>
#include <span>

#include "form/form.h"

namespace kalvo {

/// The values that F12 puts into the fields of emitters or outlets: those in memory, and new ones.
class FrmF12 : public Form {
 public:
  explicit FrmF12(Desk& shared_desk);

  void Load() override;

  Label LblPressure{*this, "LblPressure"};
  Label LblPressureUnit{*this, "LblPressureUnit"};
  Label LblHeight{*this, "LblHeight", "Υψ.Διαφορά ...."};
  Label LblHeightUnit{*this, "LblHeightUnit", "[m]"};
  Label LblNow1{*this, "LblNow1"};
  Label LblNow2{*this, "LblNow2"};
  Label LblNow3{*this, "LblNow3"};
  Field Text1{*this, "Text1", KeyFamily::kUnsignedDecimal};  ///< flow
  Field Text2{*this, "Text2", KeyFamily::kUnsignedDecimal};  ///< drop or flow pressure
  Field Text3{*this, "Text3", KeyFamily::kUnsignedDecimal};  ///< height, of outlets only
  Command Cmd_Cancel;
  Command Cmd_Delete;
  Command Cmd_OK;

 private:
  [[nodiscard]] std::span<float> Memory() const;
  void Accept();
  void Forget();
  void Close();

  std::array<Field*, 3> fields_ = {&Text1, &Text2, &Text3};
};

}  // namespace kalvo
