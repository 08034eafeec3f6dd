#pragma once

#include <array>
#include <optional>
#include <string>

#include "engine/emitter_entry.h"
#include "form/form.h"

namespace kalvo {

/// The emitters of a closed network: each is given its section, flow and pressure drop. With a list
/// its records come up one after the other; after the last one a new emitter is entered. The rows
/// take the list when the form ends.
class FrmSoma : public Form {
 public:
  explicit FrmSoma(Desk& shared_desk);

  void Load() override;
  bool MayClose() override;
  bool FirstKey(const Key& key) override;
  bool OtherKey(const Key& key) override;
  void Derive() override;

  Label TxtHelp{*this, "TxtHelp"};
  Label LblCurrent{*this, "LblCurrent"};
  Field Text1{*this, "Text1", KeyFamily::kUnsignedWhole};  ///< section number
  Field Text2{*this, "Text2"};                             ///< section name, shown only
  Field Text3{*this, "Text3", KeyFamily::kUnsignedDecimal};
  Field Text4{*this, "Text4", KeyFamily::kUnsignedDecimal};
  Command CmdRemove;
  Label LblTotal{*this, "LblTotal"};
  Label LblFlow{*this, "LblFlow"};
  Label LblMemoryFlow{*this, "LblMemoryFlow"};
  Label LblMemoryDrop{*this, "LblMemoryDrop"};
  Command CmdF12;
  Label LblFill{*this, "LblFill", "F12 ή Ins: αντιγραφή στα πεδία"};
  Command CmdPaste;
  Grid LstSoma{*this, "LstSoma"};
  Label LblEmpty{*this, "LblEmpty", "Δώστε τον α/α του πρώτου τμήματος με σώμα."};
  Command CmdHelp;
  Command SSCmdBack;
  Command SSCmdNext;
  Command CmdFill;    ///< by keys only, as those below
  Command CmdEscape;  ///< the end, or a question where a value is missing
  Command CmdLeave;   ///< at once
  Command CmdList;    ///< to the list, and back to the fields

 private:
  void SetUpFields();
  void ShowRecord(int emitter);
  /// The section of the emitter in hand is gone, and it was not given another one yet.
  [[nodiscard]] bool HasLostSection() const;
  /// The same, and its values are those that it had.
  [[nodiscard]] bool IsUntouchedLost() const {
    return HasLostSection() && Values() == entry_->At(current_);
  }
  void ShowName();
  void ShowList();
  void ShowListRow(int emitter);
  bool SectionFits();
  [[nodiscard]] bool IsEmpty() const;
  [[nodiscard]] EmitterValues Values() const;
  /// Refuses a number with two decimal separators.
  bool NumbersFit();
  /// False: a value is missing, and its field has the focus.
  bool HasValues();
  /// Stores the record in hand; false: it is refused, and its field has the focus.
  bool Store();
  /// The same where there is something to be stored.
  bool StoreIfAny() { return IsEmpty() || IsUntouchedLost() || Store(); }
  void Next();
  void Correct(int emitter);
  void Remove();
  void Paste();
  void Fill();
  /// The field that holds no value, or the emitter that has no section, keeps the form from ending.
  [[nodiscard]] bool IsMissing() const;
  void GoToMissing();
  void End();
  void TellLostSection(int emitter);
  void CheckCircuits();
  void EndOrAsk();
  void LeaveAtOnce();

  std::optional<EmitterEntry> entry_;
  int current_ = 1;  ///< the emitter in hand; one past the last: a new one
  std::array<Field*, 3> fields_ = {&Text1, &Text3, &Text4};
  std::array<Field*, 2> values_ = {&Text3, &Text4};
};

}  // namespace kalvo
