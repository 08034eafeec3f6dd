#include "shell/studies_index.h"

#include <algorithm>
#include <limits>

#include "shell/search_text.h"
#include "study/date_text.h"
#include "study/settled_disk.h"
#include "study/study_extensions.h"

namespace kalvo {

namespace {

namespace fs = std::filesystem;

// What the folder tells of its studies, without a title.
struct Found {
  std::vector<ListedStudy> studies;
  std::int64_t newest = std::numeric_limits<std::int64_t>::min();
};

Found FindStudies(const Disk& disk, const fs::path& folder, SystemKind kind) {
  Found found;
  for (std::string& name : StudyNames(disk, folder, kind)) {
    const auto looked = disk.Status(folder / name);
    const FileStatus status = looked ? looked->value_or(FileStatus{}) : FileStatus{};
    if (status.is_folder || (looked && !*looked)) {
      continue;
    }
    ListedStudy& study = found.studies.emplace_back();
    study.number = static_cast<int>(found.studies.size());
    study.folder = folder;
    study.file_name = std::move(name);
    study.date = DateText(status.modified);
    study.time = ClockText(status.modified);
    found.newest = std::max(found.newest, status.modified);
  }
  return found;
}

std::string TitleOf(const Disk& disk, const ListedStudy& study) {
  constexpr std::size_t kLength = RecordSize<SectionRow>();
  const auto status = disk.Status(study.path());
  const auto head = disk.ReadHead(study.path(), kLength);
  const bool whole =
      status && *status && (*status)->length % kLength == 0 && head && head->size() == kLength;
  const std::string title = whole ? DecodeRecord<SectionRow>(head->data()).Thema.Utf8() : "";
  return title.empty() ? study.file_name : title;
}

StudyTitleRow RowOf(const ListedStudy& study) {
  StudyTitleRow row;
  row.Number = static_cast<std::int16_t>(
      std::min<int>(study.number, std::numeric_limits<std::int16_t>::max()));
  row.Title = FixedText<120>::FromUtf8(study.title);
  row.Folder = FixedText<264>::FromUtf8(study.folder.string());
  row.FileName = FixedText<100>::FromUtf8(study.file_name);
  row.FileDate = FixedText<12>::FromUtf8(study.date);
  row.FileTime = FixedText<10>::FromUtf8(study.time);
  return row;
}

bool SameFile(const StudyTitleRow& a, const StudyTitleRow& b) {
  return a.Number == b.Number && a.Folder == b.Folder && a.FileName == b.FileName &&
         a.FileDate == b.FileDate && a.FileTime == b.FileTime;
}

}  // namespace

std::string ListedStudy::Line() const {
  constexpr std::size_t kDigits = 3;
  std::string serial = std::to_string(number);
  serial.insert(0, kDigits - std::min(kDigits, serial.size()), '0');
  return "(" + serial + ".) " + title;
}

std::vector<std::string> StudyNames(const Disk& disk, const fs::path& folder, SystemKind kind) {
  const SystemKind wanted = kind == SystemKind::kOpen ? kind : SystemKind::kClosed;
  std::vector<std::pair<std::string, std::string>> keyed;
  auto entries = disk.List(folder);
  for (std::string& name : entries ? *entries : std::vector<std::string>{}) {
    if (KindOfName(name) == wanted) {
      std::string key = SearchKey(name);
      keyed.emplace_back(std::move(key), std::move(name));
    }
  }
  std::sort(keyed.begin(), keyed.end());
  std::vector<std::string> names;
  names.reserve(keyed.size());
  for (auto& [key, name] : keyed) {
    names.push_back(std::move(name));
  }
  return names;
}

std::vector<ListedStudy> BuildStudiesIndex(Workspace& workspace, const fs::path& folder,
                                           SystemKind kind) {
  const SettledDisk disk = SettleFolder(workspace.outer_disk(), folder);
  std::vector<ListedStudy> studies = FindStudies(disk, folder, kind).studies;
  std::vector<StudyTitleRow> rows;
  rows.reserve(studies.size());
  for (ListedStudy& study : studies) {
    study.title = TitleOf(disk, study);
    rows.push_back(RowOf(study));
  }
  if (workspace.ReadIfThere(work_file::kStudiesIndex)) {
    static_cast<void>(workspace.Rows<StudyTitleRow>(work_file::kStudiesIndex).WriteAll(rows));
  }
  return studies;
}

std::optional<std::vector<ListedStudy>> ReadStudiesIndex(Workspace& workspace,
                                                         const fs::path& folder, SystemKind kind) {
  const auto status = workspace.Status(work_file::kStudiesIndex);
  const auto rows = workspace.Rows<StudyTitleRow>(work_file::kStudiesIndex).ReadAll();
  Found found = FindStudies(SettleFolder(workspace.outer_disk(), folder), folder, kind);
  // A study written in the second in which the index was made bears the same time as one before it.
  if (!status || !*status || !rows || rows->size() != found.studies.size() ||
      (*status)->modified <= found.newest) {
    return std::nullopt;
  }
  for (std::size_t i = 0; i < rows->size(); ++i) {
    ListedStudy& study = found.studies[i];
    const StudyTitleRow& row = (*rows)[i];
    study.title = study.file_name;
    const StudyTitleRow wanted = RowOf(study);
    if (!SameFile(row, wanted)) {
      return std::nullopt;
    }
    if (row.Title != wanted.Title) {
      study.title = row.Title.Utf8();
    }
  }
  return std::move(found.studies);
}

std::vector<ListedStudy> ListStudies(Workspace& workspace, const fs::path& folder,
                                     SystemKind kind) {
  auto cached = ReadStudiesIndex(workspace, folder, kind);
  return cached ? std::move(*cached) : BuildStudiesIndex(workspace, folder, kind);
}

}  // namespace kalvo
