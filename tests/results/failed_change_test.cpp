// A change of diameters whose calculation, or whose end, fails.

#include <gtest/gtest.h>

#include "engine/rerun.h"
#include "results/frm_compare.h"
#include "results/frm_res.h"
#include "tests/results/diameter_desk.h"
#include "tests/support/failing_disk.h"

namespace kalvo {
namespace {

// Whatever is replaced, no calculation comes about: a section has no flow.
struct FailedDesk : DiameterDesk<FrmRes> {
  FailedDesk() {
    Load();
    first = test.Bytes();
    EXPECT_TRUE(OpenBy(view->CmdChD));
    test.ChangeRow(6, [](SectionRow& row) { row.WaterFlow = 0; });
    own = test.Row(1).NomiDiam.Utf8();
    Replace("4");
    EXPECT_TRUE(test.study.recalculation_needed);
  }
  std::string first;
  std::string own;
};
struct FailedChange : FailedDesk, ::testing::Test {};

TEST_F(FailedChange, IsNoReferenceForTheNextOne) {
  const std::string previous = test.Bytes(work_file::kPreviousRows);
  Click(*form, form->Cmd_Close);
  Bury();
  EXPECT_TRUE(OpenBy(view->CmdChD)) << "another diameter may do";
  EXPECT_TRUE(test.Bytes(work_file::kPreviousRows) == previous);
  Click(*form, form->Cmd_Close);
  Bury();
  EXPECT_TRUE(OpenBy(view->CmdChangeOne));
  EXPECT_FALSE(test.workspace.Exists(work_file::kRowsBeforeChange));
}

TEST_F(FailedChange, ShowsNoResultsOfOtherDiameters) {
  for (Command* command :
       {&view->CmdDiff, &view->CmdPump, &view->CmdExar, &view->changes.CmdCompare}) {
    const std::size_t boxes = test.prompter.boxes().size();
    TakeLog();
    Click(*view, *command);
    ASSERT_EQ(test.prompter.boxes().size(), boxes + 1) << command->name();
    EXPECT_EQ(test.prompter.boxes().back().lines.front(), kNoResults);
    EXPECT_TRUE(TakeLog().empty()) << command->name();
  }
  EXPECT_TRUE(test.prompter.codes().empty());
}

TEST_F(FailedChange, TakenBackGivesTheFirstResultsWithoutAQuestion) {
  Replace(own);
  EXPECT_TRUE(test.study.recalculation_needed) << "that run fails, too";
  Click(*view, view->CmdBack);
  EXPECT_TRUE(test.Bytes() == first);
  EXPECT_FALSE(test.study.recalculation_needed);
}

TEST(FailedChangeOnAFailingDisk, KeepsTheFirstRowsUntilTheyAreBack) {
  bool reached = true;
  for (int operation = 1; reached; ++operation) {
    SCOPED_TRACE(operation);
    FailedDesk desk;
    TestBench& test = desk.test;
    desk.Replace(desk.own);
    FailingDisk disk(test.work_disk);
    test.workspace = Workspace(disk, TestBench::kProgramFolder, test.outer_disk,
                               TestBench::kLibraryFolder, test.clock);
    disk.FailAtOperation(operation, FailingDisk::Lasting::kOnce);
    Click(*desk.view, desk.view->CmdBack);
    reached = disk.operations() >= operation;
    EXPECT_TRUE(test.Bytes() == desk.first || (test.workspace.Exists(work_file::kFirstRows) &&
                                               test.Bytes(work_file::kFirstRows) == desk.first));
  }
}

TEST(WaitingChange, IsCalculatedBeforeItIsCompared) {
  DiameterDesk<FrmRes> desk;
  desk.Load();
  ASSERT_TRUE(desk.OpenBy(desk.view->CmdChangeOne));
  desk.Replace("4");
  EXPECT_TRUE(desk.view->Press(Ctrl('Z')));
  FrmCompare comparison(desk.desk);
  comparison.Load();
  EXPECT_TRUE(comparison.Press(Ctrl('Y')));
  EXPECT_FALSE(*ChangeWaits(desk.test.workspace));
  EXPECT_EQ(desk.view->TxtVelocity.text,
            FormatPattern(desk.test.Row(1).Velocity, pattern::kOneDecimal, desk.desk.separators));
  EXPECT_EQ(desk.view->LblWas.text.find("αναμένει"), std::string::npos);
  EXPECT_NE(comparison.LblHeadChange.text, "ίδιο");
}

// Whatever operation fails once at the end, what was chosen happens or the results stay open.
TEST(FailingDiskAtTheEnd, KeepsTheResultsOpen) {
  for (const Answer answer : {Answer::kYes, Answer::kNo}) {
    bool reached = true;
    for (int operation = 1; reached; ++operation) {
      SCOPED_TRACE((answer == Answer::kYes ? "yes " : "no ") + std::to_string(operation));
      DiameterDesk<FrmRes> desk;
      desk.Load();
      TestBench& test = desk.test;
      const std::string before = test.Bytes();
      ASSERT_TRUE(desk.OpenBy(desk.view->CmdChD));
      desk.Replace("4");
      const std::string after = test.Bytes();
      FailingDisk disk(test.work_disk);
      test.workspace = Workspace(disk, TestBench::kProgramFolder, test.outer_disk,
                                 TestBench::kLibraryFolder, test.clock);
      disk.FailAtOperation(operation, FailingDisk::Lasting::kOnce);
      desk.TakeLog();
      test.prompter.Expect(307, answer);
      Click(*desk.view, desk.view->CmdBack);
      reached = disk.operations() >= operation;
      disk.Mend();
      const bool left = desk.TakeLog().back() == "show FrmMain";
      const std::string& chosen = answer == Answer::kYes ? after : before;
      EXPECT_TRUE(test.Bytes() == (left ? chosen : after));
      if (left) continue;
      EXPECT_TRUE(test.Bytes(work_file::kFirstRows) == before) << "the way back stays";
      test.prompter.Expect(307, answer);
      Click(*desk.view, desk.view->CmdBack);
      EXPECT_TRUE(test.Bytes() == chosen);
    }
  }
}

}  // namespace
}  // namespace kalvo
