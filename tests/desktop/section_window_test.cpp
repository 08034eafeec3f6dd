#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QTableView>
#include <QTest>

#include "desktop/windows.h"
#include "tests/desktop/calculated_desk.h"
#include "tests/desktop/pictures.h"
#include "tests/desktop/shown_desk.h"

namespace kalvo {
namespace {

// A loop, its sections one at a time.
struct SectionWindow : ShownDesk, ::testing::Test {
  SectionWindow() {
    test.PutNetwork({"ANT/1 5m", "1/2 5m 2bends 300l/h soma 800mm", "2/ANT 5m"});
    test.study.study_title = "Γραφεία";
    test.study.recovery = true;  // the menu leaves the study as it is
    Open(screen::kSections);
  }
  void Open(std::string_view screen) {
    windows.Show(screen);
    At(screen);
  }
  // The keys go there from now on.
  void At(std::string_view screen) {
    window = windows.WindowOf(screen);
    ASSERT_NE(window, nullptr) << screen;
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window));
  }
  [[nodiscard]] QWidget& Focus() const {
    return window->focusWidget() == nullptr ? *window : *window->focusWidget();
  }
  [[nodiscard]] std::string FocusName() const { return Focus().objectName().toStdString(); }
  void Key(Qt::Key key, Qt::KeyboardModifiers with = Qt::NoModifier) {
    QTest::keyClick(&Focus(), key, with);
  }
  void Type(const QString& text) { TypeText(Focus(), text); }
  // A key of the Greek layout.
  void Greek(QChar letter, Qt::KeyboardModifiers with) {
    QKeyEvent press(QEvent::KeyPress, letter.toUpper().unicode(), with, QString(letter));
    QCoreApplication::sendEvent(&Focus(), &press);
  }
  [[nodiscard]] std::string Text(const char* name) {
    return Part<QLineEdit>(screen::kSections, name).text().toStdString();
  }
  [[nodiscard]] std::string Told(const char* name) {
    return Part<QLabel>(screen::kSections, name).text().toStdString();
  }

  QWidget* window = nullptr;
};

TEST_F(SectionWindow, EnterLeadsThroughTheFieldsAndOnToTheNextSection) {
  EXPECT_EQ(FocusName(), "Txt2") << "the names of the first section are fixed";
  Type("7,5");
  for (int i = 0; i < 13; ++i) Key(Qt::Key_Return);
  EXPECT_EQ(FocusName(), "Cmd_Next");
  Key(Qt::Key_Return);
  EXPECT_EQ(Told("Txt_aa"), "2");
  EXPECT_EQ(test.Row(1).Length, 7.5F);
  EXPECT_EQ(Text("Txt7"), "2");
  Key(Qt::Key_PageDown);
  EXPECT_EQ(Told("LblOf"), "από 3");
  EXPECT_EQ(Told("Txt_aa"), "3");
  EXPECT_EQ(Part<QLabel>(screen::kSections, "LblCheckName").property("tone"), "calculated");
}

TEST_F(SectionWindow, TheGreekLayoutNamesTheSourceAndPressesTees) {
  Key(Qt::Key_PageDown);
  Part<QLineEdit>(screen::kSections, "Txt1").setFocus();
  Greek(u'α', Qt::NoModifier);
  EXPECT_EQ(Text("Txt1"), "ANT");
  EXPECT_EQ(FocusName(), "Txt2");
  Greek(u'Ψ', Qt::ShiftModifier);  // on the place of C
  EXPECT_EQ(Text("Txt11"), "1");
  EXPECT_EQ(FocusName(), "Txt15");
}

TEST_F(SectionWindow, TakesBackWhatWasTypedInAFieldAndDoesItAgain) {
  Type("8");
  Key(Qt::Key_Return);
  Type("3");
  Key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(Text("Txt6"), "0") << "what is still open is a step too";
  EXPECT_EQ(Text("Txt2"), "8");
  Key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(Text("Txt2"), "5");
  Key(Qt::Key_Y, Qt::ControlModifier);
  EXPECT_EQ(Text("Txt2"), "8");
}

TEST_F(SectionWindow, TheTeeWindowServesTheFormAndGivesTheKeysBack) {
  Key(Qt::Key_PageDown);
  Part<QPushButton>(screen::kSections, "Cmd_Tau").click();
  EXPECT_FALSE(Part<QWidget>(screen::kSections, "LblWait").isVisible());
  EXPECT_TRUE(Part<QWidget>(screen::kSections, "TxtProgram").isVisible());
  At(screen::kFormTees);
  EXPECT_EQ(Part<QPushButton>(screen::kFormTees, "Cmd_R").accessibleName().toStdString(),
            "R: άνω σκέλος, ροή προς τον κόμβο, Διέλευση +2");
  Type(QStringLiteral("rψ"));
  EXPECT_EQ(Text("Txt12"), "2");
  EXPECT_EQ(Text("Txt11"), "1");
  EXPECT_EQ(Part<QLabel>(screen::kFormTees, "LblDieTee").text(), "2");
  Key(Qt::Key_Escape);
  EXPECT_FALSE(windows.IsOpen(screen::kFormTees));
  At(screen::kSections);
  EXPECT_EQ(FocusName(), "Txt15");
  Part<QPushButton>(screen::kSections, "Cmd_Tau").click();
  EXPECT_TRUE(windows.IsVisible(screen::kFormTees)) << "a second time";
}

TEST_F(SectionWindow, TheSwitchKeysLeadFromTheFormToTheSheetAndBack) {
  Key(Qt::Key_PageDown);
  Type("6");
  Key(Qt::Key_F12, Qt::ShiftModifier);
  EXPECT_FALSE(windows.IsOpen(screen::kSections));
  At(screen::kSheet);
  const auto* table = window->findChild<QTableView*>("fpSpread1");
  EXPECT_EQ(table->currentIndex().row(), 1);
  EXPECT_EQ(table->model()->index(1, 3).data().toString(), "6");
  Key(Qt::Key_Down);
  // The last of the three makes it.
  QKeyEvent shift(QEvent::KeyPress, Qt::Key_Shift, Qt::ControlModifier | Qt::AltModifier);
  QCoreApplication::sendEvent(&Focus(), &shift);
  EXPECT_FALSE(windows.IsOpen(screen::kSheet));
  At(screen::kSections);
  EXPECT_EQ(Told("Txt_aa"), "3");
  Key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(Told("Txt_aa"), "2") << "one history for both";
  EXPECT_EQ(Text("Txt2"), "5");
  Part<QPushButton>(screen::kSections, "CmdShift_F12").click();
  At(screen::kSheet);
  Part<QPushButton>(screen::kSheet, "CmdShift_F12").click();
  EXPECT_TRUE(windows.IsVisible(screen::kSections));
}

TEST_F(SectionWindow, AnInsertedSectionLeadsToTheEmittersBeforeTheSheet) {
  Key(Qt::Key_PageDown);
  Part<QPushButton>(screen::kSections, "Cmd_Ins").click();
  EXPECT_EQ(Part<QPushButton>(screen::kSections, "Cmd_Ins").text(), "ΑΚΥΡΩΣΗ");
  At(screen::kSections);
  Type("7");
  Key(Qt::Key_Return);
  Type("8");
  Key(Qt::Key_Return);
  Type("4");
  Key(Qt::Key_F12, Qt::ShiftModifier);
  ASSERT_TRUE(windows.IsVisible(screen::kEmitters));
  At(screen::kEmitters);
  Key(Qt::Key_Escape);
  EXPECT_TRUE(windows.IsVisible(screen::kSheet));
  EXPECT_FALSE(windows.IsOpen(screen::kEmitters));
  EXPECT_EQ(Part<QTableView>(screen::kSheet, "fpSpread1").currentIndex().row(), 1);
}

TEST_F(SectionWindow, BringsTheFieldThatHasTheKeysInSight) {
  window->resize(window->minimumSize());
  QApplication::processEvents();
  for (int i = 0; i < 12; ++i) Key(Qt::Key_Return);
  ASSERT_EQ(FocusName(), "Txt17");
  QApplication::processEvents();
  const auto* area = window->findChild<QScrollArea*>("fields");
  const QRect view = area->viewport()->rect();
  const QRect field(Focus().mapTo(area->viewport(), QPoint(0, 0)), Focus().size());
  EXPECT_TRUE(view.contains(field))
      << field.top() << " to " << field.bottom() << " of " << view.bottom();
  EXPECT_EQ(area->widget()->width(), view.width()) << "nothing is to be scrolled sideways";
}

TEST_F(SectionWindow, TakesTheValuesOfAnotherSectionFromAListInTheRail) {
  Key(Qt::Key_PageDown);
  Key(Qt::Key_PageDown);
  for (const int width : {1366, 960}) {
    window->resize(width, 688);
    Part<QPushButton>(screen::kSections, "Cmd_Same").click();
    QApplication::processEvents();
    EXPECT_EQ(FocusName(), "CboSame");
    EXPECT_FALSE(Part<QPushButton>(screen::kSections, "Cmd_Same").isEnabled());
    EXPECT_EQ(Part<QLabel>(screen::kSections, "Lbl_Same").isVisible(), width > 960);
    ExpectNothingClipped(*window);
    KeepPicture(*window, QString("sections-same-%1").arg(width));
    Key(Qt::Key_Up);
    Key(Qt::Key_Return);
    EXPECT_EQ(FocusName(), "Txt2");
  }
  EXPECT_EQ(Text("Txt7"), "2");
}

TEST_F(SectionWindow, AMissingLengthIsMarkedAsItIsTyped) {
  const auto& length = Part<QLabel>(screen::kSections, "LblCheckLength");
  Type("0");
  EXPECT_EQ(length.property("tone"), "alarm");
  EXPECT_EQ(length.text(), "μήκος μηδενικό");
  KeepPicture(*window, "FrmData-refused");
  Type("4");
  EXPECT_EQ(length.property("tone"), "calculated");
}

// Both kinds of system, in every width that changes what is shown.
TEST(SectionWindowOfAnySize, ClipsNothing) {
  for (const char* study : {"hotel.PCK", "house.PCA"}) {
    CalculatedDesk desk(std::filesystem::path(KALVO_SAMPLES_DIR) / study);
    for (const int width : {1366, 1240, 1239, 1180, 1179, 960}) {
      QWidget& window = desk.Open(screen::kSections, {width, 688});
      ExpectNothingClipped(window);
      const auto* area = window.findChild<QScrollArea*>("fields");
      EXPECT_EQ(area->widget()->width(), area->viewport()->width()) << study << ' ' << width;
      KeepPicture(window, QString("sections-%1-%2").arg(QString(study).left(5)).arg(width));
    }
  }
}

}  // namespace
}  // namespace kalvo
