#include <gtest/gtest.h>

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <QTimer>
#include <QWheelEvent>
#include <optional>

#include "desktop/pages/qt_workbook_pages.h"
#include "desktop/pages/shown_pages.h"
#include "desktop/widgets/preview/page_list.h"
#include "desktop/widgets/preview/page_sheet.h"
#include "results/printing/frm_preview.h"
#include "tests/desktop/paper_workbook.h"
#include "tests/desktop/pictures.h"
#include "tests/desktop/shown_desk.h"

namespace kalvo {
namespace {

// Thirty pages in their window, until the object goes.
struct PreviewWindow : ShownDesk {
  PreviewWindow() {
    book.PutPages(30);
    pages.emplace(book, shown.separators);
    shown.questions.previewed = &*pages;
    shown.questions.preview.name = "HOTEL_RCO.XLS";
    windows.Show(screen::kPreview);
    window = windows.WindowOf(screen::kPreview);
    window->resize(1180, 760);
    EXPECT_TRUE(QTest::qWaitForWindowActive(window));
    QApplication::processEvents();
  }
  void Press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(window->focusWidget(), static_cast<Qt::Key>(key), modifiers);
    QApplication::processEvents();
  }
  PageSheet& sheet() { return Part<PageSheet>(screen::kPreview, "Page"); }
  PageList& list() { return Part<PageList>(screen::kPreview, "Tiles"); }
  QString field() { return Part<QLineEdit>(screen::kPreview, "TxtPage").text(); }
  QString zoom() { return Part<QComboBox>(screen::kPreview, "CboZoom").currentText(); }
  void Wheel(int notches, Qt::KeyboardModifiers modifiers) {
    QWidget* viewport = sheet().viewport();
    QWheelEvent turn({50, 50}, viewport->mapToGlobal(QPointF(50, 50)), {}, {0, 120 * notches}, {},
                     modifiers, Qt::NoScrollPhase, false);
    QApplication::sendEvent(viewport, &turn);
    QApplication::processEvents();
  }

  PaperWorkbook book;
  std::optional<ShownPages> pages;
  QWidget* window = nullptr;
};

TEST(PreviewWindow, ShowsAWholePageInTheMiddleAndPaintsPicturesOnceSeen) {
  PreviewWindow user;
  const QRect room = user.sheet().viewport()->rect();
  const QRect place = user.sheet().place();
  EXPECT_TRUE(room.contains(place));
  EXPECT_NEAR(place.center().x(), room.center().x(), 1);
  EXPECT_GT(place.height(), room.height() - 48) << "as large as there is room";
  EXPECT_TRUE(user.zoom().startsWith("Ολόκληρη σελίδα · ")) << user.zoom().toStdString();
  EXPECT_EQ(user.sheet().grab().toImage().pixelColor(place.center()), QColor(Qt::white));
  EXPECT_EQ(user.sheet().accessibleName(), "Σελίδα 1 από 30");
  const int seen = user.list().painted();
  EXPECT_GT(seen, 2);
  EXPECT_LT(seen, 8);
  KeepPicture(*user.window, "FrmPreview-30");
}

TEST(PreviewWindow, TurnsPagesByKeysAndPictures) {
  PreviewWindow user;
  user.Press(Qt::Key_PageDown);
  EXPECT_EQ(user.field(), "2");
  EXPECT_EQ(user.sheet().page(), 1);
  user.Press(Qt::Key_End);
  EXPECT_EQ(user.sheet().page(), 29);
  const auto* scroll = user.window->findChild<QScrollArea*>("pages_scroll");
  const QPoint foot = user.list().mapTo(scroll->viewport(), user.list().rect().bottomLeft());
  EXPECT_LT(foot.y(), scroll->viewport()->height() + 10) << "its picture is in sight";
  user.Press(Qt::Key_Home);
  QTest::mouseClick(&user.list(), Qt::LeftButton, {}, {80, 300});
  EXPECT_EQ(user.field(), "2");
  user.Part<QLineEdit>(screen::kPreview, "TxtPage").setFocus();
  TypeText(*user.window->focusWidget(), QStringLiteral("17"));
  user.Press(Qt::Key_Return);
  EXPECT_EQ(user.sheet().page(), 16);
  EXPECT_EQ(user.window->focusWidget(), &user.sheet());
}

TEST(PreviewWindow, ZoomsAndScrollsByKeysAndWheel) {
  PreviewWindow user;
  user.Press(Qt::Key_Plus, Qt::ControlModifier);
  user.Press(Qt::Key_0, Qt::ControlModifier);
  EXPECT_TRUE(user.zoom().startsWith("Ολόκληρη"));
  user.Wheel(3, Qt::ControlModifier);
  EXPECT_EQ(user.zoom(), "125 %") << "from what a whole page takes here";
  EXPECT_NEAR(user.sheet().place().width(), 595.3 * 96 / 72 * 1.25, 2);
  QScrollBar& bar = *user.sheet().verticalScrollBar();
  bar.setValue(0);
  user.Press(Qt::Key_Space);
  const int screenful = bar.value();
  EXPECT_GT(screenful, 300);
  user.Press(Qt::Key_Space);
  EXPECT_EQ(bar.value(), bar.maximum());
  user.Press(Qt::Key_Space);
  EXPECT_EQ(user.sheet().page(), 1);
  EXPECT_EQ(bar.value(), 0);
  user.Press(Qt::Key_Space, Qt::ShiftModifier);
  EXPECT_EQ(user.sheet().page(), 0);
  EXPECT_EQ(bar.value(), bar.maximum());
  user.Wheel(-1, Qt::NoModifier);
  EXPECT_EQ(user.sheet().page(), 1);
  KeepPicture(*user.window, "FrmPreview-125");
  user.Press(Qt::Key_0, Qt::ControlModifier);
  EXPECT_FALSE(bar.isVisible());
  EXPECT_FALSE(user.sheet().horizontalScrollBar()->isVisible());
  EXPECT_TRUE(user.sheet().viewport()->rect().contains(user.sheet().place()));
}

TEST(PreviewWindow, LeavesTheListOfPagesOutWhereItIsNarrow) {
  PreviewWindow user;
  EXPECT_TRUE(user.list().isVisible());
  user.window->resize(800, 560);
  QApplication::processEvents();
  EXPECT_FALSE(user.list().isVisible());
  EXPECT_TRUE(user.sheet().viewport()->rect().contains(user.sheet().place()));
}

TEST(PreviewWindow, OpensForAWorkbookAndReturnsWhenItIsClosed) {
  ShownDesk desk;
  PaperWorkbook book;
  book.PutPages(2);
  QtWorkbookPages pages(desk.shown);
  desk.shown.questions.preview.title = "Προμέτρηση";
  QString title;
  QTimer::singleShot(0, [&] {
    QWidget* window = desk.windows.WindowOf(screen::kPreview);
    ASSERT_NE(window, nullptr);
    title = desk.Part<QLabel>(screen::kPreview, "LblTitle").text();
    QTest::keyClick(window->focusWidget(), Qt::Key_Escape);
  });
  EXPECT_TRUE(pages.Preview(book).ok());
  EXPECT_EQ(title, "Προμέτρηση");
  EXPECT_FALSE(desk.windows.IsOpen(screen::kPreview));
}

}  // namespace
}  // namespace kalvo
