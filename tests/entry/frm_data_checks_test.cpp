#include <gtest/gtest.h>

#include <stdexcept>

#include "tests/entry/section_user.h"

namespace kalvo {
namespace {

TEST(SectionChecks, EveryMoveJudgesTheEndNodeAsItWasTyped) {
  for (const char* name : {"1", "0", "", "NT"}) {
    SectionUser user(SystemKind::kClosed, kChain);
    user.Open();
    user.Next();
    FrmData& form = *user.form;
    user.TypeIn(form.Txt1, name);
    std::vector<int> codes;
    for (Command* move :
         {&form.Cmd_Next, &form.Cmd_Prev, &form.Cmd_First, &form.Cmd_Last, &form.Cmd_GoTo,
          &form.Cmd_Ins, &form.Cmd_Del, &form.CmdShift_F12, &form.Cmd_End}) {
      user.Run(*move);
      codes.push_back(6);
      ASSERT_EQ(user.user.test.prompter.codes(), codes) << name << ", " << move->name();
      EXPECT_EQ(form.focus(), &form.Txt1);
      EXPECT_EQ(form.Txt1.text, name) << "what was typed stays";
    }
    user.user.test.prompter.Expect(" !!... ΠΡΟΣΟΧΗ ...!! ", Answer::kYes);
    user.Press(KeyCode::kEscape);
    EXPECT_EQ(user.Names(), "ANT/1|1/2|2/3|3/ANT") << "never without a node";
    EXPECT_FALSE(user.study().unsaved_changes);
  }
}

TEST(SectionChecks, SeparatorsComeBeforeNames) {
  SectionUser user(SystemKind::kClosed, kChain);
  user.Open();
  user.Next();
  user.TypeIn(user.form->Txt7, "1,2,3");
  user.TypeIn(user.form->Txt1, "NT");
  user.Next();
  EXPECT_EQ(user.user.test.prompter.codes(), (std::vector<int>{110}));
}

TEST(SectionChecks, StepsDoneAgainAreJudgedToo) {
  SectionUser same(SystemKind::kClosed, kChain);
  same.Open();
  same.Next();
  same.TypeIn(same.form->Txt0, "2");
  same.form->MoveFocus(&same.form->Txt2);
  same.Press(Ctrl('Z'));
  EXPECT_EQ(same.Shown(), "2 : 1/2 · 6");
  same.Press(Ctrl('Y'));
  EXPECT_EQ(same.Shown(), "2 : 2/2 · 6");
  same.Next();
  EXPECT_EQ(same.user.test.prompter.codes(), (std::vector<int>{6}));
  same.user.test.prompter.Expect(" !!... ΠΡΟΣΟΧΗ ...!! ", Answer::kNo);
  same.Press(KeyCode::kEscape);
  EXPECT_EQ(same.Names(), "ANT/1|1/2|2/3|3/ANT") << "the rows wait";
  same.TypeIn(same.form->Txt1, "9");
  same.Next();
  EXPECT_EQ(same.Names(), "ANT/1|2/9|2/3|3/ANT");

  SectionUser first(SystemKind::kClosed, kChain);
  first.Open();
  first.TypeIn(first.form->Txt2, "0");
  first.form->MoveFocus(&first.form->Txt6);
  first.Press(Ctrl('Z'));
  EXPECT_EQ(first.Shown(), "1 : ANT/1 · 5");
  first.Press(Ctrl('Y'));
  EXPECT_EQ(first.Shown(), "1 : ANT/1 · 0");
  first.Run(first.form->Cmd_End);
  EXPECT_EQ(first.user.test.prompter.codes(), (std::vector<int>{7}));
  EXPECT_EQ(first.user.test.Row(1).Length, 5) << "the rows wait";
}

// They come by a file, or by a paste into the sheet.
TEST(SectionChecks, ANameThatCannotBeTypedStaysUntilItIsEdited) {
  SectionUser user(SystemKind::kClosed, kChain);
  user.user.test.ChangeRow(2, [](SectionRow& row) { row.Name = MakeName("1.2", "2"); });
  user.study().results_valid = true;
  const std::string rows = user.user.test.Bytes();
  user.Open();
  user.Next();
  FrmData& form = *user.form;
  form.MoveFocus(&form.Txt0);
  EXPECT_EQ(user.Shown(), "2 : 1.2/2 · 6");
  user.Next();
  user.Press(KeyCode::kPageUp);
  EXPECT_EQ(form.focus(), &form.Txt0);
  user.Press(KeyCode::kEscape);
  EXPECT_TRUE(user.user.test.Bytes() == rows);
  EXPECT_TRUE(user.study().results_valid);
}

TEST(SectionChecks, RowsThatWaitedAndTheDraftSayTheSame) {
  SectionUser user(SystemKind::kClosed, kChain);
  user.Open();
  user.TypeIn(user.form->Txt2, "1,2,3");
  user.form->MoveFocus(&user.form->Txt6);
  user.Press(Ctrl('Z'));
  user.Press(Ctrl('Y'));
  EXPECT_EQ(user.Shown(), "1 : ANT/1 · 1,2,3");
  user.TypeIn(user.form->Txt2, "4");
  user.TypeIn(user.form->Txt15, "");
  user.Next();
  EXPECT_EQ(user.user.test.Row(1).Length, 4);
  EXPECT_TRUE(user.DraftSaysRows());
}

TEST(SectionChecks, NoInsertionWhereAFeederHasNoRoomToGrow) {
  SectionUser user(SystemKind::kOpen, {"1/ANT 5m", "2/1 6m", "3/999 7m"});
  user.Open();
  user.Run(user.form->Cmd_Ins);
  EXPECT_EQ(user.Names(), "1/ANT|2/1|3/999");
  EXPECT_NE(user.form->LblStatus.text.find("999"), std::string::npos);
}

// A feeder that a deletion has left as it was is no new mistake.
TEST(SectionChecks, ADeletionIsDoneAgainWithTheFeedersThatItLeaves) {
  SectionUser user(SystemKind::kOpen, {"1/ANT 5m", "2/1 6m", "3/1 7m", "4/3 8m", "5/3 8m"});
  user.Open();
  user.Next();
  user.user.test.prompter.Expect(120, Answer::kYes);
  user.Run(user.form->Cmd_Del);
  EXPECT_EQ(user.Names(), "1/ANT|2/1|3/3|4/3");
  user.Press(Ctrl('Z'));
  EXPECT_EQ(user.Names(), "1/ANT|2/1|3/1|4/3|5/3");
  user.Press(Ctrl('Y'));
  EXPECT_EQ(user.Names(), "1/ANT|2/1|3/3|4/3");
  EXPECT_TRUE(user.DraftSaysRows());
}

TEST(SectionChecks, TheSourceReplacesAnEndNodeThatIsWrong) {
  for (const char* name : {"", "0", "1"}) {
    SectionUser user(SystemKind::kClosed, kChain);
    user.Open();
    user.Next();
    user.TypeIn(user.form->Txt1, name);
    user.Run(user.form->CmdANT);
    EXPECT_EQ(user.Shown(), "2 : 1/ANT · 6");
    EXPECT_EQ(user.form->focus(), &user.form->Txt2);
  }
  SectionUser user(SystemKind::kClosed, kChain);
  user.Open();
  user.Next();
  user.TypeIn(user.form->Txt8, "40000");
  user.Run(user.form->CmdANT);
  EXPECT_EQ(user.user.test.prompter.codes(), (std::vector<int>{200}));
  EXPECT_EQ(user.Shown(), "2 : 1/2 · 6");
}

TEST(SectionChecks, TheSourceInCapitalsIsNoTee) {
  SectionUser user(SystemKind::kClosed, kChain);
  user.Open();
  user.Next();
  user.form->Focus(user.form->Txt1);
  for (const char32_t letter : {U'A', U'N', U'T'}) {
    user.Press(Shift(KeyCode::kCharacter));
    user.Press(ShiftTyped(letter));
  }
  EXPECT_EQ(user.Shown(), "2 : 1/ANT · 6");
  EXPECT_EQ(user.form->Txt11.text, "0");
  user.Press(ShiftTyped(U'N'));
  EXPECT_EQ(user.form->Txt11.text, "1") << "another letter is a tee again";
}

TEST(SectionChecks, MovesInPlainEntryGoToTheNames) {
  SectionUser user;
  user.Open();
  for (const char* length : {"5", "6", "7"}) {
    user.TypeIn(user.form->Txt2, length);
    user.Next();
  }
  user.form->Focus(user.form->Txt7);
  user.Press(KeyCode::kPageUp);
  EXPECT_EQ(user.Shown(), "3 : 2/3 · 7");
  EXPECT_EQ(user.form->focus(), &user.form->Txt0);
  user.form->Focus(user.form->Txt7);
  user.Press(Ctrl(KeyCode::kHome));
  EXPECT_EQ(user.form->focus(), &user.form->Txt2);
  user.Press(Ctrl(KeyCode::kEnd));
  EXPECT_EQ(user.form->focus(), &user.form->Txt0);
}

TEST(SectionChecks, OneBranchIsForgottenWithItsOwnStepOnly) {
  constexpr const char* kQuestion = "...! ΠΡΟΣΟΧΗ !...";
  SectionUser user;
  user.Open();
  user.user.test.prompter.Expect(kQuestion, Answer::kNo);
  user.Run(user.form->Cmd_End);
  ASSERT_NE(user.form, nullptr) << "without rows it asks too";
  user.user.test.prompter.Expect(kQuestion, Answer::kYes);
  user.Run(user.form->CmdANT);
  user.TypeIn(user.form->Txt2, "6");
  user.form->MoveFocus(&user.form->Txt6);
  user.TypeIn(user.form->Txt6, "2");
  user.Press(Ctrl('Z'));
  user.Next();
  EXPECT_EQ(user.Names(), "ANT/ANT");
  EXPECT_EQ(user.LastScreen(), "show FrmSoma") << "it still holds";

  SectionUser other;
  other.Open();
  other.user.test.prompter.Expect(kQuestion, Answer::kYes);
  other.Run(other.form->CmdANT);
  other.Press(Ctrl('Z'));
  other.TypeIn(other.form->Txt2, "6");
  other.Next();
  EXPECT_EQ(other.Shown(), "2 : 1/2 · 6") << "it was taken back";
}

TEST(SectionChecks, TheOnlyNewRowGoesBackToItsPresets) {
  SectionUser user;
  user.Open();
  user.TypeIn(user.form->Txt2, "6");
  user.form->MoveFocus(&user.form->Txt6);
  user.Run(user.form->Cmd_Del);
  EXPECT_EQ(user.form->draft().Text(0, 0), "ANT");
  EXPECT_EQ(user.Shown(), "1 : ANT/1 · ");
  EXPECT_FALSE(user.form->LblUnsaved.visible);
}

TEST(SectionChecks, TheTeeWindowSaysWhyItTookNothing) {
  SectionUser user(SystemKind::kClosed, kChain);
  user.desk.options.SoundOn = true;
  user.Open();
  user.Next();
  FrmData& form = *user.form;
  user.Run(form.Cmd_Tau);
  user.TypeIn(form.Txt1, "0");
  const int played = user.user.sound.played;
  user.Run(form.Cmd_Tau);
  EXPECT_EQ(form.Txt1.text, "0") << "a second one leaves no field";
  EXPECT_EQ(user.user.sound.played, played);
  TeeCounters& counters = *user.desk.screens.tee_counters;
  EXPECT_FALSE(counters.Press('C'));
  EXPECT_NE(counters.Refusal().find("πεδίο"), std::string::npos);
  user.TypeIn(form.Txt1, "2");
  EXPECT_TRUE(counters.Press('C'));
  PasteInto(form, form.Txt11, "32767");
  EXPECT_FALSE(counters.Press('C'));
  EXPECT_NE(counters.Refusal().find("32.767"), std::string::npos);
}

// The list is that of the file.
TEST(SectionChecks, RowsThatLagComeBeforeTheListOfSections) {
  SectionUser user(SystemKind::kClosed, kChain);
  user.Open();
  user.TypeIn(user.form->Txt2, "3");
  user.Next();
  user.disk.FailAtOperation(1, FailingDisk::Lasting::kFromThenOn);
  user.Press(Ctrl('Z'));
  ASSERT_FALSE(user.DraftSaysRows()) << "the disk took nothing";
  user.Press(KeyCode::kF5);
  user.disk.Mend();
  user.user.navigator.Expect(screen::kGoTo, [&user] {
    EXPECT_TRUE(user.DraftSaysRows());
    user.study().CurrentRow = 4;
    user.desk.questions.section_chosen = true;
  });
  user.Press(KeyCode::kF5);
  EXPECT_EQ(user.Shown(), "4 : 3/ANT · 8");
}

// Lengths of all rows are taken back to what they were while they were typed: nothing.
void TakeLengthsBack(SectionUser& user) {
  user.OpenSheet();
  user.sheet->fpSpread1.SelectBlock({0, 3, 3, 3});
  user.Press(KeyCode::kDelete);
  user.desk.clipboard.SetText("1\n2\n3\n4\n");
  user.sheet->fpSpread1.GoTo({0, 3});
  user.Press(Ctrl('V'));
  user.Press(Shift(KeyCode::kF12));
  user.Press(Ctrl('Z'));
  ASSERT_EQ(user.Shown(), "1 : ANT/1 · ");
}

TEST(SectionChecks, RowsThatWaitBarNoJump) {
  SectionUser user(SystemKind::kClosed, kChain);
  TakeLengthsBack(user);
  user.TypeIn(user.form->Txt2, "5");
  user.user.navigator.Expect(screen::kGoTo, [&user] {
    user.study().CurrentRow = 3;
    user.desk.questions.section_chosen = true;
  });
  user.Press(KeyCode::kF5);
  EXPECT_EQ(user.Shown(), "3 : 2/3 · ");
}

TEST(SectionChecks, ARowThatIsWrongWaitsWithTheRowsThatWait) {
  SectionUser user(SystemKind::kClosed, kChain);
  TakeLengthsBack(user);
  user.TypeIn(user.form->Txt6, "2");
  user.user.test.prompter.Expect(" !!... ΠΡΟΣΟΧΗ ...!! ", Answer::kYes);
  user.Press(KeyCode::kEscape);
  EXPECT_EQ(user.LastScreen(), "show FrmMain");
  EXPECT_EQ(user.user.test.prompter.boxes().size(), 1U) << "one question";
  user.OpenSheet();
  EXPECT_EQ(user.sheet->fpSpread1.At(0, 4).text, "2");
}

TEST(SectionChecks, OneFailureIsToldOnceWhileRowsLag) {
  SectionUser user(SystemKind::kClosed, {"ANT/1 5m 2 bends", "1/2 6m", "2/ANT 7m"});
  user.Open();
  user.TypeIn(user.form->Txt2, "3");
  user.Next();
  user.disk.FailAtOperation(1, FailingDisk::Lasting::kFromThenOn);
  user.Press(Ctrl('Z'));
  const auto& boxes = user.user.test.prompter.boxes();
  for (Command* command : {&user.form->Cmd_End, &user.form->Cmd_Ins, &user.form->Cmd_Next}) {
    const std::size_t before = boxes.size();
    user.Run(*command);
    EXPECT_EQ(boxes.size(), before + 1) << command->name();
  }
  user.form->Focus(user.form->Txt7);
  user.disk.Mend();
  user.TypeIn(user.form->Txt7, "");
  user.form->MoveFocus(&user.form->Txt8);
  EXPECT_EQ(user.form->Txt7.text, "0") << "in the words of the rows";
  user.Press(Ctrl('Z'));
  EXPECT_EQ(user.form->Txt7.text, "2") << "one edit is one step";
  EXPECT_TRUE(user.DraftSaysRows());
  EXPECT_EQ(NamesIn(user.user.test.outer_disk, kStudies / kSafetyFolder).size(), 0U)
      << "nobody else has touched the rows";
}

}  // namespace
}  // namespace kalvo
