#pragma once

#include <QCache>
#include <QPixmap>

#include "desktop/widgets/pictures/painted_picture.h"
#include "form/page_view.h"

namespace kalvo {

/// All pages one below the other as small pictures with their numbers. A page is painted when it
/// comes into sight first.
class PageList : public PaintedPicture {
  Q_OBJECT

 public:
  explicit PageList(QWidget* parent = nullptr);

  void SetContent(const PageTilesContent& content);

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }
  /// How many pages have been painted.
  [[nodiscard]] int painted() const { return painted_; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  [[nodiscard]] int PlaceAt(const QPoint& point) const override;

 private:
  [[nodiscard]] int count() const {
    return content_.pages == nullptr ? 0 : content_.pages->count();
  }
  [[nodiscard]] QSize PictureSize() const;
  [[nodiscard]] int TileHeight() const;
  [[nodiscard]] QRect TileOf(int page) const;
  void PaintTile(QPainter& painter, int page);
  const QPixmap& PictureOf(int page);

  PageTilesContent content_;
  QCache<int, QPixmap> pictures_;
  int painted_ = 0;
};

}  // namespace kalvo
