#include "entry/winter/frm_winter.h"

#include <gtest/gtest.h>

#include <cmath>

#include "engine/lost_walk.h"
#include "study/message_codes.h"
#include "tests/entry/winter_user.h"

namespace kalvo {
namespace {

constexpr const char* kAttentionTitle = "  !!  ΠΡΟΣΟΧΗ  !! ";
constexpr GridPlace kFirstFlow{0, 5};

TEST(WinterForm, TypesRunsTellsThePumpAndLeavesSummerAsItWas) {
  WinterUser winter;
  const std::string summer = winter.test().Bytes();
  EXPECT_EQ(winter.form->TxtMeanT.text, "70");
  EXPECT_EQ(winter.Cells(), "5,0 - - | 5,0 - -");
  EXPECT_EQ(winter.form->LblGrid.text,
            "Καθορισμός Παροχών Νερού και Πτώσεων Πίεσης Σωμάτων, για τον Χειμώνα (1 / 6)");
  EXPECT_FALSE(winter.form->LblPump.visible);
  EXPECT_EQ(winter.form->LblFlowSummer.text, "0,50");

  winter.TypeValues();
  EXPECT_EQ(winter.Cells(), "5,0 250,0 210,5 | 5,0 150,0 160,0");
  winter.Press(Ctrl(KeyCode::kEnter));
  const Box box = winter.test().prompter.boxes().back();
  EXPECT_EQ(box.title, "... ΧΑΡΑΚΤΗΡΙΣΤΙΚΑ ΑΝΤΛΙΑΣ ΧΕΙΜΩΝΑ ...");
  EXPECT_EQ(box.lines[0], "Παροχή Νερού..................0,4  [m3/h]");
  const SectionRow first = winter.test().Rows(work_file::kWinter)[0];
  EXPECT_EQ(winter.form->LblPump.text,
            "Παροχή Κυκλοφορητή : 0,40 [m³/h] ...... Μανομετρικό Ύψος Κυκλοφορητή : " +
                FormatPattern(first.DP / 1000.0, pattern::kTwoDecimals, {',', '.'}) + " [m w.g.]");
  EXPECT_TRUE(winter.form->LblPump.visible);
  EXPECT_EQ(winter.form->LblFlowSummer.text, "0,50 →");
  EXPECT_EQ(winter.form->LblFlowWinter.text, "0,40");
  EXPECT_EQ(winter.form->LblRatio.text, "80 % στο σύνολο · περίγραμμα: θέρος");
  EXPECT_EQ(winter.test().Rows(work_file::kWinter)[1].WaterFlow, 250.0F);

  winter.Close(Answer::kYes);
  EXPECT_EQ(winter.user.navigator.log,
            (std::vector<std::string>{"show FrmMain", "close FrmWinter"}));
  EXPECT_EQ(winter.test().Bytes(), summer);
  EXPECT_TRUE(winter.test().study.unsaved_changes);
  EXPECT_EQ(winter.test().Rows(work_file::kWinter)[0].DP, first.DP) << "with its results";
  EXPECT_FALSE(winter.test().workspace.Exists(work_file::kSummerRows));
  EXPECT_FALSE(winter.IsKept());
}

TEST(WinterForm, IsMovedInAndEditedByKeys) {
  WinterUser winter;
  winter.TypeValues();
  EXPECT_EQ(winter.Current(), (GridPlace{1, 6})) << "the last cell is the end";
  winter.GoTo(1, 5);
  winter.Press(KeyCode::kEnter);
  EXPECT_EQ(winter.Current(), (GridPlace{0, 6}));
  winter.Press(Shift(KeyCode::kEnter));
  EXPECT_EQ(winter.Current(), (GridPlace{1, 5}));
  winter.Press(KeyCode::kTab);
  EXPECT_EQ(winter.Current(), (GridPlace{1, 6}));
  winter.Press(Shift(KeyCode::kTab));
  winter.Press(Shift(KeyCode::kTab));
  EXPECT_EQ(winter.Current(), (GridPlace{1, 4})) << "the length is free";
  winter.Press(Shift(KeyCode::kTab));
  EXPECT_EQ(winter.Current(), (GridPlace{0, 6})) << "what is only shown is passed over";

  winter.Press(KeyCode::kF2);
  EXPECT_EQ(winter.form->fpSpread1.editor.text, "210,5");
  EXPECT_TRUE(winter.form->fpSpread1.editor.whole_selected);
  winter.Type("9x.25");
  winter.Press(KeyCode::kEscape);
  EXPECT_EQ(winter.Cells(), "5,0 250,0 210,5 | 5,0 150,0 160,0");
  winter.Type("9x.25");
  winter.Press(KeyCode::kEnter);
  EXPECT_EQ(winter.form->fpSpread1.At(0, 6).text, "9,25");
  winter.GoTo(0, 2);
  winter.Type("7");
  winter.Press(KeyCode::kF2);
  EXPECT_FALSE(winter.form->fpSpread1.editing());
}

TEST(WinterForm, F5ToF10TakeTheValueOfTheCellAbove) {
  WinterUser winter;
  winter.TypeValues();
  KeyCode key = KeyCode::kF5;
  for (const auto& [column, cells] : std::vector<std::pair<int, std::string>>{
           {5, "5,0 250,0 210,5 | 5,0 250,0 160,0"}, {6, "5,0 250,0 210,5 | 5,0 250,0 210,5"}}) {
    winter.GoTo(1, column);
    winter.Type("9");  // an open cell is accepted first
    winter.Press(key);
    EXPECT_EQ(winter.Cells(), cells);
    key = KeyCode::kF10;
  }
  EXPECT_EQ(winter.user.sound.beeps, 0);
  for (const GridPlace nothing : {GridPlace{0, 5}, GridPlace{1, 3}}) {
    winter.GoTo(nothing.row, nothing.column);
    winter.Press(KeyCode::kF7);
  }
  EXPECT_EQ(winter.user.sound.beeps, 2);
}

TEST(WinterForm, StopsAtTheFirstValueThatIsNothingWithTheFocusThere) {
  WinterUser winter;
  winter.GoTo(0, 4);
  winter.Type("0");
  winter.Press(KeyCode::kEnter);
  const std::vector<std::pair<GridPlace, std::string>> order = {
      {{0, 4}, "... Το Μήκος του Τμήματος Σωλήνος, ΔΕΝ μπορεί να είναι μηδενικό ..."},
      {{0, 5}, "... Η Παροχή του Νερού στο Σώμα, ΔΕΝ μπορεί να είναι μηδενική ..."},
      {{0, 6}, "... Η Πτώση Πίεσης στο Σώμα, ΔΕΝ μπορεί να είναι μηδενική ..."},
      {{1, 5}, "... Η Παροχή του Νερού στο Σώμα, ΔΕΝ μπορεί να είναι μηδενική ..."},
      {{1, 6}, "... Η Πτώση Πίεσης στο Σώμα, ΔΕΝ μπορεί να είναι μηδενική ..."}};
  for (const auto& [place, text] : order) {
    winter.GoTo(1, 4);
    winter.Press(Ctrl(KeyCode::kEnter));
    EXPECT_EQ(winter.test().prompter.boxes().back().title, kAttentionTitle);
    EXPECT_EQ(winter.Box(), "ΠΡΟΣΟΧΗ : Παρατήρηση για το Τμήμα, με α/α < " +
                                std::to_string(place.row + 2) + " > ...|" + text);
    EXPECT_EQ(winter.Current(), place);
    EXPECT_EQ(winter.form->focus(), &winter.form->fpSpread1);
    EXPECT_TRUE(winter.form->fpSpread1.At(place.row, place.column).refused);
    winter.Type("9");
    winter.Press(KeyCode::kEnter);
    EXPECT_FALSE(winter.form->fpSpread1.At(place.row, place.column).refused);
  }
  EXPECT_FALSE(winter.test().workspace.Exists(work_file::kWinter)) << "nothing was calculated";
  winter.Press(Ctrl(KeyCode::kEnter));
  EXPECT_TRUE(winter.form->LblPump.visible);
}

TEST(WinterForm, AsksAboutAFlowThatIsNotBelowSummersOnceARun) {
  WinterUser winter;
  winter.TypeValues();
  winter.GoTo(0, 5);
  winter.Type("300");
  winter.Press(KeyCode::kEnter);
  winter.Type("200,5");
  ScriptedPrompter& user = winter.test().prompter;
  user.Expect(kAttentionTitle, Answer::kYes);
  user.Expect(kAttentionTitle, Answer::kNo);
  winter.Press(Ctrl(KeyCode::kEnter));
  const auto& boxes = user.boxes();
  ASSERT_EQ(boxes.size(), 2U);
  EXPECT_NE(boxes[0].lines[1].find("ίση"), std::string::npos);
  EXPECT_NE(boxes[1].lines[1].find("μεγαλύτερη"), std::string::npos);
  EXPECT_EQ(winter.Current(), (GridPlace{1, 5}));
  EXPECT_TRUE(winter.form->fpSpread1.At(1, 5).refused);
  EXPECT_FALSE(winter.form->LblPump.visible);
  for (int run = 0; run < 2; ++run) {
    user.Expect(kAttentionTitle, Answer::kYes);
    user.Expect(kAttentionTitle, Answer::kYes);
    winter.Press(Ctrl(KeyCode::kEnter));
    EXPECT_TRUE(winter.form->LblPump.visible);
  }
}

TEST(WinterForm, TakesTemperaturesFrom30To100) {
  WinterUser winter;
  winter.TypeValues();
  for (const char* refused : {"29,9", "100,1", ""}) {
    TypeInto(*winter.form, winter.form->TxtMeanT, refused);
    winter.Press(Ctrl(KeyCode::kEnter));
    EXPECT_EQ(winter.test().prompter.codes().back(), 405);
    EXPECT_EQ(winter.form->focus(), &winter.form->TxtMeanT);
    EXPECT_TRUE(winter.form->TxtMeanT.refused);
    EXPECT_FALSE(winter.form->LblPump.visible);
  }
  for (const char* taken : {"30", "100", "59,5"}) {
    TypeInto(*winter.form, winter.form->TxtMeanT, taken);
    winter.Press(Ctrl(KeyCode::kEnter));
    EXPECT_TRUE(winter.form->LblPump.visible) << taken;
  }
  EXPECT_EQ(winter.test().Rows(work_file::kWinter)[0].MeanTemp, 59.5F);
  EXPECT_EQ(winter.form->LblTempWinter.text, "59,5");
  TypeInto(*winter.form, winter.form->TxtMeanT, "5a-0,,5");
  EXPECT_EQ(winter.form->TxtMeanT.text, "50,,5");
  winter.Press(Ctrl(KeyCode::kEnter));
  EXPECT_EQ(winter.test().prompter.codes().back(), message::kTooManySeparators);
}

TEST(WinterForm, AChangeMakesTheResultsVoidAndEmptiesThemInTheFile) {
  WinterUser winter;
  const auto run = [&winter] {
    winter.Press(Ctrl(KeyCode::kEnter));
    EXPECT_TRUE(winter.form->LblPump.visible);
    EXPECT_FALSE(winter.form->LblVoid.visible);
  };
  winter.Run(winter.form->Cmd_Res);
  EXPECT_EQ(winter.test().prompter.codes(), std::vector<int>{140}) << "before any run";
  winter.TypeValues();
  run();
  winter.GoTo(0, 5);
  winter.Type("250");
  winter.Press(KeyCode::kEnter);
  EXPECT_TRUE(winter.form->LblPump.visible) << "the same value is no change";
  winter.GoTo(0, 4);
  winter.Type("6,5");
  winter.Press(KeyCode::kEnter);
  EXPECT_FALSE(winter.form->LblPump.visible);
  EXPECT_TRUE(winter.form->LblVoid.visible);
  EXPECT_EQ(winter.form->LblVoid.text,
            "... ΔΕΝ ισχύουν - πλέον - τα Αποτελέσματα για τον Χειμώνα ...");
  const auto rows = winter.test().Rows(work_file::kWinter);
  EXPECT_EQ(rows[0].DP, 0.0F);
  EXPECT_EQ(rows[1].TotalDrop, 0.0F);
  EXPECT_EQ(rows[1].Length, 6.5F);
  EXPECT_EQ(rows[1].WaterFlow, 250.0F);
  EXPECT_EQ(rows[1].NomiDiam, winter.test().Row(2).NomiDiam);
  winter.Run(winter.form->Cmd_Res);
  EXPECT_EQ(winter.test().prompter.codes(), (std::vector<int>{140, 140}));
  run();
  TypeInto(*winter.form, winter.form->TxtMeanT, "70");
  winter.GoTo(0, 4);
  EXPECT_TRUE(winter.form->LblPump.visible) << "the same temperature typed again is no change";
  TypeInto(*winter.form, winter.form->TxtMeanT, "45");
  winter.GoTo(0, 4);
  winter.form->Derive();
  EXPECT_TRUE(winter.form->LblVoid.visible);
}

TEST(WinterForm, ARunThatIsRefusedLeavesWhatHeldAndWhatDidNot) {
  WinterUser winter;
  winter.TypeValues();
  winter.GoTo(0, 5);
  winter.Type("300");  // as in summer
  winter.Press(KeyCode::kEnter);
  winter.test().prompter.Expect(kAttentionTitle, Answer::kYes);
  winter.Press(Ctrl(KeyCode::kEnter));
  const std::string run = winter.test().Bytes(work_file::kWinter);
  winter.test().prompter.Expect(kAttentionTitle, Answer::kNo);
  winter.Press(Ctrl(KeyCode::kEnter));
  EXPECT_TRUE(winter.form->LblPump.visible) << "no value has changed";
  EXPECT_FALSE(winter.IsKept());
  winter.GoTo(0, 5);
  winter.Type("0");
  winter.Press(KeyCode::kEnter);
  winter.Press(Ctrl(KeyCode::kEnter));
  EXPECT_TRUE(winter.form->LblVoid.visible) << "nothing was calculated";
  EXPECT_NE(winter.test().Bytes(work_file::kWinter), run);
}

TEST(WinterForm, KeysChangeCellsOnlyWhereTheKeyboardIs) {
  WinterUser winter;
  winter.TypeValues();
  const std::string cells = winter.Cells();
  winter.user.clipboard.SetText("7");
  winter.GoTo(1, 5);
  winter.form->Focus(winter.form->TxtMeanT);
  winter.Press(KeyCode::kF7);
  EXPECT_EQ(winter.form->focus(), &winter.form->TxtMeanT);
  winter.form->Focus(winter.form->Cmd_WCirc);
  for (const Key& key : {Plain(KeyCode::kF7), Plain(KeyCode::kDelete), Ctrl('V')}) {
    winter.Press(key);
  }
  EXPECT_EQ(winter.Cells(), cells);
}

TEST(WinterForm, SaysWhichLengthsAreNotThoseOfSummer) {
  WinterUser winter;
  winter.TypeValues();
  winter.Close(Answer::kYes);
  auto rows = winter.test().Rows();
  rows[2].Length = 15;
  ASSERT_TRUE(winter.test().workspace.Rows().WriteAll(rows).ok());
  winter.Open();
  EXPECT_EQ(winter.Cells(), "5,0 250,0 210,5 | 5,0 150,0 160,0");
  EXPECT_EQ(winter.form->LblStatus.text, "Μήκος άλλο από του θέρους έχουν τα τμήματα : 3");
}

TEST(WinterForm, BeginsWithTheValuesOfTheWinterFile) {
  WinterUser winter;
  winter.TypeValues();
  TypeInto(*winter.form, winter.form->TxtMeanT, "45,5");
  winter.Press(Ctrl(KeyCode::kEnter));
  winter.Close(Answer::kYes);
  winter.Open();
  EXPECT_EQ(winter.Cells(), "5,0 250,0 210,5 | 5,0 150,0 160,0");
  EXPECT_EQ(winter.form->TxtMeanT.text, "45,5");
  EXPECT_FALSE(winter.form->LblPump.visible) << "there was no run";
  winter.user.navigator.log.clear();
  winter.Press(KeyCode::kEscape);
  EXPECT_EQ(winter.user.navigator.log.size(), 2U) << "closed without a question";

  auto rows = winter.test().Rows(work_file::kWinter);
  rows[1].Name = MakeName("7", "8");  // of a section that had another name
  ASSERT_TRUE(winter.test().workspace.Rows(work_file::kWinter).WriteAll(rows).ok());
  winter.Open();
  EXPECT_EQ(winter.Cells(), "5,0 - - | 5,0 150,0 160,0");
  EXPECT_EQ(winter.form->LblStatus.text, "Χωρίς τιμές του Χειμώνα αρχίζουν τα τμήματα : 2");
}

TEST(WinterForm, ValuesFollowTheirSectionsIntoAnotherNetwork) {
  WinterUser winter;
  winter.TypeValues();
  TypeInto(*winter.form, winter.form->TxtMeanT, "45,5");
  winter.Press(Ctrl(KeyCode::kEnter));
  winter.Close(Answer::kYes);
  winter.Put({"ANT/1 5m plant", "1/3 9m soma 200l/h 400mm", "1/6 5m soma 100l/h 50mm",
              "1/2 5m soma 300l/h 500mm", "2/4 5m", "3/4 5m", "6/4 5m", "4/ANT 5m"});
  winter.Open();
  EXPECT_EQ(winter.Cells(), "5,0 150,0 160,0 | 5,0 - - | 5,0 250,0 210,5");
  EXPECT_EQ(winter.form->TxtMeanT.text, "45,5");
  EXPECT_EQ(winter.form->LblStatus.text,
            "Χωρίς τιμές του Χειμώνα αρχίζουν τα τμήματα : 3. "
            "Μήκος άλλο από του θέρους έχουν τα τμήματα : 2");
  winter.GoTo(1, 5);
  winter.Type("80");
  winter.Press(KeyCode::kEnter);
  winter.Close(Answer::kYes);
  winter.Open();
  EXPECT_EQ(winter.Cells(), "5,0 150,0 160,0 | 5,0 80,0 - | 5,0 250,0 210,5");
}

TEST(WinterForm, AFlowThatAnotherNetworkHasSummedStaysEmpty) {
  WinterUser winter(
      {"ANT/1 5m plant", "1/2 5m soma 100l/h 50mm", "2/3 5m soma 400l/h 400mm", "3/ANT 5m"});
  winter.GoTo(0, 5);
  for (const char* value : {"90", "350", "40", "300"}) {
    winter.Type(value);
    winter.Press(KeyCode::kEnter);
  }
  winter.Press(Ctrl(KeyCode::kEnter));
  ASSERT_TRUE(winter.form->LblPump.visible);
  winter.Close(Answer::kYes);
  winter.Put({"ANT/1 5m plant", "1/2 5m soma 100l/h 50mm", "2/ANT 5m"});
  winter.Open();
  EXPECT_EQ(winter.Cells(), "5,0 - 40,0") << "440 would be that of both";
}

TEST(WinterForm, FlowsWithoutARunAreKnownWhereEverySectionHasAnEmitter) {
  WinterUser winter({"ANT/1 5m plant soma 300l/h 500mm", "1/ANT 5m soma 200l/h 400mm"});
  const std::string cells = "5,0 250,0 210,5 | 5,0 150,0 160,0";
  winter.TypeValues();
  winter.Close(Answer::kYes);
  winter.Open();
  EXPECT_EQ(winter.Cells(), cells);
  winter.Press(Ctrl(KeyCode::kEnter));
  ASSERT_TRUE(winter.form->LblPump.visible);
  winter.Close(Answer::kYes);
  winter.Open();
  EXPECT_EQ(winter.Cells(), "5,0 - 210,5 | 5,0 - 160,0") << "they are sums now";
  ASSERT_TRUE(EmptyWinterResults(winter.test().workspace).ok());
  winter.Open();
  EXPECT_EQ(winter.Cells(), "5,0 - 210,5 | 5,0 - 160,0") << "and stay sums without results";
}

TEST(WinterForm, AFlowThatTheFileHasSummedStaysEmptyOneThatWasEnteredDoesNot) {
  WinterUser winter({"ANT/1 5m plant", "1/2 5m soma 100l/h 50mm", "2/3 5m soma 400l/h 400mm",
                     "2/4 5m soma 300l/h 400mm", "3/5 5m", "4/5 5m", "5/ANT 5m"});
  winter.GoTo(0, 5);
  for (const char* value : {"90", "350", "250", "40", "300", "310"}) {
    winter.Type(value);
    winter.Press(KeyCode::kEnter);
  }
  winter.Press(Ctrl(KeyCode::kEnter));
  ASSERT_TRUE(winter.form->LblPump.visible);
  EXPECT_TRUE(winter.IsKept()) << "the winter file does not tell the first flow";
  winter.Close(Answer::kYes);
  winter.Open();
  EXPECT_EQ(winter.Cells(), "5,0 - 40,0 | 5,0 - 300,0 | 5,0 250,0 310,0");
  for (const char* value : {"80", "350"}) {
    winter.Type(value);
    winter.Press(KeyCode::kEnter);
  }
  winter.Close(Answer::kYes);  // without a run
  winter.Open();
  EXPECT_EQ(winter.Cells(), "5,0 80,0 40,0 | 5,0 350,0 300,0 | 5,0 250,0 310,0");
}

TEST(WinterForm, TheCloseAsksWhatBecomesOfTheValues) {
  WinterUser winter;
  ASSERT_TRUE(winter.test().workspace.Copy(work_file::kRows, work_file::kWinter).ok());
  winter.Open();
  const std::string before = winter.test().Bytes(work_file::kWinter);
  winter.TypeValues();
  winter.Press(Ctrl(KeyCode::kEnter));
  winter.Close(Answer::kCancel);
  EXPECT_TRUE(winter.user.navigator.log.empty()) << "no answer throws nothing away";
  EXPECT_EQ(winter.test().prompter.boxes().back().lines.size(), 2U);
  winter.test().study.unsaved_changes = true;
  winter.test().prompter.Expect("  ! !   ΠΡΟΣΟΧΗ   ! ! ", Answer::kNo);
  EXPECT_FALSE(winter.form->MayClose()) << "by its box; the command closes it";
  EXPECT_EQ(winter.test().prompter.boxes().back().lines.size(), 3U) << "and the sections' data";
  EXPECT_EQ(winter.test().Bytes(work_file::kWinter), before);
  EXPECT_FALSE(winter.IsKept());
  EXPECT_EQ(winter.user.navigator.log.size(), 2U);

  winter.test().study.unsaved_changes = false;
  winter.Open();
  winter.TypeValues();
  winter.Close(Answer::kYes);
  EXPECT_TRUE(winter.test().study.unsaved_changes);
  EXPECT_EQ(winter.test().Rows(work_file::kWinter)[1].WaterFlow, 250.0F) << "without a run";
  EXPECT_EQ(winter.test().Rows(work_file::kWinter)[0].DP, 0.0F);
}

TEST(WinterForm, WhatIsTypedKeepsItself) {
  WinterUser winter;
  EXPECT_FALSE(winter.form->Idle(1));
  winter.form->LostFocus();
  EXPECT_FALSE(winter.IsKept());
  winter.Type("25");  // the cell is still open
  EXPECT_FALSE(winter.form->Idle(0.3)) << "nothing to tell";
  ASSERT_TRUE(winter.IsKept());
  TypeInto(*winter.form, winter.form->TxtMeanT, "4");
  winter.form->Idle(0.3);
  winter.Open();  // as after a crash
  EXPECT_EQ(winter.Cells(), "5,0 25,0 - | 5,0 - -");
  EXPECT_EQ(winter.form->TxtMeanT.text, "4");
  TypeInto(*winter.form, winter.form->TxtMeanT, "70");
  winter.GoTo(0, 5);
  winter.Press(KeyCode::kDelete);
  winter.form->Idle(0.3);
  EXPECT_FALSE(winter.IsKept()) << "as at the beginning";
  winter.TypeValues();
  winter.form->Idle(0.3);
  EXPECT_TRUE(winter.IsKept());
  winter.Press(Ctrl(KeyCode::kEnter));
  EXPECT_FALSE(winter.IsKept()) << "the winter file tells the same";
  winter.GoTo(1, 4);
  winter.Type("6");
  winter.Press(KeyCode::kEnter);
  winter.form->Idle(0.3);
  EXPECT_FALSE(winter.IsKept()) << "as does the one without results";
  winter.Type("7");
  winter.form->LostFocus();
  EXPECT_TRUE(winter.IsKept());
  winter.Press(KeyCode::kEnter);
  winter.Close(Answer::kNo);
  EXPECT_FALSE(winter.IsKept());
  EXPECT_FALSE(winter.test().workspace.Exists(work_file::kWinter));
}

TEST(WinterForm, BlocksAreCopiedAndPasted) {
  WinterUser winter;
  winter.TypeValues();
  winter.GoTo(0, 5);
  winter.Press(Shift(KeyCode::kRight));
  winter.Press(Shift(KeyCode::kDown));
  EXPECT_EQ(winter.form->LblLeft.text, "Ανω Στήλη  : 6");
  EXPECT_EQ(winter.form->LblRight.text, "Κάτω Στήλη : 7");
  EXPECT_EQ(winter.form->LblTop.text, "Άνω Σειρά  : 1");
  EXPECT_EQ(winter.form->LblBottom.text, "Κάτω Σειρά : 2");
  winter.Press(Ctrl('C'));
  EXPECT_EQ(winter.user.clipboard.Text(), "250\t210,5\n150\t160");
  winter.Press(KeyCode::kDelete);
  EXPECT_EQ(winter.Cells(), "5,0 - - | 5,0 - -");
  winter.GoTo(0, 5);
  winter.Press(Ctrl('V'));
  EXPECT_EQ(winter.Cells(), "5,0 250,0 210,5 | 5,0 150,0 160,0");

  const auto paste = [&winter](int row, int column, const char* text) {
    winter.GoTo(row, column);
    winter.user.clipboard.SetText(text);
    winter.Press(Ctrl('V'));
    return winter.Cells();
  };
  EXPECT_EQ(paste(0, 0, "2\t1/2\t300\t500\t4\t1.200,5\t\r\n3\t1/3\t200\t400\t4.25\t90\t7\r\n"),
            "4,0 1.200,5 - | 4,25 90,0 7,0")
      << "a whole table: what is only shown is passed over, an empty text empties";
  EXPECT_EQ(paste(0, 6, "x\n-3\n5"), "4,0 1.200,5 - | 4,25 90,0 7,0");
  EXPECT_EQ(winter.Box(),
            "3 κείμενα δεν χωρούν στα κελιά τους|Σειρά 1, Στήλη 7 : x|"
            "Σειρά 2, Στήλη 7 : -3|Σειρά 3, Στήλη 7 : 5");
  winter.form->fpSpread1.SelectBlock({0, 5, 1, 6});
  winter.user.clipboard.SetText("12");
  winter.Press(Ctrl('V'));
  EXPECT_EQ(winter.Cells(), "4,0 12,0 12,0 | 4,25 12,0 12,0") << "one value fills the block";
  winter.test().prompter.Expect("Επικόλληση", Answer::kYes);
  EXPECT_EQ(paste(0, 5, "1.200\n2.400"), "4,0 1.200,0 12,0 | 4,25 2.400,0 12,0");
  winter.test().prompter.Expect("Επικόλληση", Answer::kCancel);
  EXPECT_EQ(paste(0, 5, "3.500"), "4,0 1.200,0 12,0 | 4,25 2.400,0 12,0");
  paste(0, 1, "5");
  EXPECT_EQ(winter.form->LblStatus.text, "Οι τιμές μπαίνουν στα πράσινα κελλιά");
  winter.GoTo(0, 5);
  winter.form->Derive();
  EXPECT_EQ(winter.form->LblStatus.text, "");
}

// The value that a run was made with, typed again after another: the winter file has the other one.
TEST(WinterForm, AValueThatComesBackAfterARunIsKeptToo) {
  WinterUser winter;
  winter.TypeValues();
  winter.Press(Ctrl(KeyCode::kEnter));
  for (const char32_t digit : {U'1', U'5'}) {
    winter.GoTo(0, 4);
    winter.Press(Typed(digit));
    winter.form->fpSpread1.Accept();
  }
  winter.form->Idle(0.5);
  FrmWinter next(winter.desk());
  next.Load();
  EXPECT_EQ(WinterUser::CellsOf(next), winter.Cells());
}

}  // namespace
}  // namespace kalvo
