#include "results/section_picks.h"

#include <algorithm>
#include <cmath>

#include "engine/branches.h"
#include "results/critical_sections.h"
#include "study/fault.h"
#include "study/tables.h"

namespace kalvo {
namespace {

// The circuit, or the way from row 1. A branch names no section beyond 999: there is none then.
Branch WayOf(const Study& walked) {
  try {
    const auto ways =
        walked.SystemOpen() ? BuildOpenBranchStrings(walked) : BuildBranchStrings(walked);
    return ways.front();
  } catch (const Fault&) {
    return {};
  }
}

}  // namespace

SectionPicks::SectionPicks(SystemKind kind, std::vector<SectionRow> rows,
                           std::string_view critical_branch)
    : rows_(std::move(rows)), critical_(rows_.size(), false) {
  for (const int section : CriticalSections(critical_branch, rows_.size())) {
    critical_[static_cast<std::size_t>(section) - 1] = true;
  }
  walked_.system_kind = kind;
  RefreshSectionTable(walked_, rows_);
  int number = 0;
  for (SectionLine& line : walked_.SectionTable) line.number = ++number;
}

template <typename Wanted>
std::vector<int> SectionPicks::Where(const Wanted& wanted) const {
  std::vector<int> numbers;
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    if (wanted(i)) numbers.push_back(static_cast<int>(i) + 1);
  }
  return numbers;
}

std::vector<std::string> SectionPicks::Diameters() const {
  std::vector<const SectionRow*> rising;
  for (const SectionRow& row : rows_) rising.push_back(&row);
  std::ranges::stable_sort(rising, {},
                           [](const SectionRow* row) { return std::fabs(row->InDiameter); });
  std::vector<std::string> diameters;
  for (const SectionRow* row : rising) {
    std::string diameter = row->NomiDiam.Utf8();
    if (std::ranges::count(diameters, diameter) == 0) diameters.push_back(std::move(diameter));
  }
  return diameters;
}

std::vector<int> SectionPicks::WithDiameter(std::string_view nominal) const {
  return Where([&](std::size_t i) { return rows_[i].NomiDiam.Utf8() == nominal; });
}

std::vector<int> SectionPicks::OnCriticalBranch() const {
  return Where([&](std::size_t i) { return critical_[i]; });
}

std::vector<int> SectionPicks::OffCriticalBranch() const {
  return Where([&](std::size_t i) { return !critical_[i]; });
}

std::vector<int> SectionPicks::Emitters() const {
  return Where([&](std::size_t i) { return rows_[i].HasEmitter(); });
}

std::vector<int> SectionPicks::AlongWayOf(int section) const {
  Study walked = walked_;
  walked.EmitterTable = {{section, 0, 0}};
  const Branch way = WayOf(walked);
  return Where([&](std::size_t i) {
    const int number = static_cast<int>(i) + 1;
    return number == section || std::ranges::count(way, number) != 0;
  });
}

// Single values are compared as they read, so that 0,9 is not below 0,9.
std::vector<int> SectionPicks::FasterThan(double velocity) const {
  return Where([&](std::size_t i) { return ThroughText(rows_[i].Velocity) > velocity; });
}

std::vector<int> SectionPicks::SlowerThan(double velocity) const {
  return Where([&](std::size_t i) { return ThroughText(rows_[i].Velocity) < velocity; });
}

}  // namespace kalvo
