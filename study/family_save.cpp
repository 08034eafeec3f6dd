#include "study/family_save.h"

#include <algorithm>
#include <utility>

#include "study/study_extensions.h"

namespace kalvo {

namespace {

constexpr std::string_view kStagedEnd = kBesideEnd;
constexpr std::string_view kJournalEnd = ".saving~";
constexpr std::string_view kLockEnd = ".lock~";
constexpr std::string_view kJournalHead = "KALVOFLUME 1\n";
constexpr std::string_view kJournalFoot = "TELOS\n";

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

// A name is only ever one of the study's own files in the same folder.
bool IsOwnFile(const std::string& name, const std::string& base) {
  return name.size() == base.size() + kStudyExtensionLength && name.starts_with(base) &&
         IsStudyExtension(std::string_view(name).substr(base.size()));
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
Outcome ProveSavable(const Family& family, const std::vector<FamilyFile>& files) {
  for (const FamilyFile& file : files) {
    if (!IsOwnFile(file.name, family.base) || file.name.find('\n') != std::string::npos) {
      return FileError{family.Target(file.name), "Δεν είναι όνομα αρχείου Μελέτης"};
    }
    if (family.disk.IsFolder(family.Target(file.name))) {
      return FileError{family.Target(file.name), "Είναι φάκελος και όχι αρχείο"};
    }
  }
  return Done{};
}

Outcome StageAll(const Family& family, const std::vector<FamilyFile>& files) {
  for (const FamilyFile& file : files) {
    if (Outcome staged = WriteAndFlush(family.disk, family.Staged(file.name), file.bytes);
        !staged) {
      return staged;
    }
  }
  return family.disk.Flush(family.folder);
}

// The journal appears whole or not at all, and with it the decision that the save takes place.
Outcome WriteJournal(const Family& family, const std::vector<FamilyFile>& files) {
  std::string text(kJournalHead);
  for (const FamilyFile& file : files) {
    text += file.name + "\n";
  }
  text += kJournalFoot;
  const std::filesystem::path journal = family.Journal();
  const std::filesystem::path beside = StagedPath(journal);
  Outcome outcome = WriteAndFlush(family.disk, beside, text);
  if (outcome) {
    outcome = family.disk.Rename(beside, journal);
  }
  if (!outcome) {
    static_cast<void>(family.disk.Remove(beside));
    return outcome;
  }
  return family.disk.Flush(family.folder);
}

// Names that a whole journal tells, none of a broken one.
std::vector<std::string> NamesIn(std::string_view text) {
  if (!text.starts_with(kJournalHead) || !text.ends_with(kJournalFoot)) {
    return {};
  }
  text.remove_prefix(kJournalHead.size());
  text.remove_suffix(kJournalFoot.size());
  std::vector<std::string> names;
  while (!text.empty()) {
    const std::size_t end = text.find('\n');
    if (end == std::string_view::npos) {
      return {};
    }
    names.emplace_back(text.substr(0, end));
    text.remove_prefix(end + 1);
  }
  return names;
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

// The target of a staged file; empty when `entry` is no staged file.
std::string TargetOf(const std::string& entry) {
  return entry.ends_with(kStagedEnd) ? entry.substr(0, entry.size() - kStagedEnd.size()) : "";
}

void RemoveLeftovers(const Family& family) {
  const auto entries = family.disk.List(family.folder);
  for (const std::string& entry : entries ? *entries : std::vector<std::string>{}) {
    const std::string name = TargetOf(entry);
    if (IsOwnFile(name, family.base) || name == family.Journal().filename()) {
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

// Names of a whole journal of the study's own; none of any other.
std::vector<std::string> OwnNamesIn(std::string_view text, const std::string& base) {
  std::vector<std::string> names = NamesIn(text);
  const bool own = std::all_of(names.begin(), names.end(),
                               [&base](const std::string& name) { return IsOwnFile(name, base); });
  return own ? names : std::vector<std::string>{};
}

// Does what the journal says and removes it. The caller has the study's lock.
Outcome EndJournal(const Family& family) {
  const std::filesystem::path journal = family.Journal();
  const Result<std::string> text = family.disk.Read(journal);
  if (!text) {
    return text.error().IsMissing() ? Outcome(Done{}) : LeftHalfway(journal, text.error());
  }
  Outcome ended = Done{};
  if (const auto names = OwnNamesIn(*text, family.base); !names.empty()) {
    ended = RenameStaged(family, names);
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

// From the first byte to the last; the caller has the study's lock.
Outcome SaveLocked(const Family& family, const std::vector<FamilyFile>& files) {
  if (Outcome ended = EndJournal(family); !ended) {
    return FileError{family.Journal(),
                     "ΔΕΝ αποθηκεύθηκε : μία προηγούμενη αποθήκευση της Μελέτης δεν ολοκληρώνεται",
                     ended.error().kind};
  }
  RemoveLeftovers(family);
  Outcome outcome = StageAll(family, files);
  if (outcome) {
    outcome = WriteJournal(family, files);
  }
  std::vector<std::string> names;
  names.reserve(files.size());
  for (const FamilyFile& file : files) {
    names.push_back(file.name);
  }
  const bool journal_stands = outcome.ok();
  if (journal_stands) {
    outcome = RenameStaged(family, names);
  }
  if (outcome) {
    outcome = RemoveJournal(family);
  } else if ((!journal_stands || AllStaged(family, names)) && TakeBack(family, files)) {
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

Outcome SaveFamily(Disk& disk, const std::filesystem::path& folder, const std::string& base,
                   const std::vector<FamilyFile>& files) {
  const Family family{disk, folder, base};
  Outcome savable = ProveNamesFit(family, files.back().name);
  savable = savable ? ProveSavable(family, files) : savable;
  if (!savable) {
    return savable;
  }
  const auto lock = disk.Lock(family.Lock(), kSavePatience);
  if (!lock) {
    return Busy(family.Target(files.back().name));
  }
  return SaveLocked(family, files);
}

Outcome FinishSave(Disk& disk, const std::filesystem::path& folder, const std::string& base,
                   std::chrono::milliseconds patience) {
  const Family family{disk, folder, base};
  if (!disk.Exists(family.Journal())) {
    return Done{};
  }
  const auto lock = disk.Lock(family.Lock(), patience);
  return lock ? EndJournal(family) : Busy(family.Journal());
}

std::vector<std::string> PendingNames(const Disk& disk, const std::filesystem::path& folder,
                                      const std::string& base) {
  const Result<std::string> text = disk.Read(JournalPath(folder, base));
  if (text || text.error().IsMissing()) {
    return text ? OwnNamesIn(*text, base) : std::vector<std::string>{};
  }
  std::vector<std::string> names;
  const auto entries = disk.List(folder);
  for (const std::string& entry : entries ? *entries : std::vector<std::string>{}) {
    if (std::string name = TargetOf(entry); IsOwnFile(name, base)) {
      names.push_back(std::move(name));
    }
  }
  return names;
}

}  // namespace kalvo
