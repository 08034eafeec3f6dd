#pragma once

#include <QAbstractButton>

#include "form/pictures.h"

namespace kalvo {

/// One station: a disc with its icon, the caption (its text()) and a line of state below.
class StationButton : public QAbstractButton {
  Q_OBJECT

 public:
  StationButton(int number, QString icon, QWidget* parent);

  void SetStation(const RoadStation& station);
  [[nodiscard]] RoadMark StationMark() const { return mark_; }
  /// Centre of the disc, in the coordinates of the button.
  [[nodiscard]] QPointF DiscCentre() const;

  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  [[nodiscard]] bool hitButton(const QPoint& position) const override;

 private:
  void DrawDisc(QPainter& painter) const;
  void DrawBadge(QPainter& painter) const;
  void DrawWords(QPainter& painter) const;

  int number_;
  QString icon_;
  QString state_;
  RoadMark mark_ = RoadMark::kLater;
};

}  // namespace kalvo
