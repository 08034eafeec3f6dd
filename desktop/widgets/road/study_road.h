#pragma once

#include <QAbstractButton>
#include <QList>
#include <QWidget>
#include <array>

namespace kalvo {

/// How far a station of the study is. kStale: done once, but no longer valid.
enum class StationState { kDone, kNext, kLater, kStale };

struct StationView {
  QString caption;
  QString state;  ///< "20 τμήματα", "εκκρεμεί"
  StationState mark = StationState::kLater;
  QString icon = {};    ///< empty: the station's own
  bool enabled = true;  ///< a station that is only shown cannot be pressed
  QString key = {};     ///< for the tooltip
};

/// One station: a disc with its icon, the caption (its text()) and a line of state below.
class StationButton : public QAbstractButton {
  Q_OBJECT

 public:
  StationButton(int number, QString icon, QWidget* parent);

  void SetStation(const StationView& station);
  [[nodiscard]] StationState StationMark() const { return mark_; }
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
  QString own_icon_;
  QString icon_;
  QString state_;
  StationState mark_ = StationState::kLater;
};

/// The six steps of a study as stations on a pipe that fills as far as the study has come. The
/// buttons are named Cmd_Thema, Cmd_GenData, Cmd_Sect, Cmd_Somata, Cmd_Calc and Cmd_Res.
class StudyRoad : public QWidget {
  Q_OBJECT

 public:
  static constexpr int kStations = 6;

  explicit StudyRoad(QWidget* parent = nullptr);

  void SetStations(const std::array<StationView, kStations>& stations);
  /// `index` 0 to 5.
  [[nodiscard]] QAbstractButton* Station(int index) const { return stations_[index]; }
  /// How many stretches between stations are filled, 0 to 5.
  [[nodiscard]] int FilledStretches() const;

 Q_SIGNALS:
  void StationClicked(int index);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QList<StationButton*> stations_;
};

}  // namespace kalvo
