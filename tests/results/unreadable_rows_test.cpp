// Rows that cannot be read while a change of diameters waits for its calculation.

#include <gtest/gtest.h>

#include "engine/kept_results.h"
#include "results/frm_res.h"
#include "tests/results/diameter_desk.h"
#include "tests/support/failing_disk.h"

namespace kalvo {
namespace {

enum class WayOn { kBack, kCloseBox, kSheet, kButton };

struct Failure {
  WayOn way;
  Answer answer;  // of 307
  bool of_looks;  // whether a file is there
};

const Failure kFailures[] = {
    {WayOn::kBack, Answer::kYes, false},     {WayOn::kBack, Answer::kNo, false},
    {WayOn::kCloseBox, Answer::kYes, false}, {WayOn::kSheet, Answer::kYes, false},
    {WayOn::kButton, Answer::kYes, false},   {WayOn::kBack, Answer::kYes, true},
    {WayOn::kBack, Answer::kNo, true},       {WayOn::kCloseBox, Answer::kYes, true},
    {WayOn::kSheet, Answer::kYes, true},     {WayOn::kButton, Answer::kYes, true}};

// Answers 307 as set.
class Chooser : public Prompter {
 public:
  explicit Chooser(Answer answer) : answer_(answer) {}
  Answer ShowMessage(int code, const Study& /*study*/) override {
    return code == 307 ? answer_ : Answer::kNone;
  }
  Answer Ask(const Box& /*box*/) override {
    ++boxes;
    return Answer::kNone;
  }
  int boxes = 0;

 private:
  Answer answer_;
};

// The change waits; one read, or look, of the way on fails.
class WaitingRowsDesk : ResultsDesk {
 public:
  WaitingRowsDesk(const Failure& failure, int number) : chooser_(failure.answer) {
    told.screens.results_begin = true;
    FrmRes view(told);
    view.Load();
    view.Activate();
    view.Run(view.CmdChangeOne);
    FrmAvaiD list(told);
    list.Load();
    list.fpSpread1.MoveTo({8, 0});
    list.Run(list.CmdReplace);
    list.Run(list.Cmd_Close);
    EXPECT_TRUE(*ChangeWaits(test.workspace));
    TakeLog();
    test.workspace = Workspace(disk_, TestBench::kProgramFolder, test.outer_disk,
                               TestBench::kLibraryFolder, test.clock);
    failure.of_looks ? disk_.FailAtLook(number) : disk_.FailAtRead(number);
    Go(view, failure.way);
    reached = (failure.of_looks ? disk_.looks() : disk_.reads()) >= number;
    disk_.Mend();
  }

  // Nothing counts as a result of diameters for which it was not calculated.
  void ExpectTrueResults() {
    const bool left = !navigator.log.empty() && navigator.log.back() == "show FrmMain";
    if (test.study.recalculation_needed || (!left && *ChangeWaits(test.workspace))) return;
    const RowTable rows(test.Rows());
    const RowTable expected(RunOnTheirDiameters());
    for (int number = 1; number <= rows.count(); ++number) {
      for (float SectionRow::*const result : kRunResults) {
        ASSERT_EQ(rows.At(number).*result, expected.At(number).*result) << "row " << number;
      }
    }
    EXPECT_FLOAT_EQ(test.study.CriticalDrop, rows.At(1).DP);
    EXPECT_FALSE(left && test.workspace.Exists(work_file::kRowsBeforeChange));
  }

  bool reached = false;

 private:
  static void Go(FrmRes& view, WayOn way) {
    if (way == WayOn::kBack) view.Run(view.CmdBack);
    if (way == WayOn::kCloseBox) view.MayClose();
    if (way == WayOn::kSheet) view.Run(view.SSCommand1);
    if (way == WayOn::kButton) view.Run(view.CmdChD);
  }

  FailingDisk disk_{test.work_disk};
  Chooser chooser_;
  Workbench bench{test.study, test.workspace, test.pipes, chooser_};
  Desk told{bench, navigator, sound, viewer, clipboard, printer, Separators{',', '.'}};
};

TEST(UnreadableRows, LetNoChangePassForCalculated) {
  for (const Failure& failure : kFailures) {
    bool reached = true;
    for (int number = 1; reached; ++number) {
      SCOPED_TRACE("way " + std::to_string(static_cast<int>(failure.way)) +
                   (failure.answer == Answer::kYes ? " yes" : " no") +
                   (failure.of_looks ? " look " : " read ") + std::to_string(number));
      WaitingRowsDesk desk(failure, number);
      desk.ExpectTrueResults();
      reached = desk.reached;
    }
  }
}

// The first rows cannot be read once: they are not given up for that.
TEST(UnreadableRows, OfTheBeginningKeepTheResultsOpen) {
  DiameterDesk<FrmRes> desk;
  desk.Load();
  ASSERT_TRUE(desk.OpenBy(desk.view->CmdChD));
  const std::string before = desk.test.Bytes();
  desk.Replace("4");
  FailingDisk disk(desk.test.work_disk);
  desk.test.workspace = Workspace(disk, TestBench::kProgramFolder, desk.test.outer_disk,
                                  TestBench::kLibraryFolder, desk.test.clock);
  disk.FailAtRead(1, work_file::kFirstRows);
  desk.TakeLog();
  Click(*desk.view, desk.view->CmdBack);
  EXPECT_EQ(desk.TakeLog().back(), "close FrmAvaiD");
  desk.test.prompter.Expect(307, Answer::kNo);
  Click(*desk.view, desk.view->CmdBack);
  EXPECT_TRUE(desk.test.Bytes() == before);
}

}  // namespace
}  // namespace kalvo
