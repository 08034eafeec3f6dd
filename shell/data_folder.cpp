#include "shell/data_folder.h"

#include "study/export_folder.h"
#include "study/fixed_text.h"
#include "study/letter_case.h"
#include "study/path_text.h"
#include "study/text_lines.h"

namespace kalvo {
namespace {

namespace fs = std::filesystem;

// Without a separator at its end, so that the last part is the folder's own name.
fs::path FolderOf(std::string_view text) {
  fs::path path = PathFromText(std::string(text)).lexically_normal();
  return path.has_filename() ? path : path.parent_path();
}

Outcome Name(Workspace& workspace, const fs::path& folder) {
  Outcome written = workspace.Write(work_file::kDataFolder, folder.string() + "/\n");
  if (written) return written;
  return FileError{workspace.Path(work_file::kDataFolder), written.error().reason};
}

}  // namespace

Result<fs::path> ReadDataFolder(const Workspace& workspace) {
  const auto bytes = workspace.ReadIfThere(work_file::kDataFolder);
  if (!bytes) return bytes.error();
  const std::vector<std::string> lines = SplitLines(*bytes);
  return lines.empty() || Trim(lines.front()).empty() ? fs::path()
                                                      : FolderOf(Unquoted(Trim(lines.front())));
}

Result<fs::path> EnsureDataFolder(Workspace& workspace) {
  const Result<fs::path> named_folder = ReadDataFolder(workspace);
  if (!named_folder) return named_folder.error();
  fs::path folder = *named_folder;
  if (!folder.is_absolute()) {
    folder = workspace.Path(kStudiesFolder);
    if (Outcome named = Name(workspace, folder); !named) return named.error();
  }
  // A folder that is gone, on a stick say, is no reason not to start: dialogs tell it.
  static_cast<void>(workspace.outer_disk().MakeFolder(folder));
  return folder;
}

std::string ShownDataFolder(const fs::path& data_folder) {
  return EqualIgnoringCase(data_folder.filename().string(), kStudiesFolder)
             ? data_folder.parent_path().string()
             : data_folder.string();
}

bool IsFullPath(std::string_view typed) { return Trim(typed).starts_with('/'); }

Result<fs::path> SetDataFolder(Workspace& workspace, std::string_view typed) {
  Disk& disk = workspace.outer_disk();
  const fs::path chosen = ShownDataFolder(FolderOf(Trim(typed)));
  if (Outcome made = disk.MakeFolder(chosen); !made) return made.error();
  const auto studies = EnsureFolderBelow(disk, chosen, kStudiesFolder);
  if (!studies) return studies.error();
  if (const auto exports = EnsureExportFolder(disk, *studies); !exports) {
    return exports.error();
  }
  if (Outcome named = Name(workspace, *studies); !named) return named.error();
  return *studies;
}

}  // namespace kalvo
