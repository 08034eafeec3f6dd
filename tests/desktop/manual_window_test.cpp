// The manual as it is read on a screen: its keys, its window, what it shows.
#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QDialog>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>
#include <QTextTable>
#include <QTimer>
#include <QWindow>
#include <algorithm>
#include <functional>
#include <set>

#include "desktop/manual/manual_browser.h"
#include "desktop/manual/manual_document.h"
#include "desktop/manual/selected_text.h"
#include "desktop/qt_text.h"
#include "shell/manual/frm_manual.h"
#include "shell/manual/manual_chapters.h"
#include "shell/manual/manual_file.h"
#include "tests/desktop/boxes_answered.h"
#include "tests/desktop/pictures.h"
#include "tests/desktop/shown_program.h"
#include "tests/support/test_desk.h"

namespace kalvo {
namespace {

struct ManualWindow : ShownProgram, testing::Test {
  ManualWindow() {
    windows.Show(screen::kKind);
    Press(screen::kKind, Qt::Key_Return);
  }

  void Press(std::string_view screen, Qt::Key key,
             Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QWidget* window = windows.WindowOf(screen);
    ASSERT_NE(window, nullptr) << screen;
    ASSERT_TRUE(QTest::qWaitForWindowActive(window)) << screen;
    QWidget* focus = window->focusWidget();
    QTest::keyClick(focus == nullptr ? window : focus, key, modifiers);
  }
  [[nodiscard]] QWidget* Shown() const { return windows.WindowOf(screen::kManual); }
  [[nodiscard]] ManualBrowser& Page() const { return *Shown()->findChild<ManualBrowser*>(); }
  [[nodiscard]] std::string Title() const { return Shown()->windowTitle().toStdString(); }
  // Whether a heading is the first thing on the page.
  [[nodiscard]] bool BeginsWith(const QString& heading) const {
    for (QTextBlock block = Page().document()->begin(); block.isValid(); block = block.next()) {
      const int top = Page().cursorRect(QTextCursor(block)).top();
      if (block.text() == heading && top >= 0 && top < 40) return true;
    }
    return false;
  }
  [[nodiscard]] int WidestPicture() const {
    double widest = 0;
    for (QTextBlock block = Page().document()->begin(); block.isValid(); block = block.next()) {
      for (auto at = block.begin(); !at.atEnd(); ++at) {
        const QTextImageFormat format = at.fragment().charFormat().toImageFormat();
        if (format.isValid()) widest = std::max(widest, format.width());
      }
    }
    return qRound(widest);
  }
  // Runs what shows a box or another screen over all, and this while it waits.
  void While(const std::function<void()>& shows, const std::function<void(QWidget&)>& happens) {
    bool came = false;
    QTimer::singleShot(150, &windows, [&] {
      QWidget* over = QApplication::activeModalWidget();
      ASSERT_NE(over, nullptr);
      came = true;
      happens(*over);
      over->close();
    });
    shows();
    EXPECT_TRUE(came);
  }
};

TEST_F(ManualWindow, OpensByItsKeysAtTheChapterOfTheWindow) {
  EXPECT_TRUE(std::filesystem::exists(places.folder / kManualFile)) << "delivered at the start";
  for (const auto modifier : {Qt::NoModifier, Qt::ShiftModifier}) {
    Press(screen::kMain, Qt::Key_F1, modifier);
    ASSERT_NE(Shown(), nullptr);
    EXPECT_EQ(Title(), "Βοήθεια : 1. Εγκατάσταση και πρώτα βήματα");
    EXPECT_EQ(Shown()->windowHandle()->transientParent(),
              windows.WindowOf(screen::kMain)->windowHandle());
    Press(screen::kManual, Qt::Key_Escape);
    EXPECT_EQ(Shown(), nullptr);
    EXPECT_TRUE(QTest::qWaitForWindowActive(windows.WindowOf(screen::kMain)));
  }
}

TEST_F(ManualWindow, IsUsedWhileAModalWindowWaitsAndClosesWithIt) {
  const auto shows = [&] { Press(screen::kMain, Qt::Key_L, Qt::ControlModifier); };
  While(shows, [&](QWidget& fluid) {
    QTest::keyClick(fluid.focusWidget(), Qt::Key_F1, Qt::ShiftModifier);
    ASSERT_NE(Shown(), nullptr);
    EXPECT_EQ(Title(), "Βοήθεια : 12. Σωλήνες και υγρά");
    ASSERT_TRUE(QTest::qWaitForWindowActive(Shown())) << "the modal window does not block it";
    Press(screen::kManual, Qt::Key_F, Qt::ControlModifier);
    EXPECT_EQ(Shown()->focusWidget()->objectName().toStdString(), "TxtSearch");
  });
  EXPECT_EQ(Shown(), nullptr);
}

TEST_F(ManualWindow, OpensAtTheNumberOfAMessage) {
  const auto shows = [&] { Press(screen::kMain, Qt::Key_K, Qt::ControlModifier); };
  While(shows, [&](QWidget& box) {
    QTest::keyClick(&box, Qt::Key_F1, Qt::ShiftModifier);
    ASSERT_NE(Shown(), nullptr);
    EXPECT_EQ(Title(), "Βοήθεια : 15. Μηνύματα");
    const auto& form = dynamic_cast<FrmManual&>(*windows.FormOf(screen::kManual));
    EXPECT_EQ(form.Page.anchor(), "139");
  });
  EXPECT_EQ(Shown(), nullptr) << "it went with the box";
}

TEST_F(ManualWindow, OpensAtItsScreenFromADialogOfTheToolkit) {
  for (QWidget* parent : {windows.WindowOf(screen::kMain), static_cast<QWidget*>(nullptr)}) {
    QDialog dialog(parent);
    QLineEdit field(&dialog);
    dialog.setModal(true);
    dialog.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
    QTest::keyClick(&field, Qt::Key_F1, Qt::ShiftModifier);
    ASSERT_NE(Shown(), nullptr);
    EXPECT_EQ(Title(), "Βοήθεια : 1. Εγκατάσταση και πρώτα βήματα");
    EXPECT_EQ(Shown()->windowHandle()->transientParent(), dialog.windowHandle());
    dialog.close();
    EXPECT_EQ(Shown(), nullptr);
  }
}

// A form by itself in a window, with the question whether the manual was asked for.
bool KeyShowsHelp(const Screen& screen, const Key& key, bool& taken) {
  TestDesk quiet;
  const auto form = screen.make(quiet.desk);
  taken = form->Press(key);
  return !taken && AsksForHelp(key);
}

TEST(ManualKeys, AreFreeInEveryWindowButWhereF1HelpsWithKeys) {
  const std::set<std::string_view> own_f1 = {
      screen::kSections, screen::kEmitters,     screen::kOutlets, screen::kResults,
      screen::kSheet,    screen::kResultsSheet, screen::kMain};
  for (const Screen& screen : Screens()) {
    if (screen.name == screen::kTitle) continue;  // any key ends it
    bool taken = false;
    EXPECT_TRUE(KeyShowsHelp(screen, Shift(KeyCode::kF1), taken)) << screen.name;
    if (own_f1.contains(screen.name)) continue;
    EXPECT_TRUE(KeyShowsHelp(screen, Plain(KeyCode::kF1), taken)) << screen.name;
  }
}

TEST_F(ManualWindow, SaysWhatIsMissing) {
  program.desk().installed_folder = folder.path().toStdString();
  Press(screen::kMain, Qt::Key_F1);
  EXPECT_TRUE(Page().toPlainText().contains("δεν διαβάζεται"));
  std::filesystem::create_directories(folder.path().toStdString() + "/manual");
  ASSERT_TRUE(RealDisk()
                  .Write(folder.path().toStdString() + "/manual/16-glossary.md", "# 16. Γλωσσάρι")
                  .ok());
  windows.Close(screen::kManual);
  Press(screen::kMain, Qt::Key_F1);
  EXPECT_TRUE(Page().toPlainText().contains("01-install.md")) << Page().toPlainText().toStdString();
}

TEST_F(ManualWindow, FindsWordsWithoutTheirAccentsAndMarksThem) {
  Press(screen::kMain, Qt::Key_F1);
  auto& search = *Shown()->findChild<QLineEdit*>(QStringLiteral("TxtSearch"));
  const auto& list = *Shown()->findChild<QListView*>();
  Press(screen::kManual, Qt::Key_F, Qt::ControlModifier);
  QGuiApplication::clipboard()->setText(QStringLiteral("ΤΑΥ ΣΤΑΥΡΟΙ"));
  QTest::keyClick(&search, Qt::Key_V, Qt::ControlModifier);
  ASSERT_GT(list.model()->rowCount(), 1);
  EXPECT_TRUE(list.model()->index(0, 0).data().toString().startsWith("Ταυ και σταυροί"));
  QTest::keyClick(&search, Qt::Key_Return);
  EXPECT_FALSE(Page().extraSelections().isEmpty());
  EXPECT_TRUE(Title().starts_with("Βοήθεια : 4.")) << Title();
  search.selectAll();
  QGuiApplication::clipboard()->setText(QStringLiteral("100 και πανω"));  // far below its heading
  QTest::keyClick(&search, Qt::Key_V, Qt::ControlModifier);
  QTest::keyClick(&search, Qt::Key_Return);
  const auto in_sight = [&](const QTextEdit::ExtraSelection& mark) {
    return Page().viewport()->rect().contains(Page().cursorRect(mark.cursor).center());
  };
  EXPECT_TRUE(std::ranges::any_of(Page().extraSelections(), in_sight));
  search.selectAll();
  QTest::keyClick(&search, Qt::Key_Backspace);
  EXPECT_EQ(list.model()->index(1, 0).data().toString().left(2), "1.") << "the contents again";
  EXPECT_TRUE(Page().extraSelections().isEmpty());
}

TEST_F(ManualWindow, GoesBackToWhereItWasRead) {
  Press(screen::kMain, Qt::Key_F1);
  auto& form = dynamic_cast<FrmManual&>(*windows.FormOf(screen::kManual));
  form.Page.on_follow("02-fancoil.md");
  windows.PaintAll();
  Page().verticalScrollBar()->setValue(700);
  Q_EMIT Page().anchorClicked(QUrl(QStringLiteral("14-keys.md#γενικά-δεδομένα")));
  EXPECT_TRUE(BeginsWith(QStringLiteral("Γενικά δεδομένα")));
  Press(screen::kManual, Qt::Key_Left, Qt::AltModifier);
  EXPECT_EQ(Title(), "Βοήθεια : 2. Ένας όροφος με fan coil");
  EXPECT_EQ(Page().verticalScrollBar()->value(), 700);
}

TEST_F(ManualWindow, FollowsTheThemeAndTheWindowsWidth) {
  Press(screen::kMain, Qt::Key_F1);
  auto& form = dynamic_cast<FrmManual&>(*windows.FormOf(screen::kManual));
  form.Page.on_follow("02-fancoil.md#το-φύλλο-των-τμημάτων");
  windows.PaintAll();
  for (const Theme* theme : {&kLightTheme, &kDarkTheme}) {
    ApplyTheme(*qApp, *theme);
    windows.Close(screen::kManual);
    Press(screen::kMain, Qt::Key_F1);
    dynamic_cast<FrmManual&>(*windows.FormOf(screen::kManual))
        .Page.on_follow("02-fancoil.md#το-φύλλο-των-τμημάτων");
    windows.PaintAll();
    QApplication::processEvents();
    KeepPicture(*Shown(), theme == &kLightTheme ? "manual-light" : "manual-dark");
    const QTextTable* table = nullptr;
    for (QTextFrame* frame : Page().document()->rootFrame()->childFrames()) {
      if (table == nullptr) table = qobject_cast<QTextTable*>(frame);
    }
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(table->cellAt(0, 0).format().background().color(), theme->header);
  }
  Shown()->resize(Shown()->minimumSize());
  QTest::qWait(300);
  EXPECT_TRUE(BeginsWith(QStringLiteral("Το φύλλο των τμημάτων"))) << "at its place";
  EXPECT_LE(WidestPicture(), Page().viewport()->width()) << "pictures get smaller";
  EXPECT_GT(WidestPicture(), 300);
  KeepPicture(*Shown(), "manual-dark-least");
  ApplyTheme(*qApp, kLightTheme);
}

TEST(SelectedText, HasTheCellsOfATableApartByTabs) {
  QTextDocument chapter;
  chapter.setHtml(
      "<p>πριν</p><table><tr><td>1/2</td><td>7,2</td></tr><tr><td>2/3</td><td></td></tr></"
      "table><p>μετά</p>");
  QTextCursor all(&chapter);
  all.select(QTextCursor::Document);
  EXPECT_EQ(SelectedText(all).toStdString(), "πριν\n1/2\t7,2\n2/3\t\nμετά");
  QTextCursor rows = chapter.find("1/2");
  rows.setPosition(rows.selectionStart());
  rows.setPosition(chapter.find("2/3").selectionEnd(), QTextCursor::KeepAnchor);
  EXPECT_EQ(SelectedText(rows).toStdString(), "1/2\n2/3") << "the cells of one column";
}

}  // namespace
}  // namespace kalvo
