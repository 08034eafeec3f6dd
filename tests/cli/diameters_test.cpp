// `kalvo diameters`: what it takes, compares and saves.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <nlohmann/json.hpp>

#include "tests/cli/cli_bench.h"

namespace kalvo {
namespace {

using testing::AllOf;
using testing::HasSubstr;

// SoundNetwork() calculated.
class DiametersRun : public testing::Test {
 protected:
  DiametersRun() { EXPECT_EQ(bench_.Run({"calc", study_, "--quiet", "--save", study_}).code, 0); }

  [[nodiscard]] Told Run(std::vector<std::string> more, const std::string& study = {}) const {
    std::vector<std::string> arguments = {"diameters", study.empty() ? study_ : study};
    arguments.insert(arguments.end(), more.begin(), more.end());
    return bench_.Run(arguments);
  }
  [[nodiscard]] nlohmann::json Results(const std::string& study) const {
    return nlohmann::json::parse(bench_.Run({"calc", study, "--fixed", "--format", "json"}).out);
  }
  // The nominal diameter of a section as it was sized, and a larger one of the same library.
  [[nodiscard]] std::string Sized(std::size_t section) const {
    return Results(study_)["sections"][section - 1]["nominal_diameter"];
  }
  [[nodiscard]] std::string Largest() const {
    return Results(study_)["pipes"].back()["nominal_diameter"];
  }

  const CliBench bench_;
  const std::string study_ = bench_.Put("study.PCK", SoundNetwork());
};

TEST_F(DiametersRun, ComparesWithTheResultsBeforeAndLeavesTheStudyAlone) {
  const FolderImage before = bench_.Studies();
  const Told told = Run({"--set", "3=" + Largest(), "--format", "json"});
  ASSERT_EQ(told.code, 0) << told.err;
  const auto json = nlohmann::json::parse(told.out);
  EXPECT_LT(json["pump"]["head_m_wg"]["after"], json["pump"]["head_m_wg"]["before"]);
  EXPECT_GT(json["water_content_l"]["after"], json["water_content_l"]["before"]);
  const auto section = *std::ranges::find(
      json["sections"], 3, [](const auto& one) { return one["number"].template get<int>(); });
  EXPECT_EQ(section["nominal_diameter"]["before"], Sized(3));
  EXPECT_EQ(section["nominal_diameter"]["after"], Largest());
  EXPECT_LT(section["velocity_m_s"]["after"], section["velocity_m_s"]["before"]);
  EXPECT_TRUE(bench_.Studies() == before);
}

TEST_F(DiametersRun, SavesWhatARunOnThoseDiametersGives) {
  const std::string saved = bench_.Path("other.PCK");
  const Told told = Run(
      {"--set", "2=" + Largest(), "--set", "3=" + Largest(), "--save", saved, "--format", "json"});
  ASSERT_EQ(told.code, 0) << told.err;
  const auto after = nlohmann::json::parse(told.out)["pump"]["head_m_wg"]["after"];
  const auto results = Results(saved);
  EXPECT_DOUBLE_EQ(results["pump"]["head_m_wg"], after);
  EXPECT_TRUE(results["sections"][1]["diameter_imposed"]);
  EXPECT_EQ(results["sections"][2]["nominal_diameter"], Largest());

  const Told back = Run({"--set", "2=" + Sized(2)}, saved);
  EXPECT_EQ(back.code, 0) << back.err;
  EXPECT_THAT(back.out, AllOf(HasSubstr("Μανομετρικό ύψος"), HasSubstr("διάμετρος")));
}

TEST_F(DiametersRun, SaysThatNothingChangesAndWritesTables) {
  const std::string same = "2=" + Sized(2);
  EXPECT_THAT(Run({"--set", same}).out, HasSubstr("Σε κανένα τμήμα δεν αλλάζει κάτι."));
  EXPECT_TRUE(
      nlohmann::json::parse(Run({"--set", same, "--format", "json"}).out)["sections"].empty());
  const Told csv = Run({"--set", "2=" + Largest(), "--format", "csv", "--separators", ",."});
  EXPECT_THAT(csv.out, AllOf(HasSubstr("RecordNumber;Name;NomiDiam_before;NomiDiam_after;Velocity"),
                             HasSubstr("\n2;")));
}

TEST_F(DiametersRun, RefusesWhatThereIsNot) {
  for (const char* wrong : {"0=2", "99=2", "x=2", "2", "=2", "2=no such size"}) {
    const Told told = Run({"--set", wrong});
    EXPECT_EQ(told.code, 2) << wrong;
    EXPECT_THAT(told.err, HasSubstr(wrong));
  }
  EXPECT_EQ(Run({"--set", "2=" + Sized(2), "--set", "2=" + Largest()}).code, 2);
  EXPECT_EQ(Run({}).code, 2);
  const std::string entered = bench_.Put("entered.PCK", SoundNetwork());
  EXPECT_EQ(Run({"--set", "2=" + Largest()}, entered).code, 4);
  EXPECT_EQ(Run({"--set", "2=" + Largest()}, bench_.Path("none.PCK")).code, 3);
}

}  // namespace
}  // namespace kalvo
