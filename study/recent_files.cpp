#include "study/recent_files.h"

#include <algorithm>

#include "study/codepage.h"
#include "study/path_text.h"
#include "study/text_lines.h"

namespace kalvo {

std::vector<std::string> ReadRecentFiles(const Workspace& workspace) {
  std::vector<std::string> paths;
  if (const auto bytes = workspace.Read(work_file::kRecentFiles)) {
    for (const std::string& line : SplitLines(*bytes)) {
      if (const std::string_view path = Unquoted(line); !path.empty()) {
        paths.push_back(PathFromText(std::string(path)).string());
      }
    }
  }
  return paths;
}

Outcome AddRecentFile(Workspace& workspace, const std::filesystem::path& path) {
  if (!IsUtf8(path.string()) || path.string().find('\n') != std::string::npos) {
    return Done{};
  }
  std::vector<std::string> paths = ReadRecentFiles(workspace);
  std::erase(paths, path.string());
  if (paths.size() > kOlderRecentFiles) {
    paths.resize(kOlderRecentFiles);
  }
  paths.insert(paths.begin(), path.string());
  std::string text;
  for (const std::string& line : paths) {
    text += Quoted(line) + "\n";
  }
  return workspace.Write(work_file::kRecentFiles, text);
}

}  // namespace kalvo
