#pragma once

#include <vector>

#include "platform/xls/biff_records.h"
#include "platform/xls/cell_format.h"

namespace kalvo {

/// The looks that a workbook's FONT, FORMAT, XF and PALETTE records state.
struct WorkbookFormats {
  std::vector<CellFormat> formats;  ///< one for each XF record
  CellFont default_font;            ///< the first one
};

/// A font, format or colour that is not there is the usual one: cells look plainer, and nothing is
/// lost, since the records themselves are kept. A cell's XF states its whole look ([MS-XLS]
/// 2.2.6.1.1), so the style it hangs on is not asked.
WorkbookFormats ReadFormats(const std::vector<Record>& globals);

}  // namespace kalvo
