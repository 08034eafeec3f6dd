#pragma once

#include <array>
#include <vector>

#include "engine/outlets.h"
#include "form/form.h"
#include "form/pictures.h"

namespace kalvo {

/// The outlets of an open network, which the form finds by itself: they come up one after the other
/// and each is given its flow, its flow pressure and its height above the pump.
class FrmYpodo : public Form {
 public:
  explicit FrmYpodo(Desk& shared_desk);

  void Load() override;
  bool MayClose() override;
  bool OtherKey(const Key& key) override;
  void Derive() override;

  Label TxtHelp{*this, "TxtHelp"};
  Label LblCurrent{*this, "LblCurrent"};
  Field Text1{*this, "Text1"};  ///< section number, shown only
  Field Text2{*this, "Text2"};  ///< section name, shown only
  Field Text3{*this, "Text3", KeyFamily::kUnsignedDecimal};
  Field Text4{*this, "Text4", KeyFamily::kUnsignedDecimal};
  Field Text5{*this, "Text5", KeyFamily::kUnsignedDecimal};
  Label LblTotal{*this, "LblTotal"};
  Label LblFlow{*this, "LblFlow"};
  Label LblMemoryFlow{*this, "LblMemoryFlow"};
  Label LblMemoryRest{*this, "LblMemoryRest"};
  Command CmdF12;
  Label LblFill{*this, "LblFill", "F12 ή Ins: αντιγραφή στα πεδία"};
  OutletChart Chart{*this, "Chart"};
  Grid LstYpodo{*this, "LstYpodo"};
  Command CmdHelp;
  Command SSCmdBack;
  Command SSCmdNext;
  Command CmdFill;    ///< by keys only, as those below
  Command CmdEscape;  ///< the end, or a question where a value is missing
  Command CmdLeave;   ///< at once

 private:
  void ShowOutlet(int index);
  void ShowList();
  void ShowListRow(int row);
  void ShowChart();
  [[nodiscard]] int count() const { return static_cast<int>(outlets_.size()); }
  [[nodiscard]] bool IsPastLast() const { return current_ > count(); }
  [[nodiscard]] bool IsEmpty() const;
  bool NumbersFit();
  /// False: a value is missing, and its field has the focus.
  bool HasValues();
  /// Stores the outlet in hand; false: it is refused, and its field has the focus.
  bool Store();
  bool StoreIfAny() { return IsPastLast() || IsEmpty() || Store(); }
  void Next();
  void Fill();
  /// Sections that are no outlets any more lose their values: false where the user says no.
  bool MayTakeFormer();
  void TellWithoutValues();
  void End();
  void EndOrAsk();
  void LeaveAtOnce();

  std::vector<SectionRow> opened_;   ///< the outlets as the form found them
  std::vector<SectionRow> outlets_;  ///< as they are now
  std::vector<SectionRow> former_;   ///< sections that were outlets
  int current_ = 1;                  ///< the outlet in hand; one past the last: none
  std::array<Field*, 3> fields_ = {&Text3, &Text4, &Text5};
  std::array<Field*, 2> needed_ = {&Text3, &Text4};
};

}  // namespace kalvo
