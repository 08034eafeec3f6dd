#pragma once

#include "results/reports/report_table.h"

namespace kalvo {

/// The reports with a line for each section: results, and data of either kind of system.
extern const ReportTable kResultsReport;
extern const ReportTable kClosedDataReport;
extern const ReportTable kOpenDataReport;

}  // namespace kalvo
