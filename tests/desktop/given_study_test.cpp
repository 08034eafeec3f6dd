#include "desktop/one_instance.h"

#include <gtest/gtest.h>

#include <QDropEvent>
#include <QFile>
#include <QMimeData>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>

#include "tests/desktop/shown_desk.h"

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

}  // namespace
}  // namespace kalvo
