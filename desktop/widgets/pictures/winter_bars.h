#pragma once

#include "desktop/widgets/pictures/painted_picture.h"
#include "form/pictures.h"

namespace kalvo {

/// A column for each emitter: outlined its flow in summer, filled that in winter, which has a cap
/// where it is above its outline.
class WinterBars : public PaintedPicture {
  Q_OBJECT

 public:
  explicit WinterBars(QWidget* parent = nullptr);

  void SetContent(const WinterChartContent& chart);

  [[nodiscard]] QSize sizeHint() const override { return {216, 64}; }
  [[nodiscard]] QSize minimumSizeHint() const override { return {120, 48}; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  WinterChartContent chart_;
};

}  // namespace kalvo
