#include "shell/open_study.h"

#include "engine/driver.h"
#include "engine/trap.h"

namespace kalvo {

void OpenStudyFile(Workbench& bench, RecentList recent) {
  LoadStudy(bench, recent);
  Study& study = bench.study;
  if (study.CalcStatus == calc_status::kNothing && study.results_valid) {
    RunTrapped(bench, [&] { RefindCriticalBranch(bench); });
    study.CalcStatus =
        calc_status::kNothing;  // a study that cannot be walked is loaded all the same
  }
}

}  // namespace kalvo
