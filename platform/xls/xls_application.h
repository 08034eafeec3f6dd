#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

#include "platform/xls/workbook.h"
#include "results/reports/spreadsheet_application.h"
#include "study/disk.h"

namespace kalvo {

/// Whoever paints the pages of a workbook.
class WorkbookPages {
 public:
  virtual ~WorkbookPages() = default;
  virtual Result<bool> Print(const Workbook& workbook, const PrintOrder& order) = 0;
  /// Returns when the user has closed them.
  virtual Outcome Preview(const Workbook& workbook) = 0;
  /// The bytes of a PDF file.
  virtual Result<std::string> MakePdf(const Workbook& workbook) = 0;
};

/// Fills and saves .XLS workbooks itself; no spreadsheet program is needed. What is put outside a
/// sheet is left out, and every way to put the workbook out then fails and says so.
class XlsApplication : public SpreadsheetApplication {
 public:
  XlsApplication(Disk& disk, WorkbookPages& pages) : disk_(disk), pages_(pages) {}

  /// The password is for files that are encrypted, which are refused: a sheet that is barred from
  /// changes can be filled without it.
  Result<std::unique_ptr<OpenWorkbook>> Open(const std::filesystem::path& file,
                                             std::string_view password) override;

 private:
  Disk& disk_;
  WorkbookPages& pages_;
};

}  // namespace kalvo
