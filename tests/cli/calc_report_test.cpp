// What `kalvo calc` prints, in every format.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <fstream>
#include <map>
#include <nlohmann/json.hpp>
#include <sstream>

#include "study/codepage.h"
#include "tests/cli/cli_bench.h"

namespace kalvo {
namespace {

using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

constexpr const char* kByteOrderMark = "\xEF\xBB\xBF";

using Line = std::map<std::string, std::string>;

std::vector<std::string> Split(const std::string& text, char by) {
  std::vector<std::string> parts;
  std::istringstream stream(text);
  for (std::string part; std::getline(stream, part, by);) {
    parts.push_back(part);
  }
  return parts;
}

// Lines of a comma-separated text by the names of its columns.
std::vector<Line> Table(std::istream& text) {
  std::vector<Line> lines;
  std::vector<std::string> columns;
  for (std::string line; std::getline(text, line);) {
    const auto cells = Split(line, ',');
    if (line.starts_with('#')) {
      continue;
    }
    if (columns.empty()) {
      columns = cells;
      continue;
    }
    for (std::size_t i = 0; i < columns.size(); ++i) {
      lines.resize(lines.size() + (i == 0 ? 1 : 0));
      lines.back()[columns[i]] = i < cells.size() ? cells[i] : "";
    }
  }
  return lines;
}

bool AreAlike(const std::string& cell, const std::string& wanted) {
  char* end = nullptr;
  const double value = std::strtod(wanted.c_str(), &end);
  if (wanted.empty() || *end != '\0') {
    return cell == wanted;
  }
  return std::fabs(std::strtod(cell.c_str(), nullptr) - value) <= 2e-6 * std::fabs(value) + 1e-9;
}

void ExpectCase(const std::string& study, const std::string& result,
                const std::vector<std::string>& options) {
  std::vector<std::string> arguments = {"calc", CasesFolder() / study, "--format", "csv",
                                        "--ignore-capacity"};
  const auto library = CaseLibrary();
  arguments.insert(arguments.end(), library.begin(), library.end());
  arguments.insert(arguments.end(), options.begin(), options.end());
  const Told told = Kalvo(arguments);
  ASSERT_EQ(told.code, 0) << study << told.err;
  ASSERT_THAT(told.out, StartsWith(kByteOrderMark));
  std::istringstream text(told.out.substr(3));
  const auto lines = Table(text);
  std::ifstream file(CasesFolder() / result);
  const auto wanted = Table(file);
  ASSERT_EQ(lines.size(), wanted.size()) << result;
  ASSERT_FALSE(wanted.empty()) << result;
  for (std::size_t i = 0; i < wanted.size(); ++i) {
    for (const auto& [column, cell] : wanted[i]) {
      const auto found = lines[i].find(column);
      ASSERT_NE(found, lines[i].end()) << result << " " << column;
      EXPECT_TRUE(AreAlike(found->second, cell))
          << result << " row " << i + 1 << " " << column << " " << found->second << " " << cell;
    }
  }
}

TEST(CalcReport, CsvAgreesWithTheComputedCasesByColumnName) {
  for (const std::string name : {"closed-1", "closed-17", "closed-45", "closed-95"}) {
    ExpectCase(name + ".PCK", name + "-method1.csv", {});
    ExpectCase(name + ".PCK", name + "-method2.csv", {"--method", "2"});
  }
  ExpectCase("closed-17-fixed.PCK", "closed-17-fixed.csv", {"--fixed"});
}

class CalcReportOf : public testing::Test {
 protected:
  const CliBench bench_;
  const std::string study_ = bench_.Put("Κτίριο Α.PCK", SoundNetwork());
};

TEST_F(CalcReportOf, TableHasAllThatAnEngineerWants) {
  const Told told = bench_.Run({"calc", study_});
  EXPECT_EQ(told.code, 0);
  EXPECT_EQ(told.err, "");
  std::string out = told.out;
  out.replace(out.find(study_), study_.size(), "STUDY");
  EXPECT_EQ(out, Golden("calc.txt"));
}

TEST_F(CalcReportOf, PascalsComeBesideWaterGauge) {
  EXPECT_THAT(bench_.Run({"calc", study_, "--units", "pa"}).out,
              testing::AllOf(HasSubstr("mm w.g.  │  Pa/m"), HasSubstr("kPa")));
  EXPECT_THAT(
      bench_.Run({"calc", study_, "--units", "pa", "--format", "csv"}).out,
      HasSubstr("Critical,FrictionRate_Pa_m,TotalDrop_kPa,AvaiPres_kPa,DP_kPa,SomaDrop_kPa\n"));
  EXPECT_THAT(bench_.Run({"calc", study_}).out, Not(HasSubstr("Pa")));
}

TEST_F(CalcReportOf, GreekSeparatorsOpenAsColumnsInAGreekSpreadsheet) {
  const Told told = bench_.Run({"calc", study_, "--format", "csv", "--separators", ",."});
  EXPECT_THAT(told.out, StartsWith(std::string(kByteOrderMark) + "RecordNumber;Name;WaterFlow;"));
  EXPECT_THAT(told.out, HasSubstr("\n2;  1/2;300;"));
  EXPECT_THAT(told.out, HasSubstr(";0,8;"));  // PAR
  EXPECT_THAT(told.out, Not(HasSubstr("0.8")));
  EXPECT_THAT(bench_.Run({"calc", study_, "--separators", ".,"}).out, HasSubstr(" 0.80 m³/h"));
}

TEST_F(CalcReportOf, JsonTellsUnitsInItsKeys) {
  const Told told = bench_.Run({"calc", study_, "--format", "json", "--units", "pa"});
  const auto json = nlohmann::json::parse(told.out);
  EXPECT_EQ(json.at("study"), study_);
  EXPECT_EQ(json.at("title"), "Δίκτυο Δοκιμής");
  EXPECT_EQ(json.at("pump").at("flow_m3h"), 0.8);
  EXPECT_NEAR(json.at("critical_drop_kpa").get<double>(),
              json.at("critical_drop_mm_wg").get<double>() * 9.80665e-3, 1e-4);
  EXPECT_EQ(json.at("fixed_diameters"), false);
  EXPECT_EQ(json.at("fluid_assumed"), false);
  EXPECT_EQ(json.at("critical_branch"), (std::vector<int>{1, 3, 5, 6}));
  EXPECT_EQ(json.at("critical_nodes"), "ANT - 1 - 3 - 4 - ANT");
  ASSERT_EQ(json.at("sections").size(), 6U);
  const auto& emitter = json.at("sections").at(2);
  EXPECT_EQ(emitter.at("name"), "1/3");
  EXPECT_EQ(emitter.at("flow_lh"), 500.0);
  EXPECT_EQ(emitter.at("fittings").at("tees_branch"), 1);
  EXPECT_NEAR(emitter.at("drop_kpa").get<double>(),
              emitter.at("drop_mm_wg").get<double>() * 9.80665e-3, 1e-4);
  const double head = json.at("critical_drop_mm_wg");
  EXPECT_NEAR(json.at("pump").at("head_m_wg").get<double>() * 1000.0, head, 1e-2);
}

TEST_F(CalcReportOf, HowTheResultsCameAboutIsTold) {
  const std::string sample = std::string(KALVO_SAMPLES_DIR) + "/fancoil.PCK";
  EXPECT_THAT(Kalvo({"calc", sample, "--method", "2"}).out,
              testing::AllOf(HasSubstr("-130.632,10"), HasSubstr("\nΑρνητική πτώση : "),
                             HasSubstr(" σχεδιασμού : 2-8, 10-17, 23-31, 33, 37, 39,")));
  const std::string saved = bench_.Path("saved.PCK");
  ASSERT_EQ(bench_.Run({"calc", study_, "--save", saved}).code, 0);
  EXPECT_THAT(bench_.Run({"calc", saved}).out,
              Not(testing::AnyOf(HasSubstr("--fixed"), HasSubstr("Αρνητική"))));
  EXPECT_THAT(bench_.Run({"calc", saved, "--fixed"}).out, HasSubstr("\nΔιάμετροι "));
  EXPECT_THAT(bench_.Run({"calc", saved, "--fixed", "--format", "json"}).out,
              HasSubstr("\"fixed_diameters\": true"));
}

TEST_F(CalcReportOf, ManyStudiesGoThroughInOneRun) {
  const std::string open = CasesFolder() / "open-3.PCA";
  const std::string none = bench_.Path("none.PCK");
  Told told = bench_.Run({"calc", study_, none, study_, "--format", "csv"});
  EXPECT_EQ(told.code, 3);
  EXPECT_THAT(told.out, StartsWith(std::string(kByteOrderMark) + "Study,RecordNumber,"));
  EXPECT_THAT(told.out, HasSubstr("\n" + study_ + ",6,  4/ANT,"));
  EXPECT_EQ(Split(told.out, '\n').size(), 1U + 6U + 6U);
  EXPECT_THAT(told.err, StartsWith(none + " :\n !!... ΠΡΟΣΟΧΗ ...!! \n"));

  told = bench_.Run({"calc", none, open, study_, "--format", "json"});
  EXPECT_EQ(told.code, 3);
  const auto json = nlohmann::json::parse(told.out);
  ASSERT_EQ(json.size(), 2U);
  EXPECT_EQ(json.at(0).at("system"), "open");
  EXPECT_EQ(json.at(1).at("study"), study_);
  EXPECT_EQ(bench_.Run({"calc", none, none, "--format", "json"}).out, "[]\n");
}

TEST_F(CalcReportOf, TerminalGetsColourProgressAndItsWidth) {
  const std::vector<std::string> arguments = {"calc", study_,      study_,          "--units",
                                              "pa",   "--library", bench_.library()};
  const Told told = KalvoOnTerminal(arguments, 60);
  EXPECT_THAT(told.out, HasSubstr("\x1b[1;35m*   1"));
  EXPECT_THAT(told.err, StartsWith("\r\x1b[K1/2  " + study_ + "\r\x1b[K\r\x1b[K2/2  "));
  for (const std::string& line : Split(told.out, '\n')) {
    const std::size_t painted = line.starts_with("\x1b") ? 11 : 0;
    EXPECT_LE(CountCharacters(line), 60U + painted) << line;
  }
  // Every column is told all the same.
  EXPECT_THAT(told.out, testing::AllOf(HasSubstr("Μήκος"), HasSubstr("Pa/m"), HasSubstr("kPa")));
  EXPECT_EQ(
      KalvoOnTerminal({"calc", study_, study_, "--quiet", "--library", bench_.library()}, 60).err,
      "");
  EXPECT_THAT(Kalvo(arguments).out, Not(HasSubstr("\x1b")));
}

}  // namespace
}  // namespace kalvo
