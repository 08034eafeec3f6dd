#pragma once

#include "form/form.h"
#include "form/pictures.h"
#include "form/progress.h"
#include "shell/copying/drive_side.h"
#include "shell/copying/offered_studies.h"
#include "study/copying/copy_run.h"

namespace kalvo {

/// Copies studies with all their files from one folder to another. It deals with files as they are
/// on disk, never with the open study.
class FrmCopy : public Form, private CopyUser {
 public:
  explicit FrmCopy(Desk& shared_desk);

  void Load() override;
  bool MayClose() override { return !running_; }
  bool FirstKey(const Key& key) override;
  bool Idle(double quiet_seconds) override;

  Label LblStudies{*this, "LblStudies"};
  Label LblFiles{*this, "LblFiles"};
  Label LblBytes{*this, "LblBytes"};
  Choice CboDrive1{*this, "CboDrive1"};
  Choice CboPattern{*this, "CboPattern"};
  List DirList1{*this, "DirList1"};
  EntryList FileList1{*this, "FileList1"};
  Label LblCount{*this, "LblCount"};
  Command CmdAll;
  Command CmdNone;
  Choice CboDrive2{*this, "CboDrive2"};
  Command CmdFormat;
  List DirList2{*this, "DirList2"};
  EntryList FileList2{*this, "FileList2"};
  Room RoomBar{*this, "RoomBar"};
  Label LblFree{*this, "LblFree"};
  Label LblNeed{*this, "LblNeed"};
  Label LblEnd{*this, "LblEnd"};  ///< how the copying ends, or has ended
  EntryList Report{*this, "Report"};
  Label LblWait{*this, "LblWait"};
  Label LblFile{*this, "LblFile"};
  Label LblPercent{*this, "LblPercent"};
  Progress Bar{*this, "Bar"};
  Command CmdBack;
  Command CmdGo;

 private:
  // CopyUser
  Answer MayReplace(const CopyPlan& plan) override;
  void Follow(const CopyRun& run) override;
  bool GoesOn() override { return !stopped_; }

  /// What a command does while nothing is copied; nothing at all while something is.
  std::function<void()> WhenFree(void (FrmCopy::*action)());
  void ShowSource();
  void ShowTarget();
  void ShowRoom();
  void ShowTicked();
  void TickAll() { FileList1.TickAll(true); }
  void TickNone() { FileList1.TickAll(false); }
  void Leave();
  void Format();
  void Go();
  void Copy(CopyRun& run);
  void ShowReport(const CopyRun& run);
  void EndReport(const CopyRun& run, const std::vector<std::filesystem::path>& studies);
  void ShowProgress(const CopyRun& run);
  void ShowRunning(bool running);
  [[nodiscard]] SystemKind kind() const;
  [[nodiscard]] std::vector<std::filesystem::path> Chosen() const;
  /// Why the drive must not be formatted; empty when it may.
  [[nodiscard]] std::string WhyNoFormat(const Volume* volume) const;

  DriveSide source_;
  DriveSide target_;
  OfferedStudies offered_;
  OfferedStudies there_;
  std::vector<Volume> volumes_;
  std::optional<MediumRoom> room_;  ///< of the target; none: nobody knows
  int idled_ = 0;
  bool running_ = false;
  bool stopped_ = false;  ///< the user wants no further study to be copied
};

}  // namespace kalvo
