#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QTest>

#include "desktop/key_chord.h"
#include "desktop/qt_text.h"
#include "entry/emitters/emitter_forms.h"
#include "tests/desktop/calculated_desk.h"
#include "tests/desktop/pictures.h"
#include "tests/desktop/shown_desk.h"

namespace kalvo {
namespace {

struct EmittersShown : ShownDesk {
  explicit EmittersShown(SystemKind kind = SystemKind::kClosed) {
    test.study.system_kind = kind;
    test.study.recovery = true;  // the menu leaves the study as it is
    shown.screens.edit_mode = true;
    shown.screens.emitter_memory = {520, 1620};
    shown.screens.outlet_memory = {250, 8, 1.5F};
    if (kind == SystemKind::kClosed) {
      test.PutNetwork({"ANT/1 10m", "1/2 5m soma 1300 l/h 1500mm", "1/3 5m soma 200 l/h 400mm",
                       "2/ANT 6m", "3/2 2m"});
    } else {
      test.PutNetwork({"1/ANT 5m", "2/1 5m 2up outlet 300 l/h 5mwg",
                       "3/1 5m 5.5up outlet 200 l/h 10mwg", "4/1 5m outlet 250 l/h 8mwg"});
    }
  }
  QWidget& Open(std::string_view screen) {
    windows.Show(screen);
    QWidget& window = *windows.WindowOf(screen);
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    return window;
  }
};

void Press(QWidget& widget, Qt::Key key, Qt::KeyboardModifiers held) {
  QKeyEvent press(QEvent::KeyPress, key, held);
  QCoreApplication::sendEvent(&widget, &press);
}
void Release(QWidget& widget, Qt::Key key, Qt::KeyboardModifiers held) {
  QKeyEvent release(QEvent::KeyRelease, key, held);
  QCoreApplication::sendEvent(&widget, &release);
}

// As a mouse does it: the first click moves the current cell and the focus.
void DoubleClick(const QTableView& list, int row) {
  const QPoint at = list.visualRect(list.model()->index(row, 1)).center();
  QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, at);
  QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, at);
}

TEST(EmittersWindow, EntersAnEmitterByKeys) {
  EmittersShown desk;
  QWidget& window = desk.Open(screen::kEmitters);
  ExpectNothingClipped(window);
  EXPECT_EQ(window.focusWidget()->objectName().toStdString(), "Text1");
  KeepPicture(window, "FrmSoma-list");
  auto& list = desk.Part<QTableView>(screen::kEmitters, "LstSoma");
  DoubleClick(list, 1);
  EXPECT_EQ(desk.Part<QLineEdit>(screen::kEmitters, "Text1").text().toStdString(), "3");
  QTest::keyClick(window.focusWidget(), Qt::Key_F12);
  EXPECT_EQ(desk.Part<QLineEdit>(screen::kEmitters, "Text3").text().toStdString(), "520");
  EXPECT_EQ(window.focusWidget()->objectName().toStdString(), "Text4");
  QTest::keyClick(window.focusWidget(), Qt::Key_End, Qt::ControlModifier);
  EXPECT_EQ(list.model()->index(1, 3).data().toString().toStdString(), "Πτώση Πίεσης : 1.620,0");
  QTest::keyClick(window.focusWidget(), Qt::Key_Escape);
  EXPECT_FALSE(desk.windows.IsOpen(screen::kEmitters));
  EXPECT_EQ(desk.test.Row(3).SomaDrop, 1620.0F);
}

TEST(EmittersWindow, ShowsAnEmitterWhoseSectionIsGone) {
  EmittersShown desk;
  auto records = desk.test.Rows(work_file::kEmitters);
  records[0].RecordNumber = 0;
  ASSERT_TRUE(desk.test.workspace.Rows(work_file::kEmitters).WriteAll(records).ok());
  QWidget& window = desk.Open(screen::kEmitters);
  ExpectNothingClipped(window);
  KeepPicture(window, "FrmSoma-lost");
  EXPECT_EQ(desk.Part<QLabel>(screen::kEmitters, "TxtHelp").property("tone").toString(), "alarm");
  EXPECT_EQ(desk.Part<QLineEdit>(screen::kEmitters, "Text2").property("state").toString(), "alarm");
}

TEST(EmittersWindow, ADoubleClickLeavesAnEmptySectionForALine) {
  EmittersShown desk;
  QWidget& window = desk.Open(screen::kEmitters);
  for (int i = 0; i < 2; ++i) {
    QTest::keyClick(window.focusWidget(), Qt::Key_End, Qt::ControlModifier);
  }
  EXPECT_EQ(desk.Part<QLineEdit>(screen::kEmitters, "Text1").text().toStdString(), "");
  auto& list = desk.Part<QTableView>(screen::kEmitters, "LstSoma");
  DoubleClick(list, 0);
  EXPECT_EQ(desk.Part<QLineEdit>(screen::kEmitters, "Text1").text().toStdString(), "2");
}

TEST(EmittersWindow, LeavesAtOnceWhenAltAndShiftAreLetGo) {
  EmittersShown desk;
  QWidget& window = desk.Open(screen::kEmitters);
  const auto both = Qt::AltModifier | Qt::ShiftModifier;
  const auto keys = [&window]() -> QWidget& { return *window.focusWidget(); };
  Press(keys(), Qt::Key_Alt, {});
  Press(keys(), Qt::Key_Shift, Qt::AltModifier);
  Press(keys(), Qt::Key_A, both);
  Release(keys(), Qt::Key_A, both);
  Release(keys(), Qt::Key_Shift, both);
  Release(keys(), Qt::Key_Alt, Qt::AltModifier);
  EXPECT_TRUE(desk.windows.IsOpen(screen::kEmitters)) << "another key came between";
  Press(keys(), Qt::Key_Shift, {});
  Press(keys(), Qt::Key_Meta, Qt::ShiftModifier);
  EXPECT_TRUE(desk.windows.IsOpen(screen::kEmitters)) << "they are still held";
  Release(keys(), Qt::Key_Meta, both);
  EXPECT_TRUE(desk.windows.IsOpen(screen::kEmitters));
  Release(keys(), Qt::Key_Shift, Qt::ShiftModifier);
  EXPECT_FALSE(desk.windows.IsOpen(screen::kEmitters));
  EXPECT_EQ(desk.test.prompter.codes(), std::vector{2003});
}

TEST(KeyChord, CountsOnlyAltAndShiftByThemselves) {
  KeyChord chord;
  const auto press = [&chord](Qt::Key key, Qt::KeyboardModifiers held) {
    return chord.HoldsBack(QKeyEvent(QEvent::KeyPress, key, held));
  };
  const auto release = [&chord](Qt::Key key, Qt::KeyboardModifiers held) {
    return chord.Released(QKeyEvent(QEvent::KeyRelease, key, held));
  };
  const auto both = Qt::AltModifier | Qt::ShiftModifier;
  EXPECT_FALSE(press(Qt::Key_Shift, {}));
  EXPECT_TRUE(press(Qt::Key_Alt, Qt::ShiftModifier));
  EXPECT_FALSE(press(Qt::Key_Control, both)) << "Ctrl+Alt+Shift is a key of its own";
  EXPECT_FALSE(release(Qt::Key_Control, both | Qt::ControlModifier));
  EXPECT_FALSE(release(Qt::Key_Alt, both));
  EXPECT_FALSE(release(Qt::Key_Shift, Qt::ShiftModifier));
  EXPECT_TRUE(press(Qt::Key_Alt, Qt::ShiftModifier));
  chord.Forget();
  EXPECT_FALSE(release(Qt::Key_Alt, both));
  EXPECT_FALSE(release(Qt::Key_Shift, Qt::ShiftModifier));
  EXPECT_TRUE(press(Qt::Key_Alt, Qt::ShiftModifier));
  EXPECT_FALSE(release(Qt::Key_Alt, both));
  EXPECT_EQ(release(Qt::Key_Shift, Qt::ShiftModifier), kAltShift);
  EXPECT_FALSE(release(Qt::Key_Shift, Qt::ShiftModifier)) << "once";
}

TEST(OutletsWindow, ShowsHeightsAndPressures) {
  EmittersShown desk(SystemKind::kOpen);
  QWidget& window = desk.Open(screen::kOutlets);
  QTest::keyClick(window.focusWidget(), Qt::Key_End, Qt::ControlModifier);
  ExpectNothingClipped(window);
  KeepPicture(window, "FrmYpodo-list");
  EXPECT_EQ(window.focusWidget()->objectName().toStdString(), "Text3");
}

TEST(MemoryWindow, ShowsTheRowsOfItsKind) {
  for (const SystemKind kind : {SystemKind::kClosed, SystemKind::kOpen}) {
    EmittersShown desk(kind);
    QWidget& window = desk.Open(screen::kMemoryValues);
    ExpectNothingClipped(window);
    KeepPicture(window, kind == SystemKind::kOpen ? "FrmF12-open" : "FrmF12-closed");
    EXPECT_EQ(desk.Part<QLineEdit>(screen::kMemoryValues, "Text3").isVisible(),
              kind == SystemKind::kOpen);
  }
}

}  // namespace
}  // namespace kalvo
