#pragma once

#include <array>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "entry/sections/row_checks.h"
#include "entry/sections/section_sitting.h"
#include "entry/sections/self_keeping.h"
#include "entry/tees/tee_counters.h"
#include "form/form.h"
#include "form/pictures.h"

namespace kalvo {

/// The sections one at a time. It works on the draft that the sheet works on, and straight on the
/// rows: a row that is left is in their file.
class FrmData : public Form, private TeeCounters {
 public:
  explicit FrmData(Desk& shared_desk);
  ~FrmData() override;

  void Load() override;
  void Activate() override;
  void Derive() override;
  bool MayClose() override;
  bool FirstKey(const Key& key) override;
  bool Idle(double quiet_seconds) override;
  void LostFocus() override;

  Label TxtProgram{*this, "TxtProgram"};
  Label LblWait{*this, "LblWait", "... Παρακαλώ, Περιμένετε ..."};
  Label Txt_System{*this, "Txt_System"};
  Label LblCount{*this, "LblCount"};
  Label LblUnsaved{*this, "LblUnsaved", "Μη αποθηκευμένες αλλαγές"};

  Command Cmd_Ins;
  Command Cmd_Del;
  Command Cmd_Same;
  Label Lbl_Same{*this, "Lbl_Same", "Όμοιο με :"};
  Choice CboSame{*this, "CboSame"};
  Command Cmd_Tau;
  Command CmdNoTau;
  Command Cmd_GoTo;
  Command Cmd_Help;
  Toggle ChkSoundD{*this, "ChkSoundD", " On-Off Ήχων "};

  Label Txt_aa{*this, "Txt_aa"};
  Label LblOf{*this, "LblOf"};
  Command CmdANT;
  Label LblName{*this, "LblName"};
  Label LblLeft{*this, "LblLeft"};
  Field Txt0{*this, "Txt0", KeyFamily::kUnsignedWhole};
  Label LblRight{*this, "LblRight"};
  Field Txt1{*this, "Txt1"};
  Field Txt2{*this, "Txt2", KeyFamily::kUnsignedDecimal};
  Field Txt6{*this, "Txt6", KeyFamily::kUnsignedDecimal};
  Field Txt7{*this, "Txt7", KeyFamily::kUnsignedDecimal};
  Field Txt8{*this, "Txt8", KeyFamily::kUnsignedWhole};
  Field Txt9{*this, "Txt9", KeyFamily::kUnsignedWhole};
  Field Txt10{*this, "Txt10", KeyFamily::kUnsignedWhole};
  Field Txt11{*this, "Txt11", KeyFamily::kUnsignedWhole};
  Field Txt12{*this, "Txt12", KeyFamily::kUnsignedWhole};
  Field Txt13{*this, "Txt13", KeyFamily::kUnsignedWhole};
  Field Txt14{*this, "Txt14", KeyFamily::kUnsignedWhole};
  Field Txt15{*this, "Txt15", KeyFamily::kUnsignedWhole};
  Field Txt16{*this, "Txt16", KeyFamily::kUnsignedDecimal};
  Field Txt17{*this, "Txt17", KeyFamily::kUnsignedDecimal};
  Label LblCheckName{*this, "LblCheckName"};
  Label LblCheckLength{*this, "LblCheckLength"};
  Label LblCheckPoints{*this, "LblCheckPoints"};
  Label LblRemarks{*this, "LblRemarks"};
  Label LblChanged{*this, "LblChanged"};
  Label LblStatus{*this, "LblStatus"};

  Label LblSketch{*this, "LblSketch"};
  SectionSketch PicSection{*this, "PicSection"};
  Label LblHintHead{*this, "LblHintHead"};
  Label LblHint{*this, "LblHint"};

  Command Cmd_First;
  Command Cmd_Prev;
  Command Cmd_Next;
  Command Cmd_Last;
  Command CmdShift_F12;
  Command Cmd_End;
  Command Cmd_Undo;
  Command Cmd_Redo;
  Command mnuOther_Sound;
  Command CmdEscape;  ///< as the close box

  [[nodiscard]] const SectionDraft& draft() const { return sitting_.draft; }

 private:
  static constexpr const char* kInsertCaption = "Παρεμβολή";
  static constexpr const char* kCancelCaption = "ΑΚΥΡΩΣΗ";
  static constexpr const char* kStoring = "Καταχώρηση";
  static constexpr int kLastRow = -1;

  void MakeMenus();
  void SetUpFields();
  void ShowFirst();

  // What the fields show.
  [[nodiscard]] bool IsOpen() const { return bench.study.SystemOpen(); }
  [[nodiscard]] int row() const { return bench.study.CurrentRow - 1; }
  /// Sections that there are; a new row on show does not count.
  [[nodiscard]] int count() const {
    return lags_ ? sitting_.draft.Count() : static_cast<int>(sitting_.rows().size());
  }
  /// The column of the sheet that a field shows, -1: it is none; and the other way round.
  [[nodiscard]] int ColumnOf(const Control* part) const;
  [[nodiscard]] Field& FieldOf(int column) const;
  [[nodiscard]] SheetRow Texts() const;
  void Show(const SheetRow& texts);
  void ShowRow(int number);
  /// The one after the last.
  void ShowNewRow();
  void FocusFirst();
  void FocusAfterMove();
  /// After a move: the same field, its text selected.
  void FocusAgain();
  void Tell(std::string what, Tone tone = Tone::kAlarm);

  // What is typed.
  bool LeaveField(Field& field);
  bool LeaveLeft();
  bool LeaveRight();
  static bool Erase(Field& field);
  static bool IsEdited(const Field& field);
  [[nodiscard]] bool IsTyped() const;
  /// The row on show before it was changed: as in the file, or, where the rows lag, in the draft.
  [[nodiscard]] const SheetRow& Before() const;
  /// It says something that is not stored.
  [[nodiscard]] bool IsChanged() const;
  /// What the fields hold becomes the draft's, as one action.
  void TakeFields(std::string_view action);
  /// False: a number is larger than any row takes.
  bool Fits(Field& field);
  bool FieldsFit();
  /// The same of all fields, and the first name is one.
  bool FieldsAgree();
  bool PressSource(const Key& key);
  bool PressRestOfSource(const Key& key);
  [[nodiscard]] bool PressDecimal(const Key& key) const;
  bool PressTee(const Key& key);

  // Moves.
  [[nodiscard]] bool IsPlain() const;
  [[nodiscard]] bool IsUntouchedNew() const { return is_new_ && !IsTyped(); }
  /// What bars the row from being left.
  [[nodiscard]] std::optional<RowFault> Fault() const;
  /// False: something does; its message was shown and its field has the focus.
  bool Checked();
  bool StoreRow();
  bool GuardRows();
  bool MayChangeRows();
  bool FollowRows(SectionSitting::RowMove move, int at);
  /// What became of rows that lag: they are in the file, one of them is wrong, or a file failed and
  /// that was told.
  enum class Put { kDone, kWaits, kFailed };
  Put PutLagging();
  Put PutDraft();
  /// False: it failed.
  bool TakeWords(Put put);
  /// Checks and stores, or drops a new row that says nothing. False: the row stays.
  bool LeaveRow();
  void Next();
  void MoveTo(int number);
  void ShowPastLast();
  void ChooseRow();
  bool ShowErased();

  // Commands.
  void OpenSame();
  void TakeSame(int number);
  void CloseSame();
  void SetSource();
  bool AskOneBranch();
  bool HasRoom();
  void Insert();
  void CancelInsert();
  void LeaveInsertMode();
  void Delete();
  void TellFedRows(int number);
  void DropNewRow();
  void OpenTees();
  void ClearTees();
  void GoBack(bool forward);
  void ShowHelp();
  bool Told(const std::optional<SelfKeeping::Telling>& told);
  [[nodiscard]] SectionSitting::Pending PendingTexts() const;

  // The end.
  bool MayTakeNewRow();
  [[nodiscard]] bool IsOneBranch() const;
  bool SettleOneBranch();
  bool Finish();
  bool GoToWrongRow();
  bool MayLeaveUnstored();
  void EndEntry();
  void SwitchToSheet();
  void LeaveByClosing();
  bool MayDropRow();
  void GiveRowUp();
  void Leave(std::string_view next);

  void DeriveHead();
  void DeriveChecks();
  void DeriveHint();

  [[nodiscard]] TeeTable Table() const override { return TeeTable::kForm; }
  [[nodiscard]] std::string SectionText() const override;
  [[nodiscard]] TeeTexts Counts() const override;
  bool Press(char letter) override;
  [[nodiscard]] std::string Refusal() const override;
  void Shown() override;
  void BringToFront() override;

  using Form::Press;

  bool goes_on_;  ///< the sitting was begun by the sheet
  std::shared_ptr<SectionSitting> shared_;
  SectionSitting& sitting_;
  SelfKeeping keeping_;
  bool begun_ = false;
  std::array<Field*, 15> fields_;
  bool is_new_ = false;      ///< it is not in the file
  bool lags_ = false;        ///< rows do not say what the draft says
  bool one_branch_ = false;  ///< the user has said that there is one section only
  bool insert_mode_ = false;
  std::size_t steps_before_insert_ = 0;
  std::string rows_before_insert_;   ///< bytes of the file
  std::u32string_view source_rest_;  ///< letters of the source's name that may still be typed
  bool held_ = false;                ///< a field could not be left for the last letter of a tee
};

}  // namespace kalvo
