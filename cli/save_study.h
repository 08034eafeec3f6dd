#pragma once

#include "cli/session.h"

namespace kalvo {

/// Whether a save may take the place of a study that is there already.
enum class Existing { kKeep, kReplace };

/// What a run does to the diameters of the sections.
enum class Diameters { kKept, kSizedAnew };

/// The main file that `save` names for the study read from `source`: in a folder it bears the
/// study's own name.
std::filesystem::path SaveTarget(const std::filesystem::path& save,
                                 const std::filesystem::path& source);

/// Whether the study read from `source` may be saved as `target`: over itself always; over a file
/// of any other study, be it a companion only, where that may be replaced. Error: the folder is
/// missing, or a file is there that must be kept.
Outcome CheckTarget(Session& session, const std::filesystem::path& source,
                    const std::filesystem::path& target, Existing existing);

/// Whether a run that sizes the sections anew may be saved: over the study itself it would drop the
/// diameters that the user imposed, which only a wish to replace them allows.
Outcome CheckImposed(const Session& session, const std::filesystem::path& source,
                     const std::filesystem::path& target, Existing existing);

/// Saves the session's study as `target`, all its files. Error: as WriteStudy(); every file is as
/// it was.
Outcome SaveStudy(Session& session, const std::filesystem::path& target);

}  // namespace kalvo
