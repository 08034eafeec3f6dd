#pragma once

#include "platform/xls/read_sheet.h"

namespace kalvo {

/// Whether records of that type are rows and cells.
bool IsCellRecord(std::uint16_t type);

/// Reads the records of rows and cells, one after the other, into a sheet.
class CellTableReader {
 public:
  CellTableReader(Workbook& workbook, Sheet& sheet, CellAllowance& allowance)
      : workbook_(workbook), sheet_(sheet), allowance_(allowance) {}

  /// A record for which IsCellRecord() holds. Errors, without a file.
  Outcome Read(Record record);
  /// Any other record among them: it stays with the formula before it that it belongs to, or with
  /// the row. False when there is no row yet.
  bool Carry(Record& record);

 private:
  Outcome ReadRow(const Record& record);
  Outcome ReadFormula(Record record);
  Outcome ReadSeveral(const Record& record, bool numbers);
  Outcome ReadOne(const Record& record);
  Outcome Add(int row, unsigned column, unsigned format, CellValue value,
              std::shared_ptr<const CellFormula> formula = nullptr);
  Result<CellValue> ValueOf(std::uint16_t type, RecordReader& reader);

  Workbook& workbook_;
  Sheet& sheet_;
  CellAllowance& allowance_;
  WorkbookRow* row_ = nullptr;            // the one read last
  std::shared_ptr<CellFormula> formula_;  // the one read last, while its records may follow
  Cell* formula_cell_ = nullptr;
};

}  // namespace kalvo
