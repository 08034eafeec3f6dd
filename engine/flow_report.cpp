#include "engine/flow_report.h"

#include "engine/first_row_index.h"
#include "engine/row_store.h"

namespace kalvo {

namespace {

constexpr const char* kRule =
    "=========================================================================\n";

// Room for the report of a large network, so that the text is not moved about as it grows; what is
// not written to costs nothing.
constexpr std::size_t kReportRoom = 1U << 22U;

bool IsSource(std::string_view node) { return node == kSource; }

// Clears the flows and says whether exactly one row ends at the source.
bool HasOneEnd(std::vector<SectionLine>& table) {
  bool found = false;
  for (SectionLine& line : table) {
    line.flow_lh.reset();
    if (!IsSource(RightNode(line.name))) {
      continue;
    }
    if (found) {
      return false;
    }
    found = true;
  }
  return found;
}

class FlowSummer {
 public:
  explicit FlowSummer(std::vector<SectionLine>& table)
      : table_(table), links_(LinkRows(table)), by_number_(IndexByNumber(table)), text_(kRule) {
    names_.reserve(table.size());
    text_.reserve(kReportRoom);
    for (const SectionLine& line : table) {
      names_.push_back(FromCodePage(line.name.bytes()));
    }
  }

  // Adds one emitter along its circuit; tells where the walk was lost.
  std::optional<LostWalk> Add(const EmitterLine& emitter) {
    const int start = by_number_.First(NumberKey(emitter.section));
    if (start == 0) {
      return LostWalk{emitter.section, {}};
    }
    // Assigned, not added: what earlier emitters summed into this section is replaced.
    Line(start).flow_lh = emitter.flow_lh;
    const std::string flow = NumberText(emitter.flow_lh);
    text_ += "Το Σώμα < " + NumberText(emitter.section) + " >, με κόμβους : " + Name(start) +
             " και παροχή : " + flow + " [Lit/h],\n" +
             "επηρεάζει τα εξής τμήματα του Σωληνοδικτύου :\n";
    auto lost = Walk(start, emitter, links_.previous, LeftNode);
    if (!lost) {
      lost = Walk(start, emitter, links_.next, RightNode);
    }
    if (!lost) {
      text_ += kRule;
    }
    return lost;
  }

  [[nodiscard]] std::string TakeText() { return std::move(text_); }

 private:
  using NodeOf = std::string_view (*)(const FixedText<7>&);

  SectionLine& Line(int row) { return table_[static_cast<std::size_t>(row - 1)]; }
  const std::string& Name(int row) const { return names_[static_cast<std::size_t>(row - 1)]; }

  // More steps than rows cannot be: the names then form a circle.
  std::optional<LostWalk> Walk(int row, const EmitterLine& emitter, const std::vector<int>& links,
                               NodeOf node_of) {
    std::string_view node = node_of(Line(row).name);
    for (std::size_t step = 0; !IsSource(node); ++step) {
      row = links[static_cast<std::size_t>(row - 1)];
      if (row == 0 || step == table_.size()) {
        return LostWalk{emitter.section, FromCodePage(Trim(node))};
      }
      SectionLine& line = Line(row);
      line.flow_lh = ThroughText(line.flow_lh.value_or(0.0) + emitter.flow_lh);
      PrintStep(row);
      node = node_of(line.name);
    }
    return std::nullopt;
  }

  void PrintStep(int row) {
    const SectionLine& line = Line(row);
    text_ += "- ";
    text_ += NumberText(line.number);
    text_ += " -> κόμβοι: ";
    text_ += Name(row);
    text_ += ", μεταβάλλοντας την παροχή του σε : ";
    text_ += NumberText(*line.flow_lh);
    text_ += " [Lit/h]\n";
  }

  std::vector<SectionLine>& table_;
  Links links_;
  FirstRowIndex by_number_;
  std::vector<std::string> names_;
  std::string text_;
};

}  // namespace

void WriteSectionFlows(Workbench& bench) {
  Study& study = bench.study;
  bench.workspace.Delete(work_file::kFlowReport);
  study.lost_walk.reset();
  if (!HasOneEnd(study.SectionTable)) {
    study.lost_walk = LostWalk{0, std::string(kSource)};
    study.CalcStatus = calc_status::kBranchLost;
    return;
  }
  FlowSummer summer(study.SectionTable);
  for (const EmitterLine& emitter : study.EmitterTable) {
    study.lost_walk = summer.Add(emitter);
    if (study.lost_walk) {
      study.CalcStatus = calc_status::kBranchLost;
      break;
    }
  }
  Require(bench.workspace.Write(work_file::kFlowReport, summer.TakeText()));
}

}  // namespace kalvo
