// Any text file as lines, and as the list of recent files.

#include <algorithm>

#include "fuzz/fuzz_bench.h"
#include "study/recent_files.h"
#include "study/text_lines.h"

namespace {

using namespace kalvo;

void TryLines(std::string_view bytes) {
  const auto lines = SplitLines(bytes);
  const auto ends = static_cast<std::size_t>(std::count(bytes.begin(), bytes.end(), '\n'));
  Require(lines.size() == ends + (bytes.empty() || bytes.back() == '\n' ? 0 : 1), "one an end");
  std::size_t length = 0;
  for (const std::string& line : lines) {
    Require(IsUtf8(line) && line.find('\n') == std::string::npos, "a line is UTF-8");
    Require(Unquoted(Quoted(line)) == line, "quotes come off again");
    length += line.size();
  }
  Require(length <= 3 * bytes.size(), "no more text than there was");
}

void TryRecentFiles(std::string_view bytes) {
  FuzzBench bench(SystemKind::kClosed);
  Workspace& workspace = bench.workspace;
  Require(workspace.Write(work_file::kRecentFiles, std::string(bytes)).ok(), "list");
  auto wanted = ReadRecentFiles(workspace);
  for (const std::string& path : wanted) {
    Require(!path.empty() && IsUtf8(path), "paths are UTF-8");
  }
  const std::string path = wanted.size() > 1 ? wanted.back() : "/studies/b.PCK";
  std::erase(wanted, path);
  wanted.resize(std::min<std::size_t>(wanted.size(), 25));
  wanted.insert(wanted.begin(), path);
  Require(AddRecentFile(workspace, path).ok(), "added");
  Require(ReadRecentFiles(workspace) == wanted, "on top, the older ones behind it in order");
  const auto once = workspace.Read(work_file::kRecentFiles).value();
  Require(AddRecentFile(workspace, path).ok(), "added again");
  Require(workspace.Read(work_file::kRecentFiles).value() == once, "it stands on top already");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  TryLines(AsText(data, size));
  TryRecentFiles(AsText(data, size));
  return 0;
}
