#include "entry/winter/winter_sitting.h"

#include <utility>

#include "engine/row_store.h"
#include "study/codepage.h"

namespace kalvo {
namespace {

WinterValues FirstValues(std::vector<WinterLine> lines) {
  for (WinterLine& line : lines) {
    line.flow_lh = line.drop = 0;
  }
  return {kUsualWinterTemp, std::move(lines)};
}

bool ReachedTheFile(WinterEnd end) {
  return end == WinterEnd::kLost || end == WinterEnd::kViscosity || end == WinterEnd::kBrokenOff ||
         end == WinterEnd::kCalculated;
}

}  // namespace

float& ValueOf(WinterLine& line, WinterValue what) {
  return what == WinterValue::kLength ? line.length_m
         : what == WinterValue::kFlow ? line.flow_lh
                                      : line.drop;
}

float ValueOf(const WinterLine& line, WinterValue what) {
  WinterLine copy = line;
  return ValueOf(copy, what);
}

WinterSitting::WinterSitting(Workbench& bench)
    : bench_(bench), duty_(bench), rows_(ReadRows(bench.workspace).rows()) {
  summer_ = SummerValues(bench);
  for (const WinterLine& line : summer_) {
    names_.push_back(FromCodePage(ByNumber(rows_, line.section).Name.Trimmed()));
  }
  const auto filed = WinterValuesIn(bench, work_file::kWinter);
  first_ = filed.value_or(FirstValues(summer_));
  told_ = first_;
  const auto kept = WinterValuesIn(bench, work_file::kWinterInWork);
  values_ = kept.value_or(first_);
  kept_ = values_;
  has_earlier_values_ = filed || kept;
}

void WinterSitting::Change(float& value, float number) {
  if (value == number) return;
  value = number;
  if (!duty_.has_results()) return;
  pump_.reset();
  void_ = true;
  PutValues();
}

void WinterSitting::Set(std::size_t line, WinterValue what, float number) {
  Change(ValueOf(values_.lines.at(line), what), number);
}

void WinterSitting::SetTemperature(float temperature) { Change(values_.temperature, temperature); }

WinterOutcome WinterSitting::Run(const AcceptFlow& accept) {
  // The run begins with a copy of the rows in place of the winter file.
  kept_.reset();
  const auto told = std::exchange(told_, std::nullopt);
  Require(Keep(values_, true));
  WinterOutcome outcome = duty_.Run(values_.temperature, values_.lines, accept);
  if (!duty_.has_results()) pump_.reset();
  if (!ReachedTheFile(outcome.end)) told_ = told;
  if (outcome.end == WinterEnd::kCalculated) TakeResults();
  // What the winter file tells needs no other. One that cannot be kept now is tried again.
  kept_.reset();
  static_cast<void>(Keep(values_, true).ok());
  return outcome;
}

// Results that cannot be forced onto the medium, or read, do not take the place of what is kept.
void WinterSitting::TakeResults() {
  void_ = false;
  pump_.reset();
  pump_ = Require(bench_.workspace.Rows(work_file::kWinter).Read(1));
  if (bench_.workspace.Flush(work_file::kWinter)) {
    told_ = WinterValuesIn(bench_, work_file::kWinter);
  }
}

Result<bool> WinterSitting::Write(const WinterValues& typed) {
  if (typed == told_) {
    const Outcome dropped = bench_.workspace.Remove(work_file::kWinterInWork);
    return dropped ? Result<bool>(false) : dropped.error();
  }
  const std::vector<SectionRow> rows = RowsOfWinterValues(rows_, typed);
  Outcome written = bench_.workspace.Write(work_file::kWinterInWork, EncodeRows<SectionRow>(rows));
  return written ? Result<bool>(true) : written.error();
}

Outcome WinterSitting::Keep(const WinterValues& typed, bool flush) {
  const auto write = [&]() -> Result<bool> {
    Result<bool> written = Write(typed);
    if (written) kept_ = typed;
    return written;
  };
  return file_.Keep(WantsKeeping(typed), flush, write,
                    [this] { return bench_.workspace.Flush(work_file::kWinterInWork); });
}

// Whatever fails, the sitting goes on with its values, and the study is marked by the last step
// only.
void WinterSitting::End(WinterData data) {
  duty_.Close();
  if (data == WinterData::kDropped) {
    Drop();
    return;
  }
  const bool changed = HasChanged();
  if (changed && !pump_) PutValues();
  if (changed) Require(bench_.workspace.Flush(work_file::kWinter));
  Require(bench_.workspace.Remove(work_file::kWinterInWork));
  if (changed) duty_.Settle(data);
}

void WinterSitting::PutValues() {
  duty_.PutValues(values_);
  told_ = values_;
  kept_.reset();  // the winter file has another value than it was kept with
}

// What was kept goes first: the next start would take it for what the user wants.
void WinterSitting::Drop() {
  kept_.reset();
  Require(bench_.workspace.Remove(work_file::kWinterInWork));
  if (!duty_.HasChanged()) return;
  // From here on the winter file is not sure to tell the values, or to hold the run.
  told_.reset();
  void_ = void_ || pump_;
  pump_.reset();
  duty_.Settle(WinterData::kDropped);
}

}  // namespace kalvo
