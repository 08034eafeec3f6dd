#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "form/entry_list.h"
#include "study/copying/folder_families.h"
#include "study/separators.h"
#include "study/settled_disk.h"

namespace kalvo {

/// The studies of a folder as they are offered to be copied, in the order of a list.
class OfferedStudies {
 public:
  /// Looks at the folder anew; saves that were broken off in it are settled first.
  void Read(Disk& disk, const std::filesystem::path& folder, SystemKind kind);

  /// Why there are none: a sentence; empty when there are some.
  [[nodiscard]] const std::string& why_empty() const { return why_empty_; }
  [[nodiscard]] int count() const { return static_cast<int>(studies_.size()); }
  [[nodiscard]] std::filesystem::path PathOf(int study) const;
  /// "NAME.PCK", "  (7.455  Bytes)", ".STC .LQD".
  [[nodiscard]] std::vector<EntryLine> Lines(Separators separators) const;

  /// What several of them come to.
  struct Sum {
    int studies = 0;
    int files = 0;
    std::uint64_t bytes = 0;
    std::uint64_t in_blocks = 0;  ///< bytes of whole blocks
  };
  [[nodiscard]] Sum SumOf(const std::vector<int>& studies, std::uint64_t block);

 private:
  struct Study {
    StudyFamily family;
    std::uint64_t length = 0;            ///< of the main file
    std::vector<std::uint64_t> lengths;  ///< of all files, once they were asked for
  };

  const std::vector<std::uint64_t>& LengthsOf(Study& study);

  const Disk* disk_ = nullptr;
  std::filesystem::path folder_;
  std::vector<Study> studies_;
  std::string why_empty_;
};

/// Bytes as a text: "5,6 GB", "0,4 MB".
std::string SizeText(std::uint64_t bytes, Separators separators);

}  // namespace kalvo
