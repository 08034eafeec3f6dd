#include "results/drop_explainer.h"

#include "study/fault.h"

namespace kalvo {
namespace {

class NobodyAsked : public Prompter {
 public:
  Answer ShowMessage(int /*code*/, const Study& /*study*/) override { return Answer::kNone; }
  Answer Ask(const Box& /*box*/) override { return Answer::kNone; }
};

// An explanation is no pass: a fault in it breaks nothing off, there is just nothing to explain.
template <typename Work>
auto UnlessFaulty(Work&& work) -> decltype(work()) {
  try {
    return work();
  } catch (const Fault&) {
    return std::nullopt;
  }
}

}  // namespace

DropExplainer::DropExplainer(const Workbench& bench, float temperature)
    : kind_(bench.study.system_kind) {
  Study aside = bench.study;  // loading the conditions notes status and density in it
  NobodyAsked nobody;
  Workbench quiet(aside, bench.workspace, bench.pipes, nobody);
  pass_ = UnlessFaulty([&] { return LoadPassConditions(quiet, temperature); });
}

std::optional<DropExplanation> DropExplainer::Explain(const SectionRow& row) const {
  if (!pass_) return std::nullopt;
  return UnlessFaulty([&] { return std::optional(ExplainRow(kind_, row, *pass_)); });
}

}  // namespace kalvo
