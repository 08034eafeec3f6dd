#pragma once

#include <string>

#include "study/workbench.h"

namespace kalvo {

/// Shows why the world said no.
inline void TellError(Workbench& bench, const FileError& error) {
  bench.Ask({" !!... ΠΡΟΣΟΧΗ ...!! ", {error.Line()}, box_style::kStop});
}

/// Shows the error of an outcome that has one; true when it has none.
inline bool TellIfFailed(Workbench& bench, const Outcome& outcome) {
  if (!outcome) TellError(bench, outcome.error());
  return outcome.ok();
}

/// What became of an action, or of a painting, that ended in an exception which nobody caught.
constexpr const char* kNotCompleted = "... Η εντολή ΔΕΝ ολοκληρώθηκε ...";
constexpr const char* kNotPainted = "... Η οθόνη ΔΕΝ ενημερώθηκε ...";

/// Writes that exception down and shows it to the user.
inline void TellBroken(Workbench& bench, const std::exception& cause,
                       const std::string& what = kNotCompleted) {
  const FaultNote note = bench.NoteFault(cause);
  bench.Ask({" !!... ΠΡΟΣΟΧΗ ...!! ", {what, KnownLine(note)}, box_style::kStop});
}

}  // namespace kalvo
