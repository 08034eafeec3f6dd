#include <gtest/gtest.h>

#include <QSignalSpy>
#include <QTest>

#include "desktop/theme.h"
#include "desktop/widgets/road/station_road.h"
#include "tests/desktop/pictures.h"
#include "tests/support/test_desk.h"

namespace kalvo {
namespace {

class StationRoadTest : public testing::Test {
 protected:
  StationRoadTest() { road_.SetContent(half_way_); }

  TestDesk test_;
  struct RoadForm : Form {
    using Form::Form;
    Command Cmd_Any{*this, "Cmd_Any", "", {}};
  } form_{test_.desk};
  RoadContent half_way_ = {
      {{&form_.Cmd_Any, "  ΘΕΜΑ-ΤΙΤΛΟΣ ", "καταχωρήθηκε", RoadMark::kDone},
       {&form_.Cmd_Any, "Γενικά Δεδομένα", "10,0 °C  ·  1,0 m/sec", RoadMark::kDone},
       {&form_.Cmd_Any, "Δεδομένα Τμημάτων", "20 τμήματα", RoadMark::kDone},
       {&form_.Cmd_Any, "Δεδομένα Σωμάτων", "θέλουν έλεγχο", RoadMark::kStale},
       {&form_.Cmd_Any, "Υπολογισμοί", "επόμενο βήμα", RoadMark::kNext},
       {nullptr, "ΠΑΡΟΥΣΙΑΣΗ ΑΠΟΤΕΛΕΣΜΑΤΩΝ", "δεν υπάρχουν", RoadMark::kLater}}};
  StationRoad road_;
};

TEST_F(StationRoadTest, StationsAreTheNamedCommands) {
  road_.resize(1170, 140);
  road_.show();
  const char* names[] = {"Cmd_Thema",  "Cmd_GenData", "Cmd_Sect",
                         "Cmd_Somata", "Cmd_Calc",    "Cmd_Res"};
  for (int i = 0; i < StationRoad::kStations; ++i) {
    EXPECT_EQ(road_.findChild<QAbstractButton*>(names[i]), road_.Station(i)) << names[i];
  }
  EXPECT_EQ(road_.Station(0)->text(), "  ΘΕΜΑ-ΤΙΤΛΟΣ ");
}

TEST_F(StationRoadTest, StationAnswersToMouseSpaceAndEnter) {
  road_.resize(1170, 140);
  road_.show();
  const QSignalSpy clicks(road_.Station(4), &QAbstractButton::clicked);
  QTest::mouseClick(road_.Station(4), Qt::LeftButton);
  for (const auto key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) {
    QTest::keyClick(road_.Station(4), key);
  }
  EXPECT_EQ(clicks.size(), 4);
}

TEST_F(StationRoadTest, StationWithoutACommandCannotBePressed) {
  const QSignalSpy clicks(road_.Station(5), &QAbstractButton::clicked);
  QTest::mouseClick(road_.Station(5), Qt::LeftButton);
  EXPECT_TRUE(clicks.isEmpty());
}

TEST_F(StationRoadTest, WaterComesAsFarAsTheStudyHasCome) {
  EXPECT_EQ(StationRoad().FilledStretches(), 0);
  EXPECT_EQ(road_.FilledStretches(), 3) << "a stale station holds the water back";
  for (RoadStation& station : half_way_.stations) station.mark = RoadMark::kDone;
  road_.SetContent(half_way_);
  EXPECT_EQ(road_.FilledStretches(), 5);
}

TEST_F(StationRoadTest, IsReadAloud) {
  EXPECT_EQ(road_.Station(4)->accessibleName(), "Υπολογισμοί, επόμενο βήμα");
  EXPECT_EQ(road_.Station(2)->accessibleName(), "Δεδομένα Τμημάτων, έγινε, 20 τμήματα");
}

TEST_F(StationRoadTest, PictureInBothThemes) {
  for (const Theme* theme : {&kLightTheme, &kDarkTheme}) {
    ApplyTheme(*qApp, *theme);
    road_.resize(1170, 150);
    KeepPicture(road_, theme == &kLightTheme ? "road-light" : "road-dark");
  }
  ApplyTheme(*qApp, kLightTheme);
}

}  // namespace
}  // namespace kalvo
