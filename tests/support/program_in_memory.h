#pragma once

#include <map>
#include <string>

#include "study/memory_disk.h"
#include "study/workbench.h"

namespace kalvo {

/// Files of a folder by name.
using FolderImage = std::map<std::string, std::string>;

/// Names in the folder, none of one that is not there.
inline std::vector<std::string> NamesIn(const Disk& disk, const std::filesystem::path& folder) {
  const auto names = disk.List(folder);
  return names ? *names : std::vector<std::string>{};
}

inline FolderImage ImageOf(const Disk& disk, const std::filesystem::path& folder) {
  FolderImage image;
  for (const std::string& name : NamesIn(disk, folder)) {
    const auto bytes = disk.Read(folder / name);
    image[name] = bytes ? *bytes : "(unreadable)";
  }
  return image;
}

/// Where the studies of a program in memory are kept.
inline const std::filesystem::path kStudies = "/studies";

/// A program without a window whose folders are in memory, empty, with the user given.
template <typename User>
class ProgramInMemory {
 public:
  ProgramInMemory() = default;
  ProgramInMemory(const ProgramInMemory&) = delete;
  ProgramInMemory& operator=(const ProgramInMemory&) = delete;

  static constexpr const char* kProgramFolder = "/program";
  static constexpr const char* kLibraryFolder = "/library";

  MemoryDisk work_disk;
  MemoryDisk outer_disk;
  NoWait clock;
  Workspace workspace{work_disk, kProgramFolder, outer_disk, kLibraryFolder, clock};
  PipeList pipes;
  Study study;
  User prompter;
  Workbench bench{study, workspace, pipes, prompter};
};

}  // namespace kalvo
