#include "desktop/pages/page_text_painter.h"

#include <algorithm>

#include "desktop/qt_text.h"
#include "platform/xls/page_text.h"

namespace kalvo {
namespace {

struct LineSize {
  double width = 0;
  double ascent = 0;
  double descent = 0;

  [[nodiscard]] double height() const { return ascent + descent; }
};

LineSize SizeOf(const PageTextLine& line, const CellFont& font, PageFonts& fonts) {
  LineSize size;
  const auto grow = [&size](const QFontMetricsF& metrics) {
    size.ascent = std::max(size.ascent, metrics.ascent());
    size.descent = std::max(size.descent, metrics.descent());
  };
  if (line.empty()) grow(fonts.Of(font).metrics);
  for (const PageTextRun& run : line) {
    const QFontMetricsF& metrics = fonts.Of(run.font).metrics;
    size.width += metrics.horizontalAdvance(ToQt(run.text));
    grow(metrics);
  }
  return size;
}

class PartPainter {
 public:
  PartPainter(QPainter& painter, const CellFont& font, PageFonts& fonts)
      : painter_(painter), font_(font), fonts_(fonts) {}

  [[nodiscard]] double Height(const PageTextPart& part) const {
    double height = 0;
    for (const PageTextLine& line : part) height += SizeOf(line, font_, fonts_).height();
    return height;
  }

  /// `share` of each line's width is at the left of `x`.
  void Paint(const PageTextPart& part, double x, double share, double top) const {
    for (const PageTextLine& line : part) {
      const LineSize size = SizeOf(line, font_, fonts_);
      double left = x - share * size.width;
      for (const PageTextRun& run : line) {
        const PageFont& font = fonts_.Of(run.font);
        const QString text = ToQt(run.text);
        painter_.setFont(font.font);
        painter_.setPen(ColourOf(run.font.colour));
        painter_.drawText(QPointF(left, top + size.ascent), text);
        left += font.metrics.horizontalAdvance(text);
      }
      top += size.height();
    }
  }

 private:
  QPainter& painter_;
  const CellFont& font_;
  PageFonts& fonts_;
};

}  // namespace

void PaintPageTexts(QPainter& painter, const PageLayout& layout, int page, const CellFont& font,
                    PageFonts& fonts) {
  if (layout.sheet == nullptr) return;
  const PageSetup& setup = layout.sheet->page;
  const PageTextFacts facts{page + 1, static_cast<int>(layout.pages.size()), layout.sheet->name,
                            font};
  const PartPainter parts(painter, font, fonts);
  const double left = setup.left * kTwipsOfInch;
  const double right = layout.paper.width - setup.right * kTwipsOfInch;
  const auto paint = [&](const PageTextPart& part, double x, double share, bool footer) {
    const double foot = layout.paper.height - setup.footer_margin * kTwipsOfInch;
    parts.Paint(part, x, share,
                footer ? foot - parts.Height(part) : setup.header_margin * kTwipsOfInch);
  };
  for (const bool footer : {false, true}) {
    const PageText text = ReadPageText(footer ? setup.footer : setup.header, facts);
    paint(text.left, left, 0, footer);
    paint(text.centre, (left + right) / 2, 0.5, footer);
    paint(text.right, right, 1, footer);
  }
}

}  // namespace kalvo
