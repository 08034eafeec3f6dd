#pragma once

#include "desktop/widgets/pictures/painted_picture.h"
#include "form/pictures.h"

namespace kalvo {

/// How a section's drop comes about: the steps under each other, the last one with its tile filled
/// as the result of the others.
class SectionSteps : public PaintedPicture {
  Q_OBJECT

 public:
  explicit SectionSteps(QWidget* parent = nullptr);

  void SetContent(const StepsContent& steps);

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void DrawStep(QPainter& painter, const StepLine& step, const QRect& row, bool is_last) const;
  [[nodiscard]] int UnitWidth() const;

  StepsContent steps_;
};

}  // namespace kalvo
