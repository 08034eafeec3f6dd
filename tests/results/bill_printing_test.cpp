#include <gtest/gtest.h>

#include "results/frm_stat_s.h"
#include "tests/results/print_desk.h"

namespace kalvo {
namespace {

// The bill of a calculated study, open as from a view.
struct BillPrinting : PrintDesk, ::testing::Test {
  BillPrinting() {
    bill.Load();
    bill.Derive();
    navigator.Show(screen::kQuantities);
    TakeLog();
  }
  FrmStatS bill{desk};
};

TEST_F(BillPrinting, PrintsThePagesOnThePrinterThatIsAgreed) {
  EXPECT_TRUE(bill.Chk_XL.on);
  printer.answer = [](const PrintOrder& asked) { return PrintOrder{asked.printer, 2}; };
  Click(bill, bill.CmdOK);
  ASSERT_EQ(printer.asked.size(), 1U);
  EXPECT_EQ(printer.asked[0].copies, 1);
  EXPECT_TRUE(application.Was("print Γραφείο 2 2"));
  EXPECT_EQ(bill.printers.Cbo_Printers.selected, 1);
  application.log.clear();
  printer.answer = nullptr;
  Click(bill, bill.CmdOK);
  EXPECT_TRUE(application.log.empty()) << "cancelled";
  Click(bill, bill.CmdPreview);
  EXPECT_TRUE(application.Was("preview"));
  EXPECT_TRUE(database.log.empty());
}

TEST_F(BillPrinting, ThroughTheProgramMakesTheDatabaseOfTheBill) {
  bill.Chk_XL.Set(false);
  bill.Derive();
  EXPECT_FALSE(bill.printers.Cbo_Printers.enabled);
  Click(bill, bill.CmdPreview);
  EXPECT_EQ(database.log, std::vector<std::string>{"PISTMSTR.MDB to PRNFILE.MDB : 10"});
  EXPECT_TRUE(TakeLog().empty());
  Click(bill, bill.CmdOK);
  EXPECT_EQ(TakeLog(), std::vector<std::string>{"close FrmStatS"});
  EXPECT_TRUE(application.log.empty());
}

TEST_F(BillPrinting, SavesAWorkbookAndAPdfUnderTheStudysName) {
  const std::string attention = "  ! !  ΠΡΟΣΟΧΗ  ! ! ";
  test.prompter.Expect(attention, Answer::kNo);
  Click(bill, bill.CmdSave);
  EXPECT_TRUE(application.log.empty()) << "the workbook was not agreed to";
  test.prompter.Expect(attention, Answer::kYes);
  for (Command* command : {&bill.CmdSave, &bill.CmdPdf}) {
    test.prompter.Expect("Εκτύπωση", Answer::kNo);
    Click(bill, *command);
  }
  EXPECT_TRUE(application.Was("save /studies/ASCII/hotel_PROM.XLS"));
  EXPECT_TRUE(application.Was("pdf /studies/ASCII/hotel_PROM.PDF"));
}

TEST_F(BillPrinting, OfAStudyWithoutANameGoesWhereTheUserChooses) {
  test.study.study_path.clear();
  Click(bill, bill.CmdPdf);
  EXPECT_TRUE(application.log.empty()) << "no file was chosen";
  ASSERT_EQ(files.asked.size(), 1U);
  files.answer = "/elsewhere/οροφος";
  test.prompter.Expect("Εκτύπωση", Answer::kNo);
  Click(bill, bill.CmdPdf);
  EXPECT_TRUE(application.Was("pdf /elsewhere/οροφος_PROM.PDF"));
}

TEST_F(BillPrinting, GivesEveryRowTheDesigner) {
  desk.screens.CurrentDesigner = "Μ. Μηχανικός";
  Click(bill, bill.CmdPreview);
  EXPECT_EQ(test.Row(6).Client.Utf8(), "Μ. Μηχανικός");
  EXPECT_TRUE(test.study.unsaved_changes);
}

}  // namespace
}  // namespace kalvo
