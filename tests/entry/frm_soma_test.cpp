#include "entry/emitters/frm_soma.h"

#include <gtest/gtest.h>

#include "entry/emitters/emitter_forms.h"
#include "tests/support/test_desk.h"

namespace kalvo {
namespace {

const Key kNextByKeys = Ctrl(KeyCode::kEnd);
constexpr const char* kTwoWays = "...! Π Ρ Ο Σ Ο Χ Η !...";

// Five sections, those of 2 and 3 with an emitter.
struct EmitterForm : TestDesk, ::testing::Test {
  EmitterForm() {
    Put({"ANT/1 10m", "1/2 5m soma 300 l/h 500mm", "1/3 5m soma 200 l/h 400mm", "2/ANT 6m",
         "3/2 2m"});
  }
  void Put(const std::vector<std::string_view>& lines) {
    test.PutNetwork(lines);
    test.study.results_valid = true;
  }
  void Open() {
    desk.screens.edit_mode = true;
    form.Load();
    form.Derive();
  }
  void OpenNew() {
    Put({"ANT/1 10m", "1/2 5m", "1/3 5m", "2/ANT 6m", "3/2 2m"});
    form.Load();
    form.Derive();
  }
  void TypeRecord(std::string_view section, std::string_view flow, std::string_view drop) {
    TypeInto(form, form.Text1, section);
    TypeInto(form, form.Text3, flow);
    TypeInto(form, form.Text4, drop);
  }
  [[nodiscard]] std::string Fields() const {
    return Joined({form.Text1.text, form.Text2.text, form.Text3.text, form.Text4.text});
  }
  [[nodiscard]] std::string Line(int row) const {
    std::vector<std::string> cells;
    for (int column = 0; column < form.LstSoma.column_count(); ++column) {
      cells.push_back(form.LstSoma.At(row, column).text);
    }
    return Joined(cells);
  }
  [[nodiscard]] std::vector<int> Sections() const {
    std::vector<int> sections;
    for (const SectionRow& record : test.Rows(work_file::kEmitters)) {
      sections.push_back(record.RecordNumber);
    }
    return sections;
  }
  [[nodiscard]] bool HasEnded() const {
    return !navigator.log.empty() && navigator.log.back() == "close FrmSoma";
  }
  FrmSoma form{desk};
};

TEST_F(EmitterForm, BeginsEmptyWithoutAList) {
  OpenNew();
  EXPECT_EQ(Fields(), "");
  EXPECT_EQ(form.LblCurrent.text, "Σώμα 1");
  EXPECT_EQ(form.LblTotal.text, "0");
  EXPECT_TRUE(form.LblEmpty.visible);
  EXPECT_EQ(form.TxtHelp.text,
            "... Δώσε τον α/α του Τμήματος, που περιλαμβάνει Εναλλάκτη (Σώμα) ...");
}

TEST_F(EmitterForm, TakesEmittersKeyByKey) {
  OpenNew();
  TypeInto(form, form.Text1, "-2,α");
  EXPECT_EQ(form.Text1.text, "2") << "digits only";
  EXPECT_EQ(form.Text2.text, "1/2");
  form.Press(Plain(KeyCode::kEnter));
  EXPECT_EQ(form.focus(), &form.Text3);
  form.Derive();
  EXPECT_EQ(form.TxtHelp.text,
            "... Δώσε την Παροχή του Υγρού στον συγκεκριμένο Εναλλάκτη (Σώμα) ...");
  TypeInto(form, form.Text3, "1200.5");
  form.Press(Plain(KeyCode::kEnter));
  EXPECT_EQ(form.focus(), &form.Text4);
  TypeInto(form, form.Text4, "0");
  form.Press(kNextByKeys);
  EXPECT_EQ(form.focus(), &form.Text4) << "in silence";
  EXPECT_EQ(form.LstSoma.row_count(), 0);
  TypeInto(form, form.Text4, "1620");
  form.Press(kNextByKeys);
  EXPECT_EQ(Line(0), "α/α : 2|Ονομασία : 1/2|Παροχή : 1.200,5|Πτώση Πίεσης : 1.620,0");
  EXPECT_EQ(Fields(), "");
  form.Derive();
  EXPECT_EQ(form.LblCurrent.text, "Σώμα 2");
  EXPECT_EQ(form.LblFlow.text, "1,20");
  EXPECT_FALSE(form.LblEmpty.visible);
  EXPECT_EQ(form.focus(), &form.Text1);
  EXPECT_TRUE(test.prompter.codes().empty());
}

TEST_F(EmitterForm, KeysOfTheNextOneActOnWholeRecordsOnly) {
  OpenNew();
  TypeInto(form, form.Text1, "2");
  TypeInto(form, form.Text3, "300");
  form.Press(kNextByKeys);
  EXPECT_EQ(form.focus(), &form.Text3);
  EXPECT_TRUE(Sections().empty());
}

TEST_F(EmitterForm, LeavesTheSectionWithANumberThatIsThereOnly) {
  OpenNew();
  EXPECT_FALSE(form.MoveFocus(&form.Text3));
  EXPECT_TRUE(test.prompter.codes().empty()) << "a zero is refused in silence";
  for (const char* number : {"6", "999999999999999"}) {
    TypeInto(form, form.Text1, number);
    EXPECT_FALSE(form.MoveFocus(&form.Text3));
    EXPECT_EQ(form.Text1.text, "");
    EXPECT_TRUE(form.Text1.refused);
  }
  EXPECT_EQ(test.prompter.codes(), (std::vector{400, 400}));
  TypeInto(form, form.Text1, "5");
  EXPECT_TRUE(form.MoveFocus(&form.Text3));
}

TEST_F(EmitterForm, RefusesASectionTwice) {
  Open();
  TypeInto(form, form.Text1, "3");
  Click(form, form.SSCmdNext);
  EXPECT_EQ(test.prompter.codes(), std::vector{150});
  EXPECT_EQ(Sections(), (std::vector{2, 3}));
  EXPECT_EQ(form.focus(), &form.Text1);
  TypeInto(form, form.Text1, "2");
  Click(form, form.SSCmdNext);
  EXPECT_EQ(test.prompter.codes().size(), 1U) << "its own";
  EXPECT_EQ(Fields(), "3|1/3|200|400");
}

TEST_F(EmitterForm, GoesThroughItsListAndEndsAsItBegan) {
  Open();
  EXPECT_EQ(form.LstSoma.row_count(), 2);
  EXPECT_EQ(Fields(), "2|1/2|300|500");
  const std::string rows = test.Bytes();
  form.Press(kNextByKeys);
  EXPECT_EQ(Fields(), "3|1/3|200|400");
  EXPECT_EQ(form.LstSoma.current().row, 1);
  form.Press(kNextByKeys);
  EXPECT_EQ(Fields(), "") << "a new one";
  Click(form, form.SSCmdBack);
  EXPECT_TRUE(HasEnded());
  EXPECT_EQ(test.Bytes(), rows);
  EXPECT_FALSE(test.workspace.Exists(work_file::kEmittersInWork));
  EXPECT_TRUE(test.study.results_valid);
  EXPECT_FALSE(test.study.unsaved_changes);
}

TEST_F(EmitterForm, ItsEndStoresTheRecordInHandAndReturnsToTheMenu) {
  Open();
  navigator.Show(screen::kSheet);
  TypeInto(form, form.Text3, "350");
  navigator.log.clear();
  Click(form, form.SSCmdBack);
  EXPECT_EQ(test.Row(2).WaterFlow, 350.0F);
  EXPECT_EQ(Joined(navigator.log), "show FrmMain|close FrmData_Sheet|close FrmSoma");
  EXPECT_EQ(Joined(navigator.waits), " ... Παρακαλώ, Περιμένετε ... |-");
  EXPECT_EQ(test.study.TotalFlowM3h, 0.55F);
  EXPECT_TRUE(test.study.unsaved_changes);
  EXPECT_FALSE(test.study.results_valid || desk.screens.edit_mode);
}

TEST_F(EmitterForm, ItsEndLeadsToTheSheetThatEntryIsOnItsWayBackTo) {
  Open();
  desk.screens.back_to_sheet = true;
  for (const std::string_view screen : {screen::kFormTees, screen::kSections}) {
    navigator.Show(screen);
  }
  navigator.log.clear();
  Click(form, form.SSCmdBack);
  EXPECT_EQ(Joined(navigator.log),
            "show FrmData_Sheet|close FrmTauCross|close FrmData|close FrmSoma");
  EXPECT_TRUE(desk.screens.edit_mode);
}

TEST_F(EmitterForm, RefusesToEndOnAnUnfinishedRecord) {
  Open();
  TypeInto(form, form.Text4, "");
  Click(form, form.SSCmdBack);
  EXPECT_EQ(form.focus(), &form.Text4);
  TypeInto(form, form.Text4, "1,2,3");
  Click(form, form.SSCmdBack);
  EXPECT_EQ(form.focus(), &form.Text4);
  EXPECT_EQ(test.prompter.codes(), std::vector{110});
  TypeInto(form, form.Text4, "400");
  TypeInto(form, form.Text1, "");
  Click(form, form.SSCmdBack);
  EXPECT_EQ(form.focus(), &form.Text1);
  EXPECT_EQ(form.Text2.text, "");
  TypeInto(form, form.Text1, "9");
  Click(form, form.SSCmdBack);
  EXPECT_EQ(test.prompter.codes(), (std::vector{110, 400}));
  EXPECT_TRUE(navigator.log.empty());
}

TEST_F(EmitterForm, SaysWhereACircuitIsLost) {
  Put({"ANT/1 10m", "1/2 5m soma 300 l/h 500mm", "9/ANT 6m"});
  Open();
  Click(form, form.SSCmdBack);
  EXPECT_EQ(test.prompter.codes(), std::vector{2004});
  EXPECT_EQ(test.study.lost_walk->node, "2");
  EXPECT_TRUE(HasEnded());
}

TEST_F(EmitterForm, ALoneSectionIsNotWalked) {
  Put({"ANT/ANT 10m soma 300 l/h 500mm"});
  Open();
  Click(form, form.SSCmdBack);
  EXPECT_TRUE(test.study.SingleSection);
  EXPECT_TRUE(test.prompter.codes().empty());
}

TEST_F(EmitterForm, EscapeAndTheBoxAskOnlyWhereAValueIsMissing) {
  Open();
  TypeInto(form, form.Text3, "");
  test.prompter.Expect(kTwoWays, Answer::kNo);
  form.Press(Plain(KeyCode::kEscape));
  EXPECT_EQ(form.focus(), &form.Text3);
  test.prompter.Expect(kTwoWays, Answer::kYes);
  EXPECT_FALSE(form.MayClose());
  EXPECT_TRUE(HasEnded()) << "it closes itself";
  EXPECT_EQ(test.prompter.codes(), std::vector{2003});
  EXPECT_TRUE(test.study.emitters_unchecked && test.study.results_valid);

  navigator.log.clear();
  FrmSoma again(desk);
  again.Load();
  again.Press(Plain(KeyCode::kEscape));
  EXPECT_TRUE(HasEnded());
  EXPECT_FALSE(test.study.emitters_unchecked);
}

TEST_F(EmitterForm, LeavesAtOnceWithAWholeRecordStored) {
  Open();
  TypeInto(form, form.Text3, "350");
  form.Press(kAltShift);
  EXPECT_EQ(test.prompter.codes(), std::vector{2003});
  EXPECT_EQ(test.Rows(work_file::kEmitters).at(0).WaterFlow, 350.0F);
  EXPECT_EQ(test.Row(2).WaterFlow, 300.0F) << "the rows do not know it";
  EXPECT_TRUE(test.study.emitters_unchecked && test.study.unsaved_changes);
  EXPECT_FALSE(test.study.results_valid);
  EXPECT_TRUE(HasEnded());
  for (const char* bad : {"", "99", "3"}) {
    FrmSoma again(desk);
    again.Load();
    TypeInto(again, again.Text1, bad);
    again.Press(kAltShift);
    EXPECT_EQ(Sections(), (std::vector{2, 3})) << bad;
  }
}

TEST_F(EmitterForm, CorrectsTheLineThatIsChosen) {
  Open();
  TypeInto(form, form.Text3, "350");
  form.Press(Plain(KeyCode::kF6));
  EXPECT_EQ(form.focus(), &form.LstSoma);
  form.LstSoma.MoveTo({1, 0});
  form.Press(Plain(KeyCode::kEnter));
  EXPECT_EQ(Fields(), "3|1/3|200|400");
  EXPECT_EQ(Line(0), "α/α : 2|Ονομασία : 1/2|Παροχή : 350,0|Πτώση Πίεσης : 500,0");
  TypeInto(form, form.Text1, "5");
  TypeInto(form, form.Text4, "0");
  form.LstSoma.MoveTo({0, 0});
  form.LstSoma.on_activate();
  EXPECT_EQ(form.focus(), &form.Text4) << "the record in hand is not whole";
  EXPECT_EQ(form.Text1.text, "5");
}

TEST_F(EmitterForm, RemovesTheRecordInHandAfterAQuestion) {
  Open();
  const Key remove = Ctrl(KeyCode::kDelete);
  test.prompter.Expect(kTwoWays, Answer::kNo);
  form.Press(remove);
  EXPECT_EQ(Sections(), (std::vector{2, 3}));
  for (int times = 0; times < 2; ++times) {
    test.prompter.Expect(kTwoWays, Answer::kYes);
    form.Press(remove);
  }
  EXPECT_TRUE(Sections().empty());
  form.Press(remove);  // nothing is left to be asked about
  Click(form, form.SSCmdBack);
  EXPECT_EQ(test.Row(2).SomaDrop, 0.0F);
  EXPECT_EQ(test.study.EmitterCount, 0);
  EXPECT_TRUE(test.prompter.codes().empty());
  EXPECT_TRUE(HasEnded());
}

TEST_F(EmitterForm, AnEmitterWhoseSectionIsGoneMustBeSettled) {
  auto records = test.Rows(work_file::kEmitters);
  records[1].RecordNumber = 0;
  ASSERT_TRUE(test.workspace.Rows(work_file::kEmitters).WriteAll(records).ok());
  Open();
  EXPECT_EQ(Line(1), "α/α : διαγράφηκε|Ονομασία : 1/3|Παροχή : 200,0|Πτώση Πίεσης : 400,0");
  EXPECT_EQ(form.LstSoma.At(1, 1).tone, Tone::kAlarm);
  Click(form, form.SSCmdBack);
  ASSERT_EQ(test.prompter.boxes().size(), 1U);
  EXPECT_NE(test.prompter.boxes()[0].lines[0].find("1/3"), std::string::npos);
  EXPECT_EQ(Fields(), "1/3|200|400");
  form.Derive();
  EXPECT_EQ(form.TxtHelp.tone, Tone::kAlarm);
  Click(form, form.SSCmdBack);
  EXPECT_EQ(test.prompter.boxes().size(), 2U);
  test.prompter.Expect(kTwoWays, Answer::kNo);
  form.Press(Plain(KeyCode::kEscape));
  EXPECT_TRUE(navigator.log.empty());
  TypeInto(form, form.Text1, "5");
  EXPECT_EQ(form.Text2.text, "3/2");
  Click(form, form.SSCmdBack);
  EXPECT_TRUE(HasEnded());
  EXPECT_EQ(test.Row(5).SomaDrop, 400.0F);
  EXPECT_EQ(test.Row(3).SomaDrop, 0.0F);
}

TEST_F(EmitterForm, AnUntouchedEmitterWithoutASectionBarsNothing) {
  auto records = test.Rows(work_file::kEmitters);
  records[0].RecordNumber = 0;
  ASSERT_TRUE(test.workspace.Rows(work_file::kEmitters).WriteAll(records).ok());
  Open();
  form.LstSoma.MoveTo({1, 0});
  form.LstSoma.on_activate();
  EXPECT_EQ(Fields(), "3|1/3|200|400");
  form.LstSoma.MoveTo({0, 0});
  form.LstSoma.on_activate();
  TypeInto(form, form.Text4, "450");
  form.LstSoma.MoveTo({1, 0});
  form.LstSoma.on_activate();
  EXPECT_EQ(Fields(), "1/2|300|450") << "what was typed is not given up";
}

TEST_F(EmitterForm, ABlockPastedIntoTheSectionGoesIntoTheList) {
  OpenNew();
  desk.clipboard.SetText("2");
  EXPECT_FALSE(form.Press(Ctrl('V'))) << "the field's own";
  desk.clipboard.SetText("2\t300\t500\n3\t200\t400\n");
  EXPECT_TRUE(form.Press(Ctrl('V')));
  EXPECT_EQ(Sections(), (std::vector{2, 3}));
}

TEST_F(EmitterForm, FillsFromMemoryInEditModeOnly) {
  Open();
  TypeInto(form, form.Text3, "1");
  form.Press(Plain(KeyCode::kF12));
  EXPECT_EQ(Fields(), "2|1/2|1|500") << "memory is empty";
  desk.screens.emitter_memory = {520.5F, kNoMemory};
  form.MoveFocus(&form.Text1);
  form.Press(Plain(KeyCode::kInsert));
  EXPECT_EQ(Fields(), "2|1/2|520,5|500");
  EXPECT_EQ(form.focus(), &form.Text4);
  form.Derive();
  EXPECT_TRUE(form.LblFill.visible);
  EXPECT_EQ(form.LblMemoryFlow.text, "520,5 Lit/h");
  EXPECT_EQ(form.LblMemoryDrop.text, "— mm w.g.");
  desk.screens.edit_mode = false;
  desk.screens.emitter_memory = {1, 2};
  form.Press(Plain(KeyCode::kF12));
  EXPECT_EQ(Fields(), "2|1/2|520,5|500");
}

TEST_F(EmitterForm, HelpAndMemoryLeaveTheSectionFreely) {
  OpenNew();
  form.Press(Plain(KeyCode::kF1));
  ASSERT_EQ(test.prompter.boxes().size(), 1U);
  EXPECT_EQ(test.prompter.boxes()[0].title, " ... Βοήθεια Πληκτρολογήσεων ...");
  EXPECT_EQ(test.prompter.boxes()[0].beeps, 2);
  navigator.Expect(screen::kMemoryValues, [this] { desk.screens.emitter_memory[0] = 5; });
  form.Press(kAltCtrl);
  EXPECT_EQ(form.focus(), &form.Text1);
}

TEST_F(EmitterForm, TakesAPastedBlock) {
  OpenNew();
  desk.clipboard.SetText(
      "α/α\tΠαροχή\tΠτώση\r\n2\t1.200,5\t1620\r\n\r\n3\t200\t400\r\n9\t1\t1\r\n"
      "2\t1\t1\r\n5\t-3\t4\r\n4\t0\t5\r\n4\t7\r\n4\t7\t8\t9\r\n");
  Click(form, form.CmdPaste);
  EXPECT_EQ(Sections(), (std::vector{2, 3}));
  EXPECT_EQ(form.LstSoma.At(0, 2).text, "Παροχή : 1.200,5");
  ASSERT_EQ(test.prompter.boxes().size(), 1U);
  const std::vector<std::string>& told = test.prompter.boxes()[0].lines;
  ASSERT_EQ(told.size(), 8U);
  EXPECT_EQ(told[0], "... Μπήκαν στη λίστα 2 Σώματα ...");
  EXPECT_EQ(told[2], "Γραμμή 5 : ΔΕΝ υπάρχει Τμήμα με α/α 9");
  EXPECT_EQ(told[3], "Γραμμή 6 : ο α/α 2 είναι - ΗΔΗ - καταχωρημένος");
  form.Derive();
  EXPECT_EQ(form.LblCurrent.text, "Σώμα 3");
}

TEST_F(EmitterForm, AsksOnceHowPastedNumbersAreMeant) {
  OpenNew();
  desk.clipboard.SetText("2\t1.200\t500\n3\t1.300\t1.500\n");
  for (const auto& [answer, flow] :
       {std::pair{Answer::kCancel, 0.0F}, {Answer::kNo, 1.2F}, {Answer::kYes, 1200.0F}}) {
    ASSERT_TRUE(test.workspace.Rows(work_file::kEmitters).WriteAll({}).ok());
    form.Load();
    form.Focus(form.LstSoma);
    test.prompter.Expect(" Επικόλληση Σωμάτων ", answer);
    form.Press(Ctrl('V'));
    const auto records = test.Rows(work_file::kEmitters);
    EXPECT_EQ(records.empty() ? 0.0F : records[0].WaterFlow, flow);
  }
  desk.clipboard.SetText("");
  Click(form, form.CmdPaste);
  EXPECT_EQ(test.prompter.boxes().back().lines[1], "... ΔΕΝ έχει αντιγραφεί κείμενο ...");
}

TEST_F(EmitterForm, TellsOfFilesThatFailAndStays) {
  Open();
  ASSERT_TRUE(test.workspace.Write(work_file::kRows, "odd").ok());
  Click(form, form.SSCmdBack);
  ASSERT_EQ(test.prompter.boxes().size(), 1U);
  EXPECT_NE(test.prompter.boxes()[0].lines[0].find(work_file::kRows), std::string::npos);
  EXPECT_TRUE(navigator.log.empty());
  EXPECT_EQ(test.Bytes(), "odd");
}

TEST_F(EmitterForm, SoundsOnlyOnceNothingIsMissing) {
  desk.options.SoundOn = true;
  OpenNew();
  Click(form, form.SSCmdNext);
  EXPECT_EQ(sound.played, 0);
  TypeRecord("2", "300", "500");
  Click(form, form.SSCmdNext);
  EXPECT_EQ(sound.played, 1);
}

}  // namespace
}  // namespace kalvo
