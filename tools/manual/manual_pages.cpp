#include "tools/manual/manual_pages.h"

#include <QBuffer>
#include <QPageLayout>
#include <QPdfWriter>
#include <QSvgRenderer>
#include <algorithm>
#include <stdexcept>

#include "desktop/qt_text.h"
#include "desktop/theme.h"

namespace kalvo {
namespace {

constexpr const char* kDocumentTitle = "Kalvoflume — Εγχειρίδιο";
constexpr int kDotsOfPdf = 1200;
constexpr int kListedLevel = 2;
constexpr double kContentsHead = 64;
constexpr double kChapterLine = 25;
constexpr double kPartLine = 17;
constexpr double kRoomAboveChapter = 8;
constexpr double kPartIndent = 22;
constexpr double kNumberWidth = 40;

const QRectF kTextArea(kSideMargin, kTopMargin, kTextWidth, kTextHeight);

void SetText(QPainter& painter, double points, const QColor& color, bool bold = false) {
  QFont font = ThemeFont(points, bold);
  font.setPixelSize(qRound(points * kDotsOfInch / 72));  // dots of the page, not of the PDF
  painter.setFont(font);
  painter.setPen(color);
}

}  // namespace

ManualPages::ManualPages(const ManualBook& book, const std::filesystem::path& folder,
                         std::string version)
    : book_(book), version_(std::move(version)) {
  for (const BookChapter& chapter : book.chapters()) {
    if (chapter.name == kManualContents) continue;  // paper has its own
    chapters_.push_back({ChapterPages(chapter, folder, pictures_)});
    const auto headings = chapters_.back().pages.Headings();
    for (const PlacedHeading& placed : headings) {
      const int level = placed.heading.level;
      if (level <= kListedLevel) lines_.push_back({placed.heading.text, level == 1, placed.place});
    }
  }
  PlaceLines();
}

// Lines first, since the chapters follow them.
void ManualPages::PlaceLines() {
  int page = 1;
  double top = kTopMargin + kContentsHead;
  for (std::size_t i = 0; i < lines_.size(); ++i) {
    Line& line = lines_[i];
    double needed = line.of_chapter ? kRoomAboveChapter + kChapterLine : kPartLine;
    const bool has_parts = line.of_chapter && i + 1 < lines_.size() && !lines_[i + 1].of_chapter;
    if (has_parts) needed += kPartLine;  // a chapter is not alone at the foot
    if (top + needed > kTopMargin + kTextHeight) {
      ++page;
      top = kTopMargin;
    } else if (line.of_chapter) {
      top += kRoomAboveChapter;
    }
    line.page = page;
    line.top = top;
    top += line.of_chapter ? kChapterLine : kPartLine;
  }
  count_ = page + 1;
  auto line = lines_.begin();
  for (Placed& placed : chapters_) {
    placed.first = count_;
    do {
      if (line == lines_.end()) break;
      line->place.page += placed.first;
      ++line;
    } while (line != lines_.end() && !line->of_chapter);
    count_ += placed.pages.count();
  }
}

void ManualPages::Paint(QPainter& painter, int page) const {
  if (page == 0) {
    PaintTitle(painter);
    return;
  }
  if (page < chapters_.front().first) {
    PaintContents(painter, page);
    PaintHeadAndFoot(painter, page, "Περιεχόμενα", page > 1);
    return;
  }
  const auto after = std::ranges::upper_bound(chapters_, page, {}, &Placed::first);
  const Placed& placed = *std::prev(after);
  placed.pages.Paint(painter, page - placed.first);
  PaintHeadAndFoot(painter, page, placed.pages.title(), page > placed.first);
}

void ManualPages::PaintTitle(QPainter& painter) const {
  constexpr double kBand = 0.42;
  constexpr double kIcon = 120;
  painter.fillRect(QRectF(0, 0, kPageWidth, kPageHeight * kBand), kLightTheme.primary);
  QSvgRenderer icon(QStringLiteral(":/icons/kalvoflume.svg"));
  icon.render(&painter, QRectF(kSideMargin, kPageHeight * kBand - kIcon - 190, kIcon, kIcon));
  const QRectF name(kSideMargin, kPageHeight * kBand - 165, kTextWidth, 70);
  SetText(painter, 40, kLightTheme.onprimary, true);
  painter.drawText(name, Qt::AlignLeft | Qt::AlignVCenter, QStringLiteral("Kalvoflume"));
  SetText(painter, 15, kLightTheme.onprimary);
  painter.drawText(name.translated(0, 66), Qt::AlignLeft | Qt::AlignVCenter,
                   QStringLiteral("Δίκτυα σωλήνων ροής υγρών"));
  const QRectF below(kSideMargin, kPageHeight * kBand + 40, kTextWidth, 50);
  SetText(painter, 22, kLightTheme.ink, true);
  painter.drawText(below, Qt::AlignLeft | Qt::AlignVCenter, QStringLiteral("Εγχειρίδιο χρήσης"));
  SetText(painter, 11, kLightTheme.ink2);
  painter.drawText(below.translated(0, 44), Qt::AlignLeft | Qt::AlignVCenter,
                   QStringLiteral("Έκδοση ") + ToQt(version_));
}

void ManualPages::PaintContents(QPainter& painter, int page) const {
  if (page == 1) {
    SetText(painter, 18, kLightTheme.primary, true);
    painter.drawText(QRectF(kSideMargin, kTopMargin, kTextWidth, 40),
                     Qt::AlignLeft | Qt::AlignVCenter, QStringLiteral("Περιεχόμενα"));
  }
  for (const Line& line : lines_) {
    if (line.page == page) PaintLine(painter, line);
  }
}

// Words, dots and the number of the page, as the captions of windows are led to their values.
void ManualPages::PaintLine(QPainter& painter, const Line& line) const {
  constexpr double kGap = 6;
  const double height = line.of_chapter ? kChapterLine : kPartLine;
  const double indent = line.of_chapter ? 0 : kPartIndent;
  const QRectF area(kSideMargin + indent, line.top, kTextWidth - indent, height);
  SetText(painter, line.of_chapter ? 10.5 : 9.5, kLightTheme.ink, line.of_chapter);
  const QFontMetricsF metrics(painter.font());
  const QString words =
      metrics.elidedText(ToQt(line.text), Qt::ElideRight, area.width() - kNumberWidth);
  const QString number = QString::number(line.place.page + 1);
  painter.drawText(area, Qt::AlignLeft | Qt::AlignVCenter, words);
  painter.drawText(area, Qt::AlignRight | Qt::AlignVCenter, number);
  if (line.of_chapter) return;
  const double base = area.center().y() + metrics.ascent() / 2 - 1;
  QPen dots(kLightTheme.border, 0.9);
  dots.setDashPattern({1, 4});
  painter.setPen(dots);
  painter.drawLine(QLineF(area.left() + metrics.horizontalAdvance(words) + kGap, base,
                          area.right() - metrics.horizontalAdvance(number) - kGap, base));
}

void ManualPages::PaintHeadAndFoot(QPainter& painter, int page, const std::string& title,
                                   bool head) const {
  constexpr double kHead = 36;
  constexpr double kLine = 18;
  if (head) {
    const QRectF area(kSideMargin, kTopMargin - kHead, kTextWidth, kLine);
    SetText(painter, 8.5, kLightTheme.ink3);
    painter.drawText(area, Qt::AlignLeft | Qt::AlignVCenter, QStringLiteral("Kalvoflume"));
    painter.drawText(area, Qt::AlignRight | Qt::AlignVCenter, ToQt(title));
    painter.setPen(QPen(kLightTheme.line, 0.8));
    painter.drawLine(QLineF(area.bottomLeft(), area.bottomRight()));
  }
  SetText(painter, 9, kLightTheme.ink2);
  painter.drawText(QRectF(kSideMargin, kPageHeight - kBottomMargin + kLine, kTextWidth, kLine),
                   Qt::AlignRight | Qt::AlignVCenter, QString::number(page + 1));
}

const ManualPages::Placed* ManualPages::Find(std::string_view chapter) const {
  const auto found = std::ranges::find_if(
      chapters_, [&](const Placed& placed) { return placed.pages.name() == chapter; });
  return found == chapters_.end() ? nullptr : &*found;
}

// The contents for what is not on paper.
PagePlace ManualPages::PlaceOf(const ManualPlace& place) const {
  const Placed* placed = Find(place.chapter);
  if (placed == nullptr) return {1, kTopMargin};
  for (const PlacedHeading& one : placed->pages.Headings()) {
    if (one.heading.anchor == place.anchor) {
      return {placed->first + one.place.page, one.place.top};
    }
  }
  return {placed->first, kTopMargin};
}

PdfFacts ManualPages::Facts() const {
  PdfFacts facts{kDocumentTitle, {{"Περιεχόμενα", {1, kTopMargin}}}, {}};
  for (const Line& line : lines_) {
    std::vector<OutlineEntry>& entries =
        line.of_chapter ? facts.outline : facts.outline.back().parts;
    entries.push_back({line.text, line.place});
    const double height = line.of_chapter ? kChapterLine : kPartLine;
    facts.links.push_back(
        {line.page, QRectF(kSideMargin, line.top, kTextWidth, height), line.place});
  }
  for (const Placed& placed : chapters_) {
    for (const PlacedLink& link : placed.pages.Links()) {
      const ManualPlace target = book_.Follow(placed.pages.name(), link.target);
      if (target.chapter.empty()) continue;
      facts.links.push_back({placed.first + link.page, link.area, PlaceOf(target)});
    }
  }
  return facts;
}

std::string ManualPages::MakePdf() const {
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  QPdfWriter writer(&buffer);
  writer.setResolution(kDotsOfPdf);
  writer.setPageLayout(QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait, QMarginsF()));
  QPainter painter(&writer);
  painter.setRenderHint(QPainter::LosslessImageRendering);  // letters stay sharp
  bool whole = painter.isActive();
  for (int page = 0; page < count(); ++page) {
    whole = whole && (page == 0 || writer.newPage());
    if (!whole) throw std::runtime_error("the pages cannot be painted");
    painter.save();
    painter.scale(kDotsOfPdf / kDotsOfInch, kDotsOfPdf / kDotsOfInch);
    Paint(painter, page);
    painter.restore();
  }
  painter.end();
  return FinishPdf(buffer.data().toStdString(), Facts());
}

}  // namespace kalvo
