#include "desktop/widgets/road/station_road.h"

#include <QHBoxLayout>
#include <QPainter>

#include "desktop/theme.h"

namespace kalvo {
namespace {

struct StationNames {
  const char* object;
  const char* icon;
};

constexpr StationNames kNames[StationRoad::kStations] = {
    {"Cmd_Thema", "title"},     {"Cmd_GenData", "general"}, {"Cmd_Sect", "sections"},
    {"Cmd_Somata", "emitters"}, {"Cmd_Calc", "calc"},       {"Cmd_Res", "results"},
};

constexpr double kRoadHalf = 6;
constexpr double kRoadWall = 1.6;

void DrawFlowArrow(QPainter& painter, const QPointF& centre, const QColor& color) {
  painter.setPen(QPen(color, 1.8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.setBrush(Qt::NoBrush);
  painter.drawPolyline(
      QPolygonF{centre + QPointF(-2, -4), centre + QPointF(2.5, 0), centre + QPointF(-2, 4)});
}

}  // namespace

StationRoad::StationRoad(QWidget* parent) : PaintedPicture(parent) {
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(0);
  for (int i = 0; i < kStations; ++i) {
    auto* station = new StationButton(i + 1, kNames[i].icon, this);
    station->setObjectName(kNames[i].object);
    row->addWidget(station, 1);
    stations_ << station;
  }
}

void StationRoad::SetContent(const RoadContent& road) {
  QStringList spoken;
  for (int i = 0; i < kStations; ++i) {
    const auto at = static_cast<std::size_t>(i);
    stations_[i]->SetStation(at < road.stations.size() ? road.stations[at] : RoadStation{});
    spoken << stations_[i]->accessibleName();
  }
  setAccessibleName("Πορεία της μελέτης");
  setAccessibleDescription(spoken.join("; "));
  update();
}

int StationRoad::FilledStretches() const {
  int done = 0;
  while (done < kStations - 1 && stations_[done]->StationMark() == RoadMark::kDone) ++done;
  return done;
}

void StationRoad::paintEvent(QPaintEvent*) {
  const Theme& theme = ActiveTheme();
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const int filled = FilledStretches();
  for (int i = 0; i + 1 < kStations; ++i) {
    const StationButton* from_station = stations_[i];
    const StationButton* to_station = stations_[i + 1];
    const QPointF from = from_station->mapToParent(from_station->DiscCentre());
    const QPointF to = to_station->mapToParent(to_station->DiscCentre());
    const QRectF pipe(from - QPointF(0, kRoadHalf), to + QPointF(0, kRoadHalf));
    painter.fillRect(pipe, i < filled ? theme.water : theme.surface);
    painter.setPen(QPen(theme.border, kRoadWall));
    painter.drawLine(pipe.topLeft(), pipe.topRight());
    painter.drawLine(pipe.bottomLeft(), pipe.bottomRight());
    if (i < filled) DrawFlowArrow(painter, pipe.center(), theme.softink);
  }
}

}  // namespace kalvo
