#pragma once

#include "cli/session.h"

namespace kalvo {

/// Whether a save may take the place of a study that is there already.
enum class Existing { kKeep, kReplace };

/// The main file that `save` names for the study read from `source`: in a folder it bears the
/// study's own name.
std::filesystem::path SaveTarget(const std::filesystem::path& save,
                                 const std::filesystem::path& source);

/// Saves the session's study, read from `source`, as `target`, all its files. Over the study itself
/// always; over a file of any other study, be it a companion only, where that may be replaced.
/// Error: as WriteStudy(), or a file is there that must be kept; every file is as it was.
Outcome SaveStudy(Session& session, const std::filesystem::path& source,
                  const std::filesystem::path& target, Existing existing);

}  // namespace kalvo
