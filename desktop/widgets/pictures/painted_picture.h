#pragma once

#include <QWidget>

namespace kalvo {

/// A widget that paints a part of a form from its content. It has a SetContent() for it.
class PaintedPicture : public QWidget {
  Q_OBJECT

 public:
  using QWidget::QWidget;

 Q_SIGNALS:
  /// A place of the picture was clicked.
  void Picked(int place);

 protected:
  /// The place at a point, from 0; -1: none.
  [[nodiscard]] virtual int PlaceAt(const QPoint& point) const;
  void mousePressEvent(QMouseEvent* event) override;
};

}  // namespace kalvo
