#include "entry/section_form/frm_data.h"

#include <gtest/gtest.h>

#include "tests/entry/section_user.h"

namespace kalvo {
namespace {

const std::vector<std::string_view> kRing = {"ANT/1 5m", "1/2 5.5m 300l/h soma 800mm", "2/ANT 5m"};
const std::vector<std::string_view> kPipeTree = {"1/ANT 5m", "2/1 6m 300l/h soma 2000mm",
                                                 "3/1 7m 200l/h soma 2000mm"};

TEST(SectionForm, FromNothingToTheEmitters) {
  SectionUser user;
  user.Open();
  EXPECT_EQ(user.form->title, "ΚΑΤΑΧΩΡΗΣΗ ΔΕΔΟΜΕΝΩΝ ΤΜΗΜΑΤΩΝ ΣΩΛΗΝΩΝ");
  EXPECT_EQ(user.Shown(), "1 : ANT/1 · ");
  user.Type("5.5 - 2");
  user.Next();
  EXPECT_EQ(user.Shown(), "2 : 1/2 · 5,5");
  EXPECT_EQ(user.Numbers(), "5,5|0|2|0|0|0|0|0|0|0|0|0|0");
  EXPECT_EQ(user.form->focus(), &user.form->Txt0);
  user.Next();
  user.Type("- a 4");
  user.Run(user.form->Cmd_End);
  EXPECT_EQ(Joined(user.user.test.Names()), "ANT/1  |  1/2  |  2/ANT");
  EXPECT_EQ(user.LastScreen(), "show FrmSoma");
  EXPECT_TRUE(user.study().unsaved_changes);
  EXPECT_EQ(user.user.test.Bytes(work_file::kFirstRows), "(missing)");
}

TEST(SectionForm, GoesThroughRowsAndStoresWhatChanged) {
  SectionUser user(SystemKind::kOpen, kPipeTree);
  user.study().results_valid = true;
  user.Open();
  EXPECT_EQ(user.form->title, "ΔΙΟΡΘΩΣΗ ΔΕΔΟΜΕΝΩΝ ΤΜΗΜΑΤΩΝ ΣΩΛΗΝΩΝ");
  const std::string before = user.user.test.Bytes();
  user.Next();
  EXPECT_EQ(user.Shown(), "2 : 2/1 · 6");
  EXPECT_EQ(user.user.test.Bytes(), before) << "nothing changed, nothing written";
  EXPECT_TRUE(user.study().results_valid);
  user.TypeIn(user.form->Txt2, "9");
  user.Next();
  EXPECT_EQ(user.user.test.Row(2).Length, 9);
  EXPECT_EQ(user.user.test.Row(2).SomaDrop, 2000);
  EXPECT_FALSE(user.study().results_valid);
  EXPECT_EQ(user.form->focus(), &user.form->Txt2) << "a move keeps the field";
  user.Next();
  EXPECT_EQ(user.Shown(), "3 : 3/1 · 7") << "the last row is the last";
  user.Run(user.form->Cmd_End);
  EXPECT_EQ(user.LastScreen(), "show FrmMain");
}

TEST(SectionForm, NamesAreJudgedWhenTheyAreLeft) {
  SectionUser user(SystemKind::kClosed, kRing);
  user.Open();
  user.Next();
  FrmData& form = *user.form;
  const auto leave = [&](Field& field, std::string_view text) {
    user.TypeIn(field, text);
    form.MoveFocus(&form.Txt2);
    form.Derive();
    return field.text + (form.focus() == &form.Txt2 ? "" : " stays");
  };
  EXPECT_EQ(leave(form.Txt0, "0"), " stays");
  EXPECT_EQ(leave(form.Txt0, "007"), "7");
  EXPECT_EQ(leave(form.Txt1, "7"), " stays") << "as the first";
  EXPECT_EQ(leave(form.Txt1, "0"), " stays");
  EXPECT_EQ(leave(form.Txt1, "NT"), " stays") << "letters of ANT that are not the name";
  EXPECT_EQ(leave(form.Txt1, "12"), "12");
  EXPECT_EQ(leave(form.Txt0, "ab4"), "4");
  form.Focus(form.Txt1);
  user.Press(Typed(U'α'));
  EXPECT_EQ(form.Txt1.text, "ANT");
  EXPECT_EQ(form.focus(), &form.Txt2);
  user.Press(Ctrl(KeyCode::kHome));
  EXPECT_TRUE(form.Txt1.locked);
  EXPECT_EQ(leave(form.Txt0, "5"), "ANT") << "row 1 begins at the source";
}

TEST(SectionForm, ChecksComeInTheirOrderAndKeepWhatWasTyped) {
  SectionUser user(SystemKind::kClosed, kRing);
  user.Open();
  user.Next();
  FrmData& form = *user.form;
  const std::vector<int>& codes = user.user.test.prompter.codes();
  const auto next = [&] {
    const auto before = static_cast<std::ptrdiff_t>(codes.size());
    user.Next();
    return std::vector<int>(codes.begin() + before, codes.end());
  };
  PasteInto(form, form.Txt16, "2,5");
  user.TypeIn(form.Txt7, "1,2,3");
  user.TypeIn(form.Txt2, "0");
  user.TypeIn(form.Txt1, "");
  EXPECT_EQ(next(), (std::vector<int>{110}));
  EXPECT_EQ(form.focus(), &form.Txt7);
  EXPECT_EQ(form.Txt7.text, "1,2,3");
  user.TypeIn(form.Txt7, "1");
  form.Focus(form.Txt2);
  EXPECT_EQ(next(), (std::vector<int>{6}));
  EXPECT_EQ(form.focus(), &form.Txt1);
  EXPECT_EQ(form.Txt1.text, "");
  user.Press(Typed(U'A'));
  EXPECT_EQ(next(), (std::vector<int>{7})) << "the source too has a length";
  EXPECT_EQ(form.focus(), &form.Txt2);
  EXPECT_EQ(user.user.test.Row(2).Length, 5.5F);
  user.TypeIn(form.Txt2, "3");
  EXPECT_EQ(next(), std::vector<int>{});
  EXPECT_EQ(user.user.test.Row(2).OtherDrop_mm, 2.5F) << "a paste brings decimals";
}

TEST(SectionForm, NumbersThatNoRowTakesAreRefused) {
  SectionUser user(SystemKind::kClosed, kRing);
  user.Open();
  FrmData& form = *user.form;
  user.TypeIn(form.Txt8, "32768");
  user.Press(KeyCode::kEnter);
  EXPECT_EQ(user.user.test.prompter.codes(), (std::vector<int>{200}));
  EXPECT_EQ(form.focus(), &form.Txt8);
  EXPECT_EQ(form.Txt8.text, "");
  user.TypeIn(form.Txt8, "32767");
  user.TypeIn(form.Txt16, "2,5");
  EXPECT_EQ(form.Txt16.text, "25") << "digits only";
  user.TypeIn(form.Txt2, "-7x");
  EXPECT_EQ(form.Txt2.text, "7");
  user.TypeIn(form.Txt9, "40000");
  user.Run(form.Cmd_End);
  EXPECT_EQ(form.focus(), &form.Txt9) << "the end looks at the field it leaves";
  EXPECT_TRUE(user.user.navigator.log.empty());
}

// Where Cmd_Next leads on each road, and what is in the file then.
TEST(SectionForm, TheFourRoadsOfNext) {
  struct Road {
    const char* name;
    bool rows;
    bool from_sheet;
    const char* past_the_last;
    const char* focus;
    const char* end;
  };
  constexpr Road kRoads[] = {
      {"plain", false, false, "3 : 2/3 · 5", "Txt0", "show FrmSoma"},
      {"correction", true, false, "2 : 1/ANT · 5", "Txt2", "show FrmMain"},
      {"from a sheet with rows", true, true, "2 : 1/ANT · 5", "Txt2", "show FrmMain"},
      {"from a sheet without", false, true, "3 : 2/3 · 5", "Txt0", "show FrmSoma"},
  };
  for (const Road& road : kRoads) {
    SCOPED_TRACE(road.name);
    SectionUser user(SystemKind::kClosed,
                     road.rows ? std::vector<std::string_view>{"ANT/1 4m", "1/ANT 5m"}
                               : std::vector<std::string_view>{});
    if (road.from_sheet) {
      user.OpenSheet();
      if (!road.rows) {
        for (const char key : {'1', '\n', '4', '\n'}) {
          user.Press(key == '\n' ? Plain(KeyCode::kEnter) : Typed(static_cast<char32_t>(key)));
        }
      }
      user.Press(Shift(KeyCode::kF12));
      ASSERT_NE(user.form, nullptr);
      EXPECT_TRUE(user.desk.screens.edit_mode);
      EXPECT_EQ(user.user.test.Rows().size(), road.rows ? 2U : 1U);
    } else {
      user.Open();
    }
    user.Press(Ctrl(KeyCode::kHome));
    user.TypeIn(user.form->Txt2, "4");
    user.Next();
    user.TypeIn(user.form->Txt2, "5");
    user.Next();
    EXPECT_EQ(user.Shown(), road.past_the_last);
    EXPECT_EQ(user.form->focus()->name(), road.focus);
    EXPECT_EQ(user.form->Cmd_Ins.caption, "Παρεμβολή");
    EXPECT_EQ(user.user.test.Rows().size(), 2U);
    EXPECT_EQ(user.study().unsaved_changes, !road.rows);
    EXPECT_TRUE(user.DraftSaysRows());
    user.Press(KeyCode::kPageUp);
    EXPECT_EQ(user.Shown(), road.rows ? "1 : ANT/1 · 4" : "2 : 1/2 · 5") << "a new row is dropped";
    user.Run(user.form->Cmd_End);
    EXPECT_EQ(user.LastScreen(), road.end);
  }
}

TEST(SectionForm, GoesOnAfterTheLastRow) {
  SectionUser user(SystemKind::kClosed,
                   {"ANT/1 5m", "1/2 5.5m 300l/h soma 800mm", "2/ANT 7m 2 bends"});
  user.study().row = {};  // as a study is opened
  user.desk.screens.entry_goes_on = true;
  user.Open();
  EXPECT_EQ(user.Shown(), "4 : 3/4 · 7");
  EXPECT_EQ(user.Numbers(), "7|0|2|0|0|0|0|0|0|0|0|0|0");
  EXPECT_EQ(user.form->title, "ΚΑΤΑΧΩΡΗΣΗ ΔΕΔΟΜΕΝΩΝ ΤΜΗΜΑΤΩΝ ΣΩΛΗΝΩΝ");
  EXPECT_FALSE(user.form->CmdShift_F12.visible);
  user.Press(KeyCode::kPageUp);
  EXPECT_EQ(user.Shown(), "3 : 2/ANT · 7");
  user.Next();
  user.user.test.prompter.Expect(" !!... ΠΡΟΣΟΧΗ ...!! ", Answer::kCancel);
  user.Run(user.form->Cmd_End);
  EXPECT_NE(user.form, nullptr);
  user.user.test.prompter.Expect(" !!... ΠΡΟΣΟΧΗ ...!! ", Answer::kNo);
  user.Run(user.form->Cmd_End);
  EXPECT_EQ(user.user.test.Rows().size(), 3U);
  EXPECT_EQ(user.LastScreen(), "show FrmSoma");
}

TEST(SectionForm, NoToTheOneBranchLeavesANewRowUntouched) {
  SectionUser user;
  user.Open();
  user.user.test.prompter.Expect("...! ΠΡΟΣΟΧΗ !...", Answer::kNo);
  user.Run(user.form->CmdANT);
  EXPECT_FALSE(user.form->LblUnsaved.visible);
  user.form->Idle(6);
  EXPECT_FALSE(user.user.test.workspace.Exists(work_file::kSheetInWork));
  user.Press(KeyCode::kEscape);
  EXPECT_EQ(user.LastScreen(), "show FrmMain");
  EXPECT_EQ(user.user.test.prompter.boxes().size(), 1U) << "there is nothing to drop";
}

TEST(SectionForm, OneBranchIsAskedForOnce) {
  constexpr const char* kQuestion = "...! ΠΡΟΣΟΧΗ !...";
  SectionUser user;
  user.Open();
  ScriptedPrompter& prompter = user.user.test.prompter;
  prompter.Expect(kQuestion, Answer::kNo);
  user.Run(user.form->CmdANT);
  EXPECT_EQ(user.form->Txt1.text, "1");
  prompter.Expect(kQuestion, Answer::kYes);
  user.Run(user.form->CmdANT);
  EXPECT_EQ(user.form->Txt1.text, "ANT");
  user.Type("6");
  user.Next();
  EXPECT_EQ(Joined(user.user.test.Names()), "ANT/ANT");
  EXPECT_EQ(user.LastScreen(), "show FrmSoma");

  SectionUser other;
  other.Open();
  other.Type("6");
  other.user.test.prompter.Expect(kQuestion, Answer::kNo);
  other.Run(other.form->Cmd_End);
  EXPECT_EQ(other.form->Txt1.text, "1");
  EXPECT_TRUE(other.user.test.Rows().empty()) << "the checks come before the writing";
  other.user.test.prompter.Expect(kQuestion, Answer::kYes);
  other.Run(other.form->Cmd_End);
  EXPECT_EQ(Joined(other.user.test.Names()), "ANT/ANT");
}

TEST(SectionForm, SameAsCopiesTheNumbersOfARow) {
  SectionUser user(SystemKind::kClosed, {"ANT/1 5m 2 bends", "1/2 6m", "2/ANT 7m"});
  user.Open();
  user.Run(user.form->Cmd_Same);
  EXPECT_FALSE(user.form->CboSame.visible) << "not on row 1";
  user.Next();
  user.Run(user.form->Cmd_Same);
  EXPECT_EQ(user.form->CboSame.selected, 2);
  EXPECT_FALSE(user.form->Cmd_Same.enabled);
  user.Press(KeyCode::kHome);
  user.Press(KeyCode::kEnter);
  EXPECT_EQ(user.Shown(), "2 : 1/2 · 5");
  EXPECT_EQ(user.form->Txt7.text, "2");
  EXPECT_TRUE(user.form->Cmd_Same.enabled);
  user.Next();
  EXPECT_EQ(user.user.test.Row(2).Elbow90, 2);
  EXPECT_EQ(user.user.test.Row(2).SectionNo, 2);
  user.Press(Ctrl('Z'));
  EXPECT_EQ(user.user.test.Row(2).Length, 6);
  EXPECT_EQ(user.Shown(), "2 : 1/2 · 6");
}

TEST(SectionForm, TeesByKeyAndByWindow) {
  SectionUser user(SystemKind::kClosed, kRing);
  user.desk.options.SoundOn = true;
  user.Open();
  FrmData& form = *user.form;
  user.Press(ShiftTyped(U'C'));
  EXPECT_EQ(form.Txt11.text, "1");
  EXPECT_EQ(form.focus(), &form.Txt15);
  PasteInto(form, form.Txt14, "");
  user.Press(ShiftTyped(U'D'));
  EXPECT_EQ(form.Txt14.text, "0") << "the form's D writes what is there";
  user.Press(ShiftTyped(U'R'));
  EXPECT_EQ(form.Txt12.text, "2");
  user.Run(form.Cmd_Tau);
  EXPECT_EQ(user.LastScreen(), "show FrmTauCross");
  EXPECT_FALSE(form.TxtProgram.visible);
  TeeCounters* counters = user.desk.screens.tee_counters;
  ASSERT_NE(counters, nullptr);
  counters->Shown();
  EXPECT_TRUE(form.TxtProgram.visible);
  const std::size_t shown = user.user.navigator.log.size();
  user.Run(form.Cmd_Tau);
  EXPECT_EQ(user.user.navigator.log.size(), shown) << "it is open";
  form.Focus(form.Txt2);
  EXPECT_TRUE(counters->Press('B'));
  EXPECT_EQ(form.focus(), &form.Txt15) << "a case without a counter too";
  EXPECT_TRUE(counters->Press('E'));
  EXPECT_EQ(form.Txt14.text, "1");
  PasteInto(form, form.Txt14, "32767");
  form.MoveFocus(&form.Txt15);
  EXPECT_FALSE(counters->Press('E')) << "the counter is full";
  EXPECT_EQ(form.Txt14.text, "32767");
  user.Run(form.CmdNoTau);
  EXPECT_EQ(Joined({form.Txt11.text, form.Txt12.text, form.Txt13.text, form.Txt14.text}),
            "0|0|0|0");
  user.Next();
  EXPECT_EQ(user.user.test.Row(1).DiaTee, 0);
  EXPECT_EQ(user.Shown(), "2 : 1/2 · 5,5");
}

TEST(SectionForm, GoToChecksStoresAndJumps) {
  SectionUser user(SystemKind::kClosed, kRing);
  user.Open();
  const auto choose = [&](int number) {
    user.user.navigator.Expect(screen::kGoTo, [&user, number] {
      user.study().CurrentRow = static_cast<std::int16_t>(number);
      user.desk.questions.section_chosen = true;
    });
    user.Press(KeyCode::kF5);
  };
  user.TypeIn(user.form->Txt2, "8");
  choose(3);
  EXPECT_EQ(user.Shown(), "3 : 2/ANT · 5");
  EXPECT_EQ(user.user.test.Row(1).Length, 8);
  user.TypeIn(user.form->Txt2, "0");
  user.Press(KeyCode::kF5);
  EXPECT_EQ(user.user.test.prompter.codes().back(), 7) << "no list over a row that is wrong";
}

}  // namespace
}  // namespace kalvo
