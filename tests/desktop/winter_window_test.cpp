#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QTableView>
#include <QTest>

#include "desktop/tables/cell_roles.h"
#include "desktop/theme.h"
#include "entry/winter/frm_winter.h"
#include "tests/desktop/calculated_desk.h"
#include "tests/desktop/pictures.h"
#include "tests/desktop/shown_desk.h"

namespace kalvo {
namespace {

class AgreesToAll : public Prompter {
 public:
  Answer ShowMessage(int /*code*/, const Study& /*study*/) override { return Answer::kYes; }
  Answer Ask(const Box& /*box*/) override { return Answer::kYes; }
};

// The winter form over the delivered fan coils, which come with the values of a winter.
struct WinterShown {
  WinterShown() {
    windows.SetDesk(desk);
    floor.study.recovery = true;  // the menu leaves the study as it is
    windows.Show(screen::kWinter);
    window().resize(1120, 840);
    QApplication::processEvents();
  }
  QWidget& window() { return *windows.WindowOf(screen::kWinter); }
  template <typename Widget>
  Widget& Part(const char* name) {
    return *window().findChild<Widget*>(QString::fromLatin1(name));
  }
  void Key(Qt::Key key, Qt::KeyboardModifiers held = {}) {
    QTest::keyClick(window().focusWidget(), key, held);
  }
  QPoint At(int row, int column) {
    const auto& grid = Part<QTableView>("fpSpread1");
    return grid.visualRect(grid.model()->index(row, column)).center();
  }

  CalculatedCase floor{KALVO_SAMPLES_DIR "/fancoil.PCK", KALVO_LIBRARY_DIR};
  AgreesToAll user;
  Workbench bench{floor.study, *floor.workspace, floor.pipes, user};
  CountedSound sound;
  NotedViewer viewer;
  MemoryClipboard clipboard;
  NotedPrinter printer;
  Windows windows{QString()};
  Desk desk{bench, windows, sound, viewer, clipboard, printer, Separators{',', '.'}};
};

TEST(WinterWindow, RunsLooksAtItsResultsAndComesBackByKeys) {
  WinterShown winter;
  ASSERT_TRUE(QTest::qWaitForWindowActive(&winter.window()));
  EXPECT_EQ(winter.Part<QLineEdit>("TxtMeanT").text().toStdString(), "45");
  winter.Key(Qt::Key_Return, Qt::ControlModifier);
  EXPECT_EQ(winter.Part<QLabel>("LblPump").text().toStdString(),
            "Παροχή Κυκλοφορητή : 4,46 [m³/h] ...... Μανομετρικό Ύψος Κυκλοφορητή : 1,94 [m w.g.]");
  ExpectNothingClipped(winter.window());
  KeepPicture(winter.window(), "FrmWinter-run");
  ApplyTheme(*qApp, kDarkTheme);
  KeepPicture(winter.window(), "FrmWinter-run-dark");
  ApplyTheme(*qApp, kLightTheme);

  winter.Part<QPushButton>("Cmd_Res").click();
  ASSERT_TRUE(winter.windows.IsVisible(screen::kResultsSheet));
  EXPECT_FALSE(winter.windows.IsVisible(screen::kWinter));
  QWidget& sheet = *winter.windows.WindowOf(screen::kResultsSheet);
  EXPECT_EQ(sheet.findChild<QLabel*>("LblFlow")->text().toStdString(), "4,46");
  sheet.findChild<QPushButton*>("SSCommand1")->click();
  ASSERT_TRUE(winter.windows.IsVisible(screen::kResults));
  winter.windows.WindowOf(screen::kResults)->close();
  EXPECT_TRUE(winter.windows.IsVisible(screen::kWinter));
  EXPECT_FALSE(winter.windows.IsOpen(screen::kResults));
  EXPECT_TRUE(winter.Part<QLabel>("LblPump").isVisible());
  EXPECT_EQ(winter.floor.study.MeanTemp, 10.0F);

  TypeText(*winter.window().focusWidget(), QStringLiteral("24"));
  winter.Key(Qt::Key_Return);
  EXPECT_FALSE(winter.Part<QLabel>("LblPump").isVisible());
  EXPECT_TRUE(winter.Part<QLabel>("LblVoid").isVisible());
  ExpectNothingClipped(winter.window());
  KeepPicture(winter.window(), "FrmWinter-void");
  winter.window().close();
  EXPECT_TRUE(winter.windows.IsVisible(screen::kMain));
  EXPECT_FALSE(winter.windows.IsOpen(screen::kWinter));
}

TEST(WinterWindow, GreenCellsOpenByMouseAndMarkWhatIsRefused) {
  WinterShown winter;
  ASSERT_TRUE(QTest::qWaitForWindowActive(&winter.window()));
  auto& grid = winter.Part<QTableView>("fpSpread1");
  auto& editor = winter.Part<QLineEdit>("fpSpread1Editor");
  QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, winter.At(2, 5));
  QTest::mouseDClick(grid.viewport(), Qt::LeftButton, {}, winter.At(2, 5));
  EXPECT_TRUE(editor.isVisible());
  EXPECT_EQ(editor.selectedText().toStdString(), "385");
  winter.Key(Qt::Key_Escape);
  EXPECT_FALSE(editor.isVisible());
  const QPoint right = winter.At(1, 6);
  QContextMenuEvent asks(QContextMenuEvent::Mouse, right, grid.viewport()->mapToGlobal(right));
  QCoreApplication::sendEvent(grid.viewport(), &asks);
  EXPECT_TRUE(editor.isVisible());
  EXPECT_EQ(editor.text().toStdString(), "540");
  TypeText(editor, QStringLiteral("0"));
  winter.Key(Qt::Key_Return, Qt::ControlModifier);
  EXPECT_TRUE(grid.model()->index(1, 6).data(kLookRole).toInt() & kRefusedLook);
  EXPECT_TRUE(grid.model()->index(1, 4).data(kLookRole).toInt() & kOpenLook);
  EXPECT_FALSE(grid.model()->index(1, 3).data(kLookRole).toInt() & kOpenLook);
  KeepPicture(winter.window(), "FrmWinter-refused");
  const QPoint shown = winter.At(1, 2);
  QContextMenuEvent on_shown(QContextMenuEvent::Mouse, shown, grid.viewport()->mapToGlobal(shown));
  QCoreApplication::sendEvent(grid.viewport(), &on_shown);
  EXPECT_FALSE(editor.isVisible()) << "what is only shown stays closed";
}

}  // namespace
}  // namespace kalvo
