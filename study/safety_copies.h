#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "study/workbench.h"

namespace kalvo {

/// Folder of the safety copies below that of the studies, and how many are kept.
constexpr const char* kSafetyFolder = "ASFALEIA";
constexpr std::size_t kSafetyCopies = 10;

/// Where safety copies go.
struct SafetyFolders {
  std::filesystem::path studies;  ///< the folder of the studies
  std::filesystem::path state;    ///< where that one takes none; empty: nowhere else
};

/// True when what was entered (rows, fluid, winter rows) is, byte by byte, in the files at
/// `study path`, and neither the sheet, winter's entry nor an unchecked list of emitters holds what
/// they do not. Without rows and without any sheet there is nothing to lose, and it is true too.
bool IsSaved(const Workbench& bench);

/// Before the study in the work files is thrown away: copies it to safety unless it is saved
/// (IsSaved()). True: it may go. A copy in the folder `in_use` is not taken away, however old.
bool KeepSafetyCopy(Workbench& bench, const SafetyFolders& folders,
                    const std::filesystem::path& in_use = {});

/// Entered data (rows, fluid, winter rows, sheet) that cannot be read: no copy is made without
/// them, or, where they stay on disk as they are, they are left out and a box names them.
enum class UnreadableEntries { kRefuse, kLeaveOut };

/// The same whatever is saved elsewhere. The work files are copied byte by byte, whole records or
/// not, into a dated folder of `ASFALEIA` below the studies' folder; where that cannot be, below
/// the state folder, and a box says so. Where neither can be the user is asked whether to go on
/// without a copy; "no" is the default, and false. Files without entered data that cannot be read
/// are left out, and a box names them. The copy opens as any study does; what is no study's file,
/// or is damaged, keeps its name. The newest kSafetyCopies are kept.
bool KeepSafetyCopyAnyway(Workbench& bench, const SafetyFolders& folders,
                          const std::filesystem::path& in_use = {},
                          UnreadableEntries unreadable = UnreadableEntries::kRefuse);

/// Names of the safety copies in a folder, the oldest first: folders named as copies are, no
/// others.
std::vector<std::string> SafetyCopyNames(const Disk& disk, const std::filesystem::path& above);

/// A safety copy whose rows can be opened.
struct SafetyCopy {
  std::filesystem::path file;    ///< the main file in the copy's folder
  std::filesystem::path origin;  ///< the study's own file; empty: it had none
  std::string title;
  std::string moment;  ///< when it was made, "dd/MM/yyyy, HH:mm:ss"
  int rows = 0;
};

/// The safety copies of a kind, of both places, the newest first.
std::vector<SafetyCopy> ListSafetyCopies(const Disk& disk, const SafetyFolders& folders,
                                         SystemKind kind);

/// The folder of the safety copy that the file is in, also when a link leads there; empty for any
/// other file.
std::filesystem::path SafetyCopyFolder(const Disk& disk, const std::filesystem::path& file);

/// A work file that is there, can be read, and cannot be what its name says: damaged.
bool IsDamaged(const Workbench& bench, std::string_view work_name);

}  // namespace kalvo
