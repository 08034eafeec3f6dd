#pragma once

#include <string_view>

#include "platform/xls/workbook.h"

namespace kalvo {

/// The workbook of a "Workbook" stream (BIFF8). Errors, without a file: why it is none that can be
/// filled.
Result<Workbook> ReadWorkbookStream(std::string_view stream);

}  // namespace kalvo
