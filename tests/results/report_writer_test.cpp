#include "results/reports/report_writer.h"

#include <gtest/gtest.h>

#include <limits>

#include "tests/results/report_desk.h"
#include "tests/support/failing_disk.h"

namespace kalvo {
namespace {

using Told = std::vector<std::string>;

TEST(ChosenReport, FollowsCodeKindAndSystem) {
  const auto chosen = [](int code, ReportKind kind, SystemKind system) {
    const ReportChoice choice = ChooseReport(code, kind, system);
    return std::string(choice.table->template_file) + " " +
           std::to_string(static_cast<int>(choice.mode)) + " " + choice.Suffix();
  };
  constexpr auto kData = ReportKind::kData;
  constexpr auto kResults = ReportKind::kResults;
  constexpr auto kClosed = SystemKind::kClosed;
  constexpr auto kOpen = SystemKind::kOpen;
  EXPECT_EQ(chosen(-1, kData, kClosed), "KALV_CD.xls -1 _DC.XLS");
  EXPECT_EQ(chosen(-2, kData, kOpen), "KALV_OD.xls -2 _DO.XLS");
  EXPECT_EQ(chosen(0, kResults, kClosed), "KALV_RS.xls 0 _RCO.XLS");
  EXPECT_EQ(chosen(-2, kResults, kOpen), "KALV_RS.xls -2 _RCO.XLS");
  EXPECT_EQ(chosen(-3, kResults, kOpen), "KALV_RS.xls -3 _RCO.PDF");
  EXPECT_EQ(chosen(-10, kData, kClosed), "KALV_PR.xls 0 _PROM.XLS");
  EXPECT_EQ(chosen(-11, kResults, kOpen), "KALV_PR.xls -1 _PROM.XLS");
  EXPECT_EQ(chosen(-12, kResults, kClosed), "KALV_PR.xls -2 _PROM.XLS");
  EXPECT_EQ(chosen(QuantitiesCodeOf(ReportMode::kPdf), kResults, kOpen),
            "KALV_PR.xls -3 _PROM.PDF");
}

TEST(ReportName, GetsItsSuffixOnce) {
  for (const auto& [typed, full] :
       std::vector<std::pair<std::string, std::string>>{{" Ξενοδοχείο Α ", "Ξενοδοχείο Α_RCO.XLS"},
                                                        {"hotel_RCO.XLS", "hotel_RCO.XLS"},
                                                        {"hotel_rco.xls", "hotel_rco.xls"},
                                                        {"hotel.xls", "hotel_RCO.xls"},
                                                        {"hotel_RCO", "hotel_RCO.XLS"},
                                                        {"hotel_RCO.pdf", "hotel_RCO.XLS"},
                                                        {"hotel.v2", "hotel.v2_RCO.XLS"},
                                                        {"../a b/hotel", "../a b/hotel_RCO.XLS"},
                                                        {"", ""},
                                                        {"  ", ""},
                                                        {".XLS", ""},
                                                        {"a/", ""},
                                                        {"a\\", ""}}) {
    EXPECT_EQ(ReportName(typed, "_RCO.XLS"), full) << typed;
  }
  EXPECT_EQ(ReportName("hotel_RCO.XLS", PdfSuffix("_RCO.XLS")), "hotel_RCO.PDF");
}

TEST(ReportTargets, AreInTheExportFolderUnlessTheNameHasAFolder) {
  MemoryDisk disk;
  EXPECT_FALSE(FindReportTarget(disk, "/studies", "hotel", "_DC.XLS").ok()) << "a stick taken out";
  ASSERT_TRUE(disk.MakeFolder("/studies").ok());
  const auto target = [&disk](const std::string& name) {
    const auto found = FindReportTarget(disk, "/studies", name, "_DC.XLS");
    EXPECT_TRUE(found.ok());
    return found->file.string() + (found->in_export_folder ? " *" : "");
  };
  EXPECT_EQ(target("hotel"), "/studies/ASCII/hotel_DC.XLS *");
  ASSERT_TRUE(disk.MakeFolder("/studies/ascii").ok());
  EXPECT_EQ(target("hotel"), "/studies/ascii/hotel_DC.XLS *");
  EXPECT_EQ(target("παλιά\\hotel"), "/studies/ascii/παλιά/hotel_DC.XLS *");
  EXPECT_EQ(target("/desk/hotel"), "/desk/hotel_DC.XLS");
  EXPECT_EQ(target(" "), "");
  UnreadableDisk barred(disk);
  barred.Bar("studies");
  EXPECT_FALSE(FindReportTarget(barred, "/studies", "hotel", "_DC.XLS").ok());
}

struct Reports : ReportDesk, ::testing::Test {
  Reports() { order.target = {"/studies/ASCII/hotel_RCO.XLS", true}; }

  static constexpr const char* kRemedy =
      "Διαγράψτε το Αρχείο αυτό και ξεκινήστε πάλι το Πρόγραμμα : θα μπει ξανά στη θέση του";
  static constexpr const char* kNotPossible =
      "Η ΕΚΤΥΠΩΣΗ - μέσω του Microsoft Excel - ΔΕΝ ΕΙΝΑΙ ΔΥΝΑΤΗ";
};

TEST_F(Reports, EndAsTheirModeSays) {
  struct Ending {
    ReportMode mode;
    Told told;
  };
  order.print.printer = "Γραφείο";
  order.print.copies = 0;
  for (const Ending& ending : std::vector<Ending>{
           {ReportMode::kPreview, {"preview"}},
           {ReportMode::kPrint, {"print Γραφείο 1"}},
           {ReportMode::kSave, {"protect (*40731862*)", "save /studies/ASCII/hotel_RCO.XLS"}},
           {ReportMode::kPdf, {"pdf /studies/ASCII/hotel_RCO.XLS"}}}) {
    EXPECT_TRUE(Make(CodeOf(ending.mode)));
    Told expected = {"open /program/KALV_RS.xls (*40731862*)", "put"};
    expected.insert(expected.end(), ending.told.begin(), ending.told.end());
    expected.emplace_back("quit");
    EXPECT_EQ(application.log, expected);
  }
  EXPECT_TRUE(test.prompter.boxes().empty());
  EXPECT_TRUE(test.outer_disk.IsFolder("/studies/ASCII"));
  order.print.copies = 3;
  EXPECT_TRUE(Make(QuantitiesCodeOf(ReportMode::kPrint)));
  EXPECT_TRUE(application.Was("print Γραφείο 3"));
}

TEST_F(Reports, ChangeNothingOfTheStudy) {
  const FolderImage before = ImageOf(test.work_disk, TestBench::kProgramFolder);
  for (const int code : {-1, 0, -2, -3, -10, -11, -12, -13}) EXPECT_TRUE(Make(code));
  EXPECT_EQ(ImageOf(test.work_disk, TestBench::kProgramFolder), before);
  EXPECT_FALSE(test.study.unsaved_changes);
}

TEST_F(Reports, AreNotMadeWithoutTheirTemplate) {
  ASSERT_TRUE(test.outer_disk.Remove(kTemplates / "KALV_RS.xls").ok());
  EXPECT_FALSE(Preview(ReportKind::kResults));
  const Box& box = test.prompter.boxes().back();
  EXPECT_EQ(box.title, kNotPossible);
  EXPECT_EQ(Joined(box.lines), "... Λείπει κάποιο βασικό Αρχείο ...|< KALV_RS.xls >");
  EXPECT_EQ(box.style, box_style::kExclamation);
  EXPECT_TRUE(application.log.empty());
  order.template_folder = "/gone";
  EXPECT_FALSE(PreviewQuantities());
  EXPECT_EQ(LastBox(), "... Λείπει κάποιο βασικό Αρχείο ...|< KALV_PR.xls >");
}

TEST_F(Reports, TellWhatIsTheMatterWithTheirTemplate) {
  application.refuses_to_open = FileError{"/program/KALV_RS.xls", "Δεν είναι βιβλίο εργασίας"};
  EXPECT_FALSE(Preview(ReportKind::kResults));
  EXPECT_EQ(LastBox(), "Δεν είναι βιβλίο εργασίας : /program/KALV_RS.xls|" + std::string(kRemedy));
  EXPECT_FALSE(application.Was("quit")) << "nothing was open";

  application.refuses_to_open.reset();
  const std::string file = " : /program/kalv_pr.XLS|" + std::string(kRemedy);
  using Sheets = decltype(application.sheets);
  for (const auto& [sheets, reason] :
       {std::pair{Sheets{{"Sheet1", 0}}, "Λείπει το φύλλο < Sheet2 >"},
        {Sheets{{"Αποτελέσματα", 0}}, "Λείπει το φύλλο < Sheet1 >"},
        {Sheets{{"Sheet1", 1}, {"Sheet2", 0}}, "Το φύλλο < Sheet1 > πρέπει να είναι το πρώτο"}}) {
    application.sheets = sheets;
    EXPECT_FALSE(PreviewQuantities());
    EXPECT_EQ(LastBox(), reason + file);
    EXPECT_EQ(application.log, (Told{"open /program/kalv_pr.XLS (*40731862*)", "quit"}));
  }
  EXPECT_EQ(test.prompter.boxes().back().title, kNotPossible);
}

TEST_F(Reports, QuitWhateverTheirEndSays) {
  application.refuses_to_end = FileError{"/studies/ASCII/hotel_RCO.XLS", "Ο δίσκος είναι γεμάτος"};
  for (const ReportMode mode :
       {ReportMode::kPreview, ReportMode::kPrint, ReportMode::kSave, ReportMode::kPdf}) {
    EXPECT_FALSE(Make(CodeOf(mode)));
    EXPECT_EQ(application.log.back(), "quit");
    EXPECT_EQ(LastBox(), "Ο δίσκος είναι γεμάτος : /studies/ASCII/hotel_RCO.XLS");
  }
  EXPECT_EQ(test.prompter.boxes().size(), 4U);
}

TEST_F(Reports, WithoutANameAreNotWritten) {
  order.target = {};
  EXPECT_FALSE(Make(CodeOf(ReportMode::kSave)));
  EXPECT_EQ(LastBox(), "... ΔΕΝ έχετε δώσει όνομα Αρχείου ...");
  EXPECT_FALSE(Make(QuantitiesCodeOf(ReportMode::kPdf)));
  EXPECT_EQ(test.prompter.boxes().size(), 2U);
  EXPECT_TRUE(application.log.empty());
  EXPECT_TRUE(Preview(ReportKind::kResults)) << "which writes none";
}

TEST_F(Reports, MakeNoFolderButTheExportFolder) {
  order.target = {"/desk/hotel_RCO.XLS", false};
  EXPECT_TRUE(Make(CodeOf(ReportMode::kSave)));
  EXPECT_FALSE(test.outer_disk.Exists("/desk"));

  FailingDisk full(test.outer_disk);
  Workspace workspace(test.work_disk, TestBench::kProgramFolder, full, TestBench::kLibraryFolder,
                      test.clock);
  Workbench bench(test.study, workspace, test.pipes, test.prompter);
  full.FailAtOperation(1, FailingDisk::Lasting::kFromThenOn);
  order.target = {"/studies/ASCII/hotel_RCO.XLS", true};
  application.log.clear();
  order.code = CodeOf(ReportMode::kSave);
  EXPECT_EQ(WriteReport(bench, application, order), ReportEnd::kUnwritable);
  EXPECT_EQ(LastBox(), "Ο δίσκος είναι γεμάτος : /studies/ASCII");
  EXPECT_EQ(application.log.back(), "quit");
}

TEST_F(Reports, OfWhatCannotBeReadAreNoEmptyOnes) {
  UnreadableDisk work(test.work_disk);
  UnreadableDisk outer(test.outer_disk);
  Workspace workspace(work, TestBench::kProgramFolder, outer, TestBench::kLibraryFolder,
                      test.clock);
  Workbench bench(test.study, workspace, test.pipes, test.prompter);
  work.Bar(work_file::kRows);
  for (const int code : {-1, -2, -11}) {
    order.code = code;
    EXPECT_EQ(WriteReport(bench, application, order), ReportEnd::kUnreadable);
    EXPECT_EQ(LastBox(), "Σφάλμα του δίσκου : /program/DATARES.TMP");
  }
  work.Mend();
  outer.Bar("0001.WPT");
  EXPECT_EQ(WriteReport(bench, application, order), ReportEnd::kUnreadable);
  EXPECT_EQ(LastBox(), "Σφάλμα του δίσκου : /library/0001.WPT");
  outer.Bar("program");
  EXPECT_EQ(WriteReport(bench, application, order), ReportEnd::kUnreadable);
  EXPECT_EQ(LastBox(), "Σφάλμα του δίσκου : /program") << "its templates are not missing";
  ASSERT_TRUE(test.workspace.Write(work_file::kRows, std::string(100, 'x')).ok());
  EXPECT_FALSE(Preview(ReportKind::kData));
  EXPECT_NE(LastBox().find("/program/DATARES.TMP"), std::string::npos);
  EXPECT_TRUE(application.log.empty()) << "nothing was opened for any of them";
}

TEST_F(Reports, OfNothingAreRefused) {
  test.study.PipeStats.clear();
  test.workspace.Delete(work_file::kStatistics);
  EXPECT_FALSE(PreviewQuantities());
  EXPECT_EQ(LastBox(), "Η προμέτρηση συμπληρώνεται με τον υπολογισμό.");
  test.workspace.Delete(work_file::kRows);
  EXPECT_FALSE(Preview(ReportKind::kData));
  EXPECT_EQ(test.prompter.codes(), std::vector<int>{139});
  EXPECT_TRUE(application.log.empty());
}

// Counting quantities beyond what 32 bits hold is a fault.
TEST_F(Reports, OfQuantitiesThatCannotBeCountedEndInTheBoxOfTheFault) {
  test.study.PipeStats.pop_back();
  for (const int number : {1, 2, 3, 4, 5, 6}) {
    test.ChangeRow(number, [](SectionRow& row) { row.Length = std::numeric_limits<float>::max(); });
  }
  EXPECT_FALSE(PreviewQuantities());
  EXPECT_EQ(test.prompter.boxes().size(), 1U);
  EXPECT_TRUE(application.log.empty());
}

}  // namespace
}  // namespace kalvo
