// The windows of results over the delivered sample and over the longest study.
#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QScrollArea>
#include <QScrollBar>
#include <QTableView>
#include <QTest>

#include "desktop/theme.h"
#include "results/frm_stat_s.h"
#include "tests/desktop/calculated_desk.h"
#include "tests/desktop/pictures.h"

namespace kalvo {
namespace {

constexpr QSize kSheetSize(1352, 904);

// The user imposes the diameter 2 on a section.
void Impose(CalculatedDesk& desk, int number) {
  auto file = desk.study.workspace->Rows();
  SectionRow row = file.Read(number).value();
  row.NomiDiam = FixedText<15>::FromUtf8("2");
  row.InDiameter = -53.1F;
  EXPECT_TRUE(file.Write(number, row).ok());
}

TEST(ResultsWindows, ShowTheSampleWholeInBothThemes) {
  for (const Theme* theme : {&kLightTheme, &kDarkTheme}) {
    ApplyTheme(*qApp, *theme);
    const QString suffix = theme == &kLightTheme ? "-light" : "-dark";
    CalculatedDesk desk(KALVO_SAMPLES_DIR "/hotel.PCK");
    QWidget& sheet = desk.Open(screen::kResultsSheet, kSheetSize);
    ExpectNothingClipped(sheet);
    KeepPicture(sheet, "frm-res-sheet" + suffix);
    Impose(desk, 2);
    QWidget& one = desk.Open(screen::kResults, {1240, 800});
    desk.windows.FormOf(screen::kResults)->Press(Plain(KeyCode::kPageDown));
    desk.windows.PaintAll();
    QApplication::processEvents();
    ExpectNothingClipped(one);
    KeepPicture(one, "frm-res" + suffix);
    QWidget& again = desk.Open(screen::kResultsSheet, kSheetSize);
    KeepPicture(again, "frm-res-sheet-imposed" + suffix);
    again.resize(again.minimumSize());
    QApplication::processEvents();
    EXPECT_FALSE(again.findChild<QWidget*>("explained")->isVisible());
    EXPECT_FALSE(again.findChild<QWidget*>("branch_card")->isVisible());
    ExpectNothingClipped(again);
    KeepPicture(again, "frm-res-sheet-small" + suffix);
    QWidget& pump = desk.Open(screen::kPump, {840, 640});
    ExpectNothingClipped(pump);
    KeepPicture(pump, "frm-res-gn" + suffix);
  }
  ApplyTheme(*qApp, kLightTheme);
}

TEST(DiameterWindow, ReplacesByItsKeysBesideTheSheetAndGivesThemBack) {
  CalculatedDesk desk(KALVO_SAMPLES_DIR "/hotel.PCK");
  QWidget& sheet = desk.Open(screen::kResultsSheet, kSheetSize);
  sheet.findChild<QPushButton*>("CmdChD")->click();
  QWidget* window = desk.windows.WindowOf(screen::kOneDiameter);
  ASSERT_NE(window, nullptr);
  ASSERT_TRUE(QTest::qWaitForWindowActive(window));
  EXPECT_EQ(window->height(), sheet.height());
  auto* list = window->findChild<QTableView*>("fpSpread1");
  EXPECT_FALSE(list->verticalHeader()->isVisible());
  const QModelIndex now = list->currentIndex();
  EXPECT_EQ(now.siblingAtColumn(2).data().toString(), QStringLiteral("τώρα"));
  QTest::keyClick(window->focusWidget(), Qt::Key_Down);
  QTest::keyClick(window->focusWidget(), Qt::Key_Return);
  EXPECT_LT(desk.study.Rows()[0].InDiameter, 0);
  const auto* cells = sheet.findChild<QTableView*>("fpSpread1")->model();
  EXPECT_EQ(cells->index(0, 2).data(), list->currentIndex().data());
  EXPECT_EQ(list->currentIndex().row(), now.row() + 1);

  const std::string bytes = desk.study.workspace->Read(work_file::kRows).value();
  const QRect empty = list->visualRect(list->model()->index(list->model()->rowCount() - 1, 0));
  QTest::keyClick(window->focusWidget(), Qt::Key_End, Qt::ControlModifier);
  const int last = list->currentIndex().row();
  EXPECT_FALSE(list->currentIndex().siblingAtColumn(0).data().toString().isEmpty());
  QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, empty.center());
  QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, empty.center());
  EXPECT_EQ(list->currentIndex().row(), last) << "empty rows are not reached";
  EXPECT_EQ(desk.study.workspace->Read(work_file::kRows).value(), bytes);

  QTest::keyClick(window->focusWidget(), Qt::Key_Escape);
  EXPECT_FALSE(desk.windows.IsOpen(screen::kOneDiameter));
  EXPECT_TRUE(sheet.isVisible());
}

TEST(DiameterWindow, ShowsWhatWaitsInWordsToo) {
  CalculatedDesk desk(KALVO_SAMPLES_DIR "/hotel.PCK");
  QWidget& one = desk.Open(screen::kResults, {1240, 800});
  Form& form = *desk.windows.FormOf(screen::kResults);
  form.Run(form.Get<Command>("CmdChangeOne"));
  QWidget* window = desk.windows.WindowOf(screen::kOneDiameter);
  ASSERT_NE(window, nullptr);
  ASSERT_TRUE(QTest::qWaitForWindowActive(window));
  QTest::keyClick(window->focusWidget(), Qt::Key_Down);
  QTest::keyClick(window->focusWidget(), Qt::Key_Return);
  EXPECT_EQ(one.findChild<QLineEdit*>("TxtNomiDiam")->property("state").toString(), "waiting");
  EXPECT_TRUE(one.findChild<QLabel*>("LblWas")->text().contains(QStringLiteral("αναμένει")));
  QApplication::processEvents();
  ExpectNothingClipped(one);
  ExpectNothingClipped(*window);
  const auto* bar = one.findChild<QScrollArea*>("figures")->verticalScrollBar();
  EXPECT_TRUE(QTest::qWaitFor([bar] { return bar->maximum() == 0; }, 1000))
      << "all seven values are in sight next to the line of changes";
  KeepPicture(one, "frm-res-waiting");
}

TEST(ResultsWindows, BringBackWhatASmallWindowHadNoRoomFor) {
  CalculatedDesk desk(KALVO_SAMPLES_DIR "/hotel.PCK");
  QWidget& one = desk.Open(screen::kResults, {1240, 800});
  auto* pipe = one.findChild<QWidget*>("pipe_card");
  for (const int height : {640, 800, 640, 800}) {
    one.resize(960, height);
    QApplication::processEvents();
    EXPECT_EQ(pipe->isVisible(), height == 800);
  }
  ExpectNothingClipped(one);
  KeepPicture(one, "frm-res-narrow");
}

TEST(ResultsWindows, ShowEveryRowOfTheLongestStudy) {
  CalculatedDesk desk(KALVO_SAMPLES_DIR "/hotel.PCK");
  std::vector<SectionRow> rows(999, desk.study.Rows().front());
  for (std::size_t i = 0; i < rows.size(); ++i) {
    rows[i].RecordNumber = rows[i].SectionNo = static_cast<std::int16_t>(i + 1);
  }
  ASSERT_TRUE(desk.study.workspace->Rows().WriteAll(rows).ok());
  const QWidget& sheet = desk.Open(screen::kResultsSheet, kSheetSize);
  EXPECT_EQ(sheet.findChild<QTableView*>("fpSpread1")->model()->rowCount(), 999);
}

TEST(QuantitiesWindow, LeavesTheRowsBelowThePipeSystemAlone) {
  CalculatedDesk desk(KALVO_SAMPLES_DIR "/hotel.PCK");
  QWidget& window = desk.Open(screen::kQuantities, {1060, 800});
  auto& table = *window.findChild<QTableView*>("fpSpread1");
  const auto sizes = static_cast<int>(desk.study.study.PipeStats.size());
  ASSERT_LT(sizes, 27);
  EXPECT_EQ(table.model()->rowCount(), 27);
  EXPECT_FALSE(table.verticalHeader()->isVisible());
  EXPECT_TRUE(window.findChild<QPushButton*>("Cmd_Close")->hasFocus());
  EXPECT_FALSE(window.findChild<QWidget*>("LblWater")->isVisible());
  table.setFocus();
  QTest::keyClick(&table, Qt::Key_End, Qt::ControlModifier);
  EXPECT_EQ(table.currentIndex().row(), sizes - 1);
  QTest::keyClick(&table, Qt::Key_Down);
  EXPECT_EQ(table.currentIndex().row(), sizes - 1);
  const QPoint below = table.visualRect(table.model()->index(sizes, 2)).center();
  QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, below);
  EXPECT_EQ(table.currentIndex().row(), sizes - 1);
  table.selectAll();
  QTest::keyClick(&table, Qt::Key_C, Qt::ControlModifier);
  const QStringList lines = QGuiApplication::clipboard()->text().split(QLatin1Char('\n'));
  EXPECT_EQ(lines.size(), sizes + 1);
  EXPECT_TRUE(lines.front().startsWith("ΔΙΑΘΕΣΙΜΕΣ ΟΝΟΜΑΣΤΙΚΕΣ"));
}

TEST(QuantitiesWindow, NeedsNoSidewaysScrollingAtItsLeastSize) {
  CalculatedDesk desk(KALVO_SAMPLES_DIR "/hotel.PCK");
  QWidget& window = desk.Open(screen::kQuantities, {900, 600});
  const auto& table = *window.findChild<QTableView*>("fpSpread1");
  EXPECT_EQ(table.horizontalScrollBar()->maximum(), 0);
  auto& form = dynamic_cast<FrmStatS&>(*desk.windows.FormOf(screen::kQuantities));
  form.LblWater.text = WaterLine(2178.5, desk.desk.separators);
  form.LblWater.visible = true;
  desk.windows.PaintAll();
  QApplication::processEvents();
  EXPECT_TRUE(window.findChild<QWidget*>("LblWater")->isVisible());
  ExpectNothingClipped(window);
  KeepPicture(window, "frm-stat-s-water");
}

}  // namespace
}  // namespace kalvo
