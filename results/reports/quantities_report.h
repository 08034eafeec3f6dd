#pragma once

#include "results/reports/report_table.h"

namespace kalvo {

/// The bill of quantities, a line for each size of the pipe system, in use or not.
extern const ReportTable kQuantitiesReport;

}  // namespace kalvo
