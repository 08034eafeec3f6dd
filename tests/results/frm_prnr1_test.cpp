#include <gtest/gtest.h>

#include "results/printing/printer_list.h"
#include "tests/results/print_desk.h"

namespace kalvo {
namespace {

const std::string kAttention = "  ! !  ΠΡΟΣΟΧΗ  ! ! ";
const std::string kMade = "Εκτύπωση";

struct Printing : PrintDesk, ::testing::Test {};

TEST(PrintTitles, SayWhatIsPrintedByWhichRoute) {
  struct Case {
    ReportKind kind;
    bool spreadsheet;
    SystemKind system;
    const char* title;
  };
  for (const Case& c :
       {Case{ReportKind::kData, false, SystemKind::kClosed,
             "ΠΡΟΓΡΑΜΜΑ < Kalvoflume > - ΕΚΤΥΠΩΣΗ ΔΕΔΟΜΕΝΩΝ (Κλειστό Σύστημα)"},
        Case{ReportKind::kData, true, SystemKind::kOpen,
             "ΠΡΟΓΡΑΜΜΑ < Kalvoflume > - ΕΚΤΥΠΩΣΗ ΔΕΔΟΜΕΝΩΝ (μέσω Microsoft Excel - Ανοικτό "
             "Σύστημα)"},
        Case{ReportKind::kResults, true, SystemKind::kClosed,
             "ΠΡΟΓΡΑΜΜΑ < Kalvoflume > - ΕΚΤΥΠΩΣΗ ΑΠΟΤΕΛΕΣΜΑΤΩΝ (μέσω Microsoft Excel - Κλειστό "
             "Σύστημα)"}}) {
    PrintDesk desk(c.system);
    bool shown = false;
    desk.In(c.kind, c.spreadsheet, [&](FrmPRNR1& form) {
      shown = true;
      EXPECT_EQ(form.title, c.title);
      EXPECT_EQ(form.Chk_XL.visible, c.spreadsheet);
      EXPECT_EQ(form.OptFile.visible, !c.spreadsheet);
      EXPECT_EQ(form.TxtFile.visible, !c.spreadsheet) << "only with a workbook to be made";
      EXPECT_EQ(form.TxtFile.text, "hotel");
    });
    EXPECT_TRUE(shown);
  }
}

TEST_F(Printing, GoesToThePrinterThatIsAgreedInCopies) {
  In(ReportKind::kResults, true, [this](FrmPRNR1& form) {
    EXPECT_EQ(form.printers.Cbo_Printers.selected, 1) << "the system's own";
    EXPECT_EQ(form.LblPrinter.text, "ισόγειο");
    form.printers.Cbo_Printers.Select(0);
    TypeInto(form, form.TxtCopies, "0");
    Click(form, form.VScroll1More);
    Click(form, form.VScroll1More);
    EXPECT_EQ(form.TxtCopies.text, "3");
    printer.answer = [](const PrintOrder&) { return PrintOrder{"Γραφείο 2", 0}; };
    Click(form, form.CmdOK);
  });
  ASSERT_EQ(printer.asked.size(), 1U);
  EXPECT_EQ(printer.asked[0].printer, "Γραφείο 1");
  EXPECT_EQ(printer.asked[0].copies, 3);
  EXPECT_TRUE(application.Was("print Γραφείο 2 1"));
  EXPECT_TRUE(Closed());
}

TEST_F(Printing, StaysOpenWhenThePrintersDialogueIsCancelledOrThereIsNone) {
  In(ReportKind::kResults, true, [this](FrmPRNR1& form) {
    printer.answer = nullptr;
    Click(form, form.CmdOK);
    EXPECT_TRUE(application.log.empty());
  });
  EXPECT_FALSE(Closed());
  printer.known.clear();
  In(ReportKind::kResults, true, [this](FrmPRNR1& form) {
    EXPECT_EQ(form.printers.Cbo_Printers.entries.front(), "Δεν υπάρχει εκτυπωτής");
    test.prompter.Expect("Εκτύπωση", Answer::kNo);
    Click(form, form.CmdOK);
    EXPECT_TRUE(application.log.empty());
    test.prompter.Expect("Εκτύπωση", Answer::kYes);
    test.prompter.Expect("Εκτύπωση", Answer::kNo);
    Click(form, form.CmdOK);
    EXPECT_TRUE(application.Was("pdf /studies/ASCII/hotel_RCO.PDF")) << "the user's other choice";
    Click(form, form.CmdPreview);
  });
  EXPECT_TRUE(application.Was("preview"));
  EXPECT_FALSE(Closed());
}

TEST_F(Printing, StaysOpenWhenThePrintIsCancelledOnItsWay) {
  application.cancels = true;
  In(ReportKind::kResults, true, [this](FrmPRNR1& form) {
    form.Focus(form.TxtCopies);
    EXPECT_TRUE(form.Press(Plain(KeyCode::kUp)));
    EXPECT_TRUE(form.Press(Plain(KeyCode::kUp)));
    EXPECT_TRUE(form.Press(Plain(KeyCode::kDown)));
    EXPECT_EQ(form.TxtCopies.text, "2");
    Click(form, form.CmdOK);
  });
  EXPECT_TRUE(application.Was("print Γραφείο 2 2"));
  EXPECT_TRUE(test.prompter.boxes().empty());
  EXPECT_FALSE(Closed());
}

TEST_F(Printing, MakesAWorkbookAfterItsQuestions) {
  ASSERT_TRUE(test.outer_disk.MakeFolder("/studies/ascii").ok());
  ASSERT_TRUE(test.outer_disk.Write("/studies/ascii/hotel_RCO.XLS", "old").ok());
  In(ReportKind::kResults, true, [this](FrmPRNR1& form) {
    form.Chk_XL.Set(true);
    form.Derive();
    EXPECT_TRUE(form.TxtFile.visible);
    EXPECT_FALSE(form.printers.Cbo_Printers.enabled);
    EXPECT_EQ(form.LblTarget.text, "Γράφεται το hotel_RCO.XLS στον φάκελο /studies/ascii");
    test.prompter.Expect(kAttention, Answer::kNo);
    Click(form, form.CmdOK);
    test.prompter.Expect(kAttention, Answer::kYes);
    test.prompter.Expect(kAttention, Answer::kNo);
    Click(form, form.CmdOK);
    EXPECT_TRUE(application.log.empty());
    test.prompter.Expect(kAttention, Answer::kYes);
    test.prompter.Expect(kAttention, Answer::kYes);
    test.prompter.Expect(kMade, Answer::kYes);
    Click(form, form.CmdOK);
  });
  EXPECT_TRUE(application.Was("save /studies/ascii/hotel_RCO.XLS"));
  EXPECT_EQ(navigator.waits.front(),
            "... Παρακαλώ, Περιμένετε ... Δημιουργείται Αρχείο < Microsoft Excel > ...");
  EXPECT_EQ(viewer.files, (std::vector<std::filesystem::path>{"/studies/ascii/hotel_RCO.XLS"}));
  EXPECT_TRUE(Closed());
}

TEST_F(Printing, TakesNoNameAndAFailingReportForNoFile) {
  In(ReportKind::kData, true, [this](FrmPRNR1& form) {
    form.Chk_XL.Set(true);
    form.Derive();
    TypeInto(form, form.TxtFile, " ");
    Click(form, form.CmdPdf);
    EXPECT_EQ(LastBox(), "... ΔΕΝ έχετε δώσει όνομα Αρχείου ...");
    files.answer = "/elsewhere/γραφείο.pdf";
    Click(form, form.CmdFile);
    EXPECT_EQ(form.TxtFile.text, "/elsewhere/γραφείο.pdf");
    files.answer = kNoFileAtAll;
    Click(form, form.CmdFile);
    EXPECT_EQ(form.TxtFile.text, "/elsewhere/γραφείο.pdf");
    application.refuses_to_end = FileError{"/elsewhere/x", "Ο δίσκος γέμισε"};
    Click(form, form.CmdPdf);
    EXPECT_EQ(LastBox(), "Ο δίσκος γέμισε : /elsewhere/x");
    EXPECT_TRUE(application.Was("pdf /elsewhere/γραφείο_DC.pdf"));
    EXPECT_EQ(application.log.back(), "quit");
  });
  EXPECT_FALSE(Closed());
}

TEST_F(Printing, ThroughTheProgramMakesTheDatabaseAndNoPage) {
  In(ReportKind::kResults, false, [this](FrmPRNR1& form) {
    EXPECT_TRUE(form.OptPRN.on);
    EXPECT_FALSE(form.TxtFile.enabled);
    Click(form, form.CmdPreview);
    EXPECT_EQ(database.log, std::vector<std::string>{"KALVMSTR.MDB to PRNFILE.MDB : 6"});
    database.refusal = FileError{"KALVMSTR.MDB", "λείπει"};
    Click(form, form.CmdOK);
    EXPECT_EQ(LastBox(), "λείπει : KALVMSTR.MDB");
    database.refusal.reset();
    Click(form, form.CmdOK);
    EXPECT_EQ(test.prompter.boxes().back().lines.back(), "/program/PRNFILE.MDB");
  });
  EXPECT_TRUE(Closed());
  EXPECT_TRUE(application.log.empty());
}

TEST_F(Printing, ThroughTheProgramToAFileWritesOneOfItsKindBesideTheDatabase) {
  for (const auto& [kind, name] : {std::pair{0, "hotel.REC"}, {1, "hotel.TXT"}}) {
    In(ReportKind::kResults, false, [&](FrmPRNR1& form) {
      form.OptFile.Set(true);
      form.Cbo_FileKind.Select(kind);
      form.Derive();
      EXPECT_EQ(form.LblTarget.text, std::string("Γράφεται το ") + name +
                                         " στον φάκελο /studies/ASCII, και η βάση PRNFILE.MDB");
      test.prompter.Expect("Εκτύπωση", Answer::kYes);
      Click(form, form.CmdOK);
    });
    EXPECT_EQ(viewer.files.back(), std::filesystem::path("/studies/ASCII") / name);
    EXPECT_TRUE(test.outer_disk.Exists(std::filesystem::path("/studies/ASCII") / name));
    EXPECT_TRUE(Closed());
  }
  In(ReportKind::kResults, false, [&](FrmPRNR1& form) {
    form.OptFile.Set(true);
    TypeInto(form, form.TxtFile, "hotel.rec");
    ASSERT_TRUE(test.workspace.Write("PRNFILE.TMP", "rest").ok());
    test.prompter.Expect(kAttention, Answer::kNo);
    Click(form, form.CmdOK);
    EXPECT_FALSE(test.workspace.Exists("PRNFILE.TMP"));
  });
  EXPECT_FALSE(Closed()) << "the file that is there stays, and so does the form";
}

TEST_F(Printing, IsRefusedWithoutWhatIsPrinted) {
  test.study.results_valid = false;
  PrintBySpreadsheet(desk, ReportKind::kResults);
  PrintByChosenRoute(desk, ReportKind::kResults);
  test.workspace.Delete(work_file::kRows);
  test.study.CurrentRow = 1;
  PrintByChosenRoute(desk, ReportKind::kData);
  EXPECT_EQ(test.prompter.codes(), (std::vector{140, 140, 139}));
  EXPECT_TRUE(TakeLog().empty());
}

TEST_F(Printing, KeepsTheListOfPrintersThatTheSystemTells) {
  RefreshPrinterList(test.workspace, printer.known);
  EXPECT_EQ(test.Bytes(kPrinterListFile).size(), 2U * 2170U);
  EXPECT_EQ(FindPrinter(test.workspace, "Γραφείο 2")->driver.Utf8(), "PCL");
  ASSERT_TRUE(test.workspace.Write(kPrinterListFile, "odd").ok());
  EXPECT_FALSE(FindPrinter(test.workspace, "Γραφείο 2"));
  RefreshPrinterList(test.workspace, {printer.known[1]});
  EXPECT_EQ(FindPrinter(test.workspace, "Γραφείο 2")->number, 1);
  EXPECT_FALSE(FindPrinter(test.workspace, "Γραφείο 1"));
}

}  // namespace
}  // namespace kalvo
