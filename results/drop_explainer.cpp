#include "results/drop_explainer.h"

#include "study/fault.h"

namespace kalvo {
namespace {

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
  pass_ = UnlessFaulty([&]() -> std::optional<PassConditions> {
    PassConditions pass = ReadPassConditions(bench.workspace, bench.study, temperature);
    return pass.fluid_fits ? std::optional(std::move(pass)) : std::nullopt;
  });
}

std::optional<DropExplanation> DropExplainer::Explain(const SectionRow& row) const {
  if (!pass_) return std::nullopt;
  return UnlessFaulty([&] { return std::optional(ExplainRow(kind_, row, *pass_)); });
}

}  // namespace kalvo
