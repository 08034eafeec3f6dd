#include <gtest/gtest.h>

#include "results/reports/quantities_report.h"
#include "results/reports/section_report.h"
#include "tests/results/report_desk.h"

namespace kalvo {
namespace {

using Told = std::vector<std::string>;

struct ReportCells : ReportDesk, ::testing::Test {};
struct OpenReportCells : ReportDesk, ::testing::Test {
  OpenReportCells() : ReportDesk(SystemKind::kOpen) {}
};

// Values that show in the last digit when a 32-bit number goes in as it is.
void GiveOddValues(TestBench& test) {
  test.ChangeRow(1, [](SectionRow& row) {
    row.Name = FixedText<7>::FromUtf8("  7/12 ");
    row.PAR = 47.391F;
    row.DP = 6831.42F;
    row.Length = 12.1F;
    row.WaterFlow = 233.3F;
    row.Velocity = 0.52F;
    row.AvaiPres = -6141.6F;
    row.NomiDiam = FixedText<15>::FromUtf8("  1 1/4 ");
    row.InDiameter = 36.0F;
  });
}

TEST_F(ReportCells, OfTheResultsAreWhereTheTemplateHasPlaceForThem) {
  GiveOddValues(test);
  ASSERT_TRUE(Preview(ReportKind::kResults));
  EXPECT_EQ(application.Row(1), "1:Μελετητής : Μ. Μηχανικός");
  EXPECT_EQ(application.Row(4), "1:Δίκτυο Δοκιμής");
  EXPECT_EQ(application.Row(6), "7:ΚΛΕΙΣΤΟ ΣΥΣΤΗΜΑ ΣΩΛΗΝΩΝ");
  EXPECT_EQ(application.Row(8), "1:Είδος Σωλήνων : Χαλυβδοσωλήνες");
  EXPECT_EQ(application.Row(9),
            "1:Τρόπος Υπολογισμού : < Εξισορρόπηση Κλάδων με Ρυθμιστικές Βαλβίδες >");
  EXPECT_EQ(application.Row(10), "1:Υγρό : Νερό");
  EXPECT_EQ(application.Row(12), "8:47.391");
  EXPECT_EQ(application.Row(13), "8:6.83142");
  EXPECT_EQ(application.Row(18), "2:1|3:  7/12 |4:12.1|5:233.3|6:0.52|7:1 1/4|8:-6141.6");
  EXPECT_EQ(application.At(23, 2), "6");
  for (const int row : {2, 3, 5, 7, 11, 14, 15, 16, 17, 24}) EXPECT_EQ(application.Row(row), "");
}

TEST_F(ReportCells, BracketAChangedDiameterAndHaveNoneOfAnUnsizedSection) {
  GiveOddValues(test);
  Impose(2);
  test.ChangeRow(3, [](SectionRow& row) { row.InDiameter = 0; });
  ASSERT_TRUE(Preview(ReportKind::kResults));
  EXPECT_EQ(application.At(19, 7), "(2)");
  EXPECT_EQ(application.bold, Told{"0!19,7"});
  EXPECT_EQ(application.At(20, 7), "") << "its name is not put either";
  EXPECT_NE(application.At(20, 8), "");
}

TEST_F(ReportCells, NameTheMethodOfTheRows) {
  CalculateAnew(Method::kFlowAndPressure);
  ASSERT_TRUE(Preview(ReportKind::kResults));
  EXPECT_EQ(application.Row(9),
            "1:Τρόπος Υπολογισμού : < Εξισορρόπηση Κλάδων, με Ρυθμιστικές Βαλβίδες και Τροποποίηση "
            "των Διαμέτρων >");
  test.ChangeRow(1, [](SectionRow& row) { row.INILAMDA = 0; });
  ASSERT_TRUE(Preview(ReportKind::kResults));
  EXPECT_EQ(application.Row(9), "");
}

TEST_F(OpenReportCells, OfTheResultsNameNoMethod) {
  ASSERT_EQ(test.Row(1).INILAMDA, 1.0F);
  ASSERT_TRUE(Preview(ReportKind::kResults));
  EXPECT_EQ(application.Row(6), "7:ΑΝΟΙΚΤΟ ΣΥΣΤΗΜΑ ΣΩΛΗΝΩΝ");
  EXPECT_EQ(application.Row(9), "");
}

void GiveEveryFitting(TestBench& test) {
  test.ChangeRow(2, [](SectionRow& row) {
    row.Length = 2.1F;
    row.WaterFlow = 300.7F;
    row.SomaDrop = 0.35F;
    row.HeightDiff = -1.1F;
    row.AnglePOP = 1.5F;
    row.Elbow90 = 2;
    row.GateValve = 3;
    row.StrSwitch = 4;
    row.AngSwitch = 5;
    row.DiaTee = 6;
    row.DieTee = 7;
    row.AntiTee = 8;
    row.SymboTee = 9;
    row.CheckValve = 10;
    row.OtherDrop_mm = 11.1F;
    row.OtherDrop_m = 12.7F;
  });
}

TEST_F(ReportCells, OfTheDataAreWhatWasEntered) {
  GiveEveryFitting(test);
  ASSERT_TRUE(Preview(ReportKind::kData));
  EXPECT_EQ(application.Row(1), "1:Μελετητής :  Μ. Μηχανικός ");
  EXPECT_EQ(application.Row(4), "1:Δίκτυο Δοκιμής");
  EXPECT_EQ(application.Row(6), "6:Υγρό : Νερό");
  EXPECT_EQ(application.Row(8),
            "1:Υλικό Σωλήνων : ΧΑΛΥΒΑΣ  /  Τυποποίηση Σωλήνων : Χαλυβδοσωλήνες");
  // 300.7 and 200 l/h: the sections without an emitter carry the same water.
  EXPECT_EQ(application.Row(11), "6:70|16:0.5007");
  EXPECT_EQ(application.Row(12), "6:6|16:1");
  EXPECT_EQ(application.Row(19),
            "1:2|2:  1/2  |3:2.1|4:300.7|5:0.35|6:1.5|7:2|8:3|9:4|10:5|11:6|12:7|13:8|14:9|15:10|"
            "16:11.1|17:12.7");
}

TEST_F(OpenReportCells, OfTheDataHaveTheHeightAndAColumnMore) {
  GiveEveryFitting(test);
  ASSERT_TRUE(Preview(ReportKind::kData));
  EXPECT_EQ(application.log.front(), "open /program/KALV_OD.xls (*40731862*)");
  EXPECT_EQ(application.Row(11), "6:70|17:0.5007");
  EXPECT_EQ(application.Row(12), "6:3|17:1");
  EXPECT_EQ(application.Row(19),
            "1:2|2:  2/1  |3:2.1|4:300.7|5:0.35|6:-1.1|7:1.5|8:2|9:3|10:4|11:5|12:6|13:7|14:8|15:9|"
            "16:10|17:11.1|18:12.7");
}

TEST_F(ReportCells, OfTheQuantitiesHaveEverySizeAndTheirHeadOnBothSheets) {
  test.study.PipeStats.at(0).Length = 27.1F;
  test.study.PipeStats.at(0).Corners = 1.5F;
  test.study.PipeStats.at(0).CheckV = 2;
  ASSERT_TRUE(PreviewQuantities());
  for (const int sheet : {0, 1}) {
    EXPECT_EQ(application.Row(1, sheet), "1:Μελέτη :  Μ. Μηχανικός ");
    EXPECT_EQ(application.Row(4, sheet), "1:Δίκτυο Δοκιμής");
    EXPECT_EQ(application.Row(8, sheet), "1:Υλικό Σωλήνων : ΧΑΛΥΒΑΣ");
    EXPECT_EQ(application.Row(9, sheet), "1:Χαλυβδοσωλήνες");
    EXPECT_NE(application.At(12, 8, sheet), "");
    EXPECT_NE(application.At(13, 8, sheet), "");
  }
  EXPECT_EQ(application.Row(19), "1:1|2:3/8|3:27.1|4:1.5|5:0|6:0|7:0|8:0|9:2");
  EXPECT_EQ(application.Row(28), "1:10|2:4|3:0|4:0|5:0|6:0|7:0|8:0|9:0");
  EXPECT_EQ(application.Row(29), "");
  EXPECT_EQ(application.Row(19, 1), "") << "the page that others are copied from";
}

TEST_F(ReportCells, OfTheQuantitiesInWinterAreThoseOfSummer) {
  ASSERT_TRUE(test.workspace.Copy(work_file::kRows, work_file::kSummerRows).ok());
  test.ChangeRow(1, [](SectionRow& row) { row.PAR = 99; });
  order.rows = work_file::kSummerRows;
  ASSERT_TRUE(PreviewQuantities());
  EXPECT_EQ(application.At(12, 8), "0.5");
}

struct PagedSections {
  ReportKind kind;
  int sections;
  int pages;
  int last_row;  // of the last line
};

TEST_F(ReportCells, OfSectionsGoOnOnTheNextPage) {
  for (const PagedSections& paged : {PagedSections{ReportKind::kResults, 1, 1, 18},
                                     {ReportKind::kResults, 40, 1, 57},
                                     {ReportKind::kResults, 41, 2, 59 + 18},
                                     {ReportKind::kResults, 80, 2, 59 + 57},
                                     {ReportKind::kResults, 600, 15, 14 * 59 + 57},
                                     {ReportKind::kData, 20, 1, 37},
                                     {ReportKind::kData, 21, 2, 39 + 18},
                                     {ReportKind::kData, 600, 30, 29 * 39 + 37}}) {
    SCOPED_TRACE(std::to_string(paged.sections) + " sections");
    PutSections(paged.sections);
    ASSERT_TRUE(Preview(paged.kind));
    const bool results = paged.kind == ReportKind::kResults;
    const int height = results ? 59 : 39;
    Told pages;
    for (int page = 1; page < paged.pages; ++page) {
      const std::string first_row = std::to_string(page * height + 1);
      pages.push_back("copy 0!1-" + std::to_string(height) + " to 0!" + first_row);
      pages.push_back("break 0!" + first_row);
      EXPECT_EQ(application.Row(page * height + 4), "1:Δίκτυο Δοκιμής");
      EXPECT_EQ(application.Row(page * height + 12), application.Row(12));
    }
    EXPECT_EQ(Pages(), pages);
    EXPECT_EQ(application.At(paged.last_row, results ? 2 : 1), std::to_string(paged.sections));
    EXPECT_EQ(application.Row(paged.last_row + 1), "");
    EXPECT_EQ(application.Row(paged.pages * height + 1), "");
  }
  EXPECT_EQ(application.At(39 + 18, 1), "21");
}

TEST_F(ReportCells, OfQuantitiesBeginAPageAtLines40And79And118) {
  PutSizes(39);
  ASSERT_TRUE(PreviewQuantities());
  EXPECT_EQ(Pages(), Told{});
  EXPECT_EQ(application.At(57, 1), "39");
  PutSizes(118);
  ASSERT_TRUE(PreviewQuantities());
  EXPECT_EQ(Pages(), (Told{"copy 1!1-59 to 0!60", "break 0!60", "height 0!59 7",
                           "copy 1!1-59 to 0!119", "break 0!119", "height 0!118 7",
                           "copy 1!1-59 to 0!178", "break 0!178", "height 0!177 7"}));
  EXPECT_EQ(application.At(57, 1) + " " + application.At(57, 2), "39 DN 39");
  EXPECT_EQ(application.At(59 + 19, 1), "40");
  EXPECT_EQ(application.At(118 + 19, 1), "79");
  EXPECT_EQ(application.At(177 + 19, 1), "118");
  EXPECT_EQ(application.Row(177 + 1), "1:Μελέτη :  Μ. Μηχανικός ");
}

TEST_F(ReportCells, ArePutOnceAllPagesAreThere) {
  PutSections(81);
  ASSERT_TRUE(Preview(ReportKind::kResults));
  EXPECT_EQ(application.log,
            (Told{"open /program/KALV_RS.xls (*40731862*)", "copy 0!1-59 to 0!60", "break 0!60",
                  "copy 0!1-59 to 0!119", "break 0!119", "put", "preview", "quit"}));
}

TEST_F(ReportCells, AreCountedWhileTheyArePut) {
  PutSections(41);
  std::vector<std::string> told;
  const auto note = [&told](std::size_t line, std::size_t count) {
    told.push_back(ReportProgressText(kResultsReport, line, count));
  };
  ASSERT_EQ(WriteReport(test.bench, application, order, note), ReportEnd::kMade);
  ASSERT_EQ(told.size(), 41U);
  EXPECT_EQ(told.front(), "Τμήμα Νο < 1 >, από Σύνολο Τμημάτων < 41 >");
  EXPECT_EQ(told.back(), "Τμήμα Νο < 41 >, από Σύνολο Τμημάτων < 41 >");
  EXPECT_EQ(ReportProgressText(kQuantitiesReport, 2, 9),
            "Διάμετρος Νο < 2 >, από Σύνολο Διαμέτρων < 9 >");
}

}  // namespace
}  // namespace kalvo
