// Tables, coefficients and examples of the manual are those of the program.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>
#include <vector>

#include "engine/calculation_command.h"
#include "engine/driver.h"
#include "engine/hydraulics.h"
#include "entry/sections/sheet_columns.h"
#include "entry/tees/tee_cases.h"
#include "results/result_table.h"
#include "tests/shell/manual_reader.h"

namespace kalvo {
namespace {

constexpr Separators kManualSeparators{',', '.'};
constexpr const char* kTheCalculation = "06-calculation.md";

double FigureOf(const std::string& text) { return ParseNumber(text, kManualSeparators); }

double FigureIn(const Markdown& chapter, std::string_view first_cell) {
  return FigureOf(chapter.Value(first_cell));
}

std::vector<std::string> ColumnOf(const std::vector<CsvLine>& lines, const std::string& head) {
  std::vector<std::string> cells;
  cells.reserve(lines.size());
  for (const CsvLine& line : lines) cells.push_back(line.at(head));
  return cells;
}

SectionRow ExampleRow(const Markdown& example) {
  SectionRow row;
  row.WaterFlow = static_cast<float>(FigureIn(example, "Παροχή Q [Lit/h]"));
  row.InDiameter = static_cast<float>(FigureIn(example, "Εσωτερική διάμετρος D [mm]"));
  row.Length = static_cast<float>(FigureIn(example, "Μήκος [m]"));
  row.SomaDrop = static_cast<float>(FigureIn(example, "Πτώση σώματος [mm w.g.]"));
  row.AnglePOP = static_cast<float>(FigureIn(example, "Γωνίες"));
  row.GateValve = ToInt16(FigureIn(example, "Βάννες"));
  row.StrSwitch = ToInt16(FigureIn(example, "Ευθείς διακόπτες"));
  row.DiaTee = ToInt16(FigureIn(example, "Ταυ, διακλάδωση"));
  row.SymboTee = ToInt16(FigureIn(example, "Ταυ, συμβολή"));
  return row;
}

FlowConditions ExampleConditions(const Markdown& example) {
  return {ToSingle(FigureIn(example, "Ιξώδες ν [cSt]") / 1e6), 1000.0F,
          ToSingle(FigureIn(example, "Τραχύτητα k [mm]"))};
}

// The delivered sample as the calculation command leaves it.
std::vector<SectionRow> CalculatedRows(const char* sample, Method method = Method::kFlowOnly) {
  CalculatedCase made(std::filesystem::path(KALVO_SAMPLES_DIR) / sample, KALVO_LIBRARY_DIR);
  EXPECT_EQ(Calculate(made.bench, method), CommandEnd::kCalculated);
  return made.Rows();
}

const SectionRow& RowNamed(const std::vector<SectionRow>& rows, std::string_view name) {
  const auto found = std::ranges::find_if(
      rows, [name](const SectionRow& row) { return Trim(row.Name.Utf8()) == name; });
  EXPECT_NE(found, rows.end()) << name;
  return found == rows.end() ? rows.front() : *found;
}

// The bands of one table: where each begins, and its coefficients.
void ExpectBands(const std::string& head, MaterialClass material) {
  const std::vector<std::pair<const char*, double FittingCoefficients::*>> kinds = {
      {"Γωνίες", &FittingCoefficients::AnglePOP},
      {"Καμπύλες 90°", &FittingCoefficients::Elbow90},
      {"Βάννες", &FittingCoefficients::GateValve},
      {"Ευθείς διακόπτες", &FittingCoefficients::StrSwitch},
      {"Γωνιακοί διακόπτες", &FittingCoefficients::AngSwitch}};
  const std::vector<CsvLine> lines = ManualChapter(kTheCalculation).Table(head);
  ASSERT_EQ(lines.size(), 5U);
  double begins = 1;
  for (const CsvLine& line : lines) {
    const std::string& band = line.at(head);
    const double begun = begins;
    const bool first = band.starts_with("κάτω από ");
    const double limit = FigureOf(band.substr(first ? band.rfind(' ') : 0));
    if (!first) {
      EXPECT_EQ(FigureOf(band.substr(0, band.find(' '))), begins) << band;
    }
    for (const auto& [kind, zeta] : kinds) {
      const double expected = FigureOf(line.at(kind));
      EXPECT_EQ(CoefficientsFor(material, begins).*zeta, expected) << band << " " << kind;
    }
    const bool last = &line == &lines.back();
    begins = first ? limit : FigureOf(band.substr(band.rfind(' ')));
    if (!last) {
      EXPECT_EQ(&CoefficientsFor(material, begins - 0.1), &CoefficientsFor(material, begun))
          << band;
      EXPECT_NE(&CoefficientsFor(material, begins), &CoefficientsFor(material, begun)) << band;
    }
  }
}

TEST(ManualFigures, CoefficientsOfFittingsAreThoseOfTheirBands) {
  ExpectBands("D [mm], χάλυβας", MaterialClass::kSteelPipe);
  ExpectBands("D [mm], άλλα υλικά", MaterialClass::kOtherPipe);
  const std::vector<CsvLine> fixed = ManualChapter(kTheCalculation).Table("εξάρτημα");
  std::size_t found = 0;
  for (const Fitting& fitting : kFittings) {
    if (!std::holds_alternative<double>(fitting.zeta)) continue;
    ASSERT_LT(found, fixed.size());
    EXPECT_EQ(fixed[found].at("εξάρτημα"), fitting.name);
    EXPECT_EQ(FigureOf(fixed[found++].at("ζ")), std::get<double>(fitting.zeta)) << fitting.name;
  }
  EXPECT_EQ(found, fixed.size());
}

TEST(ManualFigures, ViscosityOfWaterIsThatOfTheTable) {
  const auto lines = ManualChapter(kTheCalculation).Table("θερμοκρασία °C");
  EXPECT_EQ(lines.size(), 11U);
  for (const CsvLine& line : lines) {
    const float temperature = ToSingle(FigureOf(line.at("θερμοκρασία °C")));
    EXPECT_FLOAT_EQ(WaterViscosity(temperature) * 1e6F,
                    ToSingle(FigureOf(line.at("ν [10⁻⁶ m²/s = cSt]"))))
        << temperature;
  }
}

TEST(ManualFigures, TheSectionOfTheExampleHasItsDrop) {
  const Markdown example = ManualChapter(kTheCalculation).Parts().at("Παράδειγμα ενός τμήματος");
  SectionRow row = ExampleRow(example);
  FillHydraulics(row, ExampleConditions(example), MaterialClass::kSteelPipe, row.InDiameter);
  const auto lengths = LengthsOf(row, MaterialClass::kSteelPipe, row.InDiameter, row.FrictionRate);
  const std::vector<std::pair<const char*, double>> steps = {
      {"v [m/s]", row.Velocity},
      {"Re", row.Reynolds},
      {"λ", row.Lamda},
      {"R [mm w.g./m]", row.FrictionRate},
      {"Σζ", SumOfZeta(row, MaterialClass::kSteelPipe, row.InDiameter)},
      {"L1 [m]", lengths.pipe_and_fittings},
      {"Πτώση τμήματος [mm w.g.]", row.TotalDrop}};
  for (const auto& [step, value] : steps) {
    const std::string text = example.Value(step);
    const auto comma = text.find(',');
    const int decimals = comma == std::string::npos ? 0 : static_cast<int>(text.size() - comma - 1);
    EXPECT_NEAR(value, FigureOf(text), 0.500001 * std::pow(10.0, -decimals)) << step;
  }
}

TEST(ManualFigures, TheSpareOfAnEmitterIsThatOfTheFloor) {
  const Markdown part = ManualChapter(kTheCalculation).Parts().at("Η εξισορρόπηση");
  const auto rows = CalculatedRows("fancoil.PCK");
  const float pressure = RowNamed(rows, "2/502").AvaiPres;
  const float first = RowNamed(rows, "502/501").TotalDrop;
  const float last = RowNamed(rows, "501/ANT").TotalDrop;
  EXPECT_FLOAT_EQ(pressure, ToSingle(FigureIn(part, "διαθέσιμη πίεση του 2/502")));
  EXPECT_FLOAT_EQ(first, ToSingle(FigureIn(part, "πτώση του 502/501")));
  EXPECT_FLOAT_EQ(last, ToSingle(FigureIn(part, "πτώση του 501/ANT")));
  EXPECT_NEAR(pressure - first - last, FigureIn(part, "περίσσευμα"), 0.001);
}

TEST(ManualFigures, TheHeadOfTheHouseIsTheSumOfItsTable) {
  const Markdown part = ManualChapter(kTheCalculation).Parts().at("Το ανοικτό σύστημα");
  const auto rows = CalculatedRows("house.PCA");
  double sum = 0;
  for (const auto& cells : part.Lines()) {
    if (cells.size() == 2 && cells.front() != "μανομετρικό") sum += FigureOf(cells[1]);
  }
  for (const int number : {1, 9, 12}) {
    EXPECT_FLOAT_EQ(rows.at(static_cast<std::size_t>(number) - 1).TotalDrop,
                    ToSingle(FigureIn(part, "πτώση του " + std::to_string(number))));
  }
  EXPECT_NEAR(sum, FigureIn(part, "μανομετρικό"), 0.001);
  EXPECT_NEAR(rows.front().DP, FigureIn(part, "μανομετρικό"), 0.005);
}

// What the second method announces, and what its pipes need.
TEST(ManualFigures, TheSecondMethodNeedsThePumpThatItsTableSays) {
  const Markdown part =
      ManualChapter(kTheCalculation).Parts().at("Ο 2ος τρόπος στο κλειστό σύστημα");
  CalculatedCase floor(std::filesystem::path(KALVO_SAMPLES_DIR) / "fancoil.PCK", KALVO_LIBRARY_DIR);
  for (const Method method : {Method::kFlowOnly, Method::kFlowAndPressure}) {
    ASSERT_EQ(Calculate(floor.bench, method), CommandEnd::kCalculated);
    EXPECT_NEAR(floor.study.PumpHead, FigureIn(part, "1ος τρόπος, και 2ος όπως τον δείχνει"),
                0.005);
  }
  ASSERT_EQ(RunKeepingPipes(floor.bench), RunEnd::kCalculated);
  EXPECT_NEAR(floor.study.PumpHead, FigureIn(part, "στις διαμέτρους του 2ου τρόπου"), 0.005);
}

// The second method leaves an open network as it is, as the chapter says.
TEST(ManualFigures, TheSecondMethodKeepsThePipesOfTheHouse) {
  const auto rows = CalculatedRows("house.PCA", Method::kFlowAndPressure);
  const auto first = CalculatedRows("house.PCA");
  ASSERT_EQ(rows.size(), first.size());
  for (std::size_t i = 0; i < rows.size(); ++i) {
    EXPECT_EQ(rows[i].NomiDiam, first[i].NomiDiam) << i + 1;
  }
}

TEST(ManualFigures, EveryLetterAddsWhatTheTableOfTeesSays) {
  const auto lines = ManualChapter("04-sections.md").Table("γράμμα");
  ASSERT_EQ(lines.size(), TeeCases().size());
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const TeeCase& tee = TeeCases()[i];
    EXPECT_EQ(lines[i].at("γράμμα"), std::string(1, tee.letter));
    EXPECT_EQ(lines[i].at("προσθέτει"), EffectText(tee, TeeTable::kSheet)) << tee.letter;
    EXPECT_EQ(lines[i].at("σκέλος").find("έρχεται") != std::string::npos, tee.in) << tee.letter;
  }
}

TEST(ManualFigures, ColumnsOfSheetAndResultsAreAllExplained) {
  std::vector<std::string> sheet;
  for (const SheetColumn& column : SheetColumns()) {
    for (const SystemKind kind : {SystemKind::kClosed, SystemKind::kOpen}) {
      const std::string head = HeadRead(column.Head(kind));
      if (std::ranges::count(sheet, head) == 0) sheet.push_back(head);
    }
  }
  EXPECT_EQ(ColumnOf(ManualChapter("04-sections.md").Table("στήλη"), "στήλη"), sheet);
  std::vector<std::string> results;
  for (const GridColumn& column : ResultColumns()) results.push_back(HeadRead(column.header));
  EXPECT_EQ(ColumnOf(ManualChapter("07-results.md").Table("στήλη"), "στήλη"), results);
}

}  // namespace
}  // namespace kalvo
