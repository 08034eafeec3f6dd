#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "study/copying/folder_families.h"
#include "study/family_save.h"

namespace kalvo {

/// A file that a copy reads, and the name that it gets.
struct CopiedFile {
  std::filesystem::path from;
  std::string name;
  std::uint64_t length = 0;   ///< bytes
  std::int64_t modified = 0;  ///< seconds since 1970, UTC
};

/// What the copying of one study into a folder comes to, as both stand at the moment.
struct CopyPlan {
  std::filesystem::path main;     ///< the main file, behind a link to it
  std::filesystem::path folder;   ///< where the copy goes, behind a link to it
  std::string base;               ///< of the copy's files
  std::vector<CopiedFile> files;  ///< the main file last
  /// Lengths, in bytes, of the files that the copy replaces or removes.
  std::vector<std::uint64_t> replaced;
  std::vector<std::string> removed;  ///< companions that only the target has

  bool same = false;         ///< the target is this study byte for byte
  bool is_there = false;     ///< the target has the main file
  bool newer_there = false;  ///< and that was changed after the one that is copied
  bool case_blind = false;   ///< the target's medium takes names that differ in case for one
  bool lacks_fluid = false;  ///< the study has no file of its fluid
  std::string in_the_way;    ///< the file that is there and would change; empty: none
  /// The fluid's file that would change, where it is also that of the study of the other kind, and
  /// the main file of that one; empty: none.
  std::string shared;
  std::string sharer;

  [[nodiscard]] std::uint64_t Bytes() const;
  /// Who has agreed to the other plan has agreed to this one.
  [[nodiscard]] bool AsksAs(const CopyPlan& other) const;
};

/// Copies studies into one folder. What the folders hold is listed once and followed from then on,
/// and looked at anew after a second: others may save there, too.
class CopyPlanner {
 public:
  CopyPlanner(Disk& disk, std::filesystem::path folder) : disk_(disk), folder_(std::move(folder)) {}

  /// How the copying of the study `main` would go. What a broken-off save left at either end is
  /// settled first. Error: the study cannot be read, or is being saved by another program.
  Result<CopyPlan> Plan(const std::filesystem::path& main);

  /// The same, from folders that are listed anew.
  Result<CopyPlan> PlanAnew(const std::filesystem::path& main);

  /// Makes the copy as one unit (SaveFamily()): the target is the old study or this one, whole. The
  /// files keep their dates. `on_file`: before each file is written, with its name and length.
  Outcome Make(const CopyPlan& plan,
               const std::function<void(const std::string& name, std::uint64_t length)>& on_file);

 private:
  struct Look {
    FolderFamilies families;
    std::chrono::steady_clock::time_point since;
  };

  Result<FolderFamilies*> FamiliesOf(const std::filesystem::path& folder);
  Outcome LookAtSource(const std::filesystem::path& chosen, CopyPlan& plan);
  Outcome LookAtTarget(const std::string& chosen, CopyPlan& plan);

  Disk& disk_;
  std::filesystem::path folder_;
  std::map<std::filesystem::path, Look> looks_;  ///< by folder
};

}  // namespace kalvo
