// The winter duty with what lies around it: the main menu, the views of results, the next start.

#include <gtest/gtest.h>

#include <algorithm>

#include "entry/winter/frm_winter.h"
#include "results/frm_res.h"
#include "results/frm_res_gn.h"
#include "results/frm_res_sheet.h"
#include "shell/frm_main.h"
#include "shell/recovery.h"
#include "shell/study_dialogs.h"
#include "study/kept_winter.h"
#include "study/safety_copies.h"
#include "study/study_reset.h"
#include "study/unsaved.h"
#include "tests/entry/winter_user.h"
#include "tests/support/calculated_case.h"
#include "tests/support/failing_disk.h"

namespace kalvo {
namespace {

const std::filesystem::path kSamples = KALVO_SAMPLES_DIR;

// Agrees to everything.
class Agreeing : public Prompter {
 public:
  Answer ShowMessage(int /*code*/, const Study& /*study*/) override { return Answer::kYes; }
  Answer Ask(const Box& /*box*/) override { return Answer::kYes; }
};

class WinterRoad : public testing::Test {
 protected:
  // The form with results that hold, looked at in the sheet.
  void OpenResults() {
    winter.TypeValues();
    winter.Press(Ctrl(KeyCode::kEnter));
    winter.user.navigator.log.clear();
    winter.Run(winter.form->Cmd_Res);
  }
  // The form comes to the front again, as the navigator would have it.
  void ComeBack() {
    EXPECT_EQ(winter.user.navigator.log.back(), "show FrmWinter");
    winter.form->Activate();
    winter.form->Derive();
  }
  void ExpectSummer() {
    EXPECT_EQ(winter.test().Bytes(), summer);
    const Study& study = winter.test().study;
    EXPECT_EQ(study.MeanTemp, before.MeanTemp);
    EXPECT_EQ(study.TotalFlowM3h, before.TotalFlowM3h);
    EXPECT_EQ(study.PumpHead, before.PumpHead);
    EXPECT_EQ(study.critical_branch, before.critical_branch);
    EXPECT_EQ(study.SectionTable, before.SectionTable);
    EXPECT_EQ(study.EmitterTable, before.EmitterTable);
    EXPECT_FALSE(study.unsaved_changes);
    EXPECT_FALSE(winter.user.desk.screens.WinterPump);
  }

  WinterUser winter;
  const std::string summer = winter.test().Bytes();
  const Study before = winter.test().study;
};

TEST_F(WinterRoad, ResultsAreThoseOfTheWinterAndLeadBackToItsForm) {
  OpenResults();
  EXPECT_EQ(winter.user.navigator.log,
            (std::vector<std::string>{"show FrmRes_Sheet", "hide FrmWinter"}));
  const Study& study = winter.test().study;
  EXPECT_EQ(study.TotalFlowM3h, 0.4F);
  EXPECT_EQ(study.EmitterTable[0].flow_lh, 250.0);
  EXPECT_EQ(winter.test().Bytes(work_file::kSummerRows), summer);
  FrmRes_Sheet sheet(winter.user.desk);
  sheet.Load();
  sheet.Activate();
  EXPECT_EQ(sheet.frame.LblFlow.text, "0,40");
  EXPECT_EQ(sheet.frame.LblMeanTemp.text, "70,0");
  EXPECT_EQ(sheet.frame.LblMeanVel.text, "");
  EXPECT_EQ(sheet.fpSpread1.At(1, 3).text, "250,0");
  EXPECT_FALSE(sheet.panel.StepsDrop.lines.empty()) << "explained by the winter's fluid";
  EXPECT_EQ(sheet.LblNotes.text.find("ταχύτητα"), std::string::npos)
      << "there is no design velocity";
  winter.user.navigator.Expect(screen::kViewer,
                               [this] { winter.user.desk.questions.viewer = "NotePad"; });
  sheet.Run(sheet.Cmd_Nodes);
  EXPECT_NE(winter.test().Bytes(work_file::kFlowReport).find("250"), std::string::npos)
      << "winter's flows are summed";
  EXPECT_EQ(study.EmitterTable[0].flow_lh, 250.0);
  winter.form->Idle(9);  // hidden, it keeps nothing
  EXPECT_FALSE(winter.IsKept());
  sheet.Run(sheet.Cmd_Back);
  ComeBack();
  ExpectSummer();
  EXPECT_TRUE(winter.form->LblPump.visible) << "the results hold still";
  EXPECT_EQ(winter.form->LblTempSummer.text, "70,0 →");

  // Once more, by the close box of the other view and of the pump's page.
  for (const bool pump : {false, true}) {
    winter.Run(winter.form->Cmd_Res);
    FrmRes one(winter.user.desk);
    winter.user.desk.screens.results_view = ResultsView::kOneFromSheet;
    one.Load();
    EXPECT_EQ(one.TxtWaterFlow.text, "400,0");
    winter.user.navigator.Close(screen::kResultsSheet);
    if (pump) {
      FrmResGn page(winter.user.desk);
      page.Load();
      EXPECT_EQ(page.Text2.text, "0,40");
      EXPECT_EQ(page.Text8.text, "");
      winter.user.navigator.Close(screen::kResults);
      EXPECT_TRUE(page.MayClose());
    } else {
      EXPECT_TRUE(one.MayClose());
    }
    ComeBack();
    ExpectSummer();
  }
  winter.Close(Answer::kYes);
  EXPECT_EQ(winter.test().Bytes(), summer);
}

TEST_F(WinterRoad, AFailingDiskIsToldAndSummerComesBackInTheEnd) {
  for (int operation = 1; operation < 40; ++operation) {
    WinterUser user;
    FailingDisk disk(user.test().work_disk);
    user.WorkOn(disk);
    user.Open();
    user.TypeValues();
    user.Press(Ctrl(KeyCode::kEnter));
    disk.FailAtOperation(operation, FailingDisk::Lasting::kOnce);
    user.Run(user.form->Cmd_Res);
    if (user.desk().screens.WinterPump) {
      FrmRes_Sheet sheet(user.desk());
      sheet.Load();
      sheet.Run(sheet.Cmd_Back);
      user.form->Activate();
    }
    const bool reached = disk.operations() >= operation;
    const bool of_no_file = disk.last_failed().starts_with("remove ");  // there is none of these
    EXPECT_TRUE(!reached || of_no_file ||
                user.Box().find(TestBench::kProgramFolder) != std::string::npos)
        << operation << " " << disk.last_failed();
    disk.Mend();
    user.form->Derive();
    user.Run(user.form->Cmd_Res);  // works, whatever failed before
    EXPECT_TRUE(user.desk().screens.WinterPump) << operation;
    user.form->Activate();
    user.Close(Answer::kYes);
    EXPECT_EQ(user.test().Bytes(), summer) << operation;
    EXPECT_FALSE(user.test().workspace.Exists(work_file::kSummerRows)) << operation;
    if (!reached) return;
  }
  FAIL() << "never without a failure";
}

// Types, runs, looks at the results, changes a value, runs and closes. Gives whether what was typed
// at first could be kept.
bool SpendAnEvening(WinterUser& user) {
  user.Open();
  user.TypeValues();
  user.form->Idle(0.3);
  const bool kept = user.IsKept();
  user.Press(Ctrl(KeyCode::kEnter));
  user.Run(user.form->Cmd_Res);
  if (user.desk().screens.WinterPump) {
    FrmRes_Sheet sheet(user.desk());
    sheet.Load();
    sheet.Activate();
    sheet.Run(sheet.Cmd_Back);
    user.form->Activate();
  }
  user.GoTo(0, 4);
  user.Type("6");
  user.Press(KeyCode::kEnter);
  user.form->Idle(0.3);
  user.Press(Ctrl(KeyCode::kEnter));
  user.Run(user.form->Cmd_Close);
  return kept;
}

TEST_F(WinterRoad, AKillAtAnyStepLeavesSummerAndWhatWasTyped) {
  bool ended = false;
  int step = 0;
  while (!ended) {
    ++step;
    ASSERT_LT(step, 200);
    Agreeing yes;
    WinterUser user;
    TestBench& test = user.test();
    ASSERT_TRUE(test.outer_disk.MakeFolder(kStudies).ok());
    // What the program does after the kill does not reach the disk; the step itself may by half.
    FailingDisk disk(test.work_disk);
    user.WorkOn(disk, yes);
    disk.FailAtOperation(step, FailingDisk::Lasting::kFromThenOn);
    const bool kept = SpendAnEvening(user);
    ended = disk.operations() < step;
    test.study = Study{};  // another run of the program
    test.study.system_kind = SystemKind::kClosed;
    user.user.desk.screens = {};
    user.user.desk.data_folder = kStudies;
    const auto found = SettleWorkFiles(user.user.desk);
    ASSERT_TRUE(found.ok() && *found) << step;
    ASSERT_EQ((*found)->what, LeftOver::kStudy) << step;
    ASSERT_TRUE(AcceptRecovery(user.user.desk, **found)) << step;
    test.study.recovery = false;
    EXPECT_EQ(test.Bytes(), summer) << step;
    EXPECT_FALSE(IsWinterKept(test.workspace)) << step;
    EXPECT_TRUE(test.study.results_valid);
    user.Open();
    if (kept) {
      EXPECT_TRUE(user.Cells() == "5,0 250,0 210,5 | 5,0 150,0 160,0" ||
                  user.Cells() == "6,0 250,0 210,5 | 5,0 150,0 160,0")
          << step << " " << user.Cells();
    }
    if (ended) {
      EXPECT_EQ(user.Cells(), "6,0 250,0 210,5 | 5,0 150,0 160,0");
    }
  }
  EXPECT_GT(step, 30);
}

TEST_F(WinterRoad, AKillWhileValuesAreDeclinedBringsBackThoseOfBefore) {
  for (int step = 2; step < 5; ++step) {
    WinterUser user;
    TestBench& test = user.test();
    ASSERT_TRUE(test.outer_disk.MakeFolder(kStudies).ok());
    user.TypeValues();
    user.Press(Ctrl(KeyCode::kEnter));
    user.Close(Answer::kYes);
    const std::string earlier = test.Bytes(work_file::kWinter);
    FailingDisk disk(test.work_disk);
    user.WorkOn(disk);
    user.Open();
    user.GoTo(0, 5);
    user.Type("222");
    user.Press(KeyCode::kEnter);
    user.form->Idle(0.3);
    ASSERT_TRUE(user.IsKept());
    disk.FailAtOperation(step, FailingDisk::Lasting::kFromThenOn);
    user.Close(Answer::kNo);
    test.study = Study{};  // another run of the program
    test.study.system_kind = SystemKind::kClosed;
    user.user.desk.data_folder = kStudies;
    const auto found = SettleWorkFiles(user.user.desk);
    ASSERT_TRUE(found.ok() && *found) << step;
    ASSERT_TRUE(AcceptRecovery(user.user.desk, **found)) << step;
    EXPECT_EQ(test.Bytes(work_file::kWinter), earlier) << step;
  }
}

TEST_F(WinterRoad, WhatIsKeptCountsAsUnsavedAndGoesIntoASafetyCopy) {
  TestBench& test = winter.test();
  ASSERT_TRUE(test.outer_disk.MakeFolder(kStudies).ok());
  winter.TypeValues();
  winter.form->Idle(0.3);
  EXPECT_TRUE(HasUnsavedChanges(test.bench));
  EXPECT_FALSE(IsSaved(test.bench));
  winter.user.desk.data_folder = kStudies;
  ASSERT_TRUE(KeepSafetyCopy(test.bench, winter.user.desk.safety_folders()));
  const auto copies = NamesIn(test.outer_disk, kStudies / kSafetyFolder);
  ASSERT_EQ(copies.size(), 1U);
  const auto kept =
      test.outer_disk.Read(kStudies / kSafetyFolder / copies[0] / work_file::kWinterInWork);
  ASSERT_TRUE(kept.ok());
  EXPECT_EQ(*kept, test.Bytes(work_file::kWinterInWork));
  test.workspace.DeleteWorkFiles();
  EXPECT_FALSE(winter.IsKept());

  const auto copy = kStudies / kSafetyFolder / copies[0];
  const auto files = NamesIn(test.outer_disk, copy);
  const auto study =
      std::ranges::find_if(files, [](const std::string& name) { return name.ends_with(".PCK"); });
  ASSERT_NE(study, files.end());
  ASSERT_TRUE(OpenChosen(winter.user.desk, copy / *study, RecentList::kLeave));
  winter.Open();
  EXPECT_EQ(winter.Cells(), "5,0 250,0 210,5 | 5,0 150,0 160,0") << "brought back with the copy";

  // What cannot be brought back is told.
  FailingDisk disk(test.work_disk);
  winter.WorkOn(disk);
  for (int read = 1, reads = 1; read <= reads; ++read) {
    const std::size_t boxes = test.prompter.boxes().size();
    test.study.unsaved_changes = false;
    test.workspace.DeleteWorkFiles();
    disk.FailAtRead(read, work_file::kRows);
    OpenChosen(winter.desk(), copy / *study, RecentList::kLeave);
    reads = std::max(reads, disk.reads());
    EXPECT_TRUE(test.workspace.Exists(work_file::kWinter) || test.prompter.boxes().size() > boxes)
        << read;
  }
  disk.Mend();
  ASSERT_TRUE(test.outer_disk.Write(copy / work_file::kWinterInWork, kept->substr(355)).ok());
  test.workspace.DeleteWorkFiles();
  ASSERT_TRUE(OpenChosen(winter.desk(), copy / *study, RecentList::kLeave));
  EXPECT_NE(winter.Box().find("WINTCIRC.@@@"), std::string::npos);
  EXPECT_FALSE(test.workspace.Exists(work_file::kWinter));
}

TEST_F(WinterRoad, ADamagedFileOfKeptValuesBarsNoRecovery) {
  TestBench& test = winter.test();
  ASSERT_TRUE(test.outer_disk.MakeFolder(kStudies).ok());
  ASSERT_TRUE(test.workspace.Write(work_file::kWinterInWork, "odd").ok());
  winter.user.desk.data_folder = kStudies;
  const auto found = SettleWorkFiles(winter.user.desk);
  ASSERT_TRUE(found.ok() && *found);
  EXPECT_TRUE(AcceptRecovery(winter.user.desk, **found));
  EXPECT_FALSE(winter.IsKept());
  EXPECT_NE(winter.Box().find("WINTCIRC.@@@"), std::string::npos);
}

TEST_F(WinterRoad, BeginsAtTheMainMenuForACalculatedClosedStudy) {
  Desk& desk = winter.user.desk;
  TestBench& test = winter.test();
  FrmMain menu(desk);
  menu.Derive();
  EXPECT_TRUE(menu.Cmd_Winter.visible);
  const auto open = [&] {
    winter.user.navigator.log.clear();
    menu.Press(Ctrl('W'));
    return Joined(winter.user.navigator.log);
  };
  EXPECT_EQ(open(), "show FrmWinter|hide FrmMain");
  test.study.recalculation_needed = true;
  EXPECT_EQ(open(), "");
  test.study.recalculation_needed = false;
  test.study.results_valid = false;
  EXPECT_EQ(open(), "");
  test.study.emitters_unchecked = true;
  EXPECT_EQ(open(), "");
  test.workspace.Delete(work_file::kEmitters);
  EXPECT_EQ(open(), "");
  test.study.pipe_system_number = 0;
  EXPECT_EQ(open(), "");
  EXPECT_EQ(test.prompter.codes(), (std::vector<int>{403, 403, 2003, 142, 406}));
  test.study.system_kind = SystemKind::kOpen;
  menu.Derive();
  EXPECT_FALSE(menu.Cmd_Winter.visible);
}

TEST(DeliveredWinter, TypedInGivesItsFile) {
  CalculatedCase floor(kSamples / "fancoil.PCK", KALVO_LIBRARY_DIR);
  const std::string delivered = floor.workspace->Read(work_file::kWinter).value();
  const std::string summer = floor.workspace->Read(work_file::kRows).value();
  const std::vector<WinterLine> values = WinterValuesIn(floor.bench, work_file::kWinter)->lines;
  floor.workspace->Delete(work_file::kWinter);
  NotedNavigator navigator;
  CountedSound sound;
  NotedViewer viewer;
  MemoryClipboard clipboard;
  NotedPrinter printer;
  Agreeing yes;
  Workbench bench(floor.study, *floor.workspace, floor.pipes, yes);
  Desk desk{bench, navigator, sound, viewer, clipboard, printer, Separators{',', '.'}};
  FrmWinter form(desk);
  form.Load();
  TypeInto(form, form.TxtMeanT, "45");
  form.MoveFocus(&form.fpSpread1);
  for (const float WinterLine::*value : {&WinterLine::flow_lh, &WinterLine::drop}) {
    for (const WinterLine& line : values) {
      const std::string text = FormatNumber(line.*value, desk.separators);
      for (const char c : text) PressKey(form, Typed(static_cast<char32_t>(c)));
      PressKey(form, Plain(KeyCode::kEnter));
    }
  }
  PressKey(form, Ctrl(KeyCode::kEnter));
  form.Derive();
  EXPECT_EQ(form.LblFlowWinter.text, "4,46");
  EXPECT_EQ(form.LblHeadWinter.text, "1,94");
  EXPECT_TRUE(floor.workspace->Read(work_file::kWinter).value() == delivered);
  form.Run(form.Cmd_Close);
  EXPECT_TRUE(floor.workspace->Read(work_file::kRows).value() == summer);
  EXPECT_TRUE(floor.workspace->Read(work_file::kWinter).value() == delivered);
}

TEST_F(WinterRoad, ResultsOfOtherDiametersThatStayInTheFileAreTold) {
  winter.TypeValues();
  winter.Press(Ctrl(KeyCode::kEnter));
  winter.Close(Answer::kYes);
  UnreadableDisk disk(winter.test().work_disk);
  disk.Bar(work_file::kWinter);
  winter.WorkOn(disk);
  winter.test().study.results_valid = false;
  EXPECT_EQ(Calculate(winter.desk().bench, Method::kFlowOnly), CommandEnd::kCalculated);
  EXPECT_NE(winter.Box().find("Χειμώνα"), std::string::npos);
}

}  // namespace
}  // namespace kalvo
