#pragma once

#include <deque>
#include <filesystem>
#include <optional>
#include <vector>

#include "engine/calculation_command.h"
#include "form/form.h"
#include "form/pictures.h"
#include "shell/study_progress.h"

namespace kalvo {

/// The main menu: every command of the program starts here. None is greyed; one that cannot run
/// says why.
class FrmMain : public Form {
 public:
  explicit FrmMain(Desk& shared_desk);

  void Load() override;
  void Activate() override;
  void Derive() override;
  bool MayClose() override;
  bool OtherKey(const Key& key) override;

  Label LblThema{*this, "LblThema"};
  Field TxtThema{*this, "TxtThema"};
  Command CmdThemaOK;
  Label LblSystem{*this, "LblSystem"};
  Label LblLiquid{*this, "LblLiquid"};
  Label LblFile{*this, "LblFile"};
  Label LblUnsaved{*this, "LblUnsaved", "Μη αποθηκευμένες αλλαγές"};
  Label LblSaved{*this, "LblSaved"};  ///< when it was saved, until something changes
  Command Cmd_New;
  Command Cmd_Open;
  Command Cmd_Save;

  Road StudyRoad{*this, "StudyRoad"};
  Command Cmd_Thema;
  Command Cmd_GenData;
  Command Cmd_Sect;
  Command Cmd_Somata;
  Command Cmd_Calc;
  Command Cmd_Res;
  Label LblNext{*this, "LblNext"};
  Command Cmd_Next;

  Choice Cbo_PipeKind{*this, "Cbo_PipeKind"};
  Label LblMaterial{*this, "LblMaterial"};
  Command CmdLiquid;
  Toggle ChkDataKind{*this, "ChkDataKind", " ΔΕΔΟΜΕΝΑ ΣΕ ΜΟΡΦΗ SpreadSheet "};
  Label LblFluidAssumed{*this, "LblFluidAssumed"};
  Label LblFlow{*this, "LblFlow"};
  Label LblHead{*this, "LblHead"};
  Label LblMeanTemp{*this, "LblMeanTemp"};
  Label LblMeanVel{*this, "LblMeanVel"};
  Label LblSections{*this, "LblSections"};
  Label LblEmittersHead{*this, "LblEmittersHead"};
  Label LblEmitters{*this, "LblEmitters"};

  Command Cmd_Nodes;
  Command Cmd_Winter;
  Command Cmd_PrnData;
  Command Cmd_PrnRes;
  Command Cmd_Recent;
  Command Cmd_CurFL;
  Command CmdFF;
  Command CmdCopyFiles;
  Command CmdManual;
  Toggle ChkSound{*this, "ChkSound", " On-Off Ήχων "};
  Label LblFolder{*this, "LblFolder"};
  Command Cmd_Exit;

  Command Cmd_Safety;
  std::deque<Command> Mnu_Recent;  ///< the files used last, in the menu
  Command Mnu_SaveOwn;
  Command Mnu_Results;
  Command Mnu_Help;
  Command Mnu_Method;
  Command CmdThemaCancel;

 private:
  void MakeMenus();
  void FillPipeList();
  /// Opens the entry of the title; once it is open, accepts what is typed.
  void OpenOrAcceptTitle();
  void ShowTitleEntry();
  void OpenGiven();
  /// Opens a file that is not chosen in a dialog, with the questions of any opening.
  void OpenFile(const std::filesystem::path& file);
  void ListRecent();
  void EndTitleEntry();
  /// A command came while the title is typed: it is accepted, an empty one dropped. False: it
  /// could not be stored.
  bool SettleTitle();
  void AcceptTitle();
  void OpenGeneralData();
  void OpenSections();
  void ShowSections();
  void OpenEmitterData();
  void Calculate(bool choose_method);
  void EndCalculation(CommandEnd end);
  void ShowFindings();
  void ShowResults();
  void ShowResultsFromMenu();
  /// Whether a new calculation is needed, which the user is then told.
  bool RefusesStaleResults();
  void PrintData();
  void PrintResults();
  void OpenResults();
  void RerunAfterChange();
  void OpenWinter();
  void ShowNodes();
  void ShowCurrentStudy();
  void OpenStudy();
  void OpenRecent();
  void OpenSafetyCopy();
  void SaveToFile();
  void SaveOwn();
  void TellUncheckedEmitters();
  void NoteSaved();
  void NewStudy();
  void Leave();
  void DeriveHead();
  void DeriveFigures();
  void DeriveNext();
  Command& CommandOf(Step step);
  [[nodiscard]] bool HasRows() const;
  /// True when a pipe system is chosen; message 406 otherwise.
  bool NeedsPipes();

  Step next_ = Step::kTitle;
  std::vector<std::filesystem::path> recent_;                ///< of Mnu_Recent
  std::optional<std::filesystem::path> recent_listed_with_;  ///< `study path` then
  std::filesystem::path saved_path_;                         ///< the file that LblSaved speaks of
  Control* before_title_ = nullptr;                          ///< where the keyboard was
  bool filling_pipes_ = false;                               ///< the pipe list guard
};

}  // namespace kalvo
