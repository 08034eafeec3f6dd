#include "results/result_table.h"

#include <cmath>

#include "results/result_notes.h"
#include "study/numeric_text.h"
#include "study/pressure_units.h"

namespace kalvo {
namespace {

enum Column { kName, kLength, kDiameter, kFlow, kVelocity, kDrop, kPressure };

std::string Kilopascal(float mm, Separators separators) {
  return FormatPattern(KiloPascalOf(mm), pattern::kTwoDecimals, separators) + " kPa";
}

std::string DiameterTip(const SectionRow& row, const SectionRow* first, Separators separators) {
  const float inner = std::fabs(row.InDiameter);
  std::string tip =
      "Εσωτερική διάμετρος " + FormatPattern(inner, pattern::kTwoDecimals, separators) + " mm";
  if (row.InDiameter < 0) {
    tip += ", αλλαγμένη";
    if (first != nullptr && first->NomiDiam.Trimmed() != row.NomiDiam.Trimmed()) {
      tip += ", ήταν " + first->NomiDiam.Utf8();
    }
  }
  return tip;
}

}  // namespace

std::vector<GridColumn> ResultColumns() {
  return {{"ΟΝΟΜΑ-\nΣΙΑ\nΤΜΗΜΑ-\nΤΟΣ", 8, false},
          {"ΜΗΚΟΣ\nΤΜΗΜΑ-\nΤΟΣ\n[m]", 7},
          {.header = "ΟΝΟΜΑΣΤΙΚΗ\nΔΙΑΜΕΤΡΟΣ", .width = 12, .closes_family = true, .chips = true},
          {"ΠΑΡΟΧΗ\n[Lit/h]", 10},
          {.header = "ΤΑΧΥΤΗ-\nΤΑ\n[m/sec]", .width = 8, .closes_family = true},
          {"ΠΤΩΣΗ\nΠΙΕΣΗΣ\nmm w.g.]", 9},
          {"ΔΙΑΘΕΣΙΜΗ\nΠΙΕΣΗ\n[mm w.g.]", 10}};
}

void FillResultRow(Grid& grid, int at, const SectionRow& row, const SectionRow* first,
                   const std::vector<std::string>& notes, Separators separators) {
  const auto set = [&](Column column, float value, std::string tip) {
    grid.Set(at, column,
             {FormatPattern(value, pattern::kOneDecimal, separators), Tone::kPlain, value,
              std::move(tip)});
  };
  const float pressure = std::fabs(row.AvaiPres);
  const std::string rate =
      FormatPattern(PascalOf(row.FrictionRate), pattern::kOneDecimal, separators) + " Pa/m";
  grid.Set(at, kName, {row.Name.Utf8(), Tone::kPlain, {}, JoinLines(notes)});
  set(kLength, row.Length, {});
  grid.Set(at, kDiameter,
           {row.NomiDiam.Utf8(), row.InDiameter < 0 ? Tone::kImposed : Tone::kCalculated,
            std::fabs(row.InDiameter), DiameterTip(row, first, separators)});
  set(kFlow, row.WaterFlow, {});
  set(kVelocity, row.Velocity,
      FormatPattern(row.Velocity, pattern::kTwoDecimals, separators) + " m/sec");
  set(kDrop, row.TotalDrop, Kilopascal(row.TotalDrop, separators) + ", τριβή " + rate);
  set(kPressure, pressure, Kilopascal(pressure, separators));
}

void ShowReplacedDiameter(Grid& grid, int at, const SectionRow& row, bool waits) {
  grid.Set(at, kDiameter,
           {row.NomiDiam.Utf8(), waits ? Tone::kImposed : Tone::kCalculated,
            std::fabs(row.InDiameter), waits ? "αναμένει υπολογισμό" : ""});
}

}  // namespace kalvo
