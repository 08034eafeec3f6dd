#include "engine/balancing.h"

#include "engine/first_row_index.h"
#include "engine/open_network.h"
#include "engine/row_store.h"

namespace kalvo {

namespace {

// Cuts every branch down to what it has for itself and hands it to `step_down(chain, fork,
// available)`; the fork is the last cell in common with the critical branch, 0 without one.
template <typename StepDown>
class Balancer {
 public:
  Balancer(const BalanceContext& context, StepDown step_down)
      : context_(context), step_down_(std::move(step_down)) {}

  void Run() {
    const auto& branches = context_.critical.branches;
    // The last branch of the table is never stepped down: that is how the method is defined.
    for (std::size_t k = 0; k + 1 < branches.size(); ++k) {
      if (branches[k] != context_.critical.chain) {
        Balance(branches[k]);
      }
    }
  }

 private:
  void Balance(Branch branch) {
    const bool has_fork = CutHead(branch);
    const float at_fork = fork_ == 0 ? 0.0F : context_.rows.At(fork_).AvaiPres;
    CopyWithoutCommonEnd(branch);
    const float available = ToSingle(at_fork - CutTail(branch));
    step_down_(std::move(branch), has_fork ? fork_ : 0, available);
  }

  // Drops the cells that the branch has in common with the critical one from the source on; false
  // when there are none.
  bool CutHead(Branch& branch) {
    const Branch& chain = context_.critical.chain;
    std::size_t common = 0;
    while (common < branch.size() && common < chain.size() && branch[common] == chain[common]) {
      fork_ = branch[common++];
    }
    branch.erase(branch.begin(), branch.begin() + static_cast<std::ptrdiff_t>(common));
    return common > 0;
  }

  // One cell at most is taken for common; without one the copy of the branch before stands.
  void CopyWithoutCommonEnd(const Branch& branch) {
    const Branch& chain = context_.critical.chain;
    if (!branch.empty() && !chain.empty() && branch.back() == chain.back()) {
      copy_ = branch;
      copy_.pop_back();
    }
  }

  // Drops cells from the end until the branch ends as the copy does; gives their drops' sum.
  double CutTail(Branch& branch) const {
    double sum = 0;
    while (!branch.empty() && (copy_.empty() || branch.back() != copy_.back())) {
      sum += context_.rows.At(branch.back()).TotalDrop;
      branch.pop_back();
    }
    return sum;
  }

  const BalanceContext& context_;
  StepDown step_down_;
  int fork_ = 0;  // last head cell dropped, of this branch or an earlier one
  Branch copy_;
};

// What the rows bear in `Auxi` before the balancing, which uses it for marks of its own and may
// give one row what another bore: the plant's mark, which must be on the plant section alone.
class OwnMarks {
 public:
  explicit OwnMarks(const RowTable& table) {
    for (const SectionRow& row : table.rows()) {
      marks_.push_back(row.Auxi == kSteppedDown ? std::int16_t{0} : row.Auxi);
    }
  }

  void GiveBack(RowTable& table) const {
    for (std::size_t i = 0; i < marks_.size(); ++i) {
      table.rows()[i].Auxi = marks_[i];
    }
  }

 private:
  std::vector<std::int16_t> marks_;
};

}  // namespace

void BalanceBranches(const BalanceContext& context, const NotePostponed& note) {
  const OwnMarks marks(context.rows);
  try {
    Balancer(context, [&context](Branch chain, int /*fork*/, float available) {
      StepDownBranch(context, std::move(chain), available);
    }).Run();
    SettleOtherRows(context.rows, context.critical.chain, note);
  } catch (const Fault&) {
    // A mark that outlived its run would count as a plant in the next one.
    marks.GiveBack(context.rows);
    throw;
  }
  marks.GiveBack(context.rows);
}

void BalanceOpenBranches(const BalanceContext& context) {
  const std::vector<int> feeders = LinkFeeders(context.study.SectionTable);
  Balancer(context, [&](Branch chain, int fork, float available) {
    const int last = StepDownOpenBranch(context, std::move(chain), fork, available);
    if (last != 0) {
      SettleFedRow(context.rows, feeders, last, context.critical.drop);
    }
  }).Run();
}

void CriticalPassPressure(Study& study, RowTable& table, const PassConditions& pass,
                          const NotePostponed& note) {
  const CriticalBranch critical = SettleCriticalBranch(study, table);
  BalanceBranches(MakeBalanceContext(study, table, pass, critical), note);
}

void OpenPassPressure(Study& study, RowTable& table, const PassConditions& pass) {
  const CriticalBranch critical = SettleOpenCriticalBranch(study, table);
  BalanceOpenBranches(MakeBalanceContext(study, table, pass, critical));
}

void CriticalPassPressure(Workbench& bench) {
  if (const auto pass = TakePassConditions(bench)) {
    PostponedFile postponed(bench.workspace);
    RowStore store(bench.workspace);
    store.SaveAfter([&] { CriticalPassPressure(bench.study, store, *pass, postponed.Note()); });
  }
}

void OpenPassPressure(Workbench& bench) {
  if (const auto pass = TakePassConditions(bench)) {
    RowStore store(bench.workspace);
    store.SaveAfter([&] { OpenPassPressure(bench.study, store, *pass); });
  }
}

}  // namespace kalvo
