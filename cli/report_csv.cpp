#include "cli/report_csv.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace kalvo {

namespace {

constexpr const char* kByteOrderMark = "\xEF\xBB\xBF";

// Fields of the row that make up a line, in this order.
constexpr std::array<std::string_view, 38> kColumns = {
    "RecordNumber", "Name",       "WaterFlow", "NomiDiam",     "InDiameter", "Area",
    "Velocity",     "Reynolds",   "Lamda",     "FrictionRate", "TotalDrop",  "AvaiPres",
    "PAR",          "DP",         "INILAMDA",  "MeanTemp",     "MeanVel",    "FileNumber",
    "TOT",          "Outlets",    "KLEIS",     "ANOIK",        "Auxi",       "SomaDrop",
    "HeightDiff",   "Length",     "AnglePOP",  "Elbow90",      "GateValve",  "StrSwitch",
    "AngSwitch",    "DiaTee",     "DieTee",    "AntiTee",      "SymboTee",   "CheckValve",
    "OtherDrop_mm", "OtherDrop_m"};

// The shortest decimal that reads back to the value.
std::string ExactText(float value, char decimal) {
  std::array<char, 64> buffer{};
  const auto end =
      std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::fixed)
          .ptr;
  std::string text(buffer.data(), end);
  if (const std::size_t point = text.find('.'); point != std::string::npos) {
    text[point] = decimal;
  }
  return text;
}

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

std::string CellText(std::int16_t value, char /*decimal*/) { return std::to_string(value); }
std::string CellText(float value, char decimal) { return ExactText(value, decimal); }
// A name keeps its blanks in front.
template <std::size_t N>
std::string CellText(const FixedText<N>& value, char /*decimal*/) {
  const std::string_view bytes = value.bytes();
  const std::size_t end = bytes.find_last_not_of(' ');
  return FromCodePage(bytes.substr(0, end == std::string_view::npos ? 0 : end + 1));
}

std::string Quoted(const std::string& text, char cell_end) {
  if (text.find_first_of(std::string("\"\n\r") + cell_end) == std::string::npos) {
    return text;
  }
  std::string quoted = "\"";
  for (const char c : text) {
    quoted += c == '"' ? std::string("\"\"") : std::string(1, c);
  }
  return quoted + "\"";
}

}  // namespace

CsvReport::CsvReport(const Console& console, PressureUnits units, bool with_file)
    : console_(console),
      pascal_(units == PressureUnits::kPascal),
      with_file_(with_file),
      separators_(console.csv_separators) {}

void CsvReport::PrintHead() const {
  const char end = separators_.decimal == ',' ? ';' : ',';
  console_.out << kByteOrderMark;
  if (with_file_) {
    console_.out << "Study" << end;
  }
  for (const std::string_view column : kColumns) {
    console_.out << column << end;
  }
  console_.out << "Critical";
  if (pascal_) {
    for (const char* column : {"FrictionRate_Pa_m", "TotalDrop_kPa", "AvaiPres_kPa", "DP_kPa"}) {
      console_.out << end << column;
    }
  }
  console_.out << '\n';
}

void CsvReport::Print(const StudyReport& report) const {
  const char end = separators_.decimal == ',' ? ';' : ',';
  const std::vector<std::size_t> columns = ColumnsOfFields();
  for (const SectionRow& row : report.rows) {
    std::array<std::string, kColumns.size()> cells;
    std::size_t field = 0;
    ForEachField(row, [&](std::string_view /*name*/, const auto& value) {
      if (const std::size_t column = columns[field++]; column != kNoColumn) {
        cells[column] = Quoted(CellText(value, separators_.decimal), end);
      }
    });
    std::string line = with_file_ ? Quoted(report.file, end) + end : "";
    for (const std::string& cell : cells) {
      line += cell + end;
    }
    line += report.IsCritical(row.RecordNumber) ? '1' : '0';
    if (pascal_) {
      for (const double value :
           {row.FrictionRate * kPascalPerMmWg, row.TotalDrop * kPascalPerMmWg / 1000.0,
            row.AvaiPres * kPascalPerMmWg / 1000.0, row.DP * kPascalPerMmWg / 1000.0}) {
        line += end + FormatNumber(static_cast<float>(value), separators_);
      }
    }
    console_.out << line << '\n';
  }
}

}  // namespace kalvo
