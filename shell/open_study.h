#pragma once

#include "study/load_study.h"

namespace kalvo {

/// Loads the study at `study path` as every front-end does: LoadStudy(), and for valid results the
/// `critical branch` found again from them, whatever an old file says of it. Results of a network
/// that cannot be walked stay; `lost_walk` says where that is. False: there are results, but their
/// branch cannot be found; the study is loaded all the same.
bool OpenStudyFile(Workbench& bench, RecentList recent,
                   const std::function<bool()>& may_replace = {});

}  // namespace kalvo
