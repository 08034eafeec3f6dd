#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "study/disk.h"
#include "study/save_journal.h"

namespace kalvo {

/// One file of a study on disk: its name in the folder and its bytes, and the date that it is to
/// bear (Disk::SetModified()); none: the moment of the save. A medium without dates is no error.
struct FamilyFile {
  std::string name;
  std::string bytes;
  std::optional<std::int64_t> modified{};
};

/// What a save may do besides writing files.
struct FamilySaveOptions {
  std::vector<std::string> removed{};  ///< names of files that go with the save, in the same unit
  std::function<void(const FamilyFile&)> on_stage{};  ///< before each file is written
};

/// How long a save or an opening waits for another program that saves the same study.
constexpr std::chrono::milliseconds kSavePatience{5000};

/// Saves the files of one study as one unit. All are staged and flushed beside their targets, a
/// journal is written, then each takes its name, in the order given (the main file last), and the
/// journal goes. What an earlier save left is finished or discarded first; another save of the
/// study at the same time is waited for. A failure before the first file has its name leaves every
/// old file as it was and nothing else; a later one, or a journal that cannot be taken back, names
/// the journal: the save is finished by whoever opens or saves the study next.
/// The files to be removed go after the main file has its name. A removed file, and a companion,
/// may spell the base in another case. A name that leaves no room for those of the save's own files
/// is refused before anything is written. `base`: the study's name without folder and extension.
Outcome SaveFamily(Disk& disk, const std::filesystem::path& folder, const std::string& base,
                   const std::vector<FamilyFile>& files, const FamilySaveOptions& options = {});

/// Does what the journal of a save that was broken off tells of study `base`: finishes the save, or
/// throws its staged files away when the journal is no whole one. Without a journal nothing is
/// written: staged files may be those of a save under way, and the next save discards any other.
/// Error: it cannot be finished (PendingSaveOf() says how the study is read then), or of kind
/// kBusy, that save is under way in another program.
Outcome FinishSave(Disk& disk, const std::filesystem::path& folder, const std::string& base,
                   std::chrono::milliseconds patience = kSavePatience);

/// The journal of study `base`.
std::filesystem::path JournalPath(const std::filesystem::path& folder, const std::string& base);

/// The study whose journal bears this name; nothing when it is no journal's.
std::optional<std::string> BaseOfJournal(std::string_view file_name);

/// Where the new bytes of a study's file are until it takes its name.
std::filesystem::path StagedPath(const std::filesystem::path& target);

/// The lock that a save of study `base` holds. Error, of kind kBusy: another holds it for as long
/// as `patience`.
Result<std::unique_ptr<DiskLock>> LockFamily(Disk& disk, const std::filesystem::path& folder,
                                             const std::string& base,
                                             std::chrono::milliseconds patience);

/// What the journal of `base` says. The new bytes of each file are the staged ones where they are
/// still there, else its own: a journal is written when all are staged. Nothing when there is no
/// journal or no whole one. Of one that cannot be read: all that is staged.
PendingSave PendingSaveOf(const Disk& disk, const std::filesystem::path& folder,
                          const std::string& base);

}  // namespace kalvo
