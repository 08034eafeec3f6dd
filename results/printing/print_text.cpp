#include "results/printing/print_text.h"

#include <algorithm>

#include "study/codepage.h"
#include "study/numeric_text.h"

namespace kalvo {
namespace {

constexpr std::size_t kIntegerWidth = 6;
constexpr std::size_t kSingleWidth = 16;

// In one line and one cell, whatever is in the text.
std::string OnOneLine(std::string text) {
  std::ranges::replace_if(
      text, [](char c) { return c == '\t' || c == '\n' || c == '\r'; }, ' ');
  return text;
}

std::string AsText(const PrintValue& value, Separators separators) {
  if (const auto* whole = std::get_if<std::int32_t>(&value)) return NumberText(*whole);
  if (const auto* single = std::get_if<float>(&value)) return FormatNumber(*single, separators);
  if (const auto* text = std::get_if<std::string>(&value)) return OnOneLine(*text);
  return {};
}

std::size_t WidthOf(const PrintColumn& column) {
  switch (column.type) {
    case PrintType::kInteger:
      return kIntegerWidth;
    case PrintType::kSingle:
      return kSingleWidth;
    case PrintType::kText:
      break;
  }
  return static_cast<std::size_t>(column.width);
}

std::string InWidth(const PrintColumn& column, std::string text) {
  const std::size_t width = WidthOf(column);
  const bool is_text = column.type == PrintType::kText;
  if (!is_text && text.size() > width) text.resize(width);  // of a number near 0
  const std::string blanks(width - std::min(width, CountCharacters(text)), ' ');
  return is_text ? text + blanks : blanks + text;
}

}  // namespace

std::string PrintText(const PrintValue& value, Separators separators) {
  std::string text = AsText(value, separators);
  text.erase(text.find_last_not_of(' ') + 1);
  return text;
}

std::string RecordText(const PrintTable& table, Separators separators) {
  std::string text;
  for (const PrintLine& line : table.lines) {
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
      text += InWidth(table.columns[i], AsText(line[i], separators));
    }
    text += '\n';
  }
  return text;
}

std::string AsciiText(const PrintTable& table, Separators separators) {
  std::string text;
  for (const PrintColumn& column : table.columns) {
    text += (text.empty() ? "" : "\t") + std::string(column.name);
  }
  text += '\n';
  for (const PrintLine& line : table.lines) {
    for (std::size_t i = 0; i < line.size(); ++i) {
      text += (i == 0 ? "" : "\t") + PrintText(line[i], separators);
    }
    text += '\n';
  }
  return text;
}

Outcome WritePrintFile(Disk& disk, PrintDatabase& database, PrintFileKind kind,
                       const PrintTable& table, Separators separators,
                       const std::filesystem::path& file) {
  switch (kind) {
    case PrintFileKind::kRecord:
      return ReplaceFile(disk, file, RecordText(table, separators));
    case PrintFileKind::kAscii:
      return ReplaceFile(disk, file, AsciiText(table, separators));
    case PrintFileKind::kTable:
      break;
  }
  return database.ExportWorkbook(table, file);
}

}  // namespace kalvo
