#include "desktop/icons.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QGridLayout>
#include <QLabel>

#include "desktop/theme.h"
#include "tests/desktop/pictures.h"

namespace kalvo {
namespace {

bool HasColor(const QImage& image, const QColor& color) {
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      if (image.pixelColor(x, y) == color) return true;
    }
  }
  return false;
}

QStringList AllIcons() {
  QStringList names = QDir(":/icons").entryList({"*.svg"});
  for (QString& name : names) name.chop(4);
  return names;
}

class Icons : public ::testing::Test {
 protected:
  ~Icons() override { ApplyTheme(*qApp, kLightTheme); }
};

TEST_F(Icons, EachDrawsSomething) {
  ASSERT_GT(AllIcons().size(), 30);
  for (const QString& name : AllIcons()) {
    const QImage image = IconPixmap(name, 24, 1).toImage();
    const QImage empty(image.size(), image.format());
    EXPECT_FALSE(image.allGray() && image == empty) << name.toStdString();
    EXPECT_TRUE(image.hasAlphaChannel());
  }
}

TEST_F(Icons, TakeTheColoursOfTheTheme) {
  EXPECT_TRUE(HasColor(IconPixmap("save", 72, 1).toImage(), kLightTheme.ink2));
  ApplyTheme(*qApp, kDarkTheme);
  EXPECT_TRUE(HasColor(IconPixmap("save", 72, 1).toImage(), kDarkTheme.ink2));
  EXPECT_TRUE(HasColor(IconPixmap("stop", 72, 1).toImage(), kDarkTheme.err));
  EXPECT_TRUE(HasColor(IconPixmap("save", 72, 1, Qt::red).toImage(), Qt::red));
  const QImage disabled = ThemeIcon("save").pixmap(72, QIcon::Disabled).toImage();
  EXPECT_TRUE(HasColor(disabled, kDarkTheme.ink3));
}

TEST_F(Icons, AreRenderedAtTheRatioOfTheScreen) {
  const QPixmap pixmap = ThemeIcon("calc").pixmap(QSize(18, 18), 2.0);
  EXPECT_EQ(pixmap.size(), QSize(36, 36));
  EXPECT_EQ(pixmap.deviceIndependentSize(), QSizeF(18, 18));
}

TEST_F(Icons, AreKeptAsPictures) {
  for (const Theme* theme : {&kLightTheme, &kDarkTheme}) {
    ApplyTheme(*qApp, *theme);
    QWidget sheet;
    auto* grid = new QGridLayout(&sheet);
    int place = 0;
    for (const QString& name : AllIcons()) {
      auto* picture = new QLabel;
      picture->setPixmap(IconPixmap(name, 48, 1));
      auto* small = new QLabel;
      small->setPixmap(IconPixmap(name, 18, 1));
      grid->addWidget(picture, place / 8 * 2, place % 8 * 2);
      grid->addWidget(small, place / 8 * 2, place % 8 * 2 + 1);
      grid->addWidget(new QLabel(name), place / 8 * 2 + 1, place % 8 * 2, 1, 2);
      ++place;
    }
    KeepPicture(sheet, theme == &kLightTheme ? "icons-light" : "icons-dark");
  }
}

}  // namespace
}  // namespace kalvo
