#include "engine/branches.h"

#include <algorithm>

#include "engine/first_row_index.h"
#include "study/fault.h"

namespace kalvo {

namespace {

constexpr std::size_t kCellDigits = 3;

class BranchBuilder {
 public:
  explicit BranchBuilder(std::span<const SectionLine> table)
      : table_(table), links_(LinkRows(table)), by_number_(IndexByNumber(table)) {}

  Branch Build(int emitter_section) {
    // A number that no row bears leaves the name found before in place.
    if (const int found = by_number_.First(NumberKey(emitter_section)); found != 0) {
      start_ = found;
    }
    Branch branch;
    if (start_ != 0) {
      WalkToStart(branch);
      std::reverse(branch.begin(), branch.end());
    }
    branch.push_back(emitter_section);
    if (start_ != 0) {
      WalkToEnd(branch);
    }
    for (const int number : branch) {
      RequireCell(number);
    }
    return branch;
  }

 private:
  [[nodiscard]] const SectionLine& Line(int row) const {
    return table_[static_cast<std::size_t>(row - 1)];
  }

  template <typename Arrived>
  void Walk(Branch& branch, const std::vector<int>& links, Arrived&& arrived) const {
    int row = start_;
    for (std::size_t step = 0; step < table_.size() && !arrived(Line(row).name); ++step) {
      row = links[static_cast<std::size_t>(row - 1)];
      if (row == 0) {
        return;
      }
      branch.push_back(Line(row).number);
    }
  }

  void WalkToEnd(Branch& branch) const {
    Walk(branch, links_.next, [](const FixedText<7>& name) { return RightNode(name) == kSource; });
  }

  void WalkToStart(Branch& branch) const {
    Walk(branch, links_.previous,
         [](const FixedText<7>& name) { return LeftNode(name) == kSource; });
  }

  std::span<const SectionLine> table_;
  Links links_;
  FirstRowIndex by_number_;
  int start_ = 0;
};

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
  BranchBuilder builder(study.SectionTable);
  std::vector<Branch> branches;
  branches.reserve(study.EmitterTable.size());
  for (const EmitterLine& emitter : study.EmitterTable) {
    branches.push_back(builder.Build(emitter.section));
  }
  return branches;
}

}  // namespace kalvo
