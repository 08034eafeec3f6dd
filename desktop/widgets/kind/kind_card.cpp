#include "desktop/widgets/kind/kind_card.h"

#include <QButtonGroup>
#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QRadioButton>
#include <QVBoxLayout>

#include "desktop/theme.h"

namespace kalvo {

KindCard::KindCard(QWidget* parent)
    : QFrame(parent),
      picture_(new KindPicture),
      option_(new QRadioButton),
      key_(new QLabel),
      explanation_(new QLabel) {
  option_->setFont(ThemeFont(kHeadPoints, true));
  option_->installEventFilter(this);
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
  column->addWidget(picture_, 1);
  column->addLayout(row);
  column->addWidget(explanation_);
  connect(option_, &QRadioButton::toggled, this, [this] { update(); });
}

void KindCard::SetOptionName(const QString& name) { option_->setObjectName(name); }

QString KindCard::OptionName() const { return option_->objectName(); }

void KindCard::SetKeyName(const QString& key) { key_->setText(key); }

QString KindCard::KeyName() const { return key_->text(); }

void KindCard::SetExplanation(const QString& text) {
  explanation_->setText(text);
  option_->setAccessibleDescription(text);
}

QString KindCard::Explanation() const { return explanation_->text(); }

// A double click on the option itself is one on the card.
bool KindCard::eventFilter(QObject* watched, QEvent* event) {
  if (watched == option_ && event->type() == QEvent::MouseButtonDblClick) {
    mouseDoubleClickEvent(static_cast<QMouseEvent*>(event));
    return true;
  }
  return QFrame::eventFilter(watched, event);
}

// The options of all cards of a window are one choice: arrows move in it, Tab comes to the chosen.
bool KindCard::event(QEvent* event) {
  if (event->type() == QEvent::Polish) {
    auto* choice = window()->findChild<QButtonGroup*>();
    if (choice == nullptr) choice = new QButtonGroup(window());
    choice->addButton(option_);
  }
  return QFrame::event(event);
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
