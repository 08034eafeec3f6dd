#include "cli/report_csv.h"

#include <algorithm>
#include <array>

#include "cli/csv_cell.h"
#include "engine/fittings.h"
#include "results/quantities.h"
#include "study/pressure_units.h"

namespace kalvo {

namespace {

// Fields of the row before and behind the fittings' counts.
constexpr auto kColumnsBefore = std::to_array<std::string_view>(
    {"RecordNumber", "Name",     "WaterFlow",    "NomiDiam",   "InDiameter", "Area",    "Velocity",
     "Reynolds",     "Lamda",    "FrictionRate", "TotalDrop",  "AvaiPres",   "PAR",     "DP",
     "INILAMDA",     "MeanTemp", "MeanVel",      "FileNumber", "TOT",        "Outlets", "KLEIS",
     "ANOIK",        "Auxi",     "SomaDrop",     "HeightDiff", "Length"});
constexpr auto kColumnsBehind = std::to_array<std::string_view>({"OtherDrop_mm", "OtherDrop_m"});

using Columns =
    std::array<std::string_view, kColumnsBefore.size() + kFittings.size() + kColumnsBehind.size()>;

constexpr Columns AllColumns() {
  Columns columns;
  auto* at = std::copy(kColumnsBefore.begin(), kColumnsBefore.end(), columns.begin());
  for (const Fitting& fitting : kFittings) *at++ = fitting.column;
  std::copy(kColumnsBehind.begin(), kColumnsBehind.end(), at);
  return columns;
}

// Fields of the row that make up a line, in this order.
constexpr Columns kColumns = AllColumns();

// Column of each field of the row, kNoColumn for those that are left out.
constexpr std::size_t kNoColumn = kColumns.size();

std::vector<std::size_t> ColumnsOfFields() {
  std::vector<std::size_t> columns;
  SectionRow row;
  ForEachField(row, [&columns](std::string_view name, const auto& /*value*/) {
    columns.push_back(static_cast<std::size_t>(std::find(kColumns.begin(), kColumns.end(), name) -
                                               kColumns.begin()));
  });
  return columns;
}

// Texts beside the nominal name say the same of every size.
template <typename Visitor>
void ForEachQuantity(const StatRow& pipe, Visitor&& visit) {
  ForEachField(pipe, [&visit](std::string_view name, const auto& value) {
    using Value = std::decay_t<decltype(value)>;
    if constexpr (std::is_arithmetic_v<Value> || std::is_same_v<Value, FixedText<12>>) {
      visit(name, value);
    }
  });
}

std::string QuantityCell(std::int16_t value, Separators /*separators*/) {
  return std::to_string(value);
}
std::string QuantityCell(float value, Separators separators) {
  return CsvNumber(value, separators.decimal);
}
std::string QuantityCell(const FixedText<12>& value, Separators separators) {
  return CsvText(value.Utf8(), CellEnd(separators));
}

// A line's cells by their column, each field of the row put in by its kind.
class LineCells {
 public:
  LineCells(char decimal, char cell_end) : decimal_(decimal), cell_end_(cell_end) {}

  void Put(std::size_t column, std::int16_t value) { cells_[column] = std::to_string(value); }

  void Put(std::size_t column, float value) { cells_[column] = CsvNumber(value, decimal_); }

  // A name keeps its blanks in front.
  template <std::size_t N>
  void Put(std::size_t column, const FixedText<N>& value) {
    const std::string_view bytes = value.bytes();
    cells_[column] =
        CsvText(FromCodePage(bytes.substr(0, bytes.find_last_not_of(' ') + 1)), cell_end_);
  }

  void AppendTo(std::string& line) const {
    for (const std::string& cell : cells_) {
      line += cell;
      line += cell_end_;
    }
  }

 private:
  char decimal_;
  char cell_end_;
  std::array<std::string, kColumns.size()> cells_;
};

}  // namespace

CsvReport::CsvReport(const Console& console, PressureUnits units, bool with_file)
    : console_(console),
      pascal_(units == PressureUnits::kPascal),
      with_file_(with_file),
      separators_(console.csv_separators) {}

void CsvReport::PrintHead() const {
  const char end = CellEnd(separators_);
  console_.out << kUtf8Mark;
  if (with_file_) {
    console_.out << "Study" << end;
  }
  for (const std::string_view column : kColumns) {
    console_.out << column << end;
  }
  console_.out << "Critical";
  if (pascal_) {
    for (const char* column :
         {"FrictionRate_Pa_m", "TotalDrop_kPa", "AvaiPres_kPa", "DP_kPa", "SomaDrop_kPa"}) {
      console_.out << end << column;
    }
  }
  console_.out << '\n';
}

void CsvReport::Print(const StudyReport& report) const {
  const char end = CellEnd(separators_);
  const std::vector<std::size_t> columns = ColumnsOfFields();
  const std::string first_cell = with_file_ ? CsvText(report.file, end) + end : "";
  LineCells cells(separators_.decimal, end);
  std::string line;
  for (const SectionRow& row : report.rows) {
    std::size_t field = 0;
    ForEachField(row, [&](std::string_view /*name*/, const auto& value) {
      if (const std::size_t column = columns[field++]; column != kNoColumn) {
        cells.Put(column, value);
      }
    });
    line = first_cell;
    cells.AppendTo(line);
    line += report.IsCritical(row.RecordNumber) ? '1' : '0';
    if (pascal_) {
      line += end + FormatNumber(static_cast<float>(PascalOf(row.FrictionRate)), separators_);
      const float outlet = report.kind == SystemKind::kOpen ? row.SomaDrop * 1000.0F : row.SomaDrop;
      for (const float mm_wg : {row.TotalDrop, row.AvaiPres, row.DP, outlet}) {
        line += end + FormatNumber(static_cast<float>(KiloPascalOf(mm_wg)), separators_);
      }
    }
    console_.out << line << '\n';
  }
}

void PrintQuantitiesCsv(const Console& console, const StudyReport& report) {
  const Separators separators = console.csv_separators;
  const char end = CellEnd(separators);
  console.out << kUtf8Mark;
  ForEachQuantity(StatRow{},
                  [&](std::string_view name, const auto&) { console.out << name << end; });
  console.out << "Water_l\n";
  for (const StatRow& pipe : report.pipes) {
    ForEachQuantity(pipe, [&](std::string_view /*name*/, const auto& value) {
      console.out << QuantityCell(value, separators) << end;
    });
    if (report.water_litres) {
      console.out << CsvNumber(static_cast<float>(WaterContent({&pipe, 1})), separators.decimal);
    }
    console.out << '\n';
  }
}

}  // namespace kalvo
