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

// After the journal's name, so that no other file of the folder can bear it.
std::filesystem::path LockPath(const std::filesystem::path& folder, const std::string& base) {
  std::filesystem::path path = JournalPath(folder, base);
  return path += kLockEnd;
}

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

void RemoveStaged(Disk& disk, const std::filesystem::path& folder,
                  const std::vector<FamilyFile>& files) {
  for (const FamilyFile& file : files) {
    static_cast<void>(disk.Remove(StagedPath(folder / file.name)));
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

// Names in the journal's lines must be told apart from it; a folder cannot be replaced by a file.
Outcome ProveSavable(const Disk& disk, const std::filesystem::path& folder, const std::string& base,
                     const std::vector<FamilyFile>& files) {
  for (const FamilyFile& file : files) {
    if (!IsOwnFile(file.name, base) || file.name.find('\n') != std::string::npos) {
      return FileError{folder / file.name, "Δεν είναι όνομα αρχείου Μελέτης"};
    }
    if (disk.IsFolder(folder / file.name)) {
      return FileError{folder / file.name, "Είναι φάκελος και όχι αρχείο"};
    }
  }
  return Done{};
}

Outcome StageAll(Disk& disk, const std::filesystem::path& folder,
                 const std::vector<FamilyFile>& files) {
  for (const FamilyFile& file : files) {
    if (Outcome staged = WriteAndFlush(disk, StagedPath(folder / file.name), file.bytes); !staged) {
      return staged;
    }
  }
  return disk.Flush(folder);
}

// The journal appears whole or not at all, and with it the decision that the save takes place.
Outcome WriteJournal(Disk& disk, const std::filesystem::path& folder, const std::string& base,
                     const std::vector<FamilyFile>& files) {
  std::string text(kJournalHead);
  for (const FamilyFile& file : files) {
    text += file.name + "\n";
  }
  text += kJournalFoot;
  const std::filesystem::path journal = JournalPath(folder, base);
  const std::filesystem::path beside = StagedPath(journal);
  Outcome outcome = WriteAndFlush(disk, beside, text);
  if (outcome) {
    outcome = disk.Rename(beside, journal);
  }
  if (!outcome) {
    static_cast<void>(disk.Remove(beside));
    return outcome;
  }
  return disk.Flush(folder);
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
Outcome RenameStaged(Disk& disk, const std::filesystem::path& folder,
                     const std::vector<std::string>& names) {
  for (const std::string& name : names) {
    const std::filesystem::path staged = StagedPath(folder / name);
    if (!disk.Exists(staged)) {
      continue;
    }
    if (Outcome renamed = disk.Rename(staged, folder / name); !renamed && disk.Exists(staged)) {
      return renamed;
    }
  }
  return disk.Flush(folder);
}

// The target of a staged file; empty when `entry` is no staged file.
std::string TargetOf(const std::string& entry) {
  return entry.ends_with(kStagedEnd) ? entry.substr(0, entry.size() - kStagedEnd.size()) : "";
}

void RemoveLeftovers(Disk& disk, const std::filesystem::path& folder, const std::string& base) {
  const auto entries = disk.List(folder);
  for (const std::string& entry : entries ? *entries : std::vector<std::string>{}) {
    const std::string name = TargetOf(entry);
    if (IsOwnFile(name, base) || name == JournalPath(folder, base).filename()) {
      static_cast<void>(disk.Remove(folder / entry));
    }
  }
}

Outcome RemoveJournal(Disk& disk, const std::filesystem::path& folder, const std::string& base) {
  const std::filesystem::path journal = JournalPath(folder, base);
  if (Outcome removed = disk.Remove(journal); !removed && disk.Exists(journal)) {
    return removed;
  }
  // A journal that came back after a power cut would meet the staged files of a later save.
  return disk.Flush(folder);
}

// Names of a whole journal of the study's own; none of any other.
std::vector<std::string> OwnNamesIn(std::string_view text, const std::string& base) {
  std::vector<std::string> names = NamesIn(text);
  const bool own = std::all_of(names.begin(), names.end(),
                               [&base](const std::string& name) { return IsOwnFile(name, base); });
  return own ? names : std::vector<std::string>{};
}

// Does what the journal says and removes it. The caller has the study's lock.
Outcome EndJournal(Disk& disk, const std::filesystem::path& folder, const std::string& base) {
  const std::filesystem::path journal = JournalPath(folder, base);
  const Result<std::string> text = disk.Read(journal);
  if (!text) {
    return text.error().IsMissing() ? Outcome(Done{}) : LeftHalfway(journal, text.error());
  }
  Outcome ended = Done{};
  if (const auto names = OwnNamesIn(*text, base); !names.empty()) {
    ended = RenameStaged(disk, folder, names);
  } else {
    RemoveLeftovers(disk, folder, base);
  }
  ended = ended ? RemoveJournal(disk, folder, base) : ended;
  return ended ? ended : LeftHalfway(journal, ended.error());
}

// Makes the save undone while every old file is still there. False: the journal stays, and with it
// all that is staged, since half of it would be neither the old study nor the new one.
bool TakeBack(Disk& disk, const std::filesystem::path& folder, const std::string& base,
              const std::vector<FamilyFile>& files) {
  const std::filesystem::path journal = JournalPath(folder, base);
  if (disk.Exists(journal)) {
    static_cast<void>(disk.Remove(journal));
    if (disk.Exists(journal)) {
      return false;
    }
    if (!disk.Flush(folder)) {
      return true;  // should the journal come back after a power cut, it finds all that it names
    }
  }
  RemoveStaged(disk, folder, files);
  return true;
}

bool AllStaged(const Disk& disk, const std::filesystem::path& folder,
               const std::vector<std::string>& names) {
  return std::all_of(names.begin(), names.end(), [&](const std::string& name) {
    return disk.Exists(StagedPath(folder / name));
  });
}

// From the first byte to the last; the caller has the study's lock.
Outcome SaveLocked(Disk& disk, const std::filesystem::path& folder, const std::string& base,
                   const std::vector<FamilyFile>& files) {
  if (Outcome ended = EndJournal(disk, folder, base); !ended) {
    return FileError{JournalPath(folder, base),
                     "ΔΕΝ αποθηκεύθηκε : μία προηγούμενη αποθήκευση της Μελέτης δεν ολοκληρώνεται",
                     ended.error().kind};
  }
  RemoveLeftovers(disk, folder, base);
  Outcome outcome = StageAll(disk, folder, files);
  if (outcome) {
    outcome = WriteJournal(disk, folder, base, files);
  }
  std::vector<std::string> names;
  names.reserve(files.size());
  for (const FamilyFile& file : files) {
    names.push_back(file.name);
  }
  const bool journal_stands = outcome.ok();
  if (journal_stands) {
    outcome = RenameStaged(disk, folder, names);
  }
  if (outcome) {
    outcome = RemoveJournal(disk, folder, base);
  } else if ((!journal_stands || AllStaged(disk, folder, names)) &&
             TakeBack(disk, folder, base, files)) {
    return outcome;
  }
  return outcome ? outcome : LeftHalfway(JournalPath(folder, base), outcome.error());
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
  if (Outcome savable = ProveSavable(disk, folder, base, files); !savable) {
    return savable;
  }
  const auto lock = disk.Lock(LockPath(folder, base), kSavePatience);
  if (!lock) {
    return Busy(folder / files.back().name);
  }
  return SaveLocked(disk, folder, base, files);
}

Outcome FinishSave(Disk& disk, const std::filesystem::path& folder, const std::string& base,
                   std::chrono::milliseconds patience) {
  if (!disk.Exists(JournalPath(folder, base))) {
    return Done{};
  }
  const auto lock = disk.Lock(LockPath(folder, base), patience);
  return lock ? EndJournal(disk, folder, base) : Busy(JournalPath(folder, base));
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
