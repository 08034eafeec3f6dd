#include "study/safety_copies.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <functional>
#include <optional>

#include "study/companions.h"
#include "study/date_text.h"
#include "study/kept_sheet.h"
#include "study/kept_winter.h"
#include "study/study_extensions.h"
#include "study/study_file_names.h"
#include "study/study_origin.h"
#include "study/study_proof.h"

namespace kalvo {
namespace {

namespace fs = std::filesystem;

constexpr const char* kNamelessStudy = "MELETH";

// Work files that are files of a saved study too.
struct SavedName {
  std::string_view work_name;
  std::string_view StudyExtensions::*extension;
};
constexpr std::array kSavedNames = {SavedName{work_file::kRows, &StudyExtensions::main},
                                    SavedName{work_file::kStatistics, &StudyExtensions::statistics},
                                    SavedName{work_file::kWinter, &StudyExtensions::winter},
                                    SavedName{work_file::kFluid, &StudyExtensions::fluid}};

template <typename Row>
bool IsSound(const Workbench& bench, std::string_view work_name) {
  const auto rows = bench.workspace.Rows<Row>(work_name).ReadAll();
  return rows && FirstBadNumber(*rows).empty();
}

SystemKind KindOfRows(const Workbench& bench) {
  const auto first = bench.workspace.Rows().Read(1);
  return first ? KindOf(*first, bench.study.system_kind) : bench.study.system_kind;
}

// The name under which a work file is kept. A damaged companion would bar the copy from opening.
std::string NameInCopy(const Workbench& bench, std::string_view work_name, SystemKind kind) {
  const auto* saved = std::ranges::find(kSavedNames, work_name, &SavedName::work_name);
  if (saved == kSavedNames.end() || IsDamaged(bench, work_name)) return std::string(work_name);
  const std::string_view extension = ExtensionsOf(kind).*(saved->extension);
  if (extension.empty()) return std::string(work_name);
  const Study& study = bench.study;
  const std::string base(study.study_base_name.empty()
                             ? BaseOf(study.origin_path.filename().string())
                             : std::string_view(study.study_base_name));
  return (base.empty() ? std::string(kNamelessStudy) : base) + std::string(extension);
}

// The moment in a copy's name, and its number among those of one second; nothing for any other
// name: "2026-11-25_143000", "2026-11-25_143000-2".
using Stamp = std::pair<std::string, int>;

std::optional<Stamp> StampOf(const std::string& name) {
  constexpr std::string_view kForm = "0000-00-00_000000";
  constexpr std::size_t kMostDigits = 6;
  const auto is_digit = [](char c) { return std::isdigit(static_cast<unsigned char>(c)) != 0; };
  if (name.size() < kForm.size()) return std::nullopt;
  for (std::size_t i = 0; i < kForm.size(); ++i) {
    if (kForm[i] == '0' ? !is_digit(name[i]) : name[i] != kForm[i]) return std::nullopt;
  }
  const std::string stamp = name.substr(0, kForm.size());
  if (name.size() == kForm.size()) return std::pair(stamp, 1);
  const std::string number = name.substr(kForm.size() + 1);
  const bool fits = name[kForm.size()] == '-' && !number.empty() && number.size() <= kMostDigits &&
                    std::ranges::all_of(number, is_digit);
  return fits ? std::optional(std::pair(stamp, std::stoi(number))) : std::nullopt;
}

bool IsCopysFolder(const Disk& disk, const fs::path& folder) {
  const fs::path above = folder.parent_path();
  return StampOf(folder.filename().string()) &&
         (above.filename() == kSafetyFolder || disk.Resolve(above).filename() == kSafetyFolder);
}

// A folder that is not there yet and comes after all others, whatever the clock says.
Result<fs::path> NewFolder(const Workbench& bench, const fs::path& above) {
  const Disk& disk = bench.workspace.outer_disk();
  Stamp newest{StampText(bench.workspace.Now()), 0};
  for (const std::string& name : SafetyCopyNames(disk, above)) {
    newest = std::max(newest, *StampOf(name));
  }
  for (;;) {
    ++newest.second;
    fs::path folder =
        above /
        (newest.second == 1 ? newest.first : newest.first + "-" + std::to_string(newest.second));
    const auto status = disk.Status(folder);
    if (!status) return status.error();
    if (!*status) return folder;
  }
}

// What cannot be removed stays.
void RemoveCopy(Disk& disk, const fs::path& folder) {
  const auto names = disk.List(folder);
  for (const std::string& name : names ? *names : std::vector<std::string>{}) {
    static_cast<void>(disk.Remove(folder / name).ok());
  }
  static_cast<void>(disk.Remove(folder).ok());
}

// Takes away the oldest copies past those that are kept. The one in use may be reached by another
// path, so its name counts.
void RemoveOldCopies(Disk& disk, const fs::path& above, const fs::path& in_use) {
  const std::vector<std::string> copies = SafetyCopyNames(disk, above);
  for (std::size_t i = 0; i + kSafetyCopies < copies.size(); ++i) {
    if (copies[i] != in_use.filename()) RemoveCopy(disk, above / copies[i]);
  }
}

// Files that hold what was entered: a copy without one of them is none.
bool HoldsEntries(std::string_view work_name) {
  constexpr std::array kEntered = {
      work_file::kRows,       work_file::kFluid,       work_file::kWinter,      work_file::kSheet,
      work_file::kSheetIntro, work_file::kSheetInWork, work_file::kWinterInWork};
  return std::ranges::find(kEntered, work_name) != kEntered.end();
}

// Names of the files that could not be read and are left out, parted by commas.
Result<std::string> CopyInto(const Workbench& bench, const fs::path& folder,
                             UnreadableEntries unreadable) {
  Disk& disk = bench.workspace.outer_disk();
  const SystemKind kind = KindOfRows(bench);
  std::string left_out;
  for (const std::string_view name : work_file::kAll) {
    if (!bench.workspace.HasBytes(name)) continue;
    auto bytes = bench.workspace.Read(name);
    if (!bytes && HoldsEntries(name) && unreadable == UnreadableEntries::kRefuse) {
      return bytes.error();
    }
    if (!bytes) {
      left_out += (left_out.empty() ? "" : ", ") + std::string(name);
      continue;
    }
    const fs::path copy = folder / NameInCopy(bench, name, kind);
    // The folder is new: nobody sees half a file in it.
    if (Outcome written = disk.Write(copy, std::move(*bytes)); !written) return written.error();
    if (Outcome flushed = disk.Flush(copy); !flushed) return flushed.error();
  }
  if (Outcome flushed = disk.Flush(folder); !flushed) return flushed.error();
  return left_out;
}

struct MadeCopy {
  fs::path folder;
  std::string left_out;
};

// After a failure nothing of it is left.
Result<MadeCopy> WriteSafetyCopy(const Workbench& bench, const fs::path& where,
                                 const fs::path& in_use, UnreadableEntries unreadable) {
  Disk& disk = bench.workspace.outer_disk();
  const fs::path above = where / kSafetyFolder;
  const auto folder = NewFolder(bench, above);
  if (!folder) return folder.error();
  if (Outcome made = disk.MakeFolder(*folder); !made) return made.error();
  auto copied = CopyInto(bench, *folder, unreadable);
  const Outcome flushed = copied ? disk.Flush(above) : Outcome(copied.error());
  if (!flushed) {
    RemoveCopy(disk, *folder);
    return flushed.error();
  }
  if (const auto names = disk.List(*folder); names && names->empty()) {
    RemoveCopy(disk, *folder);  // all was left out: no older copy goes for it
  } else {
    RemoveOldCopies(disk, above, in_use);
  }
  return MadeCopy{*folder, std::move(copied).value()};
}

// In the studies' folder, which is not made anew: below a share that is gone the copy would be
// hidden by it later.
Result<MadeCopy> WriteBesideStudies(const Workbench& bench, const fs::path& where,
                                    const fs::path& in_use, UnreadableEntries unreadable) {
  const auto status = bench.workspace.outer_disk().Status(where);
  if (!status) return status.error();
  if (!*status) return FileError{where, "Ο φάκελος δεν υπάρχει", FileErrorKind::kMissing};
  return WriteSafetyCopy(bench, where, in_use, unreadable);
}

// The copy in that folder; nothing when no study of the kind can be opened from it.
std::optional<SafetyCopy> LookInto(const Disk& disk, const fs::path& folder, SystemKind kind) {
  constexpr std::size_t kSectionSize = RecordSize<SectionRow>();
  const auto names = disk.List(folder);
  for (const std::string& name : names ? *names : std::vector<std::string>{}) {
    if (KindOfName(name) != kind) continue;
    const auto status = disk.Status(folder / name);
    const auto head = disk.ReadHead(folder / name, kSectionSize);
    if (!status || !*status || !head || head->size() < kSectionSize) continue;
    SafetyCopy copy;
    copy.file = folder / name;
    copy.title = DecodeRecord<SectionRow>(head->data()).Thema.Utf8();
    copy.moment = DateText((*status)->modified) + ", " + ClockText((*status)->modified);
    copy.rows = static_cast<int>((*status)->length / kSectionSize);
    const auto note = disk.Read(folder / work_file::kOrigin);
    if (note) copy.origin = OriginIn(*note);
    return copy;
  }
  return std::nullopt;
}

// True when the work file says what the study's companion says, or is not there.
bool CompanionIsSaved(const Workbench& bench, std::string_view work_name,
                      std::string_view extension) {
  const auto bytes = bench.workspace.ReadIfThere(work_name);
  if (!bytes) return false;
  if (bytes->empty()) return true;
  const Disk& disk = bench.workspace.outer_disk();
  const auto companion = CompanionOf(disk, bench.study.study_path, extension);
  if (!companion) return work_name == work_file::kFluid && bench.study.fluid_assumed;
  const auto saved = disk.Read(*companion);
  return saved && *saved == *bytes;
}

}  // namespace

bool IsSaved(const Workbench& bench) {
  if (IsSheetKept(bench.workspace)) return false;
  // The rows do not know a list of emitters that is still to be checked.
  if (bench.study.emitters_unchecked && bench.workspace.HasBytes(work_file::kEmitters))
    return false;
  const auto rows = bench.workspace.ReadIfThere(work_file::kRows);
  if (!rows) return false;
  if (rows->empty()) return !bench.workspace.HasBytes(work_file::kSheet);
  if (IsWinterKept(bench.workspace)) return false;
  const fs::path& path = bench.study.study_path;
  if (path.empty() || path == kEscapePath) return false;
  const Disk& disk = bench.workspace.outer_disk();
  const auto saved = disk.Read(AsInFolder(disk, path));
  const StudyExtensions& extensions = ExtensionsOf(bench.study.system_kind);
  return saved && *saved == *rows && CompanionIsSaved(bench, work_file::kFluid, extensions.fluid) &&
         (extensions.winter.empty() ||
          CompanionIsSaved(bench, work_file::kWinter, extensions.winter));
}

bool KeepSafetyCopy(Workbench& bench, const SafetyFolders& folders, const fs::path& in_use) {
  return IsSaved(bench) || KeepSafetyCopyAnyway(bench, folders, in_use);
}

bool KeepSafetyCopyAnyway(Workbench& bench, const SafetyFolders& folders, const fs::path& in_use,
                          UnreadableEntries unreadable) {
  const auto kept = WriteBesideStudies(bench, folders.studies, in_use, unreadable);
  const auto elsewhere = kept || folders.state.empty()
                             ? kept
                             : WriteSafetyCopy(bench, folders.state, in_use, unreadable);
  if (elsewhere && !elsewhere->left_out.empty()) {
    bench.Ask({" !!... ΠΡΟΣΟΧΗ ...!! ",
               {"Δεν διαβάζονται και λείπουν από το αντίγραφο ασφαλείας της Μελέτης :",
                elsewhere->left_out},
               box_style::kExclamation});
  }
  if (kept) return true;
  if (elsewhere) {
    bench.Ask({" !!... ΠΡΟΣΟΧΗ ...!! ",
               {"Το αντίγραφο ασφαλείας της Μελέτης ΔΕΝ γράφτηκε στον φάκελο των μελετών",
                kept.error().Line(), "Γράφτηκε στον φάκελο : " + elsewhere->folder.string()},
               box_style::kExclamation});
    return true;
  }
  const Answer answer =
      bench.Ask({" !!... ΠΡΟΣΟΧΗ ...!! ",
                 {"ΔΕΝ μπορεί να γραφεί αντίγραφο ασφαλείας της Μελέτης", kept.error().Line(),
                  "Χωρίς αντίγραφο, όσα δεν έχουν < σωθεί > θα χαθούν ΟΡΙΣΤΙΚΑ",
                  "Θέλετε να συνεχίσω χωρίς αντίγραφο ??"},
                 box_style::kDefaultNo});
  return answer == Answer::kYes;
}

std::vector<std::string> SafetyCopyNames(const Disk& disk, const fs::path& above) {
  auto entries = disk.List(above);
  std::vector<std::string> names = entries ? std::move(*entries) : std::vector<std::string>{};
  std::erase_if(names, [&](const std::string& name) {
    return !StampOf(name) || !disk.IsFolder(above / name);
  });
  std::ranges::sort(names, {}, [](const std::string& name) { return *StampOf(name); });
  return names;
}

std::vector<SafetyCopy> ListSafetyCopies(const Disk& disk, const SafetyFolders& folders,
                                         SystemKind kind) {
  std::vector<std::pair<Stamp, SafetyCopy>> found;
  for (const fs::path& where : {folders.studies, folders.state}) {
    const fs::path above = where / kSafetyFolder;
    for (const std::string& name : SafetyCopyNames(disk, above)) {
      if (auto copy = LookInto(disk, above / name, kind)) {
        found.emplace_back(*StampOf(name), std::move(*copy));
      }
    }
  }
  std::ranges::sort(found, std::ranges::greater(), [](const auto& at) { return at.first; });
  std::vector<SafetyCopy> copies;
  copies.reserve(found.size());
  for (auto& [stamp, copy] : found) {
    copies.push_back(std::move(copy));
  }
  return copies;
}

fs::path SafetyCopyFolder(const Disk& disk, const fs::path& file) {
  for (const fs::path& end : {file, disk.Resolve(file)}) {
    const fs::path folder = end.lexically_normal().parent_path();
    for (const fs::path& named : {folder, disk.Resolve(folder)}) {
      if (IsCopysFolder(disk, named)) return named;
    }
  }
  return {};
}

bool IsDamaged(const Workbench& bench, std::string_view work_name) {
  if (!bench.workspace.Read(work_name)) return false;  // missing, or nobody knows
  if (work_name == work_file::kStatistics) return !IsSound<StatRow>(bench, work_name);
  if (work_name == work_file::kFluid) return !IsSound<FluidRow>(bench, work_name);
  if (work_name == work_file::kEmitters || work_name == work_file::kWinter ||
      work_name == work_file::kWinterInWork) {
    return !IsSound<SectionRow>(bench, work_name);
  }
  return false;
}

}  // namespace kalvo
