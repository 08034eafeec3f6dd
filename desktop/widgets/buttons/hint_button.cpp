#include "desktop/widgets/buttons/hint_button.h"

#include <QHelpEvent>
#include <QPainter>
#include <QStyleOptionButton>
#include <QStylePainter>
#include <QToolTip>

#include "desktop/icons.h"
#include "desktop/theme.h"

namespace kalvo {
namespace {

constexpr int kIconGap = 8;   // icon to caption
constexpr int kHintGap = 14;  // caption to key name
constexpr int kIconOnlyWidth = 40;
constexpr int kTextFlags =
    static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter) | static_cast<int>(Qt::TextShowMnemonic);

enum class Role { kSecondary, kPrimary, kRail };

Role RoleOf(const QWidget& button) {
  const QString role = button.property("role").toString();
  if (role == "primary") return Role::kPrimary;
  return role == "rail" ? Role::kRail : Role::kSecondary;
}

int Padding(Role role) {
  constexpr int kSecondary = 15;
  constexpr int kPrimary = 20;
  constexpr int kRail = 10;
  if (role == Role::kPrimary) return kPrimary;
  return role == Role::kRail ? kRail : kSecondary;
}

int Height(Role role) { return role == Role::kPrimary ? 36 : 32; }

struct Inks {
  QColor icon, caption, hint;
};

Inks InksOf(const QPushButton& button) {
  const Theme& theme = ActiveTheme();
  const Role role = RoleOf(button);
  if (!button.isEnabled()) return {theme.ink3, theme.ink3, theme.ink3};
  if (role == Role::kPrimary) return {theme.onprimary, theme.onprimary, theme.onprimary};
  return {role == Role::kRail ? theme.primary : theme.ink2, theme.ink, theme.ink3};
}

}  // namespace

HintButton::HintButton(QWidget* parent) : QPushButton(parent) {
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);  // the key name may go
}

void HintButton::SetHint(const QString& key) {
  hint_ = key;
  updateGeometry();
  update();
}

void HintButton::SetIconName(const QString& name) {
  icon_name_ = name;
  updateGeometry();
  update();
}

void HintButton::SetIconOnly(bool icon_only) {
  icon_only_ = icon_only;
  updateGeometry();
  update();
}

QFont HintButton::HintFont() const {
  QFont font = this->font();
  font.setPointSizeF(kKeyPoints);
  font.setBold(false);
  return font;
}

int HintButton::CaptionWidth() const {
  const int icon = icon_name_.isEmpty() ? 0 : kButtonIconSize;
  if (icon_only_) return icon;
  const int caption = fontMetrics().size(Qt::TextShowMnemonic, text().trimmed()).width();
  return icon + (icon > 0 && caption > 0 ? kIconGap : 0) + caption;
}

int HintButton::HintWidth() const {
  if (icon_only_ || hint_.isEmpty()) return 0;
  return kHintGap + QFontMetrics(HintFont()).horizontalAdvance(hint_);
}

bool HintButton::HintFits() const {
  return width() >= CaptionWidth() + HintWidth() + 2 * Padding(RoleOf(*this));
}

QSize HintButton::sizeHint() const {
  ensurePolished();
  const Role role = RoleOf(*this);
  if (icon_only_) return {kIconOnlyWidth, Height(role)};
  return {CaptionWidth() + HintWidth() + 2 * Padding(role), Height(role)};
}

QSize HintButton::minimumSizeHint() const { return sizeHint() - QSize(HintWidth(), 0); }

bool HintButton::event(QEvent* event) {
  if (event->type() == QEvent::ToolTip && (icon_only_ || !HintFits()) && toolTip().isEmpty()) {
    QString caption = text().trimmed();
    caption.remove('&');
    const QString tip = hint_.isEmpty() ? caption : QString("%1 (%2)").arg(caption, hint_);
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), tip, this);
    return true;
  }
  return QPushButton::event(event);
}

void HintButton::paintEvent(QPaintEvent*) {
  QStyleOptionButton option;
  initStyleOption(&option);
  QStylePainter painter(this);
  painter.drawControl(QStyle::CE_PushButtonBevel, option);
  DrawContents(painter);
  if (RoleOf(*this) != Role::kPrimary || !hasFocus()) return;
  constexpr double kRingInset = 3.5;
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(ActiveTheme().onprimary, 1.6));
  painter.setBrush(Qt::NoBrush);
  painter.drawRoundedRect(QRectF(rect()).adjusted(kRingInset, kRingInset, -kRingInset, -kRingInset),
                          3, 3);
}

void HintButton::DrawContents(QPainter& painter) const {
  const Role role = RoleOf(*this);
  const Inks inks = InksOf(*this);
  // What has room to spare is centred, but for the rail, whose captions stand under each other.
  int left = Padding(role);
  const int hint_width = HintFits() ? HintWidth() : 0;
  if (role != Role::kRail || icon_only_) {
    left = qMax(left, (width() - CaptionWidth() - hint_width) / 2);
  }
  if (icon_only_) left = (width() - kButtonIconSize) / 2;
  const int right = width() - (role == Role::kRail ? Padding(role) : left);
  if (!icon_name_.isEmpty()) {
    const QPixmap icon = IconPixmap(icon_name_, kButtonIconSize, devicePixelRatioF(), inks.icon);
    painter.drawPixmap(QPoint(left, (height() - kButtonIconSize) / 2), icon);
    left += kButtonIconSize + kIconGap;
  }
  if (icon_only_) return;
  painter.setPen(inks.caption);
  painter.setFont(font());
  painter.drawText(QRect(left, 0, right - left, height()), kTextFlags, text().trimmed());
  if (hint_width == 0) return;
  painter.setPen(inks.hint);
  painter.setFont(HintFont());
  painter.drawText(QRect(left, 0, right - left, height()), Qt::AlignRight | Qt::AlignVCenter,
                   hint_);
}

}  // namespace kalvo
