#include "shell/open_study.h"

#include "engine/driver.h"
#include "engine/lost_walk.h"
#include "engine/trap.h"

namespace kalvo {

void OpenStudyFile(Workbench& bench, RecentList recent, const std::function<bool()>& may_replace) {
  LoadStudy(bench, recent, may_replace);
  Study& study = bench.study;
  if (study.CalcStatus == calc_status::kNothing && study.results_valid) {
    study.lost_walk = FindLostWalk(study);
    RunTrapped(bench, [&] { RefindCriticalBranch(bench); });
    study.CalcStatus =
        calc_status::kNothing;  // a study that cannot be walked is loaded all the same
  }
}

}  // namespace kalvo
