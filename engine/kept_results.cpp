#include "engine/kept_results.h"

#include <algorithm>

#include "engine/driver.h"
#include "study/rounding.h"

namespace kalvo {

namespace {

// The open pass of the first method rounds it, no other does.
float PumpHeadOf(const Study& study, const SectionRow& first) {
  const float head = ToSingle(first.DP / 1000.0);
  const bool rounded = study.SystemOpen() && MethodOf(first) == Method::kFlowOnly;
  return rounded ? ToSingle(RoundTo(head, 4)) : head;
}

}  // namespace

bool HaveSameDiameters(const RowTable& a, const RowTable& b) {
  return std::ranges::equal(a.rows(), b.rows(), [](const SectionRow& one, const SectionRow& other) {
    return one.NomiDiam.Trimmed() == other.NomiDiam.Trimmed();
  });
}

void CopyKeptResults(const RowTable& kept, RowTable& rows) {
  for (int number = 1; number <= rows.count(); ++number) {
    const SectionRow& from = kept.At(number);
    SectionRow& to = rows.At(number);
    to.NomiDiam = from.NomiDiam;
    to.InDiameter = from.InDiameter;
    for (float SectionRow::*const result : kRunResults) {
      to.*result = from.*result;
    }
  }
}

void TakeKeptResults(Workbench& bench, const RowTable& kept, RowTable& rows) {
  CopyKeptResults(kept, rows);
  FollowResults(bench, rows);
}

void FollowResults(Workbench& bench, const RowTable& rows) {
  Study& study = bench.study;
  const SectionRow& first = rows.At(1);
  study.TotalFlowM3h = first.PAR;
  study.CriticalDrop = first.DP;
  study.PumpHead = PumpHeadOf(study, first);
  RefindCriticalBranch(bench, rows);
}

}  // namespace kalvo
