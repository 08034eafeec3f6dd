#include "engine/flow_report.h"

#include "engine/first_row_index.h"
#include "engine/row_store.h"
#include "study/by_number.h"

namespace kalvo {

namespace {

constexpr const char* kRule =
    "=========================================================================\n";

// Room for the report of a large network, so that the text is not moved about as it grows; what is
// not written to costs nothing.
constexpr std::size_t kReportRoom = 1U << 20U;

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

// The trace of the summing as text.
class FlowTrace {
 public:
  explicit FlowTrace(const std::vector<SectionLine>& table) : table_(table), text_(kRule) {
    names_.reserve(table.size());
    text_.reserve(kReportRoom);
    for (const SectionLine& line : table) {
      names_.push_back(FromCodePage(line.name.bytes()));
    }
  }

  void Begin(int row, const EmitterLine& emitter) {
    text_ += "Το Σώμα < " + NumberText(emitter.section) + " >, με κόμβους : " + Name(row) +
             " και παροχή : " + NumberText(emitter.flow_lh) + " [Lit/h],\n" +
             "επηρεάζει τα εξής τμήματα του Σωληνοδικτύου :\n";
  }

  void Step(int row) {
    const SectionLine& line = ByNumber(table_, row);
    text_ += "- ";
    text_ += NumberText(line.number);
    text_ += " -> κόμβοι: ";
    text_ += Name(row);
    text_ += ", μεταβάλλοντας την παροχή του σε : ";
    text_ += NumberText(*line.flow_lh);
    text_ += " [Lit/h]\n";
  }

  void End() { text_ += kRule; }

  [[nodiscard]] std::string TakeText() { return std::move(text_); }

 private:
  [[nodiscard]] const std::string& Name(int row) const { return ByNumber(names_, row); }

  const std::vector<SectionLine>& table_;
  std::vector<std::string> names_;
  std::string text_;
};

class FlowSummer {
 public:
  // Without a trace nothing is told of the walks.
  FlowSummer(std::vector<SectionLine>& table, FlowTrace* trace)
      : table_(table), links_(LinkRows(table)), by_number_(IndexByNumber(table)), trace_(trace) {}

  // Adds the emitters along their circuits; tells where a walk was lost.
  std::optional<LostWalk> Add(const std::vector<EmitterLine>& emitters) {
    for (const EmitterLine& emitter : emitters) {
      if (auto lost = Add(emitter)) {
        return lost;
      }
    }
    return std::nullopt;
  }

 private:
  using NodeOf = std::string_view (*)(const FixedText<7>&);

  std::optional<LostWalk> Add(const EmitterLine& emitter) {
    const int start = by_number_.First(NumberKey(emitter.section));
    if (start == 0) {
      return LostWalk{emitter.section, {}};
    }
    // Assigned, not added: what earlier emitters summed into this section is replaced.
    Line(start).flow_lh = emitter.flow_lh;
    if (trace_ != nullptr) {
      trace_->Begin(start, emitter);
    }
    auto lost = Walk(start, emitter, links_.previous, LeftNode);
    if (!lost) {
      lost = Walk(start, emitter, links_.next, RightNode);
    }
    if (!lost && trace_ != nullptr) {
      trace_->End();
    }
    return lost;
  }

  SectionLine& Line(int row) { return ByNumber(table_, row); }

  // More steps than rows cannot be: the names then form a circle.
  std::optional<LostWalk> Walk(int row, const EmitterLine& emitter, const std::vector<int>& links,
                               NodeOf node_of) {
    std::string_view node = node_of(Line(row).name);
    for (std::size_t step = 0; !IsSource(node); ++step) {
      row = ByNumber(links, row);
      if (row == 0 || step == table_.size()) {
        return LostWalk{emitter.section, FromCodePage(Trim(node))};
      }
      SectionLine& line = Line(row);
      line.flow_lh = ThroughText(line.flow_lh.value_or(0.0) + emitter.flow_lh);
      if (trace_ != nullptr) {
        trace_->Step(row);
      }
      node = node_of(line.name);
    }
    return std::nullopt;
  }

  std::vector<SectionLine>& table_;
  Links links_;
  FirstRowIndex by_number_;
  FlowTrace* trace_;
};

bool Sum(Study& study, const std::vector<EmitterLine>& emitters, FlowTrace* trace) {
  study.lost_walk = FlowSummer(study.SectionTable, trace).Add(emitters);
  return !study.lost_walk;
}

// Begins the summing; false unless one section ends at the source.
bool BeginSum(Study& study) {
  study.lost_walk.reset();
  if (!HasOneEnd(study.SectionTable)) {
    study.lost_walk = LostWalk{0, std::string(kSource)};
  }
  return !study.lost_walk;
}

}  // namespace

bool WriteSectionFlows(Workbench& bench) {
  Study& study = bench.study;
  bench.workspace.Delete(work_file::kFlowReport);
  if (!BeginSum(study)) {
    return false;
  }
  FlowTrace trace(study.SectionTable);
  const bool summed = Sum(study, study.EmitterTable, &trace);
  Require(bench.workspace.Write(work_file::kFlowReport, trace.TakeText()));
  return summed;
}

bool SumSectionFlows(Study& study) {
  return BeginSum(study) && Sum(study, study.EmitterTable, nullptr);
}

bool SumWinterFlows(Study& study) {
  return BeginSum(study) && Sum(study, study.WinterEmitterTable, nullptr);
}

}  // namespace kalvo
