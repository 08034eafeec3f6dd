#include "desktop/wait_indicator.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QTest>
#include <QThread>
#include <algorithm>

#include "desktop/widgets/boxes/wait_card.h"

namespace kalvo {
namespace {

/// A window in front, over which work goes on.
struct WaitOverAWindow : ::testing::Test {
  WaitOverAWindow() {
    window.resize(700, 400);
    window.show();
    window.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
  }
  [[nodiscard]] WaitCard* Card() const { return window.findChild<WaitCard*>(); }
  [[nodiscard]] bool ComesWith(const QString& text) const {
    if (!QTest::qWaitFor([this] { return Card() != nullptr; }, 2000)) return false;
    return std::ranges::any_of(Card()->findChildren<QLabel*>(),
                               [&](const QLabel* label) { return label->text() == text; });
  }
  static bool CursorWaits() { return QApplication::overrideCursor() != nullptr; }

  QWidget window;
  WaitIndicator wait;
};

TEST_F(WaitOverAWindow, ShowsNoCardForShortWork) {
  wait.Begin("Περιμένετε");
  EXPECT_TRUE(CursorWaits());
  wait.End();
  EXPECT_FALSE(CursorWaits());
  QTest::qWait(200);
  EXPECT_EQ(Card(), nullptr);
}

TEST_F(WaitOverAWindow, StaysAwayWhileTheUserIsAsked) {
  wait.Begin("Περιμένετε");
  EXPECT_TRUE(ComesWith("Περιμένετε"));
  wait.Hold(true);
  EXPECT_EQ(Card(), nullptr);
  EXPECT_FALSE(CursorWaits());
  wait.Begin("εσωτερική εργασία");
  EXPECT_TRUE(ComesWith("εσωτερική εργασία"));
  wait.End();
  EXPECT_EQ(Card(), nullptr) << "the user is still asked";
  wait.Hold(false);
  EXPECT_TRUE(ComesWith("Περιμένετε"));
  wait.End();
  EXPECT_FALSE(CursorWaits());
}

TEST_F(WaitOverAWindow, TakesAwayTheCardThatProgressHasBrought) {
  wait.Begin("Περιμένετε");
  QThread::msleep(200);  // the work lets no timer run
  wait.ShowProgress("μελέτη 1 από 9", 1, 9);
  QApplication::processEvents();
  EXPECT_EQ(window.findChildren<WaitCard*>().size(), 1);
  wait.End();
  EXPECT_EQ(Card(), nullptr);
}

}  // namespace
}  // namespace kalvo
