#include "desktop/tables/entry_delegate.h"

#include <QPainter>
#include <QStyle>
#include <QWidget>

#include "desktop/icons.h"
#include "desktop/qt_text.h"
#include "desktop/tables/entry_model.h"
#include "desktop/theme.h"

namespace kalvo {
namespace {

constexpr int kBoxSize = 16;
constexpr int kEntryMargin = 12;
constexpr int kEntryGap = 10;
constexpr int kTextGap = 8;
constexpr int kMarkWidth = 3;

QColor InkOf(Tone tone) {
  switch (tone) {
    case Tone::kGood:
      return ActiveTheme().ok;
    case Tone::kAlarm:
      return ActiveTheme().err;
    default:
      return ActiveTheme().primary;
  }
}

// Draws a text that is cut where there is no more room; how wide it is.
int DrawCut(QPainter& painter, const QRect& place, const QString& text, Qt::Alignment side) {
  const QFontMetrics metrics = painter.fontMetrics();
  painter.drawText(place, static_cast<int>(side | Qt::AlignVCenter),
                   metrics.elidedText(text, Qt::ElideRight, place.width()));
  return qMin(metrics.horizontalAdvance(text), place.width());
}

}  // namespace

QSize EntryDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const {
  return {1, qMax(row_height_, option.fontMetrics.height())};
}

void EntryDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const {
  const EntryList& list = static_cast<const EntryModel*>(index.model())->list();
  const EntryLine& line = list.lines()[static_cast<std::size_t>(index.row())];
  const bool ticked = list.ticks && list.IsTicked(index.row());
  const Theme& theme = ActiveTheme();
  painter->save();
  painter->setRenderHint(QPainter::Antialiasing);
  if (ticked) {
    painter->fillRect(option.rect, theme.soft);
    painter->fillRect(QRect(option.rect.topLeft(), QSize(kMarkWidth, option.rect.height())),
                      theme.primary);
  }
  const int left = DrawMark(*painter, option, line, list.ticks, ticked);
  const QRect texts = option.rect.adjusted(left, 0, -kEntryMargin, 0);
  painter->setFont(option.font);
  DrawTexts(*painter, texts, line, ticked || !line.icon.empty());
  const auto* view = qobject_cast<const QWidget*>(option.widget);
  if (view != nullptr && view->hasFocus() && index.row() == list.current()) {
    painter->setPen(QPen(theme.primary, 2));
    painter->setBrush(Qt::NoBrush);
    painter->drawRoundedRect(QRectF(option.rect).adjusted(1, 1, -1, -1), 4, 4);
  }
  painter->restore();
}

// Where the texts begin.
int EntryDelegate::DrawMark(QPainter& painter, const QStyleOptionViewItem& option,
                            const EntryLine& line, bool ticks, bool ticked) {
  if (!ticks && line.icon.empty()) return kEntryMargin;
  const int edge = ticks ? kBoxSize : kBoxSize + 1;
  const int left = option.rect.left() + (ticks ? kEntryMargin : 0);
  const QRect box(left, option.rect.center().y() - edge / 2, edge, edge);
  if (ticks) {
    QStyleOptionViewItem mark = option;
    mark.rect = box;
    mark.state = QStyle::State_Enabled | (ticked ? QStyle::State_On : QStyle::State_Off);
    option.widget->style()->drawPrimitive(QStyle::PE_IndicatorCheckBox, &mark, &painter);
  } else {
    painter.drawPixmap(
        box.topLeft(),
        IconPixmap(ToQt(line.icon), edge, painter.device()->devicePixelRatioF(), InkOf(line.tone)));
  }
  return box.right() + 1 - option.rect.left() + kEntryGap;
}

void EntryDelegate::DrawTexts(QPainter& painter, const QRect& place, const EntryLine& line,
                              bool bold) {
  const Theme& theme = ActiveTheme();
  const QFont plain = painter.font();
  QFont small = plain;
  small.setPointSizeF(kHintPoints);
  QRect room = place;
  if (const QString detail = ToQt(line.detail); !detail.isEmpty()) {
    painter.setFont(small);
    painter.setPen(theme.ink2);
    room.adjust(0, 0, -DrawCut(painter, room, detail, Qt::AlignRight) - kTextGap, 0);
  }
  if (const QString name = ToQt(line.name); !name.isEmpty()) {
    QFont strong = plain;
    strong.setBold(bold);
    painter.setFont(strong);
    painter.setPen(theme.ink);
    room.adjust(DrawCut(painter, room, name, Qt::AlignLeft) + kTextGap, 0, 0, 0);
  }
  if (room.width() <= 0) return;
  painter.setFont(plain);
  painter.setPen(line.tone == Tone::kAlarm ? theme.err : theme.ink2);
  DrawCut(painter, room, ToQt(line.text).trimmed(), Qt::AlignLeft);
}

}  // namespace kalvo
