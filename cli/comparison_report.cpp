#include "cli/comparison_report.h"

#include <nlohmann/json.hpp>

#include "cli/csv_cell.h"
#include "cli/number_text.h"
#include "cli/text_table.h"
#include "study/rounding.h"

namespace kalvo {

namespace {

using OrderedJson = nlohmann::ordered_json;

constexpr double kLitres = 1000.0;

template <typename Value, typename Text>
std::vector<std::string> CellsOf(std::string head, const BeforeAfter<Value>& pair, Text&& text) {
  return {std::move(head), text(pair.before), text(pair.after)};
}

// Where nothing differs the new value says it all.
template <typename Value, typename Text>
void AppendPair(std::vector<std::string>& cells, const BeforeAfter<Value>& pair, Text&& text) {
  cells.push_back(pair.Differs() ? text(pair.before) : "");
  cells.push_back(text(pair.after));
}

template <typename Value>
OrderedJson PairJson(const BeforeAfter<Value>& pair) {
  return {{"before", pair.before}, {"after", pair.after}};
}

OrderedJson PairJson(const BeforeAfter<float>& pair) {
  return {{"before", PlainValue(pair.before)}, {"after", PlainValue(pair.after)}};
}

// Whole litres, as the table has them, would hide what a short section comes to.
BeforeAfter<double> LitresOf(const BeforeAfter<double>& cubic_metres) {
  return {RoundTo(cubic_metres.before * kLitres, 3), RoundTo(cubic_metres.after * kLitres, 3)};
}

// As in the other reports.
BeforeAfter<float> HeadOf(const ResultComparison& comparison) {
  return {static_cast<float>(comparison.head.before), static_cast<float>(comparison.head.after)};
}

OrderedJson SectionJson(const ChangedSection& section) {
  return {{"number", section.number},
          {"name", section.name},
          {"nominal_diameter", PairJson(section.diameter)},
          {"velocity_m_s", PairJson(section.velocity)},
          {"drop_mm_wg", PairJson(section.drop)},
          {"available_mm_wg", PairJson(section.pressure)}};
}

void PrintTotals(const Console& console, const ResultComparison& comparison, bool closed) {
  const auto pattern = [&console](std::string_view known) {
    return
        [&console, known](auto value) { return FormatPattern(value, known, console.separators); };
  };
  TextTable totals({{"", "", true}, {"πριν", ""}, {"μετά", ""}});
  totals.Add(CellsOf("Παροχή αντλίας [m³/h]", comparison.flow, pattern(pattern::kTwoDecimals)));
  totals.Add(CellsOf("Μανομετρικό ύψος [m w.g.]", comparison.head, pattern(pattern::kTwoDecimals)));
  if (closed) {
    totals.Add(CellsOf("Περιεκτικότητα [Lit]", LitresOf(comparison.fluid_content),
                       pattern(pattern::kOneDecimal)));
  }
  totals.Print(console);
  if (comparison.critical_branch.Differs()) {  // chains as long as the network
    console.out << "Δυσμενέστερος κλάδος πριν : " << comparison.critical_branch.before << '\n'
                << "Δυσμενέστερος κλάδος μετά : " << comparison.critical_branch.after << '\n';
  }
}

}  // namespace

void PrintComparison(const Console& console, const ResultComparison& comparison, bool closed) {
  PrintTotals(console, comparison, closed);
  console.out << '\n';
  if (comparison.sections.empty()) {
    console.out << "Σε κανένα τμήμα δεν αλλάζει κάτι.\n";
    return;
  }
  const auto number = [&console](float value) {
    return FormatPattern(value, pattern::kTwoDecimals, console.separators);
  };
  const auto as_it_is = [](const std::string& text) { return text; };
  TextTable table({{"α/α", ""},
                   {"τμήμα", "", true},
                   {"διάμετρος", "πριν", true, true},
                   {"", "μετά", true},
                   {"ταχύτητα", "m/s πριν", false, true},
                   {"", "μετά"},
                   {"πτώση", "mm w.g. πριν", false, true},
                   {"", "μετά"},
                   {"πίεση", "mm w.g. πριν", false, true},
                   {"", "μετά"}},
                  2);
  for (const ChangedSection& section : comparison.sections) {
    std::vector<std::string> cells = {std::to_string(section.number), Printable(section.name)};
    AppendPair(cells, section.diameter, as_it_is);
    AppendPair(cells, section.velocity, number);
    AppendPair(cells, section.drop, number);
    AppendPair(cells, section.pressure, number);
    table.Add(std::move(cells), section.diameter.Differs());
  }
  table.Print(console);
}

void PrintComparisonCsv(const Console& console, const ResultComparison& comparison) {
  const char end = CellEnd(console.csv_separators);
  console.out << kUtf8Mark << "RecordNumber" << end << "Name";
  for (const char* column : {"NomiDiam", "Velocity", "TotalDrop", "AvaiPres"}) {
    console.out << end << column << "_before" << end << column << "_after";
  }
  console.out << '\n';
  for (const ChangedSection& section : comparison.sections) {
    console.out << section.number << end << CsvText(section.name, end) << end
                << CsvText(section.diameter.before, end) << end
                << CsvText(section.diameter.after, end);
    for (const auto& pair : {section.velocity, section.drop, section.pressure}) {
      console.out << end << CsvNumber(pair.before, console.csv_separators.decimal) << end
                  << CsvNumber(pair.after, console.csv_separators.decimal);
    }
    console.out << '\n';
  }
}

std::string ComparisonJson(const std::string& file, const ResultComparison& comparison,
                           bool closed) {
  OrderedJson json = {
      {"study", file},
      {"pump",
       {{"flow_m3h", PairJson(comparison.flow)}, {"head_m_wg", PairJson(HeadOf(comparison))}}},
      {"critical_branch", PairJson(comparison.critical_branch)}};
  if (closed) json["water_content_l"] = PairJson(LitresOf(comparison.fluid_content));
  json["sections"] = OrderedJson::array();
  for (const ChangedSection& section : comparison.sections) {
    json["sections"].push_back(SectionJson(section));
  }
  return json.dump(2);
}

}  // namespace kalvo
