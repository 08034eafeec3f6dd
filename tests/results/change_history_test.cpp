#include "results/change_history.h"

#include <gtest/gtest.h>

#include "results/frm_compare.h"
#include "results/frm_res.h"
#include "results/frm_res_sheet.h"
#include "study/digest.h"
#include "tests/results/diameter_desk.h"
#include "tests/support/failing_disk.h"

namespace kalvo {
namespace {

// All that a change of diameters touches, on the disk and in the study.
std::string StateOf(TestBench& test) {
  const Study& study = test.study;
  std::string state;
  for (const char* name : {work_file::kRows, work_file::kStatistics, work_file::kPreviousRows}) {
    const bool there = test.workspace.Exists(name);
    state += there ? std::to_string(Digest(test.Bytes(name))) + " " : "(none) ";
  }
  for (const StatRow& line : study.PipeStats) state += std::to_string(line.Length) + " ";
  return state + study.critical_branch + std::to_string(study.PumpHead) +
         std::to_string(study.TotalFlowM3h) + std::to_string(study.CriticalDrop) +
         (study.recalculation_needed ? "!" : "") + (study.unsaved_changes ? "*" : "");
}

struct History : DiameterDesk<FrmRes>, ::testing::Test {
  History() { Load(); }
  std::vector<std::string> states;

  void ReplaceAt(int row, std::string_view diameter) {
    while (view->number() < row) Click(*view, view->CmdNext);
    form->Derive();
    states.push_back(StateOf(test));
    Replace(diameter);
  }
};

TEST_F(History, StepsBackAndForthGiveTheSameBytes) {
  ASSERT_TRUE(OpenBy(view->CmdChD));
  ReplaceAt(1, "2");
  ReplaceAt(2, "2 1/2");
  ReplaceAt(2, "3");
  const std::string last = StateOf(test);
  for (auto state = states.rbegin(); state != states.rend(); ++state) {
    EXPECT_TRUE(view->Press(Ctrl('Z')));
    EXPECT_EQ(StateOf(test), *state);
  }
  EXPECT_EQ(view->TxtNomiDiam.tone, Tone::kCalculated);
  EXPECT_TRUE(form->Press(Ctrl('Z'))) << "the list takes steps too";
  EXPECT_EQ(form->LblHint.text, kNothingToUndo);
  EXPECT_TRUE(form->Press(Ctrl('Y')));
  EXPECT_EQ(StateOf(test), states[1]);
  EXPECT_TRUE(view->Press(Ctrl('Y')));
  EXPECT_TRUE(view->Press(Ctrl('Y')));
  EXPECT_EQ(StateOf(test), last);
  EXPECT_TRUE(view->Press(Ctrl('Z')));
  ReplaceAt(2, "1");
  EXPECT_FALSE(HasStep(desk, HistoryStep::kRedo)) << "a new change ends what could be made again";
}

TEST_F(History, TheLineSaysWhatTheChangesComeTo) {
  ASSERT_TRUE(OpenBy(view->CmdChD));
  EXPECT_FALSE(view->changes.LblChanges.visible);
  const std::string head = view->frame.LblHead.text;
  ReplaceAt(1, "2");
  const std::string after =
      FormatPattern(test.Row(1).DP / 1000.0, pattern::kTwoDecimals, desk.separators);
  EXPECT_EQ(view->changes.LblChanges.text, "Μία διάμετρος άλλαξε από το άνοιγμα : μανομετρικό " +
                                               head + " → " + after + " m w.g.");
  EXPECT_TRUE(view->changes.CmdUndoHere.visible);
  Click(*view, view->changes.CmdUndoHere);
  EXPECT_EQ(view->changes.LblChanges.text,
            "Οι διάμετροι είναι όπως στο άνοιγμα : μανομετρικό " + head + " m w.g.");
  Click(*view, view->changes.CmdUndo);
  EXPECT_EQ(view->changes.LblChanges.text, kNothingToUndo);
  EXPECT_EQ(sound.beeps, 1);
}

TEST_F(History, WaitingChangesAreTakenBackStepByStep) {
  const std::string first = StateOf(test);
  ASSERT_TRUE(OpenBy(view->CmdChangeOne));
  ReplaceAt(1, "2");
  EXPECT_EQ(view->changes.LblChanges.text,
            "Μία διάμετρος άλλαξε από το άνοιγμα : αναμένει υπολογισμό");
  ReplaceAt(2, "2");
  EXPECT_TRUE(view->Press(Ctrl('Z')));
  EXPECT_EQ(StateOf(test), states[1]) << "nothing is calculated";
  EXPECT_TRUE(view->Press(Ctrl('Z')));
  EXPECT_EQ(StateOf(test), first);
  EXPECT_TRUE(view->Press(Ctrl('Y')));
  EXPECT_TRUE(view->Press(Ctrl('Y')));

  test.prompter.Expect(304, Answer::kNo);
  test.prompter.Expect(306, Answer::kYes);
  Click(*view, view->CmdPump);
  EXPECT_FALSE(HasStep(desk, HistoryStep::kUndo)) << "they were given up for good";
  EXPECT_FALSE(HasStep(desk, HistoryStep::kRedo));
}

TEST_F(History, AStepBehindTheCopyOfTheMenuTakesItAlong) {
  const std::string first = test.Bytes();
  ASSERT_TRUE(OpenBy(view->CmdChD));
  ReplaceAt(1, "2");
  Click(*form, form->Cmd_Close);
  Bury();
  ASSERT_TRUE(OpenBy(view->CmdChangeOne));
  EXPECT_TRUE(view->Press(Ctrl('Z')));
  Replace("3");
  test.prompter.Expect(304, Answer::kNo);
  test.prompter.Expect(306, Answer::kYes);
  Click(*view, view->CmdDiff);
  EXPECT_TRUE(test.Bytes() == first) << "not what was taken back";
  EXPECT_FALSE(HasStep(desk, HistoryStep::kUndo));
}

TEST_F(History, AWaitingChangeThatWasCalculatedLeadsBackToResults) {
  const std::string first = test.Bytes();
  ASSERT_TRUE(OpenBy(view->CmdChangeOne));
  ReplaceAt(1, "2");
  ReplaceAt(2, "2");
  Click(*form, form->Cmd_Close);
  Bury();
  ASSERT_TRUE(OpenBy(view->CmdChD)) << "which calculates";
  const std::string both = test.Bytes();
  EXPECT_TRUE(view->Press(Ctrl('Z')));
  EXPECT_TRUE(test.Bytes() == test.Bytes(work_file::kPreviousRows)) << "one pipe, calculated";
  EXPECT_EQ(test.Row(2).InDiameter, std::abs(test.Row(2).InDiameter));
  EXPECT_TRUE(view->Press(Ctrl('Y')));
  EXPECT_TRUE(test.Bytes() == both);
  EXPECT_TRUE(view->Press(Ctrl('Z')));
  EXPECT_TRUE(view->Press(Ctrl('Z')));
  EXPECT_TRUE(test.Bytes() == first);
  EXPECT_FALSE(test.study.recalculation_needed);
}

TEST_F(History, EndsWithTheResults) {
  ASSERT_TRUE(OpenBy(view->CmdChD));
  ReplaceAt(1, "2");
  test.prompter.Expect(307, Answer::kNone);
  Click(*view, view->CmdBack);
  EXPECT_TRUE(HasStep(desk, HistoryStep::kUndo)) << "an answer left open leaves the results open";
  EXPECT_TRUE(test.workspace.HasBytes(work_file::kFirstRows));
  EXPECT_EQ(TakeLog().back(), "close FrmAvaiD");
  Bury();
  test.prompter.Expect(307, Answer::kYes);
  Click(*view, view->CmdBack);
  EXPECT_FALSE(HasStep(desk, HistoryStep::kUndo));
  EXPECT_EQ(TakeLog().back(), "show FrmMain");
}

// Whatever operation of the disk fails, a step is made or not, whole, and can be made again.
TEST(FailingDiskAtAStep, LosesNoRowsAndNoStep) {
  bool reached = true;
  for (int operation = 1; reached; ++operation) {
    SCOPED_TRACE(operation);
    DiameterDesk<FrmRes> desk;
    desk.Load();
    TestBench& test = desk.test;
    ASSERT_TRUE(desk.OpenBy(desk.view->CmdChD));
    const std::string before = StateOf(test);
    desk.Replace("4");
    const std::string changed = StateOf(test);
    FailingDisk disk(test.work_disk);
    test.workspace = Workspace(disk, TestBench::kProgramFolder, test.outer_disk,
                               TestBench::kLibraryFolder, test.clock);
    disk.FailAtOperation(operation, FailingDisk::Lasting::kOnce);
    Click(*desk.view, desk.view->changes.CmdUndo);
    reached = disk.operations() >= operation;
    EXPECT_EQ(test.prompter.boxes().size(), reached ? 1 : 0);
    disk.Mend();
    const bool undone = HasStep(desk.desk, HistoryStep::kRedo);
    EXPECT_EQ(test.Row(1).NomiDiam.Utf8() == "4", !undone);
    EXPECT_FALSE(test.study.recalculation_needed) << "what follows from the rows was made anew";
    Click(*desk.view, undone ? desk.view->changes.CmdRedo : desk.view->changes.CmdUndo);
    EXPECT_EQ(StateOf(test), undone ? changed : before);
  }
}

struct Comparison : DiameterDesk<FrmRes_Sheet>, ::testing::Test {
  Comparison() {
    Load();
    OpenBy(view->CmdChD);
  }
};

TEST_F(Comparison, ShowsWhatDiffersAndGoesThere) {
  const SectionRow before = test.Row(2);
  view->fpSpread1.MoveTo({1, 0});
  form->Derive();
  Replace("2");
  const SectionRow after = test.Row(2);
  FrmCompare compared(desk);
  compared.Load();
  const Grid& grid = compared.fpSpread1;
  ASSERT_TRUE(grid.visible);
  int at = 0;
  while (grid.NumberOf(at) != 2) ++at;
  const auto text = [this](float value, std::string_view known) {
    return FormatPattern(value, known, desk.separators);
  };
  EXPECT_EQ(grid.At(at, 1).text, before.NomiDiam.Utf8());
  EXPECT_EQ(grid.At(at, 2).text, "2");
  EXPECT_EQ(grid.At(at, 2).tone, Tone::kImposed);
  EXPECT_EQ(grid.At(at, 3).text, text(before.Velocity, pattern::kTwoDecimals));
  EXPECT_EQ(grid.At(at, 4).text, text(after.Velocity, pattern::kTwoDecimals));
  EXPECT_EQ(grid.At(at, 6).text, text(after.TotalDrop, pattern::kOneDecimal));
  EXPECT_EQ(grid.At(at, 7).tone, Tone::kGood);
  EXPECT_EQ(compared.LblHeadChange.tone, Tone::kGood);
  EXPECT_EQ(compared.LblDiameters.text, "μία νέα διάμετρος");

  compared.ChkOnlyDiameters.Set(true);
  EXPECT_EQ(grid.row_count(), 1);
  EXPECT_TRUE(compared.Press(Ctrl('C')));
  EXPECT_NE(clipboard.Text().find("2\t1/2\t" + before.NomiDiam.Utf8() + "\t2\t"), std::string::npos)
      << clipboard.Text();
  view->fpSpread1.MoveTo({4, 0});
  compared.fpSpread1.on_activate();
  EXPECT_EQ(view->fpSpread1.current().row, 1);

  EXPECT_TRUE(compared.Press(Ctrl('Z')));
  EXPECT_FALSE(grid.visible);
  EXPECT_EQ(compared.LblSame.text, "Κανένα τμήμα δεν διαφέρει από το άνοιγμα των αποτελεσμάτων.");
  EXPECT_EQ(compared.LblHeadChange.text, "ίδιο");
  EXPECT_TRUE(compared.Press(Ctrl('Y')));
  EXPECT_TRUE(grid.visible);
}

TEST_F(Comparison, SaysWhatCannotBeCompared) {
  Replace("2");
  test.workspace.Delete(work_file::kFirstRows);
  FrmCompare compared(desk);
  compared.Load();
  EXPECT_EQ(test.prompter.boxes().size(), 1);
  EXPECT_EQ(compared.LblHeadAfter.text, "—");
  EXPECT_FALSE(compared.fpSpread1.visible);
}

}  // namespace
}  // namespace kalvo
