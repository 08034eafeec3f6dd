#include "study/recent_files.h"

#include <algorithm>

#include "study/codepage.h"
#include "study/path_text.h"
#include "study/study_extensions.h"
#include "study/text_lines.h"

namespace kalvo {

namespace {

// A line that holds a path: its bytes up to the LF, and the path.
struct Line {
  std::string bytes;
  std::string path;
};

// Lines are read one by one: a line that is no UTF-8 says nothing of the others.
std::vector<Line> Lines(std::string_view bytes) {
  std::vector<Line> lines;
  while (!bytes.empty()) {
    const std::size_t end = bytes.find('\n');
    const std::string_view line = bytes.substr(0, end);
    bytes = end == std::string_view::npos ? std::string_view{} : bytes.substr(end + 1);
    const std::vector<std::string> text = SplitLines(line);
    if (const std::string_view path = text.empty() ? "" : Unquoted(text.front()); !path.empty()) {
      lines.push_back({std::string(line), PathFromText(std::string(path)).string()});
    }
  }
  return lines;
}

Result<std::vector<Line>> ReadLines(const Workspace& workspace) {
  const auto bytes = workspace.ReadIfThere(work_file::kRecentFiles);
  return bytes ? Result(Lines(*bytes)) : bytes.error();
}

std::size_t LastSeparator(const std::string& path) { return path.find_last_of("/\\"); }

}  // namespace

std::string RecentLine::file_name() const {
  const std::size_t at = LastSeparator(path);
  return at == std::string::npos ? path : path.substr(at + 1);
}

std::string RecentLine::folder() const {
  const std::size_t at = LastSeparator(path);
  return at == std::string::npos ? "" : path.substr(0, at);
}

std::vector<std::string> ReadRecentFiles(const Workspace& workspace) {
  std::vector<std::string> paths;
  auto lines = ReadLines(workspace);
  for (Line& line : lines ? *lines : std::vector<Line>{}) {
    paths.push_back(std::move(line.path));
  }
  return paths;
}

Outcome AddRecentFile(Workspace& workspace, const std::filesystem::path& path) {
  if (!IsUtf8(path.string()) || path.string().find('\n') != std::string::npos) {
    return Done{};
  }
  auto read = ReadLines(workspace);
  if (!read) {
    return read.error();
  }
  std::vector<Line> lines = std::move(read).value();
  std::erase_if(lines, [&path](const Line& line) { return line.path == path.string(); });
  lines.resize(std::min(lines.size(), kOlderRecentFiles));
  std::string text = Quoted(path.string()) + "\n";
  for (const Line& line : lines) {
    text += (IsUtf8(line.bytes) ? Quoted(line.path) : line.bytes) + "\n";
  }
  return workspace.Write(work_file::kRecentFiles, text);
}

std::vector<RecentLine> RecentFilesOfKind(const Workspace& workspace, SystemKind kind) {
  const SystemKind wanted = kind == SystemKind::kOpen ? kind : SystemKind::kClosed;
  std::vector<RecentLine> of_kind;
  const std::vector<std::string> paths = ReadRecentFiles(workspace);
  for (std::size_t i = 0; i < paths.size(); ++i) {
    if (KindOfName(paths[i]) == wanted) {
      of_kind.push_back({i, paths[i]});
    }
  }
  return of_kind;
}

Outcome RemoveRecentFile(Workspace& workspace, const RecentLine& line) {
  const auto bytes = workspace.Read(work_file::kRecentFiles);
  if (!bytes) {
    return bytes.error();
  }
  std::vector<Line> lines = Lines(*bytes);
  if (line.place >= lines.size() || lines[line.place].path != line.path) {
    return Done{};
  }
  lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(line.place));
  if (lines.empty()) {
    workspace.Delete(work_file::kRecentFiles);
    return Done{};
  }
  std::string text;
  for (const Line& left : lines) {
    text += left.bytes + "\n";
  }
  Outcome written = workspace.Write(work_file::kRecentFilesRebuilt, text);
  return written ? workspace.MoveOver(work_file::kRecentFilesRebuilt, work_file::kRecentFiles)
                 : written;
}

bool TidyRecentFiles(Workspace& workspace) {
  const auto lines = ReadLines(workspace);
  if (lines && lines->empty()) {
    workspace.Delete(work_file::kRecentFiles);
    return false;
  }
  return true;
}

}  // namespace kalvo
