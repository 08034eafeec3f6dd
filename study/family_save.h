#pragma once

#include <string>
#include <vector>

#include "study/disk.h"

namespace kalvo {

/// One file of a study on disk: its name in the folder and its bytes.
struct FamilyFile {
  std::string name;
  std::string bytes;
};

/// Saves the files of one study as one unit. All are staged and flushed beside their targets, a
/// journal is written, then each takes its name, in the order given (the main file last), and the
/// journal goes. What an earlier save left is finished or discarded first. A failure before the
/// journal stands leaves every old file as it was.
/// `base`: the study's name without folder and extension.
Outcome SaveFamily(Disk& disk, const std::filesystem::path& folder, const std::string& base,
                   const std::vector<FamilyFile>& files);

/// Does what the journal of a save that was broken off tells of study `base`: finishes the save, or
/// throws its staged files away when the journal is no whole one. Without a journal nothing is
/// written: staged files may be those of a save under way, and the next save discards any other.
Outcome FinishSave(Disk& disk, const std::filesystem::path& folder, const std::string& base);

}  // namespace kalvo
