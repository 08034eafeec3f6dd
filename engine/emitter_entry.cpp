#include "engine/emitter_entry.h"

#include <algorithm>
#include <set>

#include "engine/flow_report.h"
#include "study/tables.h"

namespace kalvo {

namespace {

using Rows = std::vector<SectionRow>;

bool SameEmitter(const SectionRow& a, const SectionRow& b) {
  return a.RecordNumber == b.RecordNumber && a.WaterFlow == b.WaterFlow && a.SomaDrop == b.SomaDrop;
}

void MarkChanged(Study& study) {
  study.unsaved_changes = true;
  study.results_valid = false;
}

// The flows of `rows` are what a calculation of `filled` sums.
bool HaveSums(const RowTable& rows, const RowTable& filled, Study study) {
  RefreshSectionTable(study, filled.rows());
  RefreshEmitterTable(study, RowsWithEmitter(filled.rows()));
  return SumSectionFlows(study) &&
         std::ranges::equal(rows.rows(), study.SectionTable,
                            [](const SectionRow& row, const SectionLine& line) {
                              return row.WaterFlow == ToSingle(line.flow_lh.value_or(0));
                            });
}

}  // namespace

EmitterEntry::EmitterEntry(Workbench& bench) : bench_(bench), rows_(ReadRows(bench.workspace)) {
  opened_ = Require(bench.workspace.Rows(work_file::kEmitters).ReadAll());
  emitters_ =
      bench.workspace.Exists(work_file::kEmitters) ? opened_ : RowsWithEmitter(rows_.rows());
  for (SectionRow& emitter : emitters_) {
    const int number = emitter.RecordNumber;
    if (number >= 1 && number <= row_count()) {
      emitter.Name = rows_.At(number).Name;
    } else {
      emitter.RecordNumber = 0;
    }
  }
  if (emitters_.empty()) {
    bench.workspace.Delete(work_file::kEmittersInWork);
  }
  RefreshSectionTable(bench.study, rows_.rows());
}

EmitterValues EmitterEntry::At(int emitter) const {
  const SectionRow& record = ByNumber(emitters_, emitter);
  return {record.RecordNumber, record.WaterFlow, record.SomaDrop};
}

std::string EmitterEntry::NameOf(int number) const {
  if (number < 1 || number > row_count()) {
    return {};
  }
  return FromCodePage(rows_.At(number).Name.Trimmed());
}

bool EmitterEntry::HasSection(int number, int except) const {
  for (int emitter = 1; emitter <= count(); ++emitter) {
    if (emitter != except && At(emitter).section == number) {
      return true;
    }
  }
  return false;
}

bool EmitterEntry::HasOwnSection(int emitter) const {
  const int section = At(emitter).section;
  const auto is_same = [section](const SectionRow& other) { return other.RecordNumber == section; };
  return section != 0 && std::none_of(emitters_.begin(), emitters_.begin() + emitter - 1, is_same);
}

int EmitterEntry::FirstWithoutSection() const {
  int emitter = 1;
  while (emitter <= count() && HasOwnSection(emitter)) {
    ++emitter;
  }
  return emitter <= count() ? emitter : 0;
}

// A record is a copy of the section's row; only number, name, flow and drop mean something in it.
SectionRow EmitterEntry::RecordOf(const EmitterValues& values) const {
  SectionRow record = rows_.At(values.section);
  record.WaterFlow = values.flow_lh;
  record.SomaDrop = values.drop;
  return record;
}

void EmitterEntry::Store(int emitter, const EmitterValues& values) {
  if (emitter <= count() && At(emitter) == values) {
    return;
  }
  Rows emitters = emitters_;
  emitters.resize(std::max(emitters.size(), static_cast<std::size_t>(emitter)));
  ByNumber(emitters, emitter) = RecordOf(values);
  Keep(std::move(emitters));
}

void EmitterEntry::Append(const std::vector<EmitterValues>& several) {
  Rows emitters = emitters_;
  for (const EmitterValues& values : several) {
    emitters.push_back(RecordOf(values));
  }
  Keep(std::move(emitters));
}

void EmitterEntry::Remove(int emitter) {
  Rows emitters = emitters_;
  emitters.erase(emitters.begin() + (emitter - 1));
  Keep(std::move(emitters));
}

void EmitterEntry::Keep(Rows emitters) {
  for (const char* name : {work_file::kEmittersInWork, work_file::kEmitters}) {
    Require(bench_.workspace.Rows(name).WriteAll(emitters));
  }
  emitters_ = std::move(emitters);
}

bool EmitterEntry::IsListAsOpened() const {
  return std::ranges::equal(emitters_, opened_, SameEmitter);
}

void EmitterEntry::CopyIntoRows(RowTable& rows) const {
  for (SectionRow& row : rows.rows()) {
    row.WaterFlow = 0;
    row.SomaDrop = 0;
  }
  for (const SectionRow& emitter : emitters_) {
    SectionRow& row = rows.At(emitter.RecordNumber);
    row.WaterFlow = emitter.WaterFlow;
    row.SomaDrop = emitter.SomaDrop;
  }
}

// In a calculated study the flow of a row may be a sum; where the emitters are unchecked, of others
// than those of the list.
bool EmitterEntry::RowsKnowList(const RowTable& rows) const {
  const Study& study = bench_.study;
  RowTable filled = rows;
  CopyIntoRows(filled);
  const bool sums =
      study.results_valid && (!study.emitters_unchecked || HaveSums(rows, filled, study));
  return std::ranges::equal(
      rows.rows(), filled.rows(), [sums](const SectionRow& before, const SectionRow& after) {
        const bool same_flow = sums || !after.HasEmitter() || before.WaterFlow == after.WaterFlow;
        return before.SomaDrop == after.SomaDrop && same_flow;
      });
}

void EmitterEntry::End() {
  Study& study = bench_.study;
  RowStore store(bench_.workspace);
  if (!IsListAsOpened() || !RowsKnowList(store) || count() != study.EmitterCount) {
    const auto outlets = ToInt16(count());
    float total = 0;
    CopyIntoRows(store);
    for (const SectionRow& emitter : emitters_) {
      total = ToSingle(static_cast<double>(total) + emitter.WaterFlow);
    }
    for (SectionRow& row : store.rows()) {
      row.TOT = ToInt16(store.count());
      row.Outlets = outlets;
      SetKind(row, SystemKind::kClosed, kKindOfEmitters);
    }
    Require(bench_.workspace.Rows(work_file::kEmittersInWork).WriteAll(emitters_));
    Require(bench_.workspace.MoveOver(work_file::kEmittersInWork, work_file::kEmitters));
    store.Save();
    study.TotalFlowM3h = ToSingle(total / 1000.0);
    RefreshSectionTable(study, store.rows());
    RefreshEmitterTable(study, RowsWithEmitter(store.rows()));
    MarkChanged(study);
  } else {
    bench_.workspace.Delete(work_file::kEmittersInWork);
  }
  study.SingleSection = store.count() == 1;
  study.NameErrors = false;
  study.emitters_unchecked = false;
}

void EmitterEntry::LeaveUnchecked() {
  if (!IsListAsOpened()) {
    MarkChanged(bench_.study);
  }
  bench_.study.emitters_unchecked = true;
}

}  // namespace kalvo
