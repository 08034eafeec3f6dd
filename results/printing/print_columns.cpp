#include "results/printing/print_columns.h"

#include <algorithm>

#include "study/pipe_list.h"

namespace kalvo {
namespace {

constexpr int kClientWidth = 78;
constexpr int kMaterialWidth = 94;  // the field's word behind its label
constexpr int kNomiDiamWidth = 17;  // with its brackets

PrintColumn ColumnOf(std::string_view name, std::int16_t /*value*/) {
  return {name, PrintType::kInteger, 0};
}
PrintColumn ColumnOf(std::string_view name, float /*value*/) {
  return {name, PrintType::kSingle, 0};
}
template <std::size_t N>
PrintColumn ColumnOf(std::string_view name, const FixedText<N>& /*value*/) {
  return {name, PrintType::kText, static_cast<int>(N)};
}

PrintValue ValueOf(std::int16_t value) { return std::int32_t{value}; }
PrintValue ValueOf(float value) { return value; }
template <std::size_t N>
PrintValue ValueOf(const FixedText<N>& value) {
  return FromCodePage(value.bytes());
}

template <typename Row>
std::vector<PrintColumn> ColumnsOf() {
  const Row row;
  std::vector<PrintColumn> columns;
  ForEachField(row, [&columns](std::string_view name, const auto& value) {
    columns.push_back(ColumnOf(name, value));
  });
  return columns;
}

template <typename Row>
PrintLine ValuesOf(const Row& row) {
  PrintLine line;
  ForEachField(row, [&line](std::string_view /*name*/, const auto& value) {
    line.push_back(ValueOf(value));
  });
  return line;
}

std::size_t PlaceOf(const std::vector<PrintColumn>& columns, std::string_view name) {
  return static_cast<std::size_t>(std::ranges::find(columns, name, &PrintColumn::name) -
                                  columns.begin());
}

// In a quantities' record the material is the fifth field, in print the second.
template <typename Value>
void MoveMaterial(std::vector<Value>& values) {
  std::rotate(values.begin() + 1, values.begin() + 4, values.begin() + 5);
}

// At most `most` characters.
std::string Shortened(std::string_view utf8, int most) {
  std::string text;
  for (int i = 0; i < most && !utf8.empty(); ++i) AppendUtf8(text, TakeCharacter(utf8));
  return text;
}

PrintValue DesignerValue(std::string_view designer) {
  if (Trim(designer).empty()) return {};
  return Shortened(designer, kClientWidth);
}

PrintValue DiameterValue(const SectionRow& row) {
  if (row.InDiameter < 0.0F) return "(" + row.NomiDiam.Utf8() + ")";
  if (row.InDiameter > 0.0F) return ValueOf(row.NomiDiam);
  return {};
}

}  // namespace

std::vector<PrintColumn> SectionPrintColumns() {
  std::vector<PrintColumn> columns = ColumnsOf<SectionRow>();
  columns[PlaceOf(columns, "Client")].width = kClientWidth;
  columns[PlaceOf(columns, "Material")].width = kMaterialWidth;
  columns[PlaceOf(columns, "NomiDiam")].width = kNomiDiamWidth;
  return columns;
}

std::vector<PrintColumn> QuantityPrintColumns() {
  std::vector<PrintColumn> columns = ColumnsOf<StatRow>();
  MoveMaterial(columns);
  return columns;
}

PrintTable PrintedSections(std::span<const SectionRow> rows, std::string_view designer) {
  PrintTable table{SectionPrintColumns(), {}};
  const std::size_t client = PlaceOf(table.columns, "Client");
  const std::size_t material = PlaceOf(table.columns, "Material");
  const std::size_t diameter = PlaceOf(table.columns, "NomiDiam");
  table.lines.reserve(rows.size());
  for (const SectionRow& row : rows) {
    PrintLine& line = table.lines.emplace_back(ValuesOf(row));
    line[client] = DesignerValue(designer);
    line[material] = MaterialLine(row.Material.Utf8());
    line[diameter] = DiameterValue(row);
  }
  return table;
}

PrintTable PrintedQuantities(std::span<const StatRow> lines, std::span<const PipeRow> pipes,
                             std::string_view designer) {
  PrintTable table{QuantityPrintColumns(), {}};
  for (std::size_t i = 0; i < lines.size() && i < pipes.size(); ++i) {
    StatRow row = lines[i];
    row.PipeMaterial = FixedText<78>::FromUtf8(MaterialLine(pipes[i].material.Utf8()));
    row.Client = FixedText<51>::FromUtf8(designer);
    row.Thema = pipes[i].title;
    row.InDiameter = pipes[i].inner_diameter;
    MoveMaterial(table.lines.emplace_back(ValuesOf(row)));
  }
  return table;
}

}  // namespace kalvo
