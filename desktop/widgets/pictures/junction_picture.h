#pragma once

#include <QWidget>

namespace kalvo {

/// A tee or a cross with the flow of its legs.
class JunctionPicture : public QWidget {
  Q_OBJECT
  Q_PROPERTY(QString flows READ Flows WRITE SetFlows)

 public:
  explicit JunctionPicture(QWidget* parent = nullptr);

  /// One letter a leg, left, right, down and for a cross up: i for a flow in, towards the centre, o
  /// for one out. "ioo": in from the left, out to the right and down.
  void SetFlows(const QString& flows);
  [[nodiscard]] QString Flows() const { return flows_; }

  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  [[nodiscard]] bool IsCross() const { return flows_.size() == 4; }
  void DrawWalls(QPainter& painter) const;

  QString flows_ = "ioo";
};

}  // namespace kalvo
