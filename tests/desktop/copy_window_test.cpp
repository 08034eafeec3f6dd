// The window that copies studies, used as on a screen.
#include <gtest/gtest.h>

#include <QComboBox>
#include <QLabel>
#include <QListView>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QWindow>

#include "shell/copying/frm_copy.h"
#include "tests/desktop/shown_desk.h"
#include "tests/support/copying.h"

namespace kalvo {
namespace {

class CopyWindow : public testing::Test {
 protected:
  CopyWindow() {
    FolderImage studies;
    for (char name = 'A'; name <= 'L'; ++name) {
      studies[std::string(1, name) + ".PCK"] = std::string(1000, name);
      studies[std::string(1, name) + ".LQD"] = "fluid";
    }
    PutFolder(desk.test.outer_disk, "/home/user/PFILES", studies);
    PutFolder(desk.test.outer_disk, "/media/STICK", {{"Z.PCK", "z"}});
    desk.volumes.volumes = {
        {.kind = VolumeKind::kRemovable, .name = "Αφαιρούμενο μέσο", .place = "/media/STICK"},
        {.kind = VolumeKind::kHome, .name = "Φάκελος χρήστη", .place = "/home/user"}};
    desk.shown.data_folder = "/home/user/PFILES";
    desk.windows.Show(screen::kCopy);
    QWidget& window = *desk.windows.WindowOf(screen::kCopy);
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
  }
  template <typename Widget>
  Widget& Part(const char* name) {
    return desk.Part<Widget>(screen::kCopy, name);
  }
  FrmCopy& Form() { return dynamic_cast<FrmCopy&>(*desk.windows.FormOf(screen::kCopy)); }
  void ClickLine(QListView& list, int row) {
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {},
                      list.visualRect(list.model()->index(row, 0)).center());
  }
  // As the desktop hands a click to the window.
  void ClickOnScreen(QListView& list, int row) {
    QWidget& window = *desk.windows.WindowOf(screen::kCopy);
    const QPoint at = list.visualRect(list.model()->index(row, 0)).center();
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {},
                      list.viewport()->mapTo(&window, at));
  }

  ShownDesk desk;
};

TEST_F(CopyWindow, TicksByMouseAndKeysAndWalksInTheOrderOfReading) {
  auto& studies = Part<QListView>("FileList1");
  const auto ticked = [&](int row) {
    return studies.model()->index(row, 0).data(Qt::CheckStateRole).toInt() == Qt::Checked;
  };
  EXPECT_TRUE(studies.hasFocus());
  ClickLine(studies, 2);
  EXPECT_TRUE(ticked(2));
  ClickLine(studies, 2);
  EXPECT_FALSE(ticked(2));
  QTest::keyClick(&studies, Qt::Key_Down);
  EXPECT_FALSE(ticked(3)) << "an arrow only moves";
  QTest::keyClick(&studies, Qt::Key_Space);
  EXPECT_TRUE(ticked(3));
  QTest::keyClick(&studies, Qt::Key_A, Qt::ControlModifier);
  EXPECT_EQ(Part<QLabel>("LblStudies").text(), QStringLiteral("12 μελέτες"));
  QTest::keyClick(&studies, Qt::Key_A, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(Part<QLabel>("LblStudies").text(), QStringLiteral("0 μελέτες"));
  EXPECT_EQ(studies.model()->index(0, 0).data(Qt::AccessibleTextRole).toString(),
            QStringLiteral("A.PCK  (1.000  Bytes)  .LQD"));

  Part<QComboBox>("CboDrive1").setFocus();
  QWidget& window = *desk.windows.WindowOf(screen::kCopy);
  for (const char* next : {"CboPattern", "DirList1", "FileList1", "CmdAll", "CmdNone", "CboDrive2",
                           "CmdFormat", "DirList2"}) {
    QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(window.focusWidget()->objectName().toStdString(), next);
  }
}

TEST_F(CopyWindow, ShowsItsWorkAndDoesNothingButEndByEsc) {
  auto& bar = Part<QProgressBar>("Bar");
  EXPECT_FALSE(bar.isVisible());
  EXPECT_FALSE(Part<QListView>("Report").isVisible());
  QTest::keyClick(&Part<QListView>("FileList1"), Qt::Key_A, Qt::ControlModifier);
  int looks = 0;
  QTimer look;
  QObject::connect(&look, &QTimer::timeout, &look, [&] {
    if (!bar.isVisible() || looks++ > 0) return;
    EXPECT_TRUE(Part<QListView>("Report").isVisible());
    Part<QPushButton>("CmdBack").click();
    ClickOnScreen(Part<QListView>("DirList1"), 0);
    desk.windows.WindowOf(screen::kCopy)->close();
    EXPECT_TRUE(desk.windows.IsOpen(screen::kCopy));
    QTest::keyClick(&Part<QListView>("FileList1"), Qt::Key_Escape);
  });
  look.start(0);
  Part<QPushButton>("CmdGo").click();
  look.stop();
  EXPECT_GT(looks, 0);
  EXPECT_FALSE(bar.isVisible());
  auto& report = Part<QListView>("Report");
  ASSERT_EQ(report.model()->rowCount(), 12);
  EXPECT_EQ(Form().Report.lines().front().icon, "check");
  EXPECT_EQ(Form().Report.lines().back().icon, "exclamation") << "Esc ended it";
  EXPECT_EQ(Form().DirList1.selected, 1) << "the mouse did nothing";
  EXPECT_LE(report.height(), 4 * 28) << "it scrolls from four lines on";
  EXPECT_TRUE(report.isVisible());
  QTest::keyClick(&Part<QListView>("FileList1"), Qt::Key_Escape);
  EXPECT_FALSE(desk.windows.IsOpen(screen::kCopy));
}

}  // namespace
}  // namespace kalvo
