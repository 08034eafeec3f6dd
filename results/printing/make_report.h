#pragma once

#include "form/desk.h"
#include "results/reports/report_writer.h"

namespace kalvo {

/// Makes a report under the designer's name, from the templates of the program folder, while the
/// wait indicator says how far it is. False: there is none; the user was told why.
bool MakeReport(Desk& desk, ReportOrder order);

/// Writes a report to a file: the user is asked before an old one goes, and then whether to open
/// the new one. `name` is what its name begins with. False: nothing was written.
bool MakeReportFile(Desk& desk, ReportOrder order, std::string_view name);

/// Whether the file may be written. False: it has no name, which the user was told, or the user
/// wants the one that is there to stay.
bool MayWriteReport(Desk& desk, const ReportTarget& target);

}  // namespace kalvo
