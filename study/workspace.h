#pragma once

#include "study/clock.h"
#include "study/row_file.h"
#include "study/section_row.h"
#include "study/work_files.h"

namespace kalvo {

/// Seconds between closing a file and replacing it.
constexpr double kReplacePause = 0.1;

/// The folders the program works in. The program folder with its work files is touched here only;
/// the libraries and the studies live on the outer disk, which in the window is the same one.
class Workspace {
 public:
  Workspace(Disk& work_disk, std::filesystem::path folder, Disk& outer_disk,
            std::filesystem::path library_folder, Clock& clock)
      : work_disk_(&work_disk),
        folder_(std::move(folder)),
        outer_disk_(&outer_disk),
        library_folder_(std::move(library_folder)),
        clock_(&clock) {}

  [[nodiscard]] std::filesystem::path Path(std::string_view name) const { return folder_ / name; }
  [[nodiscard]] Disk& outer_disk() { return *outer_disk_; }
  [[nodiscard]] const Disk& outer_disk() const { return *outer_disk_; }
  [[nodiscard]] const std::filesystem::path& library_folder() const { return library_folder_; }

  /// The work file of that name as records.
  template <typename Row = SectionRow>
  [[nodiscard]] RowFile<Row> Rows(std::string_view name = work_file::kRows) {
    return RowFile<Row>(*work_disk_, Path(name));
  }
  template <typename Row = SectionRow>
  [[nodiscard]] RowReader<Row> Rows(std::string_view name = work_file::kRows) const {
    return RowReader<Row>(*work_disk_, Path(name));
  }

  /// False when the file is surely not there (Disk::Exists()).
  [[nodiscard]] bool Exists(std::string_view name) const { return work_disk_->Exists(Path(name)); }
  [[nodiscard]] Result<std::optional<FileStatus>> Status(std::string_view name) const {
    return work_disk_->Status(Path(name));
  }
  /// False when the file is surely not there or empty.
  [[nodiscard]] bool HasBytes(std::string_view name) const;
  [[nodiscard]] Result<std::string> Read(std::string_view name) const;
  Outcome Write(std::string_view name, std::string bytes);
  /// The whole file, empty when it is surely not there. Error: it cannot be read.
  [[nodiscard]] Result<std::string> ReadIfThere(std::string_view name) const;
  /// Deletes the file; that it is missing, or stays, is no error.
  void Delete(std::string_view name);
  /// Deletes the file; that it stays, or cannot be looked at, is an error.
  Outcome Remove(std::string_view name);
  /// `to` becomes a copy of `from`, after the pause.
  Outcome Copy(std::string_view from, std::string_view to);
  /// `from` takes the place of `to`, after the pause: what reads as delete, pause and rename.
  Outcome MoveOver(std::string_view from, std::string_view to);
  /// Forces the file and its name onto the medium: whoever drops an older copy calls this first.
  Outcome Flush(std::string_view name);
  /// Deletes every file of a study in work.
  void DeleteWorkFiles();
  void Pause() const { clock_->Pause(kReplacePause); }
  [[nodiscard]] std::int64_t Now() const { return clock_->Now(); }

 private:
  Disk* work_disk_;
  std::filesystem::path folder_;
  Disk* outer_disk_;
  std::filesystem::path library_folder_;
  Clock* clock_;
};

}  // namespace kalvo
