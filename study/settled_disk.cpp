#include "study/settled_disk.h"

#include <algorithm>

#include "study/family_save.h"
#include "study/study_file_names.h"

namespace kalvo {

namespace fs = std::filesystem;

Outcome SettledDisk::Settle(const fs::path& folder, const std::string& base,
                            std::chrono::milliseconds patience) {
  Outcome finished = FinishSave(inner_, folder, base, patience);
  if (finished) {
    return finished;
  }
  const PendingSave pending = PendingSaveOf(inner_, folder, base);
  for (const std::string& name : pending.files) {
    staged_[folder / name] = StagedPath(folder / name);
  }
  for (const std::string& name : pending.removed) {
    removed_.insert(folder / name);
  }
  journal_ = JournalPath(folder, base);
  return finished.error().kind == FileErrorKind::kBusy ? finished : Outcome(Done{});
}

void SettledDisk::SettleAll(const fs::path& folder) {
  const auto entries = inner_.List(folder);
  for (const std::string& entry : entries ? *entries : std::vector<std::string>{}) {
    if (const auto base = BaseOfJournal(entry)) {
      static_cast<void>(Settle(folder, *base, {}).ok());
    }
  }
}

FileError SettledDisk::Gone(const fs::path& path) {
  return {path, "Το αρχείο δεν υπάρχει", FileErrorKind::kMissing};
}

// A staged file that is gone has taken its name.
Result<std::optional<FileStatus>> SettledDisk::Status(const fs::path& path) const {
  if (removed_.contains(path)) {
    return std::optional<FileStatus>();
  }
  if (const auto found = staged_.find(path); found != staged_.end()) {
    if (auto status = inner_.Status(found->second); !status || *status) {
      return status;
    }
  }
  return inner_.Status(path);
}

Result<std::string> SettledDisk::Read(const fs::path& path) const {
  if (removed_.contains(path)) {
    return Gone(path);
  }
  if (const auto found = staged_.find(path); found != staged_.end()) {
    if (auto bytes = inner_.Read(found->second); bytes || !bytes.error().IsMissing()) {
      return bytes;
    }
  }
  return inner_.Read(path);
}

Result<std::string> SettledDisk::ReadHead(const fs::path& path, std::size_t length) const {
  if (removed_.contains(path)) {
    return Gone(path);
  }
  if (const auto found = staged_.find(path); found != staged_.end()) {
    if (auto bytes = inner_.ReadHead(found->second, length); bytes || !bytes.error().IsMissing()) {
      return bytes;
    }
  }
  return inner_.ReadHead(path, length);
}

Result<std::vector<std::string>> SettledDisk::List(const fs::path& folder) const {
  auto names = inner_.List(folder);
  if (!names || staged_.empty()) {
    return names;
  }
  std::erase_if(*names, [&](const std::string& name) { return removed_.contains(folder / name); });
  for (const auto& [target, staged] : staged_) {
    if (target.parent_path() == folder && inner_.Exists(staged)) {
      names->push_back(target.filename().string());
    }
  }
  std::sort(names->begin(), names->end());
  names->erase(std::unique(names->begin(), names->end()), names->end());
  return names;
}

Result<SettledDisk> SettleStudy(Disk& disk, const fs::path& path) {
  const fs::path main = BehindLink(disk, AsInFolder(disk, path));
  const fs::path folder = main.parent_path();
  SettledDisk settled(disk);
  const std::string base(BaseOf(main.filename().string()));
  if (Outcome ended = settled.Settle(folder, base, kSavePatience); !ended) {
    return FileError{main, ended.error().reason, FileErrorKind::kBusy};
  }
  if (!settled.Exists(main)) {
    settled.SettleAll(folder);  // its save may spell the name in another case
  }
  return settled;
}

Result<fs::path> SettleAndFindStudy(Disk& disk, const fs::path& path) {
  const auto settled = SettleStudy(disk, path);
  if (!settled) {
    return settled.error();
  }
  fs::path entry = AsInFolder(*settled, path);
  if (!settled->Exists(entry)) {
    return FileError{path, "Το αρχείο δεν υπάρχει", FileErrorKind::kMissing};
  }
  return entry;
}

SettledDisk SettleFolder(Disk& disk, const fs::path& folder) {
  SettledDisk settled(disk);
  settled.SettleAll(folder);
  return settled;
}

}  // namespace kalvo
