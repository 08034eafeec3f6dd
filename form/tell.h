#pragma once

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

}  // namespace kalvo
