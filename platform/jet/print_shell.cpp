#include "platform/jet/print_shell.h"

#include <algorithm>

#include "platform/jet/jet_file.h"
#include "platform/jet/jet_format.h"
#include "platform/jet/jet_reasons.h"
#include "study/letter_case.h"

namespace kalvo {
namespace {

std::string InTable() { return "Στον πίνακα < " + std::string(kPrintTable) + " > "; }

bool Suits(const JetColumn& column, const PrintColumn& wanted) {
  switch (wanted.type) {
    case PrintType::kInteger:
      return column.type == jet::kInteger;
    case PrintType::kSingle:
      return column.type == jet::kSingle;
    case PrintType::kText:
      break;
  }
  return column.type == jet::kText && !column.fixed &&
         column.length >= 2 * static_cast<unsigned>(wanted.width);
}

// Where in the table the columns wanted are.
Result<std::vector<std::size_t>> PlacesOf(const JetTable& table,
                                          const std::vector<PrintColumn>& wanted) {
  std::vector<std::size_t> places;
  for (const PrintColumn& column : wanted) {
    const auto found = std::ranges::find_if(table.columns, [&column](const JetColumn& other) {
      return EqualIgnoringCase(other.name, column.name);
    });
    const std::string name = "η στήλη < " + std::string(column.name) + " >";
    if (found == table.columns.end()) return JetError(InTable() + "λείπει " + name);
    if (!Suits(*found, column)) {
      return JetError(InTable() + name + " έχει άλλον τύπο ή μικρότερο πλάτος");
    }
    places.push_back(static_cast<std::size_t>(found - table.columns.begin()));
  }
  return places;
}

struct OpenShell {
  JetFile file;
  JetTable table;
  std::vector<std::size_t> places;
};

Result<OpenShell> OpenPrintShell(std::string bytes, const std::vector<PrintColumn>& columns) {
  auto file = JetFile::Open(std::move(bytes));
  if (!file) return file.error();
  auto table = file->FindTable(kPrintTable);
  if (!table) return table.error();
  if (!*table) {
    return JetError("Στη βάση δεδομένων λείπει ο πίνακας < " + std::string(kPrintTable) + " >");
  }
  if ((*table)->has_index) return JetError(InTable() + "υπάρχει ευρετήριο");
  auto places = PlacesOf(**table, columns);
  if (!places) return places.error();
  return OpenShell{std::move(*file), std::move(**table), std::move(*places)};
}

}  // namespace

Result<std::string> FillPrintShell(std::string shell, const PrintTable& table) {
  auto open = OpenPrintShell(std::move(shell), table.columns);
  if (!open) return open.error();
  std::vector<PrintLine> lines;
  lines.reserve(table.lines.size());
  for (const PrintLine& line : table.lines) {
    PrintLine& values = lines.emplace_back(open->table.columns.size());
    for (std::size_t i = 0; i < line.size(); ++i) values[open->places[i]] = line[i];
  }
  if (Outcome added = open->file.Append(open->table, lines); !added) return added.error();
  return open->file.Take();
}

Result<PrintTable> ReadPrintShell(std::string bytes, const std::vector<PrintColumn>& columns) {
  const auto open = OpenPrintShell(std::move(bytes), columns);
  if (!open) return open.error();
  const auto lines = open->file.ReadLines(open->table);
  if (!lines) return lines.error();
  PrintTable table{columns, {}};
  for (const PrintLine& line : *lines) {
    PrintLine& values = table.lines.emplace_back();
    for (const std::size_t place : open->places) values.push_back(line[place]);
  }
  return table;
}

}  // namespace kalvo
