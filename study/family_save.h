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
/// journal goes. A failure before the journal stands leaves every old file as it was.
/// `base`: the study's name without folder and extension.
Outcome SaveFamily(Disk& disk, const std::filesystem::path& folder, const std::string& base,
                   const std::vector<FamilyFile>& files);

/// Ends what a save that was broken off left of study `base`: with a journal the save is finished,
/// without one its staged files are thrown away. Writes nothing when nothing was left.
Outcome FinishSave(Disk& disk, const std::filesystem::path& folder, const std::string& base);

}  // namespace kalvo
