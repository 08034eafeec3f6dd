// What follows the size of its window: the rail of commands, the columns that stay in sight.
#include <gtest/gtest.h>

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QScrollBar>
#include <QStandardItemModel>
#include <QTableView>
#include <QTest>

#include "desktop/tables/frozen_columns.h"
#include "desktop/tables/stacked_header.h"
#include "desktop/theme.h"
#include "desktop/widgets/buttons/command_rail.h"
#include "desktop/widgets/buttons/hint_button.h"
#include "desktop/widgets/pictures/junction_picture.h"
#include "desktop/widgets/results/sheet_legend.h"
#include "desktop/window_pair.h"
#include "entry/tees/tee_cases.h"
#include "tests/desktop/pictures.h"

namespace kalvo {
namespace {

struct RailWindow : QWidget {
  RailWindow() {
    auto* row = new QHBoxLayout(this);
    row->addWidget(rail);
    row->addStretch();
    auto* column = new QVBoxLayout(rail);
    heading->setProperty("role", "heading");
    column->addWidget(heading);
    for (const char* icon : {"row-insert", "row-delete", "copy"}) {
      button = new HintButton;
      button->setProperty("role", "rail");
      button->setText("Επαναφορά Πλάτους Στηλών");
      button->SetHint("Ctrl+Ins");
      button->SetIconName(icon);
      column->addWidget(button);
    }
    column->addWidget(box);
    column->addStretch();
  }

  CommandRail* rail = new CommandRail;
  QLabel* heading = new QLabel("Σειρές και κελιά");
  QCheckBox* box = new QCheckBox("On-Off Ήχων");
  HintButton* button = nullptr;
};

TEST(CommandRail, LeavesOnlyItsIconsInANarrowWindow) {
  RailWindow window;
  window.resize(1300, 300);
  window.show();
  EXPECT_FALSE(window.rail->IconsOnly());
  EXPECT_GE(window.rail->width(), 232);
  EXPECT_EQ(window.box->text(), "On-Off Ήχων");
  window.resize(1100, 300);
  QApplication::processEvents();
  EXPECT_TRUE(window.button->IconOnly());
  EXPECT_FALSE(window.heading->isVisible());
  EXPECT_TRUE(window.box->text().isEmpty());
  EXPECT_EQ(window.box->toolTip(), "On-Off Ήχων");
  EXPECT_EQ(window.rail->width(), 48);
  window.resize(1300, 300);
  QApplication::processEvents();
  EXPECT_FALSE(window.button->IconOnly());
  EXPECT_TRUE(window.heading->isVisible());
  EXPECT_EQ(window.box->text(), "On-Off Ήχων");
}

struct WideTable {
  WideTable() : model(30, 20) {
    for (int row = 0; row < 30; ++row) {
      for (int column = 0; column < 20; ++column) {
        model.setData(model.index(row, column), QString("%1.%2").arg(row).arg(column));
      }
    }
    table.setModel(&model);
    table.setHorizontalHeader(new StackedHeader(&table));
    table.resize(500, 300);
    frozen = new FrozenColumns(table, 3);
    for (int column = 0; column < 3; ++column) table.setColumnWidth(column, 60);
    table.show();
    QApplication::processEvents();
  }

  QStandardItemModel model;
  QTableView table;
  FrozenColumns* frozen;
};

TEST(FrozenColumns, ShowWhileTheTableIsScrolledSideways) {
  WideTable wide;
  EXPECT_FALSE(wide.frozen->isVisible());
  wide.table.horizontalScrollBar()->setValue(5);
  EXPECT_TRUE(wide.frozen->isVisible());
  EXPECT_EQ(wide.frozen->width(), 3 * 60 + 1);
  EXPECT_EQ(wide.frozen->geometry().left(), wide.table.viewport()->geometry().left());
  EXPECT_TRUE(wide.frozen->isColumnHidden(3));
  wide.table.verticalScrollBar()->setValue(7);
  EXPECT_EQ(wide.frozen->verticalScrollBar()->value(), 7);
  EXPECT_EQ(wide.frozen->rowAt(0), wide.table.rowAt(0));
}

TEST(FrozenColumns, GiveWayToTheTableWhenOneOfTheirCellsIsChosen) {
  WideTable wide;
  wide.table.horizontalScrollBar()->setValue(5);
  const QRect cell = wide.frozen->visualRect(wide.model.index(2, 1));
  QTest::mouseClick(wide.frozen->viewport(), Qt::LeftButton, {}, cell.center());
  EXPECT_EQ(wide.table.currentIndex(), wide.model.index(2, 1));
  EXPECT_EQ(wide.table.horizontalScrollBar()->value(), 0);
  EXPECT_FALSE(wide.frozen->isVisible());
}

TEST(JunctionPicture, IsReadAloudAndGrowsWithALegThatPointsUp) {
  JunctionPicture tee;
  tee.SetContent(ContentOf(TeePicture::kT2));
  EXPECT_EQ(tee.accessibleName(), "Ταυ");
  EXPECT_TRUE(tee.accessibleDescription().startsWith("αριστερό σκέλος, ροή από τον κόμβο; "));
  const int tee_height = tee.sizeHint().height();
  tee.SetContent(ContentOf(TeePicture::kX1));
  EXPECT_GT(tee.sizeHint().height(), tee_height);
}

TEST(WindowPair, IsInTheMiddleOrItsSecondWindowAtTheRightEdge) {
  const QSize sheet(1340, 800);
  const QSize tees(920, 834);
  const PairPlaces wide = PlacesOfPair(sheet, tees, {100, 40, 2560, 1400});
  ASSERT_TRUE(wide.first);
  EXPECT_EQ(wide.first->x() - 100, 100 + 2560 - (wide.second.x() + tees.width()));
  EXPECT_GE(wide.second.x(), wide.first->x() + sheet.width());
  EXPECT_EQ(wide.first->y(), 40 + (1400 - 800) / 2);
  const PairPlaces narrow = PlacesOfPair(sheet, tees, {100, 40, 1920, 1040});
  EXPECT_FALSE(narrow.first);
  EXPECT_EQ(narrow.second.x(), 100 + 1920 - 920);
}

TEST(WindowPair, PutsOneLevelBesideAnotherThatStays) {
  const QRect results(300, 60, 1000, 700);
  EXPECT_EQ(PlaceLevel(336, results, {0, 0, 1920, 1080}), QPoint(1308, 60));
  EXPECT_EQ(PlaceLevel(280, results, {0, 0, 1366, 768}), QPoint(12, 60)) << "room at the left only";
  EXPECT_EQ(PlaceLevel(336, results, {0, 0, 1366, 768}), QPoint(964, 60)) << "over its right edge";
  EXPECT_EQ(PlaceLevel(336, {0, 0, 1400, 700}, {0, 0, 1366, 768}), QPoint(1030, 0));
}

TEST(Pictures, OfRailAndJunctions) {
  for (const Theme* theme : {&kLightTheme, &kDarkTheme}) {
    const QString suffix = theme == &kLightTheme ? "-light" : "-dark";
    ApplyTheme(*qApp, *theme);
    for (const int width : {1300, 700}) {
      RailWindow window;
      window.resize(width, 260);
      KeepPicture(window, QString("rail-%1").arg(width) + suffix);
    }
    QWidget junctions;
    auto* grid = new QGridLayout(&junctions);
    for (const TeePicture junction : kTeePictures) {
      auto* picture = new JunctionPicture;
      picture->SetContent(ContentOf(junction));
      grid->addWidget(picture, 0, grid->count());
    }
    grid->addWidget(new SheetLegend, 1, 0, 1, 6);
    KeepPicture(junctions, "junctions" + suffix);
    WideTable wide;
    wide.table.horizontalScrollBar()->setValue(5);
    KeepPicture(wide.table, "frozen" + suffix);
  }
  ApplyTheme(*qApp, kLightTheme);
}

}  // namespace
}  // namespace kalvo
