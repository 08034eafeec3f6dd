#pragma once

#include "desktop/widgets/pictures/painted_picture.h"
#include "form/pictures.h"

namespace kalvo {

/// A column for each outlet: hatched its height above the pump, on it the pressure that it needs.
/// Where there is no room for all, those round the outlet in hand are shown.
class OutletBars : public PaintedPicture {
  Q_OBJECT

 public:
  explicit OutletBars(QWidget* parent = nullptr);

  void SetContent(const OutletChartContent& chart);

  [[nodiscard]] QSize sizeHint() const override { return {320, 210}; }
  [[nodiscard]] QSize minimumSizeHint() const override { return {180, 160}; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  struct Scale {
    QRectF area;      ///< between the lowest and the highest value
    double step = 1;  ///< between two lines, m
    double most = 1;  ///< m at the top
    [[nodiscard]] double Y(double metres) const {
      return area.bottom() - area.height() * metres / most;
    }
  };

  [[nodiscard]] Scale ScaleFor(const QRectF& area) const;
  /// The first column that is shown when `count` have room.
  [[nodiscard]] int FirstShown(int count) const;
  void DrawLines(QPainter& painter, const Scale& scale) const;
  void DrawColumn(QPainter& painter, const Scale& scale, int column, const QRectF& place) const;
  void DrawLegend(QPainter& painter, const QRectF& line) const;

  OutletChartContent chart_;
};

}  // namespace kalvo
