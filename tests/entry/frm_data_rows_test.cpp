#include <gtest/gtest.h>

#include "entry/sections/section_entry_forms.h"
#include "tests/entry/section_user.h"
#include "tests/support/failing_disk.h"

namespace kalvo {
namespace {

const std::vector<std::string_view> kFed = {"1/ANT 5m", "2/1 6m", "3/2 7m 200l/h soma 900mm",
                                            "4/1 8m 100l/h soma 500mm"};

TEST(SectionRows, AnInsertionStandsAfterAMove) {
  SectionUser user(SystemKind::kClosed, kChain);
  user.study().plant_section = 4;
  user.Open();
  user.Next();
  user.Run(user.form->Cmd_Ins);
  EXPECT_EQ(user.form->Cmd_Ins.caption, "ΑΚΥΡΩΣΗ");
  EXPECT_EQ(user.Shown(), "2 : 1/2 · 6") << "in the new-row manner";
  EXPECT_EQ(user.Names(), "ANT/1|1/2|1/2|2/3|3/ANT");
  EXPECT_EQ(user.Emitters(), "3 4 ");
  EXPECT_EQ(user.user.test.Row(2).SomaDrop, 0) << "no second emitter";
  EXPECT_EQ(user.user.test.Row(3).SomaDrop, 800);
  EXPECT_EQ(user.study().plant_section, 5);
  EXPECT_TRUE(user.DraftSaysRows());
  user.TypeIn(user.form->Txt1, "9");
  user.Next();
  EXPECT_EQ(user.form->Cmd_Ins.caption, "Παρεμβολή");
  EXPECT_EQ(user.Names(), "ANT/1|1/9|1/2|2/3|3/ANT");
  user.Run(user.form->Cmd_End);
  EXPECT_EQ(user.LastScreen(), "show FrmSoma") << "emitters have to be looked at";
}

TEST(SectionRows, AnInsertionIsUndoneWhole) {
  for (const bool old_file_gone : {false, true}) {
    SectionUser user(SystemKind::kClosed, kChain);
    user.study().plant_section = 4;
    user.study().results_valid = true;
    user.Open();
    user.Next();
    user.Next();
    const std::string rows = user.user.test.Bytes();
    const std::string emitters = user.user.test.Bytes(work_file::kEmitters);
    user.Run(user.form->Cmd_Ins);
    user.TypeIn(user.form->Txt2, "0");
    user.form->MoveFocus(&user.form->Txt6);
    if (old_file_gone) user.user.test.workspace.Delete(work_file::kRowsBeforeInsert);
    user.Run(user.form->Cmd_Ins);
    EXPECT_EQ(user.form->Cmd_Ins.caption, "Παρεμβολή");
    EXPECT_EQ(user.Shown(), "3 : 2/3 · 7");
    EXPECT_EQ(user.user.test.Bytes(), rows);
    EXPECT_EQ(user.user.test.Bytes(work_file::kEmitters), emitters);
    EXPECT_TRUE(user.study().results_valid);
    EXPECT_FALSE(user.study().unsaved_changes);
    EXPECT_EQ(user.study().plant_section, 4);
  }
}

TEST(SectionRows, NamesOfAnOpenNetworkAfterInsertAndDelete) {
  SectionUser user(SystemKind::kOpen, kFed);
  user.Open();
  user.Next();
  user.Run(user.form->Cmd_Ins);
  EXPECT_EQ(user.Names(), "1/ANT|2/1|3/1|4/3|4/1")
      << "a row that is fed from before the place keeps its name";
  EXPECT_TRUE(user.DraftSaysRows());
  user.Next();
  user.Run(user.form->Cmd_Last);
  EXPECT_EQ(user.Shown(), "5 : 5/1 · 8") << "its number shows all the same";
  user.Press(KeyCode::kPageUp);
  EXPECT_EQ(user.Names(), "1/ANT|2/1|3/1|4/3|5/1") << "and counts as changed";
  user.Press(Ctrl(KeyCode::kHome));
  user.Next();
  user.user.test.prompter.Expect(120, Answer::kYes);
  user.Run(user.form->Cmd_Del);
  EXPECT_EQ(user.Names(), "1/ANT|2/1|3/3|4/1") << "feeders stay";
  EXPECT_EQ(user.form->LblStatus.text, "Ελέγξτε το τμήμα τροφοδοσίας στα τμήματα : 3");
  EXPECT_EQ(user.Shown(), "2 : 2/1 · 6");
  user.Run(user.form->Cmd_End);
  EXPECT_TRUE(user.study().NameErrors) << "feeders were touched";
}

TEST(SectionRows, TheOnlyOneIsNeitherDeletedNorInsertedBefore) {
  SectionUser user(SystemKind::kOpen, {"1/ANT 5m"});
  user.Open();
  user.Run(user.form->Cmd_Ins);
  user.user.test.prompter.Expect(120, Answer::kYes);
  user.Run(user.form->Cmd_Del);
  EXPECT_EQ(user.user.test.prompter.codes(), (std::vector<int>{122, 120, 121}));
  EXPECT_EQ(user.form->Cmd_Ins.caption, "Παρεμβολή");
  EXPECT_EQ(user.user.test.Rows().size(), 1U);
}

TEST(SectionRows, UndoTakesEverythingBackByteForByte) {
  for (const auto kind : {SystemKind::kClosed, SystemKind::kOpen}) {
    SectionUser user(kind, kind == SystemKind::kClosed ? kChain : kFed);
    user.study().plant_section = 2;
    user.study().results_valid = true;
    user.Open();
    const std::string rows = user.user.test.Bytes();
    const std::string emitters = user.user.test.Bytes(work_file::kEmitters);
    user.TypeIn(user.form->Txt2, "6");
    user.Next();
    user.Run(user.form->Cmd_Ins);
    user.TypeIn(user.form->Txt1, "9");
    user.Next();
    user.Press(ShiftTyped(U'C'));
    user.user.test.prompter.Expect(120, Answer::kYes);
    user.Run(user.form->Cmd_Del);
    const std::string names = user.Names();
    while (user.form->draft().history().CanUndo()) user.Press(Ctrl('Z'));
    EXPECT_EQ(user.user.test.Bytes(), rows);
    EXPECT_EQ(user.user.test.Bytes(work_file::kEmitters), emitters);
    EXPECT_TRUE(user.study().results_valid);
    EXPECT_FALSE(user.study().unsaved_changes);
    EXPECT_EQ(user.study().plant_section, 2);
    EXPECT_FALSE(user.study().emitters_unchecked);
    EXPECT_FALSE(user.study().NameErrors);
    while (user.form->draft().history().CanRedo()) user.Press(Ctrl('Y'));
    EXPECT_EQ(user.Names(), names);
    EXPECT_TRUE(user.study().unsaved_changes);
  }
}

TEST(SectionRows, AnEmitterThatLosesItsSectionHasToBeLookedAtAlsoIfItIsTheOnlyOne) {
  SectionUser user(SystemKind::kClosed,
                   {"ANT/1 5m", "1/2 6m 300l/h soma 800mm", "2/3 7m", "3/ANT 8m"});
  user.Open();
  user.Next();
  const auto remove = [&user] {
    user.user.test.prompter.Expect(120, Answer::kYes);
    user.Run(user.form->Cmd_Del);
  };
  remove();
  user.Press(Ctrl('Z'));
  EXPECT_FALSE(user.study().emitters_unchecked);
  remove();
  EXPECT_EQ(user.Emitters(), "0 ");
  user.TypeIn(user.form->Txt2, "4");
  user.Press(KeyCode::kPageUp);
  EXPECT_TRUE(user.study().emitters_unchecked);
  user.Press(KeyCode::kEscape);
  EXPECT_TRUE(user.study().emitters_unchecked);
}

TEST(SectionRows, TheWayBackToTheSheetAsksNothing) {
  SectionUser single(SystemKind::kClosed, {"ANT/1 5m"});
  single.OpenSheet();
  single.Press(Shift(KeyCode::kF12));
  single.Press(Shift(KeyCode::kF12));
  ASSERT_NE(single.sheet, nullptr);
  EXPECT_EQ(single.Names(), "ANT/1");

  SectionUser user;
  user.OpenSheet();
  for (const char key : {'1', '\n', '4', '\n'}) {
    user.Press(key == '\n' ? Plain(KeyCode::kEnter) : Typed(static_cast<char32_t>(key)));
  }
  user.Press(Shift(KeyCode::kF12));
  user.Next();
  EXPECT_EQ(user.Shown(), "2 : 1/2 · 4");
  user.Press(Shift(KeyCode::kF12));
  ASSERT_NE(user.sheet, nullptr) << "a row that was only shown is dropped";
  EXPECT_EQ(user.Names(), "ANT/1");
}

TEST(SectionRows, OneHistoryAcrossTheSwitches) {
  SectionUser user(SystemKind::kClosed, kChain);
  user.study().results_valid = true;
  user.OpenSheet();
  const std::string rows = user.user.test.Bytes();
  user.sheet->fpSpread1.GoTo({2, 3});
  user.Press(Typed(U'9'));
  user.Press(KeyCode::kEnter);
  user.sheet->fpSpread1.GoTo({2, 3});
  user.Press(Shift(KeyCode::kF12));
  ASSERT_NE(user.form, nullptr);
  EXPECT_EQ(user.Shown(), "3 : 2/3 · 9");
  EXPECT_EQ(user.user.test.Row(3).Length, 9);
  EXPECT_FALSE(user.study().results_valid);
  EXPECT_FALSE(user.user.test.workspace.Exists(work_file::kSheetInWork));
  user.TypeIn(user.form->Txt2, "10");
  user.Press(kCtrlAltShift);
  ASSERT_NE(user.sheet, nullptr);
  EXPECT_EQ(user.sheet->fpSpread1.current().row, 2);
  EXPECT_EQ(user.user.test.Row(3).Length, 10);
  user.Press(Ctrl('Z'));
  user.Press(Ctrl('Z'));
  EXPECT_EQ(user.sheet->fpSpread1.At(2, 3).text, "7");
  user.Run(user.sheet->Cmd_Exit);
  EXPECT_EQ(user.user.test.Bytes(), rows);
  EXPECT_TRUE(user.study().results_valid);
  EXPECT_EQ(user.LastScreen(), "show FrmMain");
}

TEST(SectionRows, TheEmittersComeBeforeTheSheetAfterAnInsertion) {
  SectionUser user(SystemKind::kClosed, kChain);
  user.Open();
  user.Next();
  user.Run(user.form->Cmd_Ins);
  user.Press(Shift(KeyCode::kF12));
  EXPECT_EQ(user.LastScreen(), "show FrmSoma");
  EXPECT_TRUE(user.desk.screens.back_to_sheet);
  EXPECT_EQ(user.study().CurrentRow, 2);
  user.OpenSheet();
  EXPECT_EQ(user.sheet->fpSpread1.current().row, 1);
}

TEST(SectionRows, ClosingARowThatIsWrongAsksFirst) {
  SectionUser user(SystemKind::kClosed, kChain);
  user.Open();
  const std::string rows = user.user.test.Bytes();
  user.TypeIn(user.form->Txt2, "0");
  user.user.test.prompter.Expect(" !!... ΠΡΟΣΟΧΗ ...!! ", Answer::kNo);
  user.Close();
  ASSERT_NE(user.form, nullptr);
  user.user.test.prompter.Expect(" !!... ΠΡΟΣΟΧΗ ...!! ", Answer::kYes);
  user.Press(KeyCode::kEscape);
  EXPECT_EQ(user.LastScreen(), "show FrmMain");
  EXPECT_FALSE(user.study().unsaved_changes);
  EXPECT_EQ(user.user.test.Bytes(), rows);
  EXPECT_FALSE(user.user.test.workspace.Exists(work_file::kSheetInWork));
}

TEST(SectionRows, WhatIsTypedKeepsItselfUntilItIsInTheRows) {
  SectionUser user(SystemKind::kClosed, kChain);
  user.Open();
  const auto kept = [&] {
    user.form->Idle(0.3);
    return user.user.test.workspace.Exists(work_file::kSheetInWork);
  };
  EXPECT_FALSE(kept());
  user.TypeIn(user.form->Txt2, "6,5");
  EXPECT_TRUE(kept()) << "in a field that was not left yet";
  user.Next();
  EXPECT_FALSE(kept());
  user.TypeIn(user.form->Txt2, "4");
  EXPECT_TRUE(kept());
  user.form.reset();
  user.desk.screens.section_sitting.reset();  // another run, after a crash
  user.OpenSheet();
  EXPECT_EQ(user.sheet->fpSpread1.At(1, 3).text, "4");
}

// What the next start finds: rows of before or after, each emitter with the row that has its
// values.
void ExpectInStep(SectionUser& user, const std::string& before, const std::string& after) {
  const TestBench& test = user.user.test;
  const std::string now = user.Names();
  EXPECT_TRUE(now == before || now == after) << now;
  user.form.reset();
  user.sheet.reset();
  user.desk.screens.section_sitting.reset();
  ASSERT_TRUE(FindEmitters(user.bench, test.Rows()).ok());
  for (const SectionRow& emitter : test.Rows(work_file::kEmitters)) {
    if (emitter.RecordNumber == 0) {
      EXPECT_EQ(now.find(emitter.Name.Utf8()), std::string::npos) << "its section is gone";
    } else {
      EXPECT_EQ(test.Row(emitter.RecordNumber).SomaDrop, emitter.SomaDrop) << now;
    }
  }
}

TEST(SectionRows, AKillAtAnyStepLeavesRowsAndEmittersInStep) {
  struct Deed {
    const char* name;
    std::function<void(SectionUser&)> prepare;
    std::function<void(SectionUser&)> run;
  };
  const auto nothing = [](SectionUser&) {};
  const auto insert = [](SectionUser& user) { user.Run(user.form->Cmd_Ins); };
  const std::vector<Deed> deeds = {
      {"insert", nothing, insert},
      {"its undo", insert, insert},
      {"delete", nothing, [](SectionUser& user) { user.Run(user.form->Cmd_Del); }},
      {"undo", insert, [](SectionUser& user) { user.Press(Ctrl('Z')); }},
      {"switch", [](SectionUser& user) { user.TypeIn(user.form->Txt1, "9"); },
       [](SectionUser& user) { user.Press(Shift(KeyCode::kF12)); }},
  };
  for (const Deed& deed : deeds) {
    std::string before;
    std::string after;
    for (int step = 0, steps = 1; step <= steps; ++step) {
      SCOPED_TRACE(std::string(deed.name) + " " + std::to_string(step));
      SectionUser user(SystemKind::kClosed, kChain);
      user.Open();
      user.Next();
      deed.prepare(user);
      if (before.empty()) before = user.Names();
      if (std::string(deed.name) == "delete") user.user.test.prompter.Expect(120, Answer::kYes);
      // Step 0 goes through and counts the operations.
      user.disk.FailAtOperation(step == 0 ? 1000 : step, FailingDisk::Lasting::kFromThenOn);
      deed.run(user);
      if (step == 0) {
        steps = user.disk.operations();
        after = user.Names();
      }
      user.disk.Mend();
      ExpectInStep(user, before, after);
    }
  }
}

TEST(SectionRows, ADiskThatFailsOnceIsToldAndTheNextTrySucceeds) {
  for (int step = 1; step <= 12; ++step) {
    SCOPED_TRACE(step);
    SectionUser user(SystemKind::kClosed, kChain);
    user.Open();
    user.Next();
    user.TypeIn(user.form->Txt2, "4");
    user.disk.FailAtOperation(step, FailingDisk::Lasting::kOnce);
    user.Next();
    if (user.Shown()[0] == '2') user.Next();
    EXPECT_EQ(user.Shown(), "3 : 2/3 · 7");
    EXPECT_EQ(user.user.test.Row(2).Length, 4);
    user.Run(user.form->Cmd_Ins);
    if (user.form->Cmd_Ins.caption == "Παρεμβολή") user.Run(user.form->Cmd_Ins);
    EXPECT_EQ(user.Names(), "ANT/1|1/2|2/3|2/3|3/ANT");
    EXPECT_TRUE(user.DraftSaysRows());
    user.Run(user.form->Cmd_End);
    EXPECT_EQ(user.Emitters(), "2 4 ");
  }
}

TEST(SectionRows, EveryCommandWithoutRows) {
  SectionUser user;
  user.Open();
  FrmData& form = *user.form;
  for (Command* command : {&form.Cmd_First, &form.Cmd_Prev, &form.Cmd_Last, &form.Cmd_Same,
                           &form.Cmd_Undo, &form.Cmd_Redo, &form.CmdNoTau, &form.Cmd_Del}) {
    user.Run(*command);
    EXPECT_EQ(user.Shown(), "1 : ANT/1 · ") << command->name();
  }
  user.Run(form.Cmd_Del);
  user.Press(KeyCode::kEscape);
  EXPECT_EQ(user.LastScreen(), "show FrmMain");
  EXPECT_FALSE(user.user.test.workspace.Exists(work_file::kRows));
}

TEST(SectionRows, StepsTakenBackNeverBarTheWay) {
  SectionUser open(SystemKind::kOpen, {"1/ANT 5m", "2/1 6m", "3/2 7m", "4/1 8m"});
  open.Open();
  open.Next();
  open.Run(open.form->Cmd_Ins);
  open.Next();
  open.TypeIn(open.form->Txt2, "9");
  open.form->MoveFocus(&open.form->Txt6);
  open.Press(Ctrl('Z'));
  open.Next();
  EXPECT_EQ(open.form->Txt_aa.text, "4") << "an own number that lags bars nothing";
  open.Run(open.form->Cmd_End);
  EXPECT_EQ(open.LastScreen(), "show FrmYpodo");

  SectionUser user(SystemKind::kClosed, kChain);
  user.OpenSheet();
  for (int row = 0; row < 4; ++row) user.sheet->fpSpread1.GoTo({row, 3});
  user.sheet->fpSpread1.SelectBlock({0, 3, 3, 3});
  user.Press(KeyCode::kDelete);
  user.desk.clipboard.SetText("1\n2\n3\n4\n");
  user.sheet->fpSpread1.GoTo({0, 3});
  user.Press(Ctrl('V'));
  user.Press(Shift(KeyCode::kF12));
  user.Press(Ctrl('Z'));
  EXPECT_EQ(user.Shown(), "1 : ANT/1 · ");
  EXPECT_EQ(user.user.test.Row(2).Length, 2) << "rows without lengths wait";
  for (const char* length : {"5", "6", "7"}) {
    user.TypeIn(user.form->Txt2, length);
    user.Next();
  }
  user.Run(user.form->Cmd_End);
  EXPECT_EQ(user.Shown(), "4 : 3/ANT · ") << "the end leads to what is missing";
  user.TypeIn(user.form->Txt2, "8");
  user.Run(user.form->Cmd_End);
  EXPECT_EQ(user.LastScreen(), "show FrmMain");
  EXPECT_EQ(user.user.test.Row(4).Length, 8);
}

TEST(SectionRows, EndsThatLeaveAFieldFreelyStillLookAtIt) {
  SectionUser user(SystemKind::kClosed, kChain);
  user.Open();
  user.TypeIn(user.form->Txt0, "5");
  user.Run(user.form->Cmd_End);
  EXPECT_EQ(user.Names(), "ANT/1|1/2|2/3|3/ANT") << "row 1 begins at the source";
  SectionUser nameless(SystemKind::kClosed, kChain);
  nameless.Open();
  nameless.Next();
  nameless.TypeIn(nameless.form->Txt0, "");
  nameless.Run(nameless.form->Cmd_End);
  EXPECT_EQ(nameless.form->focus(), &nameless.form->Txt0);
  EXPECT_EQ(nameless.Names(), "ANT/1|1/2|2/3|3/ANT");
}

TEST(SectionRows, TheListOfOtherSectionsGivesTheKeysBack) {
  SectionUser user(SystemKind::kClosed, kChain);
  user.Open();
  user.Next();
  user.Run(user.form->Cmd_Same);
  user.Next();
  EXPECT_EQ(user.Shown(), "3 : 2/3 · 7");
  EXPECT_EQ(user.form->focus(), &user.form->Txt2);
  EXPECT_TRUE(user.form->Cmd_Same.enabled);
}

TEST(SectionRows, NoSectionAfterThe999th) {
  std::vector<std::string> names;
  for (int number = 1; number <= 999; ++number) {
    names.push_back((number == 1 ? "ANT" : std::to_string(number - 1)) + "/" +
                    (number == 999 ? "ANT" : std::to_string(number)) + " 5m");
  }
  const std::vector<std::string_view> network(names.begin(), names.end());
  SectionUser user(SystemKind::kClosed, network);
  user.desk.screens.entry_goes_on = true;
  user.Open();
  EXPECT_EQ(user.form->Txt_aa.text, "999");
  user.Next();
  EXPECT_EQ(user.form->Txt_aa.text, "999");
  user.Run(user.form->Cmd_Ins);
  EXPECT_EQ(user.user.test.Rows().size(), 999U);
}

TEST(SectionRows, ADiskThatTakesNothingLetsOneOut) {
  SectionUser user(SystemKind::kClosed, kChain);
  user.Open();
  user.TypeIn(user.form->Txt2, "9");
  user.disk.FailAfterBytes(0);
  user.user.test.prompter.Expect(" !!... ΠΡΟΣΟΧΗ ...!! ", Answer::kNo);
  user.Close();
  ASSERT_NE(user.form, nullptr);
  user.user.test.prompter.Expect(" !!... ΠΡΟΣΟΧΗ ...!! ", Answer::kYes);
  user.user.test.prompter.Expect(" !!... ΠΡΟΣΟΧΗ ...!! ", Answer::kYes);
  user.Close();
  EXPECT_EQ(user.LastScreen(), "show FrmMain");
  EXPECT_EQ(user.user.test.Row(1).Length, 5);
}

TEST(SectionRows, ThePlantFollowsARowThatIsNewToo) {
  SectionUser user;
  user.study().plant_section = 3;
  user.Open();
  for (const char* length : {"5", "6", "7", "8"}) {
    user.TypeIn(user.form->Txt2, length);
    user.Next();
  }
  user.Press(KeyCode::kPageUp);
  EXPECT_EQ(user.user.test.Row(3).Auxi, 2);
  user.Run(user.form->Cmd_First);
  user.Next();
  user.Run(user.form->Cmd_Ins);
  EXPECT_EQ(user.study().plant_section, 4);
  user.Next();
  user.Next();
  for (int number = 1; number <= 5; ++number) {
    EXPECT_EQ(user.user.test.Row(number).Auxi, number == 4 ? 2 : 0) << number;
    EXPECT_EQ(user.user.test.Row(number).BurChil, 4);
  }
  while (user.study().plant_section == 4) user.Press(Ctrl('Z'));
  EXPECT_EQ(user.study().plant_section, 3);
  EXPECT_EQ(user.user.test.Row(3).Auxi, 2);
  EXPECT_EQ(user.user.test.Row(4).Auxi, 0);
}

}  // namespace
}  // namespace kalvo
