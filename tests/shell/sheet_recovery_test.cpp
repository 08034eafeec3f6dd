// What an earlier run left of the section sheet, from the choice of kind to the sheet's opening.

#include <gtest/gtest.h>

#include <algorithm>

#include "shell/frm_kind.h"
#include "shell/frm_main.h"
#include "shell/frm_old_study.h"
#include "shell/recovery.h"
#include "shell/study_dialogs.h"
#include "study/kept_sheet.h"
#include "study/study_origin.h"
#include "tests/support/failing_disk.h"
#include "tests/support/sample_study.h"
#include "tests/support/test_desk.h"

namespace kalvo {
namespace {

namespace fs = std::filesystem;

// A sheet of so many sections, with an empty row after them.
std::string SheetOf(SystemKind kind, int sections) {
  SheetImage sheet{kind, 0, std::vector<SheetRow>(static_cast<std::size_t>(sections) + 1)};
  for (std::size_t i = 0; i + 1 < sheet.rows.size(); ++i) sheet.rows[i].texts[3] = "12,5";
  return EncodeSheet(sheet, ',');
}

struct SheetRecovery : ::testing::Test {
  SheetRecovery() {
    desk.data_folder = kStudies;
    EXPECT_TRUE(test.outer_disk.MakeFolder(kStudies).ok());
  }
  // A study that has no rows yet, with its sheet in that file.
  void LeaveSheet(SystemKind kind, std::string_view file = work_file::kSheetInWork) {
    test.study.study_title = "Σχολείο";
    test.study.system_kind = kind;
    test.study.MeanTemp = 70;
    test.study.MeanVel = 1.5F;
    test.study.plant_section = 2;
    test.study.pipe_system_number = 2;
    ASSERT_TRUE(KeepSheet(test.workspace, test.study, file, SheetOf(kind, 12)).ok());
    test.study = Study{};
  }
  void LeaveRows(SystemKind kind, std::string bytes) {
    PutSampleStudy(test.bench, "Από πριν");
    auto rows = test.Rows();
    for (SectionRow& row : rows) SetKind(row, kind);
    ASSERT_TRUE(test.workspace.Rows().WriteAll(rows).ok());
    left = test.Bytes();
    if (!bytes.empty()) Leave(work_file::kSheetInWork, std::move(bytes));
    test.study = Study{};
  }
  void Leave(std::string_view name, std::string bytes) {
    ASSERT_TRUE(test.workspace.Write(name, std::move(bytes)).ok());
  }
  // The user chooses a kind, goes on, and answers the offer, whose texts are kept.
  void Go(SystemKind kind, std::optional<bool> answer) {
    navigator.Expect(screen::kOldStudy, [this, answer] {
      FrmOldStudy form(desk);
      form.Load();
      offer = {form.LblTitle.text, form.LblKind.text, form.LblRows.text, form.LblFile.text};
      moment = form.LblMoment.text;
      desk.questions.recover = answer;
    });
    GoUnasked(kind);
  }
  void GoUnasked(SystemKind kind) {
    test.study.system_kind = kind;
    FrmKind form(desk);
    form.Load();
    form.Run(form.Cmd_Go);
  }
  // The main menu begins and comes to the front.
  void BeginMenu() {
    FrmMain menu(desk);
    menu.Load();
    menu.Activate();
  }
  [[nodiscard]] std::string InLastCopy(const std::string& name) const {
    const auto copies = NamesIn(test.outer_disk, kStudies / kSafetyFolder);
    if (copies.empty()) return "(no copy)";
    const auto bytes = test.outer_disk.Read(kStudies / kSafetyFolder / copies.back() / name);
    return bytes ? *bytes : "(missing)";
  }
  [[nodiscard]] bool SheetIsShown() const {
    return std::ranges::find(navigator.log, "show FrmData_Sheet") != navigator.log.end();
  }

  TestBench test;
  FailingDisk failing{test.work_disk};
  UnreadableDisk work{failing};
  Workspace workspace{work, TestBench::kProgramFolder, test.outer_disk, TestBench::kLibraryFolder,
                      test.clock};
  Workbench bench{test.study, workspace, test.pipes, test.prompter};
  NotedNavigator navigator;
  CountedSound sound;
  NotedViewer viewer;
  MemoryClipboard clipboard;
  NotedPrinter printer;
  Desk desk{bench, navigator, sound, viewer, clipboard, printer, Separators{',', '.'}};
  std::string left;  // the rows
  std::vector<std::string> offer;
  std::string moment;
};

TEST_F(SheetRecovery, BringsBackASheetThatWasNeverMadeIntoRows) {
  LeaveSheet(SystemKind::kOpen);
  NoteOrigin(workspace, kStudies / "school.PCA");
  desk.screens.study_argument = kStudies / "x.PCA";
  Go(SystemKind::kOpen, true);
  EXPECT_EQ(offer, (std::vector<std::string>{"Σχολείο", "ΑΝΟΙΚΤΟ ΣΥΣΤΗΜΑ ΣΩΛΗΝΩΝ",
                                             "Φύλλο με 12 τμήματα", "/studies/school.PCA"}));
  EXPECT_FALSE(moment.empty());
  EXPECT_EQ(test.study.study_title, "Σχολείο");
  EXPECT_EQ(test.study.MeanVel, 1.5F);
  EXPECT_EQ(test.study.plant_section, 2);
  EXPECT_EQ(test.study.pipe_material, "COPPER");
  EXPECT_EQ(test.study.origin_path, kStudies / "school.PCA");
  EXPECT_EQ(desk.screens.study_waiting, kStudies / "x.PCA");
  BeginMenu();
  EXPECT_TRUE(SheetIsShown());
  EXPECT_TRUE(desk.screens.open_kept_sheet);
  EXPECT_FALSE(desk.screens.edit_mode) << "there are no rows";
  EXPECT_EQ(test.study.entry_mode, kFormEntry);
  EXPECT_EQ(test.Bytes(work_file::kSheetInWork), SheetOf(SystemKind::kOpen, 12));
  EXPECT_EQ(InLastCopy(work_file::kSheetInWork), SheetOf(SystemKind::kOpen, 12));
}

TEST_F(SheetRecovery, OffersItUnderItsOwnKindWhateverWasChosen) {
  LeaveSheet(SystemKind::kOpen);
  desk.screens.study_argument = kStudies / "x.PCK";
  Go(SystemKind::kClosed, std::nullopt);
  EXPECT_EQ(offer[1], "ΑΝΟΙΚΤΟ ΣΥΣΤΗΜΑ ΣΩΛΗΝΩΝ");
  EXPECT_TRUE(test.study.SystemClosed()) << "nothing was answered";
  EXPECT_EQ(desk.screens.study_argument, kStudies / "x.PCK");
  Go(SystemKind::kClosed, true);
  EXPECT_TRUE(test.study.SystemOpen());
  EXPECT_EQ(desk.screens.study_waiting, kStudies / "x.PCK");
}

TEST_F(SheetRecovery, RowsComeBackWithTheSheetOverThem) {
  LeaveRows(SystemKind::kClosed, SheetOf(SystemKind::kClosed, 1));
  Go(SystemKind::kClosed, true);
  EXPECT_EQ(offer[0], "Από πριν");
  EXPECT_EQ(offer[2], "Φύλλο με 1 τμήμα");
  EXPECT_EQ(test.study.SectionCount, 3);
  BeginMenu();
  EXPECT_TRUE(SheetIsShown());
  EXPECT_TRUE(desk.screens.edit_mode);
  EXPECT_EQ(test.Bytes(), left);
  EXPECT_TRUE(workspace.Exists(work_file::kSheetInWork));
}

TEST_F(SheetRecovery, RowsOfTheOtherKindDoNotTakeTheSheetWithThem) {
  LeaveRows(SystemKind::kOpen, SheetOf(SystemKind::kOpen, 2));
  Go(SystemKind::kClosed, false);
  EXPECT_EQ(offer[2], "Φύλλο με 2 τμήματα");
  EXPECT_FALSE(workspace.Exists(work_file::kSheetInWork));
  EXPECT_EQ(InLastCopy(work_file::kSheetInWork), SheetOf(SystemKind::kOpen, 2));
  EXPECT_EQ(InLastCopy("MELETH.PCA"), left);
}

TEST_F(SheetRecovery, ComesBackFromASafetyCopyWithTheRows) {
  LeaveRows(SystemKind::kClosed, SheetOf(SystemKind::kClosed, 2));
  Go(SystemKind::kClosed, false);
  const fs::path copies = kStudies / kSafetyFolder;
  const fs::path copy = copies / NamesIn(test.outer_disk, copies).back();
  ASSERT_TRUE(OpenChosen(desk, copy / "MELETH.PCK", RecentList::kLeave));
  EXPECT_EQ(test.Bytes(), left);
  EXPECT_EQ(test.Bytes(work_file::kSheetInWork), SheetOf(SystemKind::kClosed, 2));
  EXPECT_TRUE(workspace.Exists(work_file::kSheetIntro));

  ASSERT_TRUE(test.outer_disk.Write(copy / work_file::kSheetInWork, "broken").ok());
  DropKeptSheet(workspace);
  ASSERT_TRUE(OpenChosen(desk, copy / "MELETH.PCK", RecentList::kLeave));
  EXPECT_FALSE(workspace.Exists(work_file::kSheetInWork));
  EXPECT_EQ(*test.outer_disk.Read(copy / work_file::kSheetInWork), "broken") << "it stays there";
}

TEST_F(SheetRecovery, WhatTheUserSavedCountsOnlyWithoutRows) {
  LeaveSheet(SystemKind::kClosed, work_file::kSheet);
  Go(SystemKind::kClosed, true);
  EXPECT_EQ(test.study.study_title, "Σχολείο");
  EXPECT_EQ(test.Bytes(work_file::kSheetInWork), test.Bytes(work_file::kSheet));
  BeginMenu();
  EXPECT_TRUE(SheetIsShown());

  DropKeptSheet(workspace);
  LeaveRows(SystemKind::kClosed, "");
  Go(SystemKind::kClosed, true);
  EXPECT_EQ(offer[2], "3 τμήματα");
  EXPECT_EQ(test.study.entry_mode, kFormEntry);
  EXPECT_TRUE(workspace.Exists(work_file::kSheet)) << "it can be retrieved";

  test.workspace.DeleteWorkFiles();
  Leave(work_file::kSheet, "cells");
  GoUnasked(SystemKind::kClosed);
  EXPECT_EQ(InLastCopy(work_file::kSheet), "cells") << "nothing says what it belongs to";
}

TEST_F(SheetRecovery, ABrokenSheetIsKeptAsideAndTheRowsAreOffered) {
  for (const std::string& bad :
       {SheetOf(SystemKind::kClosed, 2).substr(0, 40), SheetOf(SystemKind::kOpen, 2)}) {
    LeaveRows(SystemKind::kClosed, bad);
    Go(SystemKind::kClosed, true);
    EXPECT_EQ(offer[2], "3 τμήματα");
    EXPECT_EQ(InLastCopy(work_file::kSheetInWork), bad);
    EXPECT_NE(test.prompter.boxes().back().lines[1].find("Spread.@@@"), std::string::npos);
    EXPECT_FALSE(workspace.Exists(work_file::kSheetInWork));
    EXPECT_EQ(test.study.entry_mode, kFormEntry);
    EXPECT_EQ(test.Bytes(), left);
  }
}

TEST_F(SheetRecovery, ASheetThatCannotBeReadIsNotTakenForMissing) {
  LeaveSheet(SystemKind::kClosed);
  const FolderImage before = ImageOf(test.work_disk, TestBench::kProgramFolder);
  work.Bar(work_file::kSheetInWork);
  test.prompter.Expect(" !!... ΠΡΟΣΟΧΗ ...!! ", Answer::kNo);
  GoUnasked(SystemKind::kClosed);
  EXPECT_EQ(ImageOf(test.work_disk, TestBench::kProgramFolder), before);
  EXPECT_TRUE(navigator.log.empty()) << "the user stays";
  test.prompter.Expect(" !!... ΠΡΟΣΟΧΗ ...!! ", Answer::kYes);
  GoUnasked(SystemKind::kClosed);
  EXPECT_EQ(test.Bytes("Spread.@@@.unread"), SheetOf(SystemKind::kClosed, 12));
}

TEST_F(SheetRecovery, TheSheetComesBackWithoutWhatCannotBeTakenBesideIt) {
  LeaveSheet(SystemKind::kClosed);
  Leave(work_file::kSheetIntro, "\"Σχολείο\"\n\"OPEN\"\n");
  Go(SystemKind::kClosed, true);
  EXPECT_EQ(test.prompter.boxes().back().lines.back(), work_file::kSheetIntro);
  EXPECT_EQ(test.study.entry_mode, kSheetEntry);
  EXPECT_TRUE(test.study.SystemClosed()) << "as the sheet tells";
  EXPECT_EQ(InLastCopy(work_file::kSheetIntro), "\"Σχολείο\"\n\"OPEN\"\n");

  LeaveSheet(SystemKind::kClosed);
  ASSERT_TRUE(test.outer_disk.Remove(fs::path(TestBench::kLibraryFolder) / "0002.WPT").ok());
  Go(SystemKind::kClosed, true);
  EXPECT_NE(test.prompter.boxes().back().lines[0].find("0002.WPT"), std::string::npos);
  EXPECT_EQ(test.study.pipe_system_number, 0);
  EXPECT_EQ(test.study.MeanTemp, 70);
  EXPECT_EQ(test.study.entry_mode, kSheetEntry);
}

TEST_F(SheetRecovery, IsNotLostWhicheverStepTheDiskRefuses) {
  for (const bool with_rows : {true, false}) {
    bool reached = true;
    for (int number = 1; reached; ++number) {
      SCOPED_TRACE(number);
      ASSERT_LT(number, 30);
      test.workspace.DeleteWorkFiles();
      LeaveSheet(SystemKind::kClosed, with_rows ? work_file::kSheetInWork : work_file::kSheet);
      if (with_rows) LeaveRows(SystemKind::kClosed, SheetOf(SystemKind::kClosed, 12));
      test.study.system_kind = SystemKind::kClosed;
      failing.FailAtOperation(number, FailingDisk::Lasting::kFromThenOn);
      const auto found = SettleWorkFiles(desk);
      if (found && *found) static_cast<void>(AcceptSheet(desk, **found));
      reached = failing.operations() >= number;
      failing.Mend();
      const std::string sheet = SheetOf(SystemKind::kClosed, 12);
      EXPECT_TRUE(test.Bytes(work_file::kSheetInWork) == sheet ||
                  test.Bytes(work_file::kSheet) == sheet);
      EXPECT_TRUE(!with_rows || test.Bytes() == left);
    }
  }
}

}  // namespace
}  // namespace kalvo
