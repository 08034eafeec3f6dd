#pragma once

#include <QAbstractScrollArea>
#include <QPixmap>
#include <optional>

#include "form/previewed_pages.h"

namespace kalvo {

/// One page on the ground of the window, in its middle while there is room and scrolled otherwise.
class PageSheet : public QAbstractScrollArea {
  Q_OBJECT

 public:
  explicit PageSheet(QWidget* parent = nullptr);

  void SetPage(PreviewedPages* pages, int page, int percent);
  /// Scrolls to the beginning of the page, or to its end.
  void GoToEnd(bool foot);
  /// Scrolls so many screenfuls; where the page has no more it is left.
  void ScrollBy(int screens);

  [[nodiscard]] int page() const { return page_; }
  /// Where the page is in the viewport.
  [[nodiscard]] QRect place() const;

 Q_SIGNALS:
  /// So many points have room for a page at its true size.
  void RoomCame(double width, double height);
  void Zoomed(int steps);
  void WentPast(bool forward);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  [[nodiscard]] QSize PageDots() const;
  void FollowSize();
  /// Whether the page is seen as far as it goes in that direction.
  [[nodiscard]] bool IsAtEnd(bool forward) const;
  void PaintFromStore(QPainter& painter, const QRect& place);

  PreviewedPages* pages_ = nullptr;
  int page_ = 0;
  int percent_ = 100;
  int turned_ = 0;                ///< of a notch of the wheel
  std::optional<QPixmap> store_;  ///< the page as it was painted last
};

}  // namespace kalvo
