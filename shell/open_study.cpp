#include "shell/open_study.h"

#include "engine/driver.h"
#include "engine/lost_walk.h"

namespace kalvo {

OpenEnd OpenStudyFile(Workbench& bench, RecentList recent,
                      const std::function<bool()>& may_replace) {
  const Result<bool> loaded = LoadStudy(bench, recent, may_replace);
  if (!loaded) {
    TellLoadFailure(bench, loaded.error());
    return OpenEnd::kNotOpened;
  }
  if (!*loaded) return OpenEnd::kNotOpened;
  Study& study = bench.study;
  if (!study.results_valid) return OpenEnd::kOpened;
  study.lost_walk = FindLostWalk(study);
  return RefindCriticalBranch(bench) ? OpenEnd::kOpened : OpenEnd::kWithoutBranch;
}

void TellLoadFailure(Workbench& bench, const FileError& error) {
  bench.Ask({" !!... ΠΡΟΣΟΧΗ ...!! ",
             {"... Ελλιπές Σύνολο Αρχείων Μελέτης ...", error.Line()},
             box_style::kStop});
}

}  // namespace kalvo
