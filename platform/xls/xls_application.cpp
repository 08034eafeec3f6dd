#include "platform/xls/xls_application.h"

#include <optional>
#include <utility>

#include "platform/xls/bold_formats.h"
#include "platform/xls/workbook_file.h"
#include "platform/xls/workbook_reasons.h"
#include "study/letter_case.h"

namespace kalvo {

namespace {

class OpenXls : public OpenWorkbook {
 public:
  OpenXls(WorkbookFile file, Disk& disk, WorkbookPages& pages)
      : file_(std::move(file)), disk_(disk), pages_(pages) {}

  [[nodiscard]] std::optional<int> FindSheet(std::string_view name) const override {
    const auto& sheets = file_.workbook.sheets;
    for (std::size_t i = 0; i < sheets.size(); ++i) {
      if (sheets[i].is_worksheet && EqualIgnoringCase(sheets[i].name, name)) {
        return static_cast<int>(i);
      }
    }
    return std::nullopt;
  }

  void PutText(int sheet, int row, int column, std::string_view text) override {
    Sheet* found = SheetWith(sheet, row, column);
    if (found != nullptr) kalvo::PutText(file_.workbook, *found, row - 1, column - 1, text);
  }
  void PutNumber(int sheet, int row, int column, double value) override {
    Sheet* found = SheetWith(sheet, row, column);
    if (found != nullptr) kalvo::PutNumber(file_.workbook, *found, row - 1, column - 1, value);
  }
  void Embolden(int sheet, int row, int column) override {
    Sheet* found = SheetWith(sheet, row, column);
    if (found != nullptr) bold_.Apply(file_.workbook, *found, row - 1, column - 1);
  }
  void CopyRows(int from_sheet, RowSpan rows, int to_sheet, int target) override {
    const Sheet* from = SheetWith(from_sheet, rows.first, 1);
    Sheet* to = SheetWith(to_sheet, target, 1);
    if (from == nullptr || to == nullptr || rows.last < rows.first) return;
    if (SheetWith(to_sheet, target + (rows.last - rows.first), 1) == nullptr) return;
    CopySheetRows(*from, rows.first - 1, rows.last - 1, *to, target - 1);
  }
  void BreakBefore(int sheet, int row) override {
    Sheet* found = SheetWith(sheet, row, 1);
    if (found != nullptr && !AddPageBreak(*found, row - 1)) fits_ = false;
  }
  void SetRowHeight(int sheet, int row, double points) override {
    Sheet* found = SheetWith(sheet, row, 1);
    if (found != nullptr) SetSheetRowHeight(*found, row - 1, points);
  }
  void Protect(std::string_view password) override { ProtectSheets(file_.workbook, password); }

  Outcome SaveAs(const std::filesystem::path& file) override {
    if (!fits_) return DoesNotFit(file);
    return Save(file, WriteWorkbookFile(file_));
  }
  Outcome SaveAsPdf(const std::filesystem::path& file) override {
    if (!fits_) return DoesNotFit(file);
    return Save(file, pages_.MakePdf(file_.workbook));
  }
  Result<bool> Print(const PrintOrder& order) override {
    if (!fits_) return DoesNotFit({});
    return pages_.Print(file_.workbook, order);
  }
  Outcome Preview() override {
    if (!fits_) return DoesNotFit({});
    return pages_.Preview(file_.workbook);
  }

 private:
  static FileError DoesNotFit(const std::filesystem::path& file) {
    return {file, std::string(workbook_reason::kDoesNotFit)};
  }

  // The sheet when that cell is in it; noted when it is not.
  Sheet* SheetWith(int sheet, int row, int column) {
    auto& sheets = file_.workbook.sheets;
    const bool there = sheet >= 0 && static_cast<std::size_t>(sheet) < sheets.size() &&
                       sheets[static_cast<std::size_t>(sheet)].is_worksheet &&
                       IsInSheet(row - 1, column - 1);
    fits_ = fits_ && there;
    return there ? &sheets[static_cast<std::size_t>(sheet)] : nullptr;
  }

  Outcome Save(const std::filesystem::path& file, Result<std::string> bytes) {
    if (bytes) return ReplaceFile(disk_, file, std::move(*bytes));
    FileError error = bytes.error();
    if (error.file.empty()) error.file = file;
    return error;
  }

  WorkbookFile file_;
  Disk& disk_;
  WorkbookPages& pages_;
  BoldFormats bold_;
  bool fits_ = true;
};

}  // namespace

Result<std::unique_ptr<OpenWorkbook>> XlsApplication::Open(const std::filesystem::path& file,
                                                           std::string_view /*password*/) {
  const auto bytes = disk_.Read(file);
  if (!bytes) return bytes.error();
  auto read = ReadWorkbookFile(*bytes);
  if (!read) return FileError{file, read.error().reason};
  // It is what is filled and what is painted.
  const Sheet& first = read->workbook.sheets.front();
  if (!first.is_worksheet || first.hidden) {
    return FileError{file, std::string(workbook_reason::kFirstSheet)};
  }
  return std::unique_ptr<OpenWorkbook>(std::make_unique<OpenXls>(std::move(*read), disk_, pages_));
}

}  // namespace kalvo
