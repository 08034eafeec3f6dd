#include "engine/winter.h"

#include <algorithm>

#include "engine/calculation_command.h"
#include "engine/checks.h"
#include "engine/critical.h"
#include "engine/flow_report.h"
#include "engine/row_store.h"
#include "engine/sizing.h"
#include "engine/trap.h"
#include "study/by_number.h"
#include "study/message_codes.h"
#include "study/rounding.h"
#include "study/study_proof.h"
#include "study/tables.h"

namespace kalvo {

namespace {

struct NeededValue {
  WinterValue value;
  float WinterLine::*field;
};

constexpr NeededValue kNeeded[] = {{WinterValue::kLength, &WinterLine::length_m},
                                   {WinterValue::kFlow, &WinterLine::flow_lh},
                                   {WinterValue::kDrop, &WinterLine::drop}};

// The first line that is refused.
std::optional<WinterOutcome> CheckLines(const std::vector<WinterLine>& lines,
                                        const std::vector<WinterLine>& summer,
                                        const AcceptFlow& accept) {
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const WinterLine& line = lines[i];
    for (const NeededValue& needed : kNeeded) {
      if (line.*needed.field == 0.0F) {
        return WinterOutcome{WinterEnd::kBadValue, i, needed.value};
      }
    }
    const auto before = std::find_if(
        summer.begin(), summer.end(),
        [&line](const WinterLine& emitter) { return emitter.section == line.section; });
    if (before == summer.end()) {
      throw Fault(FaultCode::kBadRecordNumber, "no emitter in that section");
    }
    const bool below = line.flow_lh < before->flow_lh;
    if (!below && !(accept && accept(line, before->flow_lh))) {
      return WinterOutcome{WinterEnd::kDeclined, i, WinterValue::kFlow};
    }
  }
  return std::nullopt;
}

// Emitters' values into the winter rows and table.
void TakeLines(Study& winter, RowTable& store, const std::vector<WinterLine>& lines) {
  for (SectionRow& row : store.rows()) {
    row.WaterFlow = 0;
  }
  winter.WinterEmitterTable.clear();
  float total = 0;
  for (const WinterLine& line : lines) {
    SectionRow& row = store.At(line.section);
    row.Length = line.length_m;
    row.WaterFlow = line.flow_lh;
    row.SomaDrop = line.drop;
    winter.WinterEmitterTable.push_back(
        {line.section, ThroughText(line.flow_lh), ThroughText(line.drop)});
    total = ToSingle(static_cast<double>(total) + line.flow_lh);
  }
  winter.TotalFlowM3h = ToSingle(total / 1000.0);
  winter.EmitterTable = winter.WinterEmitterTable;
}

void WriteWinterValues(const Study& winter, RowTable& store) {
  const auto material = FixedText<78>::FromUtf8(winter.pipe_material);
  for (int number = 1; number <= store.count(); ++number) {
    SectionRow& row = store.At(number);
    row.Material = material;
    row.MeanTemp = winter.MeanTemp;
    row.TOT = ToInt16(store.count());
    row.PAR = winter.TotalFlowM3h;
    row.Outlets = winter.EmitterCount;
    row.WaterFlow = ToSingle(ByNumber(winter.SectionTable, number).flow_lh.value_or(0.0));
    row.MeanVel = 0;
    SetKind(row, SystemKind::kClosed, kKindOfEmitters);
  }
}

// All passes; ends early when the flows cannot be summed or the fluid does not fit.
WinterEnd RunWinterPasses(Study& study, RowTable& rows, const Workspace& workspace,
                          const std::vector<WinterLine>& lines, const NotePostponed& note) {
  RefreshSectionTable(study, rows.rows());
  TakeLines(study, rows, lines);
  if (!SumWinterFlows(study)) {
    return WinterEnd::kLost;
  }
  WriteWinterValues(study, rows);
  const auto pass = HoldPassConditions(workspace, study, WinterFluidTemperature(study.MeanTemp));
  if (!pass) {
    return WinterEnd::kViscosity;
  }
  RecalculateRows(study, rows, *pass);
  CriticalPassFlowOnly(study, rows, note);
  return WinterEnd::kCalculated;
}

// The same on the winter rows, a copy of the study's.
WinterEnd RunOnWinterRows(Study& study, Workspace& workspace,
                          const std::vector<WinterLine>& lines) {
  Require(workspace.Copy(work_file::kRows, work_file::kWinter));
  Require(workspace.Copy(work_file::kRows, work_file::kSummerRows));
  PostponedFile postponed(workspace);
  RowStore store(workspace, work_file::kWinter);
  WinterEnd end = WinterEnd::kBrokenOff;
  store.SaveAfter([&] { end = RunWinterPasses(study, store, workspace, lines, postponed.Note()); });
  return end;
}

// Summer's rows from their copy, which is gone then. Rows that cannot be loaded displace no others.
void PutSummerBack(Workbench& bench) {
  Workspace& workspace = bench.workspace;
  if (!workspace.HasBytes(work_file::kSummerRows)) {
    return;
  }
  const std::string summer = Require(workspace.Read(work_file::kSummerRows));
  const bool same = summer == Require(workspace.ReadIfThere(work_file::kRows));
  if (same || ProveLoadable(bench, workspace.Path(work_file::kSummerRows), summer).ok()) {
    Require(workspace.Flush(work_file::kSummerRows));
    Require(workspace.MoveOver(work_file::kSummerRows, work_file::kRows));
  }
}

}  // namespace

WinterDuty::WinterDuty(Workbench& bench) : bench_(bench) {
  PutSummerBack(bench);
  if (bench.workspace.Exists(work_file::kWinter)) {
    winter_before_ = Require(bench.workspace.Read(work_file::kWinter));
  }
}

WinterOutcome WinterDuty::Run(float temperature, const std::vector<WinterLine>& lines,
                              const AcceptFlow& accept) {
  WinterOutcome outcome{WinterEnd::kBrokenOff};
  RunTrapped(bench_, [&] { outcome = CheckAndRun(temperature, lines, accept); });
  bench_.study.CalcAborted = outcome.end == WinterEnd::kBrokenOff;
  return outcome;
}

WinterOutcome WinterDuty::CheckAndRun(float temperature, const std::vector<WinterLine>& lines,
                                      const AcceptFlow& accept) {
  const RowTable summer = ReadRows(bench_.workspace);
  if (summer.count() == 0) {
    return {WinterEnd::kRefused};
  }
  const Study& study = bench_.study;
  if (!study.SystemClosed() || !study.results_valid || !HasResults(summer.rows())) {
    bench_.Show(message::kNoSummerResults);
    return {WinterEnd::kRefused};
  }
  if (!(temperature >= kLeastWinterTemp && temperature <= kMostWinterTemp)) {
    bench_.Show(message::kWinterTemperature);
    return {WinterEnd::kTemperature};
  }
  if (const auto refused = CheckLines(lines, SummerValues(bench_), accept)) {
    return *refused;
  }
  return Calculate(temperature, lines);
}

WinterOutcome WinterDuty::Calculate(float temperature, const std::vector<WinterLine>& lines) {
  results_.reset();
  // The passes work on a study of their own: the open one stays that of the summer.
  Study study = bench_.study;
  study.MeanTemp = temperature;
  Workbench winter(study, bench_.workspace, bench_.pipes, bench_.prompter, bench_.fault_log);
  WinterEnd end = WinterEnd::kBrokenOff;
  if (RunTrapped(winter, [&] { end = RunOnWinterRows(study, bench_.workspace, lines); })) {
    end = WinterEnd::kBrokenOff;
  }
  bench_.study.lost_walk = study.lost_walk;
  bench_.study.failed_row = study.failed_row;
  if (end == WinterEnd::kLost) {
    ShowLostWalk(winter);
  } else if (end == WinterEnd::kViscosity) {
    TellFluidMisfit(winter);
  }
  WinterOutcome outcome{end};
  outcome.critical_branch = study.critical_branch;
  if (end == WinterEnd::kCalculated) {
    results_ = std::move(study);
  }
  return outcome;
}

void WinterDuty::PutValues(const WinterValues& values) {
  results_.reset();
  Require(bench_.workspace.Read(work_file::kRows));  // rows that are gone are no empty table
  const std::vector<SectionRow> rows =
      RowsOfWinterValues(Require(bench_.workspace.Rows().ReadAll()), values);
  Require(bench_.workspace.Write(work_file::kWinter, EncodeRows<SectionRow>(rows)));
}

bool WinterDuty::HasChanged() const {
  const auto bytes = bench_.workspace.Read(work_file::kWinter);
  if (!bytes && !bytes.error().IsMissing()) {
    throw Fault(bytes.error());
  }
  return bytes.ok() != winter_before_.has_value() || (bytes.ok() && *bytes != *winter_before_);
}

void WinterDuty::ShowResults() {
  Workspace& workspace = bench_.workspace;
  Summer summer{Require(workspace.Read(work_file::kRows)), bench_.study};
  Require(workspace.Copy(work_file::kRows, work_file::kSummerRows));
  Require(workspace.Flush(work_file::kSummerRows));
  summer_ = std::move(summer);
  // A copy that fails may have taken their place all the same.
  if (const Outcome copied = workspace.Copy(work_file::kWinter, work_file::kRows); !copied) {
    HideResults();
    throw Fault(copied.error());
  }
  Study& study = bench_.study;
  study.MeanTemp = results_->MeanTemp;
  study.TotalFlowM3h = results_->TotalFlowM3h;
  study.PumpHead = results_->PumpHead;
  study.CriticalDrop = results_->CriticalDrop;
  study.critical_branch = results_->critical_branch;
  study.SectionTable = results_->SectionTable;
  study.EmitterTable = results_->EmitterTable;
}

void WinterDuty::HideResults() {
  if (!summer_) {
    return;
  }
  Workspace& workspace = bench_.workspace;
  if (Require(workspace.ReadIfThere(work_file::kRows)) != summer_->rows) {
    Require(workspace.Write(work_file::kRows, summer_->rows));
  }
  Require(workspace.Flush(work_file::kRows));
  bench_.study = std::move(summer_->study);
  summer_.reset();
}

void WinterDuty::Close() {
  HideResults();
  PutSummerBack(bench_);
}

void WinterDuty::Settle(WinterData data) {
  Workspace& workspace = bench_.workspace;
  if (data == WinterData::kKept) {
    bench_.study.unsaved_changes = true;
  } else if (winter_before_) {
    Require(workspace.Write(work_file::kWinter, *winter_before_));
  } else {
    Require(workspace.Remove(work_file::kWinter));
  }
}

float WinterFluidTemperature(float mean_temperature) {
  return ToSingle(Int(static_cast<double>(mean_temperature) + 0.45));
}

}  // namespace kalvo
