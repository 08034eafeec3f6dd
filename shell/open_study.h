#pragma once

#include "study/load_study.h"

namespace kalvo {

/// How the opening of a study's file ended.
enum class OpenEnd {
  kNotOpened,  ///< what was open stays, unless the load broke off; the user was told why
  kOpened,
  kWithoutBranch,  ///< opened; it has results, but their critical branch cannot be found
};

/// Loads the study at `study path` as every front-end does: LoadStudy(), and for valid results the
/// `critical branch` found again from them, whatever an old file says of it. Results of a network
/// that cannot be walked stay; `lost_walk` says where that is.
OpenEnd OpenStudyFile(Workbench& bench, RecentList recent,
                      const std::function<bool()>& may_replace = {});

/// Tells the user why a study could not be loaded.
void TellLoadFailure(Workbench& bench, const FileError& error);

}  // namespace kalvo
