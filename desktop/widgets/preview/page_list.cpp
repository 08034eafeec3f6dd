#include "desktop/widgets/preview/page_list.h"

#include <QPaintEvent>
#include <QPainter>
#include <QScrollArea>

#include "desktop/pages/shown_pages.h"
#include "desktop/theme.h"

namespace kalvo {
namespace {

constexpr int kTilePictureWidth = 114;
constexpr int kTileSide = 8;       // within a tile, around its picture
constexpr int kTileMargin = 8;     // around all tiles
constexpr int kTileGap = 6;        // between two
constexpr int kNumberHeight = 28;  // the line of the page's number
constexpr int kTileRadius = 5;
constexpr int kMostPictures = 100;

}  // namespace

PageList::PageList(QWidget* parent) : PaintedPicture(parent), pictures_(kMostPictures) {
  setAccessibleName(QStringLiteral("Σελίδες"));
}

void PageList::SetContent(const PageTilesContent& content) {
  if (content.pages != content_.pages) pictures_.clear();
  content_ = content;
  setAccessibleDescription(
      QStringLiteral("Σελίδα %1 από %2").arg(content_.current + 1).arg(count()));
  updateGeometry();
  update();
  for (QWidget* around = parentWidget(); around != nullptr; around = around->parentWidget()) {
    auto* area = qobject_cast<QScrollArea*>(around);
    if (area == nullptr) continue;
    const QRect tile = TileOf(content_.current);
    area->ensureVisible(tile.center().x(), tile.center().y(), 0, tile.height() / 2 + kTileGap);
  }
}

QSize PageList::PictureSize() const {
  if (content_.pages == nullptr) return {};
  const PageSize size = content_.pages->size();
  return {kTilePictureWidth, qRound(kTilePictureWidth * size.height / size.width)};
}

int PageList::TileHeight() const { return PictureSize().height() + kTileSide + kNumberHeight; }

QSize PageList::sizeHint() const {
  return {kTilePictureWidth + 2 * (kTileSide + kTileMargin),
          count() * (TileHeight() + kTileGap) + 2 * kTileMargin - kTileGap};
}

QRect PageList::TileOf(int page) const {
  return {kTileMargin, kTileMargin + page * (TileHeight() + kTileGap),
          kTilePictureWidth + 2 * kTileSide, TileHeight()};
}

int PageList::PlaceAt(const QPoint& point) const {
  const int page = (point.y() - kTileMargin) / (TileHeight() + kTileGap);
  return page >= 0 && page < count() && TileOf(page).contains(point) ? page : -1;
}

void PageList::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  for (int page = 0; page < count(); ++page) {
    if (TileOf(page).intersects(event->rect())) PaintTile(painter, page);
  }
}

void PageList::PaintTile(QPainter& painter, int page) {
  const Theme& theme = ActiveTheme();
  const bool current = page == content_.current;
  const QRect tile = TileOf(page);
  painter.setRenderHint(QPainter::Antialiasing);
  if (current) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(theme.soft);
    painter.drawRoundedRect(tile, kTileRadius, kTileRadius);
  }
  const QRect place(tile.topLeft() + QPoint(kTileSide, kTileSide), PictureSize());
  painter.drawPixmap(place.topLeft(), PictureOf(page));
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(current ? theme.primary : theme.border, current ? 2 : 1));
  painter.drawRect(place);
  painter.setFont(ThemeFont(kBodyPoints, current));
  painter.setPen(current ? theme.softink : theme.ink2);
  painter.drawText(QRect(tile.left(), place.bottom(), tile.width(), tile.bottom() - place.bottom()),
                   Qt::AlignCenter, QString::number(page + 1));
}

const QPixmap& PageList::PictureOf(int page) {
  const double ratio = devicePixelRatioF();
  const QPixmap* kept = pictures_.object(page);
  if (kept != nullptr && kept->devicePixelRatio() == ratio) return *kept;
  auto* made = new QPixmap(PictureSize() * ratio);  // which the store takes over
  made->setDevicePixelRatio(ratio);
  if (auto* pages = dynamic_cast<ShownPages*>(content_.pages)) {
    QPainter painter(made);
    pages->Paint(painter, QRectF(QPointF(), PictureSize()), page);
    ++painted_;
  }
  pictures_.insert(page, made);
  return *made;
}

}  // namespace kalvo
