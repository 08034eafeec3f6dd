#include "study/family_save.h"

#include <algorithm>

#include "study/study_extensions.h"

namespace kalvo {

namespace {

constexpr std::string_view kStagedEnd = kBesideEnd;
constexpr std::string_view kJournalHead = "KALVOFLUME 1\n";
constexpr std::string_view kJournalFoot = "TELOS\n";

std::filesystem::path Staged(const std::filesystem::path& folder, const std::string& name) {
  return folder / (name + std::string(kStagedEnd));
}

std::filesystem::path JournalPath(const std::filesystem::path& folder, const std::string& base) {
  return folder / (base + ".saving~");
}

void RemoveStaged(Disk& disk, const std::filesystem::path& folder,
                  const std::vector<FamilyFile>& files) {
  for (const FamilyFile& file : files) {
    static_cast<void>(disk.Remove(Staged(folder, file.name)));
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
    if (Outcome staged = WriteAndFlush(disk, Staged(folder, file.name), file.bytes); !staged) {
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
  const std::filesystem::path beside = Staged(folder, journal.filename().string());
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
    const std::filesystem::path staged = Staged(folder, name);
    if (!disk.Exists(staged)) {
      continue;
    }
    if (Outcome renamed = disk.Rename(staged, folder / name); !renamed && disk.Exists(staged)) {
      return renamed;
    }
  }
  return disk.Flush(folder);
}

void RemoveLeftovers(Disk& disk, const std::filesystem::path& folder, const std::string& base) {
  const auto entries = disk.List(folder);
  for (const std::string& entry : entries ? *entries : std::vector<std::string>{}) {
    if (!entry.ends_with(kStagedEnd)) {
      continue;
    }
    const std::string name = entry.substr(0, entry.size() - kStagedEnd.size());
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

// Does what a journal tells and removes it.
Outcome EndJournal(Disk& disk, const std::filesystem::path& folder, const std::string& base,
                   const std::vector<std::string>& names) {
  Outcome renamed = RenameStaged(disk, folder, names);
  return renamed ? RemoveJournal(disk, folder, base) : renamed;
}

}  // namespace

Outcome SaveFamily(Disk& disk, const std::filesystem::path& folder, const std::string& base,
                   const std::vector<FamilyFile>& files) {
  if (Outcome savable = ProveSavable(disk, folder, base, files); !savable) {
    return savable;
  }
  if (Outcome finished = FinishSave(disk, folder, base); !finished) {
    return finished;
  }
  RemoveLeftovers(disk, folder, base);
  Outcome outcome = StageAll(disk, folder, files);
  if (outcome) {
    outcome = WriteJournal(disk, folder, base, files);
  }
  if (!outcome) {
    // The journal first: while it stands, staged files still there would take their names.
    static_cast<void>(disk.Remove(JournalPath(folder, base)));
    RemoveStaged(disk, folder, files);
    return outcome;
  }
  std::vector<std::string> names;
  names.reserve(files.size());
  for (const FamilyFile& file : files) {
    names.push_back(file.name);
  }
  return EndJournal(disk, folder, base, names);
}

Outcome FinishSave(Disk& disk, const std::filesystem::path& folder, const std::string& base) {
  const std::filesystem::path journal = JournalPath(folder, base);
  if (!disk.Exists(journal)) {
    return Done{};
  }
  const Result<std::string> text = disk.Read(journal);
  if (!text) {
    return disk.Exists(journal) ? Outcome(text.error()) : Outcome(Done{});
  }
  const std::vector<std::string> names = NamesIn(*text);
  const bool own = std::all_of(names.begin(), names.end(),
                               [&base](const std::string& name) { return IsOwnFile(name, base); });
  if (own && !names.empty()) {
    return EndJournal(disk, folder, base, names);
  }
  RemoveLeftovers(disk, folder, base);
  return RemoveJournal(disk, folder, base);
}

}  // namespace kalvo
