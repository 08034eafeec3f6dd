#include "desktop/widgets/title_art.h"

#include <QGridLayout>
#include <QIcon>
#include <QLabel>

#include "desktop/theme.h"

namespace kalvo {

TitleArt::TitleArt(const QString& name, const QString& line, int icon_size, double name_points,
                   QWidget* parent)
    : QWidget(parent) {
  auto* icon = new QLabel;
  icon->setPixmap(
      QIcon(":/icons/kalvoflume.svg").pixmap({icon_size, icon_size}, devicePixelRatioF()));
  auto* name_label = new QLabel(name);
  name_label->setFont(ThemeFont(name_points, true));
  auto* line_label = new QLabel(line);
  line_label->setProperty("role", "unit");
  auto* grid = new QGridLayout(this);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setHorizontalSpacing(icon_size / 4);
  grid->addWidget(icon, 0, 0, 2, 1);
  grid->addWidget(name_label, 0, 1, Qt::AlignBottom);
  grid->addWidget(line_label, 1, 1, Qt::AlignTop);
  grid->setColumnStretch(1, 1);
  setAccessibleName(name + ", " + line);
}

}  // namespace kalvo
