#include "engine/branches.h"

#include <algorithm>

#include "engine/first_row_index.h"
#include "study/by_number.h"
#include "study/fault.h"

namespace kalvo {

namespace {

constexpr std::size_t kCellDigits = 3;

class BranchBuilder {
 public:
  BranchBuilder(std::span<const SectionLine> table, Links links)
      : table_(table), links_(std::move(links)), by_number_(IndexByNumber(table)) {}

  Branch Build(int emitter_section) {
    // A number that no row bears leaves the name found before in place.
    if (const int found = by_number_.First(NumberKey(emitter_section)); found != 0) {
      start_ = found;
    }
    Branch branch;
    Walk(branch, links_.previous);
    std::reverse(branch.begin(), branch.end());
    branch.push_back(emitter_section);
    Walk(branch, links_.next);
    for (const int number : branch) {
      RequireCell(number);
    }
    return branch;
  }

 private:
  void Walk(Branch& branch, const std::vector<int>& links) const {
    int row = start_;
    for (std::size_t step = 0; step < links.size() && row != 0; ++step) {
      row = ByNumber(links, row);
      if (row != 0) {
        branch.push_back(ByNumber(table_, row).number);
      }
    }
  }

  std::span<const SectionLine> table_;
  Links links_;
  FirstRowIndex by_number_;
  int start_ = 0;
};

std::vector<Branch> BuildBranches(const Study& study, Links links) {
  BranchBuilder builder(study.SectionTable, std::move(links));
  std::vector<Branch> branches;
  branches.reserve(study.EmitterTable.size());
  for (const EmitterLine& emitter : study.EmitterTable) {
    branches.push_back(builder.Build(emitter.section));
  }
  return branches;
}

}  // namespace

void RequireCell(int number) {
  constexpr int kLeast = -99;
  constexpr int kMost = 999;
  if (number < kLeast || number > kMost) {
    throw Fault(FaultCode::kBadArgument, "section number of more than three characters");
  }
}

std::string NumberCell(int number) {
  RequireCell(number);
  return PadBehind(std::to_string(number), kCellDigits) + "-";
}

std::string BranchText(std::span<const int> branch) {
  std::string text;
  for (const int number : branch) {
    text += NumberCell(number);
  }
  return text;
}

std::vector<Branch> BuildBranchStrings(const Study& study) {
  return BuildBranches(study, LinkRows(study.SectionTable));
}

std::vector<Branch> BuildOpenBranchStrings(const Study& study) {
  return BuildBranches(study, {{}, LinkFeeders(study.SectionTable)});
}

}  // namespace kalvo
