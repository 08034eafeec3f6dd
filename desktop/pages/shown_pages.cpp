#include "desktop/pages/shown_pages.h"

#include <QBuffer>
#include <QPageLayout>
#include <QPdfWriter>

#include "desktop/qt_text.h"

namespace kalvo {
namespace {

constexpr double kPointsOfInch = 72;

QPageLayout LayoutOf(const Paper& paper) {
  const QSizeF size(paper.width / kTwipsOfPoint, paper.height / kTwipsOfPoint);
  return {QPageSize(size, QPageSize::Point, {}, QPageSize::ExactMatch), QPageLayout::Portrait, {}};
}

}  // namespace

PageSize ShownPages::size() const {
  const Paper& paper = painter_.layout().paper;
  return {paper.width / kTwipsOfPoint, paper.height / kTwipsOfPoint};
}

std::string ShownPages::sheet() const {
  const Sheet* sheet = painter_.layout().sheet;
  return sheet == nullptr ? std::string() : sheet->name;
}

Result<std::string> ShownPages::MakePdf() {
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  QPdfWriter writer(&buffer);
  writer.setResolution(static_cast<int>(kTwipsOfInch));
  writer.setPageLayout(LayoutOf(painter_.layout().paper));
  writer.setTitle(ToQt(sheet()));
  writer.setCreator(QStringLiteral("Kalvoflume"));
  QPainter painter(&writer);
  bool whole = painter.isActive();
  for (int page = 0; page < count(); ++page) {
    whole = whole && (page == 0 || writer.newPage());
    if (!whole) return FileError{{}, "Οι σελίδες δεν σχεδιάζονται"};
    painter_.Paint(painter, page);
  }
  painter.end();
  return buffer.data().toStdString();
}

void ShownPages::Paint(QPainter& painter, const QRectF& place, int page) {
  painter.save();
  painter.setRenderHint(QPainter::TextAntialiasing);
  painter.fillRect(place, Qt::white);
  painter.setClipRect(place, Qt::IntersectClip);
  painter.translate(place.topLeft());
  const double scale = place.width() / painter_.layout().paper.width;
  painter.scale(scale, scale);
  painter_.Paint(painter, page);
  painter.restore();
}

QSize DotsOf(const PageSize& size, double percent, int dots_of_inch) {
  const double dots = percent / 100 * dots_of_inch / kPointsOfInch;
  return {qRound(size.width * dots), qRound(size.height * dots)};
}

}  // namespace kalvo
