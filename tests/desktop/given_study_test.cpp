#include "desktop/one_instance.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDropEvent>
#include <QFile>
#include <QMenu>
#include <QMimeData>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>

#include "tests/desktop/boxes_answered.h"
#include "tests/desktop/shown_desk.h"
#include "tests/desktop/shown_program.h"

namespace kalvo {
namespace {

TEST(OneInstance, ASecondStartHandsItsStudyToTheFirst) {
  const QTemporaryDir folder;
  OneInstance first(folder.path());
  ASSERT_TRUE(first.Take());
  QStringList came;
  first.Listen([&came](const QString& study) { came.append(study); });
  for (const QString& study : {QStringLiteral("/μελέτες/Κτίριο Α.PCK"), QString()}) {
    OneInstance second(folder.path());
    EXPECT_FALSE(second.Take());
    second.Call(study);
  }
  ASSERT_TRUE(QTest::qWaitFor([&came] { return came.size() == 2; }));
  EXPECT_EQ(came, QStringList({QStringLiteral("/μελέτες/Κτίριο Α.PCK"), QString()}));
}

TEST(OneInstance, TheLockOfAnotherMachineIsNamedAndCanBeTakenOver) {
  const QTemporaryDir folder;
  QFile lock(folder.filePath(QStringLiteral("kalvoflume.lock")));
  ASSERT_TRUE(lock.open(QIODevice::WriteOnly));
  lock.write("1234\nkalvoflume\nγραφείο\n0123456789abcdef\nfedcba9876543210\n");
  lock.close();
  OneInstance here(folder.path());
  ASSERT_FALSE(here.Take());
  EXPECT_EQ(here.OtherMachine(), QStringLiteral("γραφείο"));
  EXPECT_TRUE(here.TakeOver());
  EXPECT_EQ(here.OtherMachine(), QString());
}

TEST(OneInstance, AStudyDroppedOnTheMainMenuIsHandedOver) {
  ShownDesk desk;
  std::vector<std::filesystem::path> came;
  desk.windows.OnDrop([&came](const std::filesystem::path& study) { came.push_back(study); });
  desk.windows.Show(screen::kMain);
  QWidget& menu = *desk.windows.WindowOf(screen::kMain);
  for (const QList<QUrl>& urls :
       {QList<QUrl>{QUrl::fromLocalFile(QStringLiteral("/μελέτες/α.PCK"))},
        QList<QUrl>{QUrl(QStringLiteral("https://example.org/α.PCK"))}, QList<QUrl>{}}) {
    QMimeData data;
    data.setUrls(urls);
    QDragEnterEvent enter({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    enter.ignore();
    QCoreApplication::sendEvent(&menu, &enter);
    EXPECT_EQ(enter.isAccepted(), !urls.isEmpty() && urls.first().isLocalFile());
    QDropEvent drop({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&menu, &drop);
  }
  EXPECT_EQ(came, std::vector<std::filesystem::path>{"/μελέτες/α.PCK"});
}

// The main menu shows, and what comes from outside is asked nothing about.
struct AStudyFromOutside : ::testing::Test, ShownProgram {
  AStudyFromOutside() {
    program.desk().screens.asked_to_leave_saved = true;
    study.system_kind = SystemKind::kClosed;
    windows.Show(screen::kMain);
  }

  void Drop(const std::filesystem::path& file) {
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(QString::fromStdString(file.string()))});
    QWidget* menu = windows.WindowOf(screen::kMain);
    QDragEnterEvent enter({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(menu, &enter);
    QDropEvent drop({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(menu, &drop);
  }
  // That study and no other is open, in memory and among the work files.
  void ExpectOpen(const char* sample) {
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return study.study_path == Sample(sample) && !windows.Busy(); }, 20'000))
        << study.study_path;
    const Disk& disk = program.desk().bench.workspace.outer_disk();
    const auto rows = disk.Read(places.folder / work_file::kRows);
    const auto saved = disk.Read(Sample(sample));
    ASSERT_TRUE(rows.ok() && saved.ok());
    EXPECT_TRUE(*rows == *saved) << "the rows are another study's";
  }
  // Runs in the first pause of the action that comes next.
  void InThePause(const std::function<void()>& happens) {
    QObject::connect(&pause_, &QTimer::timeout, &pause_, [this, happens] {
      if (!windows.Busy()) return;
      pause_.stop();
      happens();
    });
    pause_.start(5);
  }
  bool Paused() {
    return QTest::qWaitFor([this] { return !pause_.isActive(); }, 20'000);
  }
  // Shows a box by a command that cannot run yet, and runs this while the box waits.
  void BehindABox(const std::function<void(MessageBox&)>& happens) {
    bool came = false;
    QTimer::singleShot(50, &windows, [&] {
      auto* box = dynamic_cast<MessageBox*>(QApplication::activeModalWidget());
      ASSERT_NE(box, nullptr);
      came = true;
      happens(*box);
      box->reject();
    });
    QTest::keyClick(windows.WindowOf(screen::kMain)->focusWidget(), Qt::Key_K, Qt::ControlModifier);
    EXPECT_TRUE(came);
  }

 private:
  QTimer pause_;
};

TEST_F(AStudyFromOutside, ThatComesInThePauseOfALoadIsOpenedAfterIt) {
  for (const bool dropped : {false, true}) {
    InThePause([&] {
      EXPECT_EQ(study.study_path, Sample("hotel.PCK"));
      if (dropped) Drop(Sample("fancoil.PCK"));
      if (!dropped) program.TakeStudy(Sample("fancoil.PCK"));
    });
    program.TakeStudy(Sample("hotel.PCK"));
    ASSERT_TRUE(Paused());
    ExpectOpen("fancoil.PCK");
  }
}

TEST_F(AStudyFromOutside, IsLoadedWholeWhateverIsClosedInThePause) {
  BoxesAnswered boxes;
  InThePause([&] {
    windows.WindowOf(screen::kMain)->close();
    QCoreApplication::processEvents();
  });
  program.TakeStudy(Sample("hotel.PCK"));
  ASSERT_TRUE(Paused());
  ExpectOpen("hotel.PCK");
  EXPECT_TRUE(windows.IsVisible(screen::kMain));
  EXPECT_EQ(boxes.texts.join('|'), QString());
}

TEST_F(AStudyFromOutside, WaitsForTheAnswerToABoxWhichKeepsTheKeysAndTheLastOneCounts) {
  BehindABox([&](const MessageBox& box) {
    program.TakeStudy(Sample("hotel.PCK"));
    Drop(Sample("fancoil.PCK"));
    windows.WindowOf(screen::kMain)->close();
    QTest::qWait(300);
    EXPECT_EQ(QApplication::activeModalWidget(), &box);
    EXPECT_EQ(QApplication::activeWindow(), &box);
    EXPECT_TRUE(study.study_path.empty());
    EXPECT_TRUE(windows.IsVisible(screen::kMain));
  });
  ExpectOpen("fancoil.PCK");
}

TEST_F(AStudyFromOutside, IsOpenedWhenAMenuIsClosedWithoutAChoice) {
  QMenu menu;
  menu.addAction(QStringLiteral("Νέα Μελέτη"));
  menu.popup({10, 10});
  program.TakeStudy(Sample("hotel.PCK"));
  QTest::qWait(300);
  EXPECT_TRUE(study.study_path.empty());
  menu.close();
  ExpectOpen("hotel.PCK");
}

TEST_F(AStudyFromOutside, ThatVanishedWhileItWaitedIsToldAndTheOpenOneStays) {
  program.TakeStudy(Sample("hotel.PCK"));
  ExpectOpen("hotel.PCK");
  program.TakeStudy(Sample("fancoil.PCK"));
  EXPECT_TRUE(std::filesystem::remove(Sample("fancoil.PCK")));
  BoxesAnswered boxes;
  ASSERT_TRUE(QTest::qWaitFor([&boxes] { return !boxes.texts.isEmpty(); }, 20'000));
  EXPECT_TRUE(boxes.texts.first().contains("fancoil.PCK"));
  ExpectOpen("hotel.PCK");
  EXPECT_EQ(boxes.texts.size(), 1);
}

}  // namespace
}  // namespace kalvo
