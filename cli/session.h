#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "cli/console_prompter.h"
#include "study/memory_workspace.h"
#include "study/workbench.h"

namespace kalvo {

/// A workspace of a command's own: the work files live in memory, libraries and studies on disk.
/// Nothing is written or deleted in the library folder.
class Session {
 public:
  /// Loads the pipe systems; failing that ok() is false and the user has been told.
  Session(const Console& console, const std::filesystem::path& library);

  [[nodiscard]] bool ok() const { return ok_; }
  [[nodiscard]] Study& study() { return study_; }
  [[nodiscard]] const Study& study() const { return study_; }
  [[nodiscard]] Workspace& workspace() { return *workspace_; }
  [[nodiscard]] const Workspace& workspace() const { return *workspace_; }
  [[nodiscard]] const PipeList& pipes() const { return pipes_; }
  [[nodiscard]] ConsolePrompter& prompter() { return prompter_; }
  [[nodiscard]] Workbench bench() { return {study_, *workspace_, pipes_, prompter_}; }

  /// Loads the study at `path`, whose kind its extension tells (closed without one). False: it
  /// cannot be read and the user has been told.
  bool Load(const std::filesystem::path& path);

  /// Rows in work. Empty when they cannot be read.
  [[nodiscard]] std::vector<SectionRow> Rows() const;

 private:
  [[nodiscard]] const Disk& outer_disk() const { return workspace_->outer_disk(); }

  MemoryWorkspace workspace_;
  PipeList pipes_;
  Study study_;
  ConsolePrompter prompter_;
  bool ok_ = false;
};

/// Tells on `err`, unless the console is quiet, that no file told the study's fluid.
void TellAssumedFluid(const Console& console, const Session& session);

/// The delivered libraries' folder beside the running program.
std::filesystem::path DeliveredLibrary();

}  // namespace kalvo
