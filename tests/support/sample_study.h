#pragma once

#include <filesystem>
#include <string>

#include "tests/support/test_bench.h"

namespace kalvo {

/// Three calculated rows of the kind under `title`, the last two with an emitter each.
std::vector<SectionRow> SampleRows(SystemKind kind, std::string_view title);

/// Makes the sample rows the open study of `bench`, with valid results, a critical branch, two
/// statistics rows, winter rows in a closed system and a fluid of its own; all bear the title.
void PutSampleStudy(Workbench& bench, std::string_view title);

/// Puts a main file into the folder of the bench's studies.
void PutMain(TestBench& bench, const std::string& name, std::string bytes);
void PutMain(TestBench& bench, const std::string& name, std::span<const SectionRow> rows);

/// Puts the sample study's whole family there, saved as `name`.
void SaveSample(TestBench& bench, const std::string& name, std::string_view title);

/// Loads a study of that folder.
Result<bool> Load(TestBench& bench, const std::string& name);

/// A study on the machine's own disk: libraries and studies in a temporary folder that goes with
/// the object, work files in memory.
class DiskBench {
 public:
  DiskBench();
  DiskBench(const DiskBench&) = delete;
  DiskBench& operator=(const DiskBench&) = delete;
  ~DiskBench();

  [[nodiscard]] const std::filesystem::path& folder() const { return folder_; }
  /// Folder of the studies, empty at first.
  [[nodiscard]] std::filesystem::path studies() const { return folder_ / "studies"; }
  [[nodiscard]] std::filesystem::path library() const { return folder_ / "library"; }

 private:
  std::filesystem::path folder_;
};

}  // namespace kalvo
