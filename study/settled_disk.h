#pragma once

#include <map>
#include <set>

#include "study/forwarding_disk.h"

namespace kalvo {

/// A disk whose studies are asked for once the saves that were broken off are settled. Of a save
/// that cannot be finished, as on a medium that is only read, the staged bytes are read under the
/// names that they were to take.
class SettledDisk : public ForwardingDisk {
 public:
  explicit SettledDisk(Disk& inner) : ForwardingDisk(inner) {}

  /// Settles the saves of one study. Error, of kind kBusy: one is under way in another program.
  Outcome Settle(const std::filesystem::path& folder, const std::string& base,
                 std::chrono::milliseconds patience);
  /// Settles all that was broken off in the folder; what is under way is not waited for.
  void SettleAll(const std::filesystem::path& folder);

  /// The journal that could not be finished; empty when there is none.
  [[nodiscard]] const std::filesystem::path& journal() const { return journal_; }

  [[nodiscard]] Result<std::optional<FileStatus>> Status(
      const std::filesystem::path& path) const override;
  [[nodiscard]] Result<std::string> Read(const std::filesystem::path& path) const override;
  [[nodiscard]] Result<std::string> ReadHead(const std::filesystem::path& path,
                                             std::size_t length) const override;
  [[nodiscard]] Result<std::vector<std::string>> List(
      const std::filesystem::path& folder) const override;

 private:
  static FileError Gone(const std::filesystem::path& path);

  std::map<std::filesystem::path, std::filesystem::path> staged_;  ///< by target
  std::set<std::filesystem::path> removed_;                        ///< by the same save
  std::filesystem::path journal_;
};

/// The disk for the study whose main file is, or will be once it is settled, at `path` as
/// AsInFolder() finds it. Error: another program is saving that study.
Result<SettledDisk> SettleStudy(Disk& disk, const std::filesystem::path& path);

/// Settles the save of the study asked for; its main file, as its folder spells it. Error: there is
/// none, or another program is saving it.
Result<std::filesystem::path> SettleAndFindStudy(Disk& disk, const std::filesystem::path& path);

/// The disk for the list of a folder's studies.
SettledDisk SettleFolder(Disk& disk, const std::filesystem::path& folder);

}  // namespace kalvo
