#include "desktop/widgets/boxes/wait_card.h"

#include <QGridLayout>
#include <QLabel>

#include "desktop/icons.h"
#include "desktop/theme.h"
#include "desktop/widgets/boxes/thin_bar.h"

namespace kalvo {

WaitCard::WaitCard(QWidget* parent)
    : QFrame(parent), label_(new QLabel), count_(new QLabel), bar_(new ThinBar) {
  setProperty("role", "card");
  label_->setProperty("role", "bold");
  count_->setProperty("role", "caption");
  auto* icon = new QLabel;
  icon->setPixmap(
      IconPixmap("history", kButtonIconSize, devicePixelRatioF(), ActiveTheme().primary));
  auto* grid = new QGridLayout(this);
  grid->setContentsMargins(16, 12, 16, 14);
  grid->setHorizontalSpacing(10);
  grid->setVerticalSpacing(10);
  grid->addWidget(icon, 0, 0);
  grid->addWidget(label_, 0, 1);
  grid->addWidget(count_, 0, 2);
  grid->addWidget(bar_, 1, 0, 1, 3);
  grid->setColumnStretch(1, 1);
}

void WaitCard::Begin(const QString& label) {
  label_->setText(label.trimmed());
  count_->clear();
  bar_->setRange(0, 0);
  setAccessibleName(label_->text());
}

void WaitCard::SetProgress(const QString& text, int done, int total) {
  count_->setText(text);
  bar_->setRange(0, qMax(total, 1));
  bar_->setValue(done);
  setAccessibleDescription(count_->text());
}

}  // namespace kalvo
