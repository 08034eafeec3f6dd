#include "entry/sheet/frm_data_sheet.h"

#include <gtest/gtest.h>

#include "study/load_study.h"
#include "tests/entry/sheet_user.h"
#include "tests/support/failing_disk.h"

namespace kalvo {
namespace {

TEST(SheetEnd, ThatEndsAsItBeganWritesNothing) {
  SheetUser sheet(SystemKind::kClosed, kLoop);
  sheet.user.test.study.results_valid = true;
  sheet.OpenFromMenu();
  const std::string rows = sheet.user.test.Bytes();
  sheet.GoTo(1, 3);
  sheet.TypeCells("6");
  sheet.Press(Ctrl('Z'));
  sheet.Press(Ctrl(KeyCode::kEnter));
  EXPECT_EQ(sheet.user.test.Bytes(), rows);
  EXPECT_TRUE(sheet.user.test.study.results_valid);
  EXPECT_FALSE(sheet.user.test.study.unsaved_changes);
  EXPECT_EQ(sheet.user.navigator.log.back(), "show FrmMain");
  EXPECT_EQ(sheet.user.test.Bytes(work_file::kFirstRows), "(missing)");
}

TEST(SheetEnd, AChangedNumberVoidsResultsAndKeepsWhatTheSheetDoesNotShow) {
  SheetUser sheet(SystemKind::kClosed, kLoop);
  TestBench& test = sheet.user.test;
  test.ChangeRow(2, [](SectionRow& row) {
    row.Length = 5.123456F;
    row.TotalDrop = 12;
    row.NomiDiam = FixedText<15>::FromUtf8("1/2");
  });
  test.study.results_valid = true;
  sheet.Open();
  sheet.GoTo(0, 4);
  sheet.TypeCells("3");
  sheet.Press(Ctrl(KeyCode::kEnter));
  EXPECT_EQ(test.Row(1).AnglePOP, 3);
  EXPECT_EQ(test.Row(2).Length, 5.123456F);
  EXPECT_EQ(test.Row(2).SomaDrop, 800);
  EXPECT_EQ(test.Row(2).TotalDrop, 0);
  EXPECT_EQ(Joined(test.Diameters()), "");
  EXPECT_FALSE(test.study.results_valid);
  EXPECT_TRUE(test.study.unsaved_changes);
  EXPECT_EQ(sheet.user.navigator.log.back(), "show FrmMain") << "no emitter form after an edit";
}

TEST(SheetEnd, EmittersAndPlantFollowTheirRows) {
  SheetUser sheet(SystemKind::kClosed, kLoop);
  TestBench& test = sheet.user.test;
  test.study.plant_section = 3;
  sheet.OpenFromMenu();
  sheet.GoTo(0, 0);
  sheet.Press(Ctrl(KeyCode::kInsert));
  sheet.TypeCells("a 9 7");
  sheet.GoTo(1, 0);
  sheet.TypeCells("9");
  sheet.Press(Ctrl(KeyCode::kEnter));
  EXPECT_EQ(Joined(test.Names()), "ANT/9  |  9/1  |  1/2  |  2/ANT");
  const std::vector<SectionRow> emitters = test.Rows(work_file::kEmitters);
  ASSERT_EQ(emitters.size(), 1U);
  EXPECT_EQ(emitters[0].RecordNumber, 3);
  EXPECT_EQ(emitters[0].SomaDrop, 800);
  EXPECT_EQ(test.study.plant_section, 4);
  EXPECT_EQ(test.Row(4).Auxi, 2);
  EXPECT_EQ(test.Row(1).SomaDrop, 0);
  EXPECT_TRUE(test.study.emitters_unchecked);
  EXPECT_EQ(sheet.user.navigator.log.back(), "show FrmSoma");
}

TEST(SheetEnd, TheRecordOfADeletedSectionStaysUntilItIsSettled) {
  SheetUser sheet(SystemKind::kClosed, kLoop);
  sheet.GoTo(1, 0);
  sheet.user.test.prompter.Expect(120, Answer::kYes);
  sheet.Press(Ctrl(KeyCode::kDelete));
  sheet.Press(Ctrl(KeyCode::kEnter));
  const std::vector<SectionRow> emitters = sheet.user.test.Rows(work_file::kEmitters);
  ASSERT_EQ(emitters.size(), 1U);
  EXPECT_EQ(emitters[0].RecordNumber, 0);
  EXPECT_EQ(emitters[0].SomaDrop, 800);
  EXPECT_EQ(sheet.user.test.study.EmitterCount, 0);
}

TEST(SheetEnd, NamesWhatIsMissingInTheWordsOfItsKind) {
  SheetUser closed;
  closed.GoTo(2, 3);
  closed.TypeCells("5");
  closed.GoTo(0, 2);
  closed.TypeCells("1");
  closed.user.navigator.Expect(screen::kMissingValues, [] {});
  closed.Press(Ctrl(KeyCode::kEnter));
  EXPECT_EQ(closed.user.test.Bytes(work_file::kErrors),
            "Τμήμα <1 > : Λείπει το ΜΗΚΟΣ\nΤμήμα <2 > : Λείπει ο ΑΡΧΙΚΟΣ ΚΟΜΒΟΣ\n"
            "Τμήμα <2 > : Λείπει ο ΤΕΛΙΚΟΣ ΚΟΜΒΟΣ\nΤμήμα <2 > : Λείπει το ΜΗΚΟΣ\n"
            "Τμήμα <3 > : Λείπει ο ΑΡΧΙΚΟΣ ΚΟΜΒΟΣ\nΤμήμα <3 > : Λείπει ο ΤΕΛΙΚΟΣ ΚΟΜΒΟΣ\n");
  EXPECT_EQ(closed.form->LblMissing.text, "Κενά που λείπουν: 6");
  SheetUser open(SystemKind::kOpen);
  open.GoTo(0, 3);
  open.TypeCells("0");
  open.GoTo(1, 3);
  open.TypeCells("2");
  open.user.navigator.Expect(screen::kMissingValues, [] {});
  open.Press(Ctrl(KeyCode::kEnter));
  EXPECT_EQ(open.user.test.Bytes(work_file::kErrors),
            "Τμήμα <2 > : Λείπει ο α/α του ΤΜΗΜΑΤΟΣ-ΤΡΟΦΟΔΟΤΗ\n")
      << "0 is a value";
}

TEST(SheetEnd, OpenNetworkTakesTheOutletsWhereLeavesOrFeedersChange) {
  SheetUser sheet(SystemKind::kOpen, kTree);
  sheet.GoTo(2, 2);
  sheet.TypeCells("2");
  sheet.Press(Ctrl(KeyCode::kEnter));
  EXPECT_TRUE(sheet.user.test.study.NameErrors);
  EXPECT_EQ(sheet.user.navigator.log.back(), "show FrmYpodo");
}

TEST(SheetEnd, AnEmptySheetLeavesAndAnEmptiedOneAsks) {
  SheetUser empty;
  empty.Press(Ctrl(KeyCode::kEnter));
  EXPECT_EQ(empty.user.navigator.log.back(), "show FrmMain");
  EXPECT_EQ(empty.user.test.Bytes(), "(missing)");
  SheetUser sheet(SystemKind::kClosed, kLoop);
  sheet.Press(Ctrl('A'));
  sheet.user.test.prompter.Expect(120, Answer::kYes);
  sheet.Press(Ctrl(KeyCode::kDelete));
  const std::string rows = sheet.user.test.Bytes();
  sheet.user.test.prompter.Expect("  ! !   ΠΡΟΣΟΧΗ : ΔΙΑΓΡΑΦΗ   ! ! ", Answer::kNo);
  sheet.Press(Ctrl(KeyCode::kEnter));
  EXPECT_EQ(sheet.user.test.Bytes(), rows);
  EXPECT_EQ(sheet.user.navigator.log.size(), 0U);
}

// A row is put before the first one and the whole is kept and made into rows, while the program is
// killed after any step of its disk.
TEST(SheetEnd, AKillAtAnyStepOfItsEndLosesNeitherWordsNorEmitters) {
  bool ended = false;
  for (int step = 1; !ended; ++step) {
    SheetUser sheet(SystemKind::kClosed, kLoop);
    TestBench& test = sheet.user.test;
    const std::string old_rows = test.Bytes();
    struct Killed {};
    KillingDisk disk(test.work_disk, step, [] { throw Killed{}; });
    Workspace workspace(disk, TestBench::kProgramFolder, test.outer_disk, TestBench::kLibraryFolder,
                        test.clock);
    Workbench bench{test.study, workspace, test.pipes, test.prompter};
    Desk desk{bench,
              sheet.user.navigator,
              sheet.user.sound,
              sheet.user.viewer,
              sheet.user.clipboard,
              sheet.user.printer,
              Separators{',', '.'}};
    bool kept = false;
    try {
      sheet.form = std::make_unique<FrmData_Sheet>(desk);
      sheet.form->Load();
      sheet.Press(Ctrl(KeyCode::kInsert));
      sheet.TypeCells("a 9 7");
      sheet.GoTo(1, 0);
      sheet.TypeCells("9");
      sheet.form->Idle(0.3);
      kept = true;
      sheet.Press(Ctrl(KeyCode::kEnter));
      ended = true;
    } catch (const Killed&) {
    }
    sheet.form.reset();
    const bool converted = test.Bytes() != old_rows;
    EXPECT_TRUE(!kept || converted || test.workspace.Exists(work_file::kSheetInWork)) << step;
    test.study = Study{};  // another run of the program
    test.study.system_kind = SystemKind::kClosed;
    test.study.recovery = true;
    ASSERT_TRUE(LoadStudy(test.bench, RecentList::kLeave, {}).ok()) << step;
    sheet.Open();
    if (kept) {
      ASSERT_EQ(sheet.Line(0), "ANT|/|9|7") << step;
      sheet.Press(Ctrl(KeyCode::kEnter));
      EXPECT_EQ(Joined(test.Names()), "ANT/9  |  9/1  |  1/2  |  2/ANT") << step;
      EXPECT_EQ(test.Column(&SectionRow::SomaDrop), (std::vector<float>{0, 0, 800, 0})) << step;
      const std::vector<SectionRow> emitters = test.Rows(work_file::kEmitters);
      ASSERT_EQ(emitters.size(), 1U) << step;
      EXPECT_EQ(emitters[0].RecordNumber, 3) << step;
      EXPECT_FALSE(test.workspace.Exists(work_file::kSheetInWork)) << step;
    }
  }
}

TEST(SheetEnd, ADiskThatFailsIsToldAndNothingIsLost) {
  SheetUser sheet(SystemKind::kClosed, kLoop);
  TestBench& test = sheet.user.test;
  FailingDisk disk(test.work_disk);
  Workspace workspace(disk, TestBench::kProgramFolder, test.outer_disk, TestBench::kLibraryFolder,
                      test.clock);
  Workbench bench{test.study, workspace, test.pipes, test.prompter};
  Desk desk{bench,
            sheet.user.navigator,
            sheet.user.sound,
            sheet.user.viewer,
            sheet.user.clipboard,
            sheet.user.printer,
            Separators{',', '.'}};
  test.study.plant_section = 3;
  sheet.form = std::make_unique<FrmData_Sheet>(desk);
  sheet.form->Load();
  sheet.GoTo(0, 3);
  sheet.TypeCells("9");
  disk.FailAfterBytes(0);
  EXPECT_TRUE(sheet.form->Idle(0.3));
  EXPECT_EQ(sheet.form->LblStatus.tone, Tone::kAlarm);
  EXPECT_FALSE(sheet.form->Idle(1)) << "not at every moment again";
  const std::string rows = test.Bytes();
  sheet.Press(Ctrl(KeyCode::kEnter));
  EXPECT_EQ(test.Bytes(), rows);
  EXPECT_TRUE(sheet.user.navigator.log.empty()) << "the sheet stays";
  EXPECT_FALSE(test.prompter.boxes().empty());
  disk.Mend();
  sheet.GoTo(0, 0);
  sheet.Press(Ctrl(KeyCode::kInsert));
  sheet.TypeCells("a 9 7");
  sheet.GoTo(1, 0);
  sheet.TypeCells("9");
  for (int step = 1; test.study.plant_section == 3; ++step) {
    disk.FailAtOperation(step, FailingDisk::Lasting::kFromThenOn);
    sheet.Press(Ctrl(KeyCode::kEnter));
    disk.Mend();
  }
  EXPECT_EQ(test.study.plant_section, 4) << "moved once, however often it failed";
  EXPECT_EQ(Joined(test.Names()), "ANT/9  |  9/1  |  1/2  |  2/ANT");
  EXPECT_EQ(test.Rows(work_file::kEmitters).at(0).RecordNumber, 3);
}

// A disk that fails once at each operation of the end: the rows are those of before.
TEST(SheetEnd, AnEndThatFailsBringsTheRowsBack) {
  bool failed = true;
  for (int step = 1; failed; ++step) {
    SheetUser sheet(SystemKind::kClosed, kLoop);
    TestBench& test = sheet.user.test;
    FailingDisk disk(test.work_disk);
    Workspace workspace(disk, TestBench::kProgramFolder, test.outer_disk, TestBench::kLibraryFolder,
                        test.clock);
    Workbench bench{test.study, workspace, test.pipes, test.prompter};
    Desk desk{bench,
              sheet.user.navigator,
              sheet.user.sound,
              sheet.user.viewer,
              sheet.user.clipboard,
              sheet.user.printer,
              Separators{',', '.'}};
    sheet.form = std::make_unique<FrmData_Sheet>(desk);
    sheet.form->Load();
    sheet.GoTo(0, 3);
    sheet.TypeCells("9");
    const std::string rows = test.Bytes();
    disk.FailAtOperation(step, FailingDisk::Lasting::kOnce);
    sheet.Press(Ctrl(KeyCode::kEnter));
    failed = disk.operations() >= step;
    EXPECT_EQ(test.Bytes() == rows, sheet.user.navigator.log.empty()) << step;
  }
}

TEST(SheetEnd, CanBeLeftWhereItsRowsCannotBeMade) {
  SheetUser sheet(SystemKind::kClosed, kLoop);
  TestBench& test = sheet.user.test;
  sheet.GoTo(0, 3);
  sheet.TypeCells("9");
  ASSERT_TRUE(test.workspace.Write(work_file::kEmitters, "odd").ok());
  for (const Answer answer : {Answer::kNo, Answer::kYes}) {
    test.prompter.Expect(" !!... ΠΡΟΣΟΧΗ ...!! ", answer);
    EXPECT_FALSE(sheet.form->MayClose());
    EXPECT_EQ(test.prompter.boxes().back().style, box_style::kDefaultNo);
    EXPECT_EQ(sheet.user.navigator.log.empty(), answer == Answer::kNo);
  }
  EXPECT_TRUE(test.workspace.Exists(work_file::kSheetInWork));
  EXPECT_EQ(test.Bytes(work_file::kEmitters), "odd");
}

}  // namespace
}  // namespace kalvo
