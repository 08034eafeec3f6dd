#pragma once

#include <functional>

#include "results/reports/report_table.h"
#include "results/reports/spreadsheet_application.h"

namespace kalvo {

/// Is told of each line that was put, from 1, and of how many there are.
using ReportProgress = std::function<void(std::size_t line, std::size_t count)>;

/// Pages that so many lines take; one at least.
int PageCount(const PageShape& page, std::size_t lines);

/// Puts a report into a workbook that was opened from its template: first all pages, then what is
/// on them. Error: the template lacks a sheet of the report.
Outcome FillReport(OpenWorkbook& workbook, const ReportTable& table, const ReportSource& source,
                   const ReportProgress& progress = {});

}  // namespace kalvo
