#pragma once

#include <string>
#include <string_view>

#include "platform/xls/compound_file.h"
#include "platform/xls/workbook.h"

namespace kalvo {

/// A .XLS file: its workbook, and all else that is in the compound file, which is kept as it is.
struct WorkbookFile {
  Workbook workbook;
  CompoundEntry root;
};

/// Errors, without a file: why the bytes are no workbook that can be filled.
Result<WorkbookFile> ReadWorkbookFile(std::string_view bytes);

/// The bytes of the file; the same ones for the same workbook. Errors, without a file.
Result<std::string> WriteWorkbookFile(const WorkbookFile& file);

}  // namespace kalvo
