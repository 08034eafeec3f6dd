#include "tools/sample_golden.h"

#include <array>
#include <charconv>
#include <utility>

#include "engine/calculation_command.h"
#include "study/load_study.h"
#include "tools/sample_bench.h"

namespace kalvo {

namespace {

constexpr auto kColumns =
    std::to_array<std::string_view>({"RecordNumber", "Name", "WaterFlow", "NomiDiam", "Velocity",
                                     "FrictionRate", "TotalDrop", "AvaiPres"});

std::string Text(std::int16_t value) { return std::to_string(value); }

// The shortest text that reads back as the same value.
std::string Text(float value) {
  std::array<char, 32> buffer;
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value).ptr;
  return {buffer.data(), end};
}

template <std::size_t N>
std::string Text(const FixedText<N>& value) {
  return FromCodePage(value.bytes().substr(0, value.bytes().find_last_not_of(' ') + 1));
}

std::string CellOf(const SectionRow& row, std::string_view column) {
  std::string cell;
  ForEachField(row, [&](std::string_view name, const auto& value) {
    if (name == column) {
      cell = Text(value);
    }
  });
  return cell;
}

std::string HeadOf(const Study& study) {
  std::string head = "# PAR=" + Text(study.TotalFlowM3h) + " DP=" + Text(study.CriticalDrop) +
                     " PumpHead=" + Text(study.PumpHead) + " critical=";
  bool is_number = false;
  for (const char c : study.critical_branch) {
    const bool was_number = std::exchange(is_number, c != ' ' && c != '-');
    head += is_number ? std::string(1, c) : std::string(was_number ? " " : "");
  }
  return std::string(Trim(head)) + "\n";
}

std::string TableOf(const Study& study, const std::vector<SectionRow>& rows) {
  std::string table = HeadOf(study);
  for (const std::string_view column : kColumns) {
    table += (column == kColumns.front() ? "" : ",") + std::string(column);
  }
  for (const SectionRow& row : rows) {
    for (const std::string_view column : kColumns) {
      table += (column == kColumns.front() ? "\n" : ",") + CellOf(row, column);
    }
  }
  return table + "\n";
}

}  // namespace

std::string CalculatedTable(const std::filesystem::path& library,
                            const std::filesystem::path& study, Method method) {
  SampleBench sample(library, study);
  Expect(LoadStudy(sample.bench, RecentList::kLeave));
  if (Calculate(sample.bench, method) != CommandEnd::kCalculated) {
    throw std::runtime_error(study.string() + " does not come to its end");
  }
  return TableOf(sample.study, Expect(sample.workspace.Rows().ReadAll()));
}

}  // namespace kalvo
