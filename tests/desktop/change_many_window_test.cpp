// The window for the diameters of many sections, used by mouse and keys.
#include <gtest/gtest.h>

#include <QComboBox>
#include <QElapsedTimer>
#include <QHeaderView>
#include <QTableView>
#include <QTest>
#include <QTimer>

#include "results/diameter_roads.h"
#include "results/frm_chang.h"
#include "tests/desktop/calculated_desk.h"

namespace kalvo {
namespace {

using Rows = std::vector<int>;

struct ManyWindow : ::testing::Test {
  explicit ManyWindow(const char* sample = "fancoil.PCK")
      : desk(std::filesystem::path(KALVO_SAMPLES_DIR) / sample) {}

  void SetUp() override {
    desk.Open(screen::kResultsSheet, {1352, 904});
    ASSERT_TRUE(TakeRoad(desk.desk, ChangeRoad::kButton));
    window = &desk.Open(screen::kManyDiameters, {1120, 760});
    ASSERT_TRUE(QTest::qWaitForWindowActive(window));
    table = window->findChild<QTableView*>("fpSpread1");
  }
  [[nodiscard]] FrmChang& form() const {
    return dynamic_cast<FrmChang&>(*desk.windows.FormOf(screen::kManyDiameters));
  }
  [[nodiscard]] QPoint At(int row) const {
    return table->visualRect(table->model()->index(row, 1)).center();
  }
  void ClickOn(int row, Qt::KeyboardModifiers modifiers = {}) const {
    QTest::mouseClick(table->viewport(), Qt::LeftButton, modifiers, At(row));
  }
  void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) const {
    QTest::keyClick(window->focusWidget(), key, modifiers);
  }
  /// Rows as the table shows them.
  [[nodiscard]] Rows Shown() const {
    Rows rows;
    for (const QModelIndex& index : table->selectionModel()->selectedRows()) {
      rows.push_back(index.row());
    }
    std::ranges::sort(rows);
    return rows;
  }
  void ExpectSelected(const Rows& rows) const {
    EXPECT_EQ(form().fpSpread1.SelectedRows(), rows);
    EXPECT_EQ(Shown(), rows);
  }

  CalculatedDesk desk;
  QWidget* window = nullptr;
  QTableView* table = nullptr;
};

TEST_F(ManyWindow, SelectsRowsByTheMouse) {
  EXPECT_EQ(window->focusWidget(), table);
  ExpectSelected({});
  ClickOn(1);
  ClickOn(4, Qt::ShiftModifier);
  ExpectSelected({1, 2, 3, 4});
  ClickOn(6, Qt::ControlModifier);
  ClickOn(2, Qt::ControlModifier);
  ExpectSelected({1, 3, 4, 6});
  EXPECT_TRUE(window->findChild<QLabel*>("LblSelected")->text().startsWith("4 "));
  QTest::mousePress(table->viewport(), Qt::LeftButton, {}, At(2));
  QTest::mouseMove(table->viewport(), At(3));
  QTest::mouseMove(table->viewport(), At(4));
  QTest::mouseRelease(table->viewport(), Qt::LeftButton, {}, At(4));
  ExpectSelected({2, 3, 4});
  ClickOn(0);
  ExpectSelected({0});
}

TEST_F(ManyWindow, SelectsRowsByKeys) {
  Press(Qt::Key_Down);
  ExpectSelected({1});
  EXPECT_EQ(table->currentIndex().row(), 1);
  Press(Qt::Key_Down, Qt::ShiftModifier);
  Press(Qt::Key_Down, Qt::ShiftModifier);
  ExpectSelected({1, 2, 3});
  Press(Qt::Key_Down, Qt::ControlModifier);
  Press(Qt::Key_Down, Qt::ControlModifier);
  ExpectSelected({1, 2, 3});
  Press(Qt::Key_Space);
  ExpectSelected({1, 2, 3, 5});
  EXPECT_EQ(table->currentIndex().row(), 5) << "Space moves nowhere";
  Press(Qt::Key_Space, Qt::ControlModifier);
  ExpectSelected({1, 2, 3});
  const auto sections = static_cast<int>(desk.study.Rows().size());
  Press(Qt::Key_A, Qt::ControlModifier);
  EXPECT_EQ(static_cast<int>(Shown().size()), sections) << "none of those that hold nothing";
  EXPECT_EQ(static_cast<int>(form().fpSpread1.SelectedRows().size()), sections);
}

TEST_F(ManyWindow, KeepsTheSectionsSelectedWhenTheOrderChanges) {
  ClickOn(0);
  ClickOn(3, Qt::ControlModifier);
  const QHeaderView* head = table->horizontalHeader();
  const QPoint name(head->sectionViewportPosition(1) + 20, head->height() / 2);
  for (int turn = 0; turn < 3; ++turn) {
    QTest::mouseClick(head->viewport(), Qt::LeftButton, {}, name);
    EXPECT_EQ(form().fpSpread1.SelectedRows(), (Rows{0, 3}));
    std::vector<int> shown;
    for (const int at : Shown()) {
      shown.push_back(form().fpSpread1.order()[static_cast<std::size_t>(at)]);
    }
    std::ranges::sort(shown);
    EXPECT_EQ(shown, (Rows{0, 3}));
  }
  QTest::mouseClick(head->viewport(), Qt::LeftButton, {}, name);
  const int first = form().fpSpread1.order().front();
  ClickOn(0);
  EXPECT_EQ(form().fpSpread1.SelectedRows(), Rows{first});
}

TEST_F(ManyWindow, ReplacesWhatThePicksHaveSelected) {
  auto* diameters = window->findChild<QComboBox*>("CboDiameter");
  Press(Qt::Key_F6);
  Press(Qt::Key_F6);
  EXPECT_EQ(window->focusWidget(), diameters);
  const QString before = window->findChild<QLabel*>("LblDiameter")->text();
  Press(Qt::Key_Down);
  EXPECT_NE(window->findChild<QLabel*>("LblDiameter")->text(), before);
  window->findChild<QPushButton*>("CmdDiameter")->click();
  window->findChild<QPushButton*>("CmdBranch")->click();
  const Rows selected = form().fpSpread1.SelectedRows();
  ASSERT_GT(selected.size(), 2U);
  ExpectSelected(selected);
  auto* library = window->findChild<QTableView*>("fpSpread2");
  const QPoint size = library->visualRect(library->model()->index(5, 0)).center();
  QTest::mouseClick(library->viewport(), Qt::LeftButton, {}, size);
  const auto* primary = window->findChild<QPushButton*>("CmdChange");
  EXPECT_TRUE(
      primary->accessibleDescription().startsWith(window->findChild<QLabel*>("LblEffect")->text()));
  QTest::mouseDClick(library->viewport(), Qt::LeftButton, {}, size);
  const QString name = library->model()->index(5, 0).data().toString();
  for (const int row : selected) {
    EXPECT_EQ(table->model()->index(row, 2).data().toString(), name);
  }
  ExpectSelected(selected);
  EXPECT_TRUE(table->model()
                  ->index(selected.front(), 2)
                  .data(Qt::AccessibleTextRole)
                  .toString()
                  .contains(QStringLiteral("αναμένει")));
  Press(Qt::Key_Escape);
  EXPECT_FALSE(desk.windows.IsOpen(screen::kManyDiameters));
  EXPECT_LT(desk.study.Rows()[static_cast<std::size_t>(selected.front())].InDiameter, 0);
}

TEST_F(ManyWindow, IsOverItsViewUntilItIsLeft) {
  desk.windows.Close(screen::kManyDiameters);
  QWidget& sheet = *desk.windows.WindowOf(screen::kResultsSheet);
  const auto* cells = sheet.findChild<QTableView*>("fpSpread1")->model();
  const QString before = cells->index(0, 2).data().toString();
  QTimer::singleShot(0, &sheet, [&] {
    window = desk.windows.WindowOf(screen::kManyDiameters);
    ASSERT_NE(window, nullptr);
    EXPECT_TRUE(window->isModal());
    Press(Qt::Key_Space);
    form().fpSpread2.MoveTo({11, 0});
    Press(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(cells->index(0, 2).data().toString(), before) << "it shows on the way back";
    window->close();
  });
  sheet.findChild<QPushButton*>("CmdNewD")->click();
  EXPECT_FALSE(desk.windows.IsOpen(screen::kManyDiameters));
  EXPECT_NE(cells->index(0, 2).data().toString(), before);
  EXPECT_TRUE(sheet.isVisible());
}

TEST_F(ManyWindow, SelectsInTheLongestStudyWithoutDelay) {
  desk.windows.Close(screen::kManyDiameters);
  std::vector<SectionRow> rows(999, desk.study.Rows().front());
  ASSERT_TRUE(desk.study.workspace->Rows().WriteAll(rows).ok());
  window = &desk.Open(screen::kManyDiameters, {1120, 760});
  table = window->findChild<QTableView*>("fpSpread1");
  Rows odd;
  for (int row = 1; row < 999; row += 2) odd.push_back(row);
  QElapsedTimer clock;
  clock.start();
  form().fpSpread1.TakeSelection(odd);
  desk.windows.PaintAll();
  EXPECT_LT(clock.elapsed(), 1000);
  EXPECT_EQ(Shown(), odd);
  table->selectAll();
  EXPECT_EQ(form().fpSpread1.SelectedRows().size(), 999U);
}

}  // namespace
}  // namespace kalvo
