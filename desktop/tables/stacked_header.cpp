#include "desktop/tables/stacked_header.h"

#include <QHelpEvent>
#include <QPainter>
#include <QRegularExpression>
#include <QTableView>
#include <QToolTip>

#include "desktop/theme.h"

namespace kalvo {
namespace {

constexpr int kPadding = 6;  // above the first line and below the last, and at both sides

QStringList BrokenWords(const QString& text) {
  static const QRegularExpression hyphen_inside("-(?=\\S)");
  QString spaced = text;
  spaced.replace(hyphen_inside, "- ");
  QStringList words;
  for (const QString& word : spaced.split(' ', Qt::SkipEmptyParts)) {
    const bool after_tee = word == "ΣΕ" && !words.isEmpty() && words.last() == "<ΤΑΥ>";
    if (after_tee) {
      words.last() += ' ' + word;
    } else {
      words << word;
    }
  }
  return words;
}

int CountLines(const HeadLines& lines) {
  return static_cast<int>(lines.words.size()) + (lines.unit.isEmpty() ? 0 : 1);
}

int HeightOf(int lines) {
  return lines * QFontMetrics(ThemeFont(kKeyPoints)).lineSpacing() + 2 * kPadding;
}

}  // namespace

HeadLines StackedLines(const QString& head) {
  HeadLines lines;
  QString words = head;
  if (const qsizetype bracket = head.indexOf('['); bracket >= 0) {
    lines.unit = head.mid(bracket).trimmed();
    words = head.left(bracket);
  } else if (head.endsWith(']') && head.contains('\n')) {
    lines.unit = head.section('\n', -1);
    words = head.section('\n', 0, -2);
  }
  const bool is_broken = words.trimmed().contains('\n');
  lines.words = is_broken ? words.trimmed().split('\n') : BrokenWords(words);
  return lines;
}

StackedHeader::StackedHeader(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {
  setSectionsClickable(true);
  setHighlightSections(false);
  setFont(ThemeFont(kKeyPoints));
  connect(this, &QHeaderView::sectionDoubleClicked, this, &StackedHeader::FitColumn);
}

void StackedHeader::SetFamilyEnds(const QList<int>& columns) {
  family_ends_ = columns;
  viewport()->update();
}

HeadLines StackedHeader::LinesOf(int column) const {
  if (model() == nullptr) return {};
  return StackedLines(model()->headerData(column, Qt::Horizontal).toString());
}

QSize StackedHeader::sectionSizeFromContents(int column) const {
  const HeadLines lines = LinesOf(column);
  const QFontMetrics metrics(ThemeFont(kKeyPoints));
  int width = metrics.horizontalAdvance(lines.unit);
  for (const QString& word : lines.words) width = qMax(width, metrics.horizontalAdvance(word));
  return {width + 2 * kPadding, HeightOf(CountLines(lines))};
}

// A table asks for it at every change of its shape, so no text is measured.
QSize StackedHeader::sizeHint() const {
  int lines = 0;
  for (int column = 0; column < count(); ++column) {
    if (!isSectionHidden(column)) lines = qMax(lines, CountLines(LinesOf(column)));
  }
  return {defaultSectionSize(), HeightOf(lines)};
}

void StackedHeader::paintSection(QPainter* painter, const QRect& rect, int column) const {
  const Theme& theme = ActiveTheme();
  const HeadLines lines = LinesOf(column);
  painter->save();
  painter->fillRect(rect, theme.header);
  painter->setFont(ThemeFont(kKeyPoints));
  const QRect inside = rect.adjusted(2, kPadding, -2, -kPadding);
  painter->setPen(theme.ink);
  painter->drawText(inside, Qt::AlignHCenter | Qt::AlignTop, lines.words.join('\n'));
  painter->setPen(theme.ink2);
  painter->drawText(inside, Qt::AlignHCenter | Qt::AlignBottom, lines.unit);
  if (isSortIndicatorShown() && sortIndicatorSection() == column) DrawSortMark(*painter, rect);
  painter->setPen(family_ends_.contains(column) ? theme.border : theme.line);
  painter->drawLine(rect.topRight(), rect.bottomRight());
  painter->setPen(theme.border);
  painter->drawLine(rect.bottomLeft(), rect.bottomRight());
  painter->restore();
}

void StackedHeader::DrawSortMark(QPainter& painter, const QRect& rect) const {
  const double up = sortIndicatorOrder() == Qt::AscendingOrder ? 1 : -1;
  const QPointF centre(rect.right() - 8, rect.bottom() - 8);
  painter.setPen(Qt::NoPen);
  painter.setBrush(ActiveTheme().primary);
  painter.drawPolygon(QPolygonF{centre + QPointF(-4, 2 * up), centre + QPointF(4, 2 * up),
                                centre + QPointF(0, -3 * up)});
}

bool StackedHeader::viewportEvent(QEvent* event) {
  if (event->type() == QEvent::ToolTip && model() != nullptr) {
    auto* help = static_cast<QHelpEvent*>(event);
    const int column = logicalIndexAt(help->pos());
    const QString head = model()->headerData(column, Qt::Horizontal).toString();
    QToolTip::showText(help->globalPos(), head.simplified(), this);
    return true;
  }
  return QHeaderView::viewportEvent(event);
}

void StackedHeader::FitColumn(int column) {
  if (auto* table = qobject_cast<QTableView*>(parentWidget()))
    table->resizeColumnToContents(column);
}

}  // namespace kalvo
