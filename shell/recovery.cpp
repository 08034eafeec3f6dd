#include "shell/recovery.h"

#include <vector>

#include "form/tell.h"
#include "shell/open_study.h"
#include "shell/safety_copies.h"
#include "shell/unreadable_work.h"
#include "study/date_text.h"
#include "study/fault.h"
#include "study/load_study.h"
#include "study/pipe_choice.h"
#include "study/study_origin.h"
#include "study/study_proof.h"
#include "study/study_reset.h"
#include "study/text_lines.h"

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

// `name` takes the place of the rows when it can be loaded; else it is kept aside.
Moved TakeForRows(Desk& desk, const char* name) {
  Workspace& workspace = desk.bench.workspace;
  const auto bytes = workspace.Read(name);
  if (!bytes) return bytes.error();
  const auto rows = workspace.ReadIfThere(work_file::kRows);
  if (!rows) return rows.error();
  const bool loadable = ProveRows(desk.bench, workspace.Path(name), *bytes).ok();
  if (!loadable || (!rows->empty() && *rows != *bytes)) {
    if (!KeepSafetyCopyAnyway(desk)) return false;
  }
  if (!loadable) {
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
  if (!KeepSafetyCopyAnyway(desk)) return false;
  const std::size_t whole = bytes->size() - bytes->size() % kRowSize;
  Outcome cut = workspace.Write(work_file::kRows, bytes->substr(0, whole));
  return cut ? Moved(true) : cut.error();
}

// `Intro.ss2`: title, kind, total flow, mean temperature and velocity, plant section, pipe system.
Outcome TakeSheetIntro(Workbench& bench) {
  constexpr std::size_t kLines = 7;
  const auto bytes = bench.workspace.Read(work_file::kSheetIntro);
  if (!bytes) return bytes.error();
  std::vector<std::string> lines = SplitLines(*bytes);
  if (lines.size() < kLines) {
    return FileError{bench.workspace.Path(work_file::kSheetIntro), "Το αρχείο είναι ελλιπές"};
  }
  const auto number = [&](std::size_t line) {
    return ParseNumber(Unquoted(lines[line]), Separators{'.', ','});
  };
  Study& study = bench.study;
  try {
    const float flow = ToSingle(number(2));
    const float temperature = ToSingle(number(3));
    const float velocity = ToSingle(number(4));
    const std::int16_t plant = ToInt16(number(5));
    const std::int16_t pipes = ToInt16(number(6));
    study.TotalFlowM3h = flow;
    study.MeanTemp = temperature;
    study.MeanVel = velocity;
    study.plant_section = plant;
    study.pipe_system_number = pipes;
  } catch (const Fault&) {
    return FileError{bench.workspace.Path(work_file::kSheetIntro), "Το αρχείο έχει άκυρο αριθμό"};
  }
  study.study_title = Unquoted(lines[0]);
  study.system_kind = Unquoted(lines[1]) == "OPEN" ? SystemKind::kOpen : SystemKind::kClosed;
  return Done{};
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
  FoundLeftOver found;
  const auto rows = workspace.Rows().ReadAll();
  if (!rows) return rows.error();
  found.rows = static_cast<int>(rows->size());
  if (found.rows > 0) {
    const SystemKind chosen = desk.bench.study.system_kind;
    found.kind = KindOf(rows->front(), chosen);
    found.what = found.kind == chosen ? LeftOver::kStudy : LeftOver::kOtherKind;
    found.title = HeaderRow(*rows).Thema.Utf8();
    found.file = ReadOrigin(workspace);
    if (const auto status = workspace.Status(work_file::kRows); status && *status) {
      found.moment = DateText((*status)->modified) + ", " + ClockText((*status)->modified);
    }
    return std::optional(found);
  }
  workspace.Delete(work_file::kRows);
  if (workspace.HasBytes(work_file::kSheet) && workspace.HasBytes(work_file::kSheetIntro)) {
    found.what = LeftOver::kSheet;
  }
  return std::optional(found);
}

bool AcceptRecovery(Desk& desk, const FoundLeftOver& found) {
  Workbench& bench = desk.bench;
  Study& study = bench.study;
  study.system_kind = found.kind;
  const bool fluid_damaged = IsDamaged(bench, work_file::kFluid);
  if (!SetDamagedAside(desk)) return false;
  study.unsaved_changes = false;
  study.entry_mode = 0;
  study.recovery = true;
  study.study_path.clear();
  const Result<bool> loaded = LoadStudy(bench, RecentList::kLeave);
  if (loaded) {
    study.fluid_assumed = study.fluid_assumed || fluid_damaged;
    return true;
  }
  TellLoadFailure(bench, loaded.error());
  study.recovery = false;
  if (!KeepSafetyCopyAnyway(desk)) return false;
  ResetStudy(bench);
  return true;
}

bool DiscardLeftOver(Desk& desk) {
  if (!KeepSafetyCopy(desk)) return false;
  desk.bench.workspace.DeleteWorkFiles();
  desk.bench.study.SectionCount = 0;
  return true;
}

bool AcceptSheet(Desk& desk) {
  Workbench& bench = desk.bench;
  if (!KeepSafetyCopyAnyway(desk)) return false;
  if (!TellIfFailed(bench, TakeSheetIntro(bench))) return false;
  bench.study.unsaved_changes = true;
  bench.study.recovery = true;
  return TellIfFailed(bench, SetPipeMaterial(bench));
}

bool SetDamagedAside(Desk& desk) {
  std::string names;
  std::vector<std::string_view> damaged;
  for (const std::string_view name :
       {work_file::kStatistics, work_file::kEmitters, work_file::kFluid, work_file::kWinter}) {
    if (!IsDamaged(desk.bench, name)) continue;
    names += (names.empty() ? "" : ", ") + std::string(name);
    damaged.push_back(name);
  }
  if (damaged.empty()) return true;
  if (!KeepSafetyCopyAnyway(desk)) return false;
  for (const std::string_view name : damaged) {
    desk.bench.workspace.Delete(name);
  }
  TellSetAside(desk, names);
  return true;
}

}  // namespace kalvo
