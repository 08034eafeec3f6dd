#include <gtest/gtest.h>

#include <QSignalSpy>
#include <QTest>

#include "desktop/theme.h"
#include "desktop/widgets/study_road.h"
#include "tests/desktop/pictures.h"

namespace kalvo {
namespace {

std::array<RoadStation, StudyRoad::kStations> HalfWay() {
  return {RoadStation{"  ΘΕΜΑ-ΤΙΤΛΟΣ ", "καταχωρήθηκε", Mark::kDone},
          RoadStation{"Γενικά Δεδομένα", "10,0 °C  ·  1,0 m/sec", Mark::kDone},
          RoadStation{"Δεδομένα Τμημάτων", "20 τμήματα", Mark::kDone},
          RoadStation{"Δεδομένα Σωμάτων", "θέλουν έλεγχο", Mark::kStale},
          RoadStation{"Υπολογισμοί", "επόμενο βήμα", Mark::kNext},
          RoadStation{"ΠΑΡΟΥΣΙΑΣΗ ΑΠΟΤΕΛΕΣΜΑΤΩΝ", "δεν υπάρχουν", Mark::kLater}};
}

TEST(StudyRoad, StationsAreTheNamedCommands) {
  StudyRoad road;
  road.SetStations(HalfWay());
  road.resize(1170, 140);
  road.show();
  QSignalSpy clicks(&road, &StudyRoad::StationClicked);
  const char* names[] = {"Cmd_Thema",  "Cmd_GenData", "Cmd_Sect",
                         "Cmd_Somata", "Cmd_Calc",    "Cmd_Res"};
  for (int i = 0; i < StudyRoad::kStations; ++i) {
    auto* station = road.findChild<QAbstractButton*>(names[i]);
    ASSERT_EQ(station, road.Station(i));
    QTest::mouseClick(station, Qt::LeftButton);
    ASSERT_EQ(clicks.size(), i + 1);
    EXPECT_EQ(clicks.last().first().toInt(), i);
  }
  EXPECT_EQ(road.Station(0)->text(), "  ΘΕΜΑ-ΤΙΤΛΟΣ ");
}

TEST(StudyRoad, AnswersToSpaceAndEnter) {
  StudyRoad road;
  road.SetStations(HalfWay());
  road.show();
  QSignalSpy clicks(&road, &StudyRoad::StationClicked);
  for (const auto key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) {
    QTest::keyClick(road.Station(4), key);
  }
  EXPECT_EQ(clicks.size(), 3);
}

TEST(StudyRoad, StationThatIsOnlyShownCannotBePressed) {
  StudyRoad road;
  auto stations = HalfWay();
  stations[5].enabled = false;
  road.SetStations(stations);
  QSignalSpy clicks(&road, &StudyRoad::StationClicked);
  QTest::mouseClick(road.Station(5), Qt::LeftButton);
  EXPECT_TRUE(clicks.isEmpty());
}

TEST(StudyRoad, WaterComesAsFarAsTheStudyHasCome) {
  StudyRoad road;
  EXPECT_EQ(road.FilledStretches(), 0);
  road.SetStations(HalfWay());
  EXPECT_EQ(road.FilledStretches(), 3) << "a stale station holds the water back";
  auto stations = HalfWay();
  for (RoadStation& station : stations) station.mark = Mark::kDone;
  road.SetStations(stations);
  EXPECT_EQ(road.FilledStretches(), 5);
}

TEST(StudyRoad, IsReadAloud) {
  StudyRoad road;
  road.SetStations(HalfWay());
  EXPECT_EQ(road.Station(4)->accessibleName(), "Υπολογισμοί, επόμενο βήμα");
  EXPECT_EQ(road.Station(2)->accessibleName(), "Δεδομένα Τμημάτων, έγινε, 20 τμήματα");
}

TEST(Pictures, OfTheRoad) {
  for (const Theme* theme : {&kLightTheme, &kDarkTheme}) {
    ApplyTheme(*qApp, *theme);
    StudyRoad road;
    road.SetStations(HalfWay());
    road.resize(1170, 150);
    KeepPicture(road, theme == &kLightTheme ? "road-light" : "road-dark");
  }
  ApplyTheme(*qApp, kLightTheme);
}

}  // namespace
}  // namespace kalvo
