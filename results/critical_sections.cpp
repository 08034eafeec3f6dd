#include "results/critical_sections.h"

#include "study/by_number.h"
#include "study/codepage.h"

namespace kalvo {
namespace {

constexpr std::size_t kCellWidth = 4;
constexpr std::size_t kNumberWidth = 3;

std::string NodeText(std::string_view node) { return FromCodePage(Trim(node)); }

}  // namespace

std::vector<int> CriticalSections(std::string_view branch, std::size_t row_count) {
  std::vector<int> sections;
  constexpr Separators kPlain{'.', ','};
  for (std::size_t at = 0; at < branch.size(); at += kCellWidth) {
    const double number = ParseNumber(branch.substr(at, kNumberWidth), kPlain);
    if (number >= 1 && number <= static_cast<double>(row_count)) {
      sections.push_back(static_cast<int>(number));
    }
  }
  return sections;
}

std::vector<std::string> NodesAlong(SystemKind kind, std::span<const SectionRow> rows,
                                    std::span<const int> sections) {
  const bool open = kind == SystemKind::kOpen;
  std::vector<std::string> nodes;
  for (const int section : sections) {
    const FixedText<7>& name = ByNumber(rows, section).Name;
    if (nodes.empty()) {
      nodes.push_back(NodeText(open ? RightNode(name) : LeftNode(name)));
    }
    nodes.push_back(NodeText(open ? LeftNode(name) : RightNode(name)));
  }
  return nodes;
}

std::string BranchLine(const std::vector<std::string>& nodes) {
  std::string line;
  for (const std::string& node : nodes) line += (line.empty() ? "" : " – ") + node;
  return line;
}

}  // namespace kalvo
