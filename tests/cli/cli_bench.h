#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "cli/console.h"
#include "tests/support/sample_study.h"

namespace kalvo {

/// What a run of `kalvo` gave.
struct Told {
  int code = 0;
  std::string out;
  std::string err;
};

/// Runs `kalvo` in this process, piped, with Greek separators.
Told Kalvo(const std::vector<std::string>& arguments);

/// The same on a terminal of `width` columns; messages on a terminal too.
Told KalvoOnTerminal(const std::vector<std::string>& arguments, int width);

/// Runs the built program through the shell: `command` with "kalvo" in place of its path. Both
/// streams come in `out`.
Told RunProgram(const std::string& command);

/// Folder of the calculated networks to compare with, and its libraries.
std::filesystem::path CasesFolder();
std::vector<std::string> CaseLibrary();

/// Text of tests/cli/golden/`name`.
std::string Golden(const std::string& name);

/// Studies and a library of one steel pipe system on disk.
class CliBench : public DiskBench {
 public:
  /// Writes a file into the studies' folder, beside rows their fluid, water. Gives its path.
  std::string Put(const std::string& name, std::string bytes) const;
  std::string Put(const std::string& name, std::span<const SectionRow> rows) const;
  std::string Put(const std::string& name, const std::vector<std::string_view>& lines) const;

  /// Runs `kalvo` on the bench's library.
  [[nodiscard]] Told Run(std::vector<std::string> arguments) const;

  [[nodiscard]] std::string Path(const std::string& name) const { return studies() / name; }
  [[nodiscard]] FolderImage Studies() const;
  [[nodiscard]] FolderImage Libraries() const;
};

/// A network that calculates: two emitters behind a plant section.
std::vector<std::string_view> SoundNetwork();

/// A circuit of so many sections, at most 1,000, with one emitter in the last.
std::vector<SectionRow> Chain(int count);

}  // namespace kalvo
