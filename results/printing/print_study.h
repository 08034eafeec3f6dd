#pragma once

#include "form/desk.h"
#include "results/reports/report_writer.h"

namespace kalvo {

/// Has the route chosen, then prints data or results of the study by it (`FrmPRNR1`).
void PrintByChosenRoute(Desk& desk, ReportKind kind);

/// The same by the spreadsheet's route, which is not asked for.
void PrintBySpreadsheet(Desk& desk, ReportKind kind);

/// The study's name as a report's file begins with; empty when it has none.
std::string ReportBaseName(const Study& study);

}  // namespace kalvo
