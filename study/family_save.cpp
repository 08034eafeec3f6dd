#include "study/family_save.h"

#include <algorithm>
#include <utility>

namespace kalvo {

namespace {

constexpr std::string_view kStagedEnd = kBesideEnd;
constexpr std::string_view kJournalEnd = ".saving~";
constexpr std::string_view kLockEnd = ".lock~";

// A study's files on disk: its folder, and its name without folder and extension.
struct Family {
  Disk& disk;
  const std::filesystem::path& folder;
  const std::string& base;

  [[nodiscard]] std::filesystem::path Target(const std::string& name) const {
    return folder / name;
  }
  [[nodiscard]] std::filesystem::path Staged(const std::string& name) const {
    return StagedPath(folder / name);
  }
  [[nodiscard]] std::filesystem::path Journal() const { return JournalPath(folder, base); }
  // After the journal's name, so that no other file of the folder can bear it.
  [[nodiscard]] std::filesystem::path Lock() const { return Journal() += kLockEnd; }
};

FileError Busy(std::filesystem::path file) {
  return {std::move(file), "Η Μελέτη σώζεται αυτή τη στιγμή από άλλο πρόγραμμα",
          FileErrorKind::kBusy};
}

// The journal is what its user finds in the folder; the cause names its own file.
FileError LeftHalfway(const std::filesystem::path& journal, const FileError& cause) {
  return {journal,
          "Η αποθήκευση έμεινε στη μέση και συνεχίζεται όταν ανοίξει ξανά η Μελέτη (" +
              cause.Line() + ")",
          cause.kind};
}

void RemoveStaged(const Family& family, const std::vector<FamilyFile>& files) {
  for (const FamilyFile& file : files) {
    static_cast<void>(family.disk.Remove(family.Staged(file.name)));
  }
}

Outcome WriteAndFlush(Disk& disk, const std::filesystem::path& path, const std::string& bytes) {
  Outcome written = disk.Write(path, bytes);
  return written ? disk.Flush(path) : written;
}

// Of the names that a save makes the lock's is the longest.
Outcome ProveNamesFit(const Family& family, const std::string& main) {
  const auto look = family.disk.ReadHead(family.Lock(), 0);
  if (look || look.error().kind != FileErrorKind::kNameTooLong) {
    return Done{};
  }
  return FileError{family.Target(main),
                   "Το όνομα της Μελέτης είναι πολύ μακρύ, δώστε ένα συντομότερο",
                   FileErrorKind::kNameTooLong};
}

// Names in the journal's lines must be told apart from it; a folder cannot be replaced by a file.
Outcome ProveSavable(const Family& family, const PendingSave& save) {
  for (const auto* names : {&save.files, &save.removed}) {
    for (const std::string& name : *names) {
      if (!IsFamilyName(name, family.base) || name.find('\n') != std::string::npos) {
        return FileError{family.Target(name), "Δεν είναι όνομα αρχείου Μελέτης"};
      }
      if (family.disk.IsFolder(family.Target(name))) {
        return FileError{family.Target(name), "Είναι φάκελος και όχι αρχείο"};
      }
    }
  }
  return Done{};
}

// A medium without dates keeps the moment of the save.
Outcome Stage(const Family& family, const FamilyFile& file) {
  const std::filesystem::path staged = family.Staged(file.name);
  Outcome outcome = family.disk.Write(staged, file.bytes);
  if (outcome && file.modified) {
    static_cast<void>(family.disk.SetModified(staged, *file.modified));
  }
  return outcome;
}

Outcome StageAll(const Family& family, const std::vector<FamilyFile>& files,
                 const FamilySaveOptions& options) {
  for (const FamilyFile& file : files) {
    if (options.on_stage) {
      options.on_stage(file);
    }
    if (Outcome staged = Stage(family, file); !staged) {
      return staged;
    }
  }
  for (const FamilyFile& file : files) {
    if (Outcome flushed = family.disk.Flush(family.Staged(file.name)); !flushed) {
      return flushed;
    }
  }
  return family.disk.Flush(family.folder);
}

// The journal appears whole or not at all, and with it the decision that the save takes place.
Outcome WriteJournal(const Family& family, const PendingSave& save) {
  const std::filesystem::path journal = family.Journal();
  const std::filesystem::path beside = StagedPath(journal);
  Outcome outcome = WriteAndFlush(family.disk, beside, JournalText(save));
  if (outcome) {
    outcome = family.disk.Rename(beside, journal);
  }
  if (!outcome) {
    static_cast<void>(family.disk.Remove(beside));
    return outcome;
  }
  return family.disk.Flush(family.folder);
}

// A staged file that is gone has taken its name: before the save was broken off, or because whoever
// opened the study meanwhile did what the journal tells.
Outcome RenameStaged(const Family& family, const std::vector<std::string>& names) {
  for (const std::string& name : names) {
    const std::filesystem::path staged = family.Staged(name);
    if (!family.disk.Exists(staged)) {
      continue;
    }
    if (Outcome renamed = family.disk.Rename(staged, family.Target(name));
        !renamed && family.disk.Exists(staged)) {
      return renamed;
    }
  }
  return family.disk.Flush(family.folder);
}

Outcome RemoveReplaced(const Family& family, const std::vector<std::string>& names) {
  for (const std::string& name : names) {
    const std::filesystem::path path = family.Target(name);
    if (Outcome removed = family.disk.Remove(path); !removed && family.disk.Exists(path)) {
      return removed;
    }
  }
  return names.empty() ? Outcome(Done{}) : family.disk.Flush(family.folder);
}

// All that a journal says.
Outcome TakePlaces(const Family& family, const PendingSave& save) {
  Outcome renamed = RenameStaged(family, save.files);
  return renamed ? RemoveReplaced(family, save.removed) : renamed;
}

// The target of a staged file; empty when `entry` is no staged file.
std::string TargetOf(const std::string& entry) {
  return entry.ends_with(kStagedEnd) ? entry.substr(0, entry.size() - kStagedEnd.size()) : "";
}

void RemoveLeftovers(const Family& family) {
  const auto entries = family.disk.List(family.folder);
  for (const std::string& entry : entries ? *entries : std::vector<std::string>{}) {
    const std::string name = TargetOf(entry);
    if (BearsFamilyName(name, family.base) || name == family.Journal().filename()) {
      static_cast<void>(family.disk.Remove(family.Target(entry)));
    }
  }
}

Outcome RemoveJournal(const Family& family) {
  const std::filesystem::path journal = family.Journal();
  if (Outcome removed = family.disk.Remove(journal); !removed && family.disk.Exists(journal)) {
    return removed;
  }
  // A journal that came back after a power cut would meet the staged files of a later save.
  return family.disk.Flush(family.folder);
}

// Does what the journal says and removes it. The caller has the study's lock.
Outcome EndJournal(const Family& family) {
  const std::filesystem::path journal = family.Journal();
  const Result<std::string> text = family.disk.Read(journal);
  if (!text) {
    return text.error().IsMissing() ? Outcome(Done{}) : LeftHalfway(journal, text.error());
  }
  Outcome ended = Done{};
  if (const PendingSave save = ReadJournal(*text, family.base); !save.files.empty()) {
    ended = TakePlaces(family, save);
  } else {
    RemoveLeftovers(family);
  }
  ended = ended ? RemoveJournal(family) : ended;
  return ended ? ended : LeftHalfway(journal, ended.error());
}

// Makes the save undone while every old file is still there. False: the journal stays, and with it
// all that is staged, since half of it would be neither the old study nor the new one.
bool TakeBack(const Family& family, const std::vector<FamilyFile>& files) {
  const std::filesystem::path journal = family.Journal();
  if (family.disk.Exists(journal)) {
    static_cast<void>(family.disk.Remove(journal));
    if (family.disk.Exists(journal)) {
      return false;
    }
    if (!family.disk.Flush(family.folder)) {
      return true;  // should the journal come back after a power cut, it finds all that it names
    }
  }
  RemoveStaged(family, files);
  return true;
}

bool AllStaged(const Family& family, const std::vector<std::string>& names) {
  return std::all_of(names.begin(), names.end(), [&](const std::string& name) {
    return family.disk.Exists(family.Staged(name));
  });
}

PendingSave ToldOf(const std::vector<FamilyFile>& files, const FamilySaveOptions& options) {
  PendingSave save;
  for (const FamilyFile& file : files) {
    save.files.push_back(file.name);
  }
  save.removed = options.removed;
  return save;
}

// From the first byte to the last; the caller has the study's lock.
Outcome SaveLocked(const Family& family, const std::vector<FamilyFile>& files,
                   const FamilySaveOptions& options) {
  if (Outcome ended = EndJournal(family); !ended) {
    return FileError{family.Journal(),
                     "ΔΕΝ αποθηκεύθηκε : μία προηγούμενη αποθήκευση της Μελέτης δεν ολοκληρώνεται",
                     ended.error().kind};
  }
  RemoveLeftovers(family);
  const PendingSave save = ToldOf(files, options);
  Outcome outcome = StageAll(family, files, options);
  if (outcome) {
    outcome = WriteJournal(family, save);
  }
  const bool journal_stands = outcome.ok();
  if (journal_stands) {
    outcome = TakePlaces(family, save);
  }
  if (outcome) {
    outcome = RemoveJournal(family);
  } else if ((!journal_stands || AllStaged(family, save.files)) && TakeBack(family, files)) {
    return outcome;
  }
  return outcome ? outcome : LeftHalfway(family.Journal(), outcome.error());
}

}  // namespace

std::filesystem::path JournalPath(const std::filesystem::path& folder, const std::string& base) {
  return folder / (base + std::string(kJournalEnd));
}

std::optional<std::string> BaseOfJournal(std::string_view file_name) {
  if (!file_name.ends_with(kJournalEnd)) {
    return std::nullopt;
  }
  return std::string(file_name.substr(0, file_name.size() - kJournalEnd.size()));
}

std::filesystem::path StagedPath(const std::filesystem::path& target) {
  std::filesystem::path path = target;
  return path += kStagedEnd;
}

Result<std::unique_ptr<DiskLock>> LockFamily(Disk& disk, const std::filesystem::path& folder,
                                             const std::string& base,
                                             std::chrono::milliseconds patience) {
  const Family family{disk, folder, base};
  auto lock = disk.Lock(family.Lock(), patience);
  return lock ? std::move(lock) : Busy(family.Journal());
}

Outcome SaveFamily(Disk& disk, const std::filesystem::path& folder, const std::string& base,
                   const std::vector<FamilyFile>& files, const FamilySaveOptions& options) {
  const Family family{disk, folder, base};
  Outcome savable = ProveNamesFit(family, files.back().name);
  savable = savable ? ProveSavable(family, ToldOf(files, options)) : savable;
  if (!savable) {
    return savable;
  }
  const auto lock = LockFamily(disk, folder, base, kSavePatience);
  if (!lock) {
    return Busy(family.Target(files.back().name));
  }
  return SaveLocked(family, files, options);
}

Outcome FinishSave(Disk& disk, const std::filesystem::path& folder, const std::string& base,
                   std::chrono::milliseconds patience) {
  const Family family{disk, folder, base};
  if (!disk.Exists(family.Journal())) {
    return Done{};
  }
  const auto lock = LockFamily(disk, folder, base, patience);
  return lock ? EndJournal(family) : Outcome(lock.error());
}

PendingSave PendingSaveOf(const Disk& disk, const std::filesystem::path& folder,
                          const std::string& base) {
  const Result<std::string> text = disk.Read(JournalPath(folder, base));
  if (text || text.error().IsMissing()) {
    return text ? ReadJournal(*text, base) : PendingSave{};
  }
  PendingSave save;
  const auto entries = disk.List(folder);
  for (const std::string& entry : entries ? *entries : std::vector<std::string>{}) {
    if (std::string name = TargetOf(entry); BearsFamilyName(name, base)) {
      save.files.push_back(std::move(name));
    }
  }
  return save;
}

}  // namespace kalvo
