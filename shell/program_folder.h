#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <string>

#include "study/disk.h"

namespace kalvo {

/// What the start of the program knows of its surroundings.
struct Surroundings {
  std::filesystem::path argument;  ///< folder or study of the command line; may be empty
  std::filesystem::path executable_folder;
  std::map<std::string, std::string> environment;  ///< KALVOFLUME_HOME, XDG_..._HOME, HOME
};

/// Where the program works. "A study given" is one that is to be opened.
struct ProgramPlaces {
  std::filesystem::path folder;        ///< libraries and work files
  std::filesystem::path state_folder;  ///< the log of programs and scratch notes
  std::filesystem::path study;         ///< full path of the study given; empty: none
  std::optional<FileError> refused;    ///< why the argument is no study and no folder
};

/// The program folder: an argument that is a folder; else KALVOFLUME_HOME; else the executable's
/// folder when it holds pipe libraries and can be written (the copy on a stick); else kalvoflume
/// below the user's data home. A study is also found by its name without extension, when there is
/// one of one kind only.
ProgramPlaces FindPlaces(Disk& disk, const Surroundings& surroundings);

/// Makes the program folder ready: pipe libraries and fluids of `installed`/library, the templates
/// of reports of `installed`/templates, the databases of `installed`/shells and the sound of
/// `installed`/sound that it lacks are copied; none is overwritten. A folder that had no library
/// gets the sample studies, too, into `PFILES`. What `installed` lacks is passed over. Error: the
/// folder cannot be written.
Outcome FillProgramFolder(Disk& disk, const std::filesystem::path& folder,
                          const std::filesystem::path& installed);

}  // namespace kalvo
