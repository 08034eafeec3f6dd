#include "results/frm_res.h"

#include <gtest/gtest.h>

#include "tests/results/results_desk.h"
#include "tests/support/failing_disk.h"

namespace kalvo {
namespace {

struct OneResult : ResultsDesk, ::testing::Test {
  OneResult() {
    form.Load();
    form.Activate();
    TakeLog();
  }
  [[nodiscard]] std::string Text(float value) const {
    return FormatPattern(value, "#,##0.0", desk.separators);
  }
  FrmRes form{desk};
};

TEST_F(OneResult, ShowsTheFirstSection) {
  const SectionRow row = test.Row(1);
  EXPECT_EQ(form.title, "ΑΠΟΤΕΛΕΣΜΑΤΑ ΥΠΟΛΟΓΙΣΜΩΝ ΣΩΛΗΝΩΝ - < ΚΛΕΙΣΤΟ > ΣΥΣΤΗΜΑ ΣΩΛΗΝΩΝ");
  EXPECT_EQ(form.LblNumber.text + "/" + form.LblCount.text, "1/6");
  EXPECT_EQ(form.TxtName.text, "ANT/1");
  EXPECT_EQ(form.TxtLength.text, "5,0");
  EXPECT_EQ(form.TxtNomiDiam.text, row.NomiDiam.Utf8());
  EXPECT_EQ(form.TxtNomiDiam.tone, Tone::kCalculated);
  EXPECT_EQ(form.TxtWaterFlow.text, "500,0");
  EXPECT_EQ(form.TxtVelocity.text, Text(row.Velocity));
  EXPECT_EQ(form.TxtTotalDrop.text, Text(row.TotalDrop));
  EXPECT_EQ(form.TxtAvaiPres.text, Text(row.AvaiPres));
  EXPECT_EQ(form.Pipe.from + ">" + form.Pipe.to, "ANT>1");
  EXPECT_TRUE(form.LblCritical.visible);
  EXPECT_FALSE(form.LblWas.visible);
  EXPECT_EQ(form.frame.LblFlow.text, "0,50");
  EXPECT_TRUE(test.study.results_valid);
  EXPECT_EQ(test.Bytes(work_file::kFirstRows), test.Bytes());
}

TEST_F(OneResult, MovesByItsKeysAndStopsAtTheEnds) {
  const auto press = [this](const Key& key) {
    EXPECT_TRUE(form.Press(key));
    return form.LblNumber.text + " " + form.TxtName.text;
  };
  EXPECT_EQ(press(Plain(KeyCode::kPageUp)), "1 ANT/1");
  EXPECT_EQ(press(Plain(KeyCode::kPageDown)), "2 1/2");
  EXPECT_EQ(press(Ctrl(KeyCode::kEnd)), "6 4/ANT");
  EXPECT_EQ(press(Plain(KeyCode::kPageDown)), "6 4/ANT");
  EXPECT_EQ(press(Plain(KeyCode::kPageUp)), "5 3/4");
  EXPECT_FALSE(form.LblCritical.visible);
  EXPECT_EQ(press(Ctrl(KeyCode::kHome)), "1 ANT/1");
}

TEST_F(OneResult, ReadsNothingAnewWhereItStandsAlready) {
  test.ChangeRow(1, [](SectionRow& row) { row.Length = 7; });
  Click(form, form.CmdFirst);
  EXPECT_EQ(form.TxtLength.text, "5,0");
  Click(form, form.CmdNext);
  Click(form, form.CmdPrev);
  EXPECT_EQ(form.TxtLength.text, "7,0");
}

TEST_F(OneResult, GoesToASectionOfTheList) {
  navigator.Expect(screen::kGoTo, [this] {
    EXPECT_TRUE(desk.questions.section_of_results);
    test.study.CurrentRow = 4;
  });
  EXPECT_TRUE(form.Press(Plain(KeyCode::kF5)));
  EXPECT_EQ(form.TxtName.text, "2/4");
  navigator.Expect(screen::kGoTo, [this] { test.study.CurrentRow = 99; });
  Click(form, form.CmdGoTo);
  EXPECT_EQ(form.TxtName.text, "4/ANT") << "no row beyond the last";
}

TEST_F(OneResult, MarksADiameterThatTheUserImposed) {
  const std::string before = test.Row(2).NomiDiam.Utf8();
  Impose(2);
  Click(form, form.CmdNext);
  EXPECT_EQ(form.TxtNomiDiam.tone, Tone::kImposed);
  EXPECT_EQ(form.LblWas.text, "✎ αλλαγμένη, ήταν " + before);
  test.workspace.Delete(work_file::kFirstRows);
  Click(form, form.CmdFirst);
  Click(form, form.CmdNext);
  EXPECT_EQ(form.LblWas.text, "✎ αλλαγμένη");
}

TEST_F(OneResult, ShowsTheCriticalBranch) {
  Click(form, form.CmdDiff);
  EXPECT_EQ(test.prompter.codes(), std::vector{302});
}

TEST_F(OneResult, AsksForTheCalculationThatAChangeFromTheMenuWaitsFor) {
  ImposeFromMenu(2);
  const float head = test.Row(1).DP;
  test.prompter.Expect(304, Answer::kYes);
  Click(form, form.CmdDiff);
  EXPECT_FALSE(test.workspace.Exists(work_file::kRowsBeforeChange));
  EXPECT_EQ(test.Row(2).InDiameter, -53.1F) << "the mark stays until the session ends";
  EXPECT_LT(test.Row(1).DP, head);
  EXPECT_EQ(test.study.TotalFlowM3h, 0.5F);
  EXPECT_TRUE(test.study.unsaved_changes);
  EXPECT_FALSE(desk.screens.ResultsLeft);
  EXPECT_EQ(TakeLog(),
            (std::vector<std::string>{"close FrmRes", "close FrmResGn", "show FrmResGn"}));
  EXPECT_EQ(navigator.waits, (std::vector<std::string>{"... Παρακαλώ, Περιμένετε ...", "-"}));
  EXPECT_NE(test.Bytes(work_file::kFirstRows), test.Bytes()) << "the baseline is kept";
}

TEST_F(OneResult, TakesAChangeFromTheMenuBack) {
  const std::string before = test.Bytes();
  ImposeFromMenu(2);
  Click(form, form.CmdNext);
  test.prompter.Expect(304, Answer::kNo);
  test.prompter.Expect(306, Answer::kNo);
  Click(form, form.CmdPump);
  EXPECT_TRUE(test.workspace.Exists(work_file::kRowsBeforeChange));
  test.prompter.Expect(304, Answer::kCancel);
  Click(form, form.CmdPump);
  EXPECT_EQ(form.TxtNomiDiam.tone, Tone::kImposed);
  test.prompter.Expect(304, Answer::kNo);
  test.prompter.Expect(306, Answer::kYes);
  Click(form, form.CmdPump);
  EXPECT_EQ(test.Bytes(), before);
  EXPECT_EQ(form.LblNumber.text, "2");
  EXPECT_EQ(form.TxtNomiDiam.tone, Tone::kCalculated);
  EXPECT_TRUE(TakeLog().empty());
}

TEST_F(OneResult, KeepsThePumpDeadWhileAnUnusedCopyLies) {
  ASSERT_TRUE(test.workspace.Copy(work_file::kRows, work_file::kRowsBeforeChange).ok());
  Click(form, form.CmdPump);
  EXPECT_TRUE(TakeLog().empty());
  Click(form, form.CmdDiff);
  EXPECT_EQ(test.prompter.codes(), std::vector{302});
  test.workspace.Delete(work_file::kRowsBeforeChange);
  Click(form, form.CmdPump);
  EXPECT_TRUE(desk.screens.ResultsLeft);
  EXPECT_EQ(navigator.log.back(), "show FrmResGn");
}

TEST_F(OneResult, KeepsTheWayBackWhenTheCalculationOnAChangeBreaksOff) {
  const std::string before = test.Bytes();
  ImposeFromMenu(2);
  test.ChangeRow(3, [](SectionRow& row) { row.WaterFlow = 0; });
  test.prompter.Expect(304, Answer::kYes);
  Click(form, form.CmdDiff);
  EXPECT_FALSE(test.prompter.boxes().empty());
  EXPECT_TRUE(test.study.recalculation_needed);
  EXPECT_EQ(test.Bytes(work_file::kRowsBeforeChange), before);
  EXPECT_EQ(test.Bytes(work_file::kFirstRows), before);
  EXPECT_TRUE(TakeLog().empty()) << "the section still shows";
  test.prompter.Expect(304, Answer::kNo);
  test.prompter.Expect(306, Answer::kYes);
  Click(form, form.CmdPump);
  EXPECT_EQ(test.Bytes(), before);
}

TEST_F(OneResult, BringsBackRowsThatNeedNoNewCalculation) {
  for (const bool unsaved : {false, true}) {
    for (const bool at_back : {false, true}) {
      SCOPED_TRACE((unsaved ? "unsaved" : "saved") + std::string(at_back ? ", at Back" : ""));
      FrmRes view(desk);
      test.study.unsaved_changes = unsaved;
      desk.screens.results_begin = true;
      view.Load();
      view.Activate();
      const std::string before = test.Bytes();
      ImposeFromMenu(2);
      test.ChangeRow(3, [](SectionRow& row) { row.WaterFlow = 0; });
      test.prompter.Expect(304, Answer::kYes);
      Click(view, view.CmdDiff);
      EXPECT_TRUE(test.study.recalculation_needed && test.study.unsaved_changes);
      if (at_back) {
        test.prompter.Expect(307, Answer::kNo);
        Click(view, view.CmdBack);
      } else {
        test.prompter.Expect(304, Answer::kNo);
        test.prompter.Expect(306, Answer::kYes);
        Click(view, view.CmdDiff);
      }
      EXPECT_EQ(test.Bytes(), before);
      EXPECT_EQ(test.Bytes(work_file::kPreviousRows), before);
      EXPECT_FALSE(test.study.recalculation_needed);
      EXPECT_EQ(test.study.unsaved_changes, unsaved);
    }
  }
}

// How a view with a change that waits may be left.
enum class Way { kBack, kCloseBox, kSheet };

TEST_F(OneResult, CalculatesAChangeThatWaitsBeforeItIsLeft) {
  for (const Way way : {Way::kBack, Way::kCloseBox, Way::kSheet}) {
    for (const bool runs : {true, false}) {
      SCOPED_TRACE("way " + std::to_string(static_cast<int>(way)) + (runs ? "" : ", broken off"));
      ResultsDesk leaving;
      TestBench& bench = leaving.test;
      FrmRes view(leaving.desk);
      view.Load();
      view.Activate();
      bench.study.unsaved_changes = false;
      ASSERT_TRUE(bench.workspace.Write(work_file::kWinter, bench.Bytes()).ok());
      const SectionRow before = bench.Row(2);
      leaving.ImposeFromMenu(2);
      if (!runs) bench.ChangeRow(6, [](SectionRow& row) { row.WaterFlow = 0; });
      if (way == Way::kBack) {
        bench.prompter.Expect(307, Answer::kYes);
        Click(view, view.CmdBack);
      } else if (way == Way::kCloseBox) {
        EXPECT_TRUE(view.MayClose());
      } else {
        Click(view, view.SSCommand1);
        EXPECT_EQ(leaving.navigator.log.back() == "show FrmRes_Sheet", runs);
      }
      const SectionRow after = bench.Row(2);
      EXPECT_EQ(after.NomiDiam.Utf8(), "2");
      EXPECT_LT(after.Velocity, before.Velocity) << "no row keeps the results of another diameter";
      EXPECT_LT(after.TotalDrop, before.TotalDrop);
      EXPECT_EQ(bench.study.recalculation_needed, !runs);
      EXPECT_TRUE(bench.study.unsaved_changes);
      if (way == Way::kSheet) continue;
      EXPECT_EQ(bench.study.CalculatedDiameters[1].Utf8(), "2");
      EXPECT_EQ(bench.Rows(work_file::kWinter)[1].TotalDrop, 0) << "of other pipes";
      EXPECT_FALSE(bench.workspace.Exists(work_file::kRowsBeforeChange));
    }
  }
}

TEST_F(OneResult, MakesNoRunWhereNoChangeWaits) {
  ImposeFromMenu(2);
  EXPECT_EQ(RerunWaitingChange(desk), true);
  EXPECT_EQ(RerunWaitingChange(desk), false);
  ASSERT_TRUE(test.workspace.Write(work_file::kPreviousRows, "odd").ok());
  EXPECT_EQ(RerunWaitingChange(desk), true) << "nobody knows what it holds";
  Impose(3);
  desk.screens.WinterPump = true;
  EXPECT_EQ(RerunWaitingChange(desk), false) << "the rows are the winter's";
  desk.screens.WinterPump = false;
  ASSERT_TRUE(test.workspace.Write(work_file::kRows, "odd").ok());
  EXPECT_EQ(RerunWaitingChange(desk), std::nullopt);
  EXPECT_EQ(test.Bytes(), "odd");
}

TEST(FullDisk, LeavesNoRowsOfAnEarlierSessionAsTheFirst) {
  ResultsDesk desk;
  std::vector<SectionRow> older = desk.test.Rows();
  older[1].NomiDiam = FixedText<15>::FromUtf8("older");
  ASSERT_TRUE(desk.test.workspace.Rows(work_file::kFirstRows).WriteAll(older).ok());
  FailingDisk full(desk.test.work_disk);
  full.FailAfterBytes(0);
  desk.test.workspace = Workspace(full, TestBench::kProgramFolder, desk.test.outer_disk,
                                  TestBench::kLibraryFolder, desk.test.clock);
  FrmRes form(desk.desk);
  form.Load();
  ASSERT_EQ(desk.test.prompter.boxes().size(), 1U);
  const std::string rows = desk.test.Bytes();
  Click(form, form.CmdBack);
  EXPECT_TRUE(desk.test.prompter.codes().empty()) << "there is no way back to ask about";
  EXPECT_EQ(desk.test.Bytes(), rows);
}

TEST(FreshResults, StayUnsavedWhenTheirDiametersComeBack) {
  ResultsDesk desk;
  desk.test.study.results_valid = false;
  FrmRes form(desk.desk);
  form.Load();
  form.Activate();
  desk.Impose(2);
  desk.test.prompter.Expect(307, Answer::kNo);
  Click(form, form.CmdBack);
  EXPECT_TRUE(desk.test.study.unsaved_changes) << "no file has these results";
}

TEST_F(OneResult, HelpsWithItsKeysAndTogglesTheSound) {
  EXPECT_TRUE(form.Press(Plain(KeyCode::kF1)));
  ASSERT_EQ(test.prompter.boxes().size(), 1U);
  EXPECT_EQ(test.prompter.boxes()[0].title, " ... ΒΟΗΘΕΙΑ ΠΛΗΚΤΡΟΛΟΓΗΣΕΩΝ ...");
  EXPECT_EQ(test.prompter.boxes()[0].lines.size(), 8U);
  EXPECT_EQ(test.prompter.boxes()[0].beeps, 2);
  form.Run(form.CmdSound);
  EXPECT_TRUE(desk.options.SoundOn);
  Click(form, form.CmdNext);
  EXPECT_EQ(sound.played, 1);
  form.ChkSoundR.Set(false);
  EXPECT_FALSE(desk.options.SoundOn);
}

TEST_F(OneResult, GoesToTheSheetUnlessADiameterIsBeingChanged) {
  desk.screens.ChangeFormOpen = true;
  form.Press(Shift(KeyCode::kF12));
  EXPECT_TRUE(TakeLog().empty());
  desk.screens.ChangeFormOpen = false;
  form.Press(Shift(KeyCode::kF12));
  EXPECT_EQ(TakeLog(), std::vector<std::string>{"show FrmRes_Sheet"});
  EXPECT_EQ(desk.screens.results_view, ResultsView::kSheet);
}

TEST_F(OneResult, KeepsItsFrameWhenOldDiametersComeBack) {
  Impose(2);
  test.ChangeRow(1, [](SectionRow& row) { row.DP = 9000; });
  FrmRes later(desk);
  later.Load();
  EXPECT_EQ(later.frame.LblHead.text, "9,00") << "a switch of view keeps the session's first rows";
  later.Press(Plain(KeyCode::kPageDown));
  test.prompter.Expect(307, Answer::kNo);
  later.Press(Plain(KeyCode::kEscape));
  EXPECT_EQ(later.TxtNomiDiam.tone, Tone::kCalculated);
  EXPECT_EQ(later.frame.LblHead.text, "9,00");
  EXPECT_EQ(desk.screens.results_view, ResultsView::kOne);
  EXPECT_EQ(navigator.log.back(), "show FrmMain");
}

TEST_F(OneResult, LeavesTheRowsAsTheyAreWhenItsWindowIsClosed) {
  ImposeFromMenu(2);
  desk.screens.ChangeFormOpen = true;
  EXPECT_TRUE(form.MayClose());
  EXPECT_EQ(test.Row(2).InDiameter, -53.1F);
  EXPECT_FALSE(test.workspace.Exists(work_file::kRowsBeforeChange))
      << "it would be put over what is entered from now on";
  EXPECT_TRUE(desk.screens.ResultsLeft);
  EXPECT_FALSE(desk.screens.ChangeFormOpen);
  EXPECT_FALSE(test.workspace.Exists(work_file::kFirstRows));
  EXPECT_EQ(TakeLog(),
            (std::vector<std::string>{"close FrmAvaiD", "close FrmResGn", "show FrmMain"}));
  desk.screens.results_view = ResultsView::kSheet;
  EXPECT_TRUE(form.MayClose());
  EXPECT_TRUE(navigator.log.empty()) << "the sheet has taken its place";
}

TEST_F(OneResult, TellsWhenItsRowsHaveGone) {
  test.workspace.Delete(work_file::kRows);
  Click(form, form.CmdNext);
  ASSERT_EQ(test.prompter.boxes().size(), 1U);
  EXPECT_EQ(form.TxtName.text, "");
  FrmRes empty(desk);
  empty.Load();
  for (Command* command : {&empty.CmdLast, &empty.CmdNext, &empty.CmdDiff, &empty.CmdPump}) {
    Click(empty, *command);
  }
  test.workspace.Delete(work_file::kFirstRows);
  Click(empty, empty.CmdBack);
  EXPECT_EQ(navigator.log.back(), "show FrmMain");
}

TEST(OneResultOfALoneSection, IsItsOwnCriticalBranch) {
  ResultsDesk desk;
  desk.Calculate({"ANT/ANT 5m soma 300l/h 500mm"});
  desk.test.study.critical_branch = "?";
  FrmRes form(desk.desk);
  form.Load();
  for (Command* command : {&form.CmdPrev, &form.CmdNext, &form.CmdLast, &form.Cmd_Nodes}) {
    Click(form, *command);
  }
  EXPECT_EQ(form.LblNumber.text, "1");
  Click(form, form.CmdDiff);
  EXPECT_EQ(desk.test.study.critical_branch, "1");
  EXPECT_TRUE(desk.viewer.files.empty());
}

TEST(OpenOneResult, ShowsFlowFromTheFeeder) {
  ResultsDesk desk(SystemKind::kOpen);
  FrmRes form(desk.desk);
  form.Load();
  EXPECT_EQ(form.title, "ΑΠΟΤΕΛΕΣΜΑΤΑ ΥΠΟΛΟΓΙΣΜΩΝ ΣΩΛΗΝΩΝ - < ΑΝΟΙΚΤΟ > ΣΥΣΤΗΜΑ ΣΩΛΗΝΩΝ");
  EXPECT_FALSE(form.Cmd_Nodes.visible);
  Click(form, form.CmdNext);
  EXPECT_EQ(form.Pipe.from + ">" + form.Pipe.to, "1>2");
}

}  // namespace
}  // namespace kalvo
