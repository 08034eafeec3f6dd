#include "desktop/theme_style.h"

#include <QPainter>
#include <QPainterPath>
#include <QStyleFactory>
#include <QStyleOption>

#include "desktop/theme.h"

namespace kalvo {
namespace {

constexpr int kMarkSize = 16;
constexpr int kFieldHeight = 32;
constexpr double kFieldRadius = 5;
constexpr int kComboPadding = 8;  // at both sides of its words, beyond what Fusion leaves

bool Has(const QStyleOption& option, QStyle::StateFlag flag) {
  return (option.state & flag) != QStyle::State_None;
}

// Edge of something that can be operated: thicker when it has the focus, inside `rect` either way.
void DrawEdge(QPainter& painter, const QStyleOption& option, const QColor& ground, double radius) {
  const Theme& theme = ActiveTheme();
  const bool enabled = Has(option, QStyle::State_Enabled);
  const double width = Has(option, QStyle::State_HasFocus) ? 2 : 1;
  QPen pen(width > 1 ? theme.primary : theme.border, width);
  if (!enabled) pen.setStyle(Qt::DotLine);
  painter.setPen(pen);
  painter.setBrush(enabled ? ground : theme.window);
  const double inset = width / 2;
  painter.drawRoundedRect(QRectF(option.rect).adjusted(inset, inset, -inset, -inset), radius,
                          radius);
}

void DrawCheckMark(QPainter& painter, const QRectF& box, const QColor& color) {
  painter.setPen(QPen(color, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.setBrush(Qt::NoBrush);
  const QPointF corner = box.topLeft();
  const double unit = box.width() / 16;
  painter.drawPolyline(QPolygonF{corner + QPointF(3.8, 8.4) * unit,
                                 corner + QPointF(6.8, 11.4) * unit,
                                 corner + QPointF(12.2, 5) * unit});
}

void DrawCheckBox(QPainter& painter, const QStyleOption& option) {
  const Theme& theme = ActiveTheme();
  const bool on = Has(option, QStyle::State_On);
  DrawEdge(painter, option, on ? theme.primary : theme.surface, 4);
  if (!on) return;
  const bool enabled = Has(option, QStyle::State_Enabled);
  DrawCheckMark(painter, option.rect, enabled ? theme.onprimary : theme.ink3);
}

void DrawRadio(QPainter& painter, const QStyleOption& option) {
  const Theme& theme = ActiveTheme();
  const bool on = Has(option, QStyle::State_On);
  DrawEdge(painter, option, on ? theme.primary : theme.surface, kMarkSize / 2.0);
  if (!on) return;
  painter.setPen(Qt::NoPen);
  painter.setBrush(Has(option, QStyle::State_Enabled) ? theme.onprimary : theme.ink3);
  painter.drawEllipse(QRectF(option.rect).center(), 3, 3);
}

void DrawChevron(QPainter& painter, const QPointF& center, const QColor& color) {
  painter.setPen(QPen(color, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.setBrush(Qt::NoBrush);
  painter.drawPolyline(
      QPolygonF{center + QPointF(-4, -2), center + QPointF(0, 2), center + QPointF(4, -2)});
}

}  // namespace

ThemeStyle::ThemeStyle() : QProxyStyle(QStyleFactory::create("Fusion")) {}

void ThemeStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                               QPainter* painter, const QWidget* widget) const {
  const bool mark = element == PE_IndicatorCheckBox || element == PE_IndicatorRadioButton;
  const bool frame = element == PE_FrameFocusRect;
  if (!mark && !frame) {
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    return;
  }
  painter->save();
  painter->setRenderHint(QPainter::Antialiasing);
  if (element == PE_IndicatorCheckBox) DrawCheckBox(*painter, *option);
  if (element == PE_IndicatorRadioButton) DrawRadio(*painter, *option);
  if (frame) {
    painter->setPen(QPen(ActiveTheme().primary, 2));
    painter->drawRoundedRect(QRectF(option->rect).adjusted(1, 1, -1, -1), 4, 4);
  }
  painter->restore();
}

void ThemeStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                    QPainter* painter, const QWidget* widget) const {
  if (control != CC_ComboBox) {
    QProxyStyle::drawComplexControl(control, option, painter, widget);
    return;
  }
  painter->save();
  painter->setRenderHint(QPainter::Antialiasing);
  DrawEdge(*painter, *option, ActiveTheme().surface, kFieldRadius);
  const QRectF rect = option->rect;
  DrawChevron(*painter, QPointF(rect.right() - 14, rect.center().y()),
              option->palette.color(QPalette::ButtonText));
  painter->restore();
}

void ThemeStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                             const QWidget* widget) const {
  const auto* combo = qstyleoption_cast<const QStyleOptionComboBox*>(option);
  if (element != CE_ComboBoxLabel || combo == nullptr) {
    QProxyStyle::drawControl(element, option, painter, widget);
    return;
  }
  QStyleOptionComboBox shown = *combo;
  const QRect words = subControlRect(CC_ComboBox, combo, SC_ComboBoxEditField, widget);
  constexpr int kIconGap = 4;  // as Fusion leaves it
  const int icon = combo->currentIcon.isNull() ? 0 : combo->iconSize.width() + kIconGap;
  shown.currentText =
      combo->fontMetrics.elidedText(combo->currentText, Qt::ElideRight, words.width() - icon);
  QProxyStyle::drawControl(element, &shown, painter, widget);
}

QRect ThemeStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                                 SubControl part, const QWidget* widget) const {
  const QRect rect = QProxyStyle::subControlRect(control, option, part, widget);
  const bool words = control == CC_ComboBox && part == SC_ComboBoxEditField;
  return words ? rect.adjusted(kComboPadding, 0, -kComboPadding, 0) : rect;
}

int ThemeStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                            const QWidget* widget) const {
  switch (metric) {
    case PM_IndicatorWidth:
    case PM_IndicatorHeight:
    case PM_ExclusiveIndicatorWidth:
    case PM_ExclusiveIndicatorHeight:
      return kMarkSize;
    case PM_CheckBoxLabelSpacing:
    case PM_RadioButtonLabelSpacing:
      return 8;
    default:
      return QProxyStyle::pixelMetric(metric, option, widget);
  }
}

QSize ThemeStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                                   const QWidget* widget) const {
  QSize result = QProxyStyle::sizeFromContents(type, option, size, widget);
  if (type == CT_ComboBox) result = {result.width() + 2 * kComboPadding, kFieldHeight};
  if (type == CT_CheckBox || type == CT_RadioButton) result.setHeight(qMax(result.height(), 24));
  return result;
}

int ThemeStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                          QStyleHintReturn* result) const {
  // The list opens under its field instead of over it.
  if (hint == SH_ComboBox_Popup) return 0;
  // Key names are shown all the time, so are the letters to press with Alt.
  if (hint == SH_UnderlineShortcut) return 1;
  return QProxyStyle::styleHint(hint, option, widget, result);
}

}  // namespace kalvo
