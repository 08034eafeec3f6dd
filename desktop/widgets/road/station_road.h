#pragma once

#include <QList>

#include "desktop/widgets/pictures/painted_picture.h"
#include "desktop/widgets/road/station_button.h"
#include "form/pictures.h"

namespace kalvo {

/// The six steps of a study as stations on a pipe that fills as far as the study has come. The
/// buttons are named Cmd_Thema, Cmd_GenData, Cmd_Sect, Cmd_Somata, Cmd_Calc and Cmd_Res.
class StationRoad : public PaintedPicture {
  Q_OBJECT

 public:
  static constexpr int kStations = 6;

  explicit StationRoad(QWidget* parent = nullptr);

  void SetContent(const RoadContent& road);
  /// `index` 0 to 5.
  [[nodiscard]] StationButton* Station(int index) const { return stations_[index]; }
  /// How many stretches between stations are filled, 0 to 5.
  [[nodiscard]] int FilledStretches() const;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QList<StationButton*> stations_;
};

}  // namespace kalvo
