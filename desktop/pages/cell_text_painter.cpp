#include "desktop/pages/cell_text_painter.h"

#include <algorithm>
#include <cmath>

#include "desktop/pages/digit_width.h"
#include "desktop/qt_text.h"
#include "platform/xls/cell_text.h"

namespace kalvo {
namespace {

constexpr double kTextSide = 2 * kTwipsOfDot;  // between a cell's edge and its text
constexpr int kSpaceDots = 2;                  // of a step of the indent, beside a digit
constexpr int kStackedText = 255;              // the rotation of letters one below the other
constexpr int kOneLineFlags = Qt::TextSingleLine | Qt::TextDontClip;

int AcrossFlag(HorizontalAlign align) {
  switch (align) {
    case HorizontalAlign::kRight:
      return Qt::AlignRight;
    case HorizontalAlign::kCentre:
    case HorizontalAlign::kCentreAcross:
    case HorizontalAlign::kDistributed:
      return Qt::AlignHCenter;
    case HorizontalAlign::kGeneral:
    case HorizontalAlign::kLeft:
    case HorizontalAlign::kFill:
    case HorizontalAlign::kJustify:
      break;
  }
  return Qt::AlignLeft;
}

int DownFlag(VerticalAlign align) {
  switch (align) {
    case VerticalAlign::kCentre:
    case VerticalAlign::kDistributed:
      return Qt::AlignVCenter;
    case VerticalAlign::kBottom:
      return Qt::AlignBottom;
    case VerticalAlign::kTop:
    case VerticalAlign::kJustify:
      break;
  }
  return Qt::AlignTop;
}

// Along a text that is turned, where its cell's vertical alignment puts it.
int AlongFlag(VerticalAlign align, bool rises) {
  const int down = DownFlag(align);
  if (down == Qt::AlignVCenter) return Qt::AlignHCenter;
  return (down == Qt::AlignBottom) == rises ? Qt::AlignLeft : Qt::AlignRight;
}

bool Wraps(const CellFormat& format, HorizontalAlign align) {
  return format.wrap || align == HorizontalAlign::kJustify ||
         align == HorizontalAlign::kDistributed;
}

}  // namespace

void CellTextPainter::Paint(const Cell& cell, const QRectF& place, const FreeBeside& free) {
  const QString text = ToQt(CellText(workbook_, cell, separators_));
  if (text.isEmpty() || place.isEmpty()) return;
  const CellFormat& format = workbook_.FormatOf(cell.format);
  const Words words{text, CellAlign(workbook_, cell), format, fonts_.Of(format.font),
                    std::holds_alternative<double>(cell.value)};
  painter_.setPen(ColourOf(format.font.colour));
  if (format.rotation == kStackedText) return PaintStacked(words, place);
  if (format.rotation != 0) return PaintTurned(words, place);
  const int step = DigitDots(workbook_.default_font) + kSpaceDots;
  const double indent = format.indent * step * kTwipsOfDot;
  const int side = AcrossFlag(words.align);
  const QRectF inner = place.adjusted(kTextSide + (side == Qt::AlignLeft ? indent : 0), 0,
                                      -kTextSide - (side == Qt::AlignRight ? indent : 0), 0);
  Wraps(format, words.align) && !words.is_number ? PaintWrapped(words, inner)
                                                 : PaintLine(words, inner, free);
}

void CellTextPainter::PaintLine(const Words& words, const QRectF& inner, const FreeBeside& free) {
  const double width = words.font.metrics.horizontalAdvance(words.text);
  if (width > inner.width()) return PaintTooLong(words, inner, width, free);
  QString text = words.text;
  if (words.align == HorizontalAlign::kFill && width > 0) {
    text = text.repeated(static_cast<int>(inner.width() / width));
  }
  Write(words.font.font, inner,
        AcrossFlag(words.align) | DownFlag(words.format.vertical) | kOneLineFlags, text);
}

void CellTextPainter::PaintTooLong(const Words& words, const QRectF& inner, double width,
                                   const FreeBeside& free) {
  const int across = AcrossFlag(words.align);
  const int flags = across | DownFlag(words.format.vertical) | kOneLineFlags;
  if (words.format.shrink) {
    const PageFont smaller = Smaller(words.font, std::max(inner.width(), 0.0) / width);
    return Write(smaller.font, inner, flags, words.text);
  }
  if (words.is_number) {
    const double mark = words.font.metrics.horizontalAdvance(QLatin1Char('#'));
    const int count = static_cast<int>(std::max(inner.width(), 0.0) / mark);
    return Write(words.font.font, inner, flags, QString(count, QLatin1Char('#')));
  }
  const double over = width - inner.width();
  double left = across == Qt::AlignRight ? over : 0;
  if (across == Qt::AlignHCenter) left = over / 2;
  const double right = over - left;
  const double free_left = left > 0 ? free(false, left) : 0;
  const double free_right = right > 0 ? free(true, right) : 0;
  const QRectF wanted = inner.adjusted(-left, 0, right, 0);
  if (free_left >= left && free_right >= right) {
    return Write(words.font.font, wanted, flags, words.text);
  }
  const QRectF clip = inner.adjusted(-free_left - (free_left < left ? kTextSide : 0), 0,
                                     free_right + (free_right < right ? kTextSide : 0), 0);
  WriteWithin(clip, words.font.font, wanted, flags, words.text);
}

void CellTextPainter::PaintWrapped(const Words& words, const QRectF& inner) {
  const int flags = AcrossFlag(words.align) | DownFlag(words.format.vertical) | Qt::TextWordWrap;
  WriteWithin(inner, words.font.font, inner, flags, words.text);
}

void CellTextPainter::PaintStacked(const Words& words, const QRectF& place) {
  QString column;
  for (const QChar letter : words.text) {
    if (!column.isEmpty() && !letter.isLowSurrogate()) column += QLatin1Char('\n');
    column += letter;
  }
  WriteWithin(place, words.font.font, place, Qt::AlignHCenter | DownFlag(words.format.vertical),
              column);
}

void CellTextPainter::PaintTurned(const Words& words, const QRectF& place) {
  const double angle = words.format.rotation * M_PI / 180;
  const bool rises = words.format.rotation > 0;
  // As long as the cell has room in that direction.
  const double length = std::abs(angle) > M_PI / 4 ? place.height() : place.width();
  const QRectF line(-length / 2 + kTextSide, -place.width() / 2, length - 2 * kTextSide,
                    place.width());
  painter_.save();
  painter_.setClipRect(place, Qt::IntersectClip);
  painter_.translate(place.center());
  painter_.rotate(-words.format.rotation);
  Write(words.font.font, line,
        AlongFlag(words.format.vertical, rises) | Qt::AlignVCenter | kOneLineFlags, words.text);
  painter_.restore();
}

void CellTextPainter::Write(const QFont& font, const QRectF& place, int flags,
                            const QString& text) {
  painter_.setFont(font);
  painter_.drawText(place, flags, text);
}

void CellTextPainter::WriteWithin(const QRectF& clip, const QFont& font, const QRectF& place,
                                  int flags, const QString& text) {
  painter_.save();
  painter_.setClipRect(clip, Qt::IntersectClip);
  Write(font, place, flags | Qt::TextDontClip, text);
  painter_.restore();
}

}  // namespace kalvo
