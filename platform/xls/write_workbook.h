#pragma once

#include <string>

#include "platform/xls/workbook.h"

namespace kalvo {

/// The "Workbook" stream of a workbook: what was not changed as it was read, formulas to be
/// calculated anew at the next opening. The same workbook gives the same bytes.
std::string WriteWorkbookStream(const Workbook& workbook);

}  // namespace kalvo
