#include "results/frm_res_sheet.h"

#include <gtest/gtest.h>

#include <chrono>

#include "tests/results/results_desk.h"

namespace kalvo {
namespace {

constexpr int kDiameter = 2;
constexpr int kDrop = 5;

struct ResultsSheet : ResultsDesk, ::testing::Test {
  ResultsSheet() {
    form.Load();
    form.Activate();
  }
  [[nodiscard]] const GridCell& Cell(int row, int column) const {
    return form.fpSpread1.At(row, column);
  }
  [[nodiscard]] std::string Text(float value, const char* pattern = "#,##0.0") const {
    return FormatPattern(value, pattern, desk.separators);
  }
  FrmRes_Sheet form{desk};
};

TEST_F(ResultsSheet, ShowsRowsAndFrameAndMakesTheResultsTheStudys) {
  EXPECT_TRUE(test.study.results_valid);
  EXPECT_TRUE(test.study.unsaved_changes);
  EXPECT_EQ(test.Bytes(work_file::kFirstRows), test.Bytes());
  EXPECT_EQ(form.title, "ΣΥΓΚΕΝΤΡΩΤΙΚΑ ΑΠΟΤΕΛΕΣΜΑΤΑ ΥΠΟΛΟΓΙΣΜΩΝ ΣΩΛΗΝΩΝ - < ΚΛΕΙΣΤΟ > ΣΥΣΤΗΜΑ");
  EXPECT_EQ(TakeLog(), (std::vector<std::string>{"hide FrmMain", "close FrmRes"}));

  const SectionRow row = test.Row(2);
  std::vector<std::string> shown;
  for (int column = 0; column < form.fpSpread1.column_count(); ++column) {
    shown.push_back(Cell(1, column).text);
  }
  EXPECT_EQ(Joined(shown), Joined({"1/2", "5,0", row.NomiDiam.Utf8(), "300,0", Text(row.Velocity),
                                   Text(row.TotalDrop), Text(row.AvaiPres)}));
  EXPECT_EQ(Cell(1, kDiameter).tone, Tone::kCalculated);
  EXPECT_EQ(form.frame.LblFlow.text, "0,50");
  EXPECT_EQ(form.frame.LblHead.text, Text(test.study.PumpHead, "#,##0.00"));
  EXPECT_EQ(form.frame.LblPipes.text, "Χαλυβδοσωλήνες");
  EXPECT_EQ(form.frame.LblMeanTemp.text, "70,0");
  EXPECT_EQ(form.frame.LblMeanVel.text, "1,0");
  EXPECT_EQ(form.frame.LblLiquid.text, "Χρησιμοποιούμενο Υγρό : Νερό");
  EXPECT_EQ(form.LblCount.text, "6");
}

TEST_F(ResultsSheet, TellsKilopascalAndWhatAPressureWasBeforeItsSign) {
  test.ChangeRow(3, [](SectionRow& row) {
    row.TotalDrop = 1000.0F;
    row.FrictionRate = 10.0F;
    row.AvaiPres = -1234.5F;
  });
  form.Load();
  EXPECT_EQ(Cell(2, kDrop).tip, "9,81 kPa, τριβή 98,1 Pa/m");
  EXPECT_EQ(Cell(2, kDrop + 1).text, "1.234,5");
  EXPECT_EQ(Cell(2, kDrop + 1).tip, "12,11 kPa");
}

TEST_F(ResultsSheet, DrawsAndMarksTheCriticalBranch) {
  EXPECT_EQ(Joined(form.ChainCritical.nodes), "ANT|1|2|4|ANT");
  EXPECT_EQ(form.ChainCritical.total, Text(test.Row(1).DP) + " mm w.g.");
  EXPECT_TRUE(form.fpSpread1.IsMarked(1));
  EXPECT_FALSE(form.fpSpread1.IsMarked(2));
  form.fpSpread1.MoveTo({3, 0});
  EXPECT_EQ(form.ChainCritical.current, 2);
  EXPECT_EQ(test.study.CurrentRow, 4);
  form.fpSpread1.MoveTo({2, 0});
  EXPECT_EQ(form.ChainCritical.current, -1);
  form.ChkCritical.Set(false);
  EXPECT_FALSE(form.fpSpread1.IsMarked(1));
  Click(form, form.CmdDiff);
  EXPECT_EQ(test.prompter.codes().back(), 302);
}

TEST_F(ResultsSheet, SortsTheViewOnlyAndCopiesWhatIsShown) {
  const std::string before = test.Bytes();
  form.fpSpread1.CycleSort(kDrop);
  form.fpSpread1.CycleSort(kDrop);
  const int first = form.fpSpread1.order().front();
  EXPECT_TRUE(first == 1 || first == 2) << "the emitters have the largest drops";
  form.fpSpread1.MoveTo({first, 0});
  EXPECT_EQ(test.study.CurrentRow, first + 1) << "rows keep their numbers";
  EXPECT_EQ(form.panel.LblSection.text, "Τμήμα " + std::to_string(first + 1));
  const std::vector<GridPlace> places = {{1, 0}, {1, 1}};
  EXPECT_EQ(form.fpSpread1.Copy(places), "1/2\t5,0");
  EXPECT_EQ(test.Bytes(), before);
}

TEST_F(ResultsSheet, ExplainsTheCurrentRow) {
  form.fpSpread1.MoveTo({1, 0});
  const auto& lines = form.panel.StepsDrop.lines;
  std::vector<std::string> symbols;
  for (const StepLine& line : lines) symbols.push_back(line.symbol);
  EXPECT_EQ(Joined(symbols), "Q|D|v|Re|λ|R|L|Δp");
  EXPECT_EQ(lines.front(),
            (StepLine{"Q", "Παροχή", "από τα Σώματα που εξυπηρετεί", "300,0", "Lit/h"}));
  EXPECT_EQ(lines.back().value, Text(test.Row(2).TotalDrop, "#,##0.00"));
  EXPECT_EQ(lines.back().formula, "1,1 R L + Σώμα 500,00");
  EXPECT_EQ(lines[6].formula, "5,00 σωλήνας + 0,00 για Σζ 0,0");
  double whole = 0;
  for (const Share& part : form.panel.SharesDrop.parts) whole += part.fraction;
  EXPECT_NEAR(whole, 1, 1e-4);
  EXPECT_EQ(form.panel.SharesDrop.parts.back().value, "500,0");
  EXPECT_FALSE(form.panel.LblRemark.visible);
}

TEST_F(ResultsSheet, SaysWhenARowDoesNotLeadToItsDrop) {
  test.ChangeRow(2, [](SectionRow& row) { row.TotalDrop += 10; });
  test.ChangeRow(3, [](SectionRow& row) { row.WaterFlow = row.InDiameter = 0; });
  form.Load();
  form.fpSpread1.MoveTo({1, 0});
  EXPECT_EQ(form.panel.StepsDrop.lines.size(), 8U);
  EXPECT_NE(form.panel.LblRemark.text.find("άλλαξαν μετά τον υπολογισμό"), std::string::npos);
  form.fpSpread1.MoveTo({2, 0});
  EXPECT_TRUE(form.panel.StepsDrop.lines.empty());
  EXPECT_TRUE(form.panel.LblRemark.visible);
  EXPECT_TRUE(test.prompter.boxes().empty());
}

TEST_F(ResultsSheet, NotesWhatIsWorthKnowing) {
  EXPECT_FALSE(form.LblNotes.visible);
  test.ChangeRow(3, [](SectionRow& row) { row.Velocity = 1.2F; });
  Impose(4, "4", 105.3F);
  form.Load();
  EXPECT_EQ(form.LblNotes.text,
            "Τμήματα με ταχύτητα πάνω από την ταχύτητα σχεδιασμού : 3\n"
            "Τμήματα με τη μεγαλύτερη διάμετρο του συστήματος : 4");
  EXPECT_EQ(Cell(2, 0).tip, "Ταχύτητα πάνω από την ταχύτητα σχεδιασμού");
}

TEST_F(ResultsSheet, SaysAboveAllNotesThatALostNetworksResultsDoNotHold) {
  test.ChangeRow(5, [](SectionRow& row) { row.Name = FixedText<7>::FromUtf8("  3/9  "); });
  RefreshSectionTable(test.study, test.Rows());
  form.Load();
  EXPECT_EQ(form.LblNotes.text,
            "Τα αποτελέσματα ΔΕΝ ισχύουν : Ο Κλάδος του Σώματος στο Τμήμα 3 χάνεται στον Κόμβο 9");
  EXPECT_TRUE(form.LblNotes.visible);
}

TEST_F(ResultsSheet, KeepsTheOlderRowsWhenThePresentOnesAreGone) {
  ASSERT_TRUE(test.workspace.Copy(work_file::kRows, work_file::kRowsBeforeChange).ok());
  for (const char* now : {"", "odd"}) {
    ASSERT_TRUE(test.workspace.Write(work_file::kRows, now).ok());
    Click(form, form.Cmd_Back);
    EXPECT_TRUE(test.workspace.HasBytes(work_file::kFirstRows)) << now;
    EXPECT_TRUE(test.workspace.HasBytes(work_file::kRowsBeforeChange)) << now;
  }
}

TEST_F(ResultsSheet, AsksAtTheWayBackWhichDiametersHold) {
  const float head = test.Row(1).DP;
  Impose(2);
  test.ChangeRow(1, [](SectionRow& row) { row.DP = 9; });
  form.Load();
  EXPECT_EQ(Cell(1, kDiameter).tone, Tone::kImposed);
  EXPECT_NE(Cell(1, kDiameter).tip.find("ήταν"), std::string::npos);
  EXPECT_EQ(form.frame.LblHead.text, "0,01");
  test.study.critical_branch.clear();
  TakeLog();
  test.prompter.Expect(307, Answer::kNo);
  Click(form, form.Cmd_Back);
  EXPECT_GT(test.Row(2).InDiameter, 0);
  EXPECT_EQ(test.prompter.boxes().back().lines[0],
            "ΑΚΥΡΩΣΗ ΑΛΛΑΓΩΝ ΔΙΑΜΕΤΡΩΝ : Ισχύουν οι ΠΑΛΑΙΕΣ ΔΙΑΜΕΤΡΟΙ ΣΩΛΗΝΩΝ");
  EXPECT_EQ(form.frame.LblHead.text, Text(head / 1000, "#,##0.00"));
  EXPECT_EQ(test.study.critical_branch, "1  -2  -4  -6  -");
  EXPECT_FALSE(test.workspace.Exists(work_file::kFirstRows));
  EXPECT_EQ(TakeLog(),
            (std::vector<std::string>{"close FrmResGn", "close FrmRes_Sheet", "show FrmMain"}));
}

TEST_F(ResultsSheet, KeepsNewDiametersWhenItsWindowIsClosed) {
  Impose(2);
  test.prompter.Expect(307, Answer::kYes);
  EXPECT_FALSE(form.MayClose()) << "the way back closes it";
  EXPECT_EQ(test.Row(2).InDiameter, -53.1F);
  EXPECT_EQ(Cell(1, kDiameter).tone, Tone::kImposed);
  EXPECT_EQ(test.prompter.boxes().back().title, "!!... ΠΡΟΣΟΧΗ ...!!");
  EXPECT_FALSE(test.workspace.Exists(work_file::kFirstRows));
}

TEST_F(ResultsSheet, LeavesInPeaceWhenNothingChanged) {
  Click(form, form.Cmd_Back);
  EXPECT_TRUE(test.prompter.codes().empty());
  EXPECT_EQ(navigator.log.back(), "show FrmMain");
}

TEST_F(ResultsSheet, GoesToTheOtherViewUnlessADiameterIsBeingChanged) {
  TakeLog();
  EXPECT_TRUE(form.Press({KeyCode::kCharacter, 0, true, true, true}));
  EXPECT_EQ(desk.screens.results_view, ResultsView::kOneFromSheet);
  EXPECT_EQ(TakeLog(), std::vector<std::string>{"show FrmRes"});
  desk.screens.ChangeFormOpen = true;
  EXPECT_TRUE(form.Press(Shift(KeyCode::kF12)));
  EXPECT_TRUE(navigator.log.empty());
  EXPECT_EQ(test.prompter.boxes().size(), 1U) << "why nothing happens";
  EXPECT_TRUE(form.Press(Plain(KeyCode::kF1))) << "swallowed";
  EXPECT_EQ(test.prompter.boxes().size(), 1U);
  EXPECT_TRUE(form.Press(Plain(KeyCode::kF6)));
  EXPECT_EQ(TakeLog(), std::vector<std::string>{"show FrmAvaiD"});
  EXPECT_TRUE(form.Press(Plain(KeyCode::kEscape))) << "the list alone";
  EXPECT_EQ(TakeLog(), std::vector<std::string>{"close FrmAvaiD"});
}

TEST_F(ResultsSheet, TellsOfRowsThatCannotBeRead) {
  for (const char* bytes : {"odd", ""}) {
    ASSERT_TRUE(test.workspace.Write(work_file::kRows, bytes).ok());
    const std::size_t boxes = test.prompter.boxes().size();
    FrmRes_Sheet broken(desk);
    broken.Load();
    broken.fpSpread1.MoveTo({3, 3});
    EXPECT_EQ(test.prompter.boxes().size(), boxes + 1);
    EXPECT_EQ(broken.fpSpread1.row_count(), 0);
    Click(broken, broken.Cmd_Nodes);
  }
}

TEST_F(ResultsSheet, ShowsTheNodeReportWithTheViewerThatIsPicked) {
  navigator.Expect(screen::kViewer, [this] { desk.questions.viewer = "NotePad"; });
  Click(form, form.Cmd_Nodes);
  ASSERT_EQ(viewer.files.size(), 1U);
  EXPECT_EQ(viewer.files[0].filename(), work_file::kFlowReport);
  navigator.Expect(screen::kViewer, [this] { desk.questions.viewer.clear(); });
  Click(form, form.Cmd_Nodes);
  EXPECT_EQ(viewer.files.size(), 1U);
}

TEST(OpenResultsSheet, TellsWhatOutletsNeed) {
  ResultsDesk desk(SystemKind::kOpen);
  desk.test.ChangeRow(1, [](SectionRow& row) { row.DP = 13000; });
  FrmRes_Sheet form(desk.desk);
  form.Load();
  EXPECT_FALSE(form.Cmd_Nodes.visible);
  EXPECT_EQ(form.ChainCritical.nodes.front(), "ANT");
  form.fpSpread1.MoveTo({2, 0});
  EXPECT_TRUE(form.panel.LblOutlet.text.starts_with(
      "Υποδοχέας : πίεση ροής 12,00 m w.g., ύψος 2,00 m, λείπουν "))
      << form.panel.LblOutlet.text;
  EXPECT_TRUE(form.LblNotes.text.ends_with("από όσο δίνει η αντλία : 3")) << form.LblNotes.text;
  form.fpSpread1.MoveTo({0, 0});
  EXPECT_FALSE(form.panel.LblOutlet.visible);
}

TEST(WinterResultsSheet, LeavesTheMeanVelocityEmptyAndGoesBackToTheWinter) {
  ResultsDesk desk;
  desk.desk.screens.WinterPump = true;
  FrmRes_Sheet form(desk.desk);
  form.Load();
  EXPECT_EQ(form.frame.LblMeanVel.text, "");
  Click(form, form.Cmd_Back);
  EXPECT_EQ(desk.navigator.log.back(), "show FrmWinter");
}

TEST(LongResultsSheet, OpensAtOnce) {
  ResultsDesk desk;
  std::vector<SectionRow> rows(999, desk.test.Row(2));
  for (std::size_t i = 0; i < rows.size(); ++i) {
    rows[i].RecordNumber = rows[i].SectionNo = static_cast<std::int16_t>(i + 1);
  }
  desk.test.PutRows(rows);
  FrmRes_Sheet form(desk.desk);
  const auto begin = std::chrono::steady_clock::now();
  form.Load();
  const std::chrono::duration<double> took = std::chrono::steady_clock::now() - begin;
  EXPECT_EQ(form.fpSpread1.row_count(), 999);
  EXPECT_LT(took.count(), 0.5) << "far above what it takes, below what a user would notice";
}

}  // namespace
}  // namespace kalvo
