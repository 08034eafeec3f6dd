#include "results/section_picks.h"

#include <gtest/gtest.h>

#include "tests/support/network.h"

namespace kalvo {
namespace {

using Numbers = std::vector<int>;

SectionPicks PicksOf(SystemKind kind, const std::vector<std::string_view>& lines) {
  return {kind, kalvo::Network(lines, {.kind = kind}), "1  -2  -"};
}

struct PickedWay {
  const char* what;
  SystemKind kind;
  std::vector<std::string_view> lines;
  int section;
  Numbers expected;
};

TEST(SectionsAlongAWay, AreThoseOfItsCircuitOrItsFeedersAsFarAsTheyGo) {
  const std::vector<std::string_view> loops = {
      "ANT/1 5m", "1/2 5m soma 300l/h 500mm", "1/3 5m soma 200l/h 400mm", "2/4 5m", "3/4 5m",
      "4/ANT 5m"};
  const PickedWay ways[] = {
      {"a circuit", SystemKind::kClosed, loops, 2, {1, 2, 4, 6}},
      {"another", SystemKind::kClosed, loops, 3, {1, 3, 5, 6}},
      {"a lone section", SystemKind::kClosed, {"ANT/ANT 5m soma 300l/h 500mm"}, 1, {1}},
      {"lost both ways",
       SystemKind::kClosed,
       {"ANT/8 5m", "1/2 5m soma 300l/h 500mm", "9/ANT 5m"},
       2,
       {2}},
      {"a circle of names",
       SystemKind::kClosed,
       {"ANT/1 5m", "1/2 5m soma 300l/h 500mm", "2/3 5m", "3/2 5m", "4/ANT 5m"},
       2,
       {1, 2, 3, 4}},
      {"feeders",
       SystemKind::kOpen,
       {"1/ANT 10m", "2/1 4m", "3/2 6m 200l/h outlet 12mwg", "4/1 6m 200l/h outlet 12mwg"},
       3,
       {1, 2, 3}},
      {"a lost feeder",
       SystemKind::kOpen,
       {"1/ANT 10m", "2/7 4m", "3/2 6m 200l/h outlet 12mwg"},
       3,
       {2, 3}},
      {"feeders in a circle",
       SystemKind::kOpen,
       {"1/ANT 10m", "2/3 4m", "3/2 6m 200l/h outlet 12mwg"},
       3,
       {2, 3}}};
  for (const PickedWay& way : ways) {
    SCOPED_TRACE(way.what);
    EXPECT_EQ(PicksOf(way.kind, way.lines).AlongWayOf(way.section), way.expected);
  }
}

TEST(SectionsAlongAWay, AreTheSectionAloneWhereABranchHasNoRoomForItsNumber) {
  std::vector<SectionRow> rows(1000, kalvo::Network({"1/2 5m soma 300l/h 500mm"}).front());
  const SectionPicks picks(SystemKind::kClosed, rows, "");
  EXPECT_EQ(picks.AlongWayOf(1000), Numbers{1000});
}

TEST(SectionPicks, FindDiametersBranchAndVelocity) {
  std::vector<SectionRow> rows =
      kalvo::Network({"ANT/1 5m", "1/2 5m soma 300l/h 500mm", "2/3 5m", "3/ANT 5m"});
  const std::pair<const char*, float> sizes[] = {
      {"1", 27.3F}, {"1/2", 16.1F}, {"2", -53.1F}, {"1/2", 16.1F}};
  const float velocities[] = {0.9F, 1.2F, 0.3F, 0.9F};
  for (std::size_t i = 0; i < rows.size(); ++i) {
    rows[i].NomiDiam = FixedText<15>::FromUtf8(sizes[i].first);
    rows[i].InDiameter = sizes[i].second;
    rows[i].Velocity = velocities[i];
  }
  const SectionPicks picks(SystemKind::kClosed, rows, "1  -2  -9  -");
  EXPECT_EQ(picks.Diameters(), (std::vector<std::string>{"1/2", "1", "2"}));
  EXPECT_EQ(picks.WithDiameter("1/2"), (Numbers{2, 4}));
  EXPECT_EQ(picks.WithDiameter("4"), Numbers());
  EXPECT_EQ(picks.OnCriticalBranch(), (Numbers{1, 2}));
  EXPECT_EQ(picks.OffCriticalBranch(), (Numbers{3, 4}));
  EXPECT_EQ(picks.Emitters(), Numbers{2});
  EXPECT_EQ(picks.FasterThan(0.9), Numbers{2}) << "0,9 is not above itself";
  EXPECT_EQ(picks.SlowerThan(0.9), Numbers{3});
  EXPECT_EQ(SectionPicks().Diameters(), std::vector<std::string>());
}

}  // namespace
}  // namespace kalvo
