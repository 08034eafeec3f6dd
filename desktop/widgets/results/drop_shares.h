#pragma once

#include "desktop/widgets/pictures/painted_picture.h"
#include "form/pictures.h"

namespace kalvo {

/// What a section's drop is made of, as one bar in four colours and hatches with a key below:
/// pipe, fittings, margin, emitter.
class DropShares : public PaintedPicture {
  Q_OBJECT

 public:
  static constexpr std::size_t kMostShares = 4;

  explicit DropShares(QWidget* parent = nullptr);

  void SetContent(const SharesContent& shares);

  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void DrawBar(QPainter& painter, const QRectF& bar) const;
  void DrawKey(QPainter& painter, std::size_t i, const QRect& cell) const;

  SharesContent shares_;
};

}  // namespace kalvo
