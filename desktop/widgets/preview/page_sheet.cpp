#include "desktop/widgets/preview/page_sheet.h"

#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

#include "desktop/pages/shown_pages.h"
#include "desktop/theme.h"

namespace kalvo {
namespace {

constexpr int kGroundAround = 16;   // between page and window
constexpr int kWheelNotch = 120;    // of a wheel
constexpr int kScreenOverlap = 40;  // of two screenfuls
constexpr double kPointsOfScreenInch = 72;
constexpr qint64 kMostStored = 8'000'000;  // dots; a larger page is painted anew each time

}  // namespace

PageSheet::PageSheet(QWidget* parent) : QAbstractScrollArea(parent) {
  setFrameShape(QFrame::NoFrame);
  setFocusPolicy(Qt::StrongFocus);
  setAccessibleName(QStringLiteral("Σελίδα"));
  horizontalScrollBar()->setSingleStep(kScreenOverlap);
  verticalScrollBar()->setSingleStep(kScreenOverlap);
}

QSize PageSheet::PageDots() const {
  return pages_ == nullptr ? QSize() : DotsOf(pages_->size(), percent_, logicalDpiX());
}

void PageSheet::SetPage(PreviewedPages* pages, int page, int percent) {
  if (pages == pages_ && page == page_ && percent == percent_) return;
  pages_ = pages;
  page_ = page;
  percent_ = percent;
  store_.reset();
  setAccessibleName(pages == nullptr
                        ? QStringLiteral("Σελίδα")
                        : QStringLiteral("Σελίδα %1 από %2").arg(page + 1).arg(pages->count()));
  FollowSize();
}

// What is in the middle of the window stays there. A page that fits without scroll bars gets none,
// whether there are some now or not.
void PageSheet::FollowSize() {
  const QSize whole = PageDots() + QSize(2 * kGroundAround, 2 * kGroundAround);
  const QSize most = maximumViewportSize();
  const bool fits = whole.width() <= most.width() && whole.height() <= most.height();
  const QSize room = fits ? most : viewport()->size();
  const auto follow = [](QScrollBar& bar, int length, int shown) {
    const double all = std::max(bar.maximum() + bar.pageStep(), 1);
    const double middle = (bar.value() + bar.pageStep() / 2.0) / all;
    bar.setPageStep(shown);
    bar.setRange(0, std::max(length - shown, 0));
    bar.setValue(static_cast<int>(std::lround(middle * length - shown / 2.0)));
  };
  follow(*horizontalScrollBar(), whole.width(), room.width());
  follow(*verticalScrollBar(), whole.height(), room.height());
  viewport()->update();
}

void PageSheet::GoToEnd(bool foot) {
  verticalScrollBar()->setValue(foot ? verticalScrollBar()->maximum() : 0);
}

bool PageSheet::IsAtEnd(bool forward) const {
  const QScrollBar& bar = *verticalScrollBar();
  return bar.value() == (forward ? bar.maximum() : bar.minimum());
}

void PageSheet::ScrollBy(int screens) {
  if (screens == 0) return;
  if (IsAtEnd(screens > 0)) {
    Q_EMIT WentPast(screens > 0);
    return;
  }
  QScrollBar& bar = *verticalScrollBar();
  bar.setValue(bar.value() + screens * (bar.pageStep() - kScreenOverlap));
}

QRect PageSheet::place() const {
  const QSize size = PageDots();
  const auto start = [](int length, int room, int scrolled) {
    return length + 2 * kGroundAround <= room ? (room - length) / 2 : kGroundAround - scrolled;
  };
  return {QPoint(start(size.width(), viewport()->width(), horizontalScrollBar()->value()),
                 start(size.height(), viewport()->height(), verticalScrollBar()->value())),
          size};
}

void PageSheet::paintEvent(QPaintEvent* event) {
  const Theme& theme = ActiveTheme();
  QPainter painter(viewport());
  painter.fillRect(event->rect(), theme.header);
  auto* pages = dynamic_cast<ShownPages*>(pages_);
  if (pages == nullptr || page_ >= pages->count()) return;
  const QRect sheet = place();
  if (qint64{sheet.width()} * sheet.height() <= kMostStored) {
    PaintFromStore(painter, sheet);
  } else {
    pages->Paint(painter, sheet, page_);
  }
  const int edge = hasFocus() ? 2 : 1;
  painter.setPen(QPen(hasFocus() ? theme.primary : theme.border, edge, Qt::SolidLine, Qt::SquareCap,
                      Qt::MiterJoin));
  painter.drawRect(QRectF(sheet).adjusted(-edge / 2.0, -edge / 2.0, edge / 2.0, edge / 2.0));
}

void PageSheet::PaintFromStore(QPainter& painter, const QRect& place) {
  const double ratio = devicePixelRatioF();
  if (!store_ || store_->devicePixelRatio() != ratio) {
    store_.emplace(place.size() * ratio);
    store_->setDevicePixelRatio(ratio);
    QPainter of_page(&*store_);
    dynamic_cast<ShownPages&>(*pages_).Paint(of_page, QRectF(QPointF(), place.size()), page_);
  }
  painter.drawPixmap(place.topLeft(), *store_);
}

// The room is that without scroll bars, so that it does not change when they come.
void PageSheet::resizeEvent(QResizeEvent* /*event*/) {
  const QSize room = maximumViewportSize() - QSize(2 * kGroundAround, 2 * kGroundAround);
  const double points = kPointsOfScreenInch / logicalDpiX();
  FollowSize();
  Q_EMIT RoomCame(room.width() * points, room.height() * points);
}

void PageSheet::wheelEvent(QWheelEvent* event) {
  const bool zooms = event->modifiers().testFlag(Qt::ControlModifier);
  turned_ += event->angleDelta().y();
  const int notches = turned_ / kWheelNotch;
  event->accept();
  if (notches == 0 && zooms) return;
  turned_ %= kWheelNotch;
  if (zooms) {
    Q_EMIT Zoomed(notches);
  } else if (notches != 0 && IsAtEnd(notches < 0)) {
    Q_EMIT WentPast(notches < 0);
  } else {
    QAbstractScrollArea::wheelEvent(event);
  }
}

void PageSheet::focusInEvent(QFocusEvent* event) {
  QAbstractScrollArea::focusInEvent(event);
  viewport()->update();
}

void PageSheet::focusOutEvent(QFocusEvent* event) {
  QAbstractScrollArea::focusOutEvent(event);
  viewport()->update();
}

}  // namespace kalvo
