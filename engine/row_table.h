#pragma once

#include <vector>

#include "study/by_number.h"
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
  [[nodiscard]] SectionRow& At(int number) { return ByNumber(rows_, number); }
  [[nodiscard]] const SectionRow& At(int number) const { return ByNumber(rows_, number); }

 private:
  std::vector<SectionRow> rows_;
};

}  // namespace kalvo
