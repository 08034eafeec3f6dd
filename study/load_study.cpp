#include "study/load_study.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "study/digest.h"
#include "study/family_save.h"
#include "study/fluid_library.h"
#include "study/recent_files.h"
#include "study/study_origin.h"
#include "study/study_proof.h"
#include "study/study_reset.h"
#include "study/tables.h"
#include "study/text_lines.h"

namespace kalvo {

namespace {

using Rows = std::vector<SectionRow>;

void TellFailure(Workbench& bench, const FileError& error) {
  bench.Ask(
      {" !!... ΠΡΟΣΟΧΗ ...!! ", {"... Ελλιπές Σύνολο Αρχείων Μελέτης ...", error.Line()}, 16});
  bench.study.CalcStatus = calc_status::kRefused;
}

// The state that the rows tell.
void TakeRows(Study& study, const Rows& rows) {
  const SectionRow& header = HeaderRow(rows);
  study.TotalFlowM3h = header.PAR;
  study.PumpHead = header.DP / 1000.0F;
  study.MeanTemp = header.MeanTemp;
  study.MeanVel = header.MeanVel;
  study.pipe_system_number = header.FileNumber;
  study.plant_section = header.Auxi != 0 ? header.RecordNumber : std::int16_t{0};
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

Outcome TakeEmitters(Workbench& bench, const Rows& rows) {
  const Rows emitters = RowsWithEmitter(rows);
  RefreshEmitterTable(bench.study, emitters);
  RowFile<SectionRow> file = bench.workspace.Rows(work_file::kEmitters);
  // In recovery the file may hold what the rows do not know yet, or emitters of sections that were
  // deleted or moved since: the user looks at them before anything takes them for the truth.
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

  [[nodiscard]] bool Has(std::string_view work_name) const {
    return std::any_of(copies.begin(), copies.end(),
                       [work_name](const Copy& copy) { return copy.work_name == work_name; });
  }
};

// True when a companion's base, spelled as no other file of the study, is that of another study
// which stands in the folder too, of either kind.
bool BelongsToAnother(const Workbench& bench, const std::filesystem::path& companion) {
  const std::string name = companion.filename().string();
  const std::string main = bench.study.study_path.filename().string();
  if (BaseOf(name) == BaseOf(main)) {
    return false;
  }
  const auto entries = bench.workspace.outer_disk().List(companion.parent_path());
  return entries && std::any_of(entries->begin(), entries->end(), [&](const std::string& entry) {
           return entry != main && BaseOf(entry) == BaseOf(name) &&
                  KindOfName(entry) != SystemKind::kNone;
         });
}

// A companion of the study at `study path`, none when the kind or the folder has none.
std::optional<std::filesystem::path> Companion(const Workbench& bench, std::string_view extension) {
  const std::filesystem::path& main = bench.study.study_path;
  const Disk& disk = bench.workspace.outer_disk();
  const std::string name = std::string(BaseOf(main.filename().string())) + std::string(extension);
  const std::filesystem::path path = AsInFolder(disk, main.parent_path() / name);
  const bool is_own = !extension.empty() && disk.Exists(path) && !BelongsToAnother(bench, path);
  return is_own ? std::optional(path) : std::nullopt;
}

template <typename Row>
Outcome FindCompanion(const Workbench& bench, std::string_view extension,
                      std::string_view work_name, FoundStudy& found) {
  const auto path = Companion(bench, extension);
  if (!path) {
    return Done{};
  }
  const auto rows = RowFile<Row>(bench.workspace.outer_disk(), *path).ReadAll();
  if (!rows) {
    return rows.error();
  }
  if (const std::string bad = FirstBadNumber(*rows); !bad.empty()) {
    return FileError{*path, bad};
  }
  found.copies.push_back({work_name, EncodeRows<Row>(*rows)});
  return Done{};
}

Outcome FindSequence(const Workbench& bench, std::string_view extension, FoundStudy& found) {
  const auto path = Companion(bench, extension);
  if (!path) {
    return Done{};
  }
  const auto text = bench.workspace.outer_disk().Read(*path);
  if (!text) {
    return text.error();
  }
  if (const auto lines = SplitLines(*text); !lines.empty()) {
    found.critical_branch = Unquoted(lines.front());
  }
  return Done{};
}

Outcome FindCompanions(const Workbench& bench, FoundStudy& found) {
  const StudyExtensions& extensions = ExtensionsOf(bench.study.system_kind);
  Outcome outcome = FindSequence(bench, extensions.sequence, found);
  if (outcome) {
    outcome = FindCompanion<StatRow>(bench, extensions.statistics, work_file::kStatistics, found);
  }
  if (outcome) {
    outcome = FindCompanion<SectionRow>(bench, extensions.winter, work_file::kWinter, found);
  }
  if (outcome) {
    outcome = FindCompanion<FluidRow>(bench, extensions.fluid, work_file::kFluid, found);
  }
  return outcome;
}

// The study at `study path`, proved; what a broken-off save left of it is settled first.
Result<FoundStudy> FindStudy(Workbench& bench) {
  std::filesystem::path& path = bench.study.study_path;
  Disk& disk = bench.workspace.outer_disk();
  const std::string name = path.filename().string();
  if (Outcome ended = FinishSave(disk, path.parent_path(), std::string(BaseOf(name))); !ended) {
    return ended.error();
  }
  path = AsInFolder(disk, path);
  auto bytes = disk.Read(path);
  if (!bytes) {
    return bytes.error();
  }
  auto rows = ProveLoadable(bench, path, *bytes);
  if (!rows) {
    return rows.error();
  }
  FoundStudy found;
  found.rows = std::move(rows).value();
  found.copies.push_back({work_file::kRows, std::move(bytes).value()});
  if (Outcome whole = FindCompanions(bench, found); !whole) {
    return whole.error();
  }
  return found;
}

// State, tables and emitter file from the work files.
Outcome TakeStudy(Workbench& bench, const Rows& rows) {
  Study& study = bench.study;
  TakeRows(study, rows);
  Outcome taken = LoadPipeSystem(bench);
  if (taken) {
    taken = TakeEmitters(bench, rows);
  }
  if (!taken) {
    return taken;
  }
  auto stats = bench.workspace.Rows<StatRow>(work_file::kStatistics).ReadAll();
  if (!stats) {
    return stats.error();
  }
  study.PipeStats = std::move(stats).value();
  study.CurrentRow = 0;
  study.data_exist = true;
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
  RebuildNameState(bench);
  NoteOrigin(bench.workspace, bench.study.study_path);
  for (const FoundStudy::Copy& copy : found.copies) {
    if (copy.work_name == work_file::kRows) {
      study.saved_digest = Digest(copy.bytes);
    }
    bench.workspace.Pause();
    if (Outcome written = bench.workspace.Write(copy.work_name, copy.bytes); !written) {
      return written;
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
  study.study_path = AsInFolder(bench.workspace.outer_disk(), *path);
  return FindStudy(bench);
}

void OpenStudy(Workbench& bench, RecentList recent, const std::function<bool()>& may_replace) {
  Study& study = bench.study;
  const auto found = FindGivenStudy(bench);
  if (!found) {
    TellFailure(bench, found.error());
    study.study_path = study.last_study_path;
    return;
  }
  const std::filesystem::path path = std::exchange(study.study_path, study.last_study_path);
  if (may_replace && !may_replace()) {
    study.CalcStatus = calc_status::kRefused;
    return;
  }
  study.study_path = path;
  if (recent == RecentList::kAdd) {
    // A list that cannot be written keeps no study from being opened.
    static_cast<void>(AddRecentFile(bench.workspace, study.study_path));
  }
  if (Outcome loaded = TakeOver(bench, *found); !loaded) {
    TellFailure(bench, loaded.error());
    ResetStudy(bench);
  }
}

void RecoverStudy(Workbench& bench) {
  const auto bytes = bench.workspace.Read(work_file::kRows);
  const auto rows = bytes ? ProveLoadable(bench, bench.workspace.Path(work_file::kRows), *bytes)
                          : Result<Rows>(bytes.error());
  const Outcome loaded = rows ? TakeStudy(bench, *rows) : Outcome(rows.error());
  if (!loaded) {
    TellFailure(bench, loaded.error());
    return;
  }
  bench.study.origin_path = ReadOrigin(bench.workspace);
  bench.study.came_by_recovery = true;
  bench.study.recalculation_needed = true;
  bench.study.unsaved_changes = true;
}

}  // namespace

void LoadStudy(Workbench& bench, RecentList recent, const std::function<bool()>& may_replace) {
  Study& study = bench.study;
  if (study.study_path == kEscapePath) {
    study.study_path = study.last_study_path;
    return;
  }
  if (study.entry_mode == 2 || study.unsaved_changes) {
    return;
  }
  if (study.recovery) {
    RecoverStudy(bench);
  } else {
    OpenStudy(bench, recent, may_replace);
  }
}

}  // namespace kalvo
