// The small widgets: captions, commands, boxes, waiting.
#include <gtest/gtest.h>

#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QSignalSpy>
#include <QTableWidget>
#include <QTest>
#include <QTimer>

#include "desktop/theme.h"
#include "desktop/widgets/boxes/message_box.h"
#include "desktop/widgets/boxes/wait_card.h"
#include "desktop/widgets/buttons/hint_button.h"
#include "desktop/widgets/labels/leader_label.h"
#include "tests/desktop/calculated_desk.h"
#include "tests/desktop/pictures.h"

namespace kalvo {
namespace {

TEST(LeaderLabel, PaintsWithoutTheClosingDotsAndKeepsTheText) {
  const QString caption = "Μέση Ταχύτητα Υγρού, σε [ m/sec ] ............ ";
  LeaderLabel label(caption);
  EXPECT_EQ(label.text(), caption);
  EXPECT_EQ(LeaderLabel::PaintedText(caption), "Μέση Ταχύτητα Υγρού, σε [ m/sec ]");
  EXPECT_EQ(LeaderLabel::PaintedText(" ... Παρακαλώ ... "), "... Παρακαλώ ...");
  EXPECT_EQ(LeaderLabel::PaintedText("Παροχή...."), "Παροχή");
  // Room for the words and a short line, not for the dots typed.
  EXPECT_LT(label.sizeHint().width(), label.fontMetrics().horizontalAdvance(caption));
}

TEST(HintButton, MakesRoomForCaptionAndKeyAndShrinksToItsIcon) {
  HintButton button;
  button.setText("  Παρεμβολή Σειράς  ");
  const int plain = button.sizeHint().width();
  button.setProperty("hint", "Ctrl+Ins");
  button.setProperty("iconName", "row-insert");
  EXPECT_GT(button.sizeHint().width(), plain + 40);
  EXPECT_EQ(button.text(), "  Παρεμβολή Σειράς  ");
  button.setProperty("iconOnly", true);
  EXPECT_EQ(button.sizeHint(), QSize(40, 32));
}

TEST(WaitCard, CountsTheSections) {
  WaitCard card;
  card.Begin(" ... Παρακαλώ, Περιμένετε ... ");
  const auto* bar = card.findChild<QProgressBar*>();
  EXPECT_EQ(bar->maximum(), 0);
  card.SetProgress("τμήμα 12 από 20", 12, 20);
  EXPECT_EQ(bar->value(), 12);
  EXPECT_EQ(bar->maximum(), 20);
  EXPECT_EQ(card.accessibleDescription(), "τμήμα 12 από 20");
}

constexpr int kOk = 64;
constexpr int kYesNo = 36;
constexpr int kNoIsDefault = 292;
constexpr int kThreeCancelDefault = 547;

Box BoxOf(int style) {
  return {"  !!   ΠΡΟΣΟΧΗ   !! ",
          {"   !! Υπάρχουν Δεδομένα που θα χαθούν !!   ", " Θέλετε να < σωθούν > τα Δεδομένα ?? "},
          style};
}

Answer AnswerToKey(int style, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
  MessageBox box(BoxOf(style));
  box.show();
  box.activateWindow();
  EXPECT_TRUE(QTest::qWaitForWindowActive(&box));
  const QString text = key < Qt::Key_Escape ? QString(QChar(key)) : QString();
  QTest::sendKeyEvent(QTest::Click, QApplication::focusWidget(), Qt::Key(key), text, modifiers);
  // A mnemonic shows the button going down before it acts.
  EXPECT_TRUE(QTest::qWaitFor([&box] { return !box.isVisible(); }, 2000))
      << "style " << style << ", key " << key << ", modifiers " << modifiers;
  return box.GivenAnswer();
}

TEST(MessageBox, EscIsCancelOrNoOrOk) {
  EXPECT_EQ(AnswerToKey(kOk, Qt::Key_Escape), Answer::kNone);
  EXPECT_EQ(AnswerToKey(kYesNo, Qt::Key_Escape), Answer::kNo);
  EXPECT_EQ(AnswerToKey(35, Qt::Key_Escape), Answer::kCancel);
}

TEST(MessageBox, EnterIsTheDefault) {
  for (const int enter : {int{Qt::Key_Return}, int{Qt::Key_Enter}}) {
    EXPECT_EQ(AnswerToKey(kOk, enter), Answer::kNone);
    EXPECT_EQ(AnswerToKey(kYesNo, enter), Answer::kYes);
    EXPECT_EQ(AnswerToKey(kNoIsDefault, enter), Answer::kNo);
    EXPECT_EQ(AnswerToKey(kThreeCancelDefault, enter), Answer::kCancel);
  }
}

TEST(MessageBox, UnderlinedLettersAnswerWithAltAndWithout) {
  constexpr int kNu = 0x39D;
  constexpr int kChi = 0x3A7;
  constexpr int kKappa = 0x39A;
  for (const auto modifier : {Qt::AltModifier, Qt::NoModifier}) {
    EXPECT_EQ(AnswerToKey(kThreeCancelDefault, kNu, modifier), Answer::kYes);
    EXPECT_EQ(AnswerToKey(kThreeCancelDefault, kChi, modifier), Answer::kNo);
    EXPECT_EQ(AnswerToKey(kThreeCancelDefault, kKappa, modifier), Answer::kCancel);
    EXPECT_EQ(AnswerToKey(kThreeCancelDefault, Qt::Key_X, modifier), Answer::kNo) << "us layout";
  }
}

TEST(MessageBox, ClosingItIsEsc) {
  MessageBox box(BoxOf(kYesNo));
  box.show();
  box.close();
  EXPECT_EQ(box.GivenAnswer(), Answer::kNo);
}

TEST(MessageBox, ShowsTextTrimmedAndReadsItAloud) {
  MessageBox box(BoxOf(kNoIsDefault));
  EXPECT_EQ(box.windowTitle(), "!!   ΠΡΟΣΟΧΗ   !!");
  EXPECT_TRUE(box.accessibleDescription().contains("!! Υπάρχουν Δεδομένα που θα χαθούν !!\n"));
  ASSERT_EQ(box.Buttons().size(), 2);
  EXPECT_EQ(box.Buttons()[0]->text(), "&Ναι");
  EXPECT_EQ(box.Buttons()[1]->property("role"), "primary");
  EXPECT_TRUE(box.Buttons()[1]->isDefault());
}

TEST(MessageBox, NamesTheEnglishAnswersWhereTheTextDoes) {
  Box asks = BoxOf(kThreeCancelDefault);
  asks.lines.emplace_back("... < Yes > => ΝΕΕΣ ΔΙΑΜΕΤΡΟΙ .... < No > => ΠΑΛΑΙΕΣ ΔΙΑΜΕΤΡΟΙ ...");
  MessageBox box(asks);
  EXPECT_EQ(box.Buttons()[0]->text(), "&Ναι (Yes)");
  EXPECT_EQ(box.Buttons()[1]->text(), "Ό&χι (No)");
  EXPECT_EQ(box.Buttons()[2]->text(), "Ά&κυρο");
  EXPECT_LE(box.sizeHint().width(), 640);
}

// Message 307 with what the new diameters come to.
Box AskedWithFacts() {
  Box box = BoxOf(kNoIsDefault);
  box.facts.lines = {{"Μανομετρικό΄Ύψος Αντλίας", "9,06 → 6,88 m w.g.  (−2,18 m w.g.  ·  −24,1 %)"},
                     {"Παροχή Αντλίας", "3,20 m³/h, όπως πριν"},
                     {"Δυσμενέστερος κλάδος", "ο ίδιος κλάδος"}};
  box.facts.table_caption = "Τμήματα που διαφέρουν : 2";
  box.facts.heads = {"α/α", "ΟΝΟΜΑΣΙΑ", "ΔΙΑΜΕΤΡΟΣ πριν", "μετά"};
  box.facts.rows = {{"12", "5/6", "3/4", "1"}, {"13", "6/7", "1/2", "3/4"}};
  box.may_stay_open = true;
  return box;
}

TEST(MessageBox, ShowsFactsAboveItsQuestionAndUnfoldsTheirTable) {
  MessageBox box(AskedWithFacts());
  box.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&box));
  EXPECT_EQ(QApplication::focusWidget(), box.Buttons()[1]) << "the answer, not the table";
  auto* table = box.findChild<QTableWidget*>();
  ASSERT_NE(table, nullptr);
  EXPECT_FALSE(table->isVisible());
  const int folded = box.height();
  const QRect free = box.screen()->availableGeometry();
  box.move(box.x(), free.bottom() - folded);
  for (auto* button : box.findChildren<QPushButton*>()) {
    if (button->isCheckable()) button->click();
  }
  EXPECT_TRUE(table->isVisible());
  EXPECT_EQ(table->item(1, 3)->text(), "3/4");
  EXPECT_TRUE(QTest::qWaitFor([&] { return box.height() > folded; }, 1000));
  EXPECT_LE(box.frameGeometry().bottom(), free.bottom()) << "its buttons stay in reach";
  EXPECT_TRUE(box.accessibleDescription().contains("6,88"));
  ExpectNothingClipped(box);
  table->setFocus();
  QTest::keyClick(table, Qt::Key_Return);
  EXPECT_TRUE(box.isVisible()) << "Enter in the table answers nothing";
  QTest::keyClick(&box, Qt::Key_Escape);
  EXPECT_EQ(box.GivenAnswer(), Answer::kNone) << "it may stay open";
}

QWidget* CommandsForLooking() {
  auto* commands = new QWidget;
  auto* form = new QFormLayout(commands);
  for (const char* role : {"primary", "", "rail"}) {
    for (const bool enabled : {true, false}) {
      auto* button = new HintButton;
      button->setProperty("role", role);
      button->setText(" &Αποδοχή Δεδομένων ");
      button->setProperty("hint", "Ctrl+Enter");
      button->setProperty("iconName", "check");
      button->setEnabled(enabled);
      form->addRow(new QLabel(*role == 0 ? "secondary" : role), button);
    }
  }
  auto* wait = new WaitCard;
  wait->Begin(" ... Παρακαλώ, Περιμένετε ... ");
  wait->SetProgress("τμήμα 12 από 20", 12, 20);
  form->addRow(wait);
  return commands;
}

TEST(Pictures, OfTheSmallWidgets) {
  for (const Theme* theme : {&kLightTheme, &kDarkTheme}) {
    const QString suffix = theme == &kLightTheme ? "-light" : "-dark";
    ApplyTheme(*qApp, *theme);
    const std::unique_ptr<QWidget> commands(CommandsForLooking());
    KeepPicture(*commands, "commands" + suffix);
    MessageBox question(BoxOf(547));
    KeepPicture(question, "question" + suffix);
    Box long_box = BoxOf(16);
    long_box.lines.emplace_back(
        "... Θέλετε να ισχύσουν οι ΝΕΕΣ ΔΙΑΜΕΤΡΟΙ (Yes), ή να ισχύσουν οι ΠΑΛΑΙΕΣ ΔΙΑΜΕΤΡΟΙ "
        "(No) ?? ...");
    MessageBox stop(long_box);
    KeepPicture(stop, "stop" + suffix);
    MessageBox facts(AskedWithFacts());
    KeepPicture(facts, "facts" + suffix);
  }
  ApplyTheme(*qApp, kLightTheme);
}

}  // namespace
}  // namespace kalvo
