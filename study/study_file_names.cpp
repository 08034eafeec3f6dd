#include "study/study_file_names.h"

#include <algorithm>

#include "study/codepage.h"
#include "study/date_text.h"
#include "study/letter_case.h"
#include "study/path_text.h"

namespace kalvo {

std::string_view BaseOf(std::string_view file_name) {
  return file_name.substr(0, file_name.size() - std::min(file_name.size(), kStudyExtensionLength));
}

std::filesystem::path WithExtension(const std::filesystem::path& path, SystemKind kind) {
  const std::string text = PathFromText(path.string()).string();
  const std::string_view extension = ExtensionsOf(kind).main;
  if (EqualIgnoringCase(std::string_view(text).substr(BaseOf(text).size()), extension)) {
    return text;
  }
  return text + std::string(extension);
}

Result<std::filesystem::path> FullStudyPath(const Study& study) {
  const std::filesystem::path path = WithExtension(study.study_path, study.system_kind);
  if (BaseOf(path.filename().string()).empty()) {
    return FileError{study.study_path, "Λείπει το όνομα του Αρχείου της Μελέτης"};
  }
  return AbsolutePath(path);
}

std::filesystem::path AsInFolder(const Disk& disk, const std::filesystem::path& path) {
  if (disk.Exists(path)) {
    return path;
  }
  const std::filesystem::path folder = path.parent_path();
  const std::string name = path.filename().string();
  const auto entries = disk.List(folder);
  if (!entries) {
    return path;  // reading it gives the reason
  }
  for (const std::string& entry : *entries) {
    if (BaseOf(entry) == BaseOf(name) && EqualIgnoringCase(entry, name)) {
      return folder / entry;
    }
  }
  // Letters of a name that is no UTF-8 are not known: another file's might pass for them.
  if (!IsUtf8(name)) {
    return path;
  }
  const auto other = FindIgnoringCase(disk, folder, name);
  return other && *other ? folder / **other : path;
}

std::filesystem::path BehindLink(const Disk& disk, const std::filesystem::path& path) {
  std::filesystem::path end = disk.Resolve(path);
  return KindOfName(end.string()) == KindOfName(path.string()) ? end : path;
}

void RebuildNameState(Workbench& bench) {
  Study& study = bench.study;
  study.last_study_path = study.study_path;
  study.study_short_name = study.study_path.filename().string();
  study.study_base_name = BaseOf(study.study_short_name);
  study.study_folder = study.study_path.parent_path();
  const auto status = bench.workspace.outer_disk().Status(study.study_path);
  const bool known = status && *status;
  study.study_date = known ? DateText((*status)->modified) : "";
  study.study_time = known ? ClockText((*status)->modified) : "";
}

}  // namespace kalvo
