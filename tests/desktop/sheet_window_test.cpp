#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QLineEdit>
#include <QPaintEvent>
#include <QPushButton>
#include <QScrollBar>
#include <QTableView>
#include <QTest>
#include <QWheelEvent>

#include "desktop/qt_clipboard.h"
#include "entry/sheet/frm_data_sheet.h"
#include "tests/desktop/shown_desk.h"

namespace kalvo {
namespace {

// The sheet of a loop in its window.
struct SheetWindow : ShownDesk, ::testing::Test {
  SheetWindow() {
    test.PutNetwork({"ANT/1 5m", "1/2 5m 300l/h soma 800mm", "2/ANT 5m"});
    Study& study = test.study;
    study.study_title = "Γραφεία";
    windows.Show(screen::kSheet);
    window = windows.WindowOf(screen::kSheet);
    form = dynamic_cast<FrmData_Sheet*>(windows.FormOf(screen::kSheet));
    EXPECT_TRUE(QTest::qWaitForWindowActive(window));
  }

  [[nodiscard]] QTableView& Table() { return Part<QTableView>(screen::kSheet, "fpSpread1"); }
  [[nodiscard]] QLineEdit& Editor() { return Part<QLineEdit>(screen::kSheet, "fpSpread1Editor"); }
  [[nodiscard]] QString Cell(int row, int column) {
    return Table().model()->index(row, column).data().toString();
  }
  void Key(Qt::Key key, Qt::KeyboardModifiers with = Qt::NoModifier) {
    QTest::keyClick(window->focusWidget(), key, with);
  }
  void Type(const QString& text) { TypeText(*window->focusWidget(), text); }
  void ClickCell(int row, int column, Qt::KeyboardModifiers with = Qt::NoModifier) {
    const QRect place = Table().visualRect(Table().model()->index(row, column));
    QTest::mouseClick(Table().viewport(), Qt::LeftButton, with, place.center());
    QApplication::processEvents();
  }

  QWidget* window = nullptr;
  FrmData_Sheet* form = nullptr;
};

TEST_F(SheetWindow, ACellIsTypedIntoOverItsPlaceAndClosesWithTheKeysBackOnTheTable) {
  EXPECT_EQ(window->focusWidget(), &Table());
  ClickCell(1, 3);
  Type(QStringLiteral("7"));
  EXPECT_TRUE(Editor().isVisible());
  EXPECT_EQ(window->focusWidget(), &Editor());
  EXPECT_EQ(Editor().geometry(), Table().visualRect(Table().model()->index(1, 3)));
  Type(QStringLiteral(".25"));
  EXPECT_EQ(Editor().text(), QStringLiteral("7,25"));
  Key(Qt::Key_Left);
  EXPECT_FALSE(Editor().isVisible());
  EXPECT_EQ(window->focusWidget(), &Table());
  EXPECT_EQ(Cell(1, 3), QStringLiteral("7,25"));
  EXPECT_EQ(Table().currentIndex(), Table().model()->index(1, 2));
  Key(Qt::Key_Right);
  Key(Qt::Key_F2);
  Key(Qt::Key_Home);
  Type(QStringLiteral("1"));
  Key(Qt::Key_Delete);
  Key(Qt::Key_Return);
  EXPECT_EQ(Cell(1, 3), QStringLiteral("1,25")) << "the caret is where Home put it";
}

TEST_F(SheetWindow, ARefusedNumberDoesNotLoseTheKeys) {
  test.prompter.before_box = [this] { windows.PaintAll(); };
  ClickCell(1, 6);
  Type(QStringLiteral("9"));
  Type(QStringLiteral("9999"));
  Key(Qt::Key_Return);
  EXPECT_EQ(window->focusWidget(), &Editor());
  Type(QStringLiteral("99998"));
  ClickCell(0, 4);
  EXPECT_EQ(test.prompter.codes(), (std::vector{200, 200}));
  EXPECT_FALSE(Editor().isVisible());
  EXPECT_EQ(window->focusWidget(), &Table());
  Type(QStringLiteral("7"));
  Key(Qt::Key_Return);
  EXPECT_EQ(Cell(0, 4), QStringLiteral("7"));
}

TEST_F(SheetWindow, TheMouseSelectsAcceptsAndReachesCommandsWithAnOpenEditor) {
  ClickCell(0, 4);
  Type(QStringLiteral("8"));
  ClickCell(2, 6, Qt::ShiftModifier);
  EXPECT_EQ(Cell(0, 4), QStringLiteral("8"));
  EXPECT_EQ(form->fpSpread1.block(), (GridBlock{0, 4, 2, 6}));
  ClickCell(0, 3);
  ClickCell(2, 3, Qt::ControlModifier);
  EXPECT_EQ(form->fpSpread1.selection().size(), 2U);
  ClickCell(1, 3);
  Type(QStringLiteral("9"));
  QTest::mouseClick(&Part<QPushButton>(screen::kSheet, "Cmd_InsRow"), Qt::LeftButton);
  EXPECT_EQ(Cell(2, 3), QStringLiteral("9")) << "accepted before the row came in";
  EXPECT_EQ(Cell(1, 3), QString());
  const QPoint place = Table().visualRect(Table().model()->index(2, 3)).center();
  QTest::mouseClick(Table().viewport(), Qt::LeftButton, Qt::NoModifier, place);
  QTest::mouseDClick(Table().viewport(), Qt::LeftButton, Qt::NoModifier, place);
  QApplication::processEvents();
  EXPECT_TRUE(Editor().isVisible());
  EXPECT_EQ(Editor().text(), QStringLiteral("9"));
}

TEST_F(SheetWindow, RowsComeAndGoWithoutMovingTheViewOrTheSelection) {
  QString rows;
  for (int row = 0; row < 200; ++row) rows += QStringLiteral("1\t/\t2\t3\n");
  clipboard.SetText(rows.toStdString());
  ClickCell(3, 0);
  Key(Qt::Key_V, Qt::ControlModifier);
  form->fpSpread1.GoTo({150, 5});
  windows.PaintAll();
  const int scroll = Table().verticalScrollBar()->value();
  EXPECT_GT(scroll, 50);
  Key(Qt::Key_Insert, Qt::ControlModifier);
  EXPECT_EQ(Table().verticalScrollBar()->value(), scroll);
  EXPECT_EQ(Table().currentIndex(), Table().model()->index(150, 5));
  Key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(Table().verticalScrollBar()->value(), scroll);
  EXPECT_EQ(Table().model()->rowCount(), form->fpSpread1.row_count());
}

TEST_F(SheetWindow, TheGreekLayoutNamesTheSourceAndPressesTees) {
  ClickCell(1, 2);
  QKeyEvent alpha(QEvent::KeyPress, 0x391, Qt::NoModifier, QStringLiteral("α"));
  QCoreApplication::sendEvent(window->focusWidget(), &alpha);
  EXPECT_EQ(Editor().text(), QStringLiteral("ANT"));
  QKeyEvent gamma(QEvent::KeyPress, 0x3A8, Qt::ShiftModifier, QStringLiteral("Ψ"));
  QCoreApplication::sendEvent(window->focusWidget(), &gamma);  // on the place of C
  EXPECT_EQ(Cell(1, 2), QStringLiteral("ANT"));
  EXPECT_EQ(Cell(1, 9), QStringLiteral("1"));
  EXPECT_FALSE(Editor().isVisible());
}

// What of a widget is painted.
class PaintedRegion : public QObject {
 public:
  QRegion region;

 private:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Paint) region += static_cast<QPaintEvent*>(event)->region();
    return QObject::eventFilter(watched, event);
  }
};

TEST_F(SheetWindow, TheTintGoesWithTheCursor) {
  ClickCell(0, 3);
  PaintedRegion painted;
  Table().viewport()->installEventFilter(&painted);
  Key(Qt::Key_Down);
  QApplication::processEvents();
  for (const int row : {0, 1}) {
    const QRect far_cell = Table().visualRect(Table().model()->index(row, 7));
    EXPECT_TRUE(painted.region.contains(far_cell)) << row;
  }
}

TEST_F(SheetWindow, CopiesToTheRealClipboardAndZoomsByTheWheel) {
  QtClipboard real;
  real.SetText("ANT\t/\t1");
  EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("ANT\t/\t1"));
  EXPECT_EQ(real.Text(), "ANT\t/\t1");
  const int height = Table().verticalHeader()->defaultSectionSize();
  QWheelEvent wheel(QPointF(5, 5), Table().viewport()->mapToGlobal(QPointF(5, 5)), {}, {0, 120},
                    Qt::NoButton, Qt::ControlModifier, Qt::NoScrollPhase, false);
  for (int i = 0; i < 3; ++i) QCoreApplication::sendEvent(Table().viewport(), &wheel);
  EXPECT_EQ(form->fpSpread1.zoom(), 130);
  EXPECT_GT(Table().verticalHeader()->defaultSectionSize(), height);
}

}  // namespace
}  // namespace kalvo
