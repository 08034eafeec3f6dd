#include "desktop/widgets/pictures/title_art.h"

#include <QGridLayout>
#include <QIcon>
#include <QLabel>

#include "desktop/theme.h"

namespace kalvo {

TitleArt::TitleArt(QWidget* parent)
    : QWidget(parent), icon_(new QLabel), name_(new QLabel), line_(new QLabel) {
  line_->setProperty("role", "unit");
  auto* grid = new QGridLayout(this);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->addWidget(icon_, 0, 0, 2, 1);
  grid->addWidget(name_, 0, 1, Qt::AlignBottom);
  grid->addWidget(line_, 1, 1, Qt::AlignTop);
  grid->setColumnStretch(1, 1);
  SetLarge(false);
}

void TitleArt::SetName(const QString& name) {
  name_->setText(name);
  setAccessibleName(name);
}

QString TitleArt::Name() const { return name_->text(); }

void TitleArt::SetLine(const QString& line) {
  line_->setText(line);
  setAccessibleDescription(line);
}

QString TitleArt::Line() const { return line_->text(); }

void TitleArt::SetLarge(bool large) {
  large_ = large;
  const int size = large ? 96 : 48;
  icon_->setPixmap(QIcon(":/icons/kalvoflume.svg").pixmap({size, size}, devicePixelRatioF()));
  name_->setFont(ThemeFont(large ? 24 : 16, true));
  static_cast<QGridLayout*>(layout())->setHorizontalSpacing(size / 4);
}

}  // namespace kalvo
