#include "desktop/widgets/buttons/command_rail.h"

#include <QCheckBox>
#include <QEvent>
#include <QLayout>

#include "desktop/widgets/buttons/hint_button.h"

namespace kalvo {
namespace {

constexpr int kWidth = 232;  // at least
constexpr int kIconsWidth = 48;
constexpr int kMargin = 10;
constexpr int kIconsMargin = 3;  // and the card's edge

}  // namespace

CommandRail::CommandRail(QWidget* parent) : QFrame(parent) { setProperty("role", "card"); }

void CommandRail::SetIconsOnly(bool icons_only) {
  if (icons_only_ == icons_only) return;
  icons_only_ = icons_only;
  Dress();
}

void CommandRail::Dress() {
  for (HintButton* button : findChildren<HintButton*>()) button->SetIconOnly(icons_only_);
  for (QWidget* child : findChildren<QWidget*>()) {
    const QVariant role = child->property("role");
    if (role == "heading" || role == "wide") child->setVisible(!icons_only_);
  }
  for (QCheckBox* box : findChildren<QCheckBox*>()) {
    if (icons_only_ != box->text().isEmpty()) {
      const QString caption = icons_only_ ? box->text() : box->toolTip();
      box->setToolTip(icons_only_ ? caption : QString());
      box->setText(icons_only_ ? QString() : caption);
    }
    if (layout() != nullptr) {
      layout()->setAlignment(box, icons_only_ ? Qt::AlignHCenter : Qt::Alignment());
    }
  }
  // Captions and key names decide on the width; the layout knows them only when it is asked.
  setMinimumWidth(icons_only_ ? kIconsWidth : qMax(kWidth, sizeHint().width()));
  setMaximumWidth(icons_only_ ? kIconsWidth : QWIDGETSIZE_MAX);
  if (layout() == nullptr) return;
  const int side = icons_only_ ? kIconsMargin : kMargin;
  layout()->setContentsMargins(side, kMargin, side, kMargin);
}

void CommandRail::showEvent(QShowEvent* event) {
  window()->installEventFilter(this);
  icons_only_ = window()->width() < kNarrowWindow;
  Dress();
  QFrame::showEvent(event);
}

bool CommandRail::eventFilter(QObject* watched, QEvent* event) {
  if (watched == window() && event->type() == QEvent::Resize) {
    SetIconsOnly(window()->width() < kNarrowWindow);
  }
  return QFrame::eventFilter(watched, event);
}

}  // namespace kalvo
