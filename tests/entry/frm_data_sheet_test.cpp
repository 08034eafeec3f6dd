#include "entry/sheet/frm_data_sheet.h"

#include <gtest/gtest.h>

#include "entry/sections/sheet_columns.h"
#include "tests/entry/sheet_user.h"

namespace kalvo {
namespace {

TEST(Sheet, ThreeSectionsTypedByKeysBecomeRowsAndTheEmittersFollow) {
  SheetUser sheet;
  EXPECT_EQ(sheet.Line(0), "ANT|/");
  sheet.TypeCells("1 5,5 2");
  sheet.GoTo(1, 0);
  sheet.TypeCells("1 2 10");
  sheet.GoTo(2, 0);
  sheet.TypeCells("2 a 7.25");
  EXPECT_EQ(sheet.Line(0), "ANT|/|1|5,5|2");
  EXPECT_EQ(sheet.Line(2), "2|/|ANT|7,25");
  sheet.Press(Ctrl(KeyCode::kEnter));
  EXPECT_EQ(Joined(sheet.user.test.Names()), "ANT/1  |  1/2  |  2/ANT");
  EXPECT_EQ(sheet.user.test.Column(&SectionRow::Length), (std::vector<float>{5.5F, 10, 7.25F}));
  EXPECT_EQ(Joined(sheet.user.navigator.log),
            "close FrmTauCross_S|close FrmData_Sheet|show FrmSoma");
}

TEST(Sheet, KeepsItselfAndGoesOnFromWhereItWas) {
  SheetUser sheet(SystemKind::kClosed, kLoop);
  Workspace& workspace = sheet.user.test.workspace;
  EXPECT_FALSE(workspace.Exists(work_file::kSheetInWork));
  sheet.GoTo(3, 0);
  sheet.TypeCells("2");
  sheet.Press(Typed(U'7'));
  sheet.form->Idle(0.3);
  EXPECT_TRUE(workspace.Exists(work_file::kSheetInWork));
  sheet.Open();  // the first window is gone, as after a crash
  EXPECT_EQ(sheet.Line(3), "2|/|7") << "what stood in the open editor too";
  sheet.user.test.prompter.Expect(" !!... ΠΡΟΣΟΧΗ ...!! ", Answer::kNo);
  EXPECT_FALSE(sheet.form->MayClose());
  EXPECT_TRUE(sheet.user.navigator.log.empty()) << "no stays";
  sheet.user.test.prompter.Expect(" !!... ΠΡΟΣΟΧΗ ...!! ", Answer::kYes);
  EXPECT_FALSE(sheet.form->MayClose());
  EXPECT_EQ(sheet.user.navigator.log.back(), "show FrmMain");
  EXPECT_TRUE(workspace.Exists(work_file::kSheetInWork));
  sheet.Open();
  sheet.GoTo(3, 0);
  sheet.Press(Shift(KeyCode::kEnd));
  sheet.Press(KeyCode::kDelete);
  sheet.form->Idle(0.3);
  EXPECT_FALSE(workspace.Exists(work_file::kSheetInWork)) << "the rows say the same";
}

TEST(Sheet, AsksWhetherAKeptSheetGoesOnAndCopiesItToSafetyWhereNot) {
  SheetUser sheet(SystemKind::kClosed, kLoop);
  ASSERT_TRUE(sheet.user.test.outer_disk.MakeFolder(kStudies).ok());
  sheet.user.desk.data_folder = kStudies;
  ScriptedPrompter& prompter = sheet.user.test.prompter;
  sheet.GoTo(0, 3);
  sheet.TypeCells("9");
  sheet.form->Idle(0.3);
  prompter.Expect("Φύλλο Τμημάτων", Answer::kYes);
  sheet.OpenFromMenu();
  EXPECT_EQ(sheet.Line(0), "ANT|/|1|9");
  sheet.user.test.workspace.Delete(work_file::kFirstRows);
  prompter.Expect("Φύλλο Τμημάτων", Answer::kCancel);
  sheet.OpenFromMenu();
  EXPECT_EQ(prompter.boxes().back().style, box_style::kYesNoCancel) << "Esc is no answer";
  EXPECT_TRUE(sheet.user.test.workspace.Exists(work_file::kSheetInWork));
  EXPECT_EQ(sheet.user.test.Bytes(work_file::kFirstRows), "(missing)");
  EXPECT_EQ(sheet.user.navigator.log.back(), "show FrmMain");
  prompter.Expect("Φύλλο Τμημάτων", Answer::kNo);
  sheet.OpenFromMenu();
  EXPECT_EQ(sheet.Line(0), "ANT|/|1|5");
  EXPECT_FALSE(sheet.user.test.workspace.Exists(work_file::kSheetInWork));
  EXPECT_FALSE(NamesIn(sheet.user.test.outer_disk, "/studies/ASFALEIA").empty());
  ASSERT_TRUE(sheet.user.test.workspace.Write(work_file::kSheetInWork, "noise").ok());
  sheet.user.test.workspace.Delete(work_file::kFirstRows);
  prompter.Expect("Φύλλο Τμημάτων", Answer::kYes);
  prompter.Expect("Φύλλο Τμημάτων", Answer::kNo);
  sheet.OpenFromMenu();
  EXPECT_EQ(sheet.user.test.Bytes(work_file::kSheetInWork), "noise") << "it stays";
  EXPECT_EQ(sheet.user.test.Bytes(work_file::kFirstRows), "(missing)");
  EXPECT_EQ(sheet.user.navigator.log.back(), "show FrmMain");
}

TEST(Sheet, NamesTheSourceByOneKeyAndTeesByShift) {
  SheetUser sheet;
  sheet.Press(Typed(U'α'));
  sheet.Press(Typed(U'ν'));
  sheet.Press(Typed(U'τ'));
  sheet.Press(KeyCode::kEnter);
  EXPECT_EQ(sheet.Line(0), "ANT|/|ANT");
  sheet.GoTo(1, 2);
  sheet.Press(Typed(U'5'));
  sheet.Press(ShiftTyped(U'Μ'));  // on the place of M
  EXPECT_EQ(sheet.Line(1), "|/|5||||||||2") << "the open cell is accepted";
  for (const char32_t letter : {U'A', U'D', U'R', U'Q', U'B'}) sheet.Press(ShiftTyped(letter));
  EXPECT_EQ(sheet.Line(1), "|/|5|||||||1|4||2");
  Key with_ctrl = ShiftTyped(U'C');
  with_ctrl.ctrl = true;
  sheet.Press(with_ctrl);
  EXPECT_EQ(sheet.form->fpSpread1.At(1, 9).text, "2");
  sheet.Press(Ctrl('Z'));
  EXPECT_EQ(sheet.form->fpSpread1.At(1, 9).text, "1");
  EXPECT_EQ(sheet.form->Cmd_Redo.caption, "Επανάληψη : < ΤΑΥ > περίπτωσης <C>");
  sheet.form->Run(sheet.form->Cmd_DelANT);
  EXPECT_EQ(sheet.form->fpSpread1.At(1, 2).text, "");
}

TEST(Sheet, LettersOfEarlierCommandsAreNoTeesWithCtrl) {
  SheetUser sheet(SystemKind::kClosed, kLoop);
  for (const char letter : {'L', 'D', 'R', 'S'}) sheet.Press(CtrlShift(letter));
  EXPECT_EQ(sheet.Line(0), "ANT|/|1|5");
}

TEST(Sheet, ATypedNameIsANumberOrTheSource) {
  SheetUser sheet(SystemKind::kClosed, kLoop);
  sheet.user.test.ChangeRow(2,
                            [](SectionRow& row) { row.Name = FixedText<7>::FromUtf8("  a/2  "); });
  sheet.Open();
  EditableGrid& grid = sheet.form->fpSpread1;
  sheet.GoTo(1, 2);
  sheet.Press(Typed(U'A'));
  static_cast<Form&>(*sheet.form).Type(grid.editor, {"AN", "", ""});
  sheet.Press(KeyCode::kEnter);
  EXPECT_TRUE(grid.editing());
  EXPECT_EQ(sheet.form->LblStatus.tone, Tone::kAlarm);
  EXPECT_EQ(sheet.Line(1), "a|/|2|5");
  sheet.Press(KeyCode::kEscape);
  sheet.GoTo(1, 0);
  sheet.Press(KeyCode::kF2);
  sheet.Press(KeyCode::kEnter);
  EXPECT_EQ(sheet.Line(1), "a|/|2|5") << "nobody has edited it";
  sheet.GoTo(1, 0);
  sheet.Press(KeyCode::kF2);
  static_cast<Form&>(*sheet.form).Type(grid.editor, {"a", "1", ""});
  sheet.Press(KeyCode::kDown);
  EXPECT_TRUE(grid.editing());
  EXPECT_TRUE(sheet.user.test.prompter.codes().empty());
}

TEST(Sheet, SpeaksOfFeedersInAnOpenNetwork) {
  SheetUser sheet(SystemKind::kOpen, kTree);
  sheet.GoTo(1, 2);
  sheet.form->Derive();
  EXPECT_EQ(sheet.form->LblPrompt.text,
            "Ο α/α του τμήματος που το τροφοδοτεί, ή ANT για τροφοδότηση από την πηγή.");
  EXPECT_EQ(sheet.form->Cmd_ANT2.caption, "ANT ως τμήμα-τροφοδότης");
  sheet.GoTo(1, 3);
  sheet.form->Derive();
  EXPECT_EQ(sheet.form->LblPrompt.text, "Μήκος του τμήματος σε μέτρα.");
}

TEST(Sheet, KeepsItselfBeforeAnotherScreenIsUp) {
  SheetUser sheet(SystemKind::kClosed, kLoop);
  const Workspace& workspace = sheet.user.test.workspace;
  const auto expect_kept = [&] { EXPECT_TRUE(workspace.Exists(work_file::kSheetInWork)); };
  sheet.GoTo(0, 3);
  sheet.TypeCells("9");
  sheet.user.navigator.Expect(screen::kSheetHelp, expect_kept);
  sheet.Press(KeyCode::kF1);
  sheet.Press(Ctrl('Z'));
  sheet.form->Idle(0.3);
  ASSERT_FALSE(workspace.Exists(work_file::kSheetInWork));
  sheet.GoTo(1, 3);
  sheet.Press(KeyCode::kDelete);
  sheet.user.navigator.Expect(screen::kMissingValues, expect_kept);
  sheet.Press(Ctrl(KeyCode::kEnter));
}

TEST(Sheet, CopiesPastesFillsAndTakesAnotherRowsValues) {
  SheetUser sheet(SystemKind::kClosed, kLoop);
  Clipboard& clipboard = sheet.user.desk.clipboard;
  sheet.GoTo(0, 0);
  sheet.form->fpSpread1.SelectBlock({0, 0, 1, 3});
  sheet.Press(Ctrl('C'));
  EXPECT_EQ(clipboard.Text(), "ANT\t/\t1\t5\n1\t/\t2\t5");
  sheet.GoTo(3, 0);
  sheet.Press(Ctrl('V'));
  EXPECT_EQ(sheet.Line(4), "1|/|2|5");
  EXPECT_EQ(sheet.form->fpSpread1.block(), (GridBlock{3, 0, 4, 3}));
  clipboard.SetText("7\t8\t1,5\tx\r\nABCD\t9\t\"2,5\"\t40000\r\n");
  sheet.GoTo(5, 0);
  sheet.Press(Ctrl('V'));
  EXPECT_EQ(sheet.Line(5), "7|/|8|1,5") << "the column between the names is passed over";
  EXPECT_EQ(sheet.Line(6), "|/|9|2,5|40000");
  const Box& box = sheet.user.test.prompter.boxes().back();
  EXPECT_EQ(box.lines.size(), 3U);
  EXPECT_EQ(box.lines.at(1), "Σειρά 6, ΓΩΝ. [τεμ.] : x");
  sheet.GoTo(6, 4);
  sheet.Press(KeyCode::kF7);
  sheet.form->fpSpread1.SelectBlock({5, 3, 7, 3});
  sheet.Press(KeyCode::kF7);
  EXPECT_EQ(sheet.Line(6), "|/|9|1,5");
  sheet.GoTo(0, 3);
  sheet.form->Run(sheet.form->CmdSame);
  EXPECT_EQ(sheet.form->CboSame.selected, 7);
  sheet.Press(KeyCode::kEnter);
  EXPECT_EQ(sheet.Line(0), "ANT|/|1|1,5");
  EXPECT_FALSE(sheet.form->CboSame.visible);
}

TEST(Sheet, TakesNoMoreThan999SectionsAndNoNumberThatNoRowHolds) {
  SheetUser sheet;
  std::string rows;
  for (int row = 0; row < 1200; ++row) rows += "1\t/\t2\t3,5\n";
  sheet.user.desk.clipboard.SetText(rows);
  sheet.GoTo(0, 0);
  sheet.Press(Ctrl('V'));
  EXPECT_EQ(sheet.form->draft().Count(), 999);
  EXPECT_EQ(sheet.form->fpSpread1.row_count(), 999);
  sheet.GoTo(0, 0);
  sheet.Press(Ctrl(KeyCode::kInsert));
  EXPECT_EQ(sheet.form->draft().Count(), 999);
  sheet.GoTo(5, 6);
  sheet.TypeCells("32768");
  EXPECT_EQ(sheet.user.test.prompter.codes().back(), 200);
  EXPECT_EQ(sheet.Line(5), "1|/|2|3,5");
  sheet.TypeCells("032767");
  EXPECT_EQ(sheet.form->fpSpread1.At(5, 6).text, "32767") << "it was open still";
}

TEST(Sheet, RefusesPastedNumbersThatNoCellReads) {
  SheetUser sheet(SystemKind::kClosed, kLoop);
  const std::string most(15, '9');
  sheet.user.desk.clipboard.SetText(most + "\t1000000000000000\t" + std::string(400, '7') + "\t" +
                                    std::string(400, '0') + "4\n999999999999999,9");
  sheet.GoTo(0, 3);
  sheet.Press(Ctrl('V'));
  EXPECT_EQ(sheet.Line(0), "ANT|/|1|" + most + "|||4");
  EXPECT_EQ(sheet.Line(1), "1|/|2|5");
  EXPECT_EQ(sheet.user.test.prompter.boxes().back().lines.size(), 4U) << "each is told";
  EXPECT_NE(sheet.user.test.prompter.boxes().back().lines[1].find(", ΓΩΝ. [τεμ.]"),
            std::string::npos);
  EXPECT_EQ(HeadInWords(0, SystemKind::kClosed), "ΑΡΧ. ΚΟΜΒΟΣ");
  EXPECT_EQ(HeadInWords(9, SystemKind::kClosed), "<ΤΑΥ> ΣΕ ΔΙΑΚΛΑΔΩΣΗ [τεμ.]");
}

TEST(Sheet, FindsRoundAndSaysWhatIsRemarkable) {
  SheetUser sheet(SystemKind::kClosed, kLoop);
  sheet.Press(Ctrl('F'));
  TypeInto(*sheet.form, sheet.form->TxtFind, "ant");
  sheet.Press(KeyCode::kEnter);
  EXPECT_EQ(sheet.form->fpSpread1.current(), (GridPlace{2, 2}));
  sheet.Press(KeyCode::kF3);
  EXPECT_EQ(sheet.form->fpSpread1.current(), (GridPlace{0, 0}));
  sheet.Press(KeyCode::kEscape);
  EXPECT_EQ(sheet.form->focus(), &sheet.form->fpSpread1);
  sheet.GoTo(1, 2);
  sheet.TypeCells("8");
  sheet.GoTo(1, 0);
  sheet.form->Derive();
  EXPECT_EQ(sheet.form->LblRemarks.text, "κανένα τμήμα δεν αρχίζει στον κόμβο 8");
  sheet.form->fpSpread1.SelectBlock({0, 3, 2, 3});
  sheet.form->Derive();
  EXPECT_EQ(sheet.form->LblStatus.text, "Επιλογή : 3 τιμές · άθροισμα 15");
}

TEST(Sheet, SavesAndRetrievesAsOneUndoableStep) {
  SheetUser sheet(SystemKind::kClosed, kLoop);
  sheet.Press(Ctrl('S'));
  sheet.GoTo(0, 3);
  sheet.TypeCells("9");
  sheet.Press(Ctrl('R'));
  EXPECT_EQ(sheet.Line(0), "ANT|/|1|5");
  EXPECT_EQ(sheet.form->draft().At(1).origin, 2);
  sheet.Press(Ctrl('Z'));
  EXPECT_EQ(sheet.Line(0), "ANT|/|1|9");
  EXPECT_TRUE(sheet.user.test.workspace.Write(work_file::kSheet, "cells").ok());
  sheet.Press(Ctrl('R'));
  EXPECT_EQ(sheet.form->LblStatus.tone, Tone::kAlarm);
  EXPECT_EQ(sheet.Line(0), "ANT|/|1|9");
}

TEST(Sheet, LeavesAloneWhatNobodyEdits) {
  SheetUser sheet(SystemKind::kClosed, kLoop);
  TestBench& test = sheet.user.test;
  test.ChangeRow(2, [](SectionRow& row) {
    row.OtherDrop_mm = -5;
    row.Name = FixedText<7>::FromUtf8("  a/ΑΝΤ");
  });
  sheet.Open();
  for (const int column : {0, 2, 14}) {
    sheet.GoTo(1, column);
    sheet.Press(KeyCode::kF2);
    sheet.Press(KeyCode::kEnter);
  }
  EXPECT_EQ(sheet.Line(1), "a|/|ΑΝΤ|5|||||||||||-5");
  EXPECT_FALSE(sheet.form->draft().history().CanUndo());
  sheet.GoTo(0, 3);
  sheet.TypeCells("9");
  sheet.form->Idle(0.3);
  sheet.Open();
  EXPECT_EQ(sheet.Line(1), "a|/|ΑΝΤ|5|||||||||||-5") << "nor on the way through the kept sheet";
  sheet.GoTo(0, 14);
  sheet.TypeCells(",");
  EXPECT_TRUE(test.prompter.codes().empty()) << "a lone separator is nothing";
}

TEST(Sheet, ARowTypedAnewIsANewRow) {
  SheetUser sheet(SystemKind::kClosed, kLoop);
  TestBench& test = sheet.user.test;
  test.study.results_valid = true;
  sheet.GoTo(1, 0);
  test.prompter.Expect(120, Answer::kYes);
  sheet.Press(Ctrl(KeyCode::kDelete));
  sheet.Press(Ctrl(KeyCode::kInsert));
  sheet.TypeCells("1 2 5 0 0 0 0 0 0 0 0 0 0 0 0");
  sheet.Press(Ctrl(KeyCode::kEnter));
  EXPECT_FALSE(test.study.results_valid);
  EXPECT_EQ(test.Row(2).SomaDrop, 0);
  EXPECT_EQ(test.Rows(work_file::kEmitters).at(0).RecordNumber, 0);
}

TEST(Sheet, KeepsARowThatWasTypedAnewUntilTheRowsHaveIt) {
  SheetUser sheet(SystemKind::kClosed, kLoop);
  TestBench& test = sheet.user.test;
  sheet.GoTo(1, 0);
  test.prompter.Expect(120, Answer::kYes);
  sheet.Press(Ctrl(KeyCode::kDelete));
  sheet.Press(Ctrl(KeyCode::kInsert));
  sheet.TypeCells("1 2 5 0 0 0 0 0 0 0 0 0 0 0 0");
  sheet.form->Idle(0.3);
  ASSERT_TRUE(test.workspace.Exists(work_file::kSheetInWork)) << "the texts are the same";
  sheet.Open();
  EXPECT_EQ(sheet.form->draft().At(1).origin, 0);
  SectionSitting& sitting = *sheet.user.desk.screens.section_sitting;
  ASSERT_TRUE(sitting.PutRows(sitting.Rows()).ok());
  ASSERT_TRUE(sitting.Keep({{1, 3, "6"}}, false).ok());
  ASSERT_TRUE(sitting.Keep({}, false).ok());
  EXPECT_FALSE(test.workspace.Exists(work_file::kSheetInWork)) << "new, and in the file";
}

TEST(Sheet, KeysInTheFindBoxAndInTheListStayThere) {
  SheetUser sheet(SystemKind::kClosed, kLoop);
  sheet.Press(Ctrl('F'));
  for (const Key& key : {Plain(KeyCode::kDelete), Ctrl('V'), Ctrl('X'), Ctrl('Z')}) {
    EXPECT_FALSE(static_cast<Form&>(*sheet.form).Press(key)) << "the box edits its own text";
  }
  EXPECT_EQ(sheet.Line(0), "ANT|/|1|5");
  sheet.form->Run(sheet.form->CmdSame);
  for (const KeyCode code : {KeyCode::kUp, KeyCode::kUp, KeyCode::kDelete}) sheet.Press(code);
  EXPECT_EQ(sheet.form->CboSame.selected, 0);
  EXPECT_TRUE(sheet.form->CboSame.visible) << "arrows take nothing";
  sheet.Press(KeyCode::kEscape);
  EXPECT_FALSE(sheet.form->CboSame.visible);
}

TEST(Sheet, ASelectionDoesNotOutliveItsRows) {
  SheetUser sheet(SystemKind::kClosed, kLoop);
  sheet.Press(Ctrl('S'));
  std::string rows;
  for (int row = 0; row < 300; ++row) rows += "1\t/\t2\t3\n";
  sheet.user.desk.clipboard.SetText(rows);
  sheet.GoTo(3, 0);
  sheet.Press(Ctrl('V'));
  sheet.GoTo(290, 3);
  sheet.Press(Ctrl('R'));
  EXPECT_EQ(sheet.form->draft().Count(), 3);
  EXPECT_LT(sheet.form->fpSpread1.block().bottom, sheet.form->fpSpread1.row_count());
  sheet.user.desk.clipboard.SetText("1.234");
  sheet.GoTo(0, 3);
  sheet.user.test.prompter.Expect("Επικόλληση", Answer::kCancel);
  sheet.Press(Ctrl('V'));
  EXPECT_EQ(sheet.Line(0), "ANT|/|1|5");
  sheet.user.test.prompter.Expect("Επικόλληση", Answer::kYes);
  sheet.Press(Ctrl('V'));
  EXPECT_EQ(sheet.Line(0), "ANT|/|1|1234");
  sheet.user.desk.clipboard.SetText("ΜΗΚΟΣ [τεμ.]\n1.234");
  sheet.user.test.prompter.Expect("Επικόλληση", Answer::kNo);
  sheet.Press(Ctrl('V'));
  EXPECT_EQ(sheet.Line(1), "1|/|2|1,234") << "a head with a dot settles nothing";
}

TEST(Sheet, OwnNumbersOfAReopenedSheetAreStillLookedAt) {
  SheetUser sheet(SystemKind::kOpen, kTree);
  sheet.GoTo(1, 0);
  sheet.TypeCells("7");
  sheet.form->Idle(0.3);
  sheet.Open();
  EXPECT_EQ(sheet.form->LblMissing.text, "Κενά που λείπουν: 1");
}

}  // namespace
}  // namespace kalvo
