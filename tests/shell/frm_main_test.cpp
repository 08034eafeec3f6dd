#include "shell/frm_main.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "engine/calculation_command.h"
#include "shell/open_study.h"
#include "shell/study_dialogs.h"
#include "tests/support/sample_study.h"
#include "tests/support/test_desk.h"

namespace kalvo {
namespace {

namespace fs = std::filesystem;

struct MainMenu : TestDesk, ::testing::Test {
  MainMenu() {
    desk.data_folder = "/studies";
    EXPECT_TRUE(test.outer_disk.MakeFolder("/studies").ok());
    form.Load();
    form.Derive();
  }
  void PutStudy() {
    PutSampleStudy(test.bench, "Κτίριο");
    test.study.study_title = "Κτίριο";
    test.study.pipe_system_number = 1;
    form.Derive();
  }
  [[nodiscard]] std::vector<RoadMark> Marks() {
    form.Derive();
    std::vector<RoadMark> marks;
    for (const RoadStation& station : form.StudyRoad.stations) {
      marks.push_back(station.mark);
    }
    return marks;
  }
  FrmMain form{desk};
};

TEST_F(MainMenu, BeginsEmptyWithTheTitleAsTheNextStep) {
  EXPECT_EQ(form.LblThema.text, "Δεν υπάρχει ακόμη μελέτη");
  EXPECT_EQ(form.Cmd_Next.caption, "ΘΕΜΑ-ΤΙΤΛΟΣ");
  EXPECT_EQ(form.LblLiquid.text, "Υγρό : Νερό");
  EXPECT_EQ(Marks()[0], RoadMark::kNext);
  EXPECT_EQ(form.LblHead.text, "—");
  EXPECT_EQ(form.LblHead.tone, Tone::kQuiet);
  EXPECT_FALSE(form.TxtThema.visible);
}

TEST_F(MainMenu, TakesATitleIntoEveryRowAndKeepsTheFocusOnAnEmptyOne) {
  PutStudy();
  test.study.unsaved_changes = false;
  Click(form, form.Cmd_Thema);
  TypeInto(form, form.TxtThema, "  ");
  form.Press(Plain(KeyCode::kEnter));
  EXPECT_TRUE(form.TxtThema.visible);
  EXPECT_EQ(form.focus(), &form.TxtThema);
  TypeInto(form, form.TxtThema, " Ξενοδοχείο ");
  form.Press(Plain(KeyCode::kEnter));
  EXPECT_FALSE(form.TxtThema.visible);
  EXPECT_EQ(form.focus(), &form.Cmd_Thema);
  for (const SectionRow& row : test.Rows()) {
    EXPECT_EQ(row.Thema.Utf8(), "Ξενοδοχείο");
  }
  EXPECT_TRUE(test.study.unsaved_changes);
}

TEST_F(MainMenu, TakesTheTitleBeingTypedBeforeACommandRuns) {
  PutStudy();
  Click(form, form.Cmd_Thema);
  TypeInto(form, form.TxtThema, "Νέος τίτλος");
  navigator.Expect(screen::kFiles, [&] { EXPECT_EQ(test.Row(1).Thema.Utf8(), "Νέος τίτλος"); });
  form.Press(Ctrl('S'));
  EXPECT_FALSE(form.TxtThema.visible);
  Click(form, form.Cmd_Thema);
  TypeInto(form, form.TxtThema, "");
  navigator.Expect(screen::kGeneralData, [] {});
  form.Press(Ctrl('G'));
  EXPECT_EQ(test.study.study_title, "Νέος τίτλος");
}

TEST_F(MainMenu, AcceptsTheTitleByItsOwnCommandAndByThePrimary) {
  for (Command* accept : {&form.Cmd_Thema, &form.Cmd_Next}) {
    test.study.study_title.clear();
    form.Derive();
    Click(form, form.Cmd_Thema);
    Click(form, *accept);
    EXPECT_EQ(form.focus(), &form.TxtThema) << "there is nothing to accept yet";
    TypeInto(form, form.TxtThema, "Ξενοδοχείο");
    Click(form, *accept);
    EXPECT_EQ(test.study.study_title, "Ξενοδοχείο");
    EXPECT_FALSE(form.TxtThema.visible);
  }
  PutStudy();
  Click(form, form.Cmd_Thema);
  TypeInto(form, form.TxtThema, "Νέος τίτλος");
  form.Press(Ctrl('R'));
  EXPECT_EQ(test.Row(1).Thema.Utf8(), "Νέος τίτλος") << "taken before the results are shown";
  EXPECT_EQ(navigator.log.back(), "hide FrmMain");
}

TEST_F(MainMenu, SaysWhyACommandCannotRun) {
  test.study.pipe_system_number = 1;
  Click(form, form.Cmd_Calc);
  Click(form, form.Cmd_Res);
  test.study.pipe_system_number = 0;
  Click(form, form.Cmd_Save);
  Click(form, form.Cmd_Res);
  EXPECT_EQ(test.prompter.codes(), (std::vector{407, 140, 406, 406}));
  test.study.recalculation_needed = true;
  Click(form, form.Cmd_Res);
  ASSERT_TRUE(test.workspace.Write(work_file::kStatistics, "x").ok());
  Click(form, form.Cmd_Nodes);
  Click(form, form.Cmd_Res);
  test.study.came_by_recovery = true;
  Click(form, form.Cmd_Res);
  form.Run(form.Mnu_Results);
  const std::vector<int>& codes = test.prompter.codes();
  EXPECT_EQ((std::vector<int>(codes.end() - 5, codes.end())),
            (std::vector{305, 139, 301, 305, 301}));
  EXPECT_TRUE(navigator.log == std::vector<std::string>{"hide FrmKind"});
}

TEST_F(MainMenu, ShowsNoOldResultsThatNeedANewCalculation) {
  test.PutNetwork({"ANT/1 5m", "1/2 5m soma 300l/h 500mm", "2/ANT 5m"});
  ASSERT_EQ(Calculate(test.bench, Method::kFlowOnly), CommandEnd::kCalculated);
  test.study.results_valid = true;
  navigator.log.clear();
  for (const bool needed : {true, false}) {
    test.study.recalculation_needed = needed;
    test.prompter.Expect(190, Answer::kNo);
    Click(form, form.Cmd_Calc);
    EXPECT_EQ(test.prompter.codes().back(), needed ? 301 : 190);
    EXPECT_EQ(navigator.log.empty(), needed);
  }
}

TEST_F(MainMenu, SaysOfResultsOfALostNetworkThatTheyDoNotHold) {
  test.PutNetwork({"ANT/1 5m", "1/2 5m soma 300l/h 500mm", "2/ANT 5m"});
  ASSERT_EQ(Calculate(test.bench, Method::kFlowOnly), CommandEnd::kCalculated);
  std::vector<SectionRow> rows = test.Rows();
  PutMain(test, "sound.PCK", rows);
  rows[1].Name = FixedText<7>::FromUtf8("  1/9  ");
  PutMain(test, "lost.PCK", rows);
  for (const bool lost : {false, true}) {
    test.study.study_path = lost ? "/studies/lost.PCK" : "/studies/sound.PCK";
    ASSERT_NE(OpenStudyFile(test.bench, RecentList::kLeave), OpenEnd::kNotOpened);
    EXPECT_TRUE(test.study.results_valid);
    EXPECT_EQ(Marks().back(), lost ? RoadMark::kStale : RoadMark::kDone);
    EXPECT_EQ(form.LblNext.text,
              lost ? "τα αποτελέσματα δεν ισχύουν, κάποιος κλάδος του δικτύου χάνεται."
                   : "τα αποτελέσματα είναι έτοιμα.");
  }
}

TEST_F(MainMenu, CalculatesAndOpensTheSheetOfResults) {
  test.PutNetwork({"ANT/1 5m", "1/2 5m soma 300l/h 500mm", "2/ANT 5m"});
  test.study.study_title = "Κτίριο";
  form.Derive();
  EXPECT_EQ(form.Cmd_Next.caption, "Υπολογισμοί");
  form.Press(Plain(KeyCode::kF9));
  ASSERT_TRUE(test.prompter.codes().empty()) << test.prompter.codes().front();
  EXPECT_EQ(navigator.log.back(), "hide FrmMain");
  EXPECT_TRUE(desk.screens.results_begin);
  EXPECT_EQ(navigator.waits.back(), "-");
}

TEST_F(MainMenu, CalculatesAnewAfterAChangeOfDiameters) {
  test.PutNetwork({"ANT/1 5m", "1/2 5m soma 300l/h 500mm", "2/ANT 5m"});
  form.Press(Plain(KeyCode::kF9));
  for (const bool sheet : {true, false}) {
    desk.options.ChkDataKind = sheet;
    test.study.CalcStatus = calc_status::kRecalculate;
    form.Activate();
    EXPECT_EQ(test.study.CalcStatus, calc_status::kNothing);
    EXPECT_TRUE(test.study.unsaved_changes);
    EXPECT_NE(std::ranges::find(navigator.log, sheet ? "show FrmRes_Sheet" : "show FrmResGn"),
              navigator.log.end());
  }
}

TEST_F(MainMenu, MarksAStaleStepAndNamesTheCause) {
  PutStudy();
  test.study.PumpHead = 5.42F;
  form.Derive();
  EXPECT_EQ(form.LblHead.text, "5,42");
  test.study.recalculation_needed = true;
  EXPECT_EQ(Marks()[4], RoadMark::kStale);
  EXPECT_EQ(form.LblHead.text, "ΘΑ ΥΠΟΛ.");
  EXPECT_EQ(form.Cmd_Next.caption, "Υπολογισμοί");
  EXPECT_NE(form.LblNext.text.find("νέοι υπολογισμοί"), std::string::npos);
}

TEST_F(MainMenu, OpensTheEmittersOrTheOutletsOfAStudyWithRows) {
  Click(form, form.Cmd_Somata);
  EXPECT_EQ(test.prompter.codes(), std::vector{139});
  EXPECT_EQ(form.Cmd_Somata.caption, "Δεδομένα Σωμάτων");
  PutStudy();
  Click(form, form.Cmd_Somata);
  EXPECT_TRUE(desk.screens.edit_mode);
  test.study.system_kind = SystemKind::kOpen;
  form.Derive();
  EXPECT_EQ(form.Cmd_Somata.caption, "Δεδομένα Υποδοχέων");
  Click(form, form.Cmd_Somata);
  EXPECT_EQ(Joined(navigator.log),
            "hide FrmKind|show FrmSoma|hide FrmMain|show FrmYpodo|hide FrmMain");
}

TEST_F(MainMenu, LeadsToEmittersThatAreMissingOrUnchecked) {
  PutStudy();
  test.study.emitters_unchecked = true;
  EXPECT_EQ(Marks()[3], RoadMark::kStale);
  EXPECT_EQ(form.StudyRoad.stations[3].command, &form.Cmd_Somata);
  EXPECT_EQ(form.Cmd_Next.caption, "Δεδομένα Σωμάτων");
  test.study.emitters_unchecked = false;
  test.study.MeanTemp = test.study.MeanVel = 1;
  test.study.EmitterCount = 0;
  EXPECT_EQ(Marks()[3], RoadMark::kNext);
  Click(form, form.Cmd_Next);
  EXPECT_EQ(navigator.log.back(), "hide FrmMain");
}

TEST_F(MainMenu, LeavingReturnsToTheChoiceOfKindAndKeepsASafetyCopy) {
  PutStudy();
  test.study.unsaved_changes = true;
  test.prompter.Expect(130, Answer::kCancel);
  EXPECT_FALSE(form.MayClose());
  EXPECT_TRUE(test.study.unsaved_changes);
  test.prompter.Expect(130, Answer::kNo);
  Click(form, form.Cmd_Exit);
  EXPECT_EQ(navigator.log.back(), "show FrmKind");
  EXPECT_FALSE(test.workspace.Exists(work_file::kRows));
  EXPECT_FALSE(test.workspace.Exists(work_file::kFluid));
  EXPECT_EQ(NamesIn(test.outer_disk, "/studies/ASFALEIA").size(), 1U);
}

TEST_F(MainMenu, AsksNothingAndMarksNothingWhereThereIsNothingToSave) {
  navigator.Expect(screen::kStudies, [] {});
  for (Command* command : {&form.Cmd_Open, &form.Cmd_New, &form.Cmd_Exit}) {
    Click(form, form.Cmd_Thema);
    TypeInto(form, form.TxtThema, "Ξενοδοχείο");
    test.study.unsaved_changes = true;  // as a choice of pipes or of a fluid leaves it
    form.Derive();
    EXPECT_FALSE(form.LblUnsaved.visible);
    Click(form, *command);
  }
  EXPECT_EQ(navigator.log.back(), "show FrmKind");

  ASSERT_TRUE(test.workspace.Write(work_file::kSheet, "cells").ok());
  test.study.unsaved_changes = true;
  form.Derive();
  EXPECT_TRUE(form.LblUnsaved.visible) << "a sheet that was kept is worth a question";
  test.prompter.Expect(130, Answer::kCancel);
  Click(form, form.Cmd_New);
}

TEST_F(MainMenu, OffersToOpenTheSheetThatWasKeptBeforeItUsesTheRows) {
  PutStudy();
  EXPECT_NE(Marks()[2], RoadMark::kStale);
  ASSERT_TRUE(test.workspace.Write(work_file::kSheetInWork, "cells").ok());
  test.study.unsaved_changes = false;
  EXPECT_EQ(Marks()[2], RoadMark::kStale);
  EXPECT_NE(form.LblNext.text.find("φύλλο"), std::string::npos);
  EXPECT_TRUE(form.LblUnsaved.visible);
  const std::string title = " !!... ΠΡΟΣΟΧΗ ...!! ";
  for (const Key& key : {Plain(KeyCode::kF9), Ctrl('E'), Ctrl('S'), CtrlShift('S')}) {
    test.prompter.Expect(title, Answer::kCancel);
    form.Press(key);
    EXPECT_FALSE(desk.screens.open_kept_sheet);
    test.prompter.Expect(title, Answer::kYes);
    form.Press(key);
    EXPECT_TRUE(navigator.IsOpen(screen::kSheet));
    EXPECT_EQ(test.prompter.boxes().back().style, box_style::kYesNoCancel) << "Esc is no answer";
    EXPECT_TRUE(desk.screens.open_kept_sheet && desk.screens.edit_mode);
    navigator.Close(screen::kSheet);
    desk.screens.open_kept_sheet = false;
  }
  test.prompter.Expect(title, Answer::kNo);
  navigator.Expect(screen::kFiles, [] {});
  form.Press(CtrlShift('S'));
  const std::string rows = test.Bytes();
  test.workspace.Delete(work_file::kRows);
  test.prompter.Expect(title, Answer::kCancel);
  form.Press(Ctrl('E'));
  EXPECT_TRUE(test.prompter.codes().empty()) << "the sheet has the sections";
  ASSERT_TRUE(test.workspace.Write(work_file::kRows, rows).ok());
  test.prompter.Expect(130, Answer::kYes);
  test.prompter.Expect(title, Answer::kYes);
  Click(form, form.Cmd_Exit);
  EXPECT_TRUE(navigator.IsOpen(screen::kSheet)) << "a save that was asked for first";
  EXPECT_TRUE(test.workspace.Exists(work_file::kRows));
}

TEST_F(MainMenu, EntersSectionsInTheSheetOrOneByOneAsTheUserLikes) {
  test.study.study_title = "Κτίριο";
  test.study.MeanTemp = test.study.MeanVel = 1;
  form.Derive();
  EXPECT_TRUE(form.ChkDataKind.on);
  const auto opened = [this](std::string_view screen) {
    form.Press(Ctrl('T'));
    const bool is_open = navigator.IsOpen(screen) && navigator.log.back() == "hide FrmMain";
    navigator.Close(screen);
    return is_open;
  };
  EXPECT_TRUE(opened(screen::kSheet));
  form.ChkDataKind.Set(false);
  EXPECT_FALSE(desk.options.ChkDataKind);
  EXPECT_TRUE(opened(screen::kSections)) << "without rows there is nothing to choose";

  PutStudy();
  for (const auto choice : {EntryChoice::kCorrect, EntryChoice::kGoOn}) {
    navigator.Expect(screen::kEntryChoice, [&] { desk.questions.entry_choice = choice; });
    EXPECT_TRUE(opened(screen::kSections));
    EXPECT_EQ(desk.screens.entry_goes_on, choice == EntryChoice::kGoOn);
  }
  navigator.Expect(screen::kEntryChoice, [] {});
  form.Press(Ctrl('T'));
  EXPECT_EQ(navigator.log.back(), "modal FrmWhat") << "given up";

  ASSERT_TRUE(test.workspace.Write(work_file::kSheetInWork, "cells").ok());
  EXPECT_TRUE(opened(screen::kSheet)) << "where something is kept";
}

TEST_F(MainMenu, TellsOfAStudyThatCameWithoutItsFluid) {
  PutStudy();
  EXPECT_FALSE(form.LblFluidAssumed.visible);
  PutMain(test, "alone.PCK", test.Rows());
  ASSERT_TRUE(Load(test, "alone.PCK"));
  form.Derive();
  EXPECT_TRUE(form.LblFluidAssumed.visible);
  EXPECT_NE(form.LblFluidAssumed.text.find("θεωρείται Νερό"), std::string::npos);
}

TEST_F(MainMenu, EndsTheTitleEntryBeforeAStudyIsOpened) {
  Click(form, form.Cmd_Thema);
  navigator.Expect(screen::kStudies, [this] { EXPECT_FALSE(form.TxtThema.visible); });
  form.Press(Ctrl('O'));
}

TEST_F(MainMenu, OffersTheFilesUsedLastInItsMenu) {
  for (const char* name : {"1.PCK", "2.PCK", "3.PCK", "4.PCK", "5.PCK", "a&b.PCK"}) {
    SaveSample(test, name, name);
    ASSERT_TRUE(OpenChosen(desk, fs::path("/studies") / name, RecentList::kAdd));
  }
  form.Derive();
  EXPECT_EQ(form.Mnu_Recent[0].caption, "/studies/a&b.PCK");
  EXPECT_EQ(form.Mnu_Recent[4].caption, "/studies/2.PCK");
  test.prompter.Expect(135, Answer::kYes);
  Click(form, form.Mnu_Recent[4]);
  form.Derive();
  EXPECT_EQ(test.study.study_title, "2.PCK");
  EXPECT_EQ(form.Mnu_Recent[0].caption, "/studies/2.PCK");
  ASSERT_TRUE(test.outer_disk.Remove("/studies/5.PCK").ok());
  Click(form, form.Mnu_Recent[2]);
  EXPECT_EQ(test.prompter.boxes().back().lines[0], "Το αρχείο δεν υπάρχει : /studies/5.PCK");
  EXPECT_EQ(test.study.study_title, "2.PCK");
}

TEST_F(MainMenu, BeginsWithTheCommonestPipes) {
  test.pipes = PipeList(12, PipeListEntry{1, "0001.WPT", "Χαλκός", "ΧΑΛΚΟΣ"});
  test.study.pipe_system_number = 3;
  form.Load();
  EXPECT_EQ(test.study.pipe_system_number, 11);
}

TEST_F(MainMenu, OpensAFileGivenAtStartAfterAskingAboutAStudyBroughtBack) {
  PutStudy();
  test.study.recovery = test.study.unsaved_changes = true;
  desk.screens.study_argument = "/studies/x.PCK";
  ASSERT_TRUE(test.outer_disk.Write("/studies/x.PCK", "x").ok());
  form.Load();
  test.prompter.Expect(130, Answer::kCancel);
  form.Activate();
  EXPECT_TRUE(test.workspace.HasBytes(work_file::kRows));
  EXPECT_TRUE(desk.screens.study_argument.empty());
}

TEST_F(MainMenu, OpensGeneralDataWhenAStudyWithRowsHasItsTitle) {
  PutStudy();
  test.study.study_title.clear();
  form.Press(Ctrl('G'));
  EXPECT_EQ(test.prompter.codes(), (std::vector{1}));
  test.study.study_title = "Κτίριο";
  navigator.Expect(screen::kGeneralData, [] {});
  form.Press(Ctrl('G'));
  ASSERT_TRUE(test.workspace.Write(work_file::kRows, "").ok());
  test.study.study_title.clear();
  navigator.Expect(screen::kGeneralData, [] {});
  form.Press(Ctrl('G'));
  EXPECT_FALSE(test.workspace.Exists(work_file::kRows));
}

TEST_F(MainMenu, SaysWhenThereAreNoRecentFiles) {
  ASSERT_TRUE(test.workspace.Write(work_file::kRecentFiles, "").ok());
  form.Press(Shift(KeyCode::kF2));
  ASSERT_EQ(test.prompter.boxes().size(), 1U);
  EXPECT_FALSE(test.workspace.Exists(work_file::kRecentFiles));
  ASSERT_TRUE(test.workspace.Write(work_file::kRecentFiles, "/a/B.PCK\n").ok());
  navigator.Expect(screen::kRecent, [] {});
  form.Press(Alt(KeyCode::kF2));
  EXPECT_EQ(navigator.log.back(), "modal FrmRecFiles_S");
}

TEST_F(MainMenu, ShowsTheFolderCommandsAsTheUserLeftThem) {
  EXPECT_TRUE(form.CmdFF.visible);
  form.Press(Shift(KeyCode::kEscape));
  form.Derive();
  EXPECT_FALSE(form.CmdFF.visible);
  EXPECT_FALSE(desk.options.folder_commands);
}

TEST_F(MainMenu, PlaysTheSoundOfCommandsWhenItIsOn) {
  form.ChkSound.Set(true);
  Click(form, form.Cmd_Nodes);
  EXPECT_EQ(sound.played, 1);
  EXPECT_FALSE(form.MayClose());
  EXPECT_EQ(sound.played, 2) << "the close box leaves as the command does";
}

}  // namespace
}  // namespace kalvo
