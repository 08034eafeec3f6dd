#pragma once

#include <string>
#include <vector>

#include "study/fault.h"
#include "study/section_row.h"

namespace kalvo {

/// Rows of the study in memory, by their number from 1.
class RowTable {
 public:
  RowTable() = default;
  explicit RowTable(std::vector<SectionRow> rows) : rows_(std::move(rows)) {}

  [[nodiscard]] int count() const { return static_cast<int>(rows_.size()); }
  [[nodiscard]] std::vector<SectionRow>& rows() { return rows_; }
  [[nodiscard]] const std::vector<SectionRow>& rows() const { return rows_; }

  /// Faults: kBadRecordNumber when there is no such row.
  [[nodiscard]] SectionRow& At(int number) { return rows_[Index(number)]; }
  [[nodiscard]] const SectionRow& At(int number) const { return rows_[Index(number)]; }

 private:
  [[nodiscard]] std::size_t Index(int number) const {
    if (number < 1 || number > count()) {
      throw Fault(FaultCode::kBadRecordNumber, "no row " + std::to_string(number));
    }
    return static_cast<std::size_t>(number - 1);
  }

  std::vector<SectionRow> rows_;
};

}  // namespace kalvo
