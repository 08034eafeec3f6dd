#include "desktop/widgets/kind_card.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QRadioButton>
#include <QVBoxLayout>

#include "desktop/theme.h"

namespace kalvo {

KindCard::KindCard(KindPicture::Kind kind, QWidget* parent)
    : QFrame(parent), option_(new QRadioButton), key_(new QLabel), explanation_(new QLabel) {
  option_->setFont(ThemeFont(kHeadPoints, true));
  key_->setProperty("role", "hint");
  explanation_->setProperty("role", "unit");
  explanation_->setWordWrap(true);
  auto* row = new QHBoxLayout;
  row->addWidget(option_);
  row->addStretch();
  row->addWidget(key_);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(22, 20, 22, 20);
  column->setSpacing(8);
  column->addWidget(new KindPicture(kind), 1);
  column->addLayout(row);
  column->addWidget(explanation_);
  connect(option_, &QRadioButton::toggled, this, [this] { update(); });
}

void KindCard::SetTexts(const QString& caption, const QString& key, const QString& explanation) {
  option_->setText(caption.trimmed());
  option_->setAccessibleDescription(explanation);
  key_->setText(key);
  explanation_->setText(explanation);
}

void KindCard::mousePressEvent(QMouseEvent*) {
  option_->setFocus(Qt::MouseFocusReason);
  option_->setChecked(true);
}

void KindCard::mouseDoubleClickEvent(QMouseEvent*) {
  option_->setChecked(true);
  Q_EMIT Chosen();
}

void KindCard::paintEvent(QPaintEvent*) {
  const Theme& theme = ActiveTheme();
  const bool chosen = option_->isChecked();
  const double width = chosen ? 2 : 1;
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(chosen ? theme.primary : theme.border, width));
  painter.setBrush(theme.surface);
  painter.drawRoundedRect(QRectF(rect()).adjusted(width / 2, width / 2, -width / 2, -width / 2), 8,
                          8);
}

}  // namespace kalvo
