#pragma once

#include "form/desk.h"
#include "platform/xls/xls_application.h"

namespace kalvo {

/// Paints the pages of workbooks: on a printer, into a PDF, into the preview window.
class QtWorkbookPages : public WorkbookPages {
 public:
  /// The desk must outlive this; its separators are those of numbers on paper.
  explicit QtWorkbookPages(Desk& desk) : desk_(desk) {}

  /// All copies collated. False: the user has cancelled that.
  Result<bool> Print(const Workbook& workbook, const PrintOrder& order) override;
  /// What `Questions::preview` says is shown beside the pages.
  Outcome Preview(const Workbook& workbook) override;
  Result<std::string> MakePdf(const Workbook& workbook) override;

 private:
  Desk& desk_;
};

}  // namespace kalvo
