// The manual's chapter on the command line: its commands, options and examples are the program's.

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "tests/cli/cli_bench.h"
#include "tests/support/csv_table.h"
#include "tests/support/markdown.h"

namespace kalvo {
namespace {

using Names = std::set<std::string>;

constexpr std::string_view kCommandHead = "kalvo ";

const std::map<std::string, Markdown>& ManualParts() {
  static const auto parts =
      ReadMarkdown(std::filesystem::path(KALVO_SOURCE_DIR) / "docs/manual/13-command-line.md")
          .Parts();
  return parts;
}

Names OptionsOf(const std::vector<std::string>& pieces) {
  Names options;
  for (const std::string& piece : pieces) {
    if (piece.starts_with("--")) options.insert(piece.substr(0, piece.find(' ')));
  }
  return options;
}

// What the tables of a part describe: the first cell of each line.
Names OptionsTold(const Markdown& part) {
  Names options;
  for (const auto& cells : part.Lines()) {
    options.merge(OptionsOf(Markdown{cells.front()}.Between("`")));
  }
  return options;
}

// "-h,--help" is every command's.
Names OptionsOffered(const std::string& command) {
  const Told help = Kalvo({command, "--help"});
  EXPECT_EQ(help.code, 0);
  std::vector<std::string> lines = Split(help.out, '\n');
  std::ranges::transform(lines, lines.begin(), [](const auto& line) { return InOneLine(line); });
  Names options = OptionsOf(lines);
  options.erase("--library");  // told once, for all
  return options;
}

TEST(CommandLineManual, EachCommandHasItsPartWithAllItsOptions) {
  const std::string help = Kalvo({"--help"}).out;
  const std::string listed = help.substr(help.find("Εντολές:\n"));
  Names commands;
  for (const std::string& line : Split(listed.substr(0, listed.find("\n\n")), '\n')) {
    if (line.starts_with("  ")) commands.insert(line.substr(2, line.find(' ', 2) - 2));
  }
  Names told;
  for (const auto& [heading, part] : ManualParts()) {
    if (!heading.starts_with(kCommandHead)) continue;
    const std::string command = heading.substr(kCommandHead.size());
    told.insert(command);
    EXPECT_EQ(OptionsTold(part), OptionsOffered(command)) << command;
  }
  EXPECT_EQ(told, commands);
}

TEST(CommandLineManual, WhatHoldsForAllCommandsIsOffered) {
  const std::string help = Kalvo({"--help"}).out + Kalvo({"calc", "--help"}).out;
  for (const std::string& option : OptionsTold(ManualParts().at("Πώς γράφεται"))) {
    EXPECT_NE(help.find(option), std::string::npos) << option;
  }
  std::vector<int> codes;
  for (const CsvLine& line : ManualParts().at("Κωδικοί εξόδου").Table("κωδικός")) {
    codes.push_back(std::stoi(line.at("κωδικός")));
  }
  EXPECT_EQ(codes,
            (std::vector<int>{exit_code::kDone, exit_code::kWrongUse, exit_code::kUnreadable,
                              exit_code::kRefused, exit_code::kBrokenOff, exit_code::kUnwritable}));
}

// Each on the delivered studies, by the shell, as a reader types it.
TEST(CommandLineManual, ItsExamplesRun) {
  const DiskBench bench;
  const std::string copy = "cp '" KALVO_SAMPLES_DIR "'/* . && ";
  const std::string there = "cd '" + bench.studies().string() + "' && ";
  int run = 0;
  for (const auto& [heading, part] : ManualParts()) {
    if (!heading.starts_with(kCommandHead)) continue;
    for (const std::string& line : Split(part.text, '\n')) {
      if (!line.starts_with("    ")) continue;
      ++run;
      const Told told = RunProgram(there + copy + line);
      EXPECT_EQ(told.code, 0) << line << "\n" << told.out;
    }
  }
  EXPECT_GE(run, static_cast<int>(ManualParts().size()) - 2) << "one for every command";
}

}  // namespace
}  // namespace kalvo
