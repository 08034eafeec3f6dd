#pragma once

#include "desktop/widgets/pictures/painted_picture.h"
#include "form/pictures.h"

namespace kalvo {

/// A tee or a cross with an arrow of flow in each leg.
class JunctionPicture : public PaintedPicture {
  Q_OBJECT

 public:
  explicit JunctionPicture(QWidget* parent = nullptr);

  void SetContent(const JunctionContent& junction);

  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  [[nodiscard]] bool IsCross() const;
  void DrawWalls(QPainter& painter) const;

  JunctionContent junction_;
};

}  // namespace kalvo
