#include "study/study_origin.h"

#include "study/codepage.h"
#include "study/path_text.h"
#include "study/text_lines.h"

namespace kalvo {

void NoteOrigin(Workspace& workspace, const std::filesystem::path& path) {
  const std::string text = path.string();
  if (text.empty() || !IsUtf8(text) || text.find('\n') != std::string::npos) {
    workspace.Delete(work_file::kOrigin);
  } else {
    static_cast<void>(workspace.Write(work_file::kOrigin, Quoted(text) + "\n"));
  }
}

std::filesystem::path OriginIn(std::string_view note) {
  const std::vector<std::string> lines = SplitLines(note);
  const std::string_view path = lines.empty() ? std::string_view{} : Unquoted(lines.front());
  return path.starts_with('/') ? PathFromText(std::string(path)) : std::filesystem::path();
}

std::filesystem::path ReadOrigin(const Workspace& workspace) {
  const auto note = workspace.ReadIfThere(work_file::kOrigin);
  return note ? OriginIn(*note) : std::filesystem::path();
}

}  // namespace kalvo
