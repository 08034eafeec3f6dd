#pragma once

#include <optional>

#include "form/desk.h"
#include "results/reports/report_writer.h"

namespace kalvo {

/// Makes a report under the designer's name, which every row has then, from the templates of the
/// program folder, while the wait indicator says how far it is. False: there is none; the user was
/// told why.
bool MakeReport(Desk& desk, ReportOrder order);

/// Writes a report to a file: the user agrees to a workbook, is asked before an old file goes, and
/// then whether to open the new one. `name` is what its name begins with. False: nothing was
/// written.
bool MakeReportFile(Desk& desk, ReportOrder order, std::string_view name);

/// What a report's file is called where the form has no field for it: as the study, or what the
/// user chooses for a study that has no name. Nothing: none was chosen.
std::optional<std::string> ReportNameOfStudy(Desk& desk, const ReportOrder& order);

/// Has the user choose a file in the desktop's dialogue. Nothing: none was chosen.
std::optional<std::string> AskForReportName(Desk& desk, std::string_view proposed,
                                            std::vector<std::string> filters);

/// Whether the file may be written. False: it has no name, which the user was told, or the user
/// wants the one that is there to stay.
bool MayWriteReport(Desk& desk, const ReportTarget& target);

}  // namespace kalvo
