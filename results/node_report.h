#pragma once

#include "form/desk.h"

namespace kalvo {

/// Writes `SectionsFlows.txt` and shows it with the viewer that the user picks. A network that
/// cannot be walked is told (message 2004); what was written until then is shown.
/// `test_single_section`: a single section writes no report.
void ShowNodeReport(Desk& desk, bool test_single_section);

}  // namespace kalvo
