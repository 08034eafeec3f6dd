#include "shell/copying/offered_studies.h"

#include <algorithm>
#include <utility>

#include "shell/search_text.h"
#include "study/copying/copy_room.h"
#include "study/numeric_text.h"
#include "study/study_file_names.h"

namespace kalvo {
namespace {

namespace fs = std::filesystem;

// Nothing when it is a folder, or gone since it was listed; what cannot be looked at has no length.
std::optional<std::uint64_t> LengthOf(const Disk& disk, const fs::path& path) {
  const auto status = disk.Status(path);
  if (!status) return 0;
  if (!*status || (*status)->is_folder) return std::nullopt;
  return (*status)->length;
}

std::vector<std::string> InOrder(std::vector<std::string> names) {
  std::vector<std::pair<std::string, std::string>> keyed;
  keyed.reserve(names.size());
  for (std::string& name : names) {
    std::string key = SearchKey(name);
    keyed.emplace_back(std::move(key), std::move(name));
  }
  std::ranges::sort(keyed);
  names.clear();
  for (auto& [key, name] : keyed) names.push_back(std::move(name));
  return names;
}

std::string ExtensionsText(const StudyFamily& family) {
  std::string text;
  for (const std::string& name : family.companions) {
    text += (text.empty() ? "" : " ") + name.substr(BaseOf(name).size());
  }
  return text;
}

}  // namespace

void OfferedStudies::Read(Disk& disk, const fs::path& folder, SystemKind kind) {
  disk_ = &disk;
  folder_ = folder;
  studies_.clear();
  const SettledDisk settled = SettleFolder(disk, folder);
  const auto names = settled.List(folder);
  if (!names) {
    why_empty_ = names.error().reason + ".";
    return;
  }
  const FolderFamilies families(*names);
  for (const std::string& name : InOrder(families.Mains(kind))) {
    if (const auto length = LengthOf(settled, folder / name)) {
      studies_.push_back({families.Of(name), *length, {}});
    }
  }
  why_empty_ = studies_.empty() ? "Ο φάκελος δεν έχει μελέτες." : "";
}

fs::path OfferedStudies::PathOf(int study) const {
  return folder_ / studies_.at(static_cast<std::size_t>(study)).family.main;
}

std::vector<EntryLine> OfferedStudies::Lines(Separators separators) const {
  std::vector<EntryLine> lines;
  lines.reserve(studies_.size());
  for (const Study& study : studies_) {
    lines.push_back(
        {.name = study.family.main,
         .text = "  (" +
                 FormatPattern(static_cast<double>(study.length), pattern::kWhole, separators) +
                 "  Bytes)",
         .detail = ExtensionsText(study.family)});
  }
  return lines;
}

const std::vector<std::uint64_t>& OfferedStudies::LengthsOf(Study& study) {
  if (study.lengths.empty()) {
    for (const std::string& name : study.family.companions) {
      study.lengths.push_back(LengthOf(*disk_, folder_ / name).value_or(0));
    }
    study.lengths.push_back(study.length);
  }
  return study.lengths;
}

OfferedStudies::Sum OfferedStudies::SumOf(const std::vector<int>& studies, std::uint64_t block) {
  Sum sum;
  for (const int study : studies) {
    ++sum.studies;
    for (const std::uint64_t length : LengthsOf(studies_.at(static_cast<std::size_t>(study)))) {
      ++sum.files;
      sum.bytes += length;
      sum.in_blocks += InBlocks(length, block);
    }
  }
  return sum;
}

std::string SizeText(std::uint64_t bytes, Separators separators) {
  constexpr double kMega = 1e6;
  constexpr double kGiga = 1e9;
  const auto value = static_cast<double>(bytes);
  const bool large = value >= kGiga;
  return FormatPattern(value / (large ? kGiga : kMega), pattern::kOneDecimal, separators) +
         (large ? " GB" : " MB");
}

}  // namespace kalvo
