// Studies with results whose network cannot be walked: the results are told, and that they do not
// hold.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "tests/cli/cli_bench.h"

namespace kalvo {
namespace {

using testing::EndsWith;
using testing::HasSubstr;

constexpr const char* kDoNotHold = "Τα αποτελέσματα ΔΕΝ ισχύουν, το δίκτυο δεν διανύεται\n";

class LostWalkRun : public testing::Test {
 protected:
  // A study that was calculated, then one letter of a section's name changed: `at` counts within.
  [[nodiscard]] std::string PutLost(const std::string& name,
                                    const std::vector<std::string_view>& lines, std::size_t section,
                                    std::size_t at, char letter) const {
    const std::string study = bench_.Put(name, lines);
    EXPECT_EQ(bench_.Run({"calc", study, "--quiet", "--save", study}).code, 0);
    std::vector<SectionRow> rows = DecodeRows<SectionRow>(bench_.Studies().at(name));
    std::string text(rows[section - 1].Name.bytes());
    text[at] = letter;
    rows[section - 1].Name = FixedText<7>::FromBytes(text);
    return bench_.Put(name, rows);
  }

  // Every command that tells results ends in a fault, quiet or not, and nothing is saved.
  void ExpectFault(const std::string& study, const std::string& finding) const {
    const FolderImage before = bench_.Studies();
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{"show", study},
          {"explain", study, "1"},
          {"explain", study, "1", "--method", "1"},
          {"quantities", study, "--format", "json"},
          {"calc", study},
          {"calc", study, "--method", "2"},
          {"calc", study, "--fixed", "--format", "csv"}}) {
      std::vector<std::string> quiet = arguments;
      quiet.emplace_back("--quiet");
      for (const auto& words : {arguments, quiet}) {
        const Told told = bench_.Run(words);
        EXPECT_EQ(told.code, 4) << testing::PrintToString(words);
        EXPECT_NE(told.out, "");
        EXPECT_EQ(told.err, kDoNotHold + finding) << testing::PrintToString(words);
      }
    }
    const Told saving = bench_.Run({"calc", study, "--save", study});
    EXPECT_EQ(saving.code, 4);
    EXPECT_THAT(saving.err, EndsWith("\nΗ μελέτη ΔΕΝ σώθηκε\n"));
    EXPECT_TRUE(bench_.Studies() == before);
  }

  const CliBench bench_;
};

TEST_F(LostWalkRun, OfAClosedStudyIsAFaultOnEveryRoad) {
  const std::string study = PutLost("study.PCK", SoundNetwork(), 5, 4, '9');
  ExpectFault(study, "Ο Κλάδος του Σώματος στο Τμήμα 3 χάνεται στον Κόμβο 9\n");
  const std::string sound = bench_.Put("sound.PCK", SoundNetwork());
  const Told batch = bench_.Run({"calc", sound, study, "--format", "json"});
  EXPECT_EQ(batch.code, 4);
  const auto json = nlohmann::json::parse(batch.out);
  EXPECT_TRUE(json.at(0).at("lost_walk").is_null());
  EXPECT_EQ(json.at(1).at("lost_walk").at("section"), 3);
  EXPECT_EQ(json.at(1).at("lost_walk").at("node"), "9");
}

TEST_F(LostWalkRun, OfAnOpenStudyIsAFaultOnEveryRoad) {
  const std::vector<std::string_view> lines = {"1/ANT 5m", "2/1 5m outlet 300 l/h 5mwg", "3/1 4m",
                                               "4/3 5m outlet 200 l/h 6mwg",
                                               "5/3 5m outlet 400 l/h 5mwg"};
  ExpectFault(PutLost("missing.PCA", lines, 3, 4, '9'),
              "Ο Κλάδος του Υποδοχέα στο Τμήμα 4 χάνεται : δεν υπάρχει ο τροφοδότης 9 !!\n");
  ExpectFault(PutLost("circle.PCA", lines, 3, 4, '3'),
              "Ο Κλάδος του Υποδοχέα στο Τμήμα 4 επιστρέφει στο Τμήμα 3 : οι τροφοδότες κάνουν "
              "κύκλο !!\n");
}

TEST_F(LostWalkRun, WinterIsNotCalculatedOnIt) {
  const std::string study = PutLost("study.PCK", SoundNetwork(), 5, 4, '9');
  const std::string values = bench_.Put("values.csv", "section,flow,drop\n2,180,200\n3,300,240\n");
  const Told told = bench_.Run({"winter", study, "--values", values, "--quiet"});
  EXPECT_EQ(told.code, 4);
  EXPECT_EQ(told.out, "");
  EXPECT_THAT(told.err, HasSubstr("στο Τμήμα 3 χάνεται στον Κόμβο 9\n"));
}

// Named twice: the check finds it, the walks take the first and go on.
TEST_F(LostWalkRun, OfNoOtherFindingIsANote) {
  const std::string study =
      PutLost("study.PCA", {"1/ANT 5m", "2/1 5m outlet 300 l/h 5mwg", "3/1 5m outlet 200 l/h 6mwg"},
              3, 2, '2');
  const Told told = bench_.Run({"calc", study});
  EXPECT_EQ(told.code, 0);
  EXPECT_THAT(told.err, HasSubstr("δεν ισχύουν : kalvo check " + study));
  EXPECT_EQ(bench_.Run({"calc", study, "--quiet"}).err, "");
}

}  // namespace
}  // namespace kalvo
