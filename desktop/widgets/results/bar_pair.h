#pragma once

#include "desktop/widgets/pictures/painted_picture.h"
#include "form/pictures.h"

namespace kalvo {

/// A value before, hatched, over the value after, filled.
class BarPairPicture : public PaintedPicture {
  Q_OBJECT

 public:
  explicit BarPairPicture(QWidget* parent = nullptr);

  void SetContent(const BarPairContent& content);

  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  BarPairContent content_;
};

}  // namespace kalvo
