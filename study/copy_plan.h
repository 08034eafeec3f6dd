#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

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
  bool case_blind = false;   ///< the target's medium takes names that differ in case for one
  bool lacks_fluid = false;  ///< the study has no file of its fluid
  std::string in_the_way;    ///< the file that is there and would change; empty: none
  /// The fluid's file that would change, where it is also that of the study of the other kind, and
  /// the main file of that one; empty: none.
  std::string shared;
  std::string sharer;

  [[nodiscard]] std::uint64_t Bytes() const;
};

/// How the copying of the study `main` into `folder` would go. What a broken-off save left at
/// either end is settled first. Error: the study cannot be read, or is being saved by another
/// program.
Result<CopyPlan> PlanCopy(Disk& disk, const std::filesystem::path& main,
                          const std::filesystem::path& folder);

/// Makes the copy as one unit (SaveFamily()): the target is the old study or this one, whole. The
/// files keep their dates. `on_file`: before each file is written, with its name and length.
Outcome MakeCopy(Disk& disk, const CopyPlan& plan,
                 const std::function<void(const std::string& name, std::uint64_t length)>& on_file);

}  // namespace kalvo
