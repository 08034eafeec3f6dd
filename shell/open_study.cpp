#include "shell/open_study.h"

#include "engine/driver.h"
#include "engine/lost_walk.h"

namespace kalvo {

bool OpenStudyFile(Workbench& bench, RecentList recent, const std::function<bool()>& may_replace) {
  LoadStudy(bench, recent, may_replace);
  Study& study = bench.study;
  if (study.CalcStatus != calc_status::kNothing || !study.results_valid) return true;
  study.lost_walk = FindLostWalk(study);
  return RefindCriticalBranch(bench);
}

}  // namespace kalvo
