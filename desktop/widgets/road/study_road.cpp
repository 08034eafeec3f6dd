#include "desktop/widgets/road/study_road.h"

#include <QHBoxLayout>
#include <QPainter>

#include "desktop/theme.h"

namespace kalvo {
namespace {

struct StationNames {
  const char* object;
  const char* icon;
};

constexpr StationNames kNames[StudyRoad::kStations] = {
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

StudyRoad::StudyRoad(QWidget* parent) : QWidget(parent) {
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(0);
  for (int i = 0; i < kStations; ++i) {
    auto* station = new StationButton(i + 1, kNames[i].icon, this);
    station->setObjectName(kNames[i].object);
    connect(station, &QAbstractButton::clicked, this, [this, i] { Q_EMIT StationClicked(i); });
    row->addWidget(station, 1);
    stations_ << station;
  }
}

void StudyRoad::SetStations(const std::array<StationView, kStations>& stations) {
  QStringList spoken;
  for (int i = 0; i < kStations; ++i) {
    stations_[i]->SetStation(stations[static_cast<std::size_t>(i)]);
    spoken << stations_[i]->accessibleName();
  }
  setAccessibleName("Πορεία της μελέτης");
  setAccessibleDescription(spoken.join("; "));
  update();
}

int StudyRoad::FilledStretches() const {
  int done = 0;
  while (done < kStations - 1 && stations_[done]->StationMark() == StationState::kDone) ++done;
  return done;
}

void StudyRoad::paintEvent(QPaintEvent*) {
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
