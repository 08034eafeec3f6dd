#include "study/load_study.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "study/companions.h"
#include "study/family_save.h"
#include "study/fluid_library.h"
#include "study/pipe_choice.h"
#include "study/recent_files.h"
#include "study/settled_disk.h"
#include "study/study_file_names.h"
#include "study/study_origin.h"
#include "study/study_proof.h"
#include "study/study_reset.h"
#include "study/tables.h"
#include "study/text_lines.h"

namespace kalvo {

namespace {

using Rows = std::vector<SectionRow>;

// The state that the rows tell.
void TakeRows(Study& study, const Rows& rows) {
  const SectionRow& header = HeaderRow(rows);
  study.TotalFlowM3h = header.PAR;
  study.PumpHead = header.DP / 1000.0F;
  study.MeanTemp = header.MeanTemp;
  study.MeanVel = header.MeanVel;
  study.pipe_system_number = header.FileNumber;
  study.plant_section = header.HasPlantMark() ? header.RecordNumber : std::int16_t{0};
  study.study_title = header.Thema.Utf8();
  study.results_valid = study.PumpHead != 0.0F && study.TotalFlowM3h != 0.0F;
  study.CalculatedDiameters.clear();
  if (study.results_valid) {
    KeepCalculatedDiameters(study, rows);
  }
  RefreshSectionTable(study, rows);
}

// Whether the emitter file says the same as the rows do.
bool SameEmitters(const Rows& file, const Rows& rows) {
  return std::equal(file.begin(), file.end(), rows.begin(), rows.end(),
                    [](const SectionRow& a, const SectionRow& b) {
                      return a.RecordNumber == b.RecordNumber && a.Name == b.Name &&
                             a.WaterFlow == b.WaterFlow && a.SomaDrop == b.SomaDrop;
                    });
}

// A file that follows from the rows bars no recovery when it cannot be read; it is left as it is.
bool LeftUnread(const Workbench& bench, std::string_view work_name) {
  return bench.study.recovery && !bench.workspace.ReadIfThere(work_name);
}

Outcome TakeEmitters(Workbench& bench, const Rows& rows) {
  const Rows emitters = RowsWithEmitter(rows);
  RefreshEmitterTable(bench.study, emitters);
  RowFile<SectionRow> file = bench.workspace.Rows(work_file::kEmitters);
  // In recovery the file may hold what the rows do not know yet, or emitters of sections that were
  // deleted or moved since: the user looks at them before anything takes them for the truth.
  if (LeftUnread(bench, work_file::kEmitters)) {
    bench.study.emitters_unchecked = true;
    return Done{};
  }
  if (bench.workspace.HasBytes(work_file::kEmitters)) {
    const auto left = file.ReadAll();
    if (!left) {
      return left.error();
    }
    if (!SameEmitters(*left, emitters)) {
      bench.study.emitters_unchecked = true;
      return Done{};
    }
  }
  return emitters.empty() ? Outcome(Done{}) : file.WriteAll(emitters);
}

// A study's files as they were read, nothing of the open study touched yet.
struct FoundStudy {
  struct Copy {
    std::string_view work_name;
    std::string bytes;
  };
  Rows rows;
  std::vector<Copy> copies;
  std::string critical_branch;
  std::uint64_t digest = 0;

  [[nodiscard]] bool Has(std::string_view work_name) const {
    return std::any_of(copies.begin(), copies.end(),
                       [work_name](const Copy& copy) { return copy.work_name == work_name; });
  }
};

// Reads one study, which a save that could not be finished may have left half renamed.
class StudyReader {
 public:
  StudyReader(const Workbench& bench, SettledDisk& disk, std::filesystem::path main)
      : bench_(bench), disk_(disk), main_(std::move(main)) {}

  // Proved. Error: why it cannot be loaded.
  Result<FoundStudy> Read() {
    auto bytes = disk_.Read(main_);
    if (!bytes) {
      return bytes.error();
    }
    auto rows = ProveLoadable(bench_, main_, *bytes);
    if (!rows) {
      return rows.error();
    }
    found_.rows = std::move(rows).value();
    Take(work_file::kRows, main_, std::move(bytes).value());
    if (Outcome whole = ReadCompanions(); !whole) {
      return whole.error();
    }
    found_.digest = FamilyDigest(disk_, main_, files_);
    return std::move(found_);
  }

 private:
  void Take(std::string_view work_name, const std::filesystem::path& path, std::string bytes) {
    files_.push_back({path.filename().string(), bytes});
    found_.copies.push_back({work_name, std::move(bytes)});
  }

  template <typename Row>
  Outcome ReadCompanion(std::string_view extension, std::string_view work_name) {
    const auto path = CompanionOf(disk_, main_, extension);
    if (!path) {
      return Done{};
    }
    const auto rows = RowFile<Row>(disk_, *path).ReadAll();
    if (!rows) {
      return rows.error();
    }
    if (const std::string bad = FirstBadNumber(*rows); !bad.empty()) {
      return FileError{*path, bad};
    }
    Take(work_name, *path, EncodeRows<Row>(*rows));
    return Done{};
  }

  Outcome ReadSequence(std::string_view extension) {
    const auto path = CompanionOf(disk_, main_, extension);
    if (!path) {
      return Done{};
    }
    auto text = disk_.Read(*path);
    if (!text) {
      return text.error();
    }
    if (const auto lines = SplitLines(*text); !lines.empty()) {
      found_.critical_branch = Unquoted(lines.front());
    }
    files_.push_back({path->filename().string(), std::move(text).value()});
    return Done{};
  }

  Outcome ReadCompanions() {
    const StudyExtensions& extensions = ExtensionsOf(bench_.study.system_kind);
    Outcome outcome = ReadSequence(extensions.sequence);
    if (outcome) {
      outcome = ReadCompanion<StatRow>(extensions.statistics, work_file::kStatistics);
    }
    if (outcome) {
      outcome = ReadCompanion<SectionRow>(extensions.winter, work_file::kWinter);
    }
    if (outcome) {
      outcome = ReadCompanion<FluidRow>(extensions.fluid, work_file::kFluid);
    }
    return outcome;
  }

  const Workbench& bench_;
  SettledDisk& disk_;
  std::filesystem::path main_;
  FoundStudy found_;
  std::vector<FamilyFile> files_;
};

// Whether another program has begun to save the study since it was settled: its files may then be
// some old, some new, and look the same twice.
bool IsBeingSaved(const Disk& disk, const SettledDisk& settled, const std::filesystem::path& main) {
  return settled.journal().empty() &&
         disk.Exists(
             JournalPath(main.parent_path(), std::string(BaseOf(main.filename().string()))));
}

// The study at `study path`, once what a broken-off save left of it is settled. What another
// program saves while it is read is read again. A journal that could not be finished is named when
// the study cannot be read.
Result<FoundStudy> FindStudy(Workbench& bench) {
  constexpr int kTries = 5;
  std::filesystem::path& path = bench.study.study_path;
  for (int tries = 0; tries < kTries; ++tries) {
    auto disk = SettleStudy(bench.workspace.outer_disk(), path);
    if (!disk) {
      return disk.error();
    }
    path = AsInFolder(*disk, path);
    const std::filesystem::path main = BehindLink(*disk, path);
    auto found = StudyReader(bench, *disk, main).Read();
    if (!found && !disk->journal().empty()) {
      return FileError{disk->journal(),
                       "Μια αποθήκευση της Μελέτης έμεινε στη μέση (" + found.error().Line() + ")"};
    }
    if (!IsBeingSaved(bench.workspace.outer_disk(), *disk, main) &&
        (!found || found->digest == FamilyDigest(*disk, main))) {
      return found;
    }
  }
  return FileError{path, "Η Μελέτη αλλάζει αυτή τη στιγμή από άλλο πρόγραμμα",
                   FileErrorKind::kBusy};
}

// State, tables and emitter file from the work files.
Outcome TakeStudy(Workbench& bench, const Rows& rows) {
  Study& study = bench.study;
  TakeRows(study, rows);
  Outcome taken = SetPipeMaterial(bench);
  if (taken) {
    taken = TakeEmitters(bench, rows);
  }
  if (!taken) {
    return taken;
  }
  auto stats = bench.workspace.Rows<StatRow>(work_file::kStatistics).ReadAll();
  if (!stats && !LeftUnread(bench, work_file::kStatistics)) {
    return stats.error();
  }
  study.PipeStats = stats ? std::move(stats).value() : std::vector<StatRow>{};
  study.CurrentRow = 0;
  study.NameErrors = false;
  taken = LoadStudyFluid(bench);
  if (taken && rows.front().Outlets != study.EmitterCount) {
    study.unsaved_changes = true;
  }
  return taken;
}

// Puts the study found in the place of the open one.
Outcome TakeOver(Workbench& bench, const FoundStudy& found) {
  Study& study = bench.study;
  const std::filesystem::path path = study.study_path;
  ResetStudy(bench);
  study.study_path = path;
  study.critical_branch = found.critical_branch;
  study.fluid_assumed = !found.Has(work_file::kFluid);
  study.saved_digest = found.digest;
  RebuildNameState(bench);
  // The rows last: without them nothing is offered back, so no study comes back without the files
  // that go with it.
  for (const bool rows : {false, true}) {
    for (const FoundStudy::Copy& copy : found.copies) {
      if ((copy.work_name == work_file::kRows) != rows) continue;
      bench.workspace.Pause();
      if (Outcome written = bench.workspace.Write(copy.work_name, copy.bytes); !written) {
        return written;
      }
    }
  }
  return TakeStudy(bench, found.rows);
}

// The study at `study path`, whose kind its name tells too.
Result<FoundStudy> FindGivenStudy(Workbench& bench) {
  Study& study = bench.study;
  const SystemKind kind = KindOfName(study.study_path.filename().string());
  if (kind != SystemKind::kNone && (kind == SystemKind::kOpen) != study.SystemOpen()) {
    return OtherKindError(study.study_path);
  }
  const auto path = FullStudyPath(study);
  if (!path) {
    return path.error();
  }
  study.study_path = *path;
  return FindStudy(bench);
}

Result<bool> OpenStudy(Workbench& bench, RecentList recent,
                       const std::function<bool()>& may_replace) {
  Study& study = bench.study;
  const auto found = FindGivenStudy(bench);
  if (!found) {
    study.study_path = study.last_study_path;
    return found.error();
  }
  const std::filesystem::path path = std::exchange(study.study_path, study.last_study_path);
  if (may_replace && !may_replace()) {
    return false;
  }
  study.study_path = path;
  if (recent == RecentList::kAdd) {
    // A list that cannot be written keeps no study from being opened.
    static_cast<void>(AddRecentFile(bench.workspace, study.study_path));
  }
  if (Outcome loaded = TakeOver(bench, *found); !loaded) {
    ResetStudy(bench);
    return loaded.error();
  }
  return true;
}

Result<bool> RecoverStudy(Workbench& bench) {
  const auto bytes = bench.workspace.Read(work_file::kRows);
  const auto rows = bytes ? ProveLoadable(bench, bench.workspace.Path(work_file::kRows), *bytes)
                          : Result<Rows>(bytes.error());
  const Outcome loaded = rows ? TakeStudy(bench, *rows) : Outcome(rows.error());
  if (!loaded) {
    return loaded.error();
  }
  Study& study = bench.study;
  study.origin_path = ReadOrigin(bench.workspace);
  // The water of a study that came without a fluid's file was assumed before the crash too.
  const Disk& disk = bench.workspace.outer_disk();
  const std::string_view fluid = ExtensionsOf(study.system_kind).fluid;
  if (!study.origin_path.empty() && study.fluid_name == kWaterName &&
      disk.Exists(study.origin_path) && !CompanionOf(disk, study.origin_path, fluid)) {
    study.fluid_assumed = true;
  }
  bench.study.came_by_recovery = true;
  bench.study.recalculation_needed = true;
  bench.study.unsaved_changes = true;
  return true;
}

}  // namespace

Result<bool> LoadStudy(Workbench& bench, RecentList recent,
                       const std::function<bool()>& may_replace) {
  Study& study = bench.study;
  if (study.study_path == kEscapePath) {
    study.study_path = study.last_study_path;
    return false;
  }
  if (study.entry_mode == kSheetEntry || study.unsaved_changes) {
    return false;
  }
  return study.recovery ? RecoverStudy(bench) : OpenStudy(bench, recent, may_replace);
}

}  // namespace kalvo
