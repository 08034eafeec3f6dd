#include "results/frm_res_sheet.h"

#include <gtest/gtest.h>

#include "engine/calculation_command.h"
#include "tests/support/test_desk.h"

namespace kalvo {
namespace {

const std::vector<std::string_view> kNetwork = {
    "ANT/1 5m", "1/2 5m soma 300l/h 500mm", "1/3 5m soma 200l/h 400mm", "2/4 5m", "3/4 5m",
    "4/ANT 5m"};

struct ResultsSheet : TestDesk, ::testing::Test {
  ResultsSheet() {
    test.PutNetwork(kNetwork);
    EXPECT_EQ(Calculate(test.bench, Method::kFlowOnly), CommandEnd::kCalculated);
    test.study.unsaved_changes = false;
    desk.screens.results_begin = true;
    form.Load();
  }
  [[nodiscard]] std::string Cell(int row, int column) const {
    return form.fpSpread1.At(row, column).text;
  }
  /// The user imposes a diameter on row 2, as the diameter workflow leaves it.
  void Impose() {
    test.ChangeRow(2, [](SectionRow& row) {
      row.InDiameter = -27.3F;
      row.NomiDiam = FixedText<15>::FromUtf8("1");
      row.PAR = 9;
    });
  }
  FrmRes_Sheet form{desk};
};

TEST_F(ResultsSheet, ShowsRowsAndFrameAndMakesTheResultsTheStudys) {
  EXPECT_TRUE(test.study.results_valid);
  EXPECT_TRUE(test.study.unsaved_changes);
  EXPECT_EQ(test.Bytes(work_file::kFirstRows), test.Bytes());
  EXPECT_EQ(form.fpSpread1.row_count(), 6);
  EXPECT_EQ(Cell(1, 0), "1/2");
  EXPECT_EQ(Cell(1, 3), "300,0");
  EXPECT_EQ(form.fpSpread1.At(1, 2).tone, Tone::kCalculated);
  EXPECT_EQ(form.LblFlow.text, "0,50");
  EXPECT_EQ(form.LblCount.text, "6");
  EXPECT_NE(form.fpSpread1.At(1, 5).tip.find("kPa"), std::string::npos);
  EXPECT_EQ(form.title, "ΣΥΓΚΕΝΤΡΩΤΙΚΑ ΑΠΟΤΕΛΕΣΜΑΤΑ ΥΠΟΛΟΓΙΣΜΩΝ ΣΩΛΗΝΩΝ - < ΚΛΕΙΣΤΟ > ΣΥΣΤΗΜΑ");
}

TEST_F(ResultsSheet, DrawsAndMarksTheCriticalBranch) {
  EXPECT_EQ(Joined(form.BranchOfCritical.nodes), "ANT|1|2|4|ANT");
  EXPECT_TRUE(form.fpSpread1.IsMarked(1));
  EXPECT_FALSE(form.fpSpread1.IsMarked(2));
  form.fpSpread1.MoveTo({3, 0});
  EXPECT_EQ(form.BranchOfCritical.current, 2);
  form.ChkCritical.Set(false);
  EXPECT_FALSE(form.fpSpread1.IsMarked(1));
  Click(form, form.CmdDiff);
  EXPECT_EQ(test.prompter.codes().back(), 302);
}

TEST_F(ResultsSheet, ExplainsTheCurrentRowByItsStoredValues) {
  form.fpSpread1.MoveTo({1, 0});
  ASSERT_EQ(form.SectionSteps.lines.size(), 8U);
  EXPECT_EQ(form.SectionSteps.lines.front().symbol, "Q");
  EXPECT_EQ(form.SectionSteps.lines.front().value, "300,0");
  EXPECT_EQ(form.SectionSteps.lines.back().symbol, "Δp");
  EXPECT_EQ(form.SectionSteps.lines.back().value,
            FormatPattern(test.Row(2).TotalDrop, "#,##0.00", desk.separators));
  ASSERT_EQ(form.DropShares.parts.size(), 4U);
  double whole = 0;
  for (const Share& part : form.DropShares.parts) {
    whole += part.fraction;
  }
  EXPECT_NEAR(whole, 1, 1e-4);
  EXPECT_EQ(test.study.CurrentRow, 2);
}

TEST_F(ResultsSheet, AsksAtTheWayBackWhichDiametersHold) {
  Impose();
  test.prompter.Expect(307, Answer::kNo);
  Click(form, form.Cmd_Back);
  EXPECT_EQ(test.Row(2).InDiameter, test.Row(3).InDiameter);
  EXPECT_EQ(test.prompter.boxes().back().title, "!!... ΠΡΟΣΟΧΗ ...!!");
  EXPECT_FALSE(test.workspace.Exists(work_file::kFirstRows));
  EXPECT_EQ(navigator.log, (std::vector<std::string>{"show FrmMain", "close FrmRes_Sheet"}));
}

TEST_F(ResultsSheet, KeepsNewDiametersAndShowsThemInTheirColour) {
  Impose();
  test.prompter.Expect(307, Answer::kYes);
  EXPECT_FALSE(form.MayClose());
  EXPECT_EQ(test.Row(2).InDiameter, -27.3F);
  EXPECT_EQ(form.fpSpread1.At(1, 2).tone, Tone::kImposed);
  EXPECT_FALSE(test.workspace.Exists(work_file::kFirstRows));
}

TEST_F(ResultsSheet, TellsOfRowsThatCannotBeReadAndOfOnesNeverCalculated) {
  test.ChangeRow(2, [](SectionRow& row) { row.WaterFlow = row.InDiameter = 0; });
  FrmRes_Sheet again(desk);
  again.Load();
  again.fpSpread1.MoveTo({1, 0});
  EXPECT_EQ(again.LblUnexplained.text, "Το τμήμα δεν έχει υπολογιστεί.");
  EXPECT_TRUE(again.Press(Plain(KeyCode::kF1))) << "F1 is swallowed here";
  ASSERT_TRUE(test.workspace.Write(work_file::kRows, "odd").ok());
  FrmRes_Sheet broken(desk);
  broken.Load();
  EXPECT_FALSE(test.prompter.boxes().empty());
  EXPECT_EQ(broken.fpSpread1.row_count(), 0);
}

TEST_F(ResultsSheet, ShowsTheNodeReportWithTheViewerThatIsPicked) {
  navigator.Expect(screen::kViewer, [this] { desk.screens.viewer = "NotePad"; });
  Click(form, form.Cmd_Nodes);
  ASSERT_EQ(viewer.files.size(), 1U);
  EXPECT_EQ(viewer.files[0].filename(), work_file::kFlowReport);
  navigator.Expect(screen::kViewer, [this] { desk.screens.viewer.clear(); });
  Click(form, form.Cmd_Nodes);
  EXPECT_EQ(viewer.files.size(), 1U);
}

}  // namespace
}  // namespace kalvo
