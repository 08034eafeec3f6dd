#include <gtest/gtest.h>

#include <QSignalSpy>
#include <QTest>

#include "desktop/theme.h"
#include "desktop/widgets/road/study_road.h"
#include "tests/desktop/pictures.h"

namespace kalvo {
namespace {

std::array<StationView, StudyRoad::kStations> HalfWay() {
  return {StationView{"  ΘΕΜΑ-ΤΙΤΛΟΣ ", "καταχωρήθηκε", StationState::kDone},
          StationView{"Γενικά Δεδομένα", "10,0 °C  ·  1,0 m/sec", StationState::kDone},
          StationView{"Δεδομένα Τμημάτων", "20 τμήματα", StationState::kDone},
          StationView{"Δεδομένα Σωμάτων", "θέλουν έλεγχο", StationState::kStale},
          StationView{"Υπολογισμοί", "επόμενο βήμα", StationState::kNext},
          StationView{"ΠΑΡΟΥΣΙΑΣΗ ΑΠΟΤΕΛΕΣΜΑΤΩΝ", "δεν υπάρχουν", StationState::kLater}};
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
  for (StationView& station : stations) station.mark = StationState::kDone;
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
