#pragma once

#include <vector>

#include "platform/xls/workbook.h"

namespace kalvo {

/// How many more cells a workbook may have while it is read.
struct CellAllowance {
  std::size_t left = 250'000;
};

/// Fills `sheet` from the records of its substream. Texts and formats of `workbook` are there;
/// texts that stand in the sheet itself are added to them. Errors, without a file.
Outcome ReadSheet(std::vector<Record> records, Workbook& workbook, Sheet& sheet,
                  CellAllowance& allowance);

}  // namespace kalvo
