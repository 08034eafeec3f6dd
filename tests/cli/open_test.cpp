// Studies of an open system on the command line.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "tests/cli/cli_bench.h"

namespace kalvo {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;
using Lines = std::vector<std::string_view>;

// A low outlet of high flow pressure decides; what feeds the top floor then falls short.
const Lines kTooHigh = {"1/ANT 5m", "2/1 5m 1up outlet 800 l/h 20mwg",
                        "3/1 5m 25up outlet 400 l/h 3mwg"};

class Open : public testing::Test {
 protected:
  const CliBench bench_;
  const std::string study_ = bench_.Put(
      "study.PCA", Lines{"1/ANT 5m", "2/1 5m 2up outlet 300 l/h 5mwg", "3/1 4m",
                         "4/3 5m 4up outlet 200 l/h 6mwg", "5/3 5m 4.5up outlet 400 l/h 5mwg"});
};

TEST_F(Open, CalcTellsHeightsFlowPressuresAndWhatIsLeft) {
  const Told told = bench_.Run({"calc", study_});
  EXPECT_EQ(told.code, 0) << told.err;
  EXPECT_THAT(told.out, AllOf(HasSubstr("Δυσμενέστερος κλάδος  : ANT - 1 - 3 - 4\n"),
                              HasSubstr("Υπόλοιπη πίεση        : 0,50 m w.g."),
                              HasSubstr("Ύψος  Πίεση ροής\n"), HasSubstr("Περίσσεια\n"),
                              Not(HasSubstr("Περιεκτικότητα")), Not(HasSubstr("χρειάζονται"))));
  const auto json = nlohmann::json::parse(
      bench_.Run({"calc", study_, "--format", "json", "--units", "pa", "--method", "2"}).out);
  EXPECT_EQ(json.at("system"), "open");
  EXPECT_EQ(json.at("method"), 2);
  EXPECT_EQ(json.at("critical_branch"), (std::vector<int>{1, 3, 4}));
  EXPECT_EQ(json.at("outlets").at(1).at("section"), 4);
  EXPECT_EQ(json.at("sections").at(3).at("flow_pressure_m_wg"), 6.0);
  EXPECT_NEAR(json.at("sections").at(3).at("flow_pressure_kpa").get<double>(), 58.84, 0.01);
  EXPECT_FALSE(json.contains("water_content_l"));
}

TEST_F(Open, CalcNamesEveryOutletThatThePumpFallsShortOf) {
  const std::string high = bench_.Put("high.PCA", kTooHigh);
  const std::string note = "Υποδοχείς που χρειάζονται περισσότερο από όσο δίνει η αντλία : 3\n";
  EXPECT_THAT(bench_.Run({"calc", high}).out, HasSubstr(note));
  EXPECT_THAT(bench_.Run({"calc", high, "--format", "json"}).out,
              HasSubstr("\"outlets_in_need\": [\n      3\n"));
}

TEST_F(Open, SaveWritesTheFamilyOfItsKind) {
  const std::string saved = bench_.Path("saved");
  EXPECT_EQ(bench_.Run({"calc", study_, "--save", saved}).err, "Σώθηκε : " + saved + ".PCA\n");
  const FolderImage after = bench_.Studies();
  EXPECT_TRUE(after.contains("saved.STO") && after.contains("saved.LQD"));
  EXPECT_THAT(bench_.Run({"show", saved + ".PCA"}).out, HasSubstr("ANT - 1 - 3 - 4\n"));
  EXPECT_EQ(
      bench_.Run({"calc", saved + ".PCA", "--fixed", "--quiet", "--save", saved + ".PCA"}).code, 0);
  EXPECT_TRUE(bench_.Studies() == after);
}

TEST_F(Open, SaveKeepsPermissionsAndTakesNoNameOfTheOtherKind) {
  namespace fs = std::filesystem;
  fs::permissions(study_, fs::perms::owner_read | fs::perms::owner_write);
  EXPECT_EQ(bench_.Run({"calc", study_, "--save", study_}).code, 0);
  EXPECT_EQ(fs::status(study_).permissions(), fs::perms::owner_read | fs::perms::owner_write);
  const Told told = bench_.Run({"calc", study_, "--save", bench_.Path("x.PCK")});
  EXPECT_EQ(told.code, 6);
  EXPECT_EQ(told.out, "");
  EXPECT_EQ(bench_.Run({"calc", study_.substr(0, study_.size() - 4)}).code, 0);  // no extension
}

TEST_F(Open, AStudyWithoutAKindOfItsOwnIsTakenByItsName) {
  NetworkHeader header;
  header.kind = SystemKind::kOpen;
  auto rows = Network(kTooHigh, header);
  for (SectionRow& row : rows) {
    row.ANOIK = 0;
  }
  const std::string study = bench_.Put("neither.PCA", rows);
  EXPECT_THAT(bench_.Run({"calc", study}).out,
              AllOf(HasSubstr("Περίσσεια\n"), HasSubstr("Η αντλία δεν φθάνει   : σε Υποδοχείς 3")));
}

TEST_F(Open, SectionsBeforeTheirFeederAreNoted) {
  const std::string study = bench_.Put(
      "later.PCA", Lines{"1/ANT 5m", "2/4 5m outlet 300 l/h 5mwg", "3/1 5m outlet 300 l/h 5mwg",
                         "4/1 5m", "5/4 5m outlet 300 l/h 5mwg"});
  EXPECT_THAT(bench_.Run({"calc", study}).out,
              HasSubstr("πριν από τον τροφοδότη τους, με Διαθέσιμη "
                        "πίεση που δεν ισχύει : 2\n"));
}

TEST_F(Open, OutletsAreTheLeavesWithTheirValues) {
  const std::string half =
      bench_.Put("half.PCA", Lines{"1/ANT 5m", "2/1 5m 2up outlet 300 l/h 5mwg", "3/1 4m 80 l/h"});
  EXPECT_EQ(bench_.Run({"outlets", half}).out,
            "α/α  Υποδοχέας  Παροχή  Πίεση ροής  Ύψος\n"
            "                   l/h      m w.g.     m\n"
            "  2    2/1       300,0        5,00  2,00\n"
            "  3    3/1         ---         ---   ---\n"
            "Υποδοχείς χωρίς τιμές : 3\n");
}

TEST_F(Open, CheckAndCalcTellWhatIsWrongWithTheFeeders) {
  struct Wrong {
    Lines network;
    std::string finding;
  };
  const std::vector<Wrong> wrongs = {
      {{"1/ANT 5m", "2/1 5m outlet 300 l/h 5mwg", "3/9 5m outlet 300 l/h 5mwg"},
       "Το Τμήμα 3 τροφοδοτείται από ανύπαρκτο Τμήμα !!\n"},
      {{"1/ANT 5m", "2/1 5m", "3/2 5m outlet 300 l/h 5mwg"},
       "Τα Τμήματα 1 και 2 έχουν, ΧΩΡΙΣ ΛΟΓΟ, διαφορετικό όνομα...\n"},
      {{"1/ANT 5m", "2/1 5m outlet 300 l/h 5mwg", "3/4 5m", "4/3 5m", "5/3 5m outlet 100 l/h 5mwg",
        "6/4 5m outlet 100 l/h 5mwg"},
       "Ο Κλάδος του Υποδοχέα στο Τμήμα 5 επιστρέφει στο Τμήμα "}};
  for (const Wrong& wrong : wrongs) {
    const std::string study = bench_.Put("wrong.PCA", wrong.network);
    const Told check = bench_.Run({"check", study});
    EXPECT_EQ(check.code, 4);
    EXPECT_THAT(check.out, HasSubstr(wrong.finding));
    const Told calc = bench_.Run({"calc", study});
    EXPECT_EQ(calc.code, 4);
    EXPECT_THAT(calc.err, HasSubstr(wrong.finding));
    EXPECT_EQ(calc.out, "");
  }
  EXPECT_EQ(bench_.Run({"check", study_}).code, 0);
}

TEST_F(Open, CommandsOfOneKindRefuseTheOther) {
  const std::string closed = bench_.Put("closed.PCK", SoundNetwork());
  const std::vector<std::pair<std::string, std::string>> refused = {
      {"flows", study_}, {"winter", study_}, {"outlets", closed}};
  for (const auto& [command, study] : refused) {
    const Told told = bench_.Run({command, study});
    EXPECT_EQ(told.code, 4) << command;
    EXPECT_THAT(told.err, testing::MatchesRegex("Η μελέτη είναι .* συστήματος : .*\n"));
  }
}

}  // namespace
}  // namespace kalvo
