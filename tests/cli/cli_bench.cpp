#include "tests/cli/cli_bench.h"

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <array>
#include <cstdio>
#include <sstream>
#include <utility>

#include "cli/command_line.h"
#include "study/fluid_row.h"
#include "study/real_disk.h"
#include "study/study_extensions.h"

namespace kalvo {

namespace {

Told RunOn(const std::vector<std::string>& arguments, int terminal_width) {
  std::ostringstream out;
  std::ostringstream err;
  Console console{out, err, {',', '.'}};
  console.width = terminal_width;
  console.out_is_terminal = console.err_is_terminal = terminal_width > 0;
  const int code = RunCommandLine(arguments, console);
  return {code, out.str(), err.str()};
}

}  // namespace

Told Kalvo(const std::vector<std::string>& arguments) { return RunOn(arguments, 0); }

Told KalvoOnTerminal(const std::vector<std::string>& arguments, int width) {
  return RunOn(arguments, width);
}

Told RunProgram(const std::string& command) {
  const std::string line = "kalvo() { '" KALVO_BINARY "' \"$@\"; }; (" + command + ") 2>&1";
  Told told;
  std::FILE* pipe = popen(line.c_str(), "r");
  EXPECT_NE(pipe, nullptr);
  std::array<char, 4096> buffer{};
  for (std::size_t got = 0; (got = std::fread(buffer.data(), 1, buffer.size(), pipe)) > 0;) {
    told.out.append(buffer.data(), got);
  }
  told.code = WEXITSTATUS(pclose(pipe));
  return told;
}

std::filesystem::path CasesFolder() {
  return std::filesystem::path(KALVO_SOURCE_DIR) / "tests/cases";
}

std::vector<std::string> CaseLibrary() { return {"--library", CasesFolder() / "library"}; }

std::string Golden(const std::string& name) {
  const auto text =
      RealDisk().Read(std::filesystem::path(KALVO_SOURCE_DIR) / "tests/cli/golden" / name);
  EXPECT_TRUE(text.ok()) << name;
  return text ? *text : "";
}

std::string CliBench::Put(const std::string& name, std::string bytes) const {
  RealDisk disk;
  EXPECT_TRUE(disk.Write(studies() / name, std::move(bytes)).ok());
  return Path(name);
}

std::string CliBench::Put(const std::string& name, std::span<const SectionRow> rows) const {
  FluidRow water;
  water.row_number = 1;
  water.name = FixedText<50>::FromUtf8(kWaterName);
  water.mean_temperature = water.viscosity = kComputed;
  water.density = 1000.0F;
  const std::filesystem::path path(name);
  Put(path.stem().string() + ".LQD", EncodeRows<FluidRow>(std::array{water}));
  return Put(name, EncodeRows(rows));
}

std::string CliBench::Put(const std::string& name,
                          const std::vector<std::string_view>& lines) const {
  NetworkHeader header;
  header.kind = KindOfName(name) == SystemKind::kOpen ? SystemKind::kOpen : SystemKind::kClosed;
  const std::vector<SectionRow> rows = Network(lines, header);
  return Put(name, rows);
}

Told CliBench::Run(std::vector<std::string> arguments) const {
  arguments.insert(arguments.end(), {"--library", library()});
  return Kalvo(arguments);
}

FolderImage CliBench::Studies() const { return ImageOf(RealDisk(), studies()); }

FolderImage CliBench::Libraries() const { return ImageOf(RealDisk(), library()); }

std::vector<std::string_view> SoundNetwork() {
  return {"ANT/1 10m 2 elbows 2 valves plant",
          "1/2 4m 1 branch 300 l/h soma 250mm",
          "1/3 6m 1 branch 500 l/h soma 500mm",
          "2/4 4m 1 joins",
          "3/4 6m 1 joins",
          "4/ANT 10m 2 elbows"};
}

std::vector<SectionRow> Chain(int count) {
  std::vector<std::string> lines;
  const auto node = [count](int i) {
    return i % count == 0
               ? std::string("ANT")
               : std::string{static_cast<char>('a' + i % 26), static_cast<char>('A' + i / 26 % 26),
                             static_cast<char>('0' + i / 676)};
  };
  for (int i = 0; i < count; ++i) {
    lines.push_back(node(i) + "/" + node(i + 1) + " 1m" +
                    (i == count - 1 ? " 300 l/h soma 100mm" : ""));
  }
  return Network({lines.begin(), lines.end()});
}

}  // namespace kalvo
