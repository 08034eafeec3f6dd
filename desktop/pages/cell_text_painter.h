#pragma once

#include <QPainter>
#include <functional>

#include "desktop/pages/page_fonts.h"
#include "platform/xls/workbook.h"
#include "study/separators.h"

namespace kalvo {

/// The twips, at most `wanted`, that a text may run on over empty cells to one side.
using FreeBeside = std::function<double(bool to_the_right, double wanted)>;

/// Writes the texts of cells. A text that is too long for its cell is wrapped or shrunk when its
/// look says so; else it runs on over empty cells and is cut where they end. A number that has no
/// room becomes "###", since a part of it would be another number.
class CellTextPainter {
 public:
  CellTextPainter(QPainter& painter, const Workbook& workbook, Separators separators,
                  PageFonts& fonts)
      : painter_(painter), workbook_(workbook), separators_(separators), fonts_(fonts) {}

  /// The cell's place is in twips.
  void Paint(const Cell& cell, const QRectF& place, const FreeBeside& free);

 private:
  struct Words {
    QString text;
    HorizontalAlign align;
    const CellFormat& format;
    PageFont font;
    bool is_number;
  };

  void PaintLine(const Words& words, const QRectF& inner, const FreeBeside& free);
  void PaintTooLong(const Words& words, const QRectF& inner, double width, const FreeBeside& free);
  void PaintWrapped(const Words& words, const QRectF& inner);
  void PaintTurned(const Words& words, const QRectF& place);
  void PaintStacked(const Words& words, const QRectF& place);
  void Write(const QFont& font, const QRectF& place, int flags, const QString& text);
  void WriteWithin(const QRectF& clip, const QFont& font, const QRectF& place, int flags,
                   const QString& text);

  QPainter& painter_;
  const Workbook& workbook_;
  Separators separators_;
  PageFonts& fonts_;
};

}  // namespace kalvo
