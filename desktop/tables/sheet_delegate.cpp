#include "desktop/tables/sheet_delegate.h"

#include <QAbstractItemView>
#include <QPainter>
#include <cmath>

#include "desktop/icons.h"
#include "desktop/tables/cell_roles.h"
#include "desktop/theme.h"

namespace kalvo {
namespace {

constexpr int kSidePadding = 9;
constexpr double kChipInset = 5;
constexpr double kChipRadius = 4;
constexpr int kPencil = 14;
constexpr int kMarkBar = 3;
constexpr int kMarkIcon = 14;
constexpr int kBarInset = 6;
constexpr int kBarHeight = 2;

// What a text may be wider than its place before it is cut.
constexpr int kOverhang = 4;
// Laid out texts that are kept; more than a sheet of 999 rows has of different ones.
constexpr qsizetype kMostLaidOut = 4000;

bool IsLook(int look, CellLook asked) { return (look & asked) != 0; }

}  // namespace

void SheetDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const {
  const Theme& theme = ActiveTheme();
  const auto* view = qobject_cast<const QAbstractItemView*>(option.widget);
  const QModelIndex current = view == nullptr ? QModelIndex() : view->currentIndex();
  const bool selected = option.state.testFlag(QStyle::State_Selected);
  const bool tinted = tints_current_row_ && current.row() == index.row();
  const bool odd = option.features.testFlag(QStyleOptionViewItem::Alternate);
  const Cell cell{option.rect,
                  index.data(Qt::DisplayRole).toString(),
                  Qt::Alignment(index.data(Qt::TextAlignmentRole).toInt()),
                  option.font,
                  index.data(kLookRole).toInt(),
                  index.column()};
  painter->save();
  painter->fillRect(option.rect, selected                           ? theme.soft
                                 : IsLook(cell.look, kRefusedLook)  ? theme.errbg
                                 : IsLook(cell.look, kOpenLook)     ? theme.okbg
                                 : tinted                           ? theme.soft
                                 : IsLook(cell.look, kCriticalLook) ? theme.critbg
                                 : odd                              ? theme.zebra
                                                                    : theme.surface);
  DrawShare(*painter, option.rect, index.data(kShareRole));
  if (IsLook(cell.look, kMarksLook)) DrawMarks(*painter, cell, selected);
  DrawContent(*painter, cell, index);
  if (family_ends_.contains(index.column())) {
    // Beside the grid line, which the view draws over whatever lies there.
    const int x = option.rect.right();
    painter->setPen(theme.border);
    painter->drawLine(x, option.rect.top(), x, option.rect.bottom() + 1);
  }
  // The current cell keeps a thin frame while the keyboard is elsewhere in the window.
  if (current == index) {
    painter->setPen(view->hasFocus() ? QPen(theme.primary, 2) : QPen(theme.border, 1));
    painter->setBrush(Qt::NoBrush);
    painter->drawRect(QRectF(option.rect).adjusted(1, 1, -1, -1));
  } else if (IsLook(cell.look, kRefusedLook)) {
    painter->setPen(QPen(theme.err, 2));
    painter->drawRect(QRectF(option.rect).adjusted(1, 1, -1, -1));
  }
  painter->restore();
}

void RepaintTintedRows(const QTableView& view, const QModelIndex& now, const QModelIndex& before) {
  if (now.row() == before.row()) return;
  QWidget* cells = view.viewport();
  for (const QModelIndex& index : {now, before}) {
    if (!index.isValid()) continue;
    cells->update(0, view.rowViewportPosition(index.row()), cells->width(),
                  view.rowHeight(index.row()));
  }
}

void SheetDelegate::DrawMarks(QPainter& painter, const Cell& cell, bool selected) {
  const Theme& theme = ActiveTheme();
  const QRect& rect = cell.rect;
  if (selected) painter.fillRect(rect.left(), rect.top(), kMarkBar, rect.height(), theme.primary);
  if (!IsLook(cell.look, kCriticalLook)) return;
  painter.drawPixmap(
      rect.left() + kSidePadding, rect.top() + (rect.height() - kMarkIcon) / 2,
      IconPixmap("critical", kMarkIcon, painter.device()->devicePixelRatioF(), theme.crit));
}

void SheetDelegate::DrawShare(QPainter& painter, const QRect& rect, const QVariant& share) {
  if (!share.isValid()) return;
  const double width = (rect.width() - 2 * kBarInset) * share.toDouble();
  painter.fillRect(
      QRectF(rect.left() + kBarInset, rect.bottom() - kBarHeight - 1, width, kBarHeight),
      ActiveTheme().water);
}

void SheetDelegate::LaidOut::UseFont(const QFont& wanted) {
  if (font == wanted && lines.size() <= kMostLaidOut) return;
  font = wanted;
  lines.clear();
}

const SheetDelegate::Line& SheetDelegate::LaidOut::Of(const QString& text) {
  Line& line = lines[text];
  if (line.text.text().isEmpty()) {
    line.text.setTextFormat(Qt::PlainText);
    line.text.setText(text);
    line.text.prepare({}, font);
    line.size = {QFontMetricsF(font).horizontalAdvance(text), line.text.size().height()};
  }
  return line;
}

void SheetDelegate::DrawLine(QPainter& painter, const QRect& rect, Qt::Alignment alignment,
                             const QString& text, LaidOut& laid_out) {
  if (text.isEmpty()) return;
  painter.setFont(laid_out.font);
  const Line& line = laid_out.Of(text);
  const QSizeF spare = rect.size() - line.size;
  if (spare.width() < 0) {
    const QString elided =
        QFontMetrics(laid_out.font).elidedText(text, Qt::ElideRight, rect.width() + kOverhang);
    painter.drawText(rect, static_cast<int>(alignment | Qt::AlignVCenter), elided);
    return;
  }
  const double left = alignment.testFlag(Qt::AlignRight)     ? spare.width()
                      : alignment.testFlag(Qt::AlignHCenter) ? std::floor(spare.width() / 2)
                                                             : 0;
  // Onto whole pixels: the painter would take the one above.
  const double pixels = painter.device()->devicePixelRatioF();
  const double top = std::floor(spare.height() / 2 * pixels + 0.5) / pixels;
  painter.drawStaticText(rect.topLeft() + QPointF(left, top), line.text);
}

void SheetDelegate::DrawContent(QPainter& painter, const Cell& cell,
                                const QModelIndex& /*index*/) const {
  const Theme& theme = ActiveTheme();
  QFont bold_font = cell.font;
  bold_font.setBold(true);
  plain_.UseFont(cell.font);
  bold_.UseFont(bold_font);
  const QRect inside = cell.rect.adjusted(kSidePadding, 0, -kSidePadding, 0);
  const bool strong = IsLook(cell.look, kStrongLook);
  const bool bold =
      strong || IsLook(cell.look, kBoldLook) ||
      (cell.column == 0 && IsLook(cell.look, kCriticalLook) && !IsLook(cell.look, kMarksLook));
  LaidOut& laid_out = bold ? bold_ : plain_;
  QString value = cell.text;
  Qt::Alignment alignment = cell.alignment;
  if (const qsizetype colon = value.indexOf(" : "); colon >= 0) {
    painter.setPen(IsLook(cell.look, kGoodLook) ? theme.ok : theme.ink3);
    DrawLine(painter, inside, Qt::AlignLeft, value.left(colon).trimmed(), laid_out);
    value = value.mid(colon + 3).trimmed();
    alignment = Qt::AlignRight;
  }
  painter.setPen(IsLook(cell.look, kLockedLook)  ? theme.ink3
                 : IsLook(cell.look, kAlarmLook) ? theme.err
                 : strong                        ? theme.primary
                                                 : theme.ink);
  DrawLine(painter, inside, alignment, value, laid_out);
}

// The diameter, and the word next to it at the right end.
void DiameterDelegate::DrawWaiting(QPainter& painter, const QRectF& chip, const QString& text) {
  const QFont word = ThemeFont(kHintPoints);
  const QRectF inside = chip.adjusted(6, 0, -8, 0);
  const double taken = QFontMetricsF(word).horizontalAdvance(kWaitingWord) + kChipInset;
  painter.drawText(inside.adjusted(0, 0, -taken, 0), Qt::AlignRight | Qt::AlignVCenter, text);
  painter.setFont(word);
  painter.drawText(inside, Qt::AlignRight | Qt::AlignVCenter, kWaitingWord);
}

void DiameterDelegate::DrawContent(QPainter& painter, const Cell& cell,
                                   const QModelIndex& index) const {
  const Theme& theme = ActiveTheme();
  const QVariant background = index.data(Qt::BackgroundRole);
  if (!background.isValid()) {
    SheetDelegate::DrawContent(painter, cell, index);
    return;
  }
  const bool imposed = IsLook(cell.look, kImposedLook);
  const bool waiting = IsLook(cell.look, kWaitingLook);
  const QColor text = imposed ? theme.onimposed : waiting ? theme.onwait : theme.oncalculated;
  const QRectF chip = QRectF(cell.rect).adjusted(kChipInset, 3.5, -kChipInset, -3.5);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(imposed ? QPen(text, 1) : waiting ? QPen(theme.waitedge, 1) : QPen(Qt::NoPen));
  painter.setBrush(qvariant_cast<QBrush>(background));
  painter.drawRoundedRect(chip, kChipRadius, kChipRadius);
  QFont font = cell.font;
  font.setBold(imposed || waiting);
  painter.setFont(font);
  painter.setPen(text);
  if (waiting) {
    DrawWaiting(painter, chip, cell.text);
  } else {
    painter.drawText(chip.adjusted(6, 0, -8, 0), Qt::AlignRight | Qt::AlignVCenter, cell.text);
  }
  if (imposed) {
    painter.drawPixmap(QPointF(chip.left() + 6, chip.center().y() - kPencil / 2.0),
                       IconPixmap("edit", kPencil, painter.device()->devicePixelRatioF(), text));
  }
  painter.setRenderHint(QPainter::Antialiasing, false);
}

}  // namespace kalvo
