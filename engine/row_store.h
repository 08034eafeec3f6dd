#pragma once

#include <utility>

#include "engine/row_table.h"
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

/// The rows of a work file to be read. Faults: kFile when they cannot be.
inline RowTable ReadRows(const Workspace& workspace, std::string_view name = work_file::kRows) {
  return RowTable(Require(workspace.Rows(name).ReadAll()));
}

/// The rows of a work file while a pass works on them: read once, written once.
class RowStore : public RowTable {
 public:
  /// Faults: kFile when the rows cannot be read.
  explicit RowStore(Workspace& workspace, std::string_view name = work_file::kRows)
      : RowStore(workspace.Rows(name)) {}

  void Save() {
    if (count() > 0) {
      Require(file_.WriteAll(rows()));
    }
  }

  /// Runs `work` and saves, then `saved`. After a fault the rows changed so far are saved all the
  /// same: a run cut short leaves the rows it has written. The fault that goes on is that of the
  /// work.
  template <typename Work, typename Saved>
  void SaveAfter(Work&& work, Saved&& saved) {
    try {
      work();
    } catch (const Fault&) {
      if (count() == 0 || file_.WriteAll(rows()).ok()) {
        saved();
      }
      throw;
    }
    Save();
    saved();
  }
  template <typename Work>
  void SaveAfter(Work&& work) {
    SaveAfter(std::forward<Work>(work), [] {});
  }

 private:
  explicit RowStore(RowFile<SectionRow> file)
      : RowTable(Require(file.ReadAll())), file_(std::move(file)) {}

  RowFile<SectionRow> file_;
};

}  // namespace kalvo
