// Sheets: heads of columns, cells, row numbers.
#include <gtest/gtest.h>

#include <QStandardItemModel>
#include <QTableView>
#include <QTest>

#include "desktop/tables/cell_roles.h"
#include "desktop/tables/row_header.h"
#include "desktop/tables/sheet_delegate.h"
#include "desktop/tables/stacked_header.h"
#include "desktop/theme.h"
#include "tests/desktop/pictures.h"

namespace kalvo {
namespace {

TEST(StackedLines, PutsOneWordALineAndTheUnitApart) {
  const HeadLines tee = StackedLines("<ΤΑΥ>  ΣΕ  ΑΝΤΙΡ-ΡΟΗ [τεμ.]");
  EXPECT_EQ(tee.words, QStringList({"<ΤΑΥ> ΣΕ", "ΑΝΤΙΡ-", "ΡΟΗ"}));
  EXPECT_EQ(tee.unit, "[τεμ.]");
  EXPECT_EQ(StackedLines("ΤΜΗ- ΜΑ  ΤΡΟ- ΦΟ- ΔΟ- ΤΗΣ").words,
            QStringList({"ΤΜΗ-", "ΜΑ", "ΤΡΟ-", "ΦΟ-", "ΔΟ-", "ΤΗΣ"}));
  EXPECT_EQ(StackedLines("ΑΛΛΗ ΠΤΩΣΗ [Ισοδ. m]").unit, "[Ισοδ. m]");
  EXPECT_EQ(StackedLines("/").words, QStringList({"/"}));
  EXPECT_TRUE(StackedLines("").words.isEmpty());
}

TEST(StackedLines, KeepsLinesThatAreGiven) {
  const HeadLines drop = StackedLines("ΠΤΩΣΗ\nΠΙΕΣΗΣ\nmm w.g.]");
  EXPECT_EQ(drop.words, QStringList({"ΠΤΩΣΗ", "ΠΙΕΣΗΣ"}));
  EXPECT_EQ(drop.unit, "mm w.g.]");
  EXPECT_EQ(StackedLines("ΟΝΟΜΑΣΤΙΚΗ\nΔΙΑΜΕΤΡΟΣ").words.size(), 2);
}

// A sheet of three sections with their diameters; the second is on the critical branch.
struct FrozenSheet {
  FrozenSheet() : model(3, 4) {
    model.setHorizontalHeaderLabels(
        {"ΟΝΟΜΑ-\nΣΙΑ\nΤΜΗΜΑ-\nΤΟΣ", "ΜΗΚΟΣ [m]", "ΟΝΟΜΑΣΤΙΚΗ\nΔΙΑΜΕΤΡΟΣ", "Στοιχείο"});
    for (int row = 0; row < model.rowCount(); ++row) {
      const QStringList texts = {"ANT/1", "6,5", "1 1/4\"", "Παροχή : 430,0"};
      for (int column = 0; column < model.columnCount(); ++column) {
        model.setData(model.index(row, column), texts[column]);
        model.setData(model.index(row, column), row == 1 ? kCriticalLook : 0, kLookRole);
      }
      model.setData(model.index(row, 1), int{Qt::AlignRight | Qt::AlignVCenter},
                    Qt::TextAlignmentRole);
      const QColor color = row == 2 ? kLightTheme.imposed : kLightTheme.calculated;
      model.setData(model.index(row, 2), QBrush(color), Qt::BackgroundRole);
      if (row == 2) model.setData(model.index(row, 2), kImposedLook, kLookRole);
    }
    model.setHeaderData(1, Qt::Vertical, 2);
    model.setHeaderData(1, Qt::Vertical, kCriticalLook, kLookRole);
    table.setModel(&model);
    head = new StackedHeader(&table);
    table.setHorizontalHeader(head);
    table.setVerticalHeader(new RowHeader(&table));
    auto* cells = new SheetDelegate(&table);
    cells->SetFamilyEnds({1});
    head->SetFamilyEnds({1});
    table.setItemDelegate(cells);
    table.setItemDelegateForColumn(2, new DiameterDelegate(&table));
    table.setAlternatingRowColors(true);
    table.verticalHeader()->setDefaultSectionSize(26);
    table.setColumnWidth(3, 150);
    table.resize(500, 220);
    table.setCurrentIndex(model.index(0, 1));
  }

  QStandardItemModel model;
  QTableView table;
  StackedHeader* head;
};

QColor CellPixel(FrozenSheet& sheet, int row, int column, const QPoint& offset) {
  sheet.table.show();
  const QPoint place = sheet.table.visualRect(sheet.model.index(row, column)).topLeft() + offset;
  return sheet.table.viewport()->grab().toImage().pixelColor(place);
}

TEST(StackedHeader, IsAsHighAsItsTallestHead) {
  FrozenSheet sheet;
  const int line = QFontMetrics(ThemeFont(kKeyPoints)).lineSpacing();
  EXPECT_EQ(sheet.head->sizeHint().height(), 4 * line + 12);
}

TEST(StackedHeader, DoubleClickFitsTheColumn) {
  FrozenSheet sheet;
  sheet.table.setColumnWidth(1, 400);
  Q_EMIT sheet.head->sectionDoubleClicked(1);
  EXPECT_LT(sheet.table.columnWidth(1), 150);
}

TEST(Cells, SelectionWinsOverTheTintOfTheCriticalBranch) {
  FrozenSheet sheet;
  EXPECT_EQ(CellPixel(sheet, 1, 0, {3, 13}), kLightTheme.critbg);
  // Not by selectRow(), which goes by the modifiers that keys of another test have left.
  sheet.table.selectionModel()->select(
      sheet.model.index(1, 0), QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
  EXPECT_EQ(CellPixel(sheet, 1, 0, {5, 13}), kLightTheme.soft);
}

TEST(Cells, DiameterIsAChipInTheCellsOwnColour) {
  FrozenSheet sheet;
  EXPECT_EQ(CellPixel(sheet, 0, 2, {25, 8}), kLightTheme.calculated);
  EXPECT_EQ(CellPixel(sheet, 2, 2, {25, 8}), kLightTheme.imposed);
  EXPECT_EQ(CellPixel(sheet, 0, 2, {1, 13}), kLightTheme.surface);
}

TEST(Cells, CurrentCellHasARingWhileTheTableHasTheKeys) {
  FrozenSheet sheet;
  EXPECT_NE(CellPixel(sheet, 0, 1, {0, 13}), kLightTheme.primary);
  sheet.table.window()->show();
  sheet.table.window()->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(sheet.table.window()));
  sheet.table.setFocus();
  EXPECT_EQ(CellPixel(sheet, 0, 1, {0, 13}), kLightTheme.primary);
  EXPECT_NE(CellPixel(sheet, 1, 1, {0, 13}), kLightTheme.primary);
}

TEST(Pictures, OfASheet) {
  for (const Theme* theme : {&kLightTheme, &kDarkTheme}) {
    ApplyTheme(*qApp, *theme);
    FrozenSheet sheet;
    KeepPicture(sheet.table, theme == &kLightTheme ? "sheet-light" : "sheet-dark");
  }
  ApplyTheme(*qApp, kLightTheme);
}

}  // namespace
}  // namespace kalvo
