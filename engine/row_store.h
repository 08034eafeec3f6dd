#pragma once

#include <vector>

#include "study/fault.h"
#include "study/workbench.h"

namespace kalvo {

/// The value of a file operation inside a pass. Faults: kFile when the world said no.
template <typename T>
T Require(Result<T> result) {
  if (!result) {
    throw Fault(result.error());
  }
  return std::move(result).value();
}

/// Work on row `number`: a fault in it keeps the row.
template <typename Work>
void AtRow(int number, Work&& work) {
  try {
    work();
  } catch (Fault& fault) {
    fault.SetRow(number);
    throw;
  }
}

/// Rows of the study while a pass works on them: read once, written once. Numbers begin at 1.
class RowStore {
 public:
  /// Faults: kFile when the rows cannot be read.
  explicit RowStore(const Workspace& workspace, std::string_view name = work_file::kRows)
      : file_(workspace.Rows(name)), rows_(Require(file_.ReadAll())) {}

  [[nodiscard]] int count() const { return static_cast<int>(rows_.size()); }
  [[nodiscard]] std::vector<SectionRow>& rows() { return rows_; }
  [[nodiscard]] const std::vector<SectionRow>& rows() const { return rows_; }

  /// Faults: kBadRecordNumber when there is no such row.
  [[nodiscard]] SectionRow& At(int number) { return rows_[Index(number)]; }
  [[nodiscard]] const SectionRow& At(int number) const { return rows_[Index(number)]; }

  void Save() {
    if (!rows_.empty()) {
      Require(file_.WriteAll(rows_));
    }
  }

  /// Runs `work` and saves. After a fault the rows changed so far are saved all the same: a run cut
  /// short leaves the rows it has written. The fault told is that of the work.
  template <typename Work>
  void SaveAfter(Work&& work) {
    try {
      work();
    } catch (const Fault&) {
      static_cast<void>(rows_.empty() || file_.WriteAll(rows_).ok());
      throw;
    }
    Save();
  }

 private:
  [[nodiscard]] std::size_t Index(int number) const {
    if (number < 1 || number > count()) {
      throw Fault(FaultCode::kBadRecordNumber, "no row " + std::to_string(number));
    }
    return static_cast<std::size_t>(number - 1);
  }

  RowFile<SectionRow> file_;
  std::vector<SectionRow> rows_;
};

}  // namespace kalvo
