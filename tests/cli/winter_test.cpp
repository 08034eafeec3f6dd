// `kalvo winter`: the values it takes, what it asks, tells and saves.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "study/section_row.h"
#include "tests/cli/cli_bench.h"

namespace kalvo {
namespace {

using testing::AllOf;
using testing::HasSubstr;

// SoundNetwork() calculated; its emitters are in sections 2 (300 l/h) and 3 (500 l/h).
class WinterRun : public testing::Test {
 protected:
  WinterRun() { EXPECT_EQ(bench_.Run({"calc", study_, "--quiet", "--save", study_}).code, 0); }

  [[nodiscard]] Told Run(const std::string& values, std::vector<std::string> more = {}) const {
    std::vector<std::string> arguments = {"winter", study_, "--values",
                                          bench_.Put("values.csv", values)};
    arguments.insert(arguments.end(), more.begin(), more.end());
    return bench_.Run(arguments);
  }

  const CliBench bench_;
  const std::string study_ = bench_.Put("study.PCK", SoundNetwork());
};

constexpr const char* kValues = "section,flow,drop\n2,180.5,200\n3,300,240\n";

TEST_F(WinterRun, TellsThePumpAndTheRowsAndLeavesTheStudyAlone) {
  const FolderImage before = bench_.Studies();
  const Told told = Run(kValues, {"--temperature", "59.5"});
  EXPECT_EQ(told.code, 0) << told.err;
  EXPECT_THAT(told.out,
              AllOf(testing::StartsWith("... ΧΑΡΑΚΤΗΡΙΣΤΙΚΑ ΑΝΤΛΙΑΣ ΧΕΙΜΩΝΑ ...\n"
                                        "Παροχή Νερού..................0,5  [m3/h]\n"),
                    HasSubstr("59,5 °C\n"), HasSubstr("Παροχή αντλίας        : 0,48 m³/h\n"),
                    HasSubstr("  1/2 "), testing::Not(HasSubstr("Ταχύτητα σχεδιασμού"))));
  FolderImage after = bench_.Studies();
  after.erase("values.csv");
  EXPECT_TRUE(after == before);
}

TEST_F(WinterRun, SavesTheFamilyAndGoesOnFromWhatWasSaved) {
  const std::string saved = bench_.Path("winter.PCK");
  EXPECT_EQ(Run(kValues, {"--temperature", "45", "--save", saved}).code, 0);
  EXPECT_TRUE(bench_.Studies().contains("winter.WNT"));
  EXPECT_EQ(bench_.Studies().at("winter.PCK"), bench_.Studies().at("study.PCK"));
  const Told again = bench_.Run({"winter", saved});
  EXPECT_EQ(again.code, 0);
  EXPECT_THAT(again.out, AllOf(HasSubstr("0,48 m³/h"), HasSubstr("45 °C")));
  EXPECT_EQ(bench_.Run({"winter", study_}).code, 2);  // no values there
}

TEST_F(WinterRun, ResultsOfOtherDiametersAreEmptied) {
  const std::string saved = bench_.Path("winter.PCK");
  EXPECT_EQ(Run(kValues, {"--save", saved}).code, 0);
  const auto winter = [this] {
    const std::string rows = bench_.Studies().at("winter.WNT");
    SectionRow first;
    DecodeRecord(rows.data(), first);
    return first;
  };
  EXPECT_GT(winter().DP, 0);
  const Told told = bench_.Run({"diameters", saved, "--set", "2=2", "--save", saved});
  EXPECT_EQ(told.code, 0) << told.err;
  EXPECT_EQ(winter().DP, 0) << "of the pipes before";
  EXPECT_EQ(bench_.Run({"winter", saved}).code, 0) << "the values stay";
}

TEST_F(WinterRun, TakesTablesAsSpreadsheetsWriteThem) {
  const std::string plain = Run(kValues).out;
  for (const char* values : {"\xEF\xBB\xBFΤΜΗΜΑ;Παροχή;πτώση\r\n3;300,0;240\r\n2;180,5;200\r\n",
                             "drop\tsection\tflow\n200\t2\t180,5\n\n# note\n240\t3\t300\n",
                             "section,flow,drop\n2,\"180,5\",200\n3,300,240"}) {
    EXPECT_EQ(Run(values).out, plain) << values;
  }
  EXPECT_NE(Run("section,flow,drop,length\n2,180.5,200,40\n3,300,240,5\n").out, plain);
}

TEST_F(WinterRun, TellsWhatIsWrongWithATable) {
  const std::vector<std::pair<std::string, std::string>> wrongs = {
      {"", "είναι κενός"},
      {"section,flow,heat\n", "Γραμμή 1, άγνωστη στήλη"},
      {"section,flow\n", "λείπει η στήλη drop"},
      {"section,flow,drop,flow\n", "η στήλη flow είναι δύο φορές"},
      {"section,flow,drop\n2,much,200\n", "Γραμμή 2, δεν είναι αριθμός \"much\""},
      {"section,flow,drop\n2,-5,200\n", "είναι αρνητικός"},
      {"section,flow,drop\n2,5,\"1,200\"\n", "διαχωριστικό χιλιάδων"},
      {"section;flow;drop\n2;5;1.200\n", "διαχωριστικό χιλιάδων"},
      {"section,flow,drop\n2.5,5,200\n", "δεν είναι α/α Τμήματος"},
      {"section,flow,drop\n2,1e99,200\n", "δεν είναι αριθμός"},
      {"section,flow,drop\n2,5\n", "τα κελιά είναι 2 και όχι 3"},
      {"section,flow,drop\n4,5,200\n", "το Τμήμα 4 δεν έχει Σώμα"},
      {"section,flow,drop\n2,5,200\n2,5,200\n", "είναι δύο φορές"},
      {"section,flow,drop\n2,5,200\n", "Λείπει το Σώμα στο Τμήμα 3"}};
  for (const auto& [values, message] : wrongs) {
    const Told told = Run(values);
    EXPECT_EQ(told.code, 3) << values;
    EXPECT_THAT(told.err, AllOf(HasSubstr(message), HasSubstr("values.csv")));
    EXPECT_EQ(told.out, "");
  }
}

TEST_F(WinterRun, AsksAsTheFormAsks) {
  const char* high = "section,flow,drop\n2,300,200\n3,501,240\n";
  Told told = Run(high, {"--save", bench_.Path("not.PCK")});
  EXPECT_EQ(told.code, 4);
  EXPECT_THAT(told.err, AllOf(HasSubstr("με α/α < 2 >"), HasSubstr("ίση"), HasSubstr("--yes")));
  EXPECT_FALSE(bench_.Studies().contains("not.PCK"));
  told = Run(high, {"--yes"});
  EXPECT_EQ(told.code, 0);
  EXPECT_THAT(told.err, AllOf(HasSubstr("ίση"), HasSubstr("μεγαλύτερη")));
  EXPECT_EQ(Run("section,flow,drop\n2,100,0\n3,200,240\n").code, 4);
  EXPECT_EQ(Run(kValues, {"--temperature", "100.1"}).code, 4);
  EXPECT_EQ(Run(kValues, {"--temperature", "0"}).code, 4);
  EXPECT_EQ(Run(kValues, {"--temperature", "warm"}).code, 2);
  EXPECT_THAT(Run(kValues, {"--temperature", "70,5"}).out, HasSubstr("70,5 °C"));
  const std::string fresh = bench_.Put("fresh.PCK", SoundNetwork());
  EXPECT_EQ(bench_.Run({"winter", fresh, "--values", bench_.Path("values.csv")}).code, 4);
}

}  // namespace
}  // namespace kalvo
