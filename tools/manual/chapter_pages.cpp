#include "tools/manual/chapter_pages.h"

#include <QAbstractTextDocumentLayout>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextLayout>
#include <QTextTable>
#include <algorithm>
#include <cmath>

#include "desktop/manual/manual_document.h"

namespace kalvo {
namespace {

constexpr double kPrintPoints = 9.5;
// A window on paper is so much smaller than on a screen.
constexpr double kPictureScale = 0.58;
constexpr int kMostPasses = 200;

// Pictures are whole on paper: a printer has more dots than a screen.
class PrintedDocument : public QTextDocument {
 public:
  explicit PrintedDocument(PictureStore& pictures) : pictures_(pictures) {}

 protected:
  QVariant loadResource(int type, const QUrl& name) override {
    if (type != ImageResource) return {};
    const QString file = name.toString();
    QPixmap& picture = pictures_[file];
    if (picture.isNull()) picture = QPixmap::fromImage(ManualPicture(file, 0, 1));
    return picture;
  }

 private:
  PictureStore& pictures_;
};

int PageOf(double y) { return static_cast<int>(std::floor(y / kTextHeight)); }

// Where the lines of a block count from, in the document.
QPointF OriginOf(const QTextDocument& document, const QTextBlock& block) {
  return document.documentLayout()->blockBoundingRect(block).topLeft();
}

// The pages on which a block's first and last lines are.
struct BlockPages {
  int first = 0;
  int last = 0;
};

BlockPages PagesOf(const QTextDocument& document, const QTextBlock& block) {
  const double origin = OriginOf(document, block).y();
  const QTextLayout* layout = block.layout();
  if (layout->lineCount() == 0) return {PageOf(origin + 1), PageOf(origin + 1)};
  const auto page_of_line = [&](int line) { return PageOf(origin + layout->lineAt(line).y() + 1); };
  return {page_of_line(0), page_of_line(layout->lineCount() - 1)};
}

QTextTable* TableOf(const QTextBlock& block) { return QTextCursor(block).currentTable(); }

bool IsHeading(const QTextBlock& block) { return block.blockFormat().headingLevel() > 0; }

bool HasPicture(const QTextBlock& block) {
  for (auto at = block.begin(); !at.atEnd(); ++at) {
    if (at.fragment().charFormat().isImageFormat()) return true;
  }
  return false;
}

// A heading, a line that introduces a list, a table or a picture, or a quote that goes on.
bool LeadsOn(const QTextBlock& block) {
  constexpr int kShort = 2;
  if (!block.isValid() || TableOf(block) != nullptr || HasPicture(block)) return false;
  const bool introduces =
      block.text().endsWith(QLatin1Char(':')) && block.layout()->lineCount() <= kShort;
  return IsHeading(block) || introduces || (IsQuote(block) && IsQuote(block.next()));
}

// Whether what begins with this block is torn: what leads on from what follows, a picture from its
// caption, a table's heads from its first row.
bool IsTorn(const QTextDocument& document, const QTextBlock& block) {
  const BlockPages own = PagesOf(document, block);
  if (const QTextTable* table = TableOf(block)) {
    if (table->firstCursorPosition().block() != block) return false;
    const int row = std::min(1, table->rows() - 1);
    const QTextBlock first = table->cellAt(row, 0).firstCursorPosition().block();
    return PagesOf(document, first).first != own.first;
  }
  if (HasPicture(block)) return own.first != own.last;
  if (!LeadsOn(block)) return false;
  const QTextBlock next = block.next();
  return next.isValid() && (PagesOf(document, next).first != own.first || IsTorn(document, next));
}

// What leads on to a block goes with it.
QTextBlock BeginningOf(QTextBlock block) {
  while (LeadsOn(block.previous())) block = block.previous();
  return block;
}

template <typename Format>
bool AddBreak(Format& format) {
  if (format.pageBreakPolicy() == QTextFormat::PageBreak_AlwaysBefore) return false;
  format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
  return true;
}

bool BreakBefore(const QTextBlock& block) {
  if (QTextTable* table = TableOf(block)) {
    QTextTableFormat format = table->format();
    const bool added = AddBreak(format);
    if (added) table->setFormat(format);
    return added;
  }
  QTextBlockFormat format = block.blockFormat();
  const bool added = AddBreak(format);
  if (added) QTextCursor(block).setBlockFormat(format);
  return added;
}

// Each break moves what comes after it, so the next one is looked for anew. A layout that is mended
// where it was changed only loses what is between two tables: all is laid out again.
bool MendOne(QTextDocument& document) {
  for (QTextBlock block = document.begin().next(); block.isValid(); block = block.next()) {
    if (!IsTorn(document, block) || !BreakBefore(BeginningOf(block))) continue;
    document.markContentsDirty(0, document.characterCount());
    return true;
  }
  return false;
}

}  // namespace

ChapterPages::ChapterPages(const BookChapter& chapter, const std::filesystem::path& folder,
                           PictureStore& pictures)
    : name_(chapter.name),
      title_(chapter.Title()),
      headings_(chapter.headings),
      document_(std::make_unique<PrintedDocument>(pictures)) {
  document_->setUseDesignMetrics(true);
  document_->setDocumentMargin(0);
  SetManualText(*document_, chapter.text, folder,
                {.theme = &kLightTheme,
                 .body_points = kPrintPoints,
                 .widest_picture = static_cast<int>(kTextWidth),
                 .picture_scale = kPictureScale});
  document_->setPageSize({kTextWidth, kTextHeight});
  for (int pass = 0; pass < kMostPasses && MendOne(*document_); ++pass) {
  }
}

std::vector<PlacedHeading> ChapterPages::Headings() const {
  std::vector<PlacedHeading> placed;
  auto heading = headings_.begin();
  for (QTextBlock block = document_->begin(); block.isValid(); block = block.next()) {
    if (!IsHeading(block) || heading == headings_.end()) continue;
    const int page = PagesOf(*document_, block).first;
    const double top = OriginOf(*document_, block).y() - page * kTextHeight;
    placed.push_back({*heading++, {page, std::max(top, 0.0) + kTopMargin}});
  }
  return placed;
}

std::vector<PlacedLink> ChapterPages::Links() const {
  std::vector<PlacedLink> links;
  for (QTextBlock block = document_->begin(); block.isValid(); block = block.next()) {
    const QPointF origin = OriginOf(*document_, block);
    for (auto at = block.begin(); !at.atEnd(); ++at) {
      const QTextFragment piece = at.fragment();
      const QString target = piece.charFormat().anchorHref();
      if (target.isEmpty()) continue;
      const int begin = piece.position() - block.position();
      for (int i = 0; i < block.layout()->lineCount(); ++i) {
        const QTextLine line = block.layout()->lineAt(i);
        const int from = std::max(begin, line.textStart());
        const int to = std::min(begin + piece.length(), line.textStart() + line.textLength());
        if (from >= to) continue;
        const QRectF area(origin.x() + line.cursorToX(from), origin.y() + line.y(),
                          line.cursorToX(to) - line.cursorToX(from), line.height());
        const int page = PageOf(area.top() + 1);
        links.push_back({page, area.translated(kSideMargin, kTopMargin - page * kTextHeight),
                         target.toStdString()});
      }
    }
  }
  return links;
}

void ChapterPages::Paint(QPainter& painter, int page) const {
  painter.save();
  painter.translate(kSideMargin, kTopMargin - page * kTextHeight);
  const QRectF shown(0, page * kTextHeight, kTextWidth, kTextHeight);
  painter.setClipRect(shown.adjusted(-kSideMargin / 2, 0, kSideMargin / 2, 0));
  QAbstractTextDocumentLayout::PaintContext context;
  context.clip = shown;
  context.palette.setColor(QPalette::Text, kLightTheme.ink);
  document_->documentLayout()->draw(&painter, context);
  painter.restore();
}

}  // namespace kalvo
