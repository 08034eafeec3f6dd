#pragma once

#include "desktop/widgets/pictures/painted_picture.h"
#include "form/pictures.h"

namespace kalvo {

/// One section as a pipe between its two nodes, with the direction of flow.
class PipePicture : public PaintedPicture {
  Q_OBJECT

 public:
  explicit PipePicture(QWidget* parent = nullptr);

  void SetContent(const PipeContent& pipe);

  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void DrawNodeWithNote(QPainter& painter, const QPointF& centre, const QString& name,
                        const QString& note) const;

  PipeContent pipe_;
};

}  // namespace kalvo
