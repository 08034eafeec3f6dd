#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "engine/driver.h"
#include "study/memory_workspace.h"
#include "study/workbench.h"

namespace kalvo {

/// A folder below the system's temporary one, which goes with the object.
class TemporaryFolder {
 public:
  /// Errors: std::runtime_error when it cannot be made.
  TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder();

  [[nodiscard]] const std::filesystem::path& path() const { return path_; }

 private:
  std::filesystem::path path_;
};

/// A BuildingStudy() or SupplyStudy() with its fluid in a temporary folder that goes with the
/// object.
class StudyFiles {
 public:
  /// Errors: std::runtime_error when the files cannot be written.
  StudyFiles(SystemKind kind, int sections);

  [[nodiscard]] std::filesystem::path path() const { return path_; }

 private:
  TemporaryFolder folder_;
  std::filesystem::path path_;
};

/// The delivered pipe systems. Errors: std::runtime_error when there are none.
PipeList DeliveredPipes();

/// Any box means that what is measured is not what was meant: std::runtime_error.
class NoQuestions : public Prompter {
 public:
  Answer ShowMessage(int code, const Study& study) override;
  Answer Ask(const Box& box) override;
};

/// A program without a window on the delivered libraries: work files live in memory.
class BenchProgram {
 public:
  explicit BenchProgram(const PipeList& pipes);

  /// Errors: std::runtime_error when the study does not load.
  void Load(const std::filesystem::path& path);
  /// The calculation command. Errors: std::runtime_error when it does not come to its end.
  void Calculate(Method method);
  /// The winter run of a calculated study, at three fifths of summer's flows. Errors:
  /// std::runtime_error when it does not come to its end.
  void RunWinter();
  /// The run alone, on the rows as they stand. Errors: std::runtime_error when it is broken off.
  void Run(Method method);
  [[nodiscard]] std::vector<SectionRow> Rows() const;

 private:
  MemoryWorkspace workspace_;
  Study study_;
  NoQuestions prompter_;
  Workbench bench_;
};

}  // namespace kalvo
