#include <gtest/gtest.h>

#include "entry/sheet/sheet_pages.h"
#include "form/print_table.h"
#include "study/export_folder.h"
#include "tests/entry/sheet_user.h"
#include "tests/support/failing_disk.h"

namespace kalvo {
namespace {

using Kind = PrinterChoice::Kind;

// A chain of so many sections of 1.5 m.
std::vector<std::string> ChainOf(int sections) {
  std::vector<std::string> lines;
  for (int i = 0; i < sections; ++i) {
    lines.push_back((i == 0 ? "ANT" : std::to_string(i)) + "/" + std::to_string(i + 1) + " 1.5m");
  }
  return lines;
}

SheetUser SheetOf(int sections) {
  const std::vector<std::string> lines = ChainOf(sections);
  return SheetUser(SystemKind::kClosed, {lines.begin(), lines.end()});
}

TEST(SheetPages, HoldThirtyRowsEachAndSayWhichOfHowManyTheyAre) {
  struct Case {
    int sections;
    std::size_t pages;
    std::size_t on_last;
    const char* last_number;
    const char* summary;
  };
  for (const Case& expected :
       {Case{1, 1, 1, "Σελίδα 1 από 1", "1 τμήμα · συνολικό μήκος 1,5 m"},
        Case{30, 1, 30, "Σελίδα 1 από 1", "30 τμήματα · συνολικό μήκος 45 m"},
        Case{31, 2, 1, "Σελίδα 2 από 2", "31 τμήματα · συνολικό μήκος 46,5 m"},
        Case{999, 34, 9, "Σελίδα 34 από 34", "999 τμήματα · συνολικό μήκος 1498,5 m"}}) {
    SCOPED_TRACE(expected.sections);
    const SheetUser sheet = SheetOf(expected.sections);
    const PrintedTable table =
        SheetPages(sheet.form->fpSpread1, expected.sections, Separators{',', '.'});
    ASSERT_EQ(table.pages.size(), expected.pages);
    EXPECT_EQ(table.pages.back().rows.size(), expected.on_last);
    EXPECT_EQ(table.pages.back().number, expected.last_number);
    EXPECT_EQ(table.summary, expected.summary);
    EXPECT_EQ(table.pages.back().rows.back()[0], std::to_string(expected.sections));
    EXPECT_EQ(table.pages.back().rows.back().size(), table.columns.size());
  }
}

// Also in an open cell, and with Shift, where the letter would be a tee.
TEST(SheetPrint, CtrlPPrintsWhatIsShownWithHeadsAndTitle) {
  for (const Key& key : {Ctrl('P'), CtrlShift('P')}) {
    SheetUser sheet(SystemKind::kOpen, {"1/ANT 5m 2 elbows", "2/1 3m 300l/h soma 2m"});
    sheet.user.test.study.study_short_name = "Κτίριο.PAK";
    sheet.user.printer.choice = {Kind::kPrinter, {}};
    sheet.GoTo(1, 3);
    sheet.Press(KeyCode::kDelete);  // what is missing is no hindrance
    sheet.GoTo(0, 3);
    sheet.Press(Typed(U'7'));
    sheet.Press(key);
    ASSERT_EQ(sheet.user.printer.tables.size(), 1U);
    const PrintedTable& table = sheet.user.printer.tables[0];
    EXPECT_EQ(table.title, "Γραφεία");
    EXPECT_EQ(table.heading, "ΔΕΔΟΜΕΝΑ ΤΜΗΜΑΤΩΝ ΣΩΛΗΝΩΝ - ΑΝΟΙΚΤΟ ΣΥΣΤΗΜΑ ΣΩΛΗΝΩΝ");
    EXPECT_EQ(table.origin.substr(0, table.origin.find(' ')), "Κτίριο.PAK");
    EXPECT_EQ(table.columns[1].header, "ΤΡΕ-  ΧΟΝ   ΤΜΗ- ΜΑ");
    EXPECT_EQ(Joined(table.pages[0].rows[0]).substr(0, 18), "1|1|/|ANT|7|2|||||");
    EXPECT_EQ(Joined(table.pages[0].rows[1]).substr(0, 9), "2|2|/|1||");
    EXPECT_EQ(sheet.user.printer.printed.size(), 1U);
    EXPECT_EQ(Joined(sheet.user.printer.notices),
              "Printing - Click Cancel to quit|Printing - Click Cancel to quit");
    EXPECT_EQ(sheet.form->LblStatus.text, "Στάλθηκε στον εκτυπωτή");
  }
}

TEST(SheetPrint, AnEmptySheetACancelAndARefusalPrintNothing) {
  SheetUser empty;
  empty.Press(Ctrl('P'));
  EXPECT_EQ(empty.form->LblStatus.text, "Το φύλλο δεν έχει τμήματα προς εκτύπωση");

  SheetUser sheet = SheetOf(2);
  NotedPrinter& printer = sheet.user.printer;
  printer.choice = {Kind::kCancelled, {}};
  sheet.Press(Ctrl('P'));
  EXPECT_TRUE(printer.tables.empty());
  EXPECT_EQ(sheet.form->LblStatus.text, "Η εκτύπωση ακυρώθηκε");

  printer.choice = {Kind::kPrinter, {}};
  printer.cancels = true;
  sheet.Press(Ctrl('P'));
  EXPECT_EQ(sheet.form->LblStatus.text, "Η εκτύπωση ακυρώθηκε");

  printer.cancels = false;
  printer.refusal = FileError{{}, "Ο εκτυπωτής δεν δέχεται την εκτύπωση"};
  sheet.Press(Ctrl('P'));
  EXPECT_EQ(sheet.user.test.prompter.boxes().back().lines[0],
            "Ο εκτυπωτής δεν δέχεται την εκτύπωση");
  EXPECT_EQ(sheet.form->LblStatus.text, "Η εκτύπωση ΔΕΝ έγινε");
  EXPECT_TRUE(printer.printed.empty());
}

// The table, on a desk without a printer whose outer disk may fail.
struct WithoutPrinter : TestDesk {
  WithoutPrinter() {
    table.name = "Γραφεία";
    there.data_folder = kStudies;
    EXPECT_TRUE(disk.MakeFolder(kStudies).ok());
  }
  std::string Print() { return PrintTable(there, table, "Κτίριο_SPREAD.PDF"); }
  [[nodiscard]] FolderImage Exports() const { return ImageOf(test.outer_disk, kExports); }

  const std::filesystem::path kExports = kStudies / kExportFolder;
  PrintedTable table;
  FailingDisk disk{test.outer_disk};
  Workspace workspace{test.work_disk, TestBench::kProgramFolder, disk, TestBench::kLibraryFolder,
                      test.clock};
  Workbench bench{test.study, workspace, test.pipes, test.prompter};
  Desk there{bench, navigator, sound, viewer, clipboard, printer, Separators{',', '.'}};
};

TEST(PrintTable, MakesAPdfInTheExportFolderWhereThereIsNoPrinter) {
  WithoutPrinter desk;
  desk.test.prompter.Expect("Εκτύπωση", Answer::kNo);
  EXPECT_EQ(desk.Print(), "Η εκτύπωση ακυρώθηκε");
  EXPECT_TRUE(desk.Exports().empty());
  EXPECT_FALSE(desk.disk.Exists(desk.kExports)) << "no folder for nothing";

  desk.test.prompter.Expect("Εκτύπωση", Answer::kYes);
  EXPECT_EQ(desk.Print(), "Δημιουργήθηκε το Αρχείο < Κτίριο_SPREAD.PDF >");
  EXPECT_EQ(desk.Exports(), (FolderImage{{"Κτίριο_SPREAD.PDF", "%PDF of Γραφεία"}}));
  EXPECT_EQ(desk.test.prompter.boxes().back().lines[1], "/studies/ASCII/Κτίριο_SPREAD.PDF");
}

TEST(PrintTable, KeepsTheOldPdfUntilTheNewOneIsWhole) {
  WithoutPrinter desk;
  const FolderImage old{{"Κτίριο_SPREAD.PDF", "old"}};
  ASSERT_TRUE(desk.disk.MakeFolder(desk.kExports).ok());
  ASSERT_TRUE(desk.disk.Write(desk.kExports / "Κτίριο_SPREAD.PDF", "old").ok());

  desk.test.prompter.Expect("Εκτύπωση", Answer::kYes);
  desk.test.prompter.Expect("  ! !  ΠΡΟΣΟΧΗ  ! ! ", Answer::kNo);
  EXPECT_EQ(desk.Print(), "Η εκτύπωση ακυρώθηκε");
  EXPECT_EQ(desk.Exports(), old);
  EXPECT_EQ(desk.test.prompter.boxes().back().lines[0],
            "... To Αρχείο < Κτίριο_SPREAD.PDF >, υπάρχει ήδη ...");

  const auto agree = [&desk] {
    desk.test.prompter.Expect("Εκτύπωση", Answer::kYes);
    desk.test.prompter.Expect("  ! !  ΠΡΟΣΟΧΗ  ! ! ", Answer::kYes);
  };
  agree();
  desk.printer.cancels = true;
  EXPECT_EQ(desk.Print(), "Η εκτύπωση ακυρώθηκε");
  EXPECT_EQ(desk.Exports(), old);

  agree();
  desk.printer.cancels = false;
  desk.disk.FailAfterBytes(4);
  EXPECT_EQ(desk.Print(), "Η εκτύπωση ΔΕΝ έγινε");
  EXPECT_EQ(desk.Exports(), old);
  EXPECT_TRUE(desk.test.prompter.boxes().back().lines[0].starts_with("Ο δίσκος είναι γεμάτος"));

  agree();
  desk.disk.Mend();
  desk.Print();
  EXPECT_EQ(desk.Exports().begin()->second, "%PDF of Γραφεία");
}

TEST(PrintTable, TellsAnExportFolderThatCannotBeMade) {
  WithoutPrinter desk;
  desk.disk.FailAtOperation(1, FailingDisk::Lasting::kFromThenOn);
  desk.test.prompter.Expect("Εκτύπωση", Answer::kYes);
  EXPECT_EQ(desk.Print(), "Η εκτύπωση ΔΕΝ έγινε");
  EXPECT_TRUE(desk.printer.tables.empty());
}

TEST(PrintTable, WritesThePdfThatTheUserNamedInTheDialogue) {
  WithoutPrinter desk;
  desk.printer.choice = {Kind::kFile, kStudies / "φύλλο.pdf"};
  EXPECT_EQ(desk.Print(), "Δημιουργήθηκε το Αρχείο < φύλλο.pdf >");
  EXPECT_TRUE(desk.test.outer_disk.Exists(kStudies / "φύλλο.pdf"));
}

}  // namespace
}  // namespace kalvo
