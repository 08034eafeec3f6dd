#include "study/copying/copy_plan.h"

#include <algorithm>

#include "study/settled_disk.h"
#include "study/study_file_names.h"

namespace kalvo {

namespace fs = std::filesystem;

namespace {

constexpr std::chrono::seconds kFresh{1};

FileError NotThere(const fs::path& path) {
  return {path, "Το αρχείο δεν υπάρχει", FileErrorKind::kMissing};
}

// The disk for one study whose save, if one was broken off, is finished. Error: one is under way.
Result<SettledDisk> SettledFor(Disk& disk, const fs::path& main) {
  SettledDisk settled(disk);
  const std::string base(BaseOf(main.filename().string()));
  if (const Outcome ended = settled.Settle(main.parent_path(), base, kSavePatience); !ended) {
    return FileError{main, ended.error().reason, FileErrorKind::kBusy};
  }
  return settled;
}

// What is there of a file; an error too when it is not.
Result<FileStatus> StatusOf(const Disk& disk, const fs::path& path) {
  const auto status = disk.Status(path);
  if (!status) {
    return status.error();
  }
  if (!*status) {
    return NotThere(path);
  }
  return **status;
}

// The chosen name's base and the extension of the file that is read: a link may be called
// otherwise than the study that it leads to.
std::string NameOfCopy(std::string_view chosen, const fs::path& main, const std::string& file) {
  if (BaseOf(main.filename().string()) == BaseOf(chosen)) {
    return file;
  }
  return std::string(BaseOf(chosen)) + file.substr(BaseOf(file).size());
}

// The entry of the target that a copied companion takes the place of, as it is spelled there.
std::string PlaceOf(const StudyFamily& there, const std::string& name) {
  const std::string_view extension = std::string_view(name).substr(BaseOf(name).size());
  const auto found =
      std::find_if(there.companions.begin(), there.companions.end(), [&](const std::string& entry) {
        return EqualIgnoringCase(std::string_view(entry).substr(BaseOf(entry).size()), extension);
      });
  return found == there.companions.end() ? name : *found;
}

// The copy's own spelling of the main file, and of what is there already; false where the medium
// shows under a name what its folder lists under another case of it.
void NameTarget(const FolderFamilies& families, const Disk& disk, std::string chosen,
                CopyPlan& plan) {
  std::string entry = families.FindMain(chosen, false);
  if (entry.empty() && disk.Exists(plan.folder / chosen)) {
    entry = families.FindMain(chosen, true);
    plan.case_blind = !entry.empty();
  }
  plan.is_there = !entry.empty();
  const std::string main = plan.is_there ? entry : std::move(chosen);
  plan.base = BaseOf(main);
  plan.files.back().name = main;
}

bool SameBytes(const Disk& source, const CopiedFile& file, const Disk& target, const fs::path& path,
               std::uint64_t length) {
  if (file.length != length) {
    return false;
  }
  const auto here = source.Read(file.from);
  const auto there = target.Read(path);
  return here && there && *here == *there;
}

// What of the target the copy changes.
class TargetLook {
 public:
  TargetLook(const Disk& source, const Disk& target, const FolderFamilies& families, CopyPlan& plan)
      : source_(source), target_(target), families_(families), plan_(plan) {}

  Outcome Look() {
    const StudyFamily there = families_.Of(plan_.files.back().name);
    for (CopiedFile& file : plan_.files) {
      if (&file != &plan_.files.back()) {
        file.name = PlaceOf(there, file.name);
        if (families_.IsAnothers(file.name, plan_.base)) {
          file.name = plan_.base + file.name.substr(BaseOf(file.name).size());
        }
      }
    }
    Outcome outcome = FindRemoved();
    for (const CopiedFile& file : plan_.files) {
      outcome = outcome ? Compare(file) : outcome;
    }
    plan_.same = changes_.empty();
    if (!plan_.same) {
      plan_.in_the_way = plan_.is_there      ? plan_.files.back().name
                         : replaced_.empty() ? ""
                                             : replaced_.front();
      FindSharer();
    }
    return outcome;
  }

 private:
  // What is there under a name that no file of the copy takes.
  Outcome FindRemoved() {
    for (const std::string& name : families_.AllCompanionsOf(plan_.files.back().name)) {
      const bool taken =
          std::any_of(plan_.files.begin(), plan_.files.end(), [&](const CopiedFile& file) {
            return file.name == name ||
                   (plan_.case_blind && ComparedName(file.name) == ComparedName(name));
          });
      if (taken) {
        continue;
      }
      const auto status = target_.Status(plan_.folder / name);
      if (!status) {
        return status.error();
      }
      plan_.removed.push_back(name);
      Replace(name, *status ? (*status)->length : 0);  // a link that leads nowhere goes too
    }
    return Done{};
  }

  Outcome Compare(const CopiedFile& file) {
    const fs::path path = plan_.folder / file.name;
    const auto status = target_.Status(path);
    if (!status) {
      return status.error();
    }
    if (!*status) {
      changes_.push_back(file.name);
    } else if (!SameBytes(source_, file, target_, path, (*status)->length)) {
      Replace(file.name, (*status)->length);
      const bool is_main = &file == &plan_.files.back();
      plan_.newer_there = is_main && (*status)->modified > file.modified;
    } else {
      plan_.replaced.push_back((*status)->length);
    }
    return Done{};
  }

  void Replace(const std::string& name, std::uint64_t length) {
    changes_.push_back(name);
    replaced_.push_back(name);
    plan_.replaced.push_back(length);
  }

  void FindSharer() {
    const SystemKind kind = KindOfName(plan_.files.back().name);
    const SystemKind other = kind == SystemKind::kOpen ? SystemKind::kClosed : SystemKind::kOpen;
    const std::string main =
        families_.FindMain(plan_.base + std::string(ExtensionsOf(other).main), plan_.case_blind);
    const auto fluid = std::find_if(changes_.begin(), changes_.end(), [](const std::string& name) {
      return EqualIgnoringCase(fs::path(name).extension().string(), kClosedExtensions.fluid);
    });
    if (!main.empty() && fluid != changes_.end()) {
      plan_.shared = *fluid;
      plan_.sharer = main;
    }
  }

  const Disk& source_;
  const Disk& target_;
  const FolderFamilies& families_;
  CopyPlan& plan_;
  std::vector<std::string> changes_;   // files of the target that would come, change or go
  std::vector<std::string> replaced_;  // those of them that are there
};

Result<std::vector<FamilyFile>> ReadAll(Disk& disk, const CopyPlan& plan) {
  const fs::path folder = plan.main.parent_path();
  const std::string base(BaseOf(plan.main.filename().string()));
  const auto settled = SettledFor(disk, plan.main);
  if (!settled) {
    return settled.error();
  }
  // A save between two of these reads would mix two studies.
  const auto lock = LockFamily(disk, folder, base, kSavePatience);
  if (!lock) {
    return lock.error();
  }
  std::vector<FamilyFile> files;
  for (const CopiedFile& file : plan.files) {
    auto bytes = settled->Read(file.from);
    const auto status = StatusOf(*settled, file.from);
    if (!bytes || !status) {
      return bytes ? status.error() : bytes.error();
    }
    if (bytes->size() != file.length || status->modified != file.modified) {
      return FileError{plan.main, "Η Μελέτη άλλαξε στο μεταξύ", FileErrorKind::kBusy};
    }
    files.push_back({file.name, std::move(*bytes), status->modified});
  }
  // Where there are no locks such a save shows by its journal.
  if (settled->journal().empty() && disk.Exists(JournalPath(folder, base))) {
    return FileError{plan.main, "Η Μελέτη σώζεται αυτή τη στιγμή από άλλο πρόγραμμα",
                     FileErrorKind::kBusy};
  }
  return files;
}

}  // namespace

std::uint64_t CopyPlan::Bytes() const {
  std::uint64_t bytes = 0;
  for (const CopiedFile& file : files) {
    bytes += file.length;
  }
  return bytes;
}

bool CopyPlan::AsksAs(const CopyPlan& other) const {
  return in_the_way == other.in_the_way && shared == other.shared && sharer == other.sharer &&
         removed == other.removed && replaced == other.replaced;
}

Result<FolderFamilies*> CopyPlanner::FamiliesOf(const fs::path& folder) {
  const auto now = std::chrono::steady_clock::now();
  const auto known = looks_.find(folder);
  if (known != looks_.end() && now - known->second.since < kFresh) {
    return &known->second.families;
  }
  const auto names = SettleFolder(disk_, folder).List(folder);
  if (!names) {
    return names.error();
  }
  return &looks_.insert_or_assign(folder, Look{FolderFamilies(*names), now}).first->second.families;
}

Outcome CopyPlanner::LookAtSource(const fs::path& chosen, CopyPlan& plan) {
  const auto settled = SettledFor(disk_, plan.main);
  if (!settled) {
    return settled.error();
  }
  const auto families = FamiliesOf(plan.main.parent_path());
  if (!families) {
    return families.error();
  }
  StudyFamily family = (*families)->Of(plan.main.filename().string());
  family.companions.push_back(std::move(family.main));
  plan.lacks_fluid = true;
  for (const std::string& name : family.companions) {
    const fs::path from = plan.main.parent_path() / name;
    const auto status = StatusOf(*settled, from);
    const bool leads_nowhere = !status && status.error().kind == FileErrorKind::kMissing;
    if (leads_nowhere && &name != &family.companions.back()) {
      continue;  // as if it were not there
    }
    if (!status) {
      return status.error();
    }
    plan.files.push_back({from, NameOfCopy(chosen.filename().string(), plan.main, name),
                          status->length, status->modified});
    const bool is_fluid = EqualIgnoringCase(from.extension().string(), kClosedExtensions.fluid);
    plan.lacks_fluid = plan.lacks_fluid && !is_fluid;
  }
  return Done{};
}

Outcome CopyPlanner::LookAtTarget(const std::string& chosen, CopyPlan& plan) {
  const fs::path target = BehindLink(disk_, plan.folder / chosen);
  plan.folder = target.parent_path();
  const auto families = FamiliesOf(plan.folder);
  if (!families) {
    return families.error();
  }
  const auto settled = SettledFor(disk_, target);
  const auto source = SettledFor(disk_, plan.main);
  if (!settled || !source) {
    return settled ? source.error() : settled.error();
  }
  NameTarget(**families, *settled, target.filename().string(), plan);
  return TargetLook(*source, *settled, **families, plan).Look();
}

Result<CopyPlan> CopyPlanner::Plan(const fs::path& main) {
  const auto families = FamiliesOf(main.parent_path());
  if (!families) {
    return families.error();
  }
  const std::string name = (*families)->FindMain(main.filename().string(), true);
  if (name.empty()) {
    return NotThere(main);
  }
  CopyPlan plan;
  plan.main = BehindLink(disk_, main.parent_path() / name);
  plan.folder = folder_;
  Outcome outcome = LookAtSource(main.parent_path() / name, plan);
  outcome = outcome ? LookAtTarget(name, plan) : outcome;
  return outcome ? Result<CopyPlan>(std::move(plan)) : outcome.error();
}

Result<CopyPlan> CopyPlanner::PlanAnew(const fs::path& main) {
  looks_.clear();
  return Plan(main);
}

Outcome CopyPlanner::Make(
    const CopyPlan& plan,
    const std::function<void(const std::string& name, std::uint64_t length)>& on_file) {
  const auto files = ReadAll(disk_, plan);
  if (!files) {
    return files.error();
  }
  FamilySaveOptions options;
  options.removed = plan.removed;
  options.on_stage = [&](const FamilyFile& file) { on_file(file.name, file.bytes.size()); };
  Outcome saved = SaveFamily(disk_, plan.folder, plan.base, *files, options);
  const auto look = looks_.find(plan.folder);
  if (look != looks_.end() && saved) {
    for (const CopiedFile& file : plan.files) look->second.families.Add(file.name);
    for (const std::string& name : plan.removed) look->second.families.Remove(name);
  } else if (look != looks_.end()) {
    looks_.erase(look);  // nobody knows what it got done
  }
  return saved;
}

}  // namespace kalvo
