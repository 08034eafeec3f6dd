#include "shell/recovery.h"

#include <optional>
#include <utility>
#include <vector>

#include "entry/sections/draft_rows.h"
#include "form/tell.h"
#include "shell/open_study.h"
#include "shell/unreadable_work.h"
#include "study/date_text.h"
#include "study/fluid_library.h"
#include "study/kept_sheet.h"
#include "study/kept_winter.h"
#include "study/load_study.h"
#include "study/pipe_choice.h"
#include "study/safety_copies.h"
#include "study/sheet_intro.h"
#include "study/study_origin.h"
#include "study/study_proof.h"
#include "study/study_reset.h"

namespace kalvo {
namespace {

constexpr std::size_t kRowSize = RecordSize<SectionRow>();

// How a step of putting the work files in order ended: done, or the user stays; error: a file.
using Moved = Result<bool>;

bool HoldsRows(const Workspace& workspace, std::string_view name) {
  const auto bytes = workspace.Read(name);
  return bytes && bytes->size() >= kRowSize;
}

void TellSetAside(Desk& desk, const std::string& names) {
  desk.bench.Ask({" !!... ΠΡΟΣΟΧΗ ...!! ",
                  {"Δεν διαβάζονται σωστά και η Μελέτη συνεχίζει χωρίς αυτά :", names},
                  48});
}

// Whether rows can be loaded. Error: a pipe library cannot be read, which says nothing of them.
Result<bool> AreLoadable(const Workbench& bench, const std::filesystem::path& file,
                         std::string_view bytes) {
  const auto proved = ProveRows(bench, file, bytes);
  if (!proved && proved.error().file != file && !proved.error().IsMissing()) return proved.error();
  return proved.ok();
}

// `name` takes the place of the rows when it can be loaded; else it is kept aside.
Moved TakeForRows(Desk& desk, const char* name) {
  Workspace& workspace = desk.bench.workspace;
  const auto bytes = workspace.Read(name);
  if (!bytes) return bytes.error();
  const auto rows = workspace.ReadIfThere(work_file::kRows);
  if (!rows) return rows.error();
  const auto loadable = AreLoadable(desk.bench, workspace.Path(name), *bytes);
  if (!loadable) return loadable.error();
  if (!*loadable || (!rows->empty() && *rows != *bytes)) {
    if (!KeepSafetyCopyAnyway(desk.bench, desk.safety_folders())) return false;
  }
  if (!*loadable) {
    workspace.Delete(name);
    TellSetAside(desk, name);
    return true;
  }
  if (Outcome flushed = workspace.Flush(name); !flushed) return flushed.error();
  Outcome moved = workspace.MoveOver(name, work_file::kRows);
  return moved ? Moved(true) : moved.error();
}

// The rows that were being worked on, from whichever file holds them.
Moved PutRowsInPlace(Desk& desk) {
  const Workspace& workspace = desk.bench.workspace;
  for (const char* const name : {work_file::kSummerRows, work_file::kRowsBeforeChange}) {
    if (!workspace.HasBytes(name)) continue;
    if (Moved taken = TakeForRows(desk, name); !taken || !*taken) return taken;
  }
  for (const char* const name : {work_file::kRebuilt, work_file::kFirstRows}) {
    if (workspace.HasBytes(work_file::kRows)) break;
    if (!HoldsRows(workspace, name)) continue;
    if (Moved taken = TakeForRows(desk, name); !taken || !*taken) return taken;
  }
  return true;
}

// Cuts a rest that is no whole row; the file as it was is kept in a safety copy.
Moved CutToWholeRows(Desk& desk) {
  Workspace& workspace = desk.bench.workspace;
  const auto bytes = workspace.ReadIfThere(work_file::kRows);
  if (!bytes) return bytes.error();
  if (bytes->size() % kRowSize == 0) return true;
  if (!KeepSafetyCopyAnyway(desk.bench, desk.safety_folders())) return false;
  const std::size_t whole = bytes->size() - bytes->size() % kRowSize;
  Outcome cut = workspace.Write(work_file::kRows, bytes->substr(0, whole));
  return cut ? Moved(true) : cut.error();
}

std::string MomentOf(const Workspace& workspace, std::string_view name) {
  const auto status = workspace.Status(name);
  if (!status || !*status) return {};
  return DateText((*status)->modified) + ", " + ClockText((*status)->modified);
}

// The sheet in that file into `sheet`, none when it is not there. One that cannot be opened is kept
// aside.
Moved TakeSheet(Desk& desk, std::string_view name, const FoundLeftOver& found,
                std::optional<SheetImage>& sheet) {
  Workbench& bench = desk.bench;
  const auto bytes = bench.workspace.Read(name);
  if (!bytes && bytes.error().IsMissing()) return true;
  if (!bytes) return bytes.error();
  auto decoded = DecodeSheet(*bytes, bench.workspace.Path(name), desk.separators.decimal);
  const auto is_known = [](SystemKind kind) { return kind != SystemKind::kNone; };
  if (decoded && is_known(decoded->kind) && is_known(found.kind) && decoded->kind != found.kind) {
    decoded =
        FileError{bench.workspace.Path(name), "Το φύλλο είναι άλλου συστήματος από τα Τμήματα"};
  }
  if (decoded) {
    sheet = std::move(decoded).value();
    return true;
  }
  if (!KeepSafetyCopyAnyway(bench, desk.safety_folders())) return false;
  bench.workspace.Delete(name);
  bench.Ask({" !!... ΠΡΟΣΟΧΗ ...!! ",
             {"Το φύλλο Τμημάτων που έμεινε από πριν ΔΕΝ μπορεί να ανοίξει", decoded.error().Line(),
              "Μένει, όπως είναι, στα Αντίγραφα Ασφαλείας"},
             box_style::kExclamation});
  return true;
}

// The title that goes with a sheet; empty when it cannot be found out.
std::string TitleBesideSheet(const Workspace& workspace) {
  const auto bytes = workspace.Read(work_file::kSheetIntro);
  const auto intro = bytes ? DecodeIntro(*bytes, {}) : Result<SheetIntro>(bytes.error());
  return intro ? intro->study_title : std::string();
}

// Finds the sheet that is to be offered, if any.
Moved LookForSheet(Desk& desk, FoundLeftOver& found) {
  const Workspace& workspace = desk.bench.workspace;
  for (const std::string_view name : {work_file::kSheetInWork, work_file::kSheet}) {
    const bool saved = name == work_file::kSheet;
    if (saved && (found.rows > 0 || !workspace.HasBytes(work_file::kSheetIntro))) break;
    std::optional<SheetImage> sheet;
    if (Moved taken = TakeSheet(desk, name, found, sheet); !taken || !*taken) return taken;
    if (!sheet) continue;
    found.what = LeftOver::kSheet;
    found.sheet_file = name;
    found.sheet_sections = CountSections(*sheet);
    found.moment = MomentOf(workspace, name);
    if (found.kind == SystemKind::kNone) found.kind = sheet->kind;
    if (found.title.empty()) found.title = TitleBesideSheet(workspace);
    return true;
  }
  // One that nobody offers goes when the menu begins.
  const bool goes = found.rows == 0 && workspace.HasBytes(work_file::kSheet);
  return !goes || KeepSafetyCopyAnyway(desk.bench, desk.safety_folders());
}

// General data, pipe system and fluid of a sheet without rows. False: they cannot be read.
bool TakeSheetAlone(Desk& desk, const FoundLeftOver& found) {
  Workbench& bench = desk.bench;
  Workspace& workspace = bench.workspace;
  Study& study = bench.study;
  if (!KeepSafetyCopyAnyway(bench, desk.safety_folders()) || !SetDamagedAside(desk)) return false;
  const auto bytes = workspace.ReadIfThere(work_file::kSheetIntro);
  if (!bytes) return TellIfFailed(bench, bytes.error());
  if (found.sheet_file == work_file::kSheet &&
      !TellIfFailed(bench, workspace.Copy(work_file::kSheet, work_file::kSheetInWork))) {
    return false;
  }
  const auto intro = DecodeIntro(*bytes, workspace.Path(work_file::kSheetIntro));
  if (!intro) TellSetAside(desk, work_file::kSheetIntro);
  TakeIntro(study, intro ? *intro : SheetIntro{});
  study.system_kind = found.kind;
  if (study.pipe_system_number != 0 && !TellIfFailed(bench, SetPipeMaterial(bench))) {
    study.pipe_system_number = 0;
  }
  TellIfFailed(bench, LoadStudyFluid(bench));
  study.study_path.clear();
  study.origin_path = ReadOrigin(workspace);
  study.came_by_recovery = true;
  study.unsaved_changes = true;
  study.recovery = true;
  return true;
}

// The program may have ended between the rows and their emitters.
void MendEmitters(Workbench& bench) {
  const auto rows = bench.workspace.Rows().ReadAll();
  if (rows && bench.study.SystemClosed()) TellIfFailed(bench, FindEmitters(bench, *rows));
}

}  // namespace

Result<std::optional<FoundLeftOver>> SettleWorkFiles(Desk& desk) {
  Workspace& workspace = desk.bench.workspace;
  if (!SetUnreadableAside(desk)) return std::optional<FoundLeftOver>();
  for (const auto step : {PutRowsInPlace, CutToWholeRows}) {
    const Moved ended = step(desk);
    if (!ended) return ended.error();
    if (!*ended) return std::optional<FoundLeftOver>();
  }
  const auto rows = workspace.Rows().ReadAll();
  if (!rows) return rows.error();
  FoundLeftOver found;
  found.rows = static_cast<int>(rows->size());
  found.file = ReadOrigin(workspace);
  if (rows->empty()) {
    workspace.Delete(work_file::kRows);
  } else {
    found.what = LeftOver::kStudy;
    found.kind = KindOf(rows->front());
    found.title = HeaderRow(*rows).Thema.Utf8();
    found.moment = MomentOf(workspace, work_file::kRows);
  }
  const Moved looked = LookForSheet(desk, found);
  if (!looked) return looked.error();
  if (!*looked) return std::optional<FoundLeftOver>();
  const SystemKind chosen = desk.bench.study.system_kind;
  if (found.kind == SystemKind::kNone) found.kind = chosen;
  if (found.what == LeftOver::kStudy && found.kind != chosen) found.what = LeftOver::kOtherKind;
  return std::optional(found);
}

bool AcceptRecovery(Desk& desk, const FoundLeftOver& found) {
  Workbench& bench = desk.bench;
  Study& study = bench.study;
  study.system_kind = found.kind;
  const bool fluid_damaged = IsDamaged(bench, work_file::kFluid);
  if (!SetDamagedAside(desk)) return false;
  study.unsaved_changes = false;
  study.entry_mode = kFormEntry;
  study.recovery = true;
  study.study_path.clear();
  const Result<bool> loaded = LoadStudy(bench, RecentList::kLeave);
  if (loaded) {
    study.fluid_assumed = study.fluid_assumed || fluid_damaged;
    MendEmitters(bench);
    TellIfFailed(bench, TakeKeptWinter(bench.workspace));
    return true;
  }
  TellLoadFailure(bench, loaded.error());
  study.recovery = false;
  if (!KeepSafetyCopyAnyway(desk.bench, desk.safety_folders())) return false;
  ResetStudy(bench);
  return true;
}

bool DiscardLeftOver(Desk& desk) {
  if (!KeepSafetyCopy(desk.bench, desk.safety_folders())) return false;
  desk.bench.workspace.DeleteWorkFiles();
  desk.bench.study.SectionCount = 0;
  return true;
}

bool AcceptSheet(Desk& desk, const FoundLeftOver& found) {
  const bool accepted = found.rows > 0 ? AcceptRecovery(desk, found) : TakeSheetAlone(desk, found);
  Study& study = desk.bench.study;
  // Rows that could not be loaded have taken the sheet with them, into the safety copy.
  if (accepted && study.recovery) study.entry_mode = kSheetEntry;
  return accepted;
}

bool SetDamagedAside(Desk& desk) {
  std::string names;
  std::vector<std::string_view> damaged;
  for (const std::string_view name :
       {work_file::kStatistics, work_file::kEmitters, work_file::kFluid, work_file::kWinter,
        work_file::kWinterInWork}) {
    if (!IsDamaged(desk.bench, name)) continue;
    names += (names.empty() ? "" : ", ") + std::string(name);
    damaged.push_back(name);
  }
  if (damaged.empty()) return true;
  if (!KeepSafetyCopyAnyway(desk.bench, desk.safety_folders())) return false;
  for (const std::string_view name : damaged) {
    desk.bench.workspace.Delete(name);
  }
  TellSetAside(desk, names);
  return true;
}

}  // namespace kalvo
