#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "entry/sections/section_sitting.h"
#include "entry/sections/self_keeping.h"
#include "entry/sections/sheet_paste.h"
#include "entry/tees/tee_counters.h"
#include "form/form.h"

namespace kalvo {

/// The sheet in which sections are entered, a row each. What is typed is a draft that keeps itself;
/// leaving makes rows of the study of it.
class FrmData_Sheet : public Form, private TeeCounters {
 public:
  explicit FrmData_Sheet(Desk& shared_desk);
  ~FrmData_Sheet() override;

  void Load() override;
  void Activate() override;
  void Derive() override;
  bool MayClose() override;
  bool FirstKey(const Key& key) override;
  bool Idle(double quiet_seconds) override;
  void LostFocus() override;

  Label LblThema{*this, "LblThema"};
  Label LblSystem{*this, "LblSystem"};
  Label LblCount{*this, "LblCount"};
  Label LblCurrent{*this, "LblCurrent"};

  Command Cmd_InsRow;
  Command Cmd_DelRow;
  Command Cmd_DelCell;
  Command CmdSame;
  Choice CboSame{*this, "CboSame"};
  Command Cmd_ANT1;
  Command Cmd_ANT2;
  Command Cmd_DelANT;
  Command Cmd_Tau;
  Command CmdCopyToClpbrd;
  Command CmdPasteFromClpbrd;
  Command Cmd_Save;
  Command Cmd_Retrieve;
  Command Cmd_Print;
  Command Cmd_Headers;
  Command Cmd_Help;

  Field TxtFind{*this, "TxtFind"};
  EditableGrid fpSpread1{*this, "fpSpread1"};
  Label LblPrompt{*this, "LblPrompt"};
  Label LblRemarks{*this, "LblRemarks"};
  Label LblStatus{*this, "LblStatus"};
  Label LblMissing{*this, "LblMissing"};
  Command CmdShift_F12;
  Command Cmd_Exit;

  Command Cmd_Undo;
  Command Cmd_Redo;
  Command Cmd_Cut;
  Command Cmd_Fill;
  Command Cmd_Find;
  Command Cmd_FindNext;

  [[nodiscard]] const SectionDraft& draft() const { return sitting_.draft; }

 private:
  void MakeMenus();
  bool BeginSitting();
  void Show(int row);
  /// Shows what the draft has become; `at` is the current cell then.
  void Follow(std::optional<GridPlace> at = std::nullopt);
  void Tell(std::string what, Tone tone = Tone::kPlain);

  void ShowHelp();
  bool AcceptCell(GridPlace place, const std::string& text);
  bool IsTeeKey(const Key& key) const;
  bool PressSource(const Key& key);
  bool PressTee(const Key& key);
  [[nodiscard]] bool HasSheetFocus() const {
    return focus() == &fpSpread1 || focus() == &fpSpread1.editor;
  }

  void InsertRows();
  void DeleteRows();
  void DeleteCells();
  void OpenSame();
  void TakeSame(int number);
  void SetSource(int column);
  void DeleteSource();
  void OpenTees();
  void CopyCells();
  void CutCells();
  void PasteCells();
  std::optional<bool> AskThousands(const std::string& example);
  void TellRefused(const std::vector<CellText>& refused);
  void FillDown();
  void GoBack(bool forward);
  void OpenFind();
  void CloseFind();
  void FindNext();
  void SelectText();
  void DropHighlight();
  void SaveSheet();
  void RetrieveSheet();
  void PrintSheet();

  [[nodiscard]] SectionSitting::Pending PendingText() const;
  bool Told(const std::optional<SelfKeeping::Telling>& told);
  bool KeepNow();

  /// What became of the command to end; kFailed: the rows could not be written.
  enum class End { kLeft, kStays, kFailed };
  End EndEntry();
  void LeaveKept(const std::string& why);
  bool IsComplete();
  bool MayEmptyRows(const DraftRows& made);
  void SwitchToForm();
  void Leave(std::string_view next);

  [[nodiscard]] TeeTable Table() const override { return TeeTable::kSheet; }
  [[nodiscard]] std::string SectionText() const override;
  [[nodiscard]] TeeTexts Counts() const override;
  bool Press(char letter) override;
  void BringToFront() override;

  using Form::Press;

  [[nodiscard]] GridPlace Current() const { return fpSpread1.current(); }

  bool goes_on_;  ///< the sitting was begun by the form
  std::shared_ptr<SectionSitting> shared_;
  SectionSitting& sitting_;
  SelfKeeping keeping_;
  bool begun_ = false;
  int told_revision_ = 0;   ///< of the draft when LblStatus was set
  int told_selection_ = 0;  ///< of the grid then
};

}  // namespace kalvo
