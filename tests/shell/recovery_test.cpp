#include "shell/recovery.h"

#include <gtest/gtest.h>

#include "shell/study_dialogs.h"
#include "study/safety_copies.h"
#include "study/study_origin.h"
#include "tests/support/dated_disk.h"
#include "tests/support/sample_study.h"
#include "tests/support/test_desk.h"

namespace kalvo {
namespace {

namespace fs = std::filesystem;
const fs::path kCopies = kStudies / kSafetyFolder;

// Work files that an earlier run left, on a disk some of whose files cannot be read.
struct Recovery : ::testing::Test {
  Recovery() {
    desk.data_folder = kStudies;
    EXPECT_TRUE(test.outer_disk.MakeFolder(kStudies).ok());
    desk.state_folder = "/state";
    PutSampleStudy(test.bench, "Από πριν");
    rows = test.Bytes();
    test.study = Study{};
    test.study.system_kind = SystemKind::kClosed;
  }
  void Leave(std::string_view name, std::string bytes) {
    ASSERT_TRUE(test.workspace.Write(name, std::move(bytes)).ok());
  }
  // What is found; the test fails when the user would have to stay.
  FoundLeftOver Settle() {
    const auto found = SettleWorkFiles(desk);
    EXPECT_TRUE(found.ok() && *found);
    return found.ok() && *found ? **found : FoundLeftOver{};
  }
  [[nodiscard]] std::vector<std::string> Copies() const {
    return NamesIn(test.outer_disk, kCopies);
  }
  [[nodiscard]] std::string BytesInCopy(const std::string& name) const {
    const auto bytes = test.outer_disk.Read(kCopies / Copies().back() / name);
    return bytes ? *bytes : "(missing)";
  }

  TestBench test;
  UnreadableDisk work{test.work_disk};
  FailingDisk outer{test.outer_disk};
  StandingClock clock;
  Workspace workspace{work, TestBench::kProgramFolder, outer, TestBench::kLibraryFolder, clock};
  Workbench bench{test.study, workspace, test.pipes, test.prompter};
  NotedNavigator navigator;
  CountedSound sound;
  NotedViewer viewer;
  MemoryClipboard clipboard;
  NotedPrinter printer;
  Desk desk{bench, navigator, sound, viewer, clipboard, printer, Separators{',', '.'}};
  std::string rows;
};

TEST_F(Recovery, TakesTheRowsFromWhicheverFileHoldsThem) {
  for (const char* const name :
       {work_file::kRowsBeforeChange, work_file::kRebuilt, work_file::kFirstRows}) {
    test.workspace.DeleteWorkFiles();
    Leave(name, rows);
    EXPECT_EQ(Settle().what, LeftOver::kStudy) << name;
    EXPECT_EQ(test.Bytes(), rows) << name;
    EXPECT_TRUE(Copies().empty()) << name << " displaced nothing";
  }
}

TEST_F(Recovery, KeepsTheRowsThatAnOlderCopyDisplaces) {
  auto changed = test.Rows();
  changed[0].Length = 99;
  const std::string newer = EncodeRows<SectionRow>(changed);
  for (const char* const name : {work_file::kSummerRows, work_file::kRowsBeforeChange}) {
    Leave(work_file::kRows, newer);
    Leave(name, rows);
    EXPECT_EQ(Settle().rows, 3);
    EXPECT_EQ(test.Bytes(), rows) << name;
    EXPECT_EQ(BytesInCopy("MELETH.PCK"), newer) << name;
  }
}

TEST_F(Recovery, AnOlderCopyThatCannotBeLoadedDisplacesNothing) {
  auto other = test.Rows();
  other[1].RecordNumber = 7;
  for (const std::string& bad : {rows + "rest", EncodeRows<SectionRow>(other)}) {
    Leave(work_file::kRowsBeforeChange, bad);
    EXPECT_EQ(Settle().what, LeftOver::kStudy);
    EXPECT_EQ(test.Bytes(), rows);
    EXPECT_FALSE(test.workspace.Exists(work_file::kRowsBeforeChange));
    EXPECT_EQ(BytesInCopy(work_file::kRowsBeforeChange), bad);
    EXPECT_EQ(test.prompter.boxes().back().lines.back(), work_file::kRowsBeforeChange);
  }
  Leave(work_file::kRowsBeforeChange, rows);
  work.Bar(work_file::kRowsBeforeChange);
  test.prompter.Expect(" !!... ΠΡΟΣΟΧΗ ...!! ", Answer::kNo);
  EXPECT_EQ(*SettleWorkFiles(desk), std::nullopt) << "nobody knows what it holds";
  work.Mend();
  EXPECT_EQ(test.Bytes(work_file::kRowsBeforeChange), rows);
}

TEST_F(Recovery, ALibraryThatCannotBeReadSaysNothingOfTheRows) {
  auto winter = test.Rows();
  winter[0].Length = 99;
  Leave(work_file::kRows, EncodeRows<SectionRow>(winter));
  Leave(work_file::kSummerRows, rows);
  outer.FailAtRead(1, PipeFileName(1));
  const auto found = SettleWorkFiles(desk);
  ASSERT_FALSE(found.ok());
  EXPECT_EQ(found.error().file.filename(), PipeFileName(1));
  EXPECT_EQ(test.Bytes(work_file::kSummerRows), rows);
  EXPECT_EQ(Settle().what, LeftOver::kStudy);
  EXPECT_EQ(test.Bytes(), rows);
}

TEST_F(Recovery, CutsARestThatIsNoRowAndKeepsTheOriginal) {
  Leave(work_file::kRows, rows + "rest");
  EXPECT_EQ(Settle().rows, 3);
  EXPECT_EQ(test.Bytes(), rows);
  EXPECT_EQ(BytesInCopy("MELETH.PCK"), rows + "rest");
  Leave(work_file::kRows, "");
  EXPECT_EQ(Settle().what, LeftOver::kNothing);
  EXPECT_FALSE(test.workspace.Exists(work_file::kRows));
}

TEST_F(Recovery, GoesOnWithoutDamagedFilesAndSaysWhich) {
  Leave(work_file::kStatistics, "12345");
  Leave(work_file::kEmitters, "x" + rows);
  Leave(work_file::kFluid, std::string(73, '\xFF'));
  Leave(work_file::kWinter, rows + "y");
  ASSERT_TRUE(AcceptRecovery(desk, Settle()));
  EXPECT_EQ(test.study.study_title, "Από πριν");
  EXPECT_EQ(test.study.EmitterCount, 2);
  EXPECT_TRUE(test.study.fluid_assumed);
  EXPECT_EQ(test.prompter.boxes().back().lines.back(),
            "STATIST.TMP, SOMATA.TMP, LIQUID.TMP, WINTCIRC.TMP");
  for (const char* const name :
       {work_file::kStatistics, work_file::kEmitters, work_file::kFluid, work_file::kWinter}) {
    EXPECT_NE(BytesInCopy(name), "(missing)") << name;
  }
  // The copy opens, though files next to its rows were damaged.
  EXPECT_TRUE(OpenChosen(desk, kCopies / Copies().back() / "MELETH.PCK", RecentList::kLeave));
  EXPECT_EQ(test.study.study_title, "Από πριν");
}

TEST_F(Recovery, KnowsTitleFileAndTimeAndSavesUnderTheStudysOwnName) {
  NoteOrigin(workspace, kStudies / "σχολείο.PCK");
  const FoundLeftOver found = Settle();
  EXPECT_EQ(found.title, "Από πριν");
  EXPECT_EQ(found.file, kStudies / "σχολείο.PCK");
  EXPECT_FALSE(found.moment.empty());
  ASSERT_TRUE(AcceptRecovery(desk, found));
  EXPECT_EQ(test.study.origin_path, kStudies / "σχολείο.PCK");
  EXPECT_TRUE(test.study.study_path.empty()) << "nothing of it is saved";
  ASSERT_TRUE(KeepSafetyCopy(bench, desk.safety_folders()));
  EXPECT_EQ(BytesInCopy("σχολείο.PCK"), rows);
}

TEST_F(Recovery, RowsThatCannotBeReadAreUnsavedRows) {
  test.study.study_path = kStudies / "a.PCK";
  ASSERT_TRUE(test.outer_disk.Write(kStudies / "a.PCK", rows).ok());
  test.workspace.Delete(work_file::kFluid);
  test.workspace.Delete(work_file::kWinter);
  EXPECT_TRUE(IsSaved(bench));
  work.Bar(work_file::kRows);
  EXPECT_FALSE(IsSaved(bench));
  test.prompter.Expect(" !!... ΠΡΟΣΟΧΗ ...!! ", Answer::kNo);
  EXPECT_FALSE(ThrowAwayStudy(desk));
  work.Mend();
  EXPECT_EQ(test.Bytes(), rows);
  EXPECT_TRUE(Copies().empty()) << "half a copy is none";
}

TEST_F(Recovery, FluidAndWinterRowsAreTheStudysDataToo) {
  test.study.study_path = kStudies / "a.PCK";
  const std::string fluid = test.Bytes(work_file::kFluid);
  const std::string winter = test.Bytes(work_file::kWinter);
  ASSERT_TRUE(test.outer_disk.Write(kStudies / "a.PCK", rows).ok());
  ASSERT_TRUE(test.outer_disk.Write(kStudies / "a.LQD", fluid).ok());
  EXPECT_FALSE(IsSaved(bench)) << "the winter rows are in no file";
  ASSERT_TRUE(test.outer_disk.Write(kStudies / "a.WNT", winter).ok());
  EXPECT_TRUE(IsSaved(bench));
  Leave(work_file::kFluid, std::string(72, ' '));
  EXPECT_FALSE(IsSaved(bench));
}

TEST_F(Recovery, KeepsTheNewestTenCopiesAndNothingThatIsNoCopy) {
  for (const char* const own :
       {"Σημειώσεις", "2020-01-01", "2020-01-01_000000 παλιό", "2020-01-01_000000-x"}) {
    ASSERT_TRUE(test.outer_disk.MakeFolder(kCopies / own).ok());
  }
  ASSERT_TRUE(test.outer_disk.Write(kCopies / "2020-01-01_000000" / "a.PCK", rows).ok());
  clock.now = 2'000'000'000;
  for (int i = 0; i < 12; ++i) {
    ASSERT_TRUE(KeepSafetyCopyAnyway(bench, desk.safety_folders()));
  }
  EXPECT_EQ(SafetyCopyNames(test.outer_disk, kCopies).size(), kSafetyCopies);
  EXPECT_EQ(SafetyCopyNames(test.outer_disk, kCopies).back().substr(17), "-12") << "12 is after 9";
  EXPECT_EQ(Copies().size(), kSafetyCopies + 4);
  clock.now = 1'000'000'000;  // a clock that was set back
  const fs::path oldest = kCopies / SafetyCopyNames(test.outer_disk, kCopies).front();
  ASSERT_TRUE(KeepSafetyCopyAnyway(bench, desk.safety_folders(), oldest));
  ASSERT_TRUE(KeepSafetyCopyAnyway(bench, desk.safety_folders(), oldest));
  EXPECT_EQ(SafetyCopyNames(test.outer_disk, kCopies).back().substr(17), "-14");
  EXPECT_EQ(SafetyCopyNames(test.outer_disk, kCopies)[9].substr(17), "-13");
  EXPECT_TRUE(test.outer_disk.Exists(oldest / "MELETH.PCK")) << "it is being opened";
}

TEST_F(Recovery, FallsBackOnTheStateFolderAndAsksWhenNeitherTakesTheCopy) {
  outer.FailAtOperation(1, FailingDisk::Lasting::kOnce);
  ASSERT_TRUE(KeepSafetyCopyAnyway(bench, desk.safety_folders()));
  const std::string told = test.prompter.boxes().back().lines.back();
  EXPECT_NE(told.find("/state/ASFALEIA/"), std::string::npos) << told;
  EXPECT_TRUE(Copies().empty());

  desk.data_folder = "/share/that/is/gone";
  ASSERT_TRUE(KeepSafetyCopyAnyway(bench, desk.safety_folders()));
  EXPECT_FALSE(test.outer_disk.Exists("/share/that/is/gone")) << "nothing is put below it";
  desk.data_folder = kStudies;

  outer.FailAtOperation(1, FailingDisk::Lasting::kFromThenOn);
  Leave(work_file::kRows, rows + "rest");
  test.prompter.Expect(" !!... ΠΡΟΣΟΧΗ ...!! ", Answer::kNo);
  EXPECT_EQ(*SettleWorkFiles(desk), std::nullopt) << "the user stays";
  EXPECT_EQ(test.Bytes(), rows + "rest");
  test.prompter.Expect(" !!... ΠΡΟΣΟΧΗ ...!! ", Answer::kYes);
  EXPECT_EQ(Settle().rows, 3);
}

}  // namespace
}  // namespace kalvo
