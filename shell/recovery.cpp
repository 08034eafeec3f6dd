#include "shell/recovery.h"

#include "shell/safety_copies.h"
#include "study/fault.h"
#include "study/load_study.h"
#include "study/study_reset.h"
#include "study/text_lines.h"

namespace kalvo {
namespace {

constexpr std::size_t kRowSize = RecordSize<SectionRow>();

bool HoldsRows(const Workspace& workspace, std::string_view name) {
  const auto bytes = workspace.Read(name);
  return bytes && bytes->size() >= kRowSize;
}

// The rows that were being worked on, from whichever file they stand in.
Outcome PutRowsInPlace(Workspace& workspace) {
  for (const char* const name : {work_file::kSummerRows, work_file::kRowsBeforeChange}) {
    if (!HoldsRows(workspace, name)) continue;
    if (Outcome moved = workspace.MoveOver(name, work_file::kRows); !moved) return moved;
  }
  if (HoldsRows(workspace, work_file::kRows)) return Done{};
  for (const char* const name : {work_file::kRebuilt, work_file::kFirstRows}) {
    if (HoldsRows(workspace, name)) return workspace.MoveOver(name, work_file::kRows);
  }
  return Done{};
}

// Cuts a rest that is no whole row; the file as it was is kept in a safety copy.
Outcome CutToWholeRows(Workbench& bench, const std::filesystem::path& data_folder) {
  const auto bytes = bench.workspace.Read(work_file::kRows);
  if (!bytes || bytes->size() % kRowSize == 0) return Done{};
  if (Outcome kept = KeepSafetyCopyAnyway(bench, data_folder); !kept) return kept;
  const std::size_t whole = bytes->size() - bytes->size() % kRowSize;
  return bench.workspace.Write(work_file::kRows, bytes->substr(0, whole));
}

SystemKind KindOf(const SectionRow& row, SystemKind chosen) {
  const bool closed = row.KLEIS != 0;
  const bool open = row.ANOIK != 0;
  if (closed == open) return chosen;
  return closed ? SystemKind::kClosed : SystemKind::kOpen;
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

Result<FoundLeftOver> FindLeftOver(Workbench& bench, const std::filesystem::path& data_folder) {
  Workspace& workspace = bench.workspace;
  if (Outcome placed = PutRowsInPlace(workspace); !placed) return placed.error();
  if (Outcome cut = CutToWholeRows(bench, data_folder); !cut) return cut.error();
  FoundLeftOver found;
  const auto rows = workspace.Rows().ReadAll();
  if (!rows) return rows.error();
  found.rows = static_cast<int>(rows->size());
  if (found.rows > 0) {
    found.kind = KindOf(rows->front(), bench.study.system_kind);
    found.what = found.kind == bench.study.system_kind ? LeftOver::kStudy : LeftOver::kOtherKind;
    return found;
  }
  workspace.Delete(work_file::kRows);
  if (workspace.HasBytes(work_file::kSheet) && workspace.HasBytes(work_file::kSheetIntro)) {
    found.what = LeftOver::kSheet;
  }
  return found;
}

Outcome AcceptRecovery(Workbench& bench, const FoundLeftOver& found,
                       const std::filesystem::path& data_folder) {
  Study& study = bench.study;
  study.system_kind = found.kind;
  study.unsaved_changes = false;
  study.entry_mode = 0;
  study.recovery = true;
  study.study_path.clear();
  LoadStudy(bench, RecentList::kLeave);
  if (study.CalcStatus != calc_status::kRefused) return Done{};
  study.CalcStatus = calc_status::kNothing;
  study.recovery = false;
  if (Outcome kept = KeepSafetyCopyAnyway(bench, data_folder); !kept) return kept;
  ResetStudy(bench);
  return Done{};
}

Outcome DiscardLeftOver(Workbench& bench, const std::filesystem::path& data_folder) {
  if (Outcome kept = KeepSafetyCopy(bench, data_folder); !kept) return kept;
  bench.workspace.DeleteWorkFiles();
  bench.study.SectionCount = 0;
  return Done{};
}

Outcome AcceptSheet(Workbench& bench, const std::filesystem::path& data_folder) {
  if (Outcome kept = KeepSafetyCopyAnyway(bench, data_folder); !kept) return kept;
  if (Outcome taken = TakeSheetIntro(bench); !taken) return taken;
  bench.study.unsaved_changes = true;
  bench.study.recovery = true;
  return LoadPipeSystem(bench);
}

}  // namespace kalvo
