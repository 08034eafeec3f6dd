#pragma once

#include "desktop/widgets/pictures/painted_picture.h"
#include "form/pictures.h"

namespace kalvo {

/// A section as it is typed: its pipe between its neighbours, and its fittings line by line.
class SectionPicture : public PaintedPicture {
  Q_OBJECT

 public:
  explicit SectionPicture(QWidget* parent = nullptr);

  void SetContent(const SectionSketchContent& sketch);

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void DrawNeighbours(QPainter& painter) const;
  void DrawSection(QPainter& painter) const;
  void DrawFitting(QPainter& painter, const FittingLine& fitting, int top) const;

  SectionSketchContent sketch_;
};

}  // namespace kalvo
